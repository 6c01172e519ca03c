#pragma once
// TWidget: a QWidget that follows the scale (see ICallDPIChanged).
//
// Its size setters take logical pixels and are applied again at each change of scale.
// They hide QWidget's functions of the same name, so a call through a QWidget * still
// reaches Qt with physical pixels. setLayout also brings a layout made at another scale
// to this widget's scale. A top-level TWidget becomes known to the DPI service when
// first shown, so that it follows screen changes and the application style sheet.
// m_resizeHandler moves and resizes a frameless window by the mouse once activated.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"
#include "uilib/widget_resize_handler.h"

#include <QWidget>

class KELVOUILIB_EXPORT TWidget : public QWidget, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TWidget(float scale, QWidget *parent = nullptr);
    ~TWidget() override;

    void resize(int width, int height);
    void setFixedSize(int width, int height);
    void setFixedHeight(int height);
    void setLayout(QLayout *layout);

    void ScaleChanged(float scale) override;

    // Attaches m_resizeHandler again to the widget it was activated on, for instance
    // after setWindowFlags made the native window anew.
    virtual void AdjustReiszeHandle();

protected:
    bool event(QEvent *event) override;

    WidgetResizeHandler m_resizeHandler;

private:
    ScaledSizes m_sizes;
};
