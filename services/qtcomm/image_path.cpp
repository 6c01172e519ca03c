#include "qtcomm/image_path.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace {

bool IsSvg(QString const &path)
{
    return path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)
           || path.endsWith(QLatin1String(".svgz"), Qt::CaseInsensitive);
}

bool IsFile(QString const &path)
{
    QFileInfo const info(path);
    return info.exists() && !info.isDir();
}

int RatioFor(float scale)
{
    return qMax(1, int(scale + 0.5001f));
}

// "dir/name.ext" -> "dir/name@2x.ext"; a name without suffix gets "@2x" at its end.
QString RatioFile(QString const &path, int ratio)
{
    QString const tag = QStringLiteral("@%1x").arg(ratio);
    int const slash = path.lastIndexOf(QLatin1Char('/'));
    int const dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash + 1)
        return path + tag;
    return path.left(dot) + tag + path.mid(dot);
}

QPixmap RenderSvg(QString const &path, float scale)
{
    if (!IsFile(path))
        return QPixmap();
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return QPixmap();
    QSize const base = renderer.defaultSize();
    QSize const size(qMax(1, int(float(base.width()) * scale)), qMax(1, int(float(base.height()) * scale)));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    painter.end();
    return QPixmap::fromImage(image);
}

QPixmap LoadRaster(QString const &path, float scale)
{
    int ratio = RatioFor(scale);
    QString file = RatioFile(path, ratio);
    if (ratio == 1 || !IsFile(file)) {
        file = path;
        ratio = 1;
    }
    QPixmap pixmap;
    if (!IsFile(file) || !pixmap.load(file))
        return QPixmap();
    // Qt reads "@2x" in a file name as a device pixel ratio; ours are plain physical pixels.
    pixmap.setDevicePixelRatio(1.0);
    // The target is the ratio-1 size times the scale, whichever file of the set was found.
    float const factor = scale / float(ratio);
    QSize const size(qMax(1, int(float(pixmap.width()) * factor)), qMax(1, int(float(pixmap.height()) * factor)));
    if (size == pixmap.size())
        return pixmap;
    return pixmap.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

namespace ImagePath {

std::string GetPixmapPath(std::string const &path, int ratio)
{
    QString const base = QString::fromStdString(path);
    if (base.isEmpty())
        return std::string();
    if (IsSvg(base))
        return path;
    if (ratio > 1) {
        QString const file = RatioFile(base, ratio);
        if (IsFile(file))
            return file.toStdString();
    }
    return IsFile(base) ? path : std::string();
}

float GetStretchFactor(float scale)
{
    return scale / float(RatioFor(scale));
}

QPixmap GetStretchPixmap(std::wstring const &path, float scale)
{
    // QPixmap needs a GUI application; without one, answer nothing rather than abort.
    if (path.empty() || !qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return QPixmap();
    if (!(scale > 0.0f) || std::isinf(scale))
        scale = 1.0f;
    QString const file = QString::fromStdWString(path);
    QString const key = QStringLiteral("kelvo.image:%1@%2").arg(file).arg(double(scale), 0, 'g', 9);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = IsSvg(file) ? RenderSvg(file, scale) : LoadRaster(file, scale);
    if (!pixmap.isNull())
        QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace ImagePath
