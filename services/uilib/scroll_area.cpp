#include "uilib/scroll_area.h"

#include "uilib/scale_pass.h"

TScrollArea::TScrollArea(float scale, QWidget *parent)
    : QScrollArea(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TScrollArea::~TScrollArea() = default;

void TScrollArea::setWidget(QWidget *widget)
{
    QScrollArea::setWidget(widget);
    ScalePass::Adopt(widget, m_scale);
}

void TScrollArea::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, nullptr, scale);
}
