// Fuzzes search::QuickSearch with sequences of inserts, searches and clears, and checks
// every answer against the definition: the ids, ascending and each once, of which a text
// matches "*key*" under search::SafeFNMatch (ASCII folded, blanks as stars, a lone
// backslash at the end of the key dropped).
//
// Input, one operation after another:
//   op % 4 == 0, 1   insert: id byte (signed), length byte (% 12), then that many text bytes
//   op % 4 == 2      search: length byte (% 8), then that many key bytes
//   op % 4 == 3      clear when op is 0x33, else search as above
// Bytes map to characters: below 0x80 ASCII as is, above it a few Han characters, a
// blank, an unpaired surrogate and an astral character, so that texts share grams and
// wide-string decoding is hit.
#include "textengine/quick_search.h"
#include "textengine/safe_fnmatch.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

struct Reader {
    const uint8_t *data;
    size_t size;
    size_t pos = 0;
    bool More() const { return pos < size; }
    uint8_t Next() { return pos < size ? data[pos++] : 0; }
};

// Characters above ASCII, each with the folded UTF-8 the index is documented to store.
struct Wide {
    char32_t cp;
    const char *utf8;
};
const Wide kWide[] = {{0x94F6, "\xe9\x93\xb6"}, {0x884C, "\xe8\xa1\x8c"},
                      {0x957F, "\xe9\x95\xbf"}, {0x6C5F, "\xe6\xb1\x9f"},
                      {' ', " "},                  {0xD800, "\xef\xbf\xbd"}, // unpaired: U+FFFD
                      {0x20000, "\xf0\xa0\x80\x80"}};

// A text as the index receives it, and as the index should store it (ASCII folded).
struct Text {
    std::wstring wide;
    std::string folded;
};

Text ReadText(Reader &in, size_t len)
{
    Text t;
    for (size_t i = 0; i < len && in.More(); ++i) {
        const uint8_t b = in.Next();
        if (b < 0x80) {
            t.wide += wchar_t(b);
            t.folded += char(b >= 'a' && b <= 'z' ? b - 'a' + 'A' : b);
            continue;
        }
        const Wide &w = kWide[b % (sizeof kWide / sizeof kWide[0])];
        if (sizeof(wchar_t) == 2 && w.cp > 0xFFFF) {
            t.wide += wchar_t(0xD800 + ((w.cp - 0x10000) >> 10));
            t.wide += wchar_t(0xDC00 + ((w.cp - 0x10000) & 0x3FF));
        } else {
            t.wide += wchar_t(w.cp);
        }
        t.folded += w.utf8;
    }
    return t;
}

std::vector<int> Reference(const std::multimap<int, std::string> &texts, std::string k)
{
    for (char &c : k)
        if (c == ' ')
            c = '*';
    size_t run = 0;
    while (run < k.size() && k[k.size() - 1 - run] == '\\')
        ++run;
    if (run % 2 == 1)
        k.pop_back();
    const std::string pattern = "*" + k + "*";
    std::vector<int> ids;
    for (const auto &entry : texts) {
        if (!ids.empty() && ids.back() == entry.first)
            continue;
        if (search::SafeFNMatch(pattern.data(), unsigned(pattern.size()), entry.second.data(),
                                unsigned(entry.second.size())))
            ids.push_back(entry.first);
    }
    return ids;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Reader in{data, size};
    search::QuickSearch index;
    std::multimap<int, std::string> texts;
    std::vector<int> ids;
    while (in.More()) {
        const uint8_t op = in.Next();
        if (op % 4 < 2) {
            const int id = int(int8_t(in.Next()));
            const Text text = ReadText(in, in.Next() % 12);
            index.InsertSearchIndex(text.wide, id);
            texts.emplace(id, text.folded);
        } else if (op == 0x33) {
            index.ClearAllData();
            texts.clear();
        } else {
            const Text key = ReadText(in, in.Next() % 8);
            index.Search(key.wide, ids);
            if (ids != Reference(texts, key.folded))
                std::abort();
        }
    }
    return 0;
}
