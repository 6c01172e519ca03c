#pragma once
// WidgetResizeHandler: moving a frameless window by the mouse and resizing it at its
// edges. TWidget, TFrame and TDialog hold one as m_resizeHandler; it does nothing until
// activateOn() names the window.
//
// - Moving: a left-button drag moves the window so that it follows the mouse (new
//   position = position at the press + global mouse now - global mouse at the press).
//   The drag starts where a press reaches the window itself, or, with
//   useLocalMoveabled(true), only where it reaches one of the local widgets: a press on
//   a local widget's plain children (labels) counts, a press on a child that takes the
//   mouse itself (a button) does not.
// - Resizing: within a border of borderWidth() logical pixels (times the window's scale)
//   the cursor shows the resize shape and a left-button drag moves that edge, or both
//   edges at a corner, keeping the window's minimum and maximum sizes. Presses on the
//   border are taken by the handler and do not reach the widgets below.
// - Nothing moves or resizes while the window is maximised, full screen or minimised.
//
// It filters the events of the window, of its native window (so the border works over
// child widgets) and of the local widgets. Every watched object is held by QPointer:
// a dead window or local widget is simply forgotten.

#include "uilib/kelvouilib_export.h"

#include <QCursor>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include <vector>

class QMouseEvent;
class QWidget;
class QWindow;

class KELVOUILIB_EXPORT WidgetResizeHandler : public QObject
{
    Q_OBJECT
public:
    explicit WidgetResizeHandler(QObject *parent = nullptr);
    ~WidgetResizeHandler() override;

    // Attaches to `window` (detaching from any earlier one); null detaches.
    void activateOn(QWidget *window);
    void deactivate();
    QWidget *activeWidget() const;
    // Attaches again to the same window, for instance after its native window was
    // made anew (setWindowFlags does that).
    void reattach();

    void setWidgetMovable(bool movable); // default true
    bool isWidgetMovable() const { return m_movable; }
    void setWidgetResizable(bool resizable); // default true
    bool isWidgetResizable() const { return m_resizable; }
    void useLocalMoveabled(bool local); // default false
    bool isLocalMoveabled() const { return m_local; }
    void addLocalWidget(QWidget *widget);
    void removeLocalWidget(QWidget *widget);

    // Width of the resize border in logical pixels (default 4); negatives count as 0.
    void setBorderWidth(int logical);
    int borderWidth() const { return m_border; }

    bool isMoving() const { return m_mode == Mode::Moving; }
    bool isResizing() const { return m_mode == Mode::Resizing; }
    // The edges a resize from this point (window coordinates) would move; none when
    // resizing is off or the point lies outside the border.
    Qt::Edges edgesAt(QPoint const &pos) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Mode { Idle, Moving, Resizing };
    enum class Route { Native, Window, Local };

    bool OnMouse(Route route, QMouseEvent *event);
    bool CanTransform() const;
    void Begin(Mode mode, QPoint const &global, Qt::Edges edges);
    void End();
    void ResizeTo(QPoint const &global);
    void UpdateCursor(QPoint const &global);
    void RestoreCursor();
    void AttachNative();

    QPointer<QWidget> m_window;
    QPointer<QWindow> m_native;
    std::vector<QPointer<QWidget>> m_locals;
    Mode m_mode = Mode::Idle;
    Qt::Edges m_edges;
    QPoint m_pressGlobal;
    QPoint m_pressPos;
    QRect m_pressGeometry;
    int m_border = 4;
    bool m_movable = true;
    bool m_resizable = true;
    bool m_local = false;
    bool m_cursorSet = false; // the window's cursor is ours
    bool m_hadCursor = false; // the window had a cursor of its own before ours
    QCursor m_savedCursor;
};
