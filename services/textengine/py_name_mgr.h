#pragma once
// PyNameMgr: the phonetic (pinyin) forms of a text, so that a list of names can be
// filtered by what users type for them: "ZGPA" or "ZHONGGUOPINGAN" for 中国平安.
//
// Both forms answer every reading of a character that has several: 银行 (and 銀行) gives
// "YINXING YINHANG YINHENG", 长江 "ZHANGJIANG CHANGJIANG". Alternatives are separated by
// one blank, contain no blank themselves, are all different, and come in order of how far
// they stray from each character's most common reading (that combination first).
//
// Rules for the letters:
// - readings are the modern Mandarin ones of Unicode's Unihan data, simplified and
//   traditional characters alike, without tones, in upper-case ASCII;
// - u-umlaut is written V: 绿 gives "LV" (and "LU", its other reading), 女 gives "NV";
// - the initial of a reading is its first letter (中 -> Z, 长 -> Z or C);
// - ASCII letters and digits pass through, letters upper-cased, in both forms; their
//   full-width forms (Ａ, ５) count as the ASCII ones;
// - any other character (blanks, punctuation, characters without a reading) is skipped,
//   so a text of nothing else gives an empty string.
//
// A text with many ambiguous characters has many combinations: max_forms caps the number
// of alternatives returned. 0 means kDefaultMaxForms; larger requests are cut to
// kMaxForms. The cap keeps the most likely combinations.
//
// The instance is a process-wide singleton with no state of its own: the reading table is
// compiled in, so any thread may call it.
#include "textengine/kelvotextengine_export.h"

#include <string>

class KELVOTEXTENGINE_EXPORT PyNameMgr
{
public:
    static constexpr unsigned int kDefaultMaxForms = 16;
    static constexpr unsigned int kMaxForms = 256;

    static PyNameMgr *GetInstance();

    // Full spellings, e.g. "ZHONGGUOPINGAN". A null text gives an empty string.
    virtual std::wstring GetFullSpell(const wchar_t *text, unsigned int max_forms) const;
    // Initials, e.g. "ZGPA".
    virtual std::wstring GetInitialSpell(const wchar_t *text, unsigned int max_forms) const;

    virtual ~PyNameMgr();

    PyNameMgr(const PyNameMgr &) = delete;
    PyNameMgr &operator=(const PyNameMgr &) = delete;

protected:
    PyNameMgr();
};
