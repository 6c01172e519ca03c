#include "qtcomm/register_handy.h"
#include "qtcomm/skin_helper.h"
#include "runtime/log_output.h"

#include <QColor>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

QStringList g_log; // "<name><skin>" of each call, in call order

// A control that follows the skin; runs `action` while it is called.
struct Recorder : IChangeSkinCall
{
    Recorder(QString name, Skin::SkinCallPriority priority)
        : name(std::move(name))
        , handy(std::make_shared<RegisterHandy>(this, priority))
    {
    }
    void ChangedSkin(Skin::SKIN_TYPE type) override
    {
        g_log << name + QString::number(type);
        if (action)
            action();
    }
    QString name;
    std::shared_ptr<RegisterHandy> handy;
    std::function<void()> action;
};

IStorageSkinHelper *S()
{
    return GetSkinHelper();
}

QString Text(QString const &group, QString const &key)
{
    return QString::fromStdWString(S()->GetColorText(group.toStdWString(), key.toStdWString()));
}

} // namespace

class TestSkinHelper : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(S()->SwitchSkin(Skin::SKIN_LIGHT));
        g_log.clear();
    }

    void switchCallsEachCallbackOnceInPriorityOrder()
    {
        Recorder normal1("n1:", Skin::PRIORITY_NORMAL), last("last:", Skin::PRIORITY_LAST),
            first("first:", Skin::PRIORITY_FIRST), normal2("n2:", Skin::PRIORITY_NORMAL),
            between("between:", Skin::SkinCallPriority(-5));
        S()->AddChangeSkinCall(&normal2, Skin::PRIORITY_FIRST); // already in: ignored
        QVERIFY(S()->SwitchSkin(Skin::SKIN_DARK));
        QCOMPARE(g_log, (QStringList{"first:1", "between:1", "n1:1", "n2:1", "last:1"}));
        S()->RemoveChangeSkinCall(&normal1, Skin::PRIORITY_LAST); // whatever the priority given
        g_log.clear();
        QVERIFY(S()->SwitchSkin(Skin::SKIN_DARK)); // the skin in force still notifies
        QCOMPARE(g_log, (QStringList{"first:1", "between:1", "n2:1", "last:1"}));
        g_log.clear();
        QVERIFY(!S()->SwitchSkin(Skin::SKIN_TYPE(99))); // no table: no switch, no call
        QCOMPARE(*S()->GetCurrentSkin(), Skin::SKIN_DARK);
        QVERIFY(g_log.isEmpty());
    }

    // a (first), b (normal), c (last) are registered; during its first call `actor` acts.
    void changesDuringDelivery_data()
    {
        QTest::addColumn<QString>("action"); // actor, verb, target
        QTest::addColumn<QString>("toDark");
        QTest::addColumn<QString>("toLight");
        QTest::newRow("a removes b") << "a remove b" << "a1 c1" << "a0 c0";
        QTest::newRow("c removes a, already called") << "c remove a" << "a1 b1 c1" << "b0 c0";
        QTest::newRow("b deletes itself") << "b delete b" << "a1 b1 c1" << "a0 c0";
        QTest::newRow("b adds d, called from the next switch") << "b add d" << "a1 b1 c1" << "a0 d0 b0 c0";
        // The running round finishes, then everyone hears of the newer skin.
        QTest::newRow("a switches back") << "a switch -" << "a1 b1 c1 a0 b0 c0" << "a0 b0 c0";
    }
    void changesDuringDelivery()
    {
        QFETCH(QString, action);
        QFETCH(QString, toDark);
        QFETCH(QString, toLight);
        std::map<QString, std::unique_ptr<Recorder>> r;
        r["a"] = std::make_unique<Recorder>("a", Skin::PRIORITY_FIRST);
        r["b"] = std::make_unique<Recorder>("b", Skin::PRIORITY_NORMAL);
        r["c"] = std::make_unique<Recorder>("c", Skin::PRIORITY_LAST);
        std::unique_ptr<Recorder> added;
        QStringList const words = action.split(' ');
        r[words[0]]->action = [&, done = false]() mutable {
            if (std::exchange(done, true))
                return;
            if (words[1] == "remove")
                r[words[2]]->handy.reset();
            else if (words[1] == "delete")
                r[words[2]].reset(); // may be the running callback itself
            else if (words[1] == "add")
                added = std::make_unique<Recorder>(words[2], Skin::PRIORITY_FIRST);
            else
                S()->SwitchSkin(Skin::SKIN_LIGHT);
        };
        S()->SwitchSkin(Skin::SKIN_DARK);
        QCOMPARE(g_log.join(' '), toDark);
        g_log.clear();
        S()->SwitchSkin(Skin::SKIN_LIGHT);
        QCOMPARE(g_log.join(' '), toLight);
    }

    void valuesFollowTheSkinAndItsTable()
    {
        Skin::SKIN_TYPE const *current = S()->GetCurrentSkin();
        QString const light = Text("common", "text_color");
        S()->SwitchSkin(Skin::SKIN_DARK);
        QCOMPARE(*current, Skin::SKIN_DARK); // the pointer follows
        QVERIFY(Text("common", "text_color") != light);
        QCOMPARE(QString::fromStdWString(S()->GetColorString(L"text_color")), Text("common", "text_color"));

        QVERIFY(S()->LoadSkinTable(Skin::SKIN_USER, "// made by the client\n{\"common\": "
                                                    "{\"text_color\": \"#80112233\", /* half transparent */ "
                                                    "\"logo\": \":/x.svg\"}, \"empty\": {}}"));
        std::vector<Skin::SKIN_TYPE> const loaded{Skin::SKIN_LIGHT, Skin::SKIN_DARK, Skin::SKIN_USER};
        QCOMPARE(S()->GetLoadedSkins(), loaded);
        QCOMPARE(*current, Skin::SKIN_DARK); // loading switches nothing
        QVERIFY(S()->SwitchSkin(Skin::SKIN_USER));
        QCOMPARE(S()->GetColorValue(L"common", L"text_color"), 0x80112233u);
        QCOMPARE(QString::fromStdWString(S()->GetImagePath(L"common", L"logo")), QStringLiteral(":/x.svg"));
        QCOMPARE(S()->GetColorValue(L"common", L"logo"), 0u); // a path is no colour
        QCOMPARE(S()->GetColorValue(L"common", L"none"), 0u);
        QVERIFY(Text("common", "text_warning").isEmpty()); // a table replaces, it doesn't merge
        QVERIFY(Text("none", "text_color").isEmpty());
        QVERIFY(S()->GetColorString(L"none").empty());
    }

    void malformedTableIsRefusedWithOneWarning_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut short") << QByteArray("{\"common\": {\"text_color\": \"#fff\"");
        QTest::newRow("array at the top") << QByteArray("[{\"common\": {}}]");
        QTest::newRow("group not an object") << QByteArray("{\"common\": \"#ffffff\"}");
        QTest::newRow("value not a string") << QByteArray("{\"common\": {\"text_color\": 16777215}}");
        QTest::newRow("trailing text") << QByteArray("{\"common\": {}} {\"x\": {}}");
        QTest::newRow("duplicate key") << QByteArray("{\"common\": {\"a\": \"#fff\", \"a\": \"#000\"}}");
        QTest::newRow("very deep") << QByteArray(20000, '[');
        QTest::newRow("nul inside") << QByteArray("{\"common\": {\"a\": \"b\"}}\0{", 25);
    }
    void malformedTableIsRefusedWithOneWarning()
    {
        QFETCH(QByteArray, json);
        QString const before = Text("common", "text_color");
        int faults = 0;
        nbase::SetLogSink([&](nbase::LogRecord const &record) { faults += record.level >= nbase::LOG_LEVEL_ERROR; });
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("skin table for skin 0 refused"));
        bool const loaded = S()->LoadSkinTable(Skin::SKIN_LIGHT, json.toStdString());
        nbase::SetLogSink(nullptr);
        QVERIFY(!loaded);
        QCOMPARE(faults, 1);
        QVERIFY(!before.isEmpty());
        QCOMPARE(Text("common", "text_color"), before);
    }

    // What the controls read, and the palette a style sheet builds on; "*" marks pictures.
    void builtInTablesHaveEveryKey()
    {
        QStringList const keys = QStringLiteral(
            "common/text_color common/text_warning common/bubble_frame_border common/bubble_frame_border_white "
            "common/tooltip_border common/refresh* common/refresh_hover* common/check_box_normal* "
            "common/check_box_checked* common/check_box_disable* common/check_box_partially_checked* "
            "quote/item_foreground trade/demo_trade_sign_background trade/demo_trade_sign_text_color table/header "
            "place/button_icon_expand* place/button_icon_collapse* gallery/window_bg gallery/panel_bg "
            "gallery/text gallery/border gallery/accent gallery/buy gallery/sell").split(' ');
        for (QString key : keys) {
            bool const picture = key.endsWith('*');
            key.chop(picture ? 1 : 0);
            QString values[2];
            for (int skin : {0, 1}) {
                S()->SwitchSkin(Skin::SKIN_TYPE(skin));
                QString const value = values[skin] = Text(key.section('/', 0, 0), key.section('/', 1));
                QVERIFY2(picture ? value.startsWith(skin ? ":/images/dark/" : ":/images/light/")
                                       && QSvgRenderer(value).isValid()
                                 : QColor(value).isValid(),
                         qPrintable(QStringLiteral("skin %1, %2: '%3'").arg(skin).arg(key, value)));
            }
            QVERIFY2(!picture || values[0] != values[1], qPrintable(key));
        }
    }
};

QTEST_MAIN(TestSkinHelper)
#include "tst_skin_helper.moc"
