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

class TWidget;
class THBoxLayout;
class TVBoxLayout;

// A titled group of controls on a page: a caption above a row or column.
QWidget *MakeGallerySection(float scale, QString const &caption, QWidget *content);

// A page with the gallery's margins and the introduction of `introKey` on top; returns
// the page's layout and sets `page`.
TVBoxLayout *MakeGalleryPage(float scale, wchar_t const *introKey, TWidget *&page);

// A row or a column of controls without margins; returns its layout and sets `box`.
THBoxLayout *MakeGalleryRow(float scale, int spacing, TWidget *&box);
TVBoxLayout *MakeGalleryColumn(float scale, int spacing, TWidget *&box);
