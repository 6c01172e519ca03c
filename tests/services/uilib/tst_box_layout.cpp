// The scaled layouts: margins, spacing, spacer items, getters, scale resolution and
// the items a change of scale reaches.
#include "uilib/uilib.h"

#include <QVBoxLayout>
#include <QtTest>

namespace {

int P(int logical, float scale)
{
    return DpiTool::Physical(logical, scale);
}

// The smallest TLayout: a vertical stack.
class StackLayout : public TLayout
{
public:
    using TLayout::TLayout;
    ~StackLayout() override
    {
        while (!m_items.isEmpty())
            delete m_items.takeFirst();
    }

    void addItem(QLayoutItem *item) override { m_items.append(item); }
    int count() const override { return m_items.size(); }
    QLayoutItem *itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem *takeAt(int index) override
    {
        return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
    }
    QSize sizeHint() const override { return QSize(10, 10); }

private:
    QList<QLayoutItem *> m_items;
};

} // namespace

class TestBoxLayout : public QObject
{
    Q_OBJECT
private slots:
    void marginsAndSpacingsFollowScale_data()
    {
        QTest::addColumn<float>("scale");
        QTest::addColumn<bool>("horizontal");
        QTest::newRow("h 1.0") << 1.0f << true;
        QTest::newRow("h 1.5") << 1.5f << true;
        QTest::newRow("v 2.0") << 2.0f << false;
    }
    // Margins of 1 at 2.0 are 2; a spacing of 7 at 1.5 is 10.
    void marginsAndSpacingsFollowScale()
    {
        QFETCH(float, scale);
        QFETCH(bool, horizontal);
        TWidget widget(1.0f);
        TBoxLayout *layout = horizontal ? static_cast<TBoxLayout *>(new THBoxLayout(1.0f, &widget))
                                        : static_cast<TBoxLayout *>(new TVBoxLayout(1.0f, &widget));
        widget.ScaleChanged(scale);
        // Unset, the getter turns Qt's default spacing into logical pixels.
        QCOMPARE(layout->spacing(), DpiTool::Logical(layout->QBoxLayout::spacing(), scale));
        widget.ScaleChanged(1.0f);
        layout->setContentsMargins(1, 2, 3, 5);
        layout->setSpacing(7);
        widget.ScaleChanged(scale);
        QCOMPARE(layout->contentsMargins(), QMargins(P(1, scale), P(2, scale), P(3, scale), P(5, scale)));
        QCOMPARE(layout->QBoxLayout::spacing(), P(7, scale));
        QCOMPARE(layout->spacing(), 7);
        // Spacings added at a scale are logical too, and follow later changes.
        layout->addSpacing(10);
        layout->insertSpacing(0, 3);
        auto along = [&](int index) {
            QSize const hint = layout->itemAt(index)->sizeHint();
            return horizontal ? hint.width() : hint.height();
        };
        QCOMPARE(along(0), P(3, scale));
        QCOMPARE(along(1), P(10, scale));
        layout->setMargin(3);
        QCOMPARE(layout->contentsMargins(), QMargins(P(3, scale), P(3, scale), P(3, scale), P(3, scale)));
        widget.SetScale(3.0f);
        QCOMPARE(along(0), 9);
        QCOMPARE(along(1), 30);
        QCOMPARE(layout->contentsMargins(), QMargins(9, 9, 9, 9));
    }

    void negativeValuesMeanStyleDefault()
    {
        QWidget plainHost;
        auto *plain = new QVBoxLayout(&plainHost);
        TWidget host(2.0f);
        auto *layout = new TVBoxLayout(2.0f, &host);
        layout->setContentsMargins(-1, 4, -1, 4);
        QMargins const expected(plain->contentsMargins().left(), 8, plain->contentsMargins().right(), 8);
        QCOMPARE(layout->contentsMargins(), expected);
        host.ScaleChanged(1.0f);
        QCOMPARE(layout->contentsMargins().left(), plain->contentsMargins().left());
        QCOMPARE(layout->contentsMargins().top(), 4);
    }

    void scalelessConstructorsResolveScale()
    {
        TWidget parent(1.5f);
        QWidget plainChild(&parent);
        THBoxLayout fromParent(&plainChild);
        QCOMPARE(fromParent.GetScale(), 1.5f);
        TVBoxLayout parentless;
        QCOMPARE(parentless.GetScale(), DpiTool::GetWidgetDpi(nullptr));
        StackLayout custom;
        QCOMPARE(custom.GetScale(), DpiTool::GetWidgetDpi(nullptr));
    }

    void layoutReachesItemsAndPassesItsScaleOn()
    {
        QWidget plain;
        auto *layout = new TVBoxLayout(1.0f, &plain);
        auto *nested = new THBoxLayout(1.0f, nullptr);
        layout->addLayout(nested);
        auto *label = new TLabel(1.0f);
        label->setFixedWidth(10);
        nested->addWidget(label);
        auto *plainBox = new QWidget;
        auto *deep = new TLabel(1.0f, plainBox);
        deep->setFixedWidth(11);
        layout->addWidget(plainBox);
        layout->SetScale(2.0f);
        QCOMPARE(nested->GetScale(), 2.0f);
        QCOMPARE(label->width(), 20);
        QCOMPARE(deep->width(), 22);

        // Widgets and layouts added to a layout take its scale.
        TWidget host(2.0f);
        auto *column = new TVBoxLayout(2.0f, &host);
        auto *added = new TLabel(1.0f);
        added->setFixedWidth(10);
        column->addWidget(added, 1, Qt::AlignLeft);
        QCOMPARE(added->GetScale(), 2.0f);
        QCOMPARE(added->width(), 20);
        auto *row = new THBoxLayout(1.0f, nullptr);
        row->setSpacing(3);
        column->addLayout(row, 0);
        QCOMPARE(row->QBoxLayout::spacing(), 6);
        QCOMPARE(column->stretch(0), 1);
    }

    void customLayoutMarginsAndItems()
    {
        TWidget host(2.0f);
        auto *layout = new StackLayout(2.0f, &host);
        layout->setContentsMargins(2, 4, 6, 8);
        QCOMPARE(layout->QLayout::contentsMargins(), QMargins(4, 8, 12, 16));
        int left = 0, top = 0, right = 0, bottom = 0;
        layout->getContentsMargins(&left, &top, &right, &bottom);
        QCOMPARE(QMargins(left, top, right, bottom), QMargins(2, 4, 6, 8));
        layout->getContentsMargins(nullptr, nullptr, nullptr, &bottom);

        auto *label = new TLabel(2.0f);
        label->setFixedWidth(5);
        layout->addWidget(label);
        host.ScaleChanged(1.0f);
        QCOMPARE(layout->QLayout::contentsMargins(), QMargins(2, 4, 6, 8));
        QCOMPARE(label->width(), 5);
        QCOMPARE(layout->spacing(), layout->QLayout::spacing());
    }

    void stackedLayoutReachesHiddenPages()
    {
        TWidget host(1.0f);
        auto *stack = new TStackedLayout(1.0f, &host);
        auto *first = new TLabel(1.0f);
        auto *second = new TLabel(1.0f);
        first->setFixedWidth(10);
        second->setFixedWidth(12);
        QCOMPARE(stack->addWidget(first), 0);
        QCOMPARE(stack->insertWidget(0, second), 0);
        host.ScaleChanged(2.0f);
        QCOMPARE(stack->GetScale(), 2.0f);
        QCOMPARE(first->width(), 20);
        QCOMPARE(second->width(), 24);
    }
};

QTEST_MAIN(TestBoxLayout)
#include "tst_box_layout.moc"
