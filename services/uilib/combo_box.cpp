#include "uilib/combo_box.h"

#include "uilib/scale_pass.h"

TComboBox::TComboBox(float scale, QWidget *parent)
    : QComboBox(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TComboBox::~TComboBox() = default;

void TComboBox::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TComboBox::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
