// Feeds arbitrary bytes to the Json::Number text parser, then drives everything a parsed
// number reaches: printing, comparisons, arithmetic, rounding from a double. Printing a
// valid number and parsing the text again must give the same number back.
#include "foundation/decimal.h"
#include "foundation/json_number.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr std::int64_t kTwoTo53 = std::int64_t(1) << 53;

void Check(bool condition)
{
    if (!condition)
        std::abort();
}

bool SameFields(Json::Number const &a, Json::Number const &b)
{
    return a.IsValid() == b.IsValid() && a.GetMantissa() == b.GetMantissa() && a.GetDigits() == b.GetDigits();
}

void CheckText(Json::NumberText const &text)
{
    Check(text.size() < Json::NumberText::Capacity);
    Check(std::strlen(text.c_str()) == text.size());
}

void CheckRoundTrip(Json::Number const &n)
{
    if (!n.IsValid())
        return;
    std::int64_t const m = n.GetMantissa();
    int const digits = n.GetDigits();
    bool const exactMantissa = m > -kTwoTo53 && m < kTwoTo53;
    // Negative mantissas of 19 digits from 922337203685477580... lose a digit on the way
    // back, by the parser's digit limit.
    if (digits > 0 && digits <= 40 && m > -9223372036854775800LL) {
        Check(SameFields(Json::Number(n.ToString(false).c_str()), n));
        if (exactMantissa) {
            Check(Json::Number(n.ToString(true).c_str()) == n);
            Check(n.Normalized() == n);
        }
    }
    if (digits == 0 && exactMantissa) {
        Check(SameFields(Json::Number(n.ToString(true).c_str()), n));
        Check(SameFields(n.Normalized(), n));
    }
}

void Exercise(Json::Number const &n)
{
    CheckText(n.ToString(false));
    CheckText(n.ToString(true));
    CheckText(n.ToFixedString());
    double value = 0;
    (void)n.GetValue(value);
    (void)n.ToInt64();
    (void)n.HasFraction();
    CheckText(n.Normalized().ToString(true));
    CheckText(Json::Abs(n).ToString(false));
    CheckRoundTrip(n);
}

void Combine(Json::Number const &a, Json::Number const &b)
{
    auto const compareAll = [](auto const &left, auto const &right) {
        volatile bool sink = left == right;
        sink = left != right;
        sink = left < right;
        sink = left <= right;
        sink = left > right;
        sink = left >= right;
        (void)sink;
    };
    compareAll(a, b);
    compareAll(a, b.ToDouble());
    compareAll(b.ToDouble(), a);
    // An invalid side leaves a sum as its left side.
    if (!b.IsValid())
        Check(SameFields(a + b, a) && SameFields(a * b, a));

    auto const i = static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(b.GetMantissa())));
    Json::Number c = a;
    c += b;
    c -= b;
    c *= b;
    c += i;
    c -= i;
    c *= i;
    Exercise(c);
    Exercise(a + b);
    Exercise(a - b);
    Exercise(a * b);
    Exercise(a + i);
    Exercise(a - i);
    Exercise(a * i);
}

void FromDouble(Json::Number const &a, Json::Number const &b)
{
    // Digits from the second number, kept small enough to stay quick.
    int const digits = int(static_cast<std::uint32_t>(b.GetDigits()) % 48) - 6;
    Json::Number const rounded(a.ToDouble(), digits);
    Exercise(rounded);
    Check(!rounded.IsValid() || digits <= 0 || rounded.GetDigits() <= digits);

    base::Decimal const fromDouble(a.ToDouble(), b.GetDigits());
    (void)fromDouble.ToDouble();
    // Every mode and one that is not in the table.
    for (int mode = 0; mode < 8; ++mode) {
        base::Decimal d;
        d.Set(a.GetMantissa(), a.GetDigits());
        d.Round(b.GetDigits(), base::RoundMode(mode));
        (void)d.ToDouble();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size)
{
    // Two texts: the bytes up to the first zero, and those after it.
    std::string const bytes(reinterpret_cast<char const *>(data), size);
    std::size_t const split = bytes.find('\0');
    Json::Number const a(bytes.c_str());
    Json::Number const b(split == std::string::npos ? "" : bytes.c_str() + split + 1);
    Check(SameFields(a, Json::Number(bytes)));

    Exercise(a);
    Exercise(b);
    Combine(a, b);
    Combine(b, a);
    FromDouble(a, b);
    return 0;
}
