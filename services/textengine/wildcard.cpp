#include "textengine/wildcard.h"

#include <type_traits>

namespace search {
namespace detail {

namespace {

constexpr char32_t kStrayBase = 0x110000;

inline unsigned char Byte(const char *s, std::size_t i)
{
    return static_cast<unsigned char>(s[i]);
}

inline bool InRange(unsigned char b, unsigned char lo, unsigned char hi)
{
    return b >= lo && b <= hi;
}

// A class member at i < end: a character or a backslash-escaped one.
Unit ReadMember(const char *p, std::size_t i, std::size_t end)
{
    if (p[i] == '\\' && i + 1 < end) {
        const Unit u = DecodeUtf8(p, end, i + 1);
        return {u.cp, u.len + 1};
    }
    return DecodeUtf8(p, end, i);
}

} // namespace

Unit DecodeUtf8(const char *s, std::size_t n, std::size_t pos)
{
    const unsigned char b0 = Byte(s, pos);
    const Unit stray{kStrayBase + b0, 1};
    if (b0 < 0x80)
        return {b0, 1};
    const std::size_t left = n - pos;
    if (InRange(b0, 0xC2, 0xDF)) {
        if (left < 2 || !InRange(Byte(s, pos + 1), 0x80, 0xBF))
            return stray;
        return {char32_t(b0 & 0x1F) << 6 | (Byte(s, pos + 1) & 0x3F), 2};
    }
    if (InRange(b0, 0xE0, 0xEF)) {
        if (left < 3)
            return stray;
        const unsigned char lo = b0 == 0xE0 ? 0xA0 : 0x80;
        const unsigned char hi = b0 == 0xED ? 0x9F : 0xBF; // no surrogates
        if (!InRange(Byte(s, pos + 1), lo, hi) || !InRange(Byte(s, pos + 2), 0x80, 0xBF))
            return stray;
        return {char32_t(b0 & 0x0F) << 12 | char32_t(Byte(s, pos + 1) & 0x3F) << 6
                    | (Byte(s, pos + 2) & 0x3F),
                3};
    }
    if (InRange(b0, 0xF0, 0xF4)) {
        if (left < 4)
            return stray;
        const unsigned char lo = b0 == 0xF0 ? 0x90 : 0x80;
        const unsigned char hi = b0 == 0xF4 ? 0x8F : 0xBF;
        if (!InRange(Byte(s, pos + 1), lo, hi) || !InRange(Byte(s, pos + 2), 0x80, 0xBF)
            || !InRange(Byte(s, pos + 3), 0x80, 0xBF))
            return stray;
        return {char32_t(b0 & 0x07) << 18 | char32_t(Byte(s, pos + 1) & 0x3F) << 12
                    | char32_t(Byte(s, pos + 2) & 0x3F) << 6 | (Byte(s, pos + 3) & 0x3F),
                4};
    }
    return stray;
}

void AppendUtf8(std::string &out, char32_t cp)
{
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

std::vector<char32_t> WideToCodePoints(const wchar_t *s, std::size_t n)
{
    std::vector<char32_t> out;
    WideToCodePoints(s, n, out);
    return out;
}

void WideToCodePoints(const wchar_t *s, std::size_t n, std::vector<char32_t> &out)
{
    out.clear();
    out.reserve(n);
    for (std::size_t i = 0; i < n; ++i) {
        char32_t c = char32_t(static_cast<std::make_unsigned_t<wchar_t>>(s[i]));
        if (sizeof(wchar_t) == 2 && c >= 0xD800 && c <= 0xDBFF && i + 1 < n) {
            const char32_t low = char32_t(static_cast<std::make_unsigned_t<wchar_t>>(s[i + 1]));
            if (low >= 0xDC00 && low <= 0xDFFF) {
                out.push_back(0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00));
                ++i;
                continue;
            }
        }
        if ((c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)
            c = 0xFFFD;
        out.push_back(c);
    }
}

Element ParseElement(const char *p, std::size_t n, std::size_t pos)
{
    Element e{ElementKind::Literal, 0, false, 0, 0, pos + 1};
    switch (p[pos]) {
    case '*':
        e.kind = ElementKind::Star;
        return e;
    case '?':
        e.kind = ElementKind::AnyOne;
        return e;
    case '\\':
        if (pos + 1 < n) {
            const Unit u = DecodeUtf8(p, n, pos + 1);
            e.cp = u.cp;
            e.next = pos + 1 + u.len;
        } else {
            e.cp = '\\'; // a backslash that ends the pattern stands for itself
        }
        return e;
    case '[': {
        std::size_t i = pos + 1;
        const bool negated = i < n && (p[i] == '!' || p[i] == '^');
        if (negated)
            ++i;
        const std::size_t begin = i;
        while (i < n) {
            if (p[i] == ']' && i != begin) {
                e.kind = ElementKind::Class;
                e.negated = negated;
                e.classBegin = begin;
                e.classEnd = i;
                e.next = i + 1;
                return e;
            }
            i += ReadMember(p, i, n).len;
        }
        e.cp = '['; // never closed: an ordinary bracket
        return e;
    }
    default: {
        const Unit u = DecodeUtf8(p, n, pos);
        e.cp = u.cp;
        e.next = pos + u.len;
        return e;
    }
    }
}

bool ElementMatches(const char *p, const Element &e, char32_t c)
{
    switch (e.kind) {
    case ElementKind::Literal:
        return e.cp == c;
    case ElementKind::AnyOne:
        return true;
    case ElementKind::Star:
        return true;
    case ElementKind::Class:
        break;
    }
    bool hit = false;
    for (std::size_t i = e.classBegin; i < e.classEnd && !hit;) {
        const Unit lo = ReadMember(p, i, e.classEnd);
        i += lo.len;
        if (i + 1 < e.classEnd && p[i] == '-') {
            const Unit hi = ReadMember(p, i + 1, e.classEnd);
            i += 1 + hi.len;
            hit = c >= lo.cp && c <= hi.cp;
        } else {
            hit = c == lo.cp;
        }
    }
    return hit != e.negated;
}

bool WildcardMatch(const char *p, std::size_t pn, const char *t, std::size_t tn)
{
    // Greedy walk that, on a mismatch, retries from the last star with one more
    // character swallowed: no recursion, at most pattern length times text length steps.
    constexpr std::size_t kNone = std::size_t(-1);
    std::size_t pi = 0;
    std::size_t ti = 0;
    std::size_t starP = kNone;
    std::size_t starT = 0;
    for (;;) {
        if (pi < pn) {
            const Element e = ParseElement(p, pn, pi);
            if (e.kind == ElementKind::Star) {
                pi = e.next;
                if (pi == pn)
                    return true; // a final star takes whatever is left
                starP = pi;
                starT = ti;
                continue;
            }
            if (ti < tn) {
                const Unit u = DecodeUtf8(t, tn, ti);
                if (ElementMatches(p, e, u.cp)) {
                    pi = e.next;
                    ti += u.len;
                    continue;
                }
            }
        } else if (ti == tn) {
            return true;
        }
        if (starP == kNone || starT >= tn)
            return false;
        starT += DecodeUtf8(t, tn, starT).len;
        ti = starT;
        pi = starP;
    }
}

} // namespace detail
} // namespace search
