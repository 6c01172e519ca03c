#pragma once
// TScrollArea: a QScrollArea that follows the scale (see ICallDPIChanged).
//
// The scrolled widget lives in the viewport, where each change of scale reaches it;
// setWidget also brings a widget made at another scale to the area's scale.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"

#include <QScrollArea>

class KELVOUILIB_EXPORT TScrollArea : public QScrollArea, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TScrollArea(float scale, QWidget *parent = nullptr);
    ~TScrollArea() override;

    void setWidget(QWidget *widget);

    void ScaleChanged(float scale) override;
};
