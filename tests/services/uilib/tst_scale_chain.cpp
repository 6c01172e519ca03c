// The ScaleChanged chain: what one change of scale reaches, how often, and what it
// must leave alone.
#include "uilib/uilib.h"

#include <QPointer>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <QWidgetAction>
#include <QtTest>

namespace {

// Each counts the calls of its ScaleChanged override, as a control's override would.
template <typename Base>
class Counting : public Base
{
public:
    using Base::Base;
    void ScaleChanged(float scale) override
    {
        ++calls;
        Base::ScaleChanged(scale);
    }
    int calls = 0;
};

using CountingLabel = Counting<TLabel>;
using CountingButton = Counting<TPushButton>;
using CountingMenu = Counting<TMenu>;
using CountingWidget = Counting<TWidget>;
using CountingHBox = Counting<THBoxLayout>;
using CountingFrame = Counting<TFrame>;

// Reads m_scale in its constructor body, as controls do to build their children.
class ScaleProbe : public TLabel
{
public:
    explicit ScaleProbe(QWidget *parent)
        : TLabel(-1.0f, parent)
        , seen(m_scale)
    {
    }
    float seen;
};

// A control whose popup is a window of its own, forwarded by its override.
class PopupOwner : public TFrame
{
public:
    explicit PopupOwner(float scale, QWidget *parent)
        : TFrame(scale, parent)
        , popup(new CountingFrame(scale, this))
    {
        popup->setWindowFlags(Qt::Popup);
    }

    void ScaleChanged(float scale) override
    {
        TFrame::ScaleChanged(scale);
        popup->ScaleChanged(scale);
    }
    CountingFrame *popup;
};

// Deletes a sibling that the walk has not reached yet.
class SiblingKiller : public TLabel
{
public:
    using TLabel::TLabel;
    void ScaleChanged(float scale) override
    {
        TLabel::ScaleChanged(scale);
        delete victim;
    }
    QPointer<QWidget> victim;
};

struct Chain
{
    TWidget *window = nullptr;
    CountingWidget *inner = nullptr;
    CountingHBox *row = nullptr;
    CountingLabel *label = nullptr;
    CountingButton *button = nullptr;
    CountingMenu *menu = nullptr;
    TLabel *actionLabel = nullptr;
    TWidget *scrolled = nullptr;
    CountingLabel *itemLabel = nullptr;
    CountingButton *indexButton = nullptr;
    QStandardItemModel *model = nullptr;
};

// window -> plain widget -> TWidget with a TVBoxLayout -> nested THBoxLayout -> label,
// button with a menu; beside them a scroll area, a list and a table with their widgets.
Chain BuildChain(float scale)
{
    Chain c;
    c.window = new TWidget(scale);
    auto *plain = new QWidget(c.window);
    (new QVBoxLayout(c.window))->addWidget(plain);
    c.inner = new CountingWidget(scale, plain);
    (new QVBoxLayout(plain))->addWidget(c.inner);
    auto *column = new TVBoxLayout(scale, nullptr);
    c.inner->setLayout(column);
    column->setContentsMargins(2, 2, 2, 2);

    c.row = new CountingHBox(scale, nullptr);
    column->addLayout(c.row);
    c.label = new CountingLabel(scale);
    c.label->setFixedWidth(30);
    c.row->addWidget(c.label);
    c.button = new CountingButton(scale);
    c.button->setFixedSize(10, 10);
    c.row->addWidget(c.button);
    c.menu = new CountingMenu(scale, c.button);
    c.menu->setFixedWidth(50);
    auto *action = new QWidgetAction(c.menu);
    c.actionLabel = new TLabel(scale);
    c.actionLabel->setFixedWidth(20);
    action->setDefaultWidget(c.actionLabel);
    c.menu->addAction(action);
    c.button->setMenu(c.menu);

    auto *area = new TScrollArea(scale, c.inner);
    c.scrolled = new TWidget(scale);
    c.scrolled->setFixedHeight(40);
    area->setWidget(c.scrolled);
    column->addWidget(area);

    auto *list = new TListWidget(scale, c.inner);
    auto *item = new TListWidgetItem(list);
    c.itemLabel = new CountingLabel(scale);
    c.itemLabel->setFixedWidth(25);
    list->setItemWidget(item, c.itemLabel);
    column->addWidget(list);

    auto *table = new TTableView(scale, c.inner);
    c.model = new QStandardItemModel(2, 2, table);
    table->setModel(c.model);
    c.indexButton = new CountingButton(scale);
    c.indexButton->setFixedWidth(15);
    table->setIndexWidget(c.model->index(1, 1), c.indexButton);
    column->addWidget(table);
    return c;
}

int P(int logical, float scale)
{
    return DpiTool::Physical(logical, scale);
}

} // namespace

class TestScaleChain : public QObject
{
    Q_OBJECT
private slots:
    void wholeChainRescalesOnce_data()
    {
        QTest::addColumn<float>("scale");
        QTest::addColumn<float>("next");
        QTest::addColumn<bool>("viaSetScale");
        QTest::newRow("1.0 to 2.0, ScaleChanged") << 1.0f << 2.0f << false;
        QTest::newRow("1.5 to 1.0, SetScale") << 1.5f << 1.0f << true;
        QTest::newRow("2.0 to 1.5, SetScale") << 2.0f << 1.5f << true;
    }
    void wholeChainRescalesOnce()
    {
        QFETCH(float, scale);
        QFETCH(float, next);
        QFETCH(bool, viaSetScale);
        Chain c = BuildChain(scale);
        QScopedPointer<TWidget> owner(c.window);
        QCOMPARE(c.label->width(), P(30, scale));

        if (viaSetScale)
            c.window->SetScale(next);
        else
            c.window->ScaleChanged(next);

        QCOMPARE(c.inner->layout()->contentsMargins().left(), P(2, next));
        QCOMPARE(c.label->width(), P(30, next));
        QCOMPARE(c.button->size(), QSize(P(10, next), P(10, next)));
        QCOMPARE(c.menu->maximumWidth(), P(50, next));
        QCOMPARE(c.actionLabel->width(), P(20, next));
        QCOMPARE(c.scrolled->maximumHeight(), P(40, next));
        QCOMPARE(c.itemLabel->width(), P(25, next));
        QCOMPARE(c.indexButton->maximumWidth(), P(15, next));
        for (auto *scaled : std::initializer_list<CRemoveDPIChanged *>{c.inner, c.row, c.label, c.button, c.menu,
                                                                       c.actionLabel, c.itemLabel, c.indexButton})
            QCOMPARE(scaled->GetScale(), next);
        // The row is an item of the column and a child of it; the label is an item of the
        // row and a child of the inner widget; the menu hangs off the button.
        QCOMPARE(c.inner->calls, 1);
        QCOMPARE(c.row->calls, 1);
        QCOMPARE(c.label->calls, 1);
        QCOMPARE(c.button->calls, 1);
        QCOMPARE(c.menu->calls, 1);
        QCOMPARE(c.itemLabel->calls, 1);
        QCOMPARE(c.indexButton->calls, 1);
    }

    // -1 is resolved before the constructor body runs; a layout adopted later takes its widget's scale.
    void scaleResolvedFromTheParents()
    {
        TWidget window(1.75f);
        QWidget plain(&window);
        ScaleProbe direct(&window);
        ScaleProbe throughPlain(&plain);
        ScaleProbe parentless(nullptr);
        QCOMPARE(direct.seen, 1.75f);
        QCOMPARE(throughPlain.seen, 1.75f);
        QCOMPARE(parentless.seen, DpiTool::GetWidgetDpi(nullptr));
        QCOMPARE(throughPlain.GetScale(), 1.75f);
        TFrame frame(2.0f);
        auto *layout = new TVBoxLayout; // no parent: the screen's scale
        layout->setContentsMargins(3, 3, 3, 3);
        frame.setLayout(layout);
        QCOMPARE(layout->GetScale(), 2.0f);
        QCOMPARE(layout->contentsMargins().left(), 6);
    }

    // Child windows follow SetScale only; a popup its owner forwards is scaled once per change.
    void childWindowsFollowSetScaleOnly()
    {
        TWidget window(1.0f);
        auto *dialog = new TDialog(1.0f, &window);
        auto *inDialog = new CountingLabel(1.0f, dialog);
        inDialog->setFixedWidth(10);
        auto *owner = new PopupOwner(1.0f, &window);
        owner->popup->setFixedWidth(10);
        window.ScaleChanged(2.0f);
        QCOMPARE(dialog->GetScale(), 1.0f);
        QCOMPARE(inDialog->calls, 0);
        QCOMPARE(owner->popup->calls, 1);
        window.SetScale(1.5f);
        QCOMPARE(dialog->GetScale(), 1.5f);
        QCOMPARE(inDialog->width(), 15);
        QCOMPARE(inDialog->calls, 1);
        QCOMPARE(owner->popup->calls, 2);
        QCOMPARE(owner->popup->width(), 15);
    }

    // Menus deleted meanwhile are skipped, and so is a sibling deleted during the walk.
    void deletedObjectsAreNotTouched()
    {
        TWidget window(1.0f);
        auto *button = new TPushButton(1.0f, &window);
        auto *menu = new TMenu(1.0f);
        auto *subMenu = new TMenu(1.0f, QStringLiteral("sub"));
        menu->addMenu(subMenu);
        button->setMenu(menu);
        delete subMenu;
        window.SetScale(2.0f);
        QCOMPARE(menu->GetScale(), 2.0f);
        delete menu;
        window.SetScale(1.5f);
        QCOMPARE(button->GetScale(), 1.5f);

        auto *killer = new SiblingKiller(1.0f, &window);
        killer->victim = new TLabel(1.0f, &window);
        auto *survivor = new TLabel(1.0f, &window);
        survivor->setFixedWidth(10);
        window.ScaleChanged(2.0f);
        QVERIFY(!killer->victim);
        QCOMPARE(survivor->GetScale(), 2.0f);
        QCOMPARE(survivor->width(), 20);
    }
};

QTEST_MAIN(TestScaleChain)
#include "tst_scale_chain.moc"
