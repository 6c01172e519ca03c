#include "textengine/py_name_mgr.h"

#include "textengine/pinyin_table.h"
#include "textengine/wildcard.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <vector>

namespace {

using textengine::GeneratedPinyinTable;
using textengine::PinyinTable;

// One ambiguous character, with the fixed letters that come before it.
struct Slot {
    std::string prefix;
    std::vector<std::string_view> options;
};

struct Spelling {
    std::vector<Slot> slots;
    std::string tail;
};

const char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// The ASCII letter or digit that c stands for (upper-cased), or 0.
char PassThrough(char32_t c)
{
    if (c >= 0xFF01 && c <= 0xFF5E) // full-width forms of ASCII
        c -= 0xFEE0;
    if (c >= 'a' && c <= 'z')
        return char(c - 'a' + 'A');
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))
        return char(c);
    return 0;
}

// The readings of c, most common first; empty when it has none.
std::vector<std::string_view> Readings(const PinyinTable &table, char32_t c)
{
    std::vector<std::string_view> out;
    const uint32_t *end = table.charCode + table.charCount;
    const uint32_t *it = std::lower_bound(table.charCode, end, uint32_t(c));
    if (it == end || *it != c)
        return out;
    const uint16_t set = table.charSet[it - table.charCode];
    for (uint32_t i = table.setStart[set]; i < table.setStart[set + 1]; ++i)
        out.emplace_back(table.syllableText + table.syllableOffset[table.setSyllable[i]]);
    return out;
}

Spelling Analyse(const wchar_t *text, bool initials)
{
    Spelling sp;
    const std::vector<char32_t> cps = search::detail::WideToCodePoints(text, std::wcslen(text));
    const PinyinTable &table = GeneratedPinyinTable();
    std::string fixed;
    for (char32_t c : cps) {
        if (const char ascii = PassThrough(c)) {
            fixed += ascii;
            continue;
        }
        std::vector<std::string_view> options = Readings(table, c);
        if (initials) {
            std::vector<std::string_view> firsts;
            for (std::string_view r : options) {
                const std::string_view letter(kLetters + (r[0] - 'A'), 1);
                if (std::find(firsts.begin(), firsts.end(), letter) == firsts.end())
                    firsts.push_back(letter);
            }
            options.swap(firsts);
        }
        if (options.size() == 1) {
            fixed.append(options[0].data(), options[0].size());
        } else if (options.size() > 1) {
            sp.slots.push_back(Slot{std::move(fixed), std::move(options)});
            fixed.clear();
        }
    }
    sp.tail = std::move(fixed);
    return sp;
}

// Walks the choices of all slots by rising total distance from each slot's first option:
// for each distance, every way of spreading it over the slots, in a fixed order. So
// the most likely spellings come first, and a cap keeps those.
class ChoiceWalker
{
public:
    explicit ChoiceWalker(const std::vector<Slot> &slots)
    {
        for (const Slot &s : slots)
            m_caps.push_back(s.options.size() - 1);
        m_choice.assign(m_caps.size(), 0);
        for (size_t c : m_caps)
            m_total += c;
    }

    const std::vector<size_t> &Choice() const { return m_choice; }

    bool Next()
    {
        if (NextSameDistance())
            return true;
        while (m_distance < m_total) {
            ++m_distance;
            if (Fill(0, m_distance))
                return true;
        }
        return false;
    }

private:
    // Puts amount on the slots from `from` on, each as much as it holds, front first.
    bool Fill(size_t from, size_t amount)
    {
        for (size_t j = from; j < m_choice.size(); ++j) {
            m_choice[j] = std::min(m_caps[j], amount);
            amount -= m_choice[j];
        }
        return amount == 0;
    }

    // Moves one unit from the last slot that can give it to the slots behind it.
    bool NextSameDistance()
    {
        size_t behind = 0;
        size_t room = 0;
        for (size_t j = m_choice.size(); j-- > 0;) {
            if (m_choice[j] > 0 && behind < room) {
                --m_choice[j];
                return Fill(j + 1, behind + 1);
            }
            behind += m_choice[j];
            room += m_caps[j];
        }
        return false;
    }

    std::vector<size_t> m_caps;
    std::vector<size_t> m_choice;
    size_t m_total = 0;
    size_t m_distance = 0;
};

std::wstring Spell(const wchar_t *text, unsigned int max_forms, bool initials)
{
    if (!text)
        return std::wstring();
    if (max_forms == 0)
        max_forms = PyNameMgr::kDefaultMaxForms;
    max_forms = std::min(max_forms, PyNameMgr::kMaxForms);

    const Spelling sp = Analyse(text, initials);
    std::vector<std::string> forms;
    ChoiceWalker walker(sp.slots);
    // Different choices rarely spell the same letters; the bound on attempts keeps a
    // text that does so from running long.
    size_t attempts = size_t(max_forms) * 8;
    do {
        std::string form;
        for (size_t j = 0; j < sp.slots.size(); ++j) {
            form += sp.slots[j].prefix;
            const std::string_view option = sp.slots[j].options[walker.Choice()[j]];
            form.append(option.data(), option.size());
        }
        form += sp.tail;
        if (std::find(forms.begin(), forms.end(), form) == forms.end())
            forms.push_back(std::move(form));
    } while (forms.size() < max_forms && --attempts > 0 && walker.Next());

    std::wstring out;
    for (const std::string &form : forms) {
        if (form.empty())
            continue;
        if (!out.empty())
            out += L' ';
        out.append(form.begin(), form.end());
    }
    return out;
}

} // namespace

PyNameMgr::PyNameMgr() = default;
PyNameMgr::~PyNameMgr() = default;

PyNameMgr *PyNameMgr::GetInstance()
{
    static PyNameMgr instance;
    return &instance;
}

std::wstring PyNameMgr::GetFullSpell(const wchar_t *text, unsigned int max_forms) const
{
    return Spell(text, max_forms, false);
}

std::wstring PyNameMgr::GetInitialSpell(const wchar_t *text, unsigned int max_forms) const
{
    return Spell(text, max_forms, true);
}
