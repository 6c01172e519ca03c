#pragma once
// TLayout: the base of custom layouts (such as a flow layout) that follow the scale
// (see ICallDPIChanged). Like QLayout it is abstract: a subclass supplies addItem,
// count, itemAt, takeAt and sizeHint.
//
// setContentsMargins takes logical pixels and is applied again at each change of scale
// (a negative margin means the style's default). getContentsMargins and spacing()
// answer in logical pixels: a subclass that lays out in physical pixels multiplies them
// by m_scale (DpiTool::Physical). A change of scale reaches every item through the
// virtual count()/itemAt(). The constructor without a scale takes it from `parent`,
// else from the screen.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_layout_values.h"

#include <QLayout>

class KELVOUILIB_EXPORT TLayout : public QLayout, public CLayoutDPIChanged
{
    Q_OBJECT
public:
    TLayout(float scale, QWidget *parent);
    explicit TLayout(QWidget *parent = nullptr);
    ~TLayout() override;

    void addWidget(QWidget *widget);
    void setContentsMargins(int left, int top, int right, int bottom);
    void getContentsMargins(int *left, int *top, int *right, int *bottom) const;
    int spacing() const;

    void ScaleChanged(float scale) override;

private:
    ScaledLayoutValues m_values;
};
