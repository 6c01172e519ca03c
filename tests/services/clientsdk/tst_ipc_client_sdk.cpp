#include "clientsdk/ipc_client_sdk.h"

#include <QtTest>

#include <stdexcept>

class TestIpcClientSdk : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { IpcClientSdk::SetActiveHandler(nullptr); }
    void withoutHandlerRecordsAndSucceeds();
    void handlerDecides();
    void throwingHandlerFails();
};

void TestIpcClientSdk::withoutHandlerRecordsAndSucceeds()
{
    int const before = IpcClientSdk::ActiveRequestCount();
    QVERIFY(IpcClientSdk::SetActive());
    QVERIFY(IpcClientSdk::SetActive());
    QCOMPARE(IpcClientSdk::ActiveRequestCount(), before + 2);
}

void TestIpcClientSdk::handlerDecides()
{
    int calls = 0;
    bool answer = false;
    IpcClientSdk::SetActiveHandler([&] {
        ++calls;
        return answer;
    });
    int const before = IpcClientSdk::ActiveRequestCount();
    QVERIFY(!IpcClientSdk::SetActive());
    answer = true;
    QVERIFY(IpcClientSdk::SetActive());
    QCOMPARE(calls, 2);
    QCOMPARE(IpcClientSdk::ActiveRequestCount(), before + 2);

    IpcClientSdk::SetActiveHandler(nullptr);
    answer = false;
    QVERIFY(IpcClientSdk::SetActive());
    QCOMPARE(calls, 2);
}

void TestIpcClientSdk::throwingHandlerFails()
{
    IpcClientSdk::SetActiveHandler([]() -> bool { throw std::runtime_error("link down"); });
    QVERIFY(!IpcClientSdk::SetActive());
}

QTEST_GUILESS_MAIN(TestIpcClientSdk)
#include "tst_ipc_client_sdk.moc"
