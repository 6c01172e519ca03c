#pragma once
// TFrame: a QFrame that follows the scale (see ICallDPIChanged); the usual base of
// bubbles, tips and pop-up panels.
//
// Its size setters take logical pixels and are applied again at each change of scale;
// they hide QFrame's functions of the same name. A stored adjustSize() runs again after
// each change, so a frame that fits its content keeps fitting it. setLayout brings a
// layout made at another scale to this frame's scale. A top-level TFrame becomes known
// to the DPI service when first shown. m_resizeHandler moves and resizes a frameless
// window by the mouse once activated.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"
#include "uilib/widget_resize_handler.h"

#include <QFrame>

class KELVOUILIB_EXPORT TFrame : public QFrame, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TFrame(float scale, QWidget *parent = nullptr);
    ~TFrame() override;

    void resize(int width, int height);
    void adjustSize();
    void setFixedSize(int width, int height);
    void setFixedSize(QSize const &size);
    void setFixedWidth(int width);
    void setFixedHeight(int height);
    void setMinimumSize(int width, int height);
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
