#include "trade/buttons_widget.h"
#include "trade/display_infomation_item.h"
#include "trade/trade_menu_button.h"
#include "trade/trade_spin_box.h"

#include "qtcomm/language_helper.h"
#include "uilib/dpi_helper.h"
#include "uilib/label.h"
#include "uilib/menu.h"

#include <QAction>
#include <QBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(QFocusEvent *)

namespace {

// A shown, active window holding one row, so clicks and keys travel the real way.
struct Ticket : QWidget {
    explicit Ticket(ContentWidgetType content, SpinBoxMenuType menu = SpinBoxMenuNone)
    {
        (new QVBoxLayout(this))->addWidget(item = new TDisplayInfomationItem(
                                               1.0f, nullptr, MainLayoutHorizontal, QStringLiteral("Price"), content, menu));
        resize(360, 80);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("window not active");
    }
    // Layouts of a shown window run from posted events; run them now.
    void Settle()
    {
        layout()->activate();
        if (item->layout())
            item->layout()->activate();
    }
    static void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    CTradeSpinBox *Spin() const { return qobject_cast<CTradeSpinBox *>(item->GetContentWidget()); }
    TTradeMenuButton *Menu() const { return qobject_cast<TTradeMenuButton *>(item->GetContentWidget()); }
    TButtonsWidget *Group() const { return qobject_cast<TButtonsWidget *>(item->GetContentWidget()); }

    TDisplayInfomationItem *item = nullptr;
};

SpinBoxButtonType Step(QSignalSpy const &spy, int i)
{
    return spy.at(i).at(0).value<SpinBoxButtonType>();
}

} // namespace

class TestDisplayInfomationItem : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<QFocusEvent *>(); }

    // Leading zeros go; the states on the way to a number stay ("-", "1.", "1.50", ".5");
    // digits are never cut; with a "'" and no point the text is left alone.
    void standardText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("standard");
        char const *const cases[][2] = {
            {"007", "7"}, {"05", "5"}, {"000", "0"}, {"007.25", "7.25"}, {"00.5", "0.5"}, {"0012.0034", "12.0034"},
            {"-00.5", "-0.5"}, {"", ""}, {"0", "0"}, {"-", "-"}, {"-.", "-"}, {"1.", "1."}, {"1.50", "1.50"},
            {"12.30", "12.30"}, {".5", ".5"}, {"-0.5", "-0.5"}, {"-.5", "-0.5"}, {"-0", "-0"}, {"12.304", "12.304"},
            {"0.123456789", "0.123456789"}, {"1234567.891", "1234567.891"}, {"1'234", "1'234"},
            {"01'234", "01'234"}, {"1,234", "1,234"}, {"0abc", "0"}, {"abc", "abc"}};
        for (auto const &c : cases)
            QTest::addRow("\"%s\"", c[0]) << QString::fromLatin1(c[0]) << QString::fromLatin1(c[1]);
    }
    void standardText()
    {
        QFETCH(QString, typed);
        QFETCH(QString, standard);
        QCOMPARE(TDisplayInfomationItem::GetStandardText(typed), standard);
    }

    void typingIsTidied_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QStringList>("reported");
        QTest::addColumn<QString>("text");
        QTest::newRow("05") << "05" << QStringList{"0", "5"} << "5";
        QTest::newRow("007.25") << "007.25" << QStringList{"0", "0", "7", "7.", "7.2", "7.25"} << "7.25";
        QTest::newRow("-.5") << "-.5" << QStringList{"-", "-", "-5"} << "-5";
        QTest::newRow("12.30") << "12.30" << QStringList{"1", "12", "12.", "12.3", "12.30"} << "12.30";
    }
    void typingIsTidied()
    {
        QFETCH(QString, keys);
        QFETCH(QStringList, reported);
        QFETCH(QString, text);
        Ticket ticket(ContentSpinBox);
        QSignalSpy changed(ticket.item, &TDisplayInfomationItem::SpinboxTextChanged);
        ticket.Spin()->setFocus();
        QTest::keyClicks(ticket.Spin(), keys);
        QStringList got;
        for (QList<QVariant> const &args : qAsConst(changed)) {
            got << args.at(0).toString();
            QCOMPARE(args.at(1).toBool(), false);
        }
        QCOMPARE(got, reported);
        QCOMPARE(ticket.item->GetContentText(), text);
    }

    void captionWidthByLanguage_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<float>("scale");
        QTest::addColumn<QSize>("size");
        QTest::newRow("zh_CN 1.5") << int(Language::LANGUAGE_ZH_CN) << 1.5f << QSize(90, 36);
        QTest::newRow("en_US 2.0") << int(Language::LANGUAGE_EN_US) << 2.0f << QSize(140, 48);
    }
    void captionWidthByLanguage()
    {
        QFETCH(int, language);
        QFETCH(float, scale);
        QFETCH(QSize, size);
        int const before = GetLanguageHelper()->GetCurrentLanguage();
        QVERIFY(GetLanguageHelper()->SwitchLanguage(language));
        TDisplayInfomationItem item(1.0f, nullptr, MainLayoutHorizontal, QStringLiteral("Price"), ContentSpinBox,
                                    SpinBoxMenuEdit);
        GetLanguageHelper()->SwitchLanguage(before);
        item.SetScale(scale);
        QCOMPARE(item.GetLabelFixSize(), size);
        QCOMPARE(item.GetContentWidget()->height(), int(24 * scale));
        QCOMPARE(item.GetMenuButton()->size(), QSize(int(24 * scale), int(24 * scale)));
    }

    void spinBoxRow()
    {
        Ticket ticket(ContentSpinBox);
        TDisplayInfomationItem *item = ticket.item;
        CTradeSpinBox *spin = ticket.Spin();
        auto *menuButton = qobject_cast<TTradeMenuButton *>(item->GetMenuButton());
        QSignalSpy stepped(item, &TDisplayInfomationItem::SpinboxButtonClicked);
        QSignalSpy focusIn(item, &TDisplayInfomationItem::SpinboxFocusIn);
        QSignalSpy focusOut(item, &TDisplayInfomationItem::SpinboxFocusOut);
        QVERIFY(spin->hasFocus()); // the window gave it the focus when it became active
        QTest::keyClick(spin, Qt::Key_Up);
        QTest::keyClick(spin, Qt::Key_Down);
        QCOMPARE(stepped.count(), 2);
        QCOMPARE(Step(stepped, 0), SpinBoxButtonUp);
        QCOMPARE(Step(stepped, 1), SpinBoxButtonDown);
        QVERIFY(spin->text().isEmpty()); // the row leaves stepping to its client
        spin->clearFocus();
        spin->setFocus();
        QCOMPARE(focusOut.count(), 1);
        QCOMPARE(focusIn.count(), 1);

        // The menu type shows or hides the button beside the field and names both.
        QVERIFY(menuButton->isHidden());
        QCOMPARE(spin->property("type").toString(), QStringLiteral("normal"));
        QCOMPARE(spin->geometry().right(), item->width() - 1); // the field takes the whole row
        struct Case { SpinBoxMenuType type; bool shown; char const *kind; char const *name; };
        Case const cases[] = {{SpinBoxMenuEdit, true, "not_normal", "SpinBoxEditMenu"},
                              {SpinBoxMenuNone, false, "normal", "SpinBoxEditMenu"},
                              {SpinBoxMenuNumber, true, "not_normal", "SpinBoxNumberMenu"},
                              {SpinBoxMenuType(9), true, "not_normal", "SpinBoxNumberMenu"}}; // stored, no change
        for (Case const &c : cases) {
            item->ChangeMenuType(c.type);
            ticket.Settle();
            QCOMPARE(item->GetMenuType(), c.type);
            QCOMPARE(menuButton->isVisible(), c.shown);
            QCOMPARE(spin->property("type").toString(), QString::fromLatin1(c.kind));
            QCOMPARE(menuButton->objectName(), QString::fromLatin1(c.name));
            if (c.shown) {
                QCOMPARE(menuButton->size(), QSize(24, 24));
                QCOMPARE(menuButton->x(), spin->geometry().right() + 1);
            }
        }

        // The menu button reports its press, and a pick in its menu.
        QSignalSpy pressed(item, &TDisplayInfomationItem::SpinboxMenuButtonClicked);
        QSignalSpy picked(item, &TDisplayInfomationItem::MenuSelectItem);
        QTest::mouseClick(menuButton, Qt::LeftButton); // no items yet, so no modal menu
        QCOMPARE(pressed.count(), 1);
        item->AddMenuItem(QStringLiteral("Last price"), 1)->trigger();
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked.at(0).at(0).toInt(), 1);
        QVERIFY(menuButton->text().isEmpty()); // shows no text of its own
    }

    // Each call meant for one kind of row does nothing on the others.
    void otherKindIgnoresCalls_data()
    {
        QTest::addColumn<int>("content");
        QTest::newRow("button menu") << int(ContentButtonMenu);
        QTest::newRow("spin box") << int(ContentSpinBox);
        QTest::newRow("button group") << int(ContentButtonGroup);
    }
    void otherKindIgnoresCalls()
    {
        QFETCH(int, content);
        bool const isMenu = content == ContentButtonMenu;
        bool const isSpin = content == ContentSpinBox;
        bool const isGroup = content == ContentButtonGroup;
        Ticket ticket{ContentWidgetType(content)};
        TDisplayInfomationItem *item = ticket.item;
        QWidget *input = item->GetContentWidget();

        item->AddButton(QStringLiteral("Buy"), 5);
        QCOMPARE(isGroup ? ticket.Group()->GetButtons().size() : 1, 1);
        QCOMPARE(item->AddButtonMenuItem(QStringLiteral("Limit"), 0) != nullptr, isMenu);
        QCOMPARE(item->AddMenuItem(QStringLiteral("Last"), 7) != nullptr, isSpin);
        item->SetContentText(QStringLiteral("12"));
        if (isMenu)
            QCOMPARE(ticket.Menu()->text(), QStringLiteral("12"));
        item->SetChecked(0);
        QCOMPARE(item->GetContentText(), isSpin ? QStringLiteral("12") : QString());
        QCOMPARE(item->GetSelectButtonID(), isGroup ? QVariant(0) : QVariant());
        QCOMPARE(item->GetMenuSelectItem(), isMenu ? QVariant(0) : QVariant());

        item->ChangeMenuType(SpinBoxMenuEdit);
        QCOMPARE(item->GetMenuType(), isSpin ? SpinBoxMenuEdit : SpinBoxMenuNone);
        QCOMPARE(item->GetMenuButton() != nullptr, isSpin);
        QCOMPARE(item->AddSeparatorOnMenu() != nullptr, isSpin);
        // Parented to the window, so it is not lost when the row has no menu to take it.
        item->AddWidgetAction(new QLabel(QStringLiteral("Offset"), &ticket), 1, true);
        item->SetMenuWidgetItemVisible(1, false);
        item->SetMenuEnable(false);
        item->SetContentFixSize(200, 30);
        QCOMPARE(input->height(), isSpin ? 30 : 24);
        item->SetValidator(new QIntValidator(item));
        item->SetInputMethodEnabled(true);
        item->SetDarkStyle(true);
        item->SetButtonEnble(42, false); // no such id
        item->SetButtonEnble(5, false);
        item->SetMenuFixWidth(150);
        if (isGroup) {
            QVERIFY(!ticket.Group()->GetButtons().at(0)->isEnabled());
        } else if (isMenu) {
            QCOMPARE(ticket.Menu()->text(), QStringLiteral("Limit")); // SetChecked(0) took the item's text
            QCOMPARE(ticket.Menu()->GetMenu()->size(), QSize(150, 30));
            item->ClearButtonMenuItems();
            QVERIFY(ticket.Menu()->GetMenu()->actions().isEmpty());
            item->SetContentText(QString());
            item->SetChecked(0); // the cleared items are still known by their data
            QCOMPARE(ticket.Menu()->text(), QStringLiteral("Limit"));
        }
        item->ClearButtonMenuItems();
        QCOMPARE(item->GetContentWidget(), input);
    }

    void switchingKindKeepsSignalsAndLeaksNothing()
    {
        Ticket ticket(ContentSpinBox, SpinBoxMenuEdit);
        TDisplayInfomationItem *item = ticket.item;
        QSignalSpy stepped(item, &TDisplayInfomationItem::SpinboxButtonClicked);
        QSignalSpy focusOut(item, &TDisplayInfomationItem::SpinboxFocusOut);
        QSignalSpy typed(item, &TDisplayInfomationItem::SpinboxTextChanged);
        QSignalSpy grouped(item, &TDisplayInfomationItem::ButtonGroupSelectItem);
        QSignalSpy menuClicked(item, &TDisplayInfomationItem::ButtonMenuClicked);
        QLayout *content = item->layout()->itemAt(1)->layout();
        std::size_t const registered = GetDPIHelper()->RegisteredCount();
        QPointer<CTradeSpinBox> oldSpin = ticket.Spin();
        QPointer<QWidget> oldMenuButton = item->GetMenuButton();
        item->ChangeContentWidget(ContentSpinBox); // unchanged: nothing happens
        QCOMPARE(ticket.Spin(), oldSpin.data());
        oldSpin->setFocus();
        QVERIFY(oldSpin->hasFocus());

        item->ChangeContentWidget(ContentButtonGroup);
        QVERIFY(!item->GetMenuButton());
        QCOMPARE(content->count(), 1);
        QCOMPARE(focusOut.count(), 0); // the closing field no longer speaks for the row
        emit oldSpin->UpButtonClicked();
        QCOMPARE(stepped.count(), 0);
        ticket.FlushDeletes();
        QVERIFY(!oldSpin && !oldMenuButton);
        item->AddButton(QStringLiteral("Buy"), 1);
        item->AddButton(QStringLiteral("Sell"), 2);
        QPointer<TButtonsWidget> group = ticket.Group();
        QTRY_VERIFY(group->isVisible());
        ticket.Settle();
        QTest::mouseClick(group->GetButtons().at(1), Qt::LeftButton);
        QCOMPARE(grouped.count(), 1);
        QCOMPARE(grouped.at(0).at(0).toInt(), 2);

        item->ChangeContentWidget(ContentButtonMenu);
        ticket.FlushDeletes();
        QVERIFY(!group);
        QCOMPARE(content->count(), 1);
        item->AddButtonMenuItem(QStringLiteral("Limit"), 0)->trigger();
        QCOMPARE(menuClicked.count(), 1);
        QPointer<TTradeMenuButton> menu = ticket.Menu();

        item->ChangeContentWidget(ContentSpinBox);
        ticket.FlushDeletes();
        QVERIFY(!menu);
        QCOMPARE(content->count(), 2);
        // Back to the kind it started with, the row holds as many scaled objects as then.
        QCOMPARE(GetDPIHelper()->RegisteredCount(), registered);
        CTradeSpinBox *spin = ticket.Spin();
        QTRY_VERIFY(spin->isVisible());
        QCOMPARE(item->GetMenuType(), SpinBoxMenuNone);
        QVERIFY(item->GetMenuButton()->isHidden());
        spin->setFocus();
        QTest::keyClicks(spin, QStringLiteral("05"));
        QCOMPARE(item->GetContentText(), QStringLiteral("5"));
        QCOMPARE(typed.count(), 2);
        QTest::keyClick(spin, Qt::Key_Down);
        QCOMPARE(stepped.count(), 1);
        QCOMPARE(Step(stepped, 0), SpinBoxButtonDown);
    }

    void switchingLayout()
    {
        Ticket ticket(ContentSpinBox);
        TDisplayInfomationItem *item = ticket.item;
        auto *caption = item->findChild<TLabel *>(QStringLiteral("DisplayItemName"));
        CTradeSpinBox *spin = ticket.Spin();
        QLayout *content = item->layout()->itemAt(1)->layout();
        auto row = [item] { return qobject_cast<QBoxLayout *>(item->layout()); };
        auto spacers = [content] {
            int n = 0;
            for (int i = 0; i < content->count(); ++i)
                n += content->itemAt(i)->spacerItem() ? 1 : 0;
            return n;
        };
        // The stretch flag waits for the next horizontal layout.
        item->SetNameStretch(true);
        item->ChangeMainLayout(MainLayoutHorizontal); // unchanged: nothing
        QCOMPARE(row()->stretch(0), 0);

        item->ChangeMainLayout(MainLayoutVertical);
        ticket.Settle();
        QCOMPARE(row()->direction(), QBoxLayout::TopToBottom);
        QVERIFY(spin->y() > caption->geometry().bottom());
        QCOMPARE(spacers(), 1);
        item->ChangeMainLayout(MainLayoutNone);
        QVERIFY(!item->layout());
        QCOMPARE(spin->parentWidget(), static_cast<QWidget *>(item));

        item->ChangeMainLayout(MainLayoutHorizontal);
        QCOMPARE(row()->direction(), QBoxLayout::LeftToRight);
        QCOMPARE(row()->stretch(0), 1);
        QCOMPARE(row()->itemAt(1)->layout(), content);
        ticket.Settle();
        QCOMPARE(spin->x(), caption->geometry().right() + 1);
        item->ChangeMainLayout(MainLayoutVertical);
        QCOMPARE(spacers(), 2); // each change to vertical adds one

        // A row built without a layout still owns its parts: every scaled object it made
        // leaves the DPI service's registry with it.
        std::size_t const registered = GetDPIHelper()->RegisteredCount();
        {
            TDisplayInfomationItem loose(1.0f, nullptr, MainLayoutNone, QStringLiteral("Qty"), ContentButtonGroup,
                                         SpinBoxMenuNone);
            QVERIFY(!loose.layout() && loose.GetContentWidget());
        }
        QCOMPARE(GetDPIHelper()->RegisteredCount(), registered);
    }
};

QTEST_MAIN(TestDisplayInfomationItem)
#include "tst_display_infomation_item.moc"
