#pragma once
// TListView: a QListView that follows the scale (see ICallDPIChanged).
//
// setFixedHeight takes logical pixels and is applied again at each change of scale; it
// hides QListView::setFixedHeight. Index widgets live in the viewport and are reached by
// each change of scale; the view's model and delegate are not scaled objects, so a control
// passes the change on to them itself.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QListView>

class KELVOUILIB_EXPORT TListView : public QListView, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TListView(float scale, QWidget *parent = nullptr);
    ~TListView() override;

    void setFixedHeight(int height);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
