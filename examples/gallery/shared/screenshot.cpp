#include "shared/screenshot.h"

#include "gallery_window.h"
#include "shared/gallery_theme.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

namespace {

void Settle()
{
    // Layouts and deferred geometry (0 ms single shots) finish within a few passes.
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

QString ScaleText(float scale)
{
    return QString::number(double(scale), 'f', 2).replace(QLatin1Char('.'), QLatin1Char('_'));
}

// Widgets that show their state only under the mouse carry the property
// "galleryHover"; a screenshot shows them hovered.
void HoverMarkedWidgets(QWidget &window)
{
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->property("galleryHover").toBool()) {
            QEvent enter(QEvent::Enter);
            QApplication::sendEvent(widget, &enter);
        }
    }
}

bool Shoot(GalleryWindow &window, int page, QString const &file)
{
    window.ShowPage(page);
    Settle();
    HoverMarkedWidgets(window);
    Settle();
    return window.grab().save(file, "PNG");
}

} // namespace

int RenderGalleryScreenshots(GalleryWindow &window, QString const &directory)
{
    QDir dir(directory);
    if (!dir.mkpath(QStringLiteral(".")))
        return 0;

    int written = 0;
    QTextStream out(stdout);
    float const scales[] = {1.0f, 1.25f, 1.5f, 2.0f};
    auto shoot = [&](int page, float scale) {
        QString const name = QStringLiteral("%1_%2_%3_%4.png")
                                 .arg(window.PageId(page), ScaleText(scale),
                                      GalleryTheme::SkinName(GalleryTheme::CurrentSkin()).toLower(),
                                      GalleryTheme::LanguageName(GalleryTheme::CurrentLanguage()));
        QString const path = dir.filePath(name);
        if (Shoot(window, page, path)) {
            ++written;
            out << path << '\n';
        }
    };

    window.show();
    for (auto skin : {GalleryTheme::Skin::Light, GalleryTheme::Skin::Dark}) {
        GalleryTheme::SetSkin(skin);
        for (float scale : scales) {
            window.ApplyScale(scale);
            for (int page = 0; page < window.PageCount(); ++page)
                shoot(page, scale);
        }
    }

    GalleryTheme::SetSkin(GalleryTheme::Skin::Light);
    GalleryTheme::SetLanguage(GalleryTheme::Language::Chinese);
    window.Retranslate();
    window.ApplyScale(1.0f);
    for (int page = 0; page < window.PageCount(); ++page)
        shoot(page, 1.0f);
    GalleryTheme::SetLanguage(GalleryTheme::Language::English);
    out.flush();
    return written;
}
