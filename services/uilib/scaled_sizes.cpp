#include "uilib/scaled_sizes.h"

#include "uilib/dpi_tool.h"

#include <QWidget>

namespace {

// A size extent at a scale: "unlimited" stays unlimited, negatives become 0.
int Extent(int logical, float scale)
{
    if (logical >= QWIDGETSIZE_MAX)
        return QWIDGETSIZE_MAX;
    if (logical <= 0)
        return 0;
    return qMin(DpiTool::Physical(logical, scale), int(QWIDGETSIZE_MAX));
}

} // namespace

void ScaledSizes::Run(QWidget *widget, Call call, int a, int b, float scale)
{
    int const pa = Extent(a, scale);
    int const pb = Extent(b, scale);
    switch (call) {
    case Resize:
        widget->resize(pa, pb);
        break;
    case AdjustSize:
        widget->adjustSize();
        break;
    case FixedSize:
        widget->setFixedSize(pa, pb);
        break;
    case FixedWidth:
        widget->setFixedWidth(pa);
        break;
    case FixedHeight:
        widget->setFixedHeight(pa);
        break;
    case MinimumSize:
        widget->setMinimumSize(pa, pb);
        break;
    case MinimumWidth:
        widget->setMinimumWidth(pa);
        break;
    case MaximumWidth:
        widget->setMaximumWidth(pa);
        break;
    case CallCount:
        break;
    }
}

void ScaledSizes::Apply(QWidget *widget, Call call, int a, int b, float scale)
{
    if (!widget || call >= CallCount)
        return;
    Entry &entry = m_entries[call];
    entry.order = ++m_counter;
    entry.a = a;
    entry.b = b;
    Run(widget, call, a, b, scale);
}

void ScaledSizes::Reapply(QWidget *widget, float oldScale, float newScale)
{
    CarryOver(widget, oldScale);
    ReapplyStored(widget, newScale);
}

void ScaledSizes::CarryOver(QWidget *widget, float oldScale)
{
    Entry &entry = m_entries[Resize];
    if (entry.order == 0 || !widget)
        return;
    if (widget->size() != QSize(Extent(entry.a, oldScale), Extent(entry.b, oldScale))) {
        // Resized since by the user or a layout: carry the current size over.
        entry.a = DpiTool::Logical(widget->width(), oldScale);
        entry.b = DpiTool::Logical(widget->height(), oldScale);
    }
}

void ScaledSizes::ReapplyStored(QWidget *widget, float newScale)
{
    if (m_counter == 0 || !widget)
        return;
    std::array<quint8, CallCount> calls{};
    int count = 0;
    for (int i = 0; i < CallCount; ++i) {
        if (m_entries[i].order == 0)
            continue;
        // Insertion into the order of the last calls: at most CallCount entries.
        int at = count++;
        while (at > 0 && m_entries[calls[at - 1]].order > m_entries[i].order) {
            calls[at] = calls[at - 1];
            --at;
        }
        calls[at] = quint8(i);
    }
    for (int i = 0; i < count; ++i) {
        Entry const &entry = m_entries[calls[i]];
        Run(widget, Call(calls[i]), entry.a, entry.b, newScale);
    }
}

bool ScaledSizes::RedoAdjustSize(QWidget *widget) const
{
    if (!widget || !Has(AdjustSize))
        return false;
    widget->adjustSize();
    return true;
}
