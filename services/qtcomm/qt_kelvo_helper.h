#pragma once
// QtKelvoHelper: small widget helpers shared by the controls.
//
// UpdateWidgetStyle re-evaluates the style sheet of one widget after a dynamic property
// changed (Qt does not do that by itself). ScaleSheet turns a style sheet written in
// logical pixels into one for a given scale. findWindow, CursorInWidget and
// TransTipPositionOnView answer the geometry questions that tips and window effects ask.
// All of them accept null widgets and then do nothing or answer "no".

#include "qtcomm/kelvoqtcomm_export.h"

#include <QPoint>
#include <QRect>
#include <QString>

class QWidget;

namespace QtKelvoHelper {

// Unpolish, polish and update, so selectors on dynamic properties take effect.
KELVOQTCOMM_EXPORT void UpdateWidgetStyle(QWidget *widget);

// A copy of `sheet` with every "<number>px" multiplied by `scale`. The result is an
// integer truncated towards zero, except that a non-zero size never becomes 0 (a 1px
// border survives at scale 0.5). Quoted text, url(...) arguments, comments, identifiers
// and hex colours are left alone. A scale that is not a positive number leaves the
// sheet as it is.
KELVOQTCOMM_EXPORT QString ScaleSheet(QString const &sheet, float scale);

// The top-level window the widget lies in (the widget itself for a window).
KELVOQTCOMM_EXPORT QWidget *findWindow(QWidget const *widget);

// Whether the widget is visible and the mouse pointer is over its rect().
KELVOQTCOMM_EXPORT bool CursorInWidget(QWidget const *widget);

// Where to put the top-left corner of a tip of tip.size() that should start at `point`
// (both in `view` coordinates) so that it stays inside view->rect() shrunk by `margin`
// on every side. When the tip is larger than that area, its left and top edges are kept
// inside. A negative margin counts as 0; a null view returns `point`.
KELVOQTCOMM_EXPORT QPoint TransTipPositionOnView(QPoint const &point, QRect const &tip, QWidget *view,
                                                 int margin);

} // namespace QtKelvoHelper
