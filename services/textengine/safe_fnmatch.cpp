#include "textengine/safe_fnmatch.h"

#include "textengine/wildcard.h"

namespace search {

bool SafeFNMatch(const char *pattern, unsigned int pattern_length, const char *text,
                 unsigned int text_length)
{
    if (!pattern)
        pattern_length = 0;
    if (!text)
        text_length = 0;
    return detail::WildcardMatch(pattern, pattern_length, text, text_length);
}

} // namespace search
