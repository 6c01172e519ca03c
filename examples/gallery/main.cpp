// The KelvoControl gallery: a client application that shows every control.
//   kelvo_gallery [--scale S] [--skin light|dark] [--language en_US|zh_CN]
//   kelvo_gallery --screenshot DIR    render every page to PNG files and exit

#include "gallery_window.h"
#include "shared/gallery_theme.h"
#include "shared/screenshot.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

int main(int argc, char *argv[])
{
    // The library scales itself; Qt's own high-DPI scaling would scale twice.
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kelvo_gallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("KelvoControl gallery"));
    parser.addHelpOption();
    QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                  QStringLiteral("Render every page to PNG files in <dir> and exit."),
                                  QStringLiteral("dir"));
    QCommandLineOption scale(QStringLiteral("scale"), QStringLiteral("Initial scale."),
                             QStringLiteral("scale"), QStringLiteral("1.0"));
    QCommandLineOption skin(QStringLiteral("skin"), QStringLiteral("light or dark."),
                            QStringLiteral("skin"), QStringLiteral("light"));
    QCommandLineOption language(QStringLiteral("language"), QStringLiteral("en_US or zh_CN."),
                                QStringLiteral("language"), QStringLiteral("en_US"));
    parser.addOptions({screenshot, scale, skin, language});
    parser.process(app);

    nbase::auto_executor_mgr::instance().runAfterLaunchExecutors();

    GalleryTheme::SetLanguage(parser.value(language) == QLatin1String("zh_CN")
                                  ? GalleryTheme::Language::Chinese
                                  : GalleryTheme::Language::English);
    GalleryTheme::SetSkin(parser.value(skin) == QLatin1String("dark") ? GalleryTheme::Skin::Dark
                                                                      : GalleryTheme::Skin::Light);

    bool ok = false;
    float initialScale = parser.value(scale).toFloat(&ok);
    if (!ok || initialScale <= 0.0f)
        initialScale = 1.0f;

    GalleryWindow window(initialScale);
    window.setWindowTitle(GalleryTheme::Text(L"gallery_title"));

    if (parser.isSet(screenshot)) {
        int const written = RenderGalleryScreenshots(window, parser.value(screenshot));
        QTextStream(stdout) << written << " screenshots written to " << parser.value(screenshot) << '\n';
        return written > 0 ? 0 : 1;
    }
    window.show();
    return app.exec();
}
