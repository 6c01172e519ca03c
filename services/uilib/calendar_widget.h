#pragma once
// TCalendarWidget: a QCalendarWidget that follows the scale (see ICallDPIChanged).
//
// It has no scaled setters of its own; a change of scale reaches the scaled widgets that
// a control puts into it.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"

#include <QCalendarWidget>

class KELVOUILIB_EXPORT TCalendarWidget : public QCalendarWidget, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TCalendarWidget(float scale, QWidget *parent = nullptr);
    ~TCalendarWidget() override;

    void ScaleChanged(float scale) override;
};
