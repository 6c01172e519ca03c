#pragma once
// CFloatingScrollBar: the thin bar that stands in for a scroll area's native bar. Switch
// the area's own bar off (Qt::ScrollBarAlwaysOff) and make one of these for it: it
// follows the hidden native bar both ways, lies along the area's right or bottom edge,
// and shows only while there is something to scroll.
//
// Without auto hide the bar stays up while there is a range; with SetScrollBarAutoHide
// (true) it is there only while the pointer is over the area. The bar is best made a
// child of the area; when it is a child of the area's parent instead, SetPositionMargin
// keeps that many logical pixels free at its start (a header's height, say). Both
// setters take effect at the area's next enter or repaint.
//
// The area is watched, not owned: it should be the bar's parent or outlive it.
//
// Style sheet: object name "SuspendedScrollBar", as its base.

#include "foundation/kelvocontrol_export.h"
#include "table/suspended_scroll_bar.h"

#include <QPointer>

class QAbstractScrollArea;

class KELVOCONTROL_EXPORT CFloatingScrollBar : public CSuspendedScrollBar
{
    Q_OBJECT
public:
    CFloatingScrollBar(float scale, Qt::Orientation orientation, QWidget *parent, QAbstractScrollArea *area);
    ~CFloatingScrollBar() override;

    void SetScrollBarAutoHide(bool auto_hide);
    // Logical pixels kept free at the bar's start edge when it is not the area's child.
    void SetPositionMargin(int margin);

    // The thickness follows the scale, so the bar is placed again at once.
    void ScaleChanged(float scale) override;

public Q_SLOTS:
    void rangeChanged(int min, int max);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractScrollArea *Area() const;
    void AdjustScrollBarPosition();
    void ShowOrHideFloatingScrollBar(bool show);

    // Held as a QObject: the area's events reach the filter while it is being destroyed,
    // when it is no longer a QAbstractScrollArea.
    QPointer<QObject> m_area;
    Qt::Orientation m_orientation;
    bool m_autoHide = false;
    int m_positionMargin = 0;
};
