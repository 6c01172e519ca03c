#include "uilib/layout.h"

#include "uilib/scale_pass.h"

TLayout::TLayout(float scale, QWidget *parent)
    : QLayout(parent)
    , CLayoutDPIChanged(this, scale, parent)
{
}

TLayout::TLayout(QWidget *parent)
    : TLayout(-1.0f, parent)
{
}

TLayout::~TLayout() = default;

void TLayout::addWidget(QWidget *widget)
{
    QLayout::addWidget(widget);
    ScalePass::Adopt(widget, m_scale);
}

void TLayout::setContentsMargins(int left, int top, int right, int bottom)
{
    m_values.SetMargins(this, QMargins(left, top, right, bottom), m_scale);
}

void TLayout::getContentsMargins(int *left, int *top, int *right, int *bottom) const
{
    QMargins const margins = m_values.Margins(this, m_scale);
    if (left)
        *left = margins.left();
    if (top)
        *top = margins.top();
    if (right)
        *right = margins.right();
    if (bottom)
        *bottom = margins.bottom();
}

int TLayout::spacing() const
{
    return m_values.Spacing(this, m_scale);
}

void TLayout::ScaleChanged(float scale)
{
    ScalePass::ChangeLayout(this, this, scale, [this, scale] { m_values.Reapply(this, scale); });
}
