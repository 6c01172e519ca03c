#include "uilib/list_widget.h"

#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

TListWidgetItem::TListWidgetItem(TListWidget *view, int type)
    : QListWidgetItem(view, type)
{
}

void TListWidgetItem::setSizeHint(QSize const &size)
{
    m_logicalSizeHint = size;
    auto *view = qobject_cast<TListWidget *>(listWidget());
    ApplyScale(view ? view->GetScale() : 1.0f);
}

void TListWidgetItem::ApplyScale(float scale)
{
    if (m_logicalSizeHint.isValid())
        QListWidgetItem::setSizeHint(DpiTool::Physical(m_logicalSizeHint, scale));
}

TListWidget::TListWidget(float scale, QWidget *parent)
    : QListWidget(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TListWidget::~TListWidget() = default;

void TListWidget::addItem(QListWidgetItem *item)
{
    if (auto *scaledItem = dynamic_cast<TListWidgetItem *>(item))
        addItem(scaledItem);
    else
        QListWidget::addItem(item);
}

void TListWidget::addItem(TListWidgetItem *item)
{
    QListWidget::addItem(item);
    if (item)
        item->ApplyScale(m_scale);
}

void TListWidget::setItemWidget(QListWidgetItem *item, QWidget *widget)
{
    QListWidget::setItemWidget(item, widget);
    ScalePass::Adopt(widget, m_scale);
}

void TListWidget::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, nullptr, scale, [this, scale](float) {
        for (int row = 0; row < count(); ++row) {
            if (auto *scaledItem = dynamic_cast<TListWidgetItem *>(item(row)))
                scaledItem->ApplyScale(scale);
        }
    });
}
