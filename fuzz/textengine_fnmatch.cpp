// Fuzzes search::SafeFNMatch with patterns and texts in exact-size blocks (no NUL, no
// slack), so that any read past a length is a sanitizer report, and checks two laws
// that hold for every pattern P and text T:
//   P matches T  =>  "*" + P matches "ab" + T
//   P matches T  =>  P + "*" matches T + "ab", unless P ends in a backslash that the
//                    star would turn into an escape.
// Input: first byte = pattern length (modulo what is left), then pattern, then text.
#include "textengine/safe_fnmatch.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

bool MatchExact(const std::string &pattern, const std::string &text)
{
    std::unique_ptr<char[]> p(new char[pattern.size() + (pattern.empty() ? 1 : 0)]);
    std::unique_ptr<char[]> t(new char[text.size() + (text.empty() ? 1 : 0)]);
    std::memcpy(p.get(), pattern.data(), pattern.size());
    std::memcpy(t.get(), text.data(), text.size());
    return search::SafeFNMatch(p.get(), unsigned(pattern.size()), t.get(), unsigned(text.size()));
}

bool EndsInLoneBackslash(const std::string &p)
{
    size_t run = 0;
    while (run < p.size() && p[p.size() - 1 - run] == '\\')
        ++run;
    return run % 2 == 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const size_t rest = size - 1;
    const size_t plen = rest == 0 ? 0 : data[0] % (rest + 1);
    const std::string pattern(reinterpret_cast<const char *>(data + 1), plen);
    const std::string text(reinterpret_cast<const char *>(data + 1 + plen), rest - plen);

    if (!MatchExact(pattern, text))
        return 0;
    if (!MatchExact("*" + pattern, "ab" + text))
        std::abort();
    if (!EndsInLoneBackslash(pattern) && !MatchExact(pattern + "*", text + "ab"))
        std::abort();
    return 0;
}
