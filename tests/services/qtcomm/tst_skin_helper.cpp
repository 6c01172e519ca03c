#include "qtcomm/register_handy.h"
#include "qtcomm/skin_helper.h"
#include "runtime/log_output.h"

#include <QColor>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

// Records each call into a shared log, and runs an optional action while called.
class Recorder : public IChangeSkinCall
{
public:
    Recorder(QString name, QStringList *log, Skin::SkinCallPriority priority)
        : m_name(std::move(name))
        , m_log(log)
        , m_handy(std::make_shared<RegisterHandy>(this, priority))
    {
    }

    void ChangedSkin(Skin::SKIN_TYPE type) override
    {
        m_log->append(m_name);
        lastType = type;
        if (action)
            action();
    }

    void Unregister() { m_handy.reset(); }

    std::function<void()> action;
    Skin::SKIN_TYPE lastType = Skin::SKIN_TYPE(-1);

private:
    QString m_name;
    QStringList *m_log;
    std::shared_ptr<RegisterHandy> m_handy;
};

// Counts the records at fault level while it lives.
class FaultCounter
{
public:
    FaultCounter()
    {
        m_previous = nbase::SetLogSink([this](nbase::LogRecord const &record) {
            if (record.level >= nbase::LOG_LEVEL_ERROR)
                ++faults;
        });
    }
    ~FaultCounter() { nbase::SetLogSink(m_previous); }
    int faults = 0;

private:
    nbase::LogSink m_previous;
};

QJsonObject BuiltInTable(QString const &name)
{
    QFile file(QStringLiteral(":/skins/%1.json").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return QJsonObject();
    return QJsonDocument::fromJson(file.readAll()).object();
}

QString Text(wchar_t const *group, wchar_t const *key)
{
    return QString::fromStdWString(GetSkinHelper()->GetColorText(group, key));
}

} // namespace

class TestSkinHelper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void switchReachesEveryCallbackOnceInPriorityOrder();
    void switchChangesTheValues();
    void destroyedGuardIsNeverCalledAgain();
    void registrationIsOncePerCallback();
    void changesDuringDelivery_data();
    void changesDuringDelivery();
    void switchFromInsideACallbackEndsOnTheNewSkin();
    void missingEntries();
    void clientTable();
    void malformedTableIsRefusedWithOneWarning_data();
    void malformedTableIsRefusedWithOneWarning();
    void builtInTablesHaveEveryKey_data();
    void builtInTablesHaveEveryKey();

private:
    QStringList m_log;
};

void TestSkinHelper::init()
{
    m_log.clear();
    QVERIFY(GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT));
}

void TestSkinHelper::cleanup()
{
    GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT);
}

void TestSkinHelper::switchReachesEveryCallbackOnceInPriorityOrder()
{
    Recorder normal1(QStringLiteral("normal1"), &m_log, Skin::PRIORITY_NORMAL);
    Recorder last(QStringLiteral("last"), &m_log, Skin::PRIORITY_LAST);
    Recorder first(QStringLiteral("first"), &m_log, Skin::PRIORITY_FIRST);
    Recorder normal2(QStringLiteral("normal2"), &m_log, Skin::PRIORITY_NORMAL);
    Recorder between(QStringLiteral("between"), &m_log, Skin::SkinCallPriority(-5));

    QVERIFY(GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK));
    QCOMPARE(m_log, (QStringList{"first", "between", "normal1", "normal2", "last"}));
    for (Recorder const *r : {&normal1, &last, &first, &normal2, &between})
        QCOMPARE(r->lastType, Skin::SKIN_DARK);
    QCOMPARE(*GetSkinHelper()->GetCurrentSkin(), Skin::SKIN_DARK);

    // Switching to the skin in force still notifies, so a reloaded table gets through.
    m_log.clear();
    QVERIFY(GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK));
    QCOMPARE(m_log.size(), 5);
}

void TestSkinHelper::switchChangesTheValues()
{
    QJsonObject const dark = BuiltInTable(QStringLiteral("dark"));
    QJsonObject const light = BuiltInTable(QStringLiteral("light"));
    QString const lightText = light.value("common").toObject().value("text_color").toString();
    QString const darkText = dark.value("common").toObject().value("text_color").toString();
    QVERIFY(lightText != darkText);

    Skin::SKIN_TYPE const *current = GetSkinHelper()->GetCurrentSkin();
    QCOMPARE(Text(L"common", L"text_color"), lightText);
    GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK);
    QCOMPARE(*current, Skin::SKIN_DARK);
    QCOMPARE(Text(L"common", L"text_color"), darkText);
    QCOMPARE(QString::fromStdWString(GetSkinHelper()->GetColorString(L"text_color")), darkText);
    QCOMPARE(GetSkinHelper()->GetColorValue(L"common", L"text_color"), QColor(darkText).rgba());
    QCOMPARE(QString::fromStdWString(GetSkinHelper()->GetImagePath(L"common", L"refresh")),
             dark.value("common").toObject().value("refresh").toString());
}

void TestSkinHelper::destroyedGuardIsNeverCalledAgain()
{
    auto gone = std::make_unique<Recorder>(QStringLiteral("gone"), &m_log, Skin::PRIORITY_NORMAL);
    Recorder stays(QStringLiteral("stays"), &m_log, Skin::PRIORITY_NORMAL);
    GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK);
    QCOMPARE(m_log, (QStringList{"gone", "stays"}));

    gone.reset();
    m_log.clear();
    GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT);
    QCOMPARE(m_log, QStringList{"stays"});
}

void TestSkinHelper::registrationIsOncePerCallback()
{
    Recorder twice(QStringLiteral("twice"), &m_log, Skin::PRIORITY_NORMAL);
    Recorder other(QStringLiteral("other"), &m_log, Skin::PRIORITY_FIRST);
    GetSkinHelper()->AddChangeSkinCall(&twice, Skin::PRIORITY_FIRST); // already in: ignored
    GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK);
    QCOMPARE(m_log, (QStringList{"other", "twice"}));

    GetSkinHelper()->RemoveChangeSkinCall(&twice, Skin::PRIORITY_LAST); // whatever the priority
    m_log.clear();
    GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT);
    QCOMPARE(m_log, QStringList{"other"});
}

void TestSkinHelper::changesDuringDelivery_data()
{
    // a (first), b (normal), c (last) are registered; during its call, `actor` does `action`.
    QTest::addColumn<QString>("actor");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("firstSwitch");
    QTest::addColumn<QStringList>("secondSwitch");
    QTest::newRow("a removes b") << "a" << "remove b" << QStringList{"a", "c"} << QStringList{"a", "c"};
    QTest::newRow("a removes c") << "a" << "remove c" << QStringList{"a", "b"} << QStringList{"a", "b"};
    QTest::newRow("b removes itself") << "b" << "remove b" << QStringList{"a", "b", "c"} << QStringList{"a", "c"};
    QTest::newRow("c removes a, already called") << "c" << "remove a" << QStringList{"a", "b", "c"}
                                                   << QStringList{"b", "c"};
    QTest::newRow("b deletes itself") << "b" << "delete b" << QStringList{"a", "b", "c"} << QStringList{"a", "c"};
    QTest::newRow("a deletes b") << "a" << "delete b" << QStringList{"a", "c"} << QStringList{"a", "c"};
    QTest::newRow("b adds d, called from the next switch") << "b" << "add d" << QStringList{"a", "b", "c"}
                                                           << QStringList{"a", "d", "b", "c"};
}

void TestSkinHelper::changesDuringDelivery()
{
    QFETCH(QString, actor);
    QFETCH(QString, action);
    QFETCH(QStringList, firstSwitch);
    QFETCH(QStringList, secondSwitch);

    std::map<QString, std::unique_ptr<Recorder>> recorders;
    recorders["a"] = std::make_unique<Recorder>("a", &m_log, Skin::PRIORITY_FIRST);
    recorders["b"] = std::make_unique<Recorder>("b", &m_log, Skin::PRIORITY_NORMAL);
    recorders["c"] = std::make_unique<Recorder>("c", &m_log, Skin::PRIORITY_LAST);
    std::unique_ptr<Recorder> added;
    bool done = false;
    recorders[actor]->action = [&] {
        if (done)
            return;
        done = true;
        QString const target = action.section(' ', 1);
        if (action.startsWith("remove")) {
            recorders[target]->Unregister();
        } else if (action.startsWith("delete")) {
            recorders[target].reset(); // may be the running callback itself
        } else {
            added = std::make_unique<Recorder>(target, &m_log, Skin::PRIORITY_FIRST);
        }
    };

    GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK);
    QCOMPARE(m_log, firstSwitch);
    m_log.clear();
    GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT);
    QCOMPARE(m_log, secondSwitch);
}

void TestSkinHelper::switchFromInsideACallbackEndsOnTheNewSkin()
{
    Recorder a(QStringLiteral("a"), &m_log, Skin::PRIORITY_FIRST);
    Recorder b(QStringLiteral("b"), &m_log, Skin::PRIORITY_NORMAL);
    a.action = [&] {
        if (a.lastType == Skin::SKIN_DARK)
            GetSkinHelper()->SwitchSkin(Skin::SKIN_LIGHT);
    };
    GetSkinHelper()->SwitchSkin(Skin::SKIN_DARK);
    // The running delivery finishes, then everyone hears of the newer skin.
    QCOMPARE(m_log, (QStringList{"a", "b", "a", "b"}));
    QCOMPARE(a.lastType, Skin::SKIN_LIGHT);
    QCOMPARE(b.lastType, Skin::SKIN_LIGHT);
    QCOMPARE(*GetSkinHelper()->GetCurrentSkin(), Skin::SKIN_LIGHT);
}

void TestSkinHelper::missingEntries()
{
    IStorageSkinHelper *skin = GetSkinHelper();
    QVERIFY(skin->GetColorText(L"no_such_group", L"text_color").empty());
    QVERIFY(skin->GetColorText(L"common", L"no_such_key").empty());
    QVERIFY(skin->GetColorString(L"no_such_key").empty());
    QVERIFY(skin->GetImagePath(L"common", L"no_such_key").empty());
    QCOMPARE(skin->GetColorValue(L"common", L"no_such_key"), 0u);
    // A picture path is no colour.
    QCOMPARE(skin->GetColorValue(L"common", L"refresh"), 0u);
}

void TestSkinHelper::clientTable()
{
    IStorageSkinHelper *skin = GetSkinHelper();
    Skin::SKIN_TYPE const user = Skin::SKIN_USER;
    QVERIFY(skin->LoadSkinTable(user, R"(// a client's table
        {"common": {"text_color": "#80112233", /* half transparent */ "logo": ":/x.svg"}, "empty": {}})"));
    auto const loaded = skin->GetLoadedSkins();
    QVERIFY(std::find(loaded.begin(), loaded.end(), user) != loaded.end());
    QVERIFY(std::is_sorted(loaded.begin(), loaded.end()));

    Recorder r(QStringLiteral("r"), &m_log, Skin::PRIORITY_NORMAL);
    QVERIFY(skin->SwitchSkin(user));
    QCOMPARE(r.lastType, user);
    QCOMPARE(skin->GetColorValue(L"common", L"text_color"), 0x80112233u);
    QCOMPARE(Text(L"common", L"logo"), QStringLiteral(":/x.svg"));
    QVERIFY(skin->GetColorText(L"common", L"text_warning").empty()); // a table replaces, it doesn't merge

    // No table, no switch and no call.
    m_log.clear();
    QVERIFY(!skin->SwitchSkin(Skin::SKIN_TYPE(99)));
    QCOMPARE(*skin->GetCurrentSkin(), user);
    QVERIFY(m_log.isEmpty());
}

void TestSkinHelper::malformedTableIsRefusedWithOneWarning_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not json") << QByteArray("common: text_color = red");
    QTest::newRow("cut short") << QByteArray(R"({"common": {"text_color": "#fff")");
    QTest::newRow("array at the top") << QByteArray(R"([{"common": {}}])");
    QTest::newRow("string at the top") << QByteArray(R"("#ffffff")");
    QTest::newRow("group not an object") << QByteArray(R"({"common": "#ffffff"})");
    QTest::newRow("value not a string") << QByteArray(R"({"common": {"text_color": 16777215}})");
    QTest::newRow("nested value") << QByteArray(R"({"common": {"text_color": {"a": "b"}}})");
    QTest::newRow("duplicate group") << QByteArray(R"({"common": {}, "common": {}})");
    QTest::newRow("trailing text") << QByteArray(R"({"common": {}} {"x": {}})");
    QTest::newRow("duplicate key") << QByteArray(R"({"common": {"a": "#fff", "a": "#000"}})");
    QTest::newRow("very deep") << QByteArray(20000, '[');
    QTest::newRow("nul inside") << QByteArray("{\"common\": {\"a\": \"b\"}}\0{", 25);
}

void TestSkinHelper::malformedTableIsRefusedWithOneWarning()
{
    QFETCH(QByteArray, json);
    QString const before = Text(L"common", L"text_color");
    QVERIFY(!before.isEmpty());
    FaultCounter counter;
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("skin table for skin 0 refused"));
    QVERIFY(!GetSkinHelper()->LoadSkinTable(Skin::SKIN_LIGHT, json.toStdString()));
    QCOMPARE(counter.faults, 1);
    QCOMPARE(Text(L"common", L"text_color"), before);
    QVERIFY(!GetSkinHelper()->GetImagePath(L"common", L"refresh").empty());
}

void TestSkinHelper::builtInTablesHaveEveryKey_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("picture");
    struct Row
    {
        char const *group;
        char const *key;
        bool picture;
    };
    // What the controls read, plus the palette a style sheet builds on.
    static Row const rows[] = {
        {"common", "text_color", false},
        {"common", "text_warning", false},
        {"common", "bubble_frame_border", false},
        {"common", "bubble_frame_border_white", false},
        {"common", "tooltip_border", false},
        {"common", "refresh", true},
        {"common", "refresh_hover", true},
        {"common", "check_box_normal", true},
        {"common", "check_box_checked", true},
        {"common", "check_box_disable", true},
        {"common", "check_box_partially_checked", true},
        {"quote", "item_foreground", false},
        {"trade", "demo_trade_sign_background", false},
        {"trade", "demo_trade_sign_text_color", false},
        {"table", "header", false},
        {"place", "button_icon_expand", true},
        {"place", "button_icon_collapse", true},
        {"gallery", "window_bg", false},
        {"gallery", "panel_bg", false},
        {"gallery", "text", false},
        {"gallery", "border", false},
        {"gallery", "accent", false},
        {"gallery", "buy", false},
        {"gallery", "sell", false},
    };
    for (Row const &row : rows)
        QTest::addRow("%s/%s", row.group, row.key) << row.group << row.key << row.picture;
}

void TestSkinHelper::builtInTablesHaveEveryKey()
{
    QFETCH(QString, group);
    QFETCH(QString, key);
    QFETCH(bool, picture);
    QString values[2];
    int i = 0;
    for (QString const &name : {QStringLiteral("light"), QStringLiteral("dark")}) {
        QJsonObject const table = BuiltInTable(name);
        QVERIFY2(!table.isEmpty(), qPrintable(name));
        QString const value = table.value(group).toObject().value(key).toString();
        QVERIFY2(!value.isEmpty(), qPrintable(name));
        if (picture) {
            QVERIFY2(value.startsWith(QStringLiteral(":/images/%1/").arg(name)), qPrintable(value));
            QVERIFY2(QSvgRenderer(value).isValid(), qPrintable(value));
        } else {
            QVERIFY2(QColor(value).isValid(), qPrintable(value));
        }
        values[i++] = value;
    }
    if (picture)
        QVERIFY(values[0] != values[1]);
}

QTEST_MAIN(TestSkinHelper)
#include "tst_skin_helper.moc"
