#include "uilib/check_box.h"

#include "uilib/scale_pass.h"

TCheckBox::TCheckBox(float scale, QWidget *parent)
    : QCheckBox(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TCheckBox::~TCheckBox() = default;

void TCheckBox::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TCheckBox::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
