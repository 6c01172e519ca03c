#include "foundation/json_number.h"

#include <QtTest>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

using Json::Number;

Q_DECLARE_METATYPE(Json::Number)

namespace {

constexpr qint64 kInt64Max = std::numeric_limits<qint64>::max();
constexpr qint64 kInt64Min = std::numeric_limits<qint64>::min();
constexpr qint64 kTwoTo53 = qint64(1) << 53;

QByteArray Text(Json::NumberText const &text)
{
    return QByteArray(text.data(), int(text.size()));
}

QByteArray Fields(Number const &n)
{
    return QByteArray(n.IsValid() ? "valid " : "invalid ") + QByteArray::number(qint64(n.GetMantissa())) + " e-"
           + QByteArray::number(n.GetDigits());
}

// The answers of == != < <= > >=, as "0" and "1".
template <typename L, typename R>
QByteArray Answers(L const &left, R const &right)
{
    bool const answers[] = {left == right, left != right, left < right, left <= right, left > right, left >= right};
    QByteArray text;
    for (bool answer : answers)
        text += answer ? '1' : '0';
    return text;
}

// An invalid number whose fields are not zero.
Number InvalidWithFields()
{
    Number n;
    n.SetDigits(2);
    n += 1;
    return n;
}

} // namespace

class TestJsonNumber : public QObject
{
    Q_OBJECT

private slots:
    void integerArgumentsMeanMantissaAndDigits();
    void state();

    void printing_data();
    void printing();
    void printingIsCutAt63Characters();
    void fixedString_data();
    void fixedString();

    void parsing_data();
    void parsing();
    void parsingStopsAtTheEndingZero();

    void compareWithDouble_data();
    void compareWithDouble();
    void compareNumbers_data();
    void compareNumbers();

    void arithmetic_data();
    void arithmetic();
    void compoundWithInvalidSide();

    void normalized_data();
    void normalized();
    void absoluteValue();
    void hasFraction_data();
    void hasFraction();

    void fromDouble_data();
    void fromDouble();
    void fromDoubleMatchesPrintf();
    void fromDoubleWithManyDigits();

    void printThenParseGivesTheSameNumber();
    void toDoubleIsMantissaOverPowerOfTen();
};

void TestJsonNumber::integerArgumentsMeanMantissaAndDigits()
{
    // With a double in the mix the rounding constructor would make (100, 2).
    QCOMPARE(Fields(Number(1, 2)), QByteArray("valid 1 e-2"));
    QCOMPARE(Fields(Number(1u, 2L)), QByteArray("valid 1 e-2"));
    QCOMPARE(Fields(Number(qint64(7), short(1))), QByteArray("valid 7 e-1"));
    QCOMPARE(Fields(Number(1.0, 2)), QByteArray("valid 100 e-2"));
    QCOMPARE(Fields(Number(0.5f, 1)), QByteArray("valid 5 e-1"));
    constexpr Number atCompileTime(3, 1);
    static_assert(atCompileTime.GetMantissa() == 3 && atCompileTime.GetDigits() == 1);
}

void TestJsonNumber::state()
{
    Number n;
    QCOMPARE(Fields(n), QByteArray("invalid 0 e-0"));
    double out = 42.0;
    QVERIFY(!n.GetValue(out));
    QCOMPARE(out, 42.0);
    n.SetDigits(1);
    QVERIFY(!n.IsValid());
    n.SetMantissa(-15);
    QCOMPARE(Fields(n), QByteArray("valid -15 e-1"));
    QVERIFY(n.GetValue(out));
    QCOMPARE(out, -1.5);
    QCOMPARE(n.ToInt64(), qint64(-1));
    n.Set(15, -2);
    QCOMPARE(n.ToInt64(), qint64(1500));
    n.Clear();
    QCOMPARE(Fields(n), QByteArray("invalid 0 e-0"));
    // An invalid number still converts what its fields hold.
    n -= 3;
    QCOMPARE(n.ToDouble(), -3.0);
}

void TestJsonNumber::printing_data()
{
    QTest::addColumn<qint64>("mantissa");
    QTest::addColumn<int>("digits");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("trimmed");

    QTest::newRow("hundredth") << qint64(1) << 2 << QByteArray("0.01") << QByteArray("0.01");
    QTest::newRow("negative below one") << qint64(-5) << 3 << QByteArray("-0.005") << QByteArray("-0.005");
    QTest::newRow("zeros kept") << qint64(100) << 2 << QByteArray("1.00") << QByteArray("1");
    QTest::newRow("zero with digits") << qint64(0) << 2 << QByteArray("0.00") << QByteArray("0");
    QTest::newRow("negative digits") << qint64(15) << -1 << QByteArray("150") << QByteArray("150");
    QTest::newRow("integer zeros stay") << qint64(100) << 0 << QByteArray("100") << QByteArray("100");
    QTest::newRow("half trimmed") << qint64(1500) << 3 << QByteArray("1.500") << QByteArray("1.5");
    QTest::newRow("negative trimmed") << qint64(-1000) << 3 << QByteArray("-1.000") << QByteArray("-1");
    QTest::newRow("zero inside fraction") << qint64(105) << 1 << QByteArray("10.5") << QByteArray("10.5");
    QTest::newRow("digits equal count") << qint64(123) << 3 << QByteArray("0.123") << QByteArray("0.123");
    QTest::newRow("price") << qint64(12345678) << 3 << QByteArray("12345.678") << QByteArray("12345.678");
    QTest::newRow("largest") << kInt64Max << 2 << QByteArray("92233720368547758.07")
                             << QByteArray("92233720368547758.07");
    QTest::newRow("lowest") << kInt64Min << 4 << QByteArray("-922337203685477.5808")
                            << QByteArray("-922337203685477.5808");
    QTest::newRow("lowest integer") << kInt64Min << 0 << QByteArray("-9223372036854775808")
                                    << QByteArray("-9223372036854775808");
    // Digits 0 or below go through a double: inexact past 2^53, and the largest
    // mantissa rounds up to 2^63, which wraps.
    QTest::newRow("integer past 2^53") << kTwoTo53 + 1 << 0 << QByteArray("9007199254740992")
                                       << QByteArray("9007199254740992");
    QTest::newRow("largest integer wraps") << kInt64Max << 0 << QByteArray("-9223372036854775808")
                                           << QByteArray("-9223372036854775808");
    QTest::newRow("thousands") << qint64(-42) << -3 << QByteArray("-42000") << QByteArray("-42000");
    // mantissa / 10^digits: 1e-5 is a little above the exact power.
    QTest::newRow("inexact negative power") << qint64(1) << -5 << QByteArray("99999") << QByteArray("99999");
}

void TestJsonNumber::printing()
{
    QFETCH(qint64, mantissa);
    QFETCH(int, digits);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, trimmed);
    Number const n(mantissa, digits);
    QCOMPARE(Text(n.ToString(false)), plain);
    QCOMPARE(Text(n.ToString(true)), trimmed);
    QVERIFY(n.ToString(true) == std::string(trimmed.constData()));
    QCOMPARE(QString::fromStdString(n.ToString(false)), QString::fromLatin1(plain));
}

void TestJsonNumber::printingIsCutAt63Characters()
{
    QByteArray const zeros = "0." + QByteArray(61, '0');
    QCOMPARE(Text(Number(1, 100).ToString(false)), zeros);
    QCOMPARE(Text(Number(1, 100).ToString(true)), QByteArray("0"));
    QCOMPARE(Text(Number(-7, 60).ToString(false)), "-0." + QByteArray(59, '0') + "7");
    QCOMPARE(Text(Number(-7, 61).ToString(false)), "-0." + QByteArray(60, '0'));
    QCOMPARE(Number(3, 1000000000).ToString(false).size(), std::size_t(63));
}

void TestJsonNumber::fixedString_data()
{
    QTest::addColumn<Number>("number");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("hundredth") << Number(1, 2) << QByteArray("0.01");
    QTest::newRow("zeros trimmed") << Number(100, 2) << QByteArray("1");
    QTest::newRow("negative") << Number(-5, 3) << QByteArray("-0.005");
    QTest::newRow("no digits uses six") << Number(123456789, 0) << QByteArray("123456789");
    QTest::newRow("negative digits") << Number(15, -1) << QByteArray("150");
    QTest::newRow("tiny") << Number(1, 20) << QByteArray("0.00000000000000000001");
    // Through the double, unlike ToString.
    QTest::newRow("past 2^53") << Number(kTwoTo53 + 1, 2) << QByteArray("90071992547409.92");
    QTest::newRow("invalid prints its fields") << Number() << QByteArray("0");
}

void TestJsonNumber::fixedString()
{
    QFETCH(Number, number);
    QFETCH(QByteArray, expected);
    QCOMPARE(Text(number.ToFixedString()), expected);
}

void TestJsonNumber::parsing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("mantissa");
    QTest::addColumn<int>("digits");

    QTest::newRow("price") << QByteArray("12345.678") << true << qint64(12345678) << 3;
    QTest::newRow("negative") << QByteArray("-0.005") << true << qint64(-5) << 3;
    QTest::newRow("zeros kept") << QByteArray("1.50") << true << qint64(150) << 2;
    QTest::newRow("empty is zero") << QByteArray("") << true << qint64(0) << 0;
    QTest::newRow("minus alone") << QByteArray("-") << true << qint64(0) << 0;
    QTest::newRow("no integer part") << QByteArray(".5") << true << qint64(5) << 1;
    QTest::newRow("second dot skipped") << QByteArray("1.2.3") << true << qint64(123) << 2;
    QTest::newRow("exponent") << QByteArray("1.5e2") << true << qint64(15) << -1;
    QTest::newRow("exponent with plus") << QByteArray("1E+3") << true << qint64(1) << -3;
    QTest::newRow("negative exponent") << QByteArray("2e-2") << true << qint64(2) << 2;
    QTest::newRow("empty exponent") << QByteArray("1e") << true << qint64(1) << 0;
    QTest::newRow("exponent ends at junk") << QByteArray("1.5e2x") << true << qint64(15) << -1;
    QTest::newRow("exponent after dot") << QByteArray("3.e1") << true << qint64(3) << -1;
    QTest::newRow("exponent saturates") << QByteArray("1e99999999999") << true << qint64(1) << -2147483647;
    QTest::newRow("dot at end") << QByteArray("12.") << false << qint64(0) << 0;
    QTest::newRow("two dots") << QByteArray("1..2") << false << qint64(0) << 0;
    QTest::newRow("minus dot") << QByteArray("-.") << false << qint64(0) << 0;
    QTest::newRow("letters") << QByteArray("abc") << false << qint64(0) << 0;
    QTest::newRow("plus") << QByteArray("+1") << false << qint64(0) << 0;
    QTest::newRow("space") << QByteArray("1 ") << false << qint64(0) << 0;
    // The digit limits: at or above a tenth of the range no further digit is read.
    QTest::newRow("20 digits") << QByteArray("99999999999999999999") << false << qint64(0) << 0;
    QTest::newRow("20 digits at cutoff") << QByteArray("18446744073709551610") << false << qint64(0) << 0;
    QTest::newRow("20 digits below cutoff wrap") << QByteArray("18446744073709551609") << true << qint64(-7) << 0;
    QTest::newRow("negative at cutoff") << QByteArray("-9223372036854775807") << false << qint64(0) << 0;
    QTest::newRow("negative below cutoff") << QByteArray("-9223372036854775799") << true
                                           << qint64(-9223372036854775799LL) << 0;
    QTest::newRow("long fraction stops") << QByteArray("0.12345678901234567890123") << true
                                         << qint64(12345678901234567890ULL) << 20;
    QTest::newRow("fraction digit dropped at once") << QByteArray("1844674407370955161.5") << true
                                                    << qint64(1844674407370955161LL) << 0;
}

void TestJsonNumber::parsing()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, valid);
    QFETCH(qint64, mantissa);
    QFETCH(int, digits);
    Number const fromPointer(text.constData());
    Number const fromString(std::string(text.constData()));
    QCOMPARE(fromPointer.IsValid(), valid);
    QCOMPARE(fromPointer.GetMantissa(), mantissa);
    QCOMPARE(fromPointer.GetDigits(), digits);
    QCOMPARE(Fields(fromString), Fields(fromPointer));
}

void TestJsonNumber::parsingStopsAtTheEndingZero()
{
    QCOMPARE(Fields(Number(std::string("12\0x", 4))), QByteArray("valid 12 e-0"));
    QCOMPARE(Fields(Number(static_cast<char const *>(nullptr))), QByteArray("invalid 0 e-0"));
}

void TestJsonNumber::compareWithDouble_data()
{
    QTest::addColumn<Number>("number");
    QTest::addColumn<double>("value");
    // Number first: == != < <= > >=, then double first in the same order.
    QTest::addColumn<QByteArray>("answers");

    QTest::newRow("invalid vs 1") << Number() << 1.0 << QByteArray("010011 011100");
    QTest::newRow("invalid vs its own value") << Number() << 0.0 << QByteArray("010011 011100");
    QTest::newRow("equal") << Number(1, 2) << 0.01 << QByteArray("100101 100101");
    QTest::newRow("fuzzily equal") << Number(10000000000001LL, 13) << 1.0 << QByteArray("100101 100101");
    QTest::newRow("below") << Number(1, 2) << 0.02 << QByteArray("011100 010011");
    QTest::newRow("above") << Number(-5, 3) << -0.01 << QByteArray("010011 011100");
    QTest::newRow("zero") << Number(0, 3) << 0.0 << QByteArray("100101 100101");
}

void TestJsonNumber::compareWithDouble()
{
    QFETCH(Number, number);
    QFETCH(double, value);
    QFETCH(QByteArray, answers);
    QByteArray const got = Answers(number, value) + ' ' + Answers(value, number);
    QCOMPARE(got, answers);
}

void TestJsonNumber::compareNumbers_data()
{
    QTest::addColumn<Number>("left");
    QTest::addColumn<Number>("right");
    // == != < <= > >=
    QTest::addColumn<QByteArray>("answers");

    QTest::newRow("rescaled equal") << Number(10, 1) << Number(1, 0) << QByteArray("100101");
    QTest::newRow("negative digits") << Number(15, -1) << Number(150, 0) << QByteArray("100101");
    QTest::newRow("less") << Number(1, 2) << Number(2, 2) << QByteArray("011100");
    QTest::newRow("less across digits") << Number(-1, 2) << Number(-5, 3) << QByteArray("011100");
    QTest::newRow("greater across digits") << Number(3, 1) << Number(29, 2) << QByteArray("010011");
    QTest::newRow("invalid left") << Number() << Number(0, 0) << QByteArray("010000");
    QTest::newRow("invalid right") << Number(0, 0) << Number() << QByteArray("010000");
    QTest::newRow("both invalid") << Number() << Number() << QByteArray("010000");
    // Mantissas pass through a double, also at equal digits.
    QTest::newRow("equal past 2^53") << Number(kTwoTo53 + 1, 0) << Number(kTwoTo53, 0) << QByteArray("100101");
    QTest::newRow("largest wraps below zero") << Number(kInt64Max, 0) << Number(0, 0) << QByteArray("011100");
}

void TestJsonNumber::compareNumbers()
{
    QFETCH(Number, left);
    QFETCH(Number, right);
    QFETCH(QByteArray, answers);
    QByteArray const got = Answers(left, right);
    QCOMPARE(got, answers);
}

void TestJsonNumber::arithmetic_data()
{
    QTest::addColumn<Number>("result");
    QTest::addColumn<Number>("expected");

    Number const cent(1, 2);
    QTest::newRow("sum across digits") << cent + Number(5, 1) << Number(51, 2);
    QTest::newRow("difference across digits") << cent - Number(5, 1) << Number(-49, 2);
    QTest::newRow("sum with negative digits") << Number(15, -1) + Number(5, 0) << Number(155, 0);
    QTest::newRow("product") << Number(15, 1) * Number(3, 2) << Number(45, 3);
    QTest::newRow("product wraps") << Number(kInt64Max, 0) * Number(2, 0) << Number(-2, 0);
    QTest::newRow("difference wraps") << Number(kInt64Min, 0) - Number(1, 0) << Number(kInt64Max, 0);
    QTest::newRow("invalid right keeps left") << cent + Number() << cent;
    QTest::newRow("invalid left stays") << Number() * cent << Number();
    QTest::newRow("plus int in units") << cent + 1 << Number(101, 2);
    QTest::newRow("minus int in units") << cent - 1 << Number(-99, 2);
    QTest::newRow("times int") << cent * -3 << Number(-3, 2);
    QTest::newRow("invalid plus int") << Number() + 1 << Number();
    // + int truncates the step to 32 bits and keeps negative digits; += works in 64
    // bits and raises the digits to 0 first.
    QTest::newRow("plus int 32-bit step") << Number(1, 10) + 1 << Number(1410065409, 10);
    QTest::newRow("plus int negative digits") << Number(15, -1) + 1 << Number(15, -1);
    QTest::newRow("compound plus 64-bit step") << (Number(1, 10) += 1) << Number(10000000001LL, 10);
    QTest::newRow("compound plus negative digits") << (Number(15, -1) += 1) << Number(151, 0);
    QTest::newRow("compound minus") << (Number(5, 1) -= 2) << Number(-15, 1);
    QTest::newRow("compound times") << (Number(5, 1) *= Number(5, 1)) << Number(25, 2);
    QTest::newRow("compound difference") << (Number(5, 1) -= Number(25, 2)) << Number(25, 2);
}

void TestJsonNumber::arithmetic()
{
    QFETCH(Number, result);
    QFETCH(Number, expected);
    QCOMPARE(Fields(result), Fields(expected));
}

void TestJsonNumber::compoundWithInvalidSide()
{
    Number n(5, 1);
    n += Number();
    n -= Number();
    n *= Number();
    QCOMPARE(Fields(n), QByteArray("valid 5 e-1"));

    Number invalid;
    invalid *= 3;
    invalid += Number(1, 0);
    QCOMPARE(Fields(invalid), QByteArray("invalid 0 e-0"));
    // Compound int steps do not look at the flag.
    invalid.SetDigits(-2);
    invalid -= 1;
    QCOMPARE(Fields(invalid), QByteArray("invalid -1 e-0"));
}

void TestJsonNumber::normalized_data()
{
    QTest::addColumn<Number>("number");
    QTest::addColumn<Number>("expected");

    QTest::newRow("trailing zeros") << Number(1500, 3) << Number(15, 1);
    QTest::newRow("to integer") << Number(-100, 2) << Number(-1, 0);
    QTest::newRow("nothing to drop") << Number(123, 2) << Number(123, 2);
    QTest::newRow("zero") << Number(0, 5) << Number(0, 0);
    QTest::newRow("zero negative digits") << Number(0, -3) << Number(0, 0);
    QTest::newRow("digits 0 kept") << Number(1000, 0) << Number(1000, 0);
    QTest::newRow("negative digits") << Number(15, -2) << Number(1500, 0);
    QTest::newRow("invalid") << InvalidWithFields() << Number();
}

void TestJsonNumber::normalized()
{
    QFETCH(Number, number);
    QFETCH(Number, expected);
    QCOMPARE(Fields(number.Normalized()), Fields(expected));
}

void TestJsonNumber::absoluteValue()
{
    Number const negative(-5, 3);
    QCOMPARE(Fields(Abs(negative)), QByteArray("valid 5 e-3"));
    QCOMPARE(Fields(Json::Abs(Number(5, 3))), QByteArray("valid 5 e-3"));
    QCOMPARE(Fields(Number::Abs(Number(kInt64Min, 0))), QByteArray("valid ") + QByteArray::number(kInt64Min) + " e-0");
    QCOMPARE(Fields(Abs(Number())), QByteArray("invalid 0 e-0"));
    Number invalidNegative;
    invalidNegative -= 2;
    QCOMPARE(Fields(Abs(invalidNegative)), QByteArray("valid 2 e-0"));
}

void TestJsonNumber::hasFraction_data()
{
    QTest::addColumn<Number>("number");
    QTest::addColumn<bool>("expected");

    QTest::newRow("invalid") << Number() << true;
    QTest::newRow("fraction") << Number(150, 2) << true;
    QTest::newRow("zeros only") << Number(100, 2) << false;
    QTest::newRow("negative digits") << Number(15, -1) << false;
    QTest::newRow("zero") << Number(0, 3) << false;
    QTest::newRow("negative fraction") << Number(-5, 1) << true;
    QTest::newRow("fuzzily whole") << Number(10000000000001LL, 13) << false;
}

void TestJsonNumber::hasFraction()
{
    QFETCH(Number, number);
    QFETCH(bool, expected);
    QCOMPARE(number.HasFraction(), expected);
}

void TestJsonNumber::fromDouble_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("digits");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("digits 0 truncates") << 2.5 << 0 << QByteArray("valid 2 e-0");
    QTest::newRow("negative digits truncate") << 1234.5 << -2 << QByteArray("valid 1234 e-0");
    QTest::newRow("half rounds up") << 0.125 << 2 << QByteArray("valid 13 e-2");
    QTest::newRow("negative half away") << -0.125 << 2 << QByteArray("valid -13 e-2");
    // 1.005 is stored as 1.00499999999999989...
    QTest::newRow("binary below half") << 1.005 << 2 << QByteArray("valid 100 e-2");
    QTest::newRow("price") << 1234.5678 << 2 << QByteArray("valid 123457 e-2");
    QTest::newRow("carry") << 9.995 << 2 << QByteArray("valid 1000 e-2");
    QTest::newRow("zero keeps digits") << 0.0 << 3 << QByteArray("valid 0 e-3");
    QTest::newRow("fuzzy zero") << 1e-20 << 2 << QByteArray("valid 0 e-2");
    QTest::newRow("nan") << std::nan("") << 2 << QByteArray("invalid 0 e-0");
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << 0 << QByteArray("invalid 0 e-0");
    QTest::newRow("integer wraps past 2^63") << 1e19 << 0 << QByteArray("valid -8446744073709551616 e-0");
}

void TestJsonNumber::fromDouble()
{
    QFETCH(double, value);
    QFETCH(int, digits);
    QFETCH(QByteArray, expected);
    QCOMPARE(Fields(Number(value, digits)), expected);
}

void TestJsonNumber::fromDoubleMatchesPrintf()
{
    // For values that are already on the grid the round trip through text is exact.
    std::mt19937_64 random(20240501);
    for (int i = 0; i < 20000; ++i) {
        int const digits = 1 + int(random() % 6);
        qint64 const mantissa = qint64(random() % 2000000001) - 1000000000;
        double const value = double(mantissa) / std::pow(10.0, digits);
        Number const n(value, digits);
        char expected[64];
        std::snprintf(expected, sizeof(expected), "%.*f", digits, value);
        if (Fields(n) != Fields(Number(mantissa, digits)) || Text(n.ToString(false)) != QByteArray(expected))
            QFAIL(qPrintable(QStringLiteral("%1 e-%2 came back as %3")
                                 .arg(mantissa)
                                 .arg(digits)
                                 .arg(QString::fromLatin1(Fields(n)))));
    }
}

void TestJsonNumber::fromDoubleWithManyDigits()
{
    // More digits than a double has: the printed zeros still count.
    QCOMPARE(Fields(Number(0.0, 70)), QByteArray("valid 0 e-70"));
    QCOMPARE(Fields(Number(1e-300, 5000)), QByteArray("valid 0 e-5000"));
    QCOMPARE(Fields(Number(1.0, 3000)), QByteArray("valid 0 e-3000"));
    QCOMPARE(Number(0.5, std::numeric_limits<int>::max()).GetDigits(), std::numeric_limits<int>::max());
}

void TestJsonNumber::printThenParseGivesTheSameNumber()
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 200000; ++i) {
        int const digits = int(random() % 42) - 1;
        std::uint64_t const bits = random() >> (random() % 64);
        qint64 mantissa = static_cast<qint64>(random() % 2 ? bits : 0 - bits);
        Number const n(mantissa, digits);
        Number const plain(n.ToString(false).c_str());
        Number const trimmed(std::string(n.ToString(true)));
        bool ok = true;
        if (digits > 0 && digits <= 40 && mantissa > -9223372036854775800LL) {
            // Exact fields: printing a positive digit count loses nothing.
            ok = plain.GetMantissa() == mantissa && plain.GetDigits() == digits && plain.IsValid();
            if (mantissa > -kTwoTo53 && mantissa < kTwoTo53)
                ok = ok && trimmed == n;
        } else if (digits == 0 && mantissa > -kTwoTo53 && mantissa < kTwoTo53) {
            ok = Fields(plain) == Fields(n) && Fields(trimmed) == Fields(n);
        }
        if (!ok)
            QFAIL(qPrintable(QStringLiteral("%1 e-%2 printed as %3")
                                 .arg(mantissa)
                                 .arg(digits)
                                 .arg(QString::fromLatin1(Text(n.ToString(false))))));
    }
}

void TestJsonNumber::toDoubleIsMantissaOverPowerOfTen()
{
    std::mt19937_64 random(11);
    for (int digits = -40; digits <= 40; ++digits) {
        for (int i = 0; i < 200; ++i) {
            qint64 const mantissa = static_cast<qint64>(random()) >> (random() % 63);
            double const expected = double(mantissa) / std::pow(10.0, digits);
            Number const n(mantissa, digits);
            QCOMPARE(n.ToDouble(), expected);
            if (digits <= 0 && std::fabs(expected) < 9e18)
                QCOMPARE(Text(n.ToString(false)), QByteArray::number(qint64(expected)));
        }
    }
}

QTEST_GUILESS_MAIN(TestJsonNumber)
#include "tst_json_number.moc"
