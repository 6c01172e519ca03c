#pragma once
// TTableView: a QTableView that follows the scale (see ICallDPIChanged).
//
// setFixedHeight and setColumnWidth take logical pixels and are applied again at each
// change of scale; they hide QTableView's functions of the same name. A column the user
// resized since keeps its new width, carried over to the new scale. setIndexWidget
// brings a widget made at another scale to the view's scale; index widgets live in the
// viewport, where each change of scale reaches them. The model, the delegate and the
// header are not scaled objects: a control passes the change on to them itself.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QTableView>
#include <vector>

class KELVOUILIB_EXPORT TTableView : public QTableView, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TTableView(float scale, QWidget *parent = nullptr);
    ~TTableView() override;

    void setFixedHeight(int height);
    void setColumnWidth(int column, int width);
    void setIndexWidget(QModelIndex const &index, QWidget *widget);

    void ScaleChanged(float scale) override;

private:
    void ReapplyColumnWidths(float oldScale);

    ScaledSizes m_sizes;
    std::vector<int> m_columnWidths; // logical, by column; -1: not set through this class
};
