#include "uilib/push_button.h"

#include "uilib/scale_pass.h"

#include <QMenu>

TPushButton::TPushButton(float scale, QWidget *parent)
    : QPushButton(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TPushButton::TPushButton(float scale, QString const &text, QWidget *parent)
    : QPushButton(text, parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TPushButton::~TPushButton() = default;

void TPushButton::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TPushButton::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TPushButton::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TPushButton::setMenu(QMenu *menu)
{
    QPushButton::setMenu(menu);
    m_menu = menu;
    ScalePass::Adopt(menu, m_scale);
}

void TPushButton::SetKelvoData(QVariant const &data)
{
    m_data = data;
}

QVariant TPushButton::GetKelvoData() const
{
    return m_data;
}

void TPushButton::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale, [this, scale](float) {
        if (m_menu && menu() == m_menu)
            ScalePass::Reach(m_menu, scale, true);
    });
}
