#include "shared/gallery_theme.h"

#include <KelvoControl.h>

#include <QFile>
#include <QRegularExpression>

namespace GalleryTheme {

namespace {

::Skin::SKIN_TYPE ToSkinType(Skin skin)
{
    return skin == Skin::Dark ? ::Skin::SKIN_DARK : ::Skin::SKIN_LIGHT;
}

QString Template()
{
    static QString const sheet = [] {
        QFile file(QStringLiteral(":/gallery/gallery.qss"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }();
    return sheet;
}

} // namespace

void SetSkin(Skin skin)
{
    GetSkinHelper()->SwitchSkin(ToSkinType(skin));
    ApplyStyleSheet();
}

Skin CurrentSkin()
{
    return *GetSkinHelper()->GetCurrentSkin() == ::Skin::SKIN_DARK ? Skin::Dark : Skin::Light;
}

QString SkinName(Skin skin)
{
    return skin == Skin::Dark ? QStringLiteral("Dark") : QStringLiteral("Light");
}

void SetLanguage(Language language)
{
    GetLanguageHelper()->SwitchLanguage(language == Language::Chinese ? ::Language::LANGUAGE_ZH_CN
                                                                      : ::Language::LANGUAGE_EN_US);
}

Language CurrentLanguage()
{
    return GetLanguageHelper()->GetCurrentLanguage() == ::Language::LANGUAGE_ZH_CN ? Language::Chinese
                                                                                    : Language::English;
}

QString LanguageName(Language language)
{
    return language == Language::Chinese ? QStringLiteral("zh_CN") : QStringLiteral("en_US");
}

// ${group.key} is a skin colour, ${image:group.key} a skin picture as a url().
QString StyleSheetForCurrentSkin()
{
    static QRegularExpression const placeholder(QStringLiteral(R"(\$\{(image:)?([A-Za-z0-9_]+)\.([A-Za-z0-9_]+)\})"));
    QString const source = Template();
    QString sheet;
    sheet.reserve(source.size());
    int last = 0;
    auto it = placeholder.globalMatch(source);
    while (it.hasNext()) {
        QRegularExpressionMatch const m = it.next();
        sheet += source.midRef(last, m.capturedStart() - last);
        std::wstring const group = m.captured(2).toStdWString();
        std::wstring const key = m.captured(3).toStdWString();
        if (m.capturedLength(1) > 0)
            sheet += QStringLiteral("url(%1)").arg(QString::fromStdWString(GetSkinHelper()->GetImagePath(group, key)));
        else
            sheet += QString::fromStdWString(GetSkinHelper()->GetColorText(group, key));
        last = m.capturedEnd();
    }
    sheet += source.midRef(last);
    return sheet;
}

void ApplyStyleSheet()
{
    GetDPIHelper()->SetApplicationStyleSheet(StyleSheetForCurrentSkin());
}

QString Text(wchar_t const *key)
{
    return QString::fromWCharArray(LoadXmlString(key));
}

} // namespace GalleryTheme
