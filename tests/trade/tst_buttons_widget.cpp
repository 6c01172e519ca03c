#include "trade/buttons_widget.h"
#include "trade/trade_enh_menu_button.h"

#include "uilib/menu.h"
#include "uilib/push_button.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

struct Row {
    explicit Row(float scale = 1.0f)
    {
        auto *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        buttons = new TButtonsWidget(scale, nullptr);
        layout->addWidget(buttons);
        window.resize(int(360 * scale), int(40 * scale));
    }
    void Show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    QStringList Checked() const
    {
        QStringList texts;
        for (QAbstractButton *b : buttons->GetButtons()) {
            if (b->isChecked())
                texts << b->text();
        }
        return texts;
    }
    // The main part of a split button is its left end; the arrow is at the right.
    static void Click(QAbstractButton *b) { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(4, b->height() / 2)); }

    QWidget window;
    TButtonsWidget *buttons = nullptr;
};

} // namespace

class TestButtonsWidget : public QObject
{
    Q_OBJECT
private slots:
    void clicksKeepExactlyOneSelected();
    void setCheckedUsesThePosition_data();
    void setCheckedUsesThePosition();
    void buttonWithoutIdReadsItAtClickTime();
    void menuButtonMemberReportsItsChoice();
    void deletedMemberLeavesTheRow();
    void equalSharesFollowScale_data();
    void equalSharesFollowScale();
};

void TestButtonsWidget::clicksKeepExactlyOneSelected()
{
    Row row;
    TPushButton *buy = row.buttons->AddButton(QStringLiteral("Buy"), 10);
    TPushButton *sell = row.buttons->AddButton(QStringLiteral("Sell"), 20);
    TPushButton *shortSell = row.buttons->AddButton(QStringLiteral("Short"), 30);
    row.Show();
    QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);
    QCOMPARE(row.buttons->objectName(), QStringLiteral("TradeButtonsWidget"));
    QVERIFY(!row.buttons->CheckedButtonID().isValid());
    QVERIFY(!row.buttons->GetSelectButton());

    struct Step { TPushButton *button; QString selected; int emitted; int id; };
    Step const steps[] = {{sell, "Sell", 1, 20},  {sell, "Sell", 1, 20},   {buy, "Buy", 2, 10},
                          {shortSell, "Short", 3, 30}, {buy, "Buy", 4, 10}, {buy, "Buy", 4, 10}};
    for (Step const &step : steps) {
        QTest::mouseClick(step.button, Qt::LeftButton);
        QCOMPARE(row.Checked(), QStringList{step.selected});
        QCOMPARE(clicked.count(), step.emitted);
        QCOMPARE(clicked.last().at(0).toInt(), step.id);
        QCOMPARE(row.buttons->CheckedButtonID().toInt(), step.id);
        QCOMPARE(row.buttons->GetSelectButton(), static_cast<QAbstractButton *>(step.button));
    }
    // The keyboard clicks the same way.
    sell->setFocus();
    QTest::keyClick(sell, Qt::Key_Space);
    QCOMPARE(row.Checked(), QStringList{"Sell"});
    QCOMPARE(clicked.count(), 5);
}

void TestButtonsWidget::setCheckedUsesThePosition_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("selected");
    QTest::newRow("-1 ignored") << -1 << "Sell";
    QTest::newRow("count ignored") << 3 << "Sell";
    QTest::newRow("0") << 0 << "Buy";
    QTest::newRow("2") << 2 << "Short";
}

void TestButtonsWidget::setCheckedUsesThePosition()
{
    QFETCH(int, index);
    QFETCH(QString, selected);
    Row row;
    row.buttons->AddButton(QStringLiteral("Buy"), 10);
    TPushButton *sell = row.buttons->AddButton(QStringLiteral("Sell"), 20);
    row.buttons->AddButton(QStringLiteral("Short"), 30);
    row.Show();
    QTest::mouseClick(sell, Qt::LeftButton);
    QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);

    row.buttons->SetChecked(index);
    QCOMPARE(row.Checked(), QStringList{selected});
    bool const inRange = index >= 0 && index < 3;
    QCOMPARE(row.buttons->CheckedButtonID().toInt(), inRange ? index : 20);
    QCOMPARE(clicked.count(), 0);

    // A click on the selected button says nothing; one on another reports its id.
    QTest::mouseClick(row.buttons->GetSelectButton(), Qt::LeftButton);
    QCOMPARE(clicked.count(), 0);
    QAbstractButton *other = row.buttons->GetButtons().at(selected == QLatin1String("Buy") ? 1 : 0);
    QTest::mouseClick(other, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toInt(), other->text() == QLatin1String("Buy") ? 10 : 20);
    QCOMPARE(row.Checked(), QStringList{other->text()});
}

void TestButtonsWidget::buttonWithoutIdReadsItAtClickTime()
{
    Row row;
    TPushButton *first = row.buttons->AddButton();
    first->setText(QStringLiteral("GTC"));
    first->SetKelvoData(QStringLiteral("gtc"));
    TPushButton *second = row.buttons->AddButton();
    second->setText(QStringLiteral("Day"));
    second->SetKelvoData(QStringLiteral("day"));
    row.Show();
    QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);
    second->SetKelvoData(QStringLiteral("day-ext"));
    QTest::mouseClick(second, Qt::LeftButton);
    QCOMPARE(clicked.at(0).at(0).toString(), QStringLiteral("day-ext"));
    QTest::mouseClick(first, Qt::LeftButton);
    QCOMPARE(clicked.at(1).at(0).toString(), QStringLiteral("gtc"));
}

void TestButtonsWidget::menuButtonMemberReportsItsChoice()
{
    Row row;
    TPushButton *limit = row.buttons->AddButton(QStringLiteral("Limit"), 1);
    auto *conditional = new TTradeEnhMenuButton(1.0f, nullptr);
    conditional->AddItem(QStringLiteral("Stop"), 5);
    conditional->AddItem(QStringLiteral("Trailing"), 6);
    row.buttons->AddMenuButton(nullptr, 9); // ignored
    row.buttons->AddMenuButton(conditional, 99);
    QCOMPARE(row.buttons->GetButtons().size(), 2);
    QCOMPARE(conditional->GetKelvoData().toInt(), 99);
    row.Show();
    QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);

    Row::Click(conditional);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toInt(), 5); // the menu's choice, not the id given
    QCOMPARE(row.Checked(), QStringList{"Stop"});
    Row::Click(conditional); // still selected, still checked
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(row.Checked(), QStringList{"Stop"});

    // A pick in its menu is the button's own news, not the row's.
    QSignalSpy picked(conditional, &TTradeEnhMenuButton::SelectItem);
    conditional->GetMenu()->actions().at(1)->trigger();
    QCOMPARE(picked.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(row.Checked(), QStringList{"Trailing"});

    QTest::mouseClick(limit, Qt::LeftButton);
    QCOMPARE(row.Checked(), QStringList{"Limit"});
    Row::Click(conditional);
    QCOMPARE(clicked.last().at(0).toInt(), 6);
    QCOMPARE(row.Checked(), QStringList{"Trailing"});

    row.buttons->SetChecked(0);
    QCOMPARE(row.Checked(), QStringList{"Limit"});
}

void TestButtonsWidget::deletedMemberLeavesTheRow()
{
    Row row;
    row.buttons->AddButton(QStringLiteral("Buy"), 10);
    TPushButton *sell = row.buttons->AddButton(QStringLiteral("Sell"), 20);
    row.Show();
    QTest::mouseClick(sell, Qt::LeftButton);
    delete sell;
    QCOMPARE(row.buttons->GetButtons().size(), 1);
    QVERIFY(!row.buttons->GetSelectButton());
    row.buttons->SetChecked(1); // out of range now
    QVERIFY(!row.buttons->GetSelectButton());
    row.buttons->SetChecked(0);
    QCOMPARE(row.Checked(), QStringList{"Buy"});
}

void TestButtonsWidget::equalSharesFollowScale_data()
{
    QTest::addColumn<float>("scale");
    QTest::newRow("1.0") << 1.0f;
    QTest::newRow("1.5") << 1.5f;
    QTest::newRow("2.0") << 2.0f;
}

void TestButtonsWidget::equalSharesFollowScale()
{
    QFETCH(float, scale);
    Row row(1.0f);
    row.buttons->setFixedHeight(24);
    row.buttons->SetSpacing(6);
    for (int i = 0; i < 3; ++i)
        row.buttons->AddButton(QString::number(i), i);
    row.Show();
    row.buttons->SetScale(scale);
    row.window.resize(int(360 * scale), int(40 * scale));
    row.window.layout()->activate();

    QList<QAbstractButton *> const b = row.buttons->GetButtons();
    QCOMPARE(row.buttons->height(), int(24 * scale));
    QCOMPARE(b.at(0)->height(), row.buttons->height()); // the buttons fill the row
    QCOMPARE(b.at(1)->x() - b.at(0)->geometry().right() - 1, int(6 * scale));
    QVERIFY(qAbs(b.at(0)->width() - b.at(2)->width()) <= 1);
    QCOMPARE(b.at(2)->geometry().right(), row.buttons->width() - 1);
}

QTEST_MAIN(TestButtonsWidget)
#include "tst_buttons_widget.moc"
