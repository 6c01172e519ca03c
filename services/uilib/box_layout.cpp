#include "uilib/box_layout.h"

#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

namespace {

bool IsHorizontal(QBoxLayout::Direction direction)
{
    return direction == QBoxLayout::LeftToRight || direction == QBoxLayout::RightToLeft;
}

// A fixed spacing that remembers its logical size, so that the layout can find and
// re-size it at a change of scale without keeping a list of its own.
class ScaledSpacerItem final : public QSpacerItem
{
public:
    ScaledSpacerItem(int logical, bool horizontal, float scale)
        : QSpacerItem(0, 0)
        , m_logical(qMax(0, logical))
    {
        Apply(horizontal, scale);
    }

    void Apply(bool horizontal, float scale)
    {
        int const size = DpiTool::Physical(m_logical, scale);
        if (horizontal)
            changeSize(size, 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
        else
            changeSize(0, size, QSizePolicy::Minimum, QSizePolicy::Fixed);
    }

private:
    int m_logical;
};

} // namespace

TBoxLayout::TBoxLayout(Direction direction, float scale, QWidget *parent)
    : QBoxLayout(direction, parent)
    , CLayoutDPIChanged(this, scale, parent)
{
}

TBoxLayout::~TBoxLayout() = default;

void TBoxLayout::addWidget(QWidget *widget, int stretch, Qt::Alignment alignment)
{
    QBoxLayout::addWidget(widget, stretch, alignment);
    ScalePass::Adopt(widget, m_scale);
}

void TBoxLayout::insertWidget(int index, QWidget *widget, int stretch, Qt::Alignment alignment)
{
    QBoxLayout::insertWidget(index, widget, stretch, alignment);
    ScalePass::Adopt(widget, m_scale);
}

void TBoxLayout::removeWidget(QWidget *widget)
{
    QBoxLayout::removeWidget(widget);
}

void TBoxLayout::addLayout(QLayout *layout, int stretch)
{
    QBoxLayout::addLayout(layout, stretch);
    ScalePass::Adopt(layout, m_scale);
}

void TBoxLayout::addSpacing(int size)
{
    insertSpacing(-1, size);
}

void TBoxLayout::insertSpacing(int index, int size)
{
    insertSpacerItem(index, new ScaledSpacerItem(size, IsHorizontal(direction()), m_scale));
}

void TBoxLayout::setSpacing(int spacing)
{
    m_values.SetSpacing(this, spacing, m_scale);
}

int TBoxLayout::spacing() const
{
    return m_values.Spacing(this, m_scale);
}

void TBoxLayout::setMargin(int margin)
{
    setContentsMargins(margin, margin, margin, margin);
}

void TBoxLayout::setContentsMargins(int left, int top, int right, int bottom)
{
    m_values.SetMargins(this, QMargins(left, top, right, bottom), m_scale);
}

void TBoxLayout::ScaleChanged(float scale)
{
    ScalePass::ChangeLayout(this, this, scale, [this, scale] {
        m_values.Reapply(this, scale);
        bool const horizontal = IsHorizontal(direction());
        // The box's own item list, where addSpacing put them, even in a subclass
        // that keeps a list of its own behind count() and itemAt().
        for (int i = 0; i < QBoxLayout::count(); ++i) {
            if (auto *spacer = dynamic_cast<ScaledSpacerItem *>(QBoxLayout::itemAt(i)))
                spacer->Apply(horizontal, scale);
        }
        invalidate();
    });
}

THBoxLayout::THBoxLayout(float scale, QWidget *parent)
    : TBoxLayout(LeftToRight, scale, parent)
{
}

THBoxLayout::THBoxLayout(QWidget *parent)
    : TBoxLayout(LeftToRight, -1.0f, parent)
{
}

THBoxLayout::~THBoxLayout() = default;

TVBoxLayout::TVBoxLayout(float scale, QWidget *parent)
    : TBoxLayout(TopToBottom, scale, parent)
{
}

TVBoxLayout::TVBoxLayout(QWidget *parent)
    : TBoxLayout(TopToBottom, -1.0f, parent)
{
}

TVBoxLayout::~TVBoxLayout() = default;
