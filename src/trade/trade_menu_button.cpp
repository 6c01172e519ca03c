#include "trade/trade_menu_button.h"

#include "uilib/menu.h"

#include <QAction>
#include <QWidgetAction>

#include <algorithm>

TTradeMenuButton::TTradeMenuButton(float scale, QWidget *parent)
    : TPushButton(scale, parent)
{
    setLayoutDirection(Qt::LeftToRight);
    setCheckable(true);
}

void TTradeMenuButton::EnsureMenu()
{
    if (m_menu)
        return;
    m_menu = new TMenu(m_scale, this);
    m_menu->setMinimumWidth(113);
    TPushButton::setMenu(m_menu);
}

QAction *TTradeMenuButton::AddItem(QString const &text, QVariant const &data)
{
    EnsureMenu();
    auto *action = new QAction(text, this);
    m_menu->addAction(action);
    m_items.insert(text, action);
    connect(action, &QAction::triggered, this, &TTradeMenuButton::onTriggered);
    action->setData(data);
    return action;
}

void TTradeMenuButton::AddWidgetItem(QWidget *widget, QVariant const &data, bool separator)
{
    if (!widget)
        return;
    EnsureMenu();
    auto *action = new QWidgetAction(this);
    action->setDefaultWidget(widget);
    m_menu->addAction(action);
    action->setData(data);
    WidgetItem item{data, widget, action, separator ? m_menu->addSeparator() : nullptr};

    auto const same = std::find_if(m_widgetItems.begin(), m_widgetItems.end(),
                                   [&data](WidgetItem const &w) { return w.data == data; });
    if (same != m_widgetItems.end())
        *same = item;
    else
        m_widgetItems.push_back(item);
}

QVariant TTradeMenuButton::CurrentData()
{
    return m_menu ? m_currentData : QVariant();
}

TMenu *TTradeMenuButton::GetMenu()
{
    return m_menu;
}

void TTradeMenuButton::TakeItem(QAction *action, QString const &buttonText)
{
    m_currentData = action->data();
    action->setChecked(true);
    setText(buttonText);
}

void TTradeMenuButton::SetCheckedItemByData(QVariant const &data)
{
    for (QPointer<QAction> const &action : qAsConst(m_items)) {
        if (action && action->data() == data) {
            TakeItem(action, action->text());
            return;
        }
    }
}

void TTradeMenuButton::SetCheckedItemByData(QVariant const &data, bool uncheckOthers, QString const &text)
{
    for (QPointer<QAction> const &action : qAsConst(m_items)) {
        if (!action)
            continue;
        if (action->data() == data)
            TakeItem(action, text.isEmpty() ? action->text() : text);
        else if (uncheckOthers)
            action->setChecked(false);
    }
}

void TTradeMenuButton::SetMenuFixWidth(int width)
{
    if (m_menu)
        m_menu->setFixedWidth(width);
}

void TTradeMenuButton::SetShowText(bool show)
{
    m_showText = show;
}

void TTradeMenuButton::SetWidgetItemVisible(QVariant const &data, bool visible)
{
    auto const it = std::find_if(m_widgetItems.begin(), m_widgetItems.end(),
                                 [&data](WidgetItem const &w) { return w.data == data; });
    if (it == m_widgetItems.end())
        return;
    if (it->widget)
        it->widget->setVisible(visible);
    if (it->action)
        it->action->setVisible(visible);
    if (it->separator)
        it->separator->setVisible(visible);
}

void TTradeMenuButton::onTriggered(bool)
{
    auto *action = qobject_cast<QAction *>(sender());
    if (!action)
        return;
    m_currentData = action->data();
    if (m_showText)
        setText(action->text());
    emit SelectItem(m_currentData);
}
