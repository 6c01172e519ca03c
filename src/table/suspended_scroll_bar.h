#pragma once
// CSuspendedScrollBar: a thin scroll bar meant to float over content in place of a
// view's native bar. It knows no view: connect a slider's valueChanged and rangeChanged
// to the slots of the same names, and its own valueChanged back to the slider. Use
// CFloatingScrollBar to have that done for a scroll area, with placing and showing.
//
// The bar hides whenever its maximum drops below 1, and its page step follows its
// length. SetVisible(false) forbids it to show itself again; it does not hide a bar on
// show.
//
// Style sheet: object name "SuspendedScrollBar"; give it its thin look there.

#include "foundation/kelvocontrol_export.h"

#include "uilib/scroll_bar.h"

class KELVOCONTROL_EXPORT CSuspendedScrollBar : public TScrollBar
{
    Q_OBJECT
public:
    CSuspendedScrollBar(float scale, Qt::Orientation orientation, QWidget *parent);
    ~CSuspendedScrollBar() override;

    // Whether the bar may show itself.
    bool IsVisible() const;
    void SetVisible(bool visible);

public Q_SLOTS:
    void valueChanged(int value);
    // The range becomes 0 to `max`, whatever `min` is.
    void rangeChanged(int min, int max);

private:
    bool m_visible = true;
};
