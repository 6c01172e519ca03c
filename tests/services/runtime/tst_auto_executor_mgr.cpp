#include "runtime/auto_executor_mgr.h"

#include <QAbstractEventDispatcher>
#include <QtTest>

#include <vector>

namespace {

std::vector<int> g_runs;

// Records its id when run; enters `spawn` while it runs.
struct Recording : nbase::executor_base
{
    explicit Recording(int id, nbase::executor_base *spawn = nullptr) : id(id), spawn(spawn) {}
    void run() override
    {
        g_runs.push_back(id);
        if (spawn)
            nbase::auto_executor_mgr::instance().addAfterLaunchExecutor(spawn);
    }
    int id;
    nbase::executor_base *spawn;
};

// A process-wide filter, entered before main the usual way.
struct ProbeFilter : QAbstractNativeEventFilter, nbase::auto_execute_after_launch<ProbeFilter>
{
    ProbeFilter() { ++constructed; }
    bool nativeEventFilter(QByteArray const &type, void *, long *) override
    {
        seen += type == "kelvo-probe";
        return false;
    }
    static inline int constructed = 0;
    int seen = 0;
};

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
    void launchRunsEachExecutorOnceInOrder()
    {
        nbase::auto_executor_mgr &mgr = nbase::auto_executor_mgr::instance();
        QVERIFY(!mgr.isLaunched());
        Recording spawned(3), second(2);
        Recording first(1, &spawned);
        auto *gone = new Recording(-1);
        for (nbase::executor_base *e : {&first, gone, &second, &first, static_cast<Recording *>(nullptr)})
            mgr.addAfterLaunchExecutor(e); // the repeat and null are ignored
        delete gone; // destroyed before it ran: forgotten
        QCOMPARE(ProbeEvents(), 0); // the filter waits for the launch too

        mgr.runAfterLaunchExecutors();
        mgr.runAfterLaunchExecutors();
        QVERIFY(mgr.isLaunched());
        QCOMPARE(g_runs, (std::vector<int>{1, 2, 3})); // entered during the pass: joins its end
        QCOMPARE(ProbeFilter::constructed, 1);
        QCOMPARE(ProbeEvents(), 1); // installed once: one call per event
        QCOMPARE(ProbeEvents(), 2);

        Recording late(4); // entered after launch: runs at once
        mgr.addAfterLaunchExecutor(&late);
        QCOMPARE(g_runs, (std::vector<int>{1, 2, 3, 4}));
    }
};

QTEST_GUILESS_MAIN(TestAutoExecutorMgr)
#include "tst_auto_executor_mgr.moc"
