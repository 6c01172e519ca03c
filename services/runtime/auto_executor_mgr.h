#pragma once
// Tasks that run once the client application has launched.
//
// Static objects of a library are built before any QCoreApplication exists, so what
// needs one (a native event filter, say) enters an executor with
// auto_executor_mgr::instance().addAfterLaunchExecutor(). After launch, once its
// QApplication exists, the client calls runAfterLaunchExecutors() once: every
// executor entered so far runs once, in the order entered. An executor entered later
// runs at once if a QCoreApplication exists, or else at the next
// runAfterLaunchExecutors(). An executor that is destroyed before it ran is forgotten.
//
// auto_execute_after_launch<T> is the usual way in for a process-wide native event
// filter T:
//
//     class MyEffect : public QAbstractNativeEventFilter,
//                      public nbase::auto_execute_after_launch<MyEffect> { ... };
//
// It owns the one static MyEffect (auto_execute_after_launch<MyEffect>::instance), and
// its executor installs that instance with QCoreApplication::installNativeEventFilter
// after launch. Both come to life through static initialisation as soon as MyEffect's
// constructor is compiled (define it in MyEffect's source file), or wherever
// `instance` is named. Only the GUI thread uses this.

#include "runtime/kelvoruntime_export.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <deque>

namespace nbase {

class KELVORUNTIME_EXPORT executor_base
{
public:
    virtual ~executor_base();
    virtual void run() = 0;
};

class KELVORUNTIME_EXPORT auto_executor_mgr
{
public:
    // Never destroyed, so executors may leave it during static destruction.
    static auto_executor_mgr &instance();

    void addAfterLaunchExecutor(executor_base *executor);
    // Takes out an executor that has not run yet; executor_base's destructor calls it.
    void removeAfterLaunchExecutor(executor_base *executor);
    // Runs every waiting executor once, in the order entered, and marks the
    // application as launched.
    void runAfterLaunchExecutors();
    bool isLaunched() const;

    auto_executor_mgr(auto_executor_mgr const &) = delete;
    auto_executor_mgr &operator=(auto_executor_mgr const &) = delete;

private:
    auto_executor_mgr();
    ~auto_executor_mgr();

    std::deque<executor_base *> m_waiting;
    bool m_launched = false;
    bool m_running = false;
};

template <typename T>
class auto_execute_after_launch
{
public:
    class executor : public executor_base
    {
    public:
        void run() override
        {
            if (QCoreApplication *app = QCoreApplication::instance())
                app->installNativeEventFilter(static_cast<QAbstractNativeEventFilter *>(&instance));
        }
    };

    // The one instance of T, built by static initialisation.
    static T instance;

protected:
    auto_execute_after_launch()
    {
        // Referring to the trigger is what makes static initialisation enter the executor.
        static_cast<void>(&s_entered);
    }
    ~auto_execute_after_launch() = default;

private:
    static bool enter()
    {
        static bool entered = false;
        if (entered)
            return true;
        entered = true;
        static executor theExecutor; // destroyed at exit, which takes it out of the manager
        auto_executor_mgr::instance().addAfterLaunchExecutor(&theExecutor);
        return true;
    }

    static bool const s_entered;
};

template <typename T>
T auto_execute_after_launch<T>::instance;

template <typename T>
bool const auto_execute_after_launch<T>::s_entered = auto_execute_after_launch<T>::enter();

} // namespace nbase
