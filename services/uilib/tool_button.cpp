#include "uilib/tool_button.h"

#include "uilib/scale_pass.h"

#include "qtcomm/image_path.h"

TToolButton::TToolButton(float scale, QWidget *parent)
    : QToolButton(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TToolButton::~TToolButton() = default;

void TToolButton::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TToolButton::setIcon(QString const &path)
{
    m_iconPath = path;
    LoadIcon();
}

void TToolButton::setIcon(QIcon const &icon)
{
    m_iconPath.clear();
    QToolButton::setIcon(icon);
}

void TToolButton::LoadIcon()
{
    QPixmap const pixmap = ImagePath::GetStretchPixmap(m_iconPath.toStdWString(), m_scale);
    QToolButton::setIcon(QIcon(pixmap));
    // Without this the style would shrink the picture to its default icon size.
    if (!pixmap.isNull())
        setIconSize(pixmap.size() / pixmap.devicePixelRatio());
}

void TToolButton::SetKelvoData(QVariant const &data)
{
    m_data = data;
}

QVariant TToolButton::GetKelvoData() const
{
    return m_data;
}

void TToolButton::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale, [this](float) {
        if (!m_iconPath.isEmpty())
            LoadIcon();
    });
}
