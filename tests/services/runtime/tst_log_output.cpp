#include "runtime/log_output.h"

#include <QtTest>

namespace {

// What Qt's log and the sink saw, one "category|level or type|file|line|function|message" each.
QStringList g_qt;
QStringList g_sink;

QString Line(QString const &category, int level, QString const &file, int line, QString const &function,
             QString const &message)
{
    return QStringList{category, QString::number(level), file, QString::number(line), function, message}.join('|');
}

void Capture(QtMsgType type, QMessageLogContext const &c, QString const &message)
{
    g_qt << Line(c.category, type, c.file, c.line, QString::fromUtf8(c.function), message);
}

void Sink(nbase::LogRecord const &r)
{
    g_sink << Line(QString::fromStdWString(r.category), r.level, QString::fromStdString(r.file), r.line,
                   QString::fromStdString(r.function), QString::fromStdString(r.message));
}

} // namespace

class TestLogOutput : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        g_qt.clear();
        g_sink.clear();
        qInstallMessageHandler(Capture);
    }
    void cleanup()
    {
        qInstallMessageHandler(nullptr);
        nbase::SetLogSink(nullptr);
    }

    void levelsAndFields_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("category");
        QTest::addColumn<int>("type"); // -1: Qt's log stays quiet (debug is off by default)
        QTest::addColumn<QString>("text");
        QTest::newRow("19999 sink only") << 19999 << "ipc" << -1 << "";
        QTest::newRow("20000 info") << 20000 << "" << int(QtInfoMsg) << u8"lost \u00e9";
        QTest::newRow("29999 info") << 29999 << "ipc" << int(QtInfoMsg) << u8"[ipc] lost \u00e9";
        QTest::newRow("30000 warning") << 30000 << "" << int(QtWarningMsg) << u8"lost \u00e9";
        QTest::newRow("39999 warning") << 39999 << "" << int(QtWarningMsg) << u8"lost \u00e9";
        QTest::newRow("40000 critical") << 40000 << "ipc" << int(QtCriticalMsg) << u8"[ipc] lost \u00e9";
    }
    void levelsAndFields()
    {
        QFETCH(int, level);
        QFETCH(QString, category);
        QFETCH(int, type);
        QFETCH(QString, text);
        char const *file = "src\\tip\\bubble_frame";
        char const *function = "CBubbleFrame::SetPositionWidget";
        nbase::SetLogSink(Sink);
        log_output(category.toStdWString().c_str(), level, file, 321, function, u8"lost \u00e9");
        QCOMPARE(g_sink, QStringList{Line(category, level, file, 321, function, u8"lost \u00e9")});
        QCOMPARE(g_qt, type < 0 ? QStringList() : QStringList{Line("kelvo", type, file, 321, function, text)});
    }

    void sinkIsReplacedRemovedAndNeverReentered()
    {
        int replaced = 0;
        QVERIFY(!nbase::SetLogSink([&](nbase::LogRecord const &) { ++replaced; }));
        QVERIFY(nbase::SetLogSink([](nbase::LogRecord const &r) {
            Sink(r);
            log_output(nullptr, 20000, "f", 2, "g", "from the sink"); // reaches Qt's log only
        }));
        log_output(nullptr, 20000, nullptr, 0, nullptr, "x"); // null texts count as empty
        QCOMPARE(replaced, 0);
        QCOMPARE(g_sink, QStringList{"|20000||0||x"});
        QCOMPARE(g_qt.size(), 2);
        nbase::SetLogSink(nullptr);
        log_output(nullptr, 20000, "f", 1, "g", "y");
        QCOMPARE(g_sink.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestLogOutput)
#include "tst_log_output.moc"
