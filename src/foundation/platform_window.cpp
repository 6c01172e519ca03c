#include "foundation/platform_window.h"

#include <QRect>
#include <QVariant>
#include <QWidget>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace kelvo {
namespace platform {

namespace {
// On Windows the Qt flag is not touched (that would re-create the native window),
// so the state is kept beside it.
char const *const kTopMostProperty = "_kelvo_stay_on_top";
} // namespace

void SetStayOnTop(QWidget *widget, bool on)
{
    if (!widget)
        return;
    QWidget *window = widget->window();
    if (IsStayOnTop(window) == on)
        return;
    window->setProperty(kTopMostProperty, on);
#ifdef Q_OS_WIN
    ::SetWindowPos(reinterpret_cast<HWND>(window->winId()), on ? HWND_TOPMOST : HWND_NOTOPMOST,
                   0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
#else
    const bool visible = window->isVisible();
    const bool active = window->isActiveWindow();
    const QRect geometry = window->geometry();
    // setWindowFlag hides a shown window; put it back where it was.
    window->setWindowFlag(Qt::WindowStaysOnTopHint, on);
    if (visible) {
        window->setGeometry(geometry);
        window->show();
        if (active)
            window->activateWindow();
    }
#endif
}

bool IsStayOnTop(QWidget const *widget)
{
    if (!widget)
        return false;
    return widget->window()->property(kTopMostProperty).toBool();
}

} // namespace platform
} // namespace kelvo
