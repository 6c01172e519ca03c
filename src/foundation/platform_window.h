#pragma once
// The platform seam: everything native that the controls need, in one place.
// Internal to the library; never installed.

class QWidget;

namespace kelvo {
namespace platform {

// Keeps the top-level window of `widget` above other windows (on == true) or
// releases it. Geometry, visibility and the active state survive the change.
// Windows: SetWindowPos with HWND_TOPMOST / HWND_NOTOPMOST, no re-creation.
// Elsewhere: Qt::WindowStaysOnTopHint, re-applied to a shown window, which the
// window manager then honours.
void SetStayOnTop(QWidget *widget, bool on);

// Whether SetStayOnTop(widget, true) is in force for the window of `widget`.
bool IsStayOnTop(QWidget const *widget);

} // namespace platform
} // namespace kelvo
