#pragma once
// DpiTool: the scale of screens and objects, and the one place where logical pixels
// become physical pixels and back.
//
// Logical pixels are sizes at scale 1.0; physical pixels are what Qt's own functions and
// QPainter take. Physical() is int(float(logical) * scale), truncated towards zero, and
// Logical() is int(physical / scale), truncated: every scaled setter of this library and
// every control's own pixel arithmetic goes through them, so that all code rounds alike.
// A screen's scale is its logical DPI / 96.

#include "uilib/kelvouilib_export.h"

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

class QObject;
class QScreen;
class QWidget;

class KELVOUILIB_EXPORT DpiTool
{
public:
    DpiTool() = delete;

    // Scale of the screen the widget stands on (the primary screen for null), 1.0 on a
    // standard screen and without any screen.
    static float GetWidgetDpi(QWidget *widget);
    // logicalDotsPerInch / 96 of the screen; 1.0 for null.
    static float ScreenScale(QScreen const *screen);
    // Scale of the nearest scaled object from `object` up its parent chain (the object
    // itself included), else the scale of the screen of the nearest widget on the way,
    // else the primary screen's. For non-widget companions such as models and delegates.
    static float ScaleOf(QObject const *object);
    // `scale` when it is a usable scale, else ScaleOf(source).
    static float ResolveScale(float scale, QObject const *source);
    // A finite number above 0.
    static bool IsValidScale(float scale);

    static int Physical(int logical, float scale);
    static int Logical(int physical, float scale);
    static QSize Physical(QSize const &logical, float scale);
    static QSize Logical(QSize const &physical, float scale);
    static QPoint Physical(QPoint const &logical, float scale);
    static QMargins Physical(QMargins const &logical, float scale);
    static QMargins Logical(QMargins const &physical, float scale);
    static QRect Physical(QRect const &logical, float scale);
};
