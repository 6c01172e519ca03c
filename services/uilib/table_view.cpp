#include "uilib/table_view.h"

#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

TTableView::TTableView(float scale, QWidget *parent)
    : QTableView(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TTableView::~TTableView() = default;

void TTableView::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TTableView::setColumnWidth(int column, int width)
{
    if (column < 0)
        return;
    if (std::size_t(column) >= m_columnWidths.size())
        m_columnWidths.resize(std::size_t(column) + 1, -1);
    m_columnWidths[column] = qMax(0, width);
    QTableView::setColumnWidth(column, DpiTool::Physical(m_columnWidths[column], m_scale));
}

void TTableView::setIndexWidget(QModelIndex const &index, QWidget *widget)
{
    QTableView::setIndexWidget(index, widget);
    ScalePass::Adopt(widget, m_scale);
}

void TTableView::ReapplyColumnWidths(float oldScale)
{
    for (int column = 0; std::size_t(column) < m_columnWidths.size(); ++column) {
        int &logical = m_columnWidths[column];
        if (logical < 0)
            continue;
        int const current = columnWidth(column);
        if (current > 0 && current != DpiTool::Physical(logical, oldScale))
            logical = DpiTool::Logical(current, oldScale);
        QTableView::setColumnWidth(column, DpiTool::Physical(logical, m_scale));
    }
}

void TTableView::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale,
                            [this](float oldScale) { ReapplyColumnWidths(oldScale); });
}
