#include "trade/buttons_widget.h"
#include "trade/display_infomation_item.h"
#include "trade/trade_menu_button.h"
#include "trade/trade_spin_box.h"

#include "qtcomm/language_helper.h"
#include "uilib/box_layout.h"
#include "uilib/dpi_helper.h"
#include "uilib/label.h"
#include "uilib/menu.h"
#include "uilib/push_button.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(QFocusEvent *)

namespace {

// A shown top-level window holding one row, so clicks and keys travel the real way.
struct Ticket {
    Ticket(ContentWidgetType content, MainLayout layout = MainLayoutHorizontal,
           SpinBoxMenuType menu = SpinBoxMenuNone, float scale = 1.0f)
        : window(scale, nullptr)
    {
        auto *column = new TVBoxLayout(scale, nullptr);
        column->setContentsMargins(8, 8, 8, 8);
        window.setLayout(column);
        item = new TDisplayInfomationItem(scale, nullptr, layout, QStringLiteral("Price"), content, menu);
        column->addWidget(item, 0, Qt::Alignment());
        window.resize(360, 80);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("window not active");
    }
    // Layouts of a shown window run from posted events; run them now.
    void Settle()
    {
        window.layout()->activate();
        if (item->layout())
            item->layout()->activate();
    }
    CTradeSpinBox *Spin() const { return qobject_cast<CTradeSpinBox *>(item->GetContentWidget()); }
    TTradeMenuButton *Menu() const { return qobject_cast<TTradeMenuButton *>(item->GetContentWidget()); }
    TButtonsWidget *Group() const { return qobject_cast<TButtonsWidget *>(item->GetContentWidget()); }

    TWidget window;
    TDisplayInfomationItem *item = nullptr;
};

void FlushDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestDisplayInfomationItem : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<QFocusEvent *>(); }
    void standardText_data();
    void standardText();
    void typingIsTidied_data();
    void typingIsTidied();
    void captionWidthByLanguage_data();
    void captionWidthByLanguage();
    void spinBoxSignals();
    void menuTypes();
    void otherKindIgnoresCalls_data();
    void otherKindIgnoresCalls();
    void switchingKindKeepsSignalsAndLeaksNothing();
    void switchingLayout();
};

void TestDisplayInfomationItem::standardText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("standard");
    // Leading zeros go.
    QTest::newRow("007") << "007" << "7";
    QTest::newRow("05") << "05" << "5";
    QTest::newRow("000") << "000" << "0";
    QTest::newRow("007.25") << "007.25" << "7.25";
    QTest::newRow("00.5") << "00.5" << "0.5";
    QTest::newRow("0012.0034") << "0012.0034" << "12.0034";
    QTest::newRow("-00.5") << "-00.5" << "-0.5";
    // States on the way to a number stay.
    QTest::newRow("empty") << "" << "";
    QTest::newRow("0") << "0" << "0";
    QTest::newRow("-") << "-" << "-";
    QTest::newRow("-.") << "-." << "-";
    QTest::newRow("1.") << "1." << "1.";
    QTest::newRow("1.50") << "1.50" << "1.50";
    QTest::newRow("12.30") << "12.30" << "12.30";
    QTest::newRow(".5") << ".5" << ".5";
    QTest::newRow("-0.5") << "-0.5" << "-0.5";
    QTest::newRow("-.5") << "-.5" << "-0.5";
    QTest::newRow("-0") << "-0" << "-0";
    // Digits beyond any step are kept, never cut or rounded.
    QTest::newRow("12.304") << "12.304" << "12.304";
    QTest::newRow("0.123456789") << "0.123456789" << "0.123456789";
    QTest::newRow("1234567.891") << "1234567.891" << "1234567.891";
    // Separators: with "'" and no point the text is left alone.
    QTest::newRow("1'234") << "1'234" << "1'234";
    QTest::newRow("01'234") << "01'234" << "01'234";
    QTest::newRow("1,234") << "1,234" << "1,234";
    // What is no number at all.
    QTest::newRow("0abc") << "0abc" << "0";
    QTest::newRow("abc") << "abc" << "abc";
}

void TestDisplayInfomationItem::standardText()
{
    QFETCH(QString, typed);
    QFETCH(QString, standard);
    QCOMPARE(TDisplayInfomationItem::GetStandardText(typed), standard);
}

void TestDisplayInfomationItem::typingIsTidied_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QStringList>("reported");
    QTest::addColumn<QString>("text");
    QTest::newRow("1.5") << "1.5" << QStringList{"1", "1.", "1.5"} << "1.5";
    QTest::newRow("05") << "05" << QStringList{"0", "5"} << "5";
    QTest::newRow("007.25") << "007.25" << QStringList{"0", "0", "7", "7.", "7.2", "7.25"} << "7.25";
    QTest::newRow("-.5") << "-.5" << QStringList{"-", "-", "-5"} << "-5";
    QTest::newRow("12.30") << "12.30" << QStringList{"1", "12", "12.", "12.3", "12.30"} << "12.30";
}

void TestDisplayInfomationItem::typingIsTidied()
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

void TestDisplayInfomationItem::captionWidthByLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<float>("scale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("zh_CN 1.0") << int(Language::LANGUAGE_ZH_CN) << 1.0f << QSize(60, 24);
    QTest::newRow("en_US 1.0") << int(Language::LANGUAGE_EN_US) << 1.0f << QSize(70, 24);
    QTest::newRow("zh_CN 1.5") << int(Language::LANGUAGE_ZH_CN) << 1.5f << QSize(90, 36);
    QTest::newRow("en_US 2.0") << int(Language::LANGUAGE_EN_US) << 2.0f << QSize(140, 48);
}

void TestDisplayInfomationItem::captionWidthByLanguage()
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

void TestDisplayInfomationItem::spinBoxSignals()
{
    Ticket ticket(ContentSpinBox);
    CTradeSpinBox *spin = ticket.Spin();
    QVERIFY(spin);
    QSignalSpy stepped(ticket.item, &TDisplayInfomationItem::SpinboxButtonClicked);
    QSignalSpy menuPressed(ticket.item, &TDisplayInfomationItem::SpinboxMenuButtonClicked);
    QSignalSpy picked(ticket.item, &TDisplayInfomationItem::MenuSelectItem);
    QSignalSpy focusIn(ticket.item, &TDisplayInfomationItem::SpinboxFocusIn);
    QSignalSpy focusOut(ticket.item, &TDisplayInfomationItem::SpinboxFocusOut);

    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(spin, &enter);
    auto *up = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxUpButton"));
    auto *down = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxDownButton"));
    for (TPushButton *button : {up, down})
        QTest::mouseClick(ticket.window.windowHandle(), Qt::LeftButton, {},
                          button->mapTo(&ticket.window, button->rect().center()));
    spin->setFocus();
    QTest::keyClick(spin, Qt::Key_Up);
    QCOMPARE(stepped.count(), 3);
    QCOMPARE(stepped.at(0).at(0).value<SpinBoxButtonType>(), SpinBoxButtonUp);
    QCOMPARE(stepped.at(1).at(0).value<SpinBoxButtonType>(), SpinBoxButtonDown);
    QCOMPARE(stepped.at(2).at(0).value<SpinBoxButtonType>(), SpinBoxButtonUp);
    QVERIFY(spin->text().isEmpty()); // the row leaves stepping to its client

    QVERIFY(spin->hasFocus()); // the window gave it the focus when it became active
    spin->clearFocus();
    QCOMPARE(focusOut.count(), 1);
    spin->setFocus();
    QCOMPARE(focusIn.count(), 1);

    // The menu button beside the field reports its press, and a pick in its menu.
    ticket.item->ChangeMenuType(SpinBoxMenuNumber);
    auto *menuButton = qobject_cast<TTradeMenuButton *>(ticket.item->GetMenuButton());
    QVERIFY(menuButton && menuButton->isVisible());
    QTest::mouseClick(menuButton, Qt::LeftButton); // no items yet, so no modal menu
    QCOMPARE(menuPressed.count(), 1);
    QAction *last = ticket.item->AddMenuItem(QStringLiteral("Last price"), 1);
    ticket.item->AddMenuItem(QStringLiteral("Bid"), 2);
    QVERIFY(last);
    last->trigger();
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.at(0).at(0).toInt(), 1);
    QVERIFY(menuButton->text().isEmpty()); // shows no text of its own

    auto *offset = new QLabel(QStringLiteral("Offset"));
    ticket.item->AddWidgetAction(offset, 7, true);
    ticket.item->SetMenuWidgetItemVisible(7, false);
    QCOMPARE(menuButton->GetMenu()->actions().size(), 4);
    QVERIFY(!menuButton->GetMenu()->actions().at(2)->isVisible());
}

void TestDisplayInfomationItem::menuTypes()
{
    Ticket ticket(ContentSpinBox);
    CTradeSpinBox *spin = ticket.Spin();
    QWidget *menuButton = ticket.item->GetMenuButton();
    QVERIFY(menuButton && menuButton->isHidden());
    QCOMPARE(spin->property("type").toString(), QStringLiteral("normal"));
    QCOMPARE(spin->geometry().right(), ticket.item->width() - 1); // the field takes the whole row

    struct Case { SpinBoxMenuType type; bool shown; char const *kind; char const *name; };
    Case const cases[] = {{SpinBoxMenuEdit, true, "not_normal", "SpinBoxEditMenu"},
                          {SpinBoxMenuNone, false, "normal", "SpinBoxEditMenu"},
                          {SpinBoxMenuNumber, true, "not_normal", "SpinBoxNumberMenu"}};
    for (Case const &c : cases) {
        ticket.item->ChangeMenuType(c.type);
        ticket.Settle();
        QCOMPARE(ticket.item->GetMenuType(), c.type);
        QCOMPARE(menuButton->isVisible(), c.shown);
        QCOMPARE(spin->property("type").toString(), QString::fromLatin1(c.kind));
        QCOMPARE(menuButton->objectName(), QString::fromLatin1(c.name));
        if (c.shown) {
            QCOMPARE(menuButton->size(), QSize(24, 24));
            QCOMPARE(menuButton->x(), spin->geometry().right() + 1);
        }
    }
    // An unknown type is stored but changes no widget.
    ticket.item->ChangeMenuType(SpinBoxMenuType(9));
    QCOMPARE(int(ticket.item->GetMenuType()), 9);
    QVERIFY(menuButton->isVisible());
    QCOMPARE(menuButton->objectName(), QStringLiteral("SpinBoxNumberMenu"));
}

void TestDisplayInfomationItem::otherKindIgnoresCalls_data()
{
    QTest::addColumn<int>("content");
    QTest::newRow("button menu") << int(ContentButtonMenu);
    QTest::newRow("spin box") << int(ContentSpinBox);
    QTest::newRow("button group") << int(ContentButtonGroup);
}

void TestDisplayInfomationItem::otherKindIgnoresCalls()
{
    QFETCH(int, content);
    auto const type = ContentWidgetType(content);
    bool const isMenu = type == ContentButtonMenu;
    bool const isSpin = type == ContentSpinBox;
    bool const isGroup = type == ContentButtonGroup;
    Ticket ticket(type);
    QWidget *input = ticket.item->GetContentWidget();
    QVERIFY(input);

    ticket.item->AddButton(QStringLiteral("Buy"), 5);
    QCOMPARE(isGroup ? ticket.Group()->GetButtons().size() : 0, isGroup ? 1 : 0);
    QCOMPARE(ticket.item->AddButtonMenuItem(QStringLiteral("Limit"), 0) != nullptr, isMenu);
    QCOMPARE(ticket.item->AddMenuItem(QStringLiteral("Last"), 7) != nullptr, isSpin);

    ticket.item->SetContentText(QStringLiteral("12"));
    QCOMPARE(ticket.item->GetContentText(), isSpin ? QStringLiteral("12") : QString());
    if (isMenu)
        QCOMPARE(ticket.Menu()->text(), QStringLiteral("12"));

    ticket.item->SetChecked(0);
    QCOMPARE(ticket.item->GetSelectButtonID(), isGroup ? QVariant(0) : QVariant());
    QCOMPARE(ticket.item->GetMenuSelectItem(), isMenu ? QVariant(0) : QVariant());
    QCOMPARE(ticket.item->GetContentText(), isSpin ? QStringLiteral("12") : QString());

    ticket.item->ChangeMenuType(SpinBoxMenuEdit);
    QCOMPARE(ticket.item->GetMenuType(), isSpin ? SpinBoxMenuEdit : SpinBoxMenuNone);
    QCOMPARE(ticket.item->GetMenuButton() != nullptr, isSpin);
    QCOMPARE(ticket.item->AddSeparatorOnMenu() != nullptr, isSpin);
    // Parented to the window, so it is not lost when the row has no menu to take it.
    auto *extra = new QLabel(QStringLiteral("Offset"), &ticket.window);
    ticket.item->AddWidgetAction(extra, 1, true);
    ticket.item->SetMenuWidgetItemVisible(1, false);
    ticket.item->SetMenuEnable(false);

    ticket.item->SetContentFixSize(200, 30);
    QCOMPARE(input->height(), isSpin ? 30 : 24);
    if (isMenu)
        QCOMPARE(ticket.Menu()->GetMenu()->height(), 30);

    auto *validator = new QIntValidator(ticket.item);
    ticket.item->SetValidator(validator);
    ticket.item->SetInputMethodEnabled(true);
    if (isSpin) {
        QCOMPARE(ticket.Spin()->validator(), validator);
        QVERIFY(ticket.Spin()->testAttribute(Qt::WA_InputMethodEnabled));
    }
    ticket.item->SetDarkStyle(true);
    ticket.item->SetButtonEnble(42, false); // no such id
    ticket.item->SetButtonEnble(5, false);
    if (isGroup) {
        QVERIFY(!ticket.Group()->GetButtons().at(0)->isEnabled());
        QCOMPARE(ticket.Group()->GetButtons().at(0)->property("dark"), QVariant(true));
    }
    ticket.item->SetMenuFixWidth(150);
    if (isMenu)
        QCOMPARE(ticket.Menu()->GetMenu()->width(), 150);
    ticket.item->ClearButtonMenuItems();
    if (isMenu) {
        QVERIFY(ticket.Menu()->GetMenu()->actions().isEmpty());
        ticket.item->SetContentText(QString());
        ticket.item->SetChecked(0); // the cleared items are still known by their data
        QCOMPARE(ticket.Menu()->text(), QStringLiteral("Limit"));
    }
    QCOMPARE(ticket.item->GetContentWidget(), input);
}

void TestDisplayInfomationItem::switchingKindKeepsSignalsAndLeaksNothing()
{
    Ticket ticket(ContentSpinBox, MainLayoutHorizontal, SpinBoxMenuEdit);
    QSignalSpy stepped(ticket.item, &TDisplayInfomationItem::SpinboxButtonClicked);
    QSignalSpy focusOut(ticket.item, &TDisplayInfomationItem::SpinboxFocusOut);
    QSignalSpy typed(ticket.item, &TDisplayInfomationItem::SpinboxTextChanged);
    QSignalSpy grouped(ticket.item, &TDisplayInfomationItem::ButtonGroupSelectItem);
    QSignalSpy menuClicked(ticket.item, &TDisplayInfomationItem::ButtonMenuClicked);
    auto *content = ticket.item->layout()->itemAt(1)->layout();
    QVERIFY(content);

    std::size_t const registered = GetDPIHelper()->RegisteredCount();
    QPointer<CTradeSpinBox> oldSpin = ticket.Spin();
    QPointer<QWidget> oldMenuButton = ticket.item->GetMenuButton();
    ticket.item->ChangeContentWidget(ContentSpinBox); // unchanged: nothing happens
    QCOMPARE(ticket.Spin(), oldSpin.data());
    oldSpin->setFocus();
    QVERIFY(oldSpin->hasFocus());

    ticket.item->ChangeContentWidget(ContentButtonGroup);
    QVERIFY(!ticket.item->GetMenuButton());
    QCOMPARE(content->count(), 1);
    QCOMPARE(focusOut.count(), 0); // the closing field no longer speaks for the row
    emit oldSpin->UpButtonClicked();
    QCOMPARE(stepped.count(), 0);
    FlushDeletes();
    QVERIFY(!oldSpin);
    QVERIFY(!oldMenuButton);

    ticket.item->AddButton(QStringLiteral("Buy"), 1);
    ticket.item->AddButton(QStringLiteral("Sell"), 2);
    QPointer<TButtonsWidget> group = ticket.Group();
    QTRY_VERIFY(group->isVisible());
    ticket.Settle();
    QTest::mouseClick(group->GetButtons().at(1), Qt::LeftButton);
    QCOMPARE(grouped.count(), 1);
    QCOMPARE(grouped.at(0).at(0).toInt(), 2);

    ticket.item->ChangeContentWidget(ContentButtonMenu);
    FlushDeletes();
    QVERIFY(!group);
    QCOMPARE(content->count(), 1);
    ticket.item->AddButtonMenuItem(QStringLiteral("Limit"), 0)->trigger();
    QCOMPARE(menuClicked.count(), 1);
    QPointer<TTradeMenuButton> menu = ticket.Menu();

    ticket.item->ChangeContentWidget(ContentSpinBox);
    FlushDeletes();
    QVERIFY(!menu);
    QCOMPARE(content->count(), 2);
    // Back to the kind it started with, the row holds as many scaled objects as then.
    QCOMPARE(GetDPIHelper()->RegisteredCount(), registered);
    CTradeSpinBox *spin = ticket.Spin();
    QTRY_VERIFY(spin->isVisible());
    QCOMPARE(ticket.item->GetMenuType(), SpinBoxMenuNone);
    QVERIFY(ticket.item->GetMenuButton()->isHidden());
    spin->setFocus();
    QTest::keyClicks(spin, QStringLiteral("05"));
    QCOMPARE(ticket.item->GetContentText(), QStringLiteral("5"));
    QCOMPARE(typed.count(), 2);
    QTest::keyClick(spin, Qt::Key_Down);
    QCOMPARE(stepped.count(), 1);
    QCOMPARE(stepped.at(0).at(0).value<SpinBoxButtonType>(), SpinBoxButtonDown);
    ticket.item->ChangeMenuType(SpinBoxMenuEdit);
    QCOMPARE(ticket.item->GetMenuButton()->objectName(), QStringLiteral("SpinBoxEditMenu"));
}

void TestDisplayInfomationItem::switchingLayout()
{
    Ticket ticket(ContentSpinBox, MainLayoutHorizontal);
    auto *caption = ticket.item->findChild<TLabel *>(QStringLiteral("DisplayItemName"));
    CTradeSpinBox *spin = ticket.Spin();
    auto *content = ticket.item->layout()->itemAt(1)->layout();
    QSignalSpy stepped(ticket.item, &TDisplayInfomationItem::SpinboxButtonClicked);
    auto spacers = [content] {
        int n = 0;
        for (int i = 0; i < content->count(); ++i)
            n += content->itemAt(i)->spacerItem() ? 1 : 0;
        return n;
    };

    // The stretch flag waits for the next horizontal layout.
    ticket.item->SetNameStretch(true);
    QCOMPARE(qobject_cast<QBoxLayout *>(ticket.item->layout())->stretch(0), 0);
    ticket.item->ChangeMainLayout(MainLayoutHorizontal); // unchanged: nothing
    QCOMPARE(qobject_cast<QBoxLayout *>(ticket.item->layout())->stretch(0), 0);

    ticket.item->ChangeMainLayout(MainLayoutVertical);
    ticket.Settle();
    QCOMPARE(qobject_cast<QBoxLayout *>(ticket.item->layout())->direction(), QBoxLayout::TopToBottom);
    QVERIFY(spin->y() > caption->geometry().bottom());
    QCOMPARE(spacers(), 1);

    ticket.item->ChangeMainLayout(MainLayoutNone);
    QVERIFY(!ticket.item->layout());
    QCOMPARE(caption->parentWidget(), static_cast<QWidget *>(ticket.item));
    QCOMPARE(spin->parentWidget(), static_cast<QWidget *>(ticket.item));

    ticket.item->ChangeMainLayout(MainLayoutHorizontal);
    auto *row = qobject_cast<QBoxLayout *>(ticket.item->layout());
    QCOMPARE(row->direction(), QBoxLayout::LeftToRight);
    QCOMPARE(row->stretch(0), 1);
    QCOMPARE(row->itemAt(1)->layout(), content);
    ticket.Settle();
    QCOMPARE(spin->x(), caption->geometry().right() + 1);

    ticket.item->ChangeMainLayout(MainLayoutVertical);
    QCOMPARE(spacers(), 2); // each change to vertical adds one

    spin->setFocus();
    QTest::keyClick(spin, Qt::Key_Up);
    QCOMPARE(stepped.count(), 1);

    // A row built without a layout still owns its parts: every scaled object it made
    // leaves the DPI service's registry with it.
    std::size_t const registered = GetDPIHelper()->RegisteredCount();
    {
        TDisplayInfomationItem loose(1.0f, nullptr, MainLayoutNone, QStringLiteral("Qty"), ContentButtonGroup,
                                     SpinBoxMenuNone);
        QVERIFY(!loose.layout());
        QVERIFY(loose.GetContentWidget());
    }
    QCOMPARE(GetDPIHelper()->RegisteredCount(), registered);
}

QTEST_MAIN(TestDisplayInfomationItem)
#include "tst_display_infomation_item.moc"
