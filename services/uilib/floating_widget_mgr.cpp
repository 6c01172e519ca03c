#include "uilib/floating_widget_mgr.h"

#include <algorithm>

CFloatingWidgetMgr *CFloatingWidgetMgr::getInstance()
{
    // Widgets may be listed until the very end of the process: never destroyed.
    static CFloatingWidgetMgr *instance = new CFloatingWidgetMgr;
    return instance;
}

void CFloatingWidgetMgr::Prune() const
{
    auto const dead = [](QPointer<QWidget> const &widget) { return widget.isNull(); };
    m_widgets.erase(std::remove_if(m_widgets.begin(), m_widgets.end(), dead), m_widgets.end());
}

void CFloatingWidgetMgr::addWidget(QWidget *widget)
{
    Prune();
    if (widget && !containsWidget(widget))
        m_widgets.emplace_back(widget);
}

void CFloatingWidgetMgr::removeWidget(QWidget *widget)
{
    m_widgets.erase(std::remove(m_widgets.begin(), m_widgets.end(), widget), m_widgets.end());
    Prune();
}

bool CFloatingWidgetMgr::containsWidget(QWidget const *widget) const
{
    return widget && std::find(m_widgets.begin(), m_widgets.end(), widget) != m_widgets.end();
}

QList<QWidget *> CFloatingWidgetMgr::getWidgets() const
{
    Prune();
    QList<QWidget *> widgets;
    widgets.reserve(int(m_widgets.size()));
    for (QPointer<QWidget> const &widget : m_widgets)
        widgets.append(widget.data());
    return widgets;
}
