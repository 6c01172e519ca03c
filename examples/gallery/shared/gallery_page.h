#pragma once
// The gallery's page registry. Each file under pages/ registers one page with a
// static GalleryPageRegistrar; the window and the screenshot mode list them in
// the order of their `order` field.

#include <QString>

#include <functional>
#include <vector>

class QWidget;

struct GalleryPage {
    int order = 0;
    QString id;                        // stable name, used for screenshot files
    wchar_t const *titleKey = nullptr; // language key of the page title
    std::function<QWidget *(float scale)> create;
};

std::vector<GalleryPage> const &GalleryPages();

struct GalleryPageRegistrar {
    explicit GalleryPageRegistrar(GalleryPage page);
};

// A titled group of controls on a page: a caption above a row or column.
QWidget *MakeGallerySection(float scale, QString const &caption, QWidget *content);
