#include "foundation/json_number.h"

#include "foundation/decimal.h"
#include "foundation/value_safe_wrapper.h"

#include <QtGlobal>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace Json {

namespace {

using base::detail::PowerOfTen;
using base::detail::Rescale;
using base::detail::TruncateToInt64;
using base::detail::WrapAdd;
using base::detail::WrapSub;

// Digit limits of the parser: at or above the cutoff one more digit may not fit. The
// positive side uses the unsigned range, so 19-digit texts up to 1844... wrap negative.
constexpr std::uint64_t kNegativeCutoff = 9223372036854775808ULL / 10;
constexpr std::uint64_t kPositiveCutoff = 18446744073709551615ULL / 10;

// Every double's exact decimal expansion ends within 1074 fraction digits, so printing
// more than this many only adds zeros.
constexpr int kMaxFixedPrecision = 1100;
// Sign, 309 integer digits, ".", the fraction and the ending zero.
constexpr std::size_t kFixedBufferSize = 1536;

constexpr std::size_t kMaxTextLength = NumberText::Capacity - 1;

constexpr char kDigitPairs[] = "00010203040506070809"
                               "10111213141516171819"
                               "20212223242526272829"
                               "30313233343536373839"
                               "40414243444546474849"
                               "50515253545556575859"
                               "60616263646566676869"
                               "70717273747576777879"
                               "80818283848586878889"
                               "90919293949596979899";

// Writes the decimal digits of `value` so that they end at `end`; returns their start.
inline char *WriteDigitsBackward(char *end, std::uint64_t value)
{
    while (value >= 100) {
        unsigned const pair = unsigned(value % 100) * 2;
        value /= 100;
        end -= 2;
        std::memcpy(end, kDigitPairs + pair, 2);
    }
    if (value >= 10) {
        end -= 2;
        std::memcpy(end, kDigitPairs + value * 2, 2);
    } else {
        *--end = char('0' + value);
    }
    return end;
}

inline std::uint64_t Magnitude(std::int64_t value)
{
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

// The state of the parser, so that the double constructor can go on with zeros that it
// did not print.
struct Scan
{
    enum Status { Bad, AtEnd, Stopped };
    std::uint64_t value = 0;
    std::uint32_t fraction = 0;
    std::int32_t exponent = 0;
    bool negative = false;
    Status status = AtEnd;

    std::uint64_t Cutoff() const { return negative ? kNegativeCutoff : kPositiveCutoff; }
};

// Like atoi, but saturating at the 32-bit range instead of leaving overflow undefined.
std::int32_t ReadExponent(char const *p)
{
    while (*p == ' ' || (*p >= '\t' && *p <= '\r'))
        ++p;
    bool negative = false;
    if (*p == '-' || *p == '+')
        negative = *p++ == '-';
    std::int64_t value = 0;
    for (unsigned d = unsigned(static_cast<unsigned char>(*p)) - '0'; d <= 9;
         d = unsigned(static_cast<unsigned char>(*++p)) - '0') {
        if (value <= std::int64_t(INT32_MAX) + 1)
            value = value * 10 + d;
    }
    if (negative)
        value = -value;
    return std::int32_t(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

inline Scan ScanText(char const *p)
{
    Scan s;
    if (*p == '-') {
        s.negative = true;
        ++p;
    }
    // Within the first 18 digits the value stays below 10^17, under either cutoff, so a
    // plain loop reads them; the careful loop below takes over for whatever follows.
    int budget = 18;
    auto const digitAt = [](char const *q) { return unsigned(static_cast<unsigned char>(*q)) - '0'; };
    for (unsigned d = digitAt(p); budget > 0 && d <= 9; d = digitAt(++p), --budget)
        s.value = s.value * 10 + d;
    bool inFraction = false;
    if (*p == '.' && budget > 0 && digitAt(p + 1) <= 9) {
        inFraction = true;
        for (unsigned d = digitAt(++p); budget > 0 && d <= 9; d = digitAt(++p), --budget) {
            s.value = s.value * 10 + d;
            ++s.fraction;
        }
    }

    std::uint64_t const cutoff = s.Cutoff();
    for (;;) {
        char c = *p++;
        if (c == '\0')
            break;
        // A second "." is taken the same way: it only (re)starts the fraction.
        if (c == '.') {
            inFraction = true;
            c = *p++;
        }
        unsigned const digit = unsigned(static_cast<unsigned char>(c)) - '0';
        if (digit > 9) {
            if (c == 'e' || c == 'E') {
                s.exponent = ReadExponent(p);
                break;
            }
            s.status = Scan::Bad;
            return s;
        }
        if (inFraction)
            ++s.fraction;
        if (s.value >= cutoff) {
            // Precision that does not fit behind the "." is dropped; in front of it the
            // number itself would be wrong.
            if (s.fraction > 0) {
                --s.fraction;
                s.status = Scan::Stopped;
                return s;
            }
            s.status = Scan::Bad;
            return s;
        }
        s.value = s.value * 10 + digit;
    }
    return s;
}

// Goes on as if `count` more fraction zeros had followed the text.
void AppendFractionZeros(Scan &s, std::uint32_t count)
{
    if (s.value == 0) {
        s.fraction += count;
        return;
    }
    std::uint64_t const cutoff = s.Cutoff();
    for (; count > 0; --count) {
        if (s.value >= cutoff)
            return;
        ++s.fraction;
        s.value *= 10;
    }
}

inline Number Finish(Scan const &s)
{
    if (s.status == Scan::Bad)
        return Number();
    std::uint64_t const bits = s.negative ? 0 - s.value : s.value;
    std::int32_t const digits = base::detail::WrapSub32(std::int32_t(s.fraction), s.exponent);
    return Number(static_cast<std::int64_t>(bits), digits);
}

// "1.500" -> "1.5", "1.000" -> "1"; a text without "." or not ending in "0" stays.
inline std::size_t TrimFraction(char const *text, std::size_t size)
{
    if (size == 0 || text[size - 1] != '0' || !std::memchr(text, '.', size))
        return size;
    while (size > 0 && text[size - 1] == '0')
        --size;
    if (size > 0 && text[size - 1] == '.')
        --size;
    return size;
}

// Both mantissas brought to the greater digit count.
struct Aligned
{
    std::int64_t left;
    std::int64_t right;
    std::int32_t digits;
};

inline Aligned Align(Number const &a, Number const &b)
{
    std::int32_t const digits = std::max(a.GetDigits(), b.GetDigits());
    return {Rescale(a.GetMantissa(), std::int64_t(digits) - a.GetDigits()),
            Rescale(b.GetMantissa(), std::int64_t(digits) - b.GetDigits()), digits};
}

inline bool FuzzyEqual(Number const &number, double value)
{
    return qFuzzyCompare(number.ToDouble(), value);
}

} // namespace

Number::Number(char const *text) noexcept
{
    if (text)
        *this = Finish(ScanText(text));
}

Number::Number(std::string const &text) noexcept
    : Number(text.c_str())
{}

Number::Number(double value, int digits) noexcept
{
    if (!std::isfinite(value))
        return;
    // The value goes through text, as it always has: rounding sees one digit beyond the
    // last kept one, and the parser decides the fields.
    char text[kFixedBufferSize];
    char *const last = text + sizeof(text) - 1;
    std::to_chars_result printed{};
    int precision = 0;
    if (digits > 0) {
        base::TValueSafeWrapper<base::Decimal, base::DefaultInitializer<base::Decimal>> working;
        working.SetValue(base::Decimal(value, base::detail::WrapAdd32(digits, 1)));
        working->Round(digits, base::RoundHalfUp);
        precision = std::min(digits, kMaxFixedPrecision);
        printed = std::to_chars(text, last, working->ToDouble(), std::chars_format::fixed, precision);
    } else {
        printed = std::to_chars(text, last, TruncateToInt64(value));
    }
    if (printed.ec != std::errc())
        return;
    *printed.ptr = '\0';
    Scan scan = ScanText(text);
    if (scan.status == Scan::AtEnd && digits > precision)
        AppendFractionZeros(scan, std::uint32_t(digits - precision));
    *this = Finish(scan);
}

double Number::ToDouble() const noexcept
{
    return static_cast<double>(m_mantissa) / PowerOfTen(m_digits);
}

std::int64_t Number::ToInt64() const noexcept
{
    return TruncateToInt64(ToDouble());
}

bool Number::GetValue(double &out) const noexcept
{
    if (!m_valid)
        return false;
    out = ToDouble();
    return true;
}

NumberText Number::ToString(bool trim) const noexcept
{
    NumberText out;
    char *const text = out.m_text;
    if (m_digits <= 0) {
        // An integer, through a double: beyond 2^53 its last digits are not exact.
        constexpr std::int64_t exact = std::int64_t(1) << 53;
        std::int64_t const whole = m_digits == 0 && m_mantissa <= exact && m_mantissa >= -exact
                                       ? m_mantissa
                                       : TruncateToInt64(ToDouble());
        char *const end = text + 20;
        char *begin = WriteDigitsBackward(end, Magnitude(whole));
        if (whole < 0)
            *--begin = '-';
        out.m_size = std::size_t(end - begin);
        std::memmove(text, begin, out.m_size);
        text[out.m_size] = '\0';
        return out;
    }

    char printed[20];
    char *const printedEnd = printed + sizeof(printed);
    char const *const printedBegin = WriteDigitsBackward(printedEnd, Magnitude(m_mantissa));
    std::size_t const count = std::size_t(printedEnd - printedBegin);
    std::size_t const digits = std::size_t(m_digits);

    std::size_t size = 0;
    if (m_mantissa < 0)
        text[size++] = '-';
    if (count <= digits) {
        text[size++] = '0';
        text[size++] = '.';
        std::size_t const zeros = std::min(digits - count, kMaxTextLength - size);
        std::memset(text + size, '0', zeros);
        size += zeros;
        std::size_t const tail = std::min(count, kMaxTextLength - size);
        std::memcpy(text + size, printedBegin, tail);
        size += tail;
    } else {
        // At most 19 digits, a sign and a ".": always fits.
        std::size_t const whole = count - digits;
        std::memcpy(text + size, printedBegin, whole);
        size += whole;
        text[size++] = '.';
        std::memcpy(text + size, printedBegin + whole, digits);
        size += digits;
    }
    if (trim)
        size = TrimFraction(text, size);
    text[size] = '\0';
    out.m_size = size;
    return out;
}

NumberText Number::ToFixedString() const noexcept
{
    NumberText out;
    char buffer[kFixedBufferSize];
    int const precision = m_digits > 0 ? std::min(m_digits, kMaxFixedPrecision) : 6;
    auto const printed =
        std::to_chars(buffer, buffer + sizeof(buffer), ToDouble(), std::chars_format::fixed, precision);
    if (printed.ec != std::errc())
        return out;
    std::size_t size = std::min(std::size_t(printed.ptr - buffer), kMaxTextLength);
    std::memcpy(out.m_text, buffer, size);
    size = TrimFraction(out.m_text, size);
    out.m_text[size] = '\0';
    out.m_size = size;
    return out;
}

bool Number::HasFraction() const noexcept
{
    if (!m_valid)
        return true;
    double const value = ToDouble();
    return !qFuzzyCompare(value, std::trunc(value));
}

Number Number::Normalized() const noexcept
{
    if (!m_valid)
        return Number();
    if (m_mantissa == 0)
        return Number(std::int64_t(0), 0);
    if (m_digits == 0)
        return *this;
    if (m_digits < 0)
        return Number(Rescale(m_mantissa, -std::int64_t(m_digits)), 0);
    Number result = *this;
    while (result.m_digits > 0 && result.m_mantissa % 10 == 0) {
        result.m_mantissa /= 10;
        --result.m_digits;
    }
    return result;
}

Number Number::Abs(Number const &number) noexcept
{
    Number result = number;
    if (result.m_mantissa < 0)
        result.SetMantissa(base::detail::WrapSub(0, result.m_mantissa));
    return result;
}

bool Number::operator==(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return false;
    if (m_digits == other.m_digits && m_mantissa == other.m_mantissa)
        return true;
    Aligned const a = Align(*this, other);
    return a.left == a.right;
}

bool Number::operator!=(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return true;
    Aligned const a = Align(*this, other);
    return a.left != a.right;
}

bool Number::operator<(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return false;
    Aligned const a = Align(*this, other);
    return a.left < a.right;
}

bool Number::operator<=(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return false;
    Aligned const a = Align(*this, other);
    return a.left <= a.right;
}

bool Number::operator>(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return false;
    Aligned const a = Align(*this, other);
    return a.left > a.right;
}

bool Number::operator>=(Number const &other) const noexcept
{
    if (!m_valid || !other.m_valid)
        return false;
    Aligned const a = Align(*this, other);
    return a.left >= a.right;
}

// The answers for an invalid number differ by operator; clients rely on them as they are.
bool Number::operator==(double value) const noexcept
{
    return m_valid && FuzzyEqual(*this, value);
}

bool Number::operator!=(double value) const noexcept
{
    return !m_valid || !FuzzyEqual(*this, value);
}

bool Number::operator<(double value) const noexcept
{
    return m_valid && !FuzzyEqual(*this, value) && ToDouble() < value;
}

bool Number::operator<=(double value) const noexcept
{
    return m_valid && (FuzzyEqual(*this, value) || ToDouble() < value);
}

bool Number::operator>(double value) const noexcept
{
    return !m_valid || (!FuzzyEqual(*this, value) && ToDouble() > value);
}

bool Number::operator>=(double value) const noexcept
{
    return !m_valid || FuzzyEqual(*this, value) || ToDouble() > value;
}

bool operator==(double value, Number const &number) noexcept { return number == value; }
bool operator!=(double value, Number const &number) noexcept { return number != value; }
bool operator<(double value, Number const &number) noexcept { return number > value; }
bool operator<=(double value, Number const &number) noexcept { return number >= value; }
bool operator>(double value, Number const &number) noexcept { return number < value; }
bool operator>=(double value, Number const &number) noexcept { return number <= value; }

Number Number::operator+(Number const &other) const noexcept
{
    Number result = *this;
    return result += other;
}

Number Number::operator-(Number const &other) const noexcept
{
    Number result = *this;
    return result -= other;
}

Number Number::operator*(Number const &other) const noexcept
{
    Number result = *this;
    return result *= other;
}

Number &Number::operator+=(Number const &other) noexcept
{
    if (!m_valid || !other.m_valid)
        return *this;
    Aligned const a = Align(*this, other);
    m_mantissa = WrapAdd(a.left, a.right);
    m_digits = a.digits;
    return *this;
}

Number &Number::operator-=(Number const &other) noexcept
{
    if (!m_valid || !other.m_valid)
        return *this;
    Aligned const a = Align(*this, other);
    m_mantissa = WrapSub(a.left, a.right);
    m_digits = a.digits;
    return *this;
}

Number &Number::operator*=(Number const &other) noexcept
{
    if (!m_valid || !other.m_valid)
        return *this;
    m_mantissa = base::detail::WrapMul(m_mantissa, other.m_mantissa);
    m_digits = base::detail::WrapAdd32(m_digits, other.m_digits);
    return *this;
}

Number Number::operator+(int value) const noexcept
{
    Number result = *this;
    if (m_valid)
        result.m_mantissa = WrapAdd(m_mantissa, base::detail::TruncateToInt32(PowerOfTen(m_digits) * value));
    return result;
}

Number Number::operator-(int value) const noexcept
{
    Number result = *this;
    if (m_valid)
        result.m_mantissa = WrapSub(m_mantissa, base::detail::TruncateToInt32(PowerOfTen(m_digits) * value));
    return result;
}

Number Number::operator*(int value) const noexcept
{
    Number result = *this;
    return result *= value;
}

Number &Number::operator+=(int value) noexcept
{
    std::int32_t const digits = std::max(m_digits, 0);
    m_mantissa = Rescale(m_mantissa, std::int64_t(digits) - m_digits);
    m_digits = digits;
    m_mantissa = WrapAdd(m_mantissa, TruncateToInt64(PowerOfTen(digits) * value));
    return *this;
}

Number &Number::operator-=(int value) noexcept
{
    std::int32_t const digits = std::max(m_digits, 0);
    m_mantissa = Rescale(m_mantissa, std::int64_t(digits) - m_digits);
    m_digits = digits;
    m_mantissa = WrapSub(m_mantissa, TruncateToInt64(PowerOfTen(digits) * value));
    return *this;
}

Number &Number::operator*=(int value) noexcept
{
    if (m_valid)
        m_mantissa = base::detail::WrapMul(m_mantissa, value);
    return *this;
}

} // namespace Json
