#pragma once
// ImagePath: how a picture path becomes a pixmap for a scale.
//
// Raster pictures come in ratio sets: "name.png" is the picture at ratio 1, and
// "name@2x.png", "name@3x.png" ... beside it are the same picture drawn for that
// integer ratio. The ratio for a scale is int(scale + 0.5001), never below 1; the
// picture of that ratio is then stretched by GetStretchFactor(scale). SVG pictures
// have no sets: they are rendered directly at the exact scale.
//
// Pixmaps are in physical pixels with a device pixel ratio of 1: the library scales by
// itself and keeps Qt's high-DPI scaling off. Paths may be resource paths (":/...").

#include "qtcomm/kelvoqtcomm_export.h"

#include <QPixmap>

#include <string>

namespace ImagePath {

// The file of the set that fits `ratio`: "name@<ratio>x.ext" if it exists, else the
// path itself if it exists, else an empty string. SVG paths (".svg", ".svgz") are
// returned unchanged, as they need no set. Paths are UTF-8.
KELVOQTCOMM_EXPORT std::string GetPixmapPath(std::string const &path, int ratio);

// scale / ratio, with ratio = max(1, int(scale + 0.5001)): what a picture of the
// ratio's set still has to be stretched by to match `scale`.
KELVOQTCOMM_EXPORT float GetStretchFactor(float scale);

// The picture at `path` for `scale`. An SVG is rendered at its default size times
// `scale` (truncated, at least 1x1). A raster picture is taken from the ratio set and
// stretched to its ratio-1 size times `scale`. Results are cached by path and scale
// (QPixmapCache). A scale that is not a positive number counts as 1.0. An empty or
// missing path, or the lack of a QGuiApplication, gives a null pixmap.
KELVOQTCOMM_EXPORT QPixmap GetStretchPixmap(std::wstring const &path, float scale);

} // namespace ImagePath
