#pragma once
// Json::Number: the exact decimal of the trading client. A price step or a quantity is
// an integer count of decimal units, so 0.01 is the mantissa 1 with 2 digits and never a
// binary fraction. Use it wherever a number must keep its decimals as typed or as the
// exchange sends them: steps of a spin box, prices, quantities. It has nothing to do with
// JSON but its namespace.
//
// A plain value of three fields (mantissa, digits, valid flag), trivially copyable,
// passed by const reference. Nothing on its paths allocates or throws: a bad text gives
// an invalid number, which is a state of the value. There is no normal form: (1, 0) and
// (100, 2) are different fields of the same value, and == sees them as equal.
//
// Comparisons and sums between different digit counts move mantissas through a double,
// so they are exact up to 2^53; the 64-bit mantissa wraps silently on overflow.

#include "foundation/kelvocontrol_export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace Json {

// The text of a Number, held in place in 64 characters (63 and the ending zero), so
// that printing never allocates. Converts to std::string and std::string_view.
class NumberText
{
public:
    static constexpr std::size_t Capacity = 64;

    NumberText() noexcept { m_text[0] = '\0'; }

    char const *c_str() const { return m_text; }
    char const *data() const { return m_text; }
    std::size_t size() const { return m_size; }
    std::size_t length() const { return m_size; }
    bool empty() const { return m_size == 0; }

    std::string_view view() const { return std::string_view(m_text, m_size); }
    operator std::string_view() const { return view(); }
    operator std::string() const { return std::string(m_text, m_size); }

    friend bool operator==(NumberText const &a, std::string_view b) { return a.view() == b; }
    friend bool operator==(std::string_view a, NumberText const &b) { return a == b.view(); }
    friend bool operator!=(NumberText const &a, std::string_view b) { return a.view() != b; }
    friend bool operator!=(std::string_view a, NumberText const &b) { return a != b.view(); }

private:
    friend class Number;
    char m_text[Capacity];
    std::size_t m_size = 0;
};

class KELVOCONTROL_EXPORT Number
{
public:
    // Invalid, all zero.
    constexpr Number() noexcept = default;
    // Valid: mantissa / 10^digits. Negative digits are legal: (15, -1) is 150.
    constexpr Number(std::int64_t mantissa, std::int32_t digits) noexcept
        : m_mantissa(mantissa)
        , m_digits(digits)
        , m_valid(true)
    {}
    // Integer arguments, as in Number(1, 2), always mean mantissa and digits; without
    // this, plain int literals would be ambiguous with the rounding constructor.
    template <typename M, typename D,
              std::enable_if_t<std::is_integral_v<M> && std::is_integral_v<D>, int> = 0>
    constexpr Number(M mantissa, D digits) noexcept
        : Number(static_cast<std::int64_t>(mantissa), static_cast<std::int32_t>(digits))
    {}
    // Parses decimal text: an optional "-", digits with a ".", an "e" exponent. "1.5e2"
    // is 15 with digits -1, "" is a valid 0, a bad text (or a null pointer) is invalid.
    // Digits that no longer fit behind the "." are dropped; in front of it they make the
    // text invalid.
    Number(char const *text) noexcept;
    Number(std::string const &text) noexcept;
    // `value` with `digits` decimals, rounded half up (digits of 0 or less truncate to an
    // integer). NaN and infinities give the invalid number.
    Number(double value, int digits) noexcept;

    void Set(std::int64_t mantissa, std::int32_t digits) noexcept
    {
        m_mantissa = mantissa;
        m_digits = digits;
        m_valid = true;
    }
    void SetMantissa(std::int64_t mantissa) noexcept
    {
        m_mantissa = mantissa;
        m_valid = true;
    }
    // Changes the scale only; the valid flag stays as it is.
    void SetDigits(std::int32_t digits) noexcept { m_digits = digits; }
    void Clear() noexcept { *this = Number(); }

    constexpr bool IsValid() const noexcept { return m_valid; }
    constexpr std::int64_t GetMantissa() const noexcept { return m_mantissa; }
    constexpr std::int32_t GetDigits() const noexcept { return m_digits; }

    // mantissa / 10^digits, whether valid or not.
    double ToDouble() const noexcept;
    // ToDouble() truncated towards zero.
    std::int64_t ToInt64() const noexcept;
    // False for an invalid number; else writes ToDouble() to `out`.
    bool GetValue(double &out) const noexcept;

    // Exact text: Number(1, 2) is "0.01", Number(15, -1) is "150". With `trim`, trailing
    // zeros of the fraction go, and a "." left last: "1.500" -> "1.5", "1.000" -> "1".
    // Digits 0 or below print mantissa / 10^digits through a double, truncated: inexact
    // beyond 2^53, and since 10^-5 is a little above the exact power, (1, -5) is "99999".
    // Texts longer than 63 characters are cut there.
    NumberText ToString(bool trim = false) const noexcept;
    // ToDouble() printed with `digits` decimals (six if digits is not above 0), trimmed.
    NumberText ToFixedString() const noexcept;
    // True for an invalid number or a value that is not (fuzzily) an integer.
    bool HasFraction() const noexcept;
    // Without trailing zero digits: (1500, 3) -> (15, 1), (15, -1) -> (150, 0), zero ->
    // (0, 0); invalid stays invalid.
    Number Normalized() const noexcept;
    // A copy with a negative mantissa negated (and then marked valid).
    static Number Abs(Number const &number) noexcept;

    // Invalid on either side: == false, != true, the ordering operators false.
    bool operator==(Number const &other) const noexcept;
    bool operator!=(Number const &other) const noexcept;
    bool operator<(Number const &other) const noexcept;
    bool operator<=(Number const &other) const noexcept;
    bool operator>(Number const &other) const noexcept;
    bool operator>=(Number const &other) const noexcept;

    // Against a double with qFuzzyCompare. An invalid number is == false, != true,
    // < false, > true, >= true, <= false; the double-first forms mirror these.
    bool operator==(double value) const noexcept;
    bool operator!=(double value) const noexcept;
    bool operator<(double value) const noexcept;
    bool operator<=(double value) const noexcept;
    bool operator>(double value) const noexcept;
    bool operator>=(double value) const noexcept;

    // With a Number: an invalid side leaves the left side as it is. Sums take the greater
    // digit count; products add the digit counts.
    Number operator+(Number const &other) const noexcept;
    Number operator-(Number const &other) const noexcept;
    Number operator*(Number const &other) const noexcept;
    Number &operator+=(Number const &other) noexcept;
    Number &operator-=(Number const &other) noexcept;
    Number &operator*=(Number const &other) noexcept;

    // With an int, in whole units: Number(1, 2) + 1 is (101, 2). + and - keep the digits
    // and leave an invalid number as it is. += and -= also work on an invalid number and
    // raise negative digits to 0 first.
    Number operator+(int value) const noexcept;
    Number operator-(int value) const noexcept;
    Number operator*(int value) const noexcept;
    Number &operator+=(int value) noexcept;
    Number &operator-=(int value) noexcept;
    Number &operator*=(int value) noexcept;

private:
    std::int64_t m_mantissa = 0;
    std::int32_t m_digits = 0;
    bool m_valid = false;
};

static_assert(std::is_trivially_copyable_v<Number>, "Json::Number is copied as plain bytes");
static_assert(sizeof(Number) == 16, "Json::Number is three fields: int64, int32, bool");

// Abs(n), as clients write it.
inline Number Abs(Number const &number) noexcept
{
    return Number::Abs(number);
}

KELVOCONTROL_EXPORT bool operator==(double value, Number const &number) noexcept;
KELVOCONTROL_EXPORT bool operator!=(double value, Number const &number) noexcept;
KELVOCONTROL_EXPORT bool operator<(double value, Number const &number) noexcept;
KELVOCONTROL_EXPORT bool operator<=(double value, Number const &number) noexcept;
KELVOCONTROL_EXPORT bool operator>(double value, Number const &number) noexcept;
KELVOCONTROL_EXPORT bool operator>=(double value, Number const &number) noexcept;

} // namespace Json
