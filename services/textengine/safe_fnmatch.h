#pragma once
// SafeFNMatch: wildcard matching of a whole byte string, for filters that check texts
// against a user's pattern. Both strings come with explicit lengths and need no NUL; the
// matcher never reads at or past either length, never recurses, and takes at most
// pattern length times text length steps, whatever the input.
//
// Both strings are UTF-8: a character is one well-formed UTF-8 sequence, and any other
// byte is a character of its own. Grammar of the pattern:
//   *        any run of characters, also none
//   ?        exactly one character
//   [abc]    one of the characters listed; [a-z] a range of code points (inclusive,
//            empty when reversed); [!x] or [^x] any character but those listed; a "]"
//            right after "[", "[!" or "[^" is a member, a "-" first or last is a member
//   \c       the character c itself, also inside brackets; a backslash at the very end
//            of the pattern stands for itself
//   [        without a closing "]" is an ordinary character
// Comparison is exact (case-sensitive): fold both sides first for a case-blind match.
// A null pointer is read as an empty string.
#include "textengine/kelvotextengine_export.h"

namespace search {

KELVOTEXTENGINE_EXPORT bool SafeFNMatch(const char *pattern, unsigned int pattern_length,
                                        const char *text, unsigned int text_length);

} // namespace search
