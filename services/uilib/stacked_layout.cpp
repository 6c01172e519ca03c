#include "uilib/stacked_layout.h"

#include "uilib/scale_pass.h"

TStackedLayout::TStackedLayout(float scale, QWidget *parent)
    : QStackedLayout(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TStackedLayout::~TStackedLayout() = default;

int TStackedLayout::addWidget(QWidget *widget)
{
    int const index = QStackedLayout::addWidget(widget);
    ScalePass::Adopt(widget, m_scale);
    return index;
}

int TStackedLayout::insertWidget(int index, QWidget *widget)
{
    int const at = QStackedLayout::insertWidget(index, widget);
    ScalePass::Adopt(widget, m_scale);
    return at;
}

void TStackedLayout::ScaleChanged(float scale)
{
    ScalePass::ChangeLayout(this, this, scale, [] {});
}
