#include "qtcomm/language_helper.h"
#include "runtime/log_output.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>
#include <QXmlStreamReader>
#include <QtTest>

#include <cwchar>
#include <map>

namespace {

// The built-in table of a language, read independently of the service.
std::map<QString, QString> ReadTable(QString const &name)
{
    std::map<QString, QString> table;
    QFile file(QStringLiteral(":/lang/%1.xml").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return table;
    QXmlStreamReader reader(&file);
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("strings"))
            continue;
        QString const key = reader.attributes().value("key").toString();
        table[key] = reader.readElementText();
    }
    return reader.hasError() ? std::map<QString, QString>() : table;
}

QString Load(wchar_t const *key)
{
    return QString::fromWCharArray(LoadXmlString(key));
}

class LanguageChangeCounter : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            ++changes;
        QWidget::changeEvent(event);
    }
};

} // namespace

class TestLanguageHelper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void languageNumbersAndNames();
    void pointerStaysValidAcrossSwitchesAndReloads();
    void missingAndNullKeys();
    void switchNotifies();
    void callbacksMayRemoveThemselves();
    void unknownElementsAreSkipped();
    void malformedTableIsRefusedWithOneWarning_data();
    void malformedTableIsRefusedWithOneWarning();
    void builtInTablesHaveEveryKey_data();
    void builtInTablesHaveEveryKey();
    void builtInTablesHaveTheSameKeys();
};

void TestLanguageHelper::init()
{
    QVERIFY(GetLanguageHelper()->SwitchLanguage(Language::LANGUAGE_EN_US));
}

void TestLanguageHelper::languageNumbersAndNames()
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    QCOMPARE(language->GetLanguageName(1), std::string("zh_CN"));
    QCOMPARE(language->GetLanguageName(3), std::string("en_US"));
    QVERIFY(language->GetLanguageName(42).empty());
    QCOMPARE(language->GetCurrentLanguage(), 3);

    QVERIFY(language->LoadLanguageTable(7, R"(<strings language="de_DE"><string key="KVS_SETTING">Einstellungen</string></strings>)"));
    QCOMPARE(language->GetLanguageName(7), std::string("de_DE"));
    auto const loaded = language->GetLoadedLanguages();
    QCOMPARE(loaded, (std::vector<int>{1, 3, 7}));
    QVERIFY(language->SwitchLanguage(7));
    QCOMPARE(Load(L"KVS_SETTING"), QStringLiteral("Einstellungen"));
    QCOMPARE(language->GetCurrentLanguage(), 7);
}

void TestLanguageHelper::pointerStaysValidAcrossSwitchesAndReloads()
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    wchar_t const *english = LoadXmlString(L"KVS_SETTING");
    QCOMPARE(QString::fromWCharArray(english), QStringLiteral("Settings"));
    QCOMPARE(LoadXmlString(L"KVS_SETTING"), english); // no new copy per call

    QVERIFY(language->SwitchLanguage(Language::LANGUAGE_ZH_CN));
    wchar_t const *chinese = LoadXmlString(L"KVS_SETTING");
    QCOMPARE(QString::fromWCharArray(chinese), QString::fromUtf8("设置"));
    QCOMPARE(QString::fromWCharArray(english), QStringLiteral("Settings"));

    // A reload replaces the table; the texts handed out before stay as they were.
    QFile file(QStringLiteral(":/lang/zh_CN.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(language->LoadLanguageTable(1, R"(<strings><string key="KVS_SETTING">选项</string></strings>)"));
    QCOMPARE(Load(L"KVS_SETTING"), QString::fromUtf8("选项"));
    QCOMPARE(QString::fromWCharArray(chinese), QString::fromUtf8("设置"));
    QVERIFY(language->LoadLanguageTable(1, file.readAll().toStdString()));
    QCOMPARE(Load(L"KVS_SETTING"), QString::fromUtf8("设置"));
}

void TestLanguageHelper::missingAndNullKeys()
{
    std::wstring key = L"no_such_key_anywhere";
    wchar_t const *text = LoadXmlString(key.c_str());
    QVERIFY(text != key.c_str());
    key.assign(L"overwritten!!!!!!!!!!!!!!!!!!!");
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("no_such_key_anywhere"));
    QCOMPARE(LoadXmlString(L"no_such_key_anywhere"), text);

    QVERIFY(LoadXmlString(nullptr) != nullptr);
    QCOMPARE(std::wcslen(LoadXmlString(nullptr)), size_t(0));
    QCOMPARE(std::wcslen(LoadXmlString(L"")), size_t(0));

    std::wstring found;
    QVERIFY(!GetLanguageHelper()->FindText(L"no_such_key_anywhere", &found));
    QVERIFY(GetLanguageHelper()->FindText(L"KVS_MGSBOX_OK", &found));
    QCOMPARE(QString::fromStdWString(found), QStringLiteral("OK"));
}

void TestLanguageHelper::switchNotifies()
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    QList<int> heard;
    int const id = language->AddLanguageChangedCall([&](int number) {
        heard.append(number);
        // The new texts are in force when the callback runs.
        QCOMPARE(Load(L"KVS_MGSBOX_OK"), QString::fromUtf8("确定"));
    });
    LanguageChangeCounter widget;
    widget.show();

    QVERIFY(language->SwitchLanguage(Language::LANGUAGE_ZH_CN));
    QCOMPARE(heard, QList<int>{1});
    QTRY_COMPARE(widget.changes, 1);

    QVERIFY(!language->SwitchLanguage(12345));
    QCOMPARE(heard, QList<int>{1});
    QCOMPARE(language->GetCurrentLanguage(), 1);

    language->RemoveLanguageChangedCall(id);
    QVERIFY(language->SwitchLanguage(Language::LANGUAGE_EN_US));
    QCOMPARE(heard, QList<int>{1});
    QTRY_COMPARE(widget.changes, 2);
}

void TestLanguageHelper::callbacksMayRemoveThemselves()
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    QStringList log;
    int second = 0;
    int first = 0;
    first = language->AddLanguageChangedCall([&](int) {
        log << "first";
        language->RemoveLanguageChangedCall(first);
        language->RemoveLanguageChangedCall(second);
    });
    second = language->AddLanguageChangedCall([&](int) { log << "second"; });
    int const third = language->AddLanguageChangedCall([&](int) { log << "third"; });

    language->SwitchLanguage(Language::LANGUAGE_ZH_CN);
    QCOMPARE(log, (QStringList{"first", "third"}));
    log.clear();
    language->SwitchLanguage(Language::LANGUAGE_EN_US);
    QCOMPARE(log, QStringList{"third"});
    language->RemoveLanguageChangedCall(third);
}

void TestLanguageHelper::unknownElementsAreSkipped()
{
    QVERIFY(GetLanguageHelper()->LoadLanguageTable(
        20, "<?xml version=\"1.0\"?>\n<!-- c -->\n<strings><meta><x/></meta>"
            "<string key=\"a\">one &amp; two&#10;</string><string key=\"a\">last wins</string>"
            "<string key=\"b\"><![CDATA[<b>]]></string><string key=\"c\"/></strings>"));
    QVERIFY(GetLanguageHelper()->SwitchLanguage(20));
    QCOMPARE(Load(L"a"), QStringLiteral("last wins"));
    QCOMPARE(Load(L"b"), QStringLiteral("<b>"));
    std::wstring text = L"x";
    QVERIFY(GetLanguageHelper()->FindText(L"c", &text));
    QVERIFY(text.empty());
}

void TestLanguageHelper::malformedTableIsRefusedWithOneWarning_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not xml") << QByteArray("KVS_SETTING=Settings");
    QTest::newRow("other root") << QByteArray("<texts><string key=\"a\">b</string></texts>");
    QTest::newRow("unclosed") << QByteArray("<strings><string key=\"a\">b</string>");
    QTest::newRow("mismatched") << QByteArray("<strings><string key=\"a\">b</strings></string>");
    QTest::newRow("string without key") << QByteArray("<strings><string>b</string></strings>");
    QTest::newRow("element inside a string") << QByteArray("<strings><string key=\"a\">b<i>c</i></string></strings>");
    QTest::newRow("second root") << QByteArray("<strings/><strings/>");
    QTest::newRow("undeclared entity") << QByteArray("<strings><string key=\"a\">&nbsp;</string></strings>");
    QTest::newRow("dtd") << QByteArray("<!DOCTYPE strings [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;\">]>"
                                       "<strings><string key=\"k\">&b;&b;&b;</string></strings>");
    QTest::newRow("nul inside") << QByteArray("<strings>\0</strings>", 20);
}

void TestLanguageHelper::malformedTableIsRefusedWithOneWarning()
{
    QFETCH(QByteArray, xml);
    int faults = 0;
    nbase::LogSink const previous = nbase::SetLogSink([&](nbase::LogRecord const &record) {
        if (record.level >= nbase::LOG_LEVEL_ERROR)
            ++faults;
    });
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("language table for language 3 refused"));
    bool const loaded = GetLanguageHelper()->LoadLanguageTable(3, xml.toStdString());
    nbase::SetLogSink(previous);
    QVERIFY(!loaded);
    QCOMPARE(faults, 1);
    QCOMPARE(Load(L"KVS_SETTING"), QStringLiteral("Settings"));
}

void TestLanguageHelper::builtInTablesHaveEveryKey_data()
{
    QTest::addColumn<QString>("key");
    // The keys the controls read, and the gallery's.
    static char const *const keys[] = {
        "KVS_MARKET_ALL", "KVS_OPEN_MAIN_WND", "KVS_SETTING", "Watch_Mini_SwitchToFloating",
        "desktop_comm_common_top", "desktop_comm_common_cancel_top", "KVS_SUNDAY", "KVS_MONDAY",
        "KVS_TUESDAY", "KVS_WEDNESDAY", "KVS_THURSDAY", "KVS_FRIDAY", "KVS_SATURDAY", "Chart_Draw_Years",
        "Chart_Draw_Months", "KVS_NOTICE", "desktop_comm_common_tips_got_it", "KVS_MGSBOX_OK",
        "KVS_ORDER_CANCEL_ASK", "desktop_comm_common_done", "desktop_comm_common_next",
        "desktop_comm_common_repeat", "desktop_comm_common_demo", "desktop_comm_common_reset",
        "desktop_comm_common_cancel", "desktop_comm_common_create",
        "desktop_comm_common_ladder_setting_optional", "desktop_comm_common_ladder_setting_selected",
        "desktop_comm_common_fixed", "desktop_comm_common_manage_columns", "gallery_title",
        "gallery_menu_scale", "gallery_menu_skin", "gallery_menu_language", "gallery_page_basics",
        "gallery_page_trade", "gallery_page_ticket", "gallery_page_windows", "gallery_page_tables",
    };
    for (char const *key : keys)
        QTest::newRow(key) << QString::fromLatin1(key);
}

void TestLanguageHelper::builtInTablesHaveEveryKey()
{
    QFETCH(QString, key);
    auto const english = ReadTable(QStringLiteral("en_US"));
    auto const chinese = ReadTable(QStringLiteral("zh_CN"));
    QVERIFY(english.count(key));
    QVERIFY(chinese.count(key));
    QVERIFY(!chinese.at(key).isEmpty());
    // Only the calendar's month word may be empty in English ("2024/3").
    if (key != QLatin1String("Chart_Draw_Months"))
        QVERIFY(!english.at(key).isEmpty());
    if (!key.startsWith(QLatin1String("gallery_"))) {
        bool const hasHan = std::any_of(chinese.at(key).begin(), chinese.at(key).end(),
                                        [](QChar c) { return c.unicode() >= 0x4E00 && c.unicode() <= 0x9FFF; });
        QVERIFY2(hasHan, qPrintable(chinese.at(key)));
    }
    // What the service hands out is what the table says.
    QCOMPARE(Load(key.toStdWString().c_str()), english.at(key));
    GetLanguageHelper()->SwitchLanguage(Language::LANGUAGE_ZH_CN);
    QCOMPARE(Load(key.toStdWString().c_str()), chinese.at(key));
}

void TestLanguageHelper::builtInTablesHaveTheSameKeys()
{
    auto const english = ReadTable(QStringLiteral("en_US"));
    auto const chinese = ReadTable(QStringLiteral("zh_CN"));
    QVERIFY(english.size() > 30);
    QStringList englishKeys;
    QStringList chineseKeys;
    for (auto const &entry : english)
        englishKeys << entry.first;
    for (auto const &entry : chinese)
        chineseKeys << entry.first;
    QCOMPARE(englishKeys, chineseKeys);
}

QTEST_MAIN(TestLanguageHelper)
#include "tst_language_helper.moc"
