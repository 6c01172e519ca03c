#include "uilib/dialog.h"

#include "uilib/scale_pass.h"

#include <QLayout>

TDialog::TDialog(float scale, QWidget *parent)
    : QDialog(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TDialog::~TDialog() = default;

void TDialog::adjustSize()
{
    m_sizes.Apply(this, ScaledSizes::AdjustSize, 0, 0, m_scale);
}

void TDialog::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TDialog::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TDialog::setLayout(QLayout *layout)
{
    QDialog::setLayout(layout);
    ScalePass::Adopt(layout, m_scale);
}

void TDialog::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}

bool TDialog::event(QEvent *event)
{
    ScalePass::WindowEvent(this, event);
    return QDialog::event(event);
}

void TDialog::AdjustReiszeHandle()
{
    m_resizeHandler.reattach();
}
