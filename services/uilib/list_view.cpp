#include "uilib/list_view.h"

#include "uilib/scale_pass.h"

TListView::TListView(float scale, QWidget *parent)
    : QListView(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TListView::~TListView() = default;

void TListView::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TListView::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
