#include "table/suspended_scroll_bar.h"

CSuspendedScrollBar::CSuspendedScrollBar(float scale, Qt::Orientation orientation, QWidget *parent)
    : TScrollBar(scale, parent)
{
    setOrientation(orientation);
    setObjectName(QStringLiteral("SuspendedScrollBar"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::NoFocus);
    setRange(0, 0);
    hide();
}

CSuspendedScrollBar::~CSuspendedScrollBar() = default;

bool CSuspendedScrollBar::IsVisible() const
{
    return m_visible;
}

void CSuspendedScrollBar::SetVisible(bool visible)
{
    m_visible = visible;
}

void CSuspendedScrollBar::valueChanged(int value)
{
    setValue(value);
}

void CSuspendedScrollBar::rangeChanged(int min, int max)
{
    // The minimum always ends as 0: the bar stands for the distance scrolled.
    setMinimum(min);
    setRange(0, max);
    const int length = orientation() == Qt::Vertical ? height() : width();
    setPageStep(int((length + max) * 0.6));
    if (max < 1)
        hide();
}
