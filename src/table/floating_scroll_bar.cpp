#include "table/floating_scroll_bar.h"

#include <QAbstractScrollArea>
#include <QCursor>
#include <QEvent>
#include <QScrollBar>

CFloatingScrollBar::CFloatingScrollBar(float scale, Qt::Orientation orientation, QWidget *parent,
                                       QAbstractScrollArea *area)
    : CSuspendedScrollBar(scale, orientation, parent)
    , m_area(area)
    , m_orientation(orientation)
{
    if (!area)
        return;
    QScrollBar *native = orientation == Qt::Vertical ? area->verticalScrollBar() : area->horizontalScrollBar();
    if (native) {
        connect(native, &QScrollBar::valueChanged, this, &CFloatingScrollBar::valueChanged);
        connect(native, &QScrollBar::rangeChanged, this, &CFloatingScrollBar::rangeChanged);
        QPointer<QScrollBar> target(native);
        connect(this, &QAbstractSlider::valueChanged, native, [target](int value) {
            if (target)
                target->setValue(value);
        });
        // Start from where the area stands; the bar still waits for an event to show.
        CSuspendedScrollBar::rangeChanged(native->minimum(), native->maximum());
        setValue(native->value());
    }
    area->installEventFilter(this);
}

CFloatingScrollBar::~CFloatingScrollBar() = default;

void CFloatingScrollBar::SetScrollBarAutoHide(bool auto_hide)
{
    m_autoHide = auto_hide;
}

void CFloatingScrollBar::SetPositionMargin(int margin)
{
    m_positionMargin = margin;
}

void CFloatingScrollBar::ScaleChanged(float scale)
{
    CSuspendedScrollBar::ScaleChanged(scale);
    if (isVisible())
        AdjustScrollBarPosition();
}

void CFloatingScrollBar::rangeChanged(int min, int max)
{
    CSuspendedScrollBar::rangeChanged(min, max);
    if (max >= 1 && !m_autoHide)
        ShowOrHideFloatingScrollBar(true);
}

bool CFloatingScrollBar::eventFilter(QObject *watched, QEvent *event)
{
    if (m_area && watched == m_area) {
        switch (event->type()) {
        case QEvent::Paint:
            if (!m_autoHide) {
                ShowOrHideFloatingScrollBar(true);
            } else {
                const QRect area(Area()->mapToGlobal(QPoint(0, 0)), Area()->size());
                ShowOrHideFloatingScrollBar(area.contains(QCursor::pos()));
            }
            break;
        case QEvent::Hide:
            ShowOrHideFloatingScrollBar(false);
            break;
        case QEvent::Leave:
            if (m_autoHide)
                ShowOrHideFloatingScrollBar(false);
            break;
        case QEvent::Enter:
            ShowOrHideFloatingScrollBar(true);
            break;
        default:
            break;
        }
    }
    return CSuspendedScrollBar::eventFilter(watched, event);
}

QAbstractScrollArea *CFloatingScrollBar::Area() const
{
    return static_cast<QAbstractScrollArea *>(m_area.data());
}

void CFloatingScrollBar::AdjustScrollBarPosition()
{
    QAbstractScrollArea *area_widget = Area();
    if (!area_widget)
        return;
    const float thickness = 6.0f * m_scale;
    const float margin = float(m_positionMargin) * m_scale;
    const QRect area = area_widget->geometry();
    const bool child = parent() == area_widget;
    float x, y, w, h;
    if (m_orientation == Qt::Horizontal) {
        x = child ? 0.0f : float(area.left()) + margin;
        y = float(child ? area.height() : area.bottom()) - thickness;
        w = float(area_widget->width()) - (child ? 0.0f : margin);
        h = thickness;
    } else {
        x = float(child ? area.width() : area.right()) - thickness;
        y = child ? 0.0f : float(area.top()) + margin;
        w = thickness;
        h = float(child ? area.height() : area_widget->height()) - (child ? 0.0f : margin);
    }
    setGeometry(int(x), int(y), int(w), int(h));
}

void CFloatingScrollBar::ShowOrHideFloatingScrollBar(bool show)
{
    if (!show) {
        hide();
        return;
    }
    if (maximum() < 1 || !IsVisible())
        return;
    raise();
    this->show();
    AdjustScrollBarPosition();
}
