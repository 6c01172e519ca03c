#pragma once
// Internal building blocks shared by SafeFNMatch and QuickSearch: bounded UTF-8 decoding,
// the element grammar of wildcard patterns, and wide-string conversion. Every function
// takes explicit lengths and reads nothing at or past them.
#include <cstddef>
#include <string>
#include <vector>

namespace search {
namespace detail {

// One character of a UTF-8 byte string. A byte that does not start a well-formed
// sequence is a unit of its own, with a value above the Unicode range, so that it
// matches only the same stray byte.
struct Unit {
    char32_t cp;
    std::size_t len;
};
Unit DecodeUtf8(const char *s, std::size_t n, std::size_t pos);
void AppendUtf8(std::string &out, char32_t cp);

// Code points of a wide string: UTF-16 where wchar_t has 16 bits, UTF-32 elsewhere.
// Unpaired surrogates and out-of-range values become U+FFFD.
std::vector<char32_t> WideToCodePoints(const wchar_t *s, std::size_t n);
void WideToCodePoints(const wchar_t *s, std::size_t n, std::vector<char32_t> &out);

enum class ElementKind { Literal, AnyOne, Star, Class };

// One element of a pattern starting at pos < n. For a class, [classBegin, classEnd) are
// its members without the opening bracket, the negation mark and the closing bracket.
struct Element {
    ElementKind kind;
    char32_t cp;  // Literal only
    bool negated; // Class only
    std::size_t classBegin;
    std::size_t classEnd;
    std::size_t next; // position after the element
};
Element ParseElement(const char *p, std::size_t n, std::size_t pos);
bool ElementMatches(const char *p, const Element &e, char32_t c);

bool WildcardMatch(const char *pattern, std::size_t patternLength, const char *text,
                   std::size_t textLength);

} // namespace detail
} // namespace search
