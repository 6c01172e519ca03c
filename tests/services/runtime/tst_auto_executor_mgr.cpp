#include "runtime/auto_executor_mgr.h"

#include <QAbstractEventDispatcher>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

std::vector<int> g_runs;

class RecordingExecutor : public nbase::executor_base
{
public:
    explicit RecordingExecutor(int id)
        : m_id(id)
    {
    }
    void run() override
    {
        g_runs.push_back(m_id);
        if (spawn)
            nbase::auto_executor_mgr::instance().addAfterLaunchExecutor(spawn);
    }
    // Entered while this one runs.
    nbase::executor_base *spawn = nullptr;

private:
    int m_id;
};

// A process-wide filter entered the usual way.
class ProbeFilter : public QAbstractNativeEventFilter, public nbase::auto_execute_after_launch<ProbeFilter>
{
public:
    ProbeFilter() { ++constructed; }
    bool nativeEventFilter(QByteArray const &eventType, void *, long *) override
    {
        if (eventType == "kelvo-probe")
            ++seen;
        return false;
    }
    static int constructed;
    int seen = 0;
};
int ProbeFilter::constructed = 0;

// Entered before main, destroyed before launch: must never run.
RecordingExecutor *g_early = new RecordingExecutor(100);
RecordingExecutor *g_gone = [] {
    auto *gone = new RecordingExecutor(-1);
    nbase::auto_executor_mgr::instance().addAfterLaunchExecutor(g_early);
    nbase::auto_executor_mgr::instance().addAfterLaunchExecutor(gone);
    return gone;
}();

int ProbeEvents()
{
    long result = 0;
    QAbstractEventDispatcher::instance()->filterNativeEvent("kelvo-probe", nullptr, &result);
    return ProbeFilter::instance.seen;
}

} // namespace

class TestAutoExecutorMgr : public QObject
{
    Q_OBJECT

private slots:
    void launchRunsEachExecutorOnceInOrder();
    void filterIsInstalledAfterLaunch();
    void executorEnteredAfterLaunchRunsAtOnce();
};

void TestAutoExecutorMgr::launchRunsEachExecutorOnceInOrder()
{
    nbase::auto_executor_mgr &mgr = nbase::auto_executor_mgr::instance();
    QVERIFY(!mgr.isLaunched());
    delete g_gone;
    RecordingExecutor second(200);
    RecordingExecutor third(300);
    RecordingExecutor spawned(400);
    second.spawn = &spawned;
    mgr.addAfterLaunchExecutor(&second);
    mgr.addAfterLaunchExecutor(&third);
    mgr.addAfterLaunchExecutor(&second); // already waiting
    mgr.addAfterLaunchExecutor(nullptr);
    QVERIFY(g_runs.empty());
    QCOMPARE(ProbeEvents(), 0); // not before launch

    mgr.runAfterLaunchExecutors();
    QVERIFY(mgr.isLaunched());
    // One entered during the pass joins its end.
    QCOMPARE(g_runs, (std::vector<int>{100, 200, 300, 400}));
    mgr.runAfterLaunchExecutors();
    QCOMPARE(g_runs.size(), size_t(4));
    delete g_early;
}

void TestAutoExecutorMgr::filterIsInstalledAfterLaunch()
{
    QCOMPARE(ProbeFilter::constructed, 1);
    int const before = ProbeFilter::instance.seen;
    QCOMPARE(ProbeEvents(), before + 1);
    QCOMPARE(ProbeEvents(), before + 2); // installed once, so one call per event
}

void TestAutoExecutorMgr::executorEnteredAfterLaunchRunsAtOnce()
{
    g_runs.clear();
    RecordingExecutor late(500);
    nbase::auto_executor_mgr::instance().addAfterLaunchExecutor(&late);
    QCOMPARE(g_runs, std::vector<int>{500});
}

QTEST_GUILESS_MAIN(TestAutoExecutorMgr)
#include "tst_auto_executor_mgr.moc"
