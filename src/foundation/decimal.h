#pragma once
// base::Decimal: the working number on the way from a double to a Json::Number. It holds
// a signed 64-bit value and a scale (the number is value / 10^scale) and can be rounded
// to a smaller scale by one of seven modes. Use it when a double has to become a fixed
// count of decimals; keep the result as a Json::Number.
//
// The rounding modes live in one process-wide, read-only table of function objects,
// built while the library loads.

#include "foundation/kelvocontrol_export.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace base {

// What Decimal::Round does with the digits it discards. The values are fixed; the type is
// int-sized so that any int is a (possibly unknown) mode.
enum RoundMode : int {
    RoundDown = 0,     // dropped, towards zero
    RoundUp = 1,       // any remainder moves the last kept digit away from zero
    RoundFloor = 2,    // positive: RoundDown; zero or negative: RoundUp
    RoundCeiling = 3,  // positive: RoundUp; zero or negative: RoundDown
    RoundHalfDown = 4, // above one half away from zero, an exact half dropped
    RoundHalfUp = 5,   // one half or more away from zero
    RoundHalfEven = 6, // an exact half to the even neighbour, else RoundHalfUp
};

class KELVOCONTROL_EXPORT Decimal
{
public:
    Decimal() = default;
    // value * 10^scale, truncated; the scale is cut so that at most 18 digits are kept.
    Decimal(double value, int scale);

    // Brings the scale down to `target` by `mode`. A target above the scale only gains
    // digits, so the mode is then ignored; a mode outside RoundMode does nothing.
    void Round(int target, RoundMode mode);
    double ToDouble() const;

    void Set(std::int64_t value, std::int32_t scale)
    {
        m_value = value;
        m_scale = scale;
    }
    std::int64_t GetValue() const { return m_value; }
    std::int32_t GetScale() const { return m_scale; }

private:
    std::int64_t m_value = 0;
    std::int32_t m_scale = 0;
};

// Arithmetic shared by Decimal and Json::Number. Every step here is defined for any
// input: integers wrap like the 64-bit hardware does, and a double that does not fit
// an integer wraps modulo 2^64 (NaN and infinities give the lowest value).
namespace detail {

inline constexpr double kPowersOfTen[] = {
    1e-22, 1e-21, 1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12,
    1e-11, 1e-10, 1e-9,  1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,
    1e0,   1e1,   1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,
    1e11,  1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,  1e20,  1e21, 1e22};

// pow(10.0, exponent), without the library call for the common exponents.
inline double PowerOfTen(std::int64_t exponent)
{
    if (exponent >= -22 && exponent <= 22)
        return kPowersOfTen[exponent + 22];
    return std::pow(10.0, static_cast<double>(exponent));
}

KELVOCONTROL_EXPORT std::int64_t WrapOutOfRange(double value);

// Towards zero; out of range wraps modulo 2^64.
inline std::int64_t TruncateToInt64(double value)
{
    if (value >= -9223372036854775808.0 && value < 9223372036854775808.0)
        return static_cast<std::int64_t>(value);
    return WrapOutOfRange(value);
}

// Towards zero; out of range wraps modulo 2^32 (NaN and infinities give the lowest value).
inline std::int32_t TruncateToInt32(double value)
{
    if (value > -2147483649.0 && value < 2147483648.0)
        return static_cast<std::int32_t>(value);
    if (!std::isfinite(value))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(TruncateToInt64(value))));
}

inline std::int64_t WrapAdd(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}
inline std::int64_t WrapSub(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}
inline std::int64_t WrapMul(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) * static_cast<std::uint64_t>(b));
}
inline std::int32_t WrapAdd32(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline std::int32_t WrapSub32(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

// Moves a mantissa by `shift` decimal places the way every comparison and sum does:
// through a double, so it is exact only up to 2^53.
inline std::int64_t Rescale(std::int64_t mantissa, std::int64_t shift)
{
    constexpr std::int64_t exact = std::int64_t(1) << 53;
    if (shift == 0 && mantissa <= exact && mantissa >= -exact)
        return mantissa;
    return TruncateToInt64(static_cast<double>(mantissa) * PowerOfTen(shift));
}

} // namespace detail
} // namespace base
