#include "runtime/log_output.h"

#include <QtTest>

#include <vector>

namespace {

struct QtRecord
{
    QtMsgType type;
    QString category;
    QString file;
    int line;
    QString function;
    QString message;
};

std::vector<QtRecord> g_qtRecords;

void Capture(QtMsgType type, QMessageLogContext const &context, QString const &message)
{
    g_qtRecords.push_back({type, QString::fromLatin1(context.category), QString::fromUtf8(context.file),
                           context.line, QString::fromUtf8(context.function), message});
}

} // namespace

class TestLogOutput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void levelsMapOntoQtTypes_data();
    void levelsMapOntoQtTypes();
    void sinkReceivesEveryField();
    void nullArgumentsAreSafe();
    void sinkIsReplacedAndRemoved();
    void loggingFromInsideTheSinkDoesNotRecurse();

private:
    QtMessageHandler m_previousHandler = nullptr;
};

void TestLogOutput::init()
{
    g_qtRecords.clear();
    m_previousHandler = qInstallMessageHandler(Capture);
}

void TestLogOutput::cleanup()
{
    qInstallMessageHandler(m_previousHandler);
    nbase::SetLogSink(nullptr);
}

void TestLogOutput::levelsMapOntoQtTypes_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("type");
    QTest::newRow("20000 info") << 20000 << int(QtInfoMsg);
    QTest::newRow("29999 info") << 29999 << int(QtInfoMsg);
    QTest::newRow("30000 warning") << 30000 << int(QtWarningMsg);
    QTest::newRow("40000 critical") << 40000 << int(QtCriticalMsg);
    QTest::newRow("90000 critical") << 90000 << int(QtCriticalMsg);
}

void TestLogOutput::levelsMapOntoQtTypes()
{
    QFETCH(int, level);
    QFETCH(int, type);
    log_output(nullptr, level, "src\\tip\\bubble_frame", 321, "CBubbleFrame::SetPositionWidget", "content_widget deleted");
    QCOMPARE(g_qtRecords.size(), size_t(1));
    QtRecord const &record = g_qtRecords.front();
    QCOMPARE(int(record.type), type);
    QCOMPARE(record.category, QStringLiteral("kelvo"));
    QCOMPARE(record.file, QStringLiteral("src\\tip\\bubble_frame"));
    QCOMPARE(record.line, 321);
    QCOMPARE(record.function, QStringLiteral("CBubbleFrame::SetPositionWidget"));
    QCOMPARE(record.message, QStringLiteral("content_widget deleted"));
}

void TestLogOutput::sinkReceivesEveryField()
{
    std::vector<nbase::LogRecord> received;
    nbase::SetLogSink([&](nbase::LogRecord const &record) { received.push_back(record); });
    log_output(L"ipc", 40000, "src\\effects\\window_active_effect", 57, "CWindowActiveEffect::nativeEventFilter",
               u8"active instance failed. \u00e9");
    // Debug lines are off in Qt's log by default but still reach the sink.
    log_output(nullptr, 10000, "f", 1, "g", "quiet");

    QCOMPARE(received.size(), size_t(2));
    nbase::LogRecord const &first = received[0];
    QCOMPARE(QString::fromStdWString(first.category), QStringLiteral("ipc"));
    QCOMPARE(first.level, 40000);
    QCOMPARE(first.file, std::string("src\\effects\\window_active_effect"));
    QCOMPARE(first.line, 57);
    QCOMPARE(first.function, std::string("CWindowActiveEffect::nativeEventFilter"));
    QCOMPARE(first.message, std::string(u8"active instance failed. \u00e9"));
    QCOMPARE(received[1].level, 10000);

    QCOMPARE(g_qtRecords.size(), size_t(1));
    QCOMPARE(g_qtRecords.front().message, QString::fromUtf8(u8"[ipc] active instance failed. \u00e9"));
}

void TestLogOutput::nullArgumentsAreSafe()
{
    std::vector<nbase::LogRecord> received;
    nbase::SetLogSink([&](nbase::LogRecord const &record) { received.push_back(record); });
    log_output(nullptr, 20000, nullptr, 0, nullptr, std::string());
    log_output(L"", 20000, nullptr, -1, nullptr, "x");
    QCOMPARE(received.size(), size_t(2));
    QVERIFY(received[0].category.empty());
    QVERIFY(received[0].file.empty());
    QVERIFY(received[0].function.empty());
    QCOMPARE(g_qtRecords.size(), size_t(2));
    QCOMPARE(g_qtRecords[1].message, QStringLiteral("x"));
}

void TestLogOutput::sinkIsReplacedAndRemoved()
{
    int first = 0;
    int second = 0;
    QVERIFY(!nbase::SetLogSink([&](nbase::LogRecord const &) { ++first; }));
    nbase::LogSink const previous = nbase::SetLogSink([&](nbase::LogRecord const &) { ++second; });
    QVERIFY(previous);
    log_output(nullptr, 20000, "f", 1, "g", "m");
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
    nbase::SetLogSink(nullptr);
    log_output(nullptr, 20000, "f", 1, "g", "m");
    QCOMPARE(second, 1);
}

void TestLogOutput::loggingFromInsideTheSinkDoesNotRecurse()
{
    int calls = 0;
    nbase::SetLogSink([&](nbase::LogRecord const &) {
        ++calls;
        log_output(nullptr, 20000, "sink", 2, "sink", "from the sink");
    });
    log_output(nullptr, 20000, "f", 1, "g", "outer");
    QCOMPARE(calls, 1);
    QCOMPARE(g_qtRecords.size(), size_t(2)); // Qt still sees the inner line
}

QTEST_GUILESS_MAIN(TestLogOutput)
#include "tst_log_output.moc"
