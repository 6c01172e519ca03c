#include "foundation/platform_window.h"

#include <QWidget>
#include <QWindow>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace kelvo {
namespace platform {

void SetStayOnTop(QWidget *widget, bool on)
{
    if (!widget)
        return;
    QWidget *window = widget->window();
    Qt::WindowFlags flags = window->windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, on);
    // setWindowFlags would hide the window and make its native window anew; record
    // the flag only and tell the window system directly.
    window->overrideWindowFlags(flags);
#ifdef Q_OS_WIN
    ::SetWindowPos(reinterpret_cast<HWND>(window->winId()), on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                   SWP_NOSIZE | SWP_NOMOVE | SWP_NOOWNERZORDER);
#else
    if (QWindow *native = window->windowHandle())
        native->setFlags(flags);
#endif
}

bool IsStayOnTop(QWidget const *widget)
{
    return widget && widget->window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace platform
} // namespace kelvo
