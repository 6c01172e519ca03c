#pragma once
// TListWidget and TListWidgetItem: a QListWidget and its item that follow the scale
// (see ICallDPIChanged).
//
// Item widgets (setItemWidget) live in the viewport, where each change of scale reaches
// them; setItemWidget also brings a widget made at another scale to the list's scale.
// A TListWidgetItem keeps a logical size hint: setSizeHint applies it at the list's
// scale, and the list applies it again at each change of scale. addItem(TListWidgetItem *)
// applies the list's scale to an item made without a list.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"

#include <QListWidget>
#include <QListWidgetItem>

class TListWidget;

class KELVOUILIB_EXPORT TListWidgetItem : public QListWidgetItem
{
public:
    explicit TListWidgetItem(TListWidget *view = nullptr, int type = Type);

    // Logical size; an invalid size (the default) leaves the hint to the view.
    void setSizeHint(QSize const &size);
    QSize logicalSizeHint() const { return m_logicalSizeHint; }
    // Applies the logical size hint at `scale`; called by TListWidget.
    void ApplyScale(float scale);

private:
    QSize m_logicalSizeHint;
};

class KELVOUILIB_EXPORT TListWidget : public QListWidget, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TListWidget(float scale, QWidget *parent = nullptr);
    ~TListWidget() override;

    using QListWidget::addItem;
    void addItem(QListWidgetItem *item);
    void addItem(TListWidgetItem *item);
    void setItemWidget(QListWidgetItem *item, QWidget *widget);

    void ScaleChanged(float scale) override;
};
