#include "uilib/scroll_bar.h"

#include "uilib/scale_pass.h"

TScrollBar::TScrollBar(float scale, QWidget *parent)
    : QScrollBar(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TScrollBar::~TScrollBar() = default;

void TScrollBar::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, nullptr, scale);
}
