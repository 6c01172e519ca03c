#include "uilib/calendar_widget.h"

#include "uilib/scale_pass.h"

TCalendarWidget::TCalendarWidget(float scale, QWidget *parent)
    : QCalendarWidget(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TCalendarWidget::~TCalendarWidget() = default;

void TCalendarWidget::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, nullptr, scale);
}
