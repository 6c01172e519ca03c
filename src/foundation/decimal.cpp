#include "foundation/decimal.h"

#include <QtGlobal>

#include <functional>
#include <unordered_map>

namespace base {

namespace detail {

std::int64_t WrapOutOfRange(double value)
{
    if (!std::isfinite(value))
        return std::numeric_limits<std::int64_t>::min();
    // Beyond 2^63 every double is an integer, so fmod is exact.
    constexpr double twoTo64 = 18446744073709551616.0;
    double rest = std::fmod(std::trunc(value), twoTo64);
    if (rest < 0)
        rest += twoTo64;
    if (rest >= twoTo64)
        rest = 0;
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(rest));
}

} // namespace detail

namespace {

using detail::PowerOfTen;
using detail::TruncateToInt64;

// 10^n built by repeated squaring, as the constructor has always done; for the
// exponents that matter (up to 22) it equals the exact power.
double SquaredPowerOfTen(std::uint32_t n)
{
    double result = 1.0;
    double base = 10.0;
    while (n != 0) {
        if (n & 1u)
            result *= base;
        base *= base;
        n >>= 1;
    }
    return result;
}

constexpr std::int64_t kIntegerPowers[] = {1LL,
                                           10LL,
                                           100LL,
                                           1000LL,
                                           10000LL,
                                           100000LL,
                                           1000000LL,
                                           10000000LL,
                                           100000000LL,
                                           1000000000LL,
                                           10000000000LL,
                                           100000000000LL,
                                           1000000000000LL,
                                           10000000000000LL,
                                           100000000000000LL,
                                           1000000000000000LL,
                                           10000000000000000LL,
                                           100000000000000000LL,
                                           1000000000000000000LL};

// value / 10^k and value % 10^k in integers, k >= 1. A power beyond the 64-bit range
// exceeds every value: the quotient is 0 and the remainder the whole value.
void DivideByPowerOfTen(std::int64_t value, std::int64_t k, std::int64_t &quotient, std::int64_t &remainder)
{
    if (k > 18) {
        quotient = 0;
        remainder = value;
        return;
    }
    std::int64_t const p = kIntegerPowers[k];
    quotient = value / p;
    remainder = value % p;
}

void RoundTowardsZero(Decimal &d, int target)
{
    d.Set(detail::Rescale(d.GetValue(), std::int64_t(target) - d.GetScale()), target);
}

void RoundAwayFromZero(Decimal &d, int target)
{
    std::int64_t const k = std::int64_t(d.GetScale()) - target;
    if (k <= 0)
        return RoundTowardsZero(d, target);
    std::int64_t const sign = d.GetValue() > 0 ? 1 : -1;
    std::int64_t quotient = 0;
    std::int64_t remainder = 0;
    DivideByPowerOfTen(d.GetValue(), k, quotient, remainder);
    // Only the low word of the remainder is looked at; kept as the client has always seen it.
    if (static_cast<std::uint32_t>(static_cast<std::uint64_t>(remainder)) != 0)
        quotient += sign;
    d.Set(quotient, target);
}

void RoundHalf(Decimal &d, int target, bool halfGoesUp)
{
    std::int64_t const k = std::int64_t(d.GetScale()) - target;
    if (k <= 0)
        return RoundTowardsZero(d, target);
    std::int64_t const value = d.GetValue();
    std::int64_t const sign = value > 0 ? 1 : -1;
    std::int64_t quotient = 0;
    std::int64_t remainder = 0;
    DivideByPowerOfTen(value, k, quotient, remainder);
    // The low 32 bits of the remainder against one half: past nine discarded digits the
    // half cannot be reached, so such a tail never rounds up.
    std::int64_t low = static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(remainder)));
    if (low < 0)
        low = -low;
    std::int64_t increment = 0;
    if (k <= 18) {
        std::int64_t const half = 5 * kIntegerPowers[k - 1];
        if (halfGoesUp ? low >= half : low > half)
            increment = sign;
    }
    std::int64_t const kept = TruncateToInt64(static_cast<double>(value) / PowerOfTen(k));
    d.Set(detail::WrapAdd(kept, increment), target);
}

void RoundHalfDownFunction(Decimal &d, int target) { RoundHalf(d, target, false); }
void RoundHalfUpFunction(Decimal &d, int target) { RoundHalf(d, target, true); }

void RoundHalfEvenFunction(Decimal &d, int target)
{
    std::int64_t const k = std::int64_t(d.GetScale()) - target;
    std::int64_t const value = d.GetValue();
    std::uint64_t const magnitude = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    bool exactHalfOnEven = false;
    if (k >= 1 && k <= 19) {
        std::uint64_t const p = k == 19 ? 10000000000000000000ULL : static_cast<std::uint64_t>(kIntegerPowers[k]);
        std::uint64_t const q = magnitude / p;
        std::uint64_t const r = magnitude % p;
        auto const firstDropped = static_cast<unsigned>(static_cast<unsigned __int128>(r) * 10 / p);
        exactHalfOnEven = firstDropped == 5 && r == p / 2 && q % 2 == 0;
    }
    RoundHalf(d, target, !exactHalfOnEven);
}

void RoundFloorFunction(Decimal &d, int target)
{
    if (d.GetValue() > 0)
        RoundTowardsZero(d, target);
    else
        RoundAwayFromZero(d, target);
}

void RoundCeilingFunction(Decimal &d, int target)
{
    if (d.GetValue() > 0)
        RoundAwayFromZero(d, target);
    else
        RoundTowardsZero(d, target);
}

using RoundFunction = std::function<void(Decimal &, int)>;
using RoundTable = std::unordered_map<RoundMode, RoundFunction>;

RoundTable const &Table()
{
    static RoundTable const table = [] {
        RoundTable t;
        t.max_load_factor(1.0f);
        t.emplace(RoundDown, RoundTowardsZero);
        t.emplace(RoundUp, RoundAwayFromZero);
        t.emplace(RoundFloor, RoundFloorFunction);
        t.emplace(RoundCeiling, RoundCeilingFunction);
        t.emplace(RoundHalfDown, RoundHalfDownFunction);
        t.emplace(RoundHalfUp, RoundHalfUpFunction);
        t.emplace(RoundHalfEven, RoundHalfEvenFunction);
        return t;
    }();
    return table;
}

// Built while the library loads; the function-local static above still covers a
// static initialiser elsewhere that rounds before this line has run.
[[maybe_unused]] RoundTable const &g_roundTable = Table();

} // namespace

Decimal::Decimal(double value, int scale)
{
    if (!qFuzzyIsNull(value)) {
        double const magnitude = std::log10(std::fabs(value));
        std::int32_t const integerDigits = magnitude < 0 ? 0 : detail::TruncateToInt32(magnitude + 1);
        // At most 18 digits fit the value field without overflow.
        if (detail::WrapAdd32(integerDigits, scale) > 18)
            scale = detail::WrapSub32(18, integerDigits);
    }
    double const factor = scale >= 0 ? SquaredPowerOfTen(static_cast<std::uint32_t>(scale))
                                     : 1.0 / SquaredPowerOfTen(0u - static_cast<std::uint32_t>(scale));
    m_value = TruncateToInt64(value * factor);
    m_scale = scale;
}

void Decimal::Round(int target, RoundMode mode)
{
    if (m_scale == target)
        return;
    if (m_scale < target)
        mode = RoundDown;
    RoundTable const &table = Table();
    auto const found = table.find(mode);
    if (found != table.end())
        found->second(*this, target);
}

double Decimal::ToDouble() const
{
    return static_cast<double>(m_value) / PowerOfTen(m_scale);
}

} // namespace base
