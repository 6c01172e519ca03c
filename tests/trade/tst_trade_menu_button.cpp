#include "trade/trade_enh_menu_button.h"
#include "trade/trade_menu_button.h"

#include "uilib/box_layout.h"
#include "uilib/menu.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace {

// Opens the menu without the modal loop of exec() and clicks the row of `action` the
// way a user does; the menu closes itself after the trigger.
void PickInMenu(QMenu *menu, QAction *action)
{
    menu->popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    QRect const row = menu->actionGeometry(action);
    QVERIFY2(row.isValid(), "the action is not listed in the menu");
    QTest::mouseClick(menu, Qt::LeftButton, {}, row.center());
}

// The texts of the rows listed, or of the checked ones only.
QStringList Texts(QMenu *menu, bool checkedOnly = false)
{
    QStringList texts;
    for (QAction *action : menu->actions()) {
        if (action->isVisible() && !action->isSeparator() && (!checkedOnly || action->isChecked()))
            texts << action->text();
    }
    return texts;
}

} // namespace

class TestTradeMenuButton : public QObject
{
    Q_OBJECT
private slots:
    void pickUpdatesTextAndData_data()
    {
        QTest::addColumn<bool>("showText");
        QTest::newRow("text follows") << true;
        QTest::newRow("text stays") << false;
    }
    void pickUpdatesTextAndData()
    {
        QFETCH(bool, showText);
        TTradeMenuButton button(1.0f, nullptr);
        // Before the first item there is no menu, and calls that need one do nothing.
        button.SetMenuFixWidth(200);
        button.SetCheckedItemByData(1);
        QVERIFY(!button.GetMenu());
        QVERIFY(!button.CurrentData().isValid());

        button.setText(QStringLiteral("Order type"));
        button.SetShowText(showText);
        button.AddItem(QStringLiteral("Limit"), 1);
        QCOMPARE(button.menu(), static_cast<QMenu *>(button.GetMenu()));
        QVERIFY(!button.CurrentData().isValid()); // no choice yet
        QAction *market = button.AddItem(QStringLiteral("Market"), 2);
        QSignalSpy picked(&button, &TTradeMenuButton::SelectItem);
        PickInMenu(button.GetMenu(), market);
        PickInMenu(button.GetMenu(), market); // the same choice again is reported again
        QCOMPARE(picked.count(), 2);
        QCOMPARE(picked.at(0).at(0).toInt(), 2);
        QCOMPARE(button.CurrentData().toInt(), 2);
        QCOMPARE(button.text(), showText ? QStringLiteral("Market") : QStringLiteral("Order type"));
    }

    // Starting from "Limit" chosen by program; the short overload when no text is given
    // and others stay checked.
    void setCheckedByData_data()
    {
        QTest::addColumn<QVariant>("data");
        QTest::addColumn<bool>("uncheckOthers");
        QTest::addColumn<QString>("givenText");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("current");
        QTest::addColumn<QStringList>("checked");
        QTest::newRow("match") << QVariant(2) << false << QString() << "Market" << 2 << QStringList{"Limit", "Market"};
        QTest::newRow("match, uncheck others") << QVariant(2) << true << QString() << "Market" << 2
                                               << QStringList{"Market"};
        QTest::newRow("match, own text") << QVariant(3) << true << "Stop 5%" << "Stop 5%" << 3 << QStringList{"Stop"};
        QTest::newRow("match, own text, others kept") << QVariant(3) << false << "Stop 5%" << "Stop 5%" << 3
                                                      << QStringList{"Limit", "Stop"};
        QTest::newRow("no match keeps the choice") << QVariant(9) << false << QString() << "Limit" << 1
                                                   << QStringList{"Limit"};
        QTest::newRow("no match, uncheck others") << QVariant(9) << true << "x" << "Limit" << 1 << QStringList();
    }
    void setCheckedByData()
    {
        QFETCH(QVariant, data);
        QFETCH(bool, uncheckOthers);
        QFETCH(QString, givenText);
        QFETCH(QString, text);
        QFETCH(int, current);
        QFETCH(QStringList, checked);
        TTradeMenuButton button(1.0f, nullptr);
        button.SetShowText(false); // a selection by program shows the text regardless
        int id = 0;
        for (char const *item : {"Limit", "Market", "Stop"})
            button.AddItem(QString::fromLatin1(item), ++id)->setCheckable(true);
        button.SetCheckedItemByData(1);
        QSignalSpy picked(&button, &TTradeMenuButton::SelectItem);
        if (givenText.isNull() && !uncheckOthers)
            button.SetCheckedItemByData(data);
        else
            button.SetCheckedItemByData(data, uncheckOthers, givenText);
        QCOMPARE(button.text(), text);
        QCOMPARE(button.CurrentData().toInt(), current);
        QCOMPARE(Texts(button.GetMenu(), true), checked);
        QCOMPARE(picked.count(), 0);
    }

    void itemsWithSameTextShareOneEntry()
    {
        TTradeMenuButton button(1.0f, nullptr);
        button.AddItem(QStringLiteral("Day"), 1);
        button.AddItem(QStringLiteral("Day"), 2);
        button.SetCheckedItemByData(1); // the first "Day" was replaced in the table
        QVERIFY(!button.CurrentData().isValid());
        button.SetCheckedItemByData(2);
        QCOMPARE(button.CurrentData().toInt(), 2);
        QCOMPARE(button.GetMenu()->actions().size(), 2); // both rows stay in the menu
    }

    void widgetRowsHideWithTheirSeparator()
    {
        TTradeMenuButton button(1.0f, nullptr);
        button.AddWidgetItem(nullptr, 7, true); // ignored
        QVERIFY(!button.GetMenu());
        auto *row = new QLabel(QStringLiteral("Stop price"));
        button.AddWidgetItem(row, 7, true);
        button.AddItem(QStringLiteral("Limit"), 1);
        TMenu *menu = button.GetMenu();
        QCOMPARE(menu->actions().size(), 3); // widget row, separator, item
        QAction *widgetAction = menu->actions().at(0);
        QAction *separator = menu->actions().at(1);
        QVERIFY(separator->isSeparator());
        button.SetCheckedItemByData(7); // widget rows are no choices
        QVERIFY(!button.CurrentData().isValid());

        menu->popup(QPoint(0, 0));
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        QVERIFY(row->isVisible());
        button.SetWidgetItemVisible(7, false);
        QVERIFY(!widgetAction->isVisible() && !separator->isVisible() && row->isHidden());
        button.SetWidgetItemVisible(8, true); // unknown data: nothing
        QVERIFY(!separator->isVisible());
        button.SetWidgetItemVisible(7, true);
        QVERIFY(widgetAction->isVisible() && separator->isVisible());
        menu->hide();
        // The menu owned the separator: after a clear a later call must not touch it.
        menu->clear();
        button.SetWidgetItemVisible(7, false);
    }

    void menuFollowsScale()
    {
        TTradeMenuButton button(1.5f, nullptr);
        button.AddItem(QStringLiteral("Limit"), 1);
        QCOMPARE(button.GetMenu()->minimumWidth(), 169); // int(113 * 1.5)
        button.SetMenuFixWidth(200);
        QCOMPARE(button.GetMenu()->width(), 300);
        button.SetScale(2.0f);
        QCOMPARE(button.GetMenu()->width(), 400);
    }

    // The menu lists the choices the button does not show; a pick swaps them.
    void enhSwapsTheChoiceOnShow_data() { pickUpdatesTextAndData_data(); }
    void enhSwapsTheChoiceOnShow()
    {
        QFETCH(bool, showText);
        TTradeEnhMenuButton button(1.0f, nullptr);
        button.SetShowText(showText);
        button.setText(QStringLiteral("Mode"));
        QSignalSpy picked(&button, &TTradeEnhMenuButton::SelectItem);
        QSignalSpy shown(&button, &TTradeEnhMenuButton::MenuShow);
        button.AddItem(QStringLiteral("A"), 1);
        button.AddItem(QStringLiteral("B"), QStringLiteral("2")); // read with toInt()
        button.AddItem(QStringLiteral("C"), 3);
        QMenu *menu = button.GetMenu();
        QCOMPARE(button.text(), QLatin1String(showText ? "A" : "Mode"));
        QCOMPARE(button.CurrentData().toInt(), 1);
        QCOMPARE(Texts(menu), (QStringList{"B", "C"}));

        PickInMenu(menu, menu->actions().at(2));
        QCOMPARE(shown.count(), 1);
        QCOMPARE(button.text(), QLatin1String(showText ? "C" : "Mode"));
        QCOMPARE(button.CurrentData().toInt(), 3);
        QCOMPARE(Texts(menu), (QStringList{"A", "B"}));
        menu->actions().at(2)->trigger(); // the current choice: nothing
        button.SetItemChecked(3); // current already
        button.SetItemChecked(42); // unknown
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked.at(0).at(0).toInt(), 3);

        // By program the text follows even with SetShowText(false).
        QVERIFY(QMetaObject::invokeMethod(&button, "SetItemChecked", Q_ARG(int, 2)));
        QCOMPARE(picked.count(), 2);
        QCOMPARE(picked.at(1).at(0), QVariant(QStringLiteral("2")));
        QCOMPARE(button.text(), QStringLiteral("B"));
        QCOMPARE(Texts(menu), (QStringList{"A", "C"}));
    }

    void enhClearAndRefill()
    {
        TTradeEnhMenuButton button(1.0f, nullptr);
        button.ClearMenuButton(); // no menu: nothing
        QVERIFY(!button.GetMenu());
        button.AddItem(QStringLiteral("A"), 1);
        button.AddItem(QStringLiteral("B"), 2);
        TMenu *menu = button.GetMenu();
        button.ClearMenuButton();
        QCOMPARE(button.GetMenu(), menu);
        QVERIFY(menu->actions().isEmpty());
        QVERIFY(!button.CurrentData().isValid());
        button.SetItemChecked(2); // the old items are gone
        QCOMPARE(button.text(), QStringLiteral("A"));

        button.AddItem(QStringLiteral("X"), 9);
        button.AddItem(QStringLiteral("Y"), 10);
        QCOMPARE(button.text(), QStringLiteral("X"));
        QCOMPARE(button.CurrentData().toInt(), 9);
        QCOMPARE(Texts(menu), QStringList{"Y"});
    }

    void enhScaleReachesMenuAndLayout_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("1.5") << 1.5f;
        QTest::newRow("2.0") << 2.0f;
    }
    void enhScaleReachesMenuAndLayout()
    {
        QFETCH(float, scale);
        TTradeEnhMenuButton button(1.0f, nullptr);
        button.setFixedSize(80, 24);
        button.ScaleChanged(scale); // without a menu it only scales itself
        QCOMPARE(button.size(), QSize(int(80 * scale), int(24 * scale)));

        button.AddItem(QStringLiteral("A"), 1);
        TMenu *menu = button.GetMenu();
        menu->setFixedWidth(100);
        QCOMPARE(menu->width(), int(100 * scale));
        // A client may lay widgets out on the menu with a scaled column.
        auto *column = new TVBoxLayout(scale, nullptr);
        column->setContentsMargins(4, 4, 4, 4);
        menu->setLayout(column);
        button.ScaleChanged(1.0f);
        QCOMPARE(button.size(), QSize(80, 24));
        QCOMPARE(menu->width(), 100);
        QCOMPARE(column->contentsMargins(), QMargins(4, 4, 4, 4));
    }
};

QTEST_MAIN(TestTradeMenuButton)
#include "tst_trade_menu_button.moc"
