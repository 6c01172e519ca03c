#pragma once
// ScaledSizes: what the scaled size setters of one T widget were given, in logical
// pixels, so that a change of scale can apply it again.
//
// Each kind of call keeps only its latest arguments and the order in which the kinds
// were last called; re-applying replays the kinds in that order through the Qt
// functions of the same name, which gives the state the original calls gave. The store
// is a fixed block inside the widget: a setter call allocates nothing.
//
// Sizes at or above QWIDGETSIZE_MAX stay "unlimited"; negative sizes count as 0. A size
// set by resize() follows the widget: if something else (the user, a layout) changed
// the size since, the current size is what is carried over to the new scale.

#include "uilib/kelvouilib_export.h"

#include <QtGlobal>

#include <array>

class QWidget;

class KELVOUILIB_EXPORT ScaledSizes
{
public:
    enum Call : quint8 {
        Resize,
        AdjustSize,
        FixedSize,
        FixedWidth,
        FixedHeight,
        MinimumSize,
        MinimumWidth,
        MaximumWidth,
        CallCount
    };

    // Stores the call and applies it to `widget` at `scale`. `b` is unused by the calls
    // that take one value.
    void Apply(QWidget *widget, Call call, int a, int b, float scale);
    // Applies every stored call again, in order, at `newScale`; `oldScale` is the scale
    // the widget's current sizes were made for.
    void Reapply(QWidget *widget, float oldScale, float newScale);
    // The two halves of Reapply, for a window whose children must be re-scaled in
    // between: CarryOver takes a size the user gave the window at `oldScale` into the
    // stored resize() before anything moves; ReapplyStored then replays the calls.
    void CarryOver(QWidget *widget, float oldScale);
    void ReapplyStored(QWidget *widget, float newScale);
    bool Has(Call call) const { return m_entries[call].order != 0; }
    // Re-runs a stored adjustSize() (after a change of text or font); false if there is none.
    bool RedoAdjustSize(QWidget *widget) const;

private:
    struct Entry
    {
        quint32 order = 0; // 0: never called
        int a = 0;
        int b = 0;
    };

    static void Run(QWidget *widget, Call call, int a, int b, float scale);

    std::array<Entry, CallCount> m_entries{};
    quint32 m_counter = 0;
};
