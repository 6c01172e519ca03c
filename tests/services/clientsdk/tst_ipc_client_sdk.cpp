#include "clientsdk/ipc_client_sdk.h"

#include <QtTest>

#include <stdexcept>

class TestIpcClientSdk : public QObject
{
    Q_OBJECT

private slots:
    void setActiveAsksTheHandlerAndCountsEveryCall()
    {
        int const before = IpcClientSdk::ActiveRequestCount();
        QVERIFY(IpcClientSdk::SetActive()); // no link yet: recorded, and no failure
        bool answer = false;
        IpcClientSdk::SetActiveHandler([&] { return answer; });
        QVERIFY(!IpcClientSdk::SetActive());
        answer = true;
        QVERIFY(IpcClientSdk::SetActive());
        IpcClientSdk::SetActiveHandler([]() -> bool { throw std::runtime_error("link down"); });
        QVERIFY(!IpcClientSdk::SetActive());
        IpcClientSdk::SetActiveHandler(nullptr);
        QVERIFY(IpcClientSdk::SetActive());
        QCOMPARE(IpcClientSdk::ActiveRequestCount(), before + 5);
    }
};

QTEST_GUILESS_MAIN(TestIpcClientSdk)
#include "tst_ipc_client_sdk.moc"
