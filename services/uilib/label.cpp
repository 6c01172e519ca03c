#include "uilib/label.h"

#include "uilib/scale_pass.h"

#include "qtcomm/image_path.h"

#include <QEvent>

TLabel::TLabel(float scale, QWidget *parent)
    : QLabel(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TLabel::TLabel(float scale, QString const &text, QWidget *parent)
    : QLabel(text, parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TLabel::~TLabel() = default;

void TLabel::adjustSize()
{
    m_sizes.Apply(this, ScaledSizes::AdjustSize, 0, 0, m_scale);
}

void TLabel::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TLabel::setFixedWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::FixedWidth, width, 0, m_scale);
}

void TLabel::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TLabel::setMinimumWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::MinimumWidth, width, 0, m_scale);
}

void TLabel::setMaximumWidth(int width)
{
    m_sizes.Apply(this, ScaledSizes::MaximumWidth, width, 0, m_scale);
}

void TLabel::setPixmap(QPixmap const &pixmap)
{
    m_pixmapPath.clear();
    QLabel::setPixmap(pixmap);
}

void TLabel::setPixmap(QString const &path)
{
    m_pixmapPath = path;
    LoadPixmap();
}

void TLabel::LoadPixmap()
{
    QLabel::setPixmap(ImagePath::GetStretchPixmap(m_pixmapPath.toStdWString(), m_scale));
}

void TLabel::setText(QString const &text)
{
    m_pixmapPath.clear();
    QLabel::setText(text);
    m_sizes.RedoAdjustSize(this);
}

void TLabel::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale, [this](float) {
        // QLabel::clear(), setNum() and the like replace the picture behind our back.
        if (!m_pixmapPath.isEmpty() && !pixmap(Qt::ReturnByValue).isNull())
            LoadPixmap();
    });
}

void TLabel::AdjustReiszeHandle()
{
    m_sizes.RedoAdjustSize(this);
}

bool TLabel::event(QEvent *event)
{
    bool const handled = QLabel::event(event);
    if (event->type() == QEvent::FontChange)
        m_sizes.RedoAdjustSize(this);
    return handled;
}
