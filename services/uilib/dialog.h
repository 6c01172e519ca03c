#pragma once
// TDialog: a QDialog that follows the scale (see ICallDPIChanged); the base of the
// library's frameless windows.
//
// Its size setters take logical pixels and are applied again at each change of scale;
// they hide QDialog's functions of the same name. A stored adjustSize() runs again after
// each change. setLayout brings a layout made at another scale to this dialog's scale.
// A top-level TDialog becomes known to the DPI service when first shown.
// m_resizeHandler moves and resizes a frameless window by the mouse once activated.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"
#include "uilib/widget_resize_handler.h"

#include <QDialog>

class KELVOUILIB_EXPORT TDialog : public QDialog, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TDialog(float scale, QWidget *parent = nullptr);
    ~TDialog() override;

    void adjustSize();
    void setFixedSize(int width, int height);
    void setFixedWidth(int width);
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
