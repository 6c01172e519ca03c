#include "trade/trade_enh_menu_button.h"

#include "qtcomm/qt_kelvo_helper.h"
#include "uilib/box_layout.h"
#include "uilib/menu.h"

#include <QAction>

TTradeEnhMenuButton::TTradeEnhMenuButton(float scale, QWidget *parent)
    : TToolButton(scale, parent)
{
    setLayoutDirection(Qt::LeftToRight);
    setCheckable(true);
    setPopupMode(QToolButton::MenuButtonPopup);
    setObjectName(QStringLiteral("TradeMenuButton"));
    setProperty("ShowMenu", true);
}

void TTradeEnhMenuButton::AddItem(QString const &text, QVariant const &data)
{
    if (!m_menu) {
        m_menu = new TMenu(m_scale, this);
        connect(m_menu, &QMenu::aboutToShow, this, &TTradeEnhMenuButton::MenuShow);
        QToolButton::setMenu(m_menu);
    }
    QAction *action = m_menu->addAction(text);
    if (!m_hasFirstItem) {
        m_hasFirstItem = true;
        m_currentAction = action;
        action->setVisible(false);
        if (m_showText)
            setText(text);
    }
    m_items.insert(text, action);
    connect(action, &QAction::triggered, this, &TTradeEnhMenuButton::onTriggered);
    action->setData(data);
}

void TTradeEnhMenuButton::ClearMenuButton()
{
    if (!m_menu || actions().isEmpty())
        return;
    m_items.clear();
    m_hasFirstItem = false;
    m_menu->clear();
    m_currentAction = nullptr;
}

QVariant TTradeEnhMenuButton::CurrentData()
{
    return m_menu && m_currentAction ? m_currentAction->data() : QVariant();
}

TMenu *TTradeEnhMenuButton::GetMenu()
{
    return m_menu;
}

int TTradeEnhMenuButton::GetDefaultMiniWidth()
{
    return 180;
}

int TTradeEnhMenuButton::GetDefaultMaxWidth()
{
    return -1;
}

// The menu lists what the button does not show: the old choice comes back, the new
// one goes.
void TTradeEnhMenuButton::MakeCurrent(QAction *action)
{
    if (m_currentAction)
        m_currentAction->setVisible(true);
    action->setVisible(false);
    m_currentAction = action;
}

void TTradeEnhMenuButton::SetItemChecked(int id)
{
    QAction *target = nullptr;
    for (QPointer<QAction> const &action : qAsConst(m_items)) {
        if (action && action->data().toInt() == id) {
            target = action;
            break;
        }
    }
    if (!target || target == m_currentAction)
        return;
    MakeCurrent(target);
    target->setChecked(true);
    setText(target->text());
    emit SelectItem(target->data());
}

void TTradeEnhMenuButton::SetMenuVisible(bool visible)
{
    setProperty("ShowMenu", visible);
    QtKelvoHelper::UpdateWidgetStyle(this);
}

void TTradeEnhMenuButton::SetShowText(bool show)
{
    m_showText = show;
}

void TTradeEnhMenuButton::ScaleChanged(float scale)
{
    TToolButton::ScaleChanged(scale);
    if (!m_menu)
        return;
    if (auto *layout = qobject_cast<TVBoxLayout *>(m_menu->layout()))
        layout->ScaleChanged(scale);
    m_menu->ScaleChanged(scale);
}

void TTradeEnhMenuButton::onTriggered(bool)
{
    auto *action = qobject_cast<QAction *>(sender());
    if (!action || action == m_currentAction)
        return;
    MakeCurrent(action);
    if (m_showText)
        setText(action->text());
    emit SelectItem(action->data());
}
