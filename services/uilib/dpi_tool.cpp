#include "uilib/dpi_tool.h"

#include "uilib/scale_pass.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>
#include <limits>

namespace {

// The conversion of a float outside the int range is undefined; clamp first.
int TruncateToInt(float value)
{
    if (std::isnan(value))
        return 0;
    if (value >= float(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= float(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(value);
}

} // namespace

float DpiTool::GetWidgetDpi(QWidget *widget)
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return 1.0f;
    return ScreenScale(widget ? widget->screen() : QGuiApplication::primaryScreen());
}

float DpiTool::ScreenScale(QScreen const *screen)
{
    if (!screen)
        return 1.0f;
    float const scale = float(screen->logicalDotsPerInch() / 96.0);
    return IsValidScale(scale) ? scale : 1.0f;
}

float DpiTool::ScaleOf(QObject const *object)
{
    QWidget const *nearestWidget = nullptr;
    for (QObject const *o = object; o; o = o->parent()) {
        if (CRemoveDPIChanged const *scaled = ScalePass::Scaled(o))
            return scaled->GetScale();
        if (!nearestWidget && o->isWidgetType())
            nearestWidget = static_cast<QWidget const *>(o);
    }
    return GetWidgetDpi(const_cast<QWidget *>(nearestWidget));
}

float DpiTool::ResolveScale(float scale, QObject const *source)
{
    return IsValidScale(scale) ? scale : ScaleOf(source);
}

bool DpiTool::IsValidScale(float scale)
{
    return scale > 0.0f && std::isfinite(scale);
}

int DpiTool::Physical(int logical, float scale)
{
    if (!IsValidScale(scale))
        return logical;
    return TruncateToInt(float(logical) * scale);
}

int DpiTool::Logical(int physical, float scale)
{
    if (!IsValidScale(scale))
        return physical;
    return TruncateToInt(float(physical) / scale);
}

QSize DpiTool::Physical(QSize const &logical, float scale)
{
    return QSize(Physical(logical.width(), scale), Physical(logical.height(), scale));
}

QSize DpiTool::Logical(QSize const &physical, float scale)
{
    return QSize(Logical(physical.width(), scale), Logical(physical.height(), scale));
}

QPoint DpiTool::Physical(QPoint const &logical, float scale)
{
    return QPoint(Physical(logical.x(), scale), Physical(logical.y(), scale));
}

QMargins DpiTool::Physical(QMargins const &logical, float scale)
{
    return QMargins(Physical(logical.left(), scale), Physical(logical.top(), scale),
                    Physical(logical.right(), scale), Physical(logical.bottom(), scale));
}

QMargins DpiTool::Logical(QMargins const &physical, float scale)
{
    return QMargins(Logical(physical.left(), scale), Logical(physical.top(), scale),
                    Logical(physical.right(), scale), Logical(physical.bottom(), scale));
}

QRect DpiTool::Physical(QRect const &logical, float scale)
{
    return QRect(Physical(logical.topLeft(), scale), Physical(logical.size(), scale));
}
