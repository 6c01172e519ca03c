#include "qtcomm/language_helper.h"
#include "runtime/log_output.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>
#include <QXmlStreamReader>
#include <QtTest>

#include <map>

namespace {

// A built-in table read without the service.
std::map<QString, QString> ReadTable(QString const &name)
{
    std::map<QString, QString> table;
    QFile file(QStringLiteral(":/lang/%1.xml").arg(name));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&file);
    while (reader.readNextStartElement()) {
        QString const key = reader.attributes().value("key").toString();
        if (reader.name() != QLatin1String("strings"))
            table[key] = reader.readElementText();
    }
    return table;
}

QString Load(QString const &key)
{
    return QString::fromWCharArray(LoadXmlString(key.toStdWString().c_str()));
}

IStorageLanguageHelper *L()
{
    return GetLanguageHelper();
}

} // namespace

class TestLanguageHelper : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(L()->SwitchLanguage(Language::LANGUAGE_EN_US)); }

    void textsStayValidAcrossSwitchesAndReloads()
    {
        wchar_t const *english = LoadXmlString(L"KVS_SETTING");
        QCOMPARE(LoadXmlString(L"KVS_SETTING"), english); // no new copy per call
        QVERIFY(L()->SwitchLanguage(Language::LANGUAGE_ZH_CN));
        wchar_t const *chinese = LoadXmlString(L"KVS_SETTING");
        QVERIFY(L()->LoadLanguageTable(1, R"(<strings><string key="KVS_SETTING">选项</string></strings>)"));
        QCOMPARE(Load("KVS_SETTING"), QString::fromUtf8("选项"));
        QCOMPARE(QString::fromWCharArray(english), QStringLiteral("Settings"));
        QCOMPARE(QString::fromWCharArray(chinese), QString::fromUtf8("设置"));
        QFile file(QStringLiteral(":/lang/zh_CN.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly) && L()->LoadLanguageTable(1, file.readAll().toStdString()));

        // A missing key gives a lasting copy of itself; a null key gives "".
        std::wstring key = L"no_such_key_anywhere";
        wchar_t const *text = LoadXmlString(key.c_str());
        key.assign(L"overwritten!!!!!!!!!!!!!!!!!!!");
        QCOMPARE(QString::fromWCharArray(text), QStringLiteral("no_such_key_anywhere"));
        QCOMPARE(LoadXmlString(L"no_such_key_anywhere"), text);
        QVERIFY(LoadXmlString(nullptr) && !*LoadXmlString(nullptr));
        std::wstring found;
        QVERIFY(!L()->FindText(L"no_such_key_anywhere", &found));
    }

    void clientTable()
    {
        QVERIFY(L()->LoadLanguageTable(
            20, "<?xml version=\"1.0\"?>\n<!-- c -->\n<strings language=\"de_DE\"><meta><x/></meta>"
                "<string key=\"a\">one &amp; two&#10;</string><string key=\"a\">last wins</string>"
                "<string key=\"b\"><![CDATA[<b>]]></string><string key=\"c\"/></strings>"));
        QCOMPARE(L()->GetLoadedLanguages(), (std::vector<int>{1, 3, 20}));
        QCOMPARE(L()->GetLanguageName(20), std::string("de_DE"));
        QCOMPARE(L()->GetLanguageName(1), std::string("zh_CN"));
        QCOMPARE(L()->GetLanguageName(3), std::string("en_US"));
        QVERIFY(L()->GetLanguageName(42).empty());
        QCOMPARE(L()->GetCurrentLanguage(), 3);
        QVERIFY(L()->SwitchLanguage(20));
        QCOMPARE(Load("a"), QStringLiteral("last wins"));
        QCOMPARE(Load("b"), QStringLiteral("<b>"));
        std::wstring text = L"x";
        QVERIFY(L()->FindText(L"c", &text) && text.empty());
        QCOMPARE(Load("KVS_SETTING"), QStringLiteral("KVS_SETTING")); // a table replaces, it doesn't merge
    }

    void switchNotifiesCallbacksThenWidgets()
    {
        struct Widget : QWidget
        {
            int changes = 0;
            void changeEvent(QEvent *event) override { changes += event->type() == QEvent::LanguageChange; }
        } widget;
        widget.show();
        QStringList log;
        int first = 0, second = 0;
        first = L()->AddLanguageChangedCall([&](int language) {
            log << QStringLiteral("first %1 %2").arg(language).arg(Load("KVS_MGSBOX_OK")); // new texts in force
            L()->RemoveLanguageChangedCall(first); // itself, while it runs
            L()->RemoveLanguageChangedCall(second); // a later one
        });
        second = L()->AddLanguageChangedCall([&](int) { log << "second"; });
        int const third = L()->AddLanguageChangedCall([&](int language) { log << QString::number(language); });
        auto const removeAll = qScopeGuard([&] {
            for (int id : {first, second, third})
                L()->RemoveLanguageChangedCall(id); // also when a check failed: the calls hold locals
        });
        QVERIFY(L()->SwitchLanguage(Language::LANGUAGE_ZH_CN));
        QCOMPARE(log, (QStringList{QString::fromUtf8("first 1 确定"), "1"}));
        QTRY_COMPARE(widget.changes, 1);
        QVERIFY(!L()->SwitchLanguage(12345)); // no table: no switch, no news
        QCOMPARE(L()->GetCurrentLanguage(), 1);
        QVERIFY(L()->SwitchLanguage(Language::LANGUAGE_ZH_CN)); // the language in force still notifies
        QCOMPARE(log, (QStringList{QString::fromUtf8("first 1 确定"), "1", "1"}));
        QTRY_COMPARE(widget.changes, 2);
    }

    void malformedTableIsRefusedWithOneWarning_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("not xml") << QByteArray("KVS_SETTING=Settings");
        QTest::newRow("other root") << QByteArray("<texts><string key=\"a\">b</string></texts>");
        QTest::newRow("unclosed") << QByteArray("<strings><string key=\"a\">b</string>");
        QTest::newRow("string without key") << QByteArray("<strings><string>b</string></strings>");
        QTest::newRow("element in a string") << QByteArray("<strings><string key=\"a\">b<i>c</i></string></strings>");
        QTest::newRow("undeclared entity") << QByteArray("<strings><string key=\"a\">&nbsp;</string></strings>");
        QTest::newRow("dtd") << QByteArray("<!DOCTYPE strings [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
                                           "<strings><string key=\"k\">&b;&b;&b;</string></strings>");
        QTest::newRow("nul inside") << QByteArray("<strings>\0</strings>", 20);
    }
    void malformedTableIsRefusedWithOneWarning()
    {
        QFETCH(QByteArray, xml);
        int faults = 0;
        nbase::SetLogSink([&](nbase::LogRecord const &record) { faults += record.level >= nbase::LOG_LEVEL_ERROR; });
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("language table for language 3 refused"));
        bool const loaded = L()->LoadLanguageTable(3, xml.toStdString());
        nbase::SetLogSink(nullptr);
        QVERIFY(!loaded);
        QCOMPARE(faults, 1);
        QCOMPARE(Load("KVS_SETTING"), QStringLiteral("Settings"));
    }

    // Both tables hold the same keys, among them every key the controls and the gallery read.
    void builtInTablesHaveEveryKey()
    {
        auto const english = ReadTable(QStringLiteral("en_US"));
        auto const chinese = ReadTable(QStringLiteral("zh_CN"));
        QVERIFY(english.size() > 30);
        auto const keysOf = [](std::map<QString, QString> const &table) {
            QStringList keys;
            for (auto const &entry : table)
                keys << entry.first;
            return keys;
        };
        QCOMPARE(keysOf(english), keysOf(chinese));
        QStringList const needed = QStringLiteral(
            "KVS_MARKET_ALL KVS_OPEN_MAIN_WND KVS_SETTING Watch_Mini_SwitchToFloating desktop_comm_common_top "
            "desktop_comm_common_cancel_top KVS_SUNDAY KVS_MONDAY KVS_TUESDAY KVS_WEDNESDAY KVS_THURSDAY KVS_FRIDAY "
            "KVS_SATURDAY Chart_Draw_Years Chart_Draw_Months KVS_NOTICE desktop_comm_common_tips_got_it KVS_MGSBOX_OK "
            "KVS_ORDER_CANCEL_ASK desktop_comm_common_done desktop_comm_common_next desktop_comm_common_repeat "
            "desktop_comm_common_demo desktop_comm_common_reset desktop_comm_common_cancel desktop_comm_common_create "
            "desktop_comm_common_ladder_setting_optional desktop_comm_common_ladder_setting_selected "
            "desktop_comm_common_fixed desktop_comm_common_manage_columns gallery_title gallery_menu_scale "
            "gallery_menu_skin gallery_menu_language gallery_page_basics gallery_page_trade gallery_page_ticket "
            "gallery_page_windows gallery_page_tables").split(' ');
        for (QString const &key : needed) {
            QVERIFY2(english.count(key) && chinese.count(key), qPrintable(key));
            QString const zh = chinese.at(key);
            bool const han = std::any_of(zh.begin(), zh.end(), [](QChar c) { return c >= 0x4E00 && c <= 0x9FFF; });
            QVERIFY2(han || key.startsWith("gallery_"), qPrintable(key)); // the gallery's own may stay English
            // Only the calendar's month word may be empty in English ("2024/3").
            QVERIFY2(!english.at(key).isEmpty() || key == "Chart_Draw_Months", qPrintable(key));
            L()->SwitchLanguage(Language::LANGUAGE_EN_US);
            QCOMPARE(Load(key), english.at(key));
            L()->SwitchLanguage(Language::LANGUAGE_ZH_CN);
            QCOMPARE(Load(key), zh);
        }
    }
};

QTEST_MAIN(TestLanguageHelper)
#include "tst_language_helper.moc"
