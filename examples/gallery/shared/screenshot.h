#pragma once
// Renders every gallery page at every scale and skin (and the pages once more in
// Chinese) to PNG files, for review without a display.

#include <QString>

class GalleryWindow;

// Returns the number of files written; 0 means failure.
int RenderGalleryScreenshots(GalleryWindow &window, QString const &directory);
