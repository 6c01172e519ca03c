#include "textengine/py_name_mgr.h"

#include "textengine/pinyin_table.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

using textengine::GeneratedPinyinTable;
using textengine::PinyinTable;

// The table in the shape the speller reads: the reading set of a BMP character straight
// from an array, each syllable with its length, and each set's distinct initials.
struct Lookup {
    const PinyinTable *table = nullptr;
    std::vector<uint16_t> bmpSet;           // set number + 1 of each BMP code point, 0 for none
    std::vector<uint8_t> syllableLength;
    std::vector<uint32_t> initialStart;     // setCount + 1 entries into initials
    std::string initials;                   // distinct first letters of each set, in order

    Lookup()
    {
        table = &GeneratedPinyinTable();
        const PinyinTable &t = *table;
        syllableLength.resize(t.syllableCount);
        for (std::size_t i = 0; i < t.syllableCount; ++i)
            syllableLength[i] = uint8_t(std::strlen(t.syllableText + t.syllableOffset[i]));
        initialStart.reserve(t.setCount + 1);
        for (std::size_t set = 0; set < t.setCount; ++set) {
            initialStart.push_back(uint32_t(initials.size()));
            const std::size_t first = initials.size();
            for (uint32_t i = t.setStart[set]; i < t.setStart[set + 1]; ++i) {
                const char letter = t.syllableText[t.syllableOffset[t.setSyllable[i]]];
                if (initials.find(letter, first) == std::string::npos)
                    initials += letter;
            }
        }
        initialStart.push_back(uint32_t(initials.size()));
        if (t.setCount < 0xFFFF) {
            bmpSet.assign(0x10000, 0);
            for (std::size_t i = 0; i < t.charCount && t.charCode[i] < 0x10000; ++i)
                bmpSet[t.charCode[i]] = uint16_t(t.charSet[i] + 1);
        }
    }

    // The reading set of c, or -1 when it has none.
    long SetOf(char32_t c) const
    {
        if (c < 0x10000 && !bmpSet.empty())
            return long(bmpSet[c]) - 1;
        const PinyinTable &t = *table;
        const uint32_t *end = t.charCode + t.charCount;
        const uint32_t *it = std::lower_bound(t.charCode, end, uint32_t(c));
        if (it == end || *it != c)
            return -1;
        return long(t.charSet[it - t.charCode]);
    }

    std::string_view Syllable(uint16_t id) const
    {
        return std::string_view(table->syllableText + table->syllableOffset[id], syllableLength[id]);
    }
};

const Lookup &TheLookup()
{
    static const Lookup lookup;
    return lookup;
}

// One ambiguous character, with the fixed letters that come before it (the end of its
// prefix in Spelling::fixed) and its options (a range of Spelling::options).
struct Slot {
    std::size_t prefixEnd;
    std::size_t firstOption;
    std::size_t optionCount;
};

// All fixed letters back to back: each slot's prefix starts where the previous one
// ended, and the tail is what follows the last slot's prefix.
struct Spelling {
    std::string fixed;
    std::vector<Slot> slots;
    std::vector<std::string_view> options;

    void Clear()
    {
        fixed.clear();
        slots.clear();
        options.clear();
    }
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

void Analyse(const wchar_t *text, bool initials, Spelling &sp)
{
    sp.Clear();
    const Lookup &lookup = TheLookup();
    const PinyinTable &table = *lookup.table;
    for (const wchar_t *p = text; *p; ++p) {
        char32_t c = char32_t(static_cast<std::make_unsigned_t<wchar_t>>(*p));
        if (sizeof(wchar_t) == 2 && c >= 0xD800 && c <= 0xDBFF && p[1]) {
            const char32_t low = char32_t(static_cast<std::make_unsigned_t<wchar_t>>(p[1]));
            if (low >= 0xDC00 && low <= 0xDFFF) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                ++p;
            }
        }
        if ((c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)
            c = 0xFFFD;
        if (const char ascii = PassThrough(c)) {
            sp.fixed += ascii;
            continue;
        }
        const long set = lookup.SetOf(c);
        if (set < 0)
            continue;
        const std::size_t firstOption = sp.options.size();
        if (initials) {
            for (uint32_t i = lookup.initialStart[set]; i < lookup.initialStart[set + 1]; ++i)
                sp.options.emplace_back(kLetters + (lookup.initials[i] - 'A'), 1);
        } else {
            for (uint32_t i = table.setStart[set]; i < table.setStart[set + 1]; ++i)
                sp.options.push_back(lookup.Syllable(table.setSyllable[i]));
        }
        const std::size_t count = sp.options.size() - firstOption;
        if (count == 1) {
            sp.fixed.append(sp.options.back().data(), sp.options.back().size());
            sp.options.pop_back();
        } else if (count > 1) {
            sp.slots.push_back(Slot{sp.fixed.size(), firstOption, count});
        }
    }
}

// Walks the choices of all slots by rising total distance from each slot's first option:
// for each distance, every way of spreading it over the slots, in a fixed order. So
// the most likely spellings come first, and a cap keeps those.
class ChoiceWalker
{
public:
    // Starts over on the first choice of these slots; the buffers keep their capacity.
    void Reset(const std::vector<Slot> &slots)
    {
        m_caps.clear();
        for (const Slot &s : slots)
            m_caps.push_back(s.optionCount - 1);
        m_choice.assign(m_caps.size(), 0);
        m_total = 0;
        m_distance = 0;
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

// Buffers that keep their capacity across calls: spelling is the hot loop of an index.
struct Scratch {
    Spelling sp;
    std::string formText;
    std::vector<std::size_t> formEnds;
    ChoiceWalker walker;
};

// Out of line, so that the thread's instance is looked up once per call and not at
// every use.
#if defined(_MSC_VER)
__declspec(noinline)
#elif defined(__GNUC__)
__attribute__((noinline))
#endif
Scratch &TheScratch()
{
    thread_local Scratch scratch;
    return scratch;
}

std::wstring Spell(const wchar_t *text, unsigned int max_forms, bool initials)
{
    if (!text)
        return std::wstring();
    if (max_forms == 0)
        max_forms = PyNameMgr::kDefaultMaxForms;
    max_forms = std::min(max_forms, PyNameMgr::kMaxForms);

    Scratch &scratch = TheScratch();
    Spelling &sp = scratch.sp;
    std::string &formText = scratch.formText;
    std::vector<std::size_t> &formEnds = scratch.formEnds;
    Analyse(text, initials, sp);
    if (sp.slots.empty()) // one spelling only
        return std::wstring(sp.fixed.begin(), sp.fixed.end());

    formText.clear();
    formEnds.clear();
    const std::string_view fixed(sp.fixed);
    const std::string_view tail = fixed.substr(sp.slots.back().prefixEnd);
    ChoiceWalker &walker = scratch.walker;
    walker.Reset(sp.slots);
    // Different choices rarely spell the same letters; the bound on attempts keeps a
    // text that does so from running long.
    size_t attempts = size_t(max_forms) * 8;
    do {
        const std::size_t begin = formText.size();
        std::size_t prefixBegin = 0;
        for (size_t j = 0; j < sp.slots.size(); ++j) {
            const Slot &slot = sp.slots[j];
            formText.append(fixed.data() + prefixBegin, slot.prefixEnd - prefixBegin);
            prefixBegin = slot.prefixEnd;
            const std::string_view option = sp.options[slot.firstOption + walker.Choice()[j]];
            formText.append(option.data(), option.size());
        }
        formText.append(tail.data(), tail.size());
        const std::string_view form(formText.data() + begin, formText.size() - begin);
        bool seen = false;
        for (std::size_t k = 0, b = 0; k < formEnds.size() && !seen; b = formEnds[k++])
            seen = std::string_view(formText.data() + b, formEnds[k] - b) == form;
        if (seen)
            formText.resize(begin);
        else
            formEnds.push_back(formText.size());
    } while (formEnds.size() < max_forms && --attempts > 0 && walker.Next());

    std::wstring out;
    out.reserve(formText.size() + formEnds.size());
    for (std::size_t k = 0, b = 0; k < formEnds.size(); b = formEnds[k++]) {
        if (formEnds[k] == b)
            continue;
        if (!out.empty())
            out += L' ';
        out.append(formText.begin() + std::ptrdiff_t(b), formText.begin() + std::ptrdiff_t(formEnds[k]));
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
