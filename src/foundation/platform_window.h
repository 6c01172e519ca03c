#pragma once
// The platform seam: everything native that the controls need, in one place.
// Internal to the library; never installed.

class QWidget;

namespace kelvo {
namespace platform {

// Keeps the top-level window of `widget` above other windows (on == true) or releases
// it. The window is neither hidden nor re-created: geometry, visibility and focus stay.
// Afterwards the window's Qt flags carry Qt::WindowStaysOnTopHint exactly while it is
// pinned, on every platform. A null widget is ignored.
// Windows: SetWindowPos with HWND_TOPMOST / HWND_NOTOPMOST on the native window.
// Elsewhere: the hint is handed to the window system for the existing native window
// (on X11 the window manager's "above" state); a window not yet created gets it when
// it is created.
void SetStayOnTop(QWidget *widget, bool on);

// Whether the window of `widget` is kept on top.
bool IsStayOnTop(QWidget const *widget);

} // namespace platform
} // namespace kelvo
