#pragma once
// CQtDesktopScreenHelper: which screen holds a point or the mouse, for windows that
// dock at or stay on the desktop. A window inherits it (as a second base).
//
// The screen rectangles are the screens' full geometry() (not availableGeometry()), in
// global coordinates, read by InitGlobalRect() at construction and again whenever a
// screen is added, removed or changes its geometry (the connections InitScreenSignals
// makes). A helper built before the QGuiApplication reads the screens at its first
// query.
//
// Tests describe their own monitors with SetScreenRectsForTest; every live helper then
// reads those instead of the real screens.

#include "qtcomm/kelvoqtcomm_export.h"

#include <QList>
#include <QPoint>
#include <QRect>

#include <memory>

class QObject;
class QScreen;

class KELVOQTCOMM_EXPORT CQtDesktopScreenHelper
{
public:
    CQtDesktopScreenHelper();
    virtual ~CQtDesktopScreenHelper();

    CQtDesktopScreenHelper(CQtDesktopScreenHelper const &) = delete;
    CQtDesktopScreenHelper &operator=(CQtDesktopScreenHelper const &) = delete;

    // Reads the rectangles of all screens.
    virtual void InitGlobalRect();
    // Connects screen additions, removals and geometry changes to InitGlobalRect().
    // Does nothing without a QGuiApplication.
    virtual void InitScreenSignals();

    // The screen under the mouse pointer; a zero-width rectangle if none is.
    QRect CurScreenWithMouseIn();
    // The first screen whose rectangle contains `point`; a zero-width rectangle if none does.
    QRect CurScreenWithPointIn(QPoint const &point);
    // The rectangles last read, primary screen first.
    QList<QRect> ScreenRects() const;

    // Replaces the real screens by `rects` for every helper, now and later (an empty
    // list for no screen at all); live helpers re-read at once.
    static void SetScreenRectsForTest(QList<QRect> const &rects);
    // Back to the real screens; live helpers re-read at once.
    static void ClearScreenRectsForTest();

private:
    void EnsureRead();
    void ConnectScreen(QScreen *screen);

    QList<QRect> m_screenRects;
    bool m_readWithApplication = false;
    std::unique_ptr<QObject> m_context;
};
