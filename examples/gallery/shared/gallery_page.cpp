#include "shared/gallery_page.h"

#include "shared/gallery_theme.h"

#include <KelvoControl.h>

#include <algorithm>

namespace {
std::vector<GalleryPage> &Registry()
{
    static std::vector<GalleryPage> pages;
    return pages;
}
} // namespace

std::vector<GalleryPage> const &GalleryPages()
{
    return Registry();
}

// Kept in order as pages register, so that readers never sort.
GalleryPageRegistrar::GalleryPageRegistrar(GalleryPage page)
{
    auto &pages = Registry();
    auto const at = std::upper_bound(pages.begin(), pages.end(), page.order,
                                     [](int order, GalleryPage const &p) { return order < p.order; });
    pages.insert(at, std::move(page));
}

QWidget *MakeGallerySection(float scale, QString const &caption, QWidget *content)
{
    auto *section = new TFrame(scale, nullptr);
    section->setObjectName(QStringLiteral("GallerySection"));
    auto *layout = new TVBoxLayout(scale, nullptr);
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(8);
    section->setLayout(layout);
    auto *title = new TLabel(scale, caption, nullptr);
    title->setObjectName(QStringLiteral("GallerySectionTitle"));
    layout->addWidget(title, 0, Qt::Alignment());
    layout->addWidget(content, 0, Qt::Alignment());
    return section;
}

namespace {
template <typename Layout>
Layout *MakeBox(float scale, int spacing, TWidget *&box)
{
    box = new TWidget(scale, nullptr);
    auto *layout = new Layout(scale, nullptr);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    box->setLayout(layout);
    return layout;
}
} // namespace

THBoxLayout *MakeGalleryRow(float scale, int spacing, TWidget *&box)
{
    return MakeBox<THBoxLayout>(scale, spacing, box);
}

TVBoxLayout *MakeGalleryColumn(float scale, int spacing, TWidget *&box)
{
    return MakeBox<TVBoxLayout>(scale, spacing, box);
}

TVBoxLayout *MakeGalleryPage(float scale, wchar_t const *introKey, TWidget *&page)
{
    TVBoxLayout *layout = MakeGalleryColumn(scale, 12, page);
    layout->setContentsMargins(16, 16, 16, 16);
    auto *intro = new TLabel(scale, GalleryTheme::Text(introKey), nullptr);
    intro->setWordWrap(true);
    layout->addWidget(intro, 0, Qt::Alignment());
    return layout;
}
