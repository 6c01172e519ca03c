#pragma once
// Skin, language and style sheet of the gallery. The gallery is the client here: it
// owns the style sheet (a template under assets/qss whose colours come from the skin
// service by key) and hands it to the DPI helper, which scales it for each window.

#include <QString>

namespace GalleryTheme {

enum class Skin { Light, Dark };
enum class Language { English, Chinese };

void SetSkin(Skin skin);
Skin CurrentSkin();
QString SkinName(Skin skin);

void SetLanguage(Language language);
Language CurrentLanguage();
QString LanguageName(Language language);

// The gallery's style sheet at scale 1.0 for the current skin: the template with every
// ${group.key} replaced by that skin colour.
QString StyleSheetForCurrentSkin();

// Re-applies the sheet through the DPI helper after a skin change.
void ApplyStyleSheet();

// Localised text of a language key.
QString Text(wchar_t const *key);

} // namespace GalleryTheme
