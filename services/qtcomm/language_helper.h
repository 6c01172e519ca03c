#pragma once
// The language service: display texts by key in the current language.
//
// Languages are numbered: 1 is "zh_CN" and 3 is "en_US" (the language whose captions
// need the wider column); other numbers are free for tables a client loads itself.
// Both built-in tables come from resources (":/lang/zh_CN.xml", ":/lang/en_US.xml");
// en_US is current at start.
//
// LoadXmlString(key) is how a control gets a text. Its result stays valid for the life
// of the process, whatever is switched or reloaded later: every text handed out is kept
// in a pool that is never freed (equal texts share one copy). A key without an entry
// gives the key itself, so that a missing translation shows instead of failing.
//
// A switch of language (SwitchLanguage) notifies twice: the callbacks added with
// AddLanguageChangedCall, in the order they were added, and then every widget, by
// QEvent::LanguageChange sent through the application (as installing a QTranslator
// does), so a widget re-translates in changeEvent(). Everything here runs on the GUI
// thread.

#include "qtcomm/kelvoqtcomm_export.h"

#include <functional>
#include <string>
#include <vector>

namespace Language {
enum : int {
    LANGUAGE_ZH_CN = 1,
    LANGUAGE_EN_US = 3,
};
} // namespace Language

class KELVOQTCOMM_EXPORT IStorageLanguageHelper
{
public:
    virtual ~IStorageLanguageHelper();

    virtual int GetCurrentLanguage() const = 0;
    // The name of a language number ("zh_CN", "en_US"); a loaded table may name its
    // language itself. Empty for a number nobody named.
    virtual std::string GetLanguageName(int language) const = 0;

    // Replaces the table of `language` with the XML text `xml` (UTF-8, see the format
    // in the loader). Text that is not such a table is refused with one warning in the
    // log, and the table in force stays. Nobody is notified: SwitchLanguage does that.
    virtual bool LoadLanguageTable(int language, std::string const &xml) = 0;
    // Makes `language` current and notifies, also when it was current already (so a
    // reloaded table reaches the widgets). False, and no change, without a table.
    virtual bool SwitchLanguage(int language) = 0;
    // The languages that have a table, in ascending order.
    virtual std::vector<int> GetLoadedLanguages() const = 0;
    // The text of `key` in the current language; false if there is no entry.
    virtual bool FindText(std::wstring const &key, std::wstring *text) const = 0;

    // Called after each switch with the new language number. Returns an id for
    // RemoveLanguageChangedCall. Safe to add or remove during a notification: a removed
    // callback is not called any more, an added one from the next switch on.
    virtual int AddLanguageChangedCall(std::function<void(int language)> call) = 0;
    virtual void RemoveLanguageChangedCall(int id) = 0;
};

// The process-wide language service; never null.
KELVOQTCOMM_EXPORT IStorageLanguageHelper *GetLanguageHelper();

// The text of `key` in the current language, valid for the life of the process. A key
// without an entry gives the key's own text; a null key gives "".
KELVOQTCOMM_EXPORT wchar_t const *LoadXmlString(wchar_t const *key);
