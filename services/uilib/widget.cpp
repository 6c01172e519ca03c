#include "uilib/widget.h"

#include "uilib/scale_pass.h"

#include <QLayout>

TWidget::TWidget(float scale, QWidget *parent)
    : QWidget(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TWidget::~TWidget() = default;

void TWidget::resize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::Resize, width, height, m_scale);
}

void TWidget::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TWidget::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TWidget::setLayout(QLayout *layout)
{
    QWidget::setLayout(layout);
    ScalePass::Adopt(layout, m_scale);
}

void TWidget::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}

bool TWidget::event(QEvent *event)
{
    ScalePass::WindowEvent(this, event);
    return QWidget::event(event);
}

void TWidget::AdjustReiszeHandle()
{
    m_resizeHandler.reattach();
}
