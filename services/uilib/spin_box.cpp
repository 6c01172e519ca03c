#include "uilib/spin_box.h"

#include "uilib/scale_pass.h"

TSpinBox::TSpinBox(float scale, QWidget *parent)
    : QSpinBox(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TSpinBox::~TSpinBox() = default;

void TSpinBox::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TSpinBox::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
