#include "uilib/widget_resize_handler.h"

#include "uilib/dpi_tool.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {

Qt::CursorShape CursorFor(Qt::Edges edges)
{
    bool const left = edges & Qt::LeftEdge;
    bool const right = edges & Qt::RightEdge;
    bool const top = edges & Qt::TopEdge;
    bool const bottom = edges & Qt::BottomEdge;
    if ((left && top) || (right && bottom))
        return Qt::SizeFDiagCursor;
    if ((right && top) || (left && bottom))
        return Qt::SizeBDiagCursor;
    if (left || right)
        return Qt::SizeHorCursor;
    return Qt::SizeVerCursor;
}

} // namespace

WidgetResizeHandler::WidgetResizeHandler(QObject *parent)
    : QObject(parent)
{
}

WidgetResizeHandler::~WidgetResizeHandler()
{
    deactivate();
    for (QPointer<QWidget> const &local : m_locals) {
        if (local)
            local->removeEventFilter(this);
    }
}

void WidgetResizeHandler::activateOn(QWidget *window)
{
    deactivate();
    m_window = window;
    if (!window)
        return;
    window->installEventFilter(this);
    AttachNative();
}

void WidgetResizeHandler::deactivate()
{
    End();
    RestoreCursor();
    if (m_window)
        m_window->removeEventFilter(this);
    if (m_native)
        m_native->removeEventFilter(this);
    m_window = nullptr;
    m_native = nullptr;
}

QWidget *WidgetResizeHandler::activeWidget() const
{
    return m_window;
}

void WidgetResizeHandler::reattach()
{
    if (QWidget *window = m_window)
        activateOn(window);
}

void WidgetResizeHandler::AttachNative()
{
    QWindow *native = m_window ? m_window->windowHandle() : nullptr;
    if (native == m_native)
        return;
    if (m_native)
        m_native->removeEventFilter(this);
    m_native = native;
    if (native)
        native->installEventFilter(this);
}

void WidgetResizeHandler::setWidgetMovable(bool movable)
{
    m_movable = movable;
    if (!movable && m_mode == Mode::Moving)
        End();
}

void WidgetResizeHandler::setWidgetResizable(bool resizable)
{
    m_resizable = resizable;
    if (!resizable) {
        if (m_mode == Mode::Resizing)
            End();
        RestoreCursor();
    }
}

void WidgetResizeHandler::useLocalMoveabled(bool local)
{
    m_local = local;
}

void WidgetResizeHandler::addLocalWidget(QWidget *widget)
{
    if (!widget)
        return;
    auto const dead = [](QPointer<QWidget> const &local) { return local.isNull(); };
    m_locals.erase(std::remove_if(m_locals.begin(), m_locals.end(), dead), m_locals.end());
    if (std::find(m_locals.begin(), m_locals.end(), widget) != m_locals.end())
        return;
    m_locals.emplace_back(widget);
    widget->installEventFilter(this);
}

void WidgetResizeHandler::removeLocalWidget(QWidget *widget)
{
    auto const found = std::find(m_locals.begin(), m_locals.end(), widget);
    if (found == m_locals.end() || !widget)
        return;
    m_locals.erase(found);
    widget->removeEventFilter(this);
}

void WidgetResizeHandler::setBorderWidth(int logical)
{
    m_border = std::max(0, logical);
}

Qt::Edges WidgetResizeHandler::edgesAt(QPoint const &pos) const
{
    if (!m_window || !m_resizable)
        return Qt::Edges();
    QRect const rect = m_window->rect();
    if (!rect.contains(pos))
        return Qt::Edges();
    int const border = DpiTool::Physical(m_border, DpiTool::ScaleOf(m_window));
    Qt::Edges edges;
    // On a window narrower than two borders the nearer half decides.
    if (pos.x() < border && pos.x() < rect.width() / 2)
        edges |= Qt::LeftEdge;
    else if (pos.x() >= rect.width() - border)
        edges |= Qt::RightEdge;
    if (pos.y() < border && pos.y() < rect.height() / 2)
        edges |= Qt::TopEdge;
    else if (pos.y() >= rect.height() - border)
        edges |= Qt::BottomEdge;
    return edges;
}

bool WidgetResizeHandler::CanTransform() const
{
    return m_window && m_window->isVisible()
           && !(m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized));
}

bool WidgetResizeHandler::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_window)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
        Route const route = watched == m_native   ? Route::Native
                            : watched == m_window ? Route::Window
                                                  : Route::Local;
        return OnMouse(route, static_cast<QMouseEvent *>(event));
    }
    case QEvent::Show:
    case QEvent::WinIdChange:
        if (watched == m_window)
            AttachNative();
        break;
    case QEvent::Leave:
        if (watched == m_window && m_mode == Mode::Idle)
            RestoreCursor();
        break;
    case QEvent::Hide:
        if (watched == m_window)
            End();
        break;
    default:
        break;
    }
    return false;
}

bool WidgetResizeHandler::OnMouse(Route route, QMouseEvent *event)
{
    QPoint const global = event->globalPos();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        if (event->button() != Qt::LeftButton || m_mode != Mode::Idle || !CanTransform())
            return false;
        Qt::Edges const edges = edgesAt(m_window->mapFromGlobal(global));
        if (edges) {
            Begin(Mode::Resizing, global, edges);
            return true;
        }
        // The native route comes before any widget: wait to see where the press lands.
        bool const startsDrag = m_local ? route == Route::Local : route == Route::Window;
        if (m_movable && startsDrag)
            Begin(Mode::Moving, global, Qt::Edges());
        return false;
    }
    case QEvent::MouseMove:
        if (m_mode == Mode::Idle) {
            if (event->buttons() == Qt::NoButton && route != Route::Local)
                UpdateCursor(global);
            return false;
        }
        if (!(event->buttons() & Qt::LeftButton)) {
            End(); // the release went elsewhere
            return false;
        }
        if (m_mode == Mode::Moving) {
            m_window->move(m_pressPos + (global - m_pressGlobal));
            return false;
        }
        ResizeTo(global);
        return true;
    case QEvent::MouseButtonRelease:
        if (event->button() != Qt::LeftButton || m_mode == Mode::Idle)
            return false;
        {
            bool const wasResizing = m_mode == Mode::Resizing;
            End();
            UpdateCursor(global);
            return wasResizing;
        }
    default:
        return false;
    }
}

void WidgetResizeHandler::Begin(Mode mode, QPoint const &global, Qt::Edges edges)
{
    m_mode = mode;
    m_edges = edges;
    m_pressGlobal = global;
    m_pressPos = m_window->pos();
    m_pressGeometry = m_window->geometry();
}

void WidgetResizeHandler::End()
{
    m_mode = Mode::Idle;
    m_edges = Qt::Edges();
}

void WidgetResizeHandler::ResizeTo(QPoint const &global)
{
    QPoint const delta = global - m_pressGlobal;
    QSize const maxSize = m_window->maximumSize();
    QSize const minSize = m_window->minimumSize().expandedTo(QSize(1, 1)).boundedTo(maxSize);
    QRect const start = m_pressGeometry;
    int left = start.left();
    int right = start.right();
    int top = start.top();
    int bottom = start.bottom();
    if (m_edges & Qt::LeftEdge)
        left = qBound(right - maxSize.width() + 1, start.left() + delta.x(), right - minSize.width() + 1);
    if (m_edges & Qt::RightEdge)
        right = qBound(left + minSize.width() - 1, start.right() + delta.x(), left + maxSize.width() - 1);
    if (m_edges & Qt::TopEdge)
        top = qBound(bottom - maxSize.height() + 1, start.top() + delta.y(), bottom - minSize.height() + 1);
    if (m_edges & Qt::BottomEdge)
        bottom = qBound(top + minSize.height() - 1, start.bottom() + delta.y(), top + maxSize.height() - 1);
    m_window->setGeometry(QRect(QPoint(left, top), QPoint(right, bottom)));
}

void WidgetResizeHandler::UpdateCursor(QPoint const &global)
{
    Qt::Edges const edges = CanTransform() ? edgesAt(m_window->mapFromGlobal(global)) : Qt::Edges();
    if (!edges) {
        RestoreCursor();
        return;
    }
    if (!m_cursorSet) {
        m_hadCursor = m_window->testAttribute(Qt::WA_SetCursor);
        if (m_hadCursor)
            m_savedCursor = m_window->cursor();
        m_cursorSet = true;
    }
    Qt::CursorShape const shape = CursorFor(edges);
    if (m_window->cursor().shape() != shape)
        m_window->setCursor(shape);
}

void WidgetResizeHandler::RestoreCursor()
{
    if (!m_cursorSet)
        return;
    m_cursorSet = false;
    if (!m_window)
        return;
    if (m_hadCursor)
        m_window->setCursor(m_savedCursor);
    else
        m_window->unsetCursor();
}
