#include "runtime/auto_executor_mgr.h"

#include <algorithm>

namespace nbase {

namespace {
void Run(executor_base *executor)
{
    try {
        executor->run();
    } catch (...) {
        // One failing task must not keep the others from running.
    }
}
} // namespace

executor_base::~executor_base()
{
    auto_executor_mgr::instance().removeAfterLaunchExecutor(this);
}

auto_executor_mgr::auto_executor_mgr() = default;
auto_executor_mgr::~auto_executor_mgr() = default;

auto_executor_mgr &auto_executor_mgr::instance()
{
    // Leaked on purpose: executors with static storage leave it during exit.
    static auto_executor_mgr *const mgr = new auto_executor_mgr;
    return *mgr;
}

void auto_executor_mgr::addAfterLaunchExecutor(executor_base *executor)
{
    if (!executor || std::find(m_waiting.begin(), m_waiting.end(), executor) != m_waiting.end())
        return;
    if (m_launched && !m_running && QCoreApplication::instance()) {
        Run(executor);
        return;
    }
    m_waiting.push_back(executor);
}

void auto_executor_mgr::removeAfterLaunchExecutor(executor_base *executor)
{
    m_waiting.erase(std::remove(m_waiting.begin(), m_waiting.end(), executor), m_waiting.end());
}

void auto_executor_mgr::runAfterLaunchExecutors()
{
    if (m_running)
        return;
    m_launched = true;
    m_running = true;
    // Executors entered while this runs join the queue and run in this pass.
    while (!m_waiting.empty()) {
        executor_base *const executor = m_waiting.front();
        m_waiting.pop_front();
        Run(executor);
    }
    m_running = false;
}

bool auto_executor_mgr::isLaunched() const
{
    return m_launched;
}

} // namespace nbase
