#include "uilib/frame.h"

#include "uilib/scale_pass.h"

#include <QLayout>

TFrame::TFrame(float scale, QWidget *parent)
    : QFrame(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TFrame::~TFrame() = default;

void TFrame::resize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::Resize, width, height, m_scale);
}

void TFrame::adjustSize()
{
    m_sizes.Apply(this, ScaledSizes::AdjustSize, 0, 0, m_scale);
}

void TFrame::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TFrame::setFixedSize(QSize const &size)
{
    setFixedSize(size.width(), size.height());
}

void TFrame::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TFrame::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TFrame::setMinimumSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::MinimumSize, width, height, m_scale);
}

void TFrame::setLayout(QLayout *layout)
{
    QFrame::setLayout(layout);
    ScalePass::Adopt(layout, m_scale);
}

void TFrame::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}

bool TFrame::event(QEvent *event)
{
    ScalePass::WindowEvent(this, event);
    return QFrame::event(event);
}

void TFrame::AdjustReiszeHandle()
{
    m_resizeHandler.reattach();
}
