#pragma once
// CFloatingWidgetMgr: the process-wide list of floating widgets (tips and guides that
// stand above the windows), so that the client can find them, for instance to close
// them all. A widget enters it with addWidget; a destroyed widget leaves it by itself.

#include "uilib/kelvouilib_export.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <vector>

class KELVOUILIB_EXPORT CFloatingWidgetMgr
{
public:
    // Never null, never destroyed.
    static CFloatingWidgetMgr *getInstance();

    // Null and widgets already listed are ignored.
    void addWidget(QWidget *widget);
    void removeWidget(QWidget *widget);
    bool containsWidget(QWidget const *widget) const;
    // The live widgets, in the order they were added.
    QList<QWidget *> getWidgets() const;

private:
    CFloatingWidgetMgr() = default;
    void Prune() const;

    mutable std::vector<QPointer<QWidget>> m_widgets;
};
