#include "trade/buttons_widget.h"
#include "trade/trade_enh_menu_button.h"

#include "uilib/menu.h"
#include "uilib/push_button.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

// A window holding one row; `texts` become buttons with the ids 10, 20, 30 and so on.
struct Row : QWidget {
    explicit Row(QStringList const &texts = {})
    {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(buttons = new TButtonsWidget(1.0f, nullptr));
        for (int i = 0; i < texts.size(); ++i)
            buttons->AddButton(texts.at(i), 10 * (i + 1));
        resize(360, 40);
    }
    void Show()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    QAbstractButton *At(int index) const { return buttons->GetButtons().at(index); }
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

    TButtonsWidget *buttons = nullptr;
};

} // namespace

class TestButtonsWidget : public QObject
{
    Q_OBJECT
private slots:
    // Clicks and SetChecked keep exactly one button selected. A click on the selected
    // button reports nothing; SetChecked reports nothing, takes the index for the id and
    // ignores an index out of range.
    void exactlyOneSelected()
    {
        Row row({"Buy", "Sell", "Short"});
        row.Show();
        QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);
        QVERIFY(!row.buttons->CheckedButtonID().isValid());
        QVERIFY(!row.buttons->GetSelectButton());
        struct Step { bool click; int index; char const *selected; int emitted; int id; };
        Step const steps[] = {{true, 1, "Sell", 1, 20},  {true, 1, "Sell", 1, 20},   {true, 0, "Buy", 2, 10},
                              {true, 2, "Short", 3, 30}, {false, -1, "Short", 3, 30}, {false, 3, "Short", 3, 30},
                              {false, 0, "Buy", 3, 0},   {true, 0, "Buy", 3, 0},     {true, 1, "Sell", 4, 20},
                              {false, 2, "Short", 4, 2}, {true, 2, "Short", 4, 2},   {true, 0, "Buy", 5, 10}};
        for (Step const &step : steps) {
            if (step.click)
                QTest::mouseClick(row.At(step.index), Qt::LeftButton);
            else
                row.buttons->SetChecked(step.index);
            QCOMPARE(row.Checked(), QStringList{step.selected});
            QCOMPARE(row.buttons->GetSelectButton()->text(), QString::fromLatin1(step.selected));
            QCOMPARE(row.buttons->CheckedButtonID().toInt(), step.id);
            QCOMPARE(clicked.count(), step.emitted);
        }
        QList<int> ids;
        for (QList<QVariant> const &args : qAsConst(clicked))
            ids << args.at(0).toInt();
        QCOMPARE(ids, (QList<int>{20, 10, 30, 20, 10}));
        row.At(1)->setFocus(); // the keyboard clicks the same way
        QTest::keyClick(row.At(1), Qt::Key_Space);
        QCOMPARE(row.Checked(), QStringList{"Sell"});
        QCOMPARE(clicked.count(), 6);
    }

    void buttonWithoutIdReadsItAtClickTime()
    {
        Row row;
        TPushButton *first = row.buttons->AddButton();
        first->SetKelvoData(QStringLiteral("gtc"));
        TPushButton *second = row.buttons->AddButton();
        second->SetKelvoData(QStringLiteral("day"));
        row.Show();
        QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);
        second->SetKelvoData(QStringLiteral("day-ext"));
        QTest::mouseClick(second, Qt::LeftButton);
        QTest::mouseClick(first, Qt::LeftButton);
        QCOMPARE(clicked.at(0).at(0).toString(), QStringLiteral("day-ext"));
        QCOMPARE(clicked.at(1).at(0).toString(), QStringLiteral("gtc"));
    }

    void menuButtonMemberReportsItsChoice()
    {
        Row row({"Limit"});
        auto *conditional = new TTradeEnhMenuButton(1.0f, nullptr);
        conditional->AddItem(QStringLiteral("Stop"), 5);
        conditional->AddItem(QStringLiteral("Trailing"), 6);
        row.buttons->AddMenuButton(nullptr, 9); // ignored
        row.buttons->AddMenuButton(conditional, 99);
        QCOMPARE(row.buttons->GetButtons().size(), 2);
        row.Show();
        QSignalSpy clicked(row.buttons, &TButtonsWidget::clickedButton);

        Row::Click(conditional);
        Row::Click(conditional); // still selected, still checked
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).toInt(), 5); // the menu's choice, not the id given
        QCOMPARE(row.Checked(), QStringList{"Stop"});

        // A pick in its menu is the button's own news, not the row's.
        QSignalSpy picked(conditional, &TTradeEnhMenuButton::SelectItem);
        conditional->GetMenu()->actions().at(1)->trigger();
        QCOMPARE(picked.count(), 1);
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(row.Checked(), QStringList{"Trailing"});

        QTest::mouseClick(row.At(0), Qt::LeftButton);
        QCOMPARE(row.Checked(), QStringList{"Limit"});
        Row::Click(conditional);
        QCOMPARE(clicked.last().at(0).toInt(), 6);
        QCOMPARE(row.Checked(), QStringList{"Trailing"});
        row.buttons->SetChecked(0);
        QCOMPARE(row.Checked(), QStringList{"Limit"});
    }

    void deletedMemberLeavesTheRow()
    {
        Row row({"Buy", "Sell"});
        row.Show();
        QTest::mouseClick(row.At(1), Qt::LeftButton);
        delete row.At(1);
        QCOMPARE(row.buttons->GetButtons().size(), 1);
        QVERIFY(!row.buttons->GetSelectButton());
        row.buttons->SetChecked(1); // out of range now
        QVERIFY(!row.buttons->GetSelectButton());
        row.buttons->SetChecked(0);
        QCOMPARE(row.Checked(), QStringList{"Buy"});
    }

    void equalSharesFollowScale_data()
    {
        QTest::addColumn<float>("scale");
        for (float scale : {1.0f, 1.5f, 2.0f})
            QTest::addRow("%.1f", double(scale)) << scale;
    }
    void equalSharesFollowScale()
    {
        QFETCH(float, scale);
        Row row({"0", "1", "2"});
        row.buttons->setFixedHeight(24);
        row.buttons->SetSpacing(6);
        row.Show();
        row.buttons->SetScale(scale);
        row.resize(int(360 * scale), int(40 * scale));
        row.layout()->activate();
        QList<QAbstractButton *> const b = row.buttons->GetButtons();
        QCOMPARE(row.buttons->height(), int(24 * scale));
        QCOMPARE(b.at(0)->height(), row.buttons->height()); // the buttons fill the row
        QCOMPARE(b.at(1)->x() - b.at(0)->geometry().right() - 1, int(6 * scale));
        QVERIFY(qAbs(b.at(0)->width() - b.at(2)->width()) <= 1);
        QCOMPARE(b.at(2)->geometry().right(), row.buttons->width() - 1);
    }
};

QTEST_MAIN(TestButtonsWidget)
#include "tst_buttons_widget.moc"
