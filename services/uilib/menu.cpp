#include "uilib/menu.h"

#include "uilib/scale_pass.h"

#include <QWidgetAction>

TMenu::TMenu(float scale, QWidget *parent)
    : QMenu(parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TMenu::TMenu(float scale, QString const &title, QWidget *parent)
    : QMenu(title, parent)
    , CWidgetDPIChanged(this, scale, parent)
{
}

TMenu::~TMenu() = default;

void TMenu::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TMenu::setMinimumWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::MinimumWidth, width, 0, m_scale);
}

void TMenu::addAction(QAction *action)
{
    QMenu::addAction(action);
    if (!action)
        return;
    if (auto *widgetAction = qobject_cast<QWidgetAction *>(action))
        ScalePass::Adopt(widgetAction->defaultWidget(), m_scale);
    ScalePass::Adopt(action->menu(), m_scale);
}

void TMenu::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale, [this, scale](float) {
        // Index loop: a sub-menu's ScaleChanged may change the list.
        for (int i = 0; i < actions().size(); ++i) {
            if (QMenu *subMenu = actions().at(i)->menu())
                ScalePass::Reach(subMenu, scale, true);
        }
    });
}
