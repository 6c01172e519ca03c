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
    QByteArray text;
    for (bool answer : {left == right, left != right, left < right, left <= right, left > right, left >= right})
        text += answer ? '1' : '0';
    return text;
}

// An invalid number that holds fields: int steps do not look at the flag.
Number Invalid(int digits, int step)
{
    Number n;
    n.SetDigits(digits);
    return n += step;
}

} // namespace

class TestJsonNumber : public QObject
{
    Q_OBJECT

private slots:
    void printing_data()
    {
        QTest::addColumn<qint64>("mantissa");
        QTest::addColumn<int>("digits");
        QTest::addColumn<QByteArray>("plain");
        QTest::addColumn<QByteArray>("trimmed");

        QTest::newRow("negative below one") << qint64(-5) << 3 << QByteArray("-0.005") << QByteArray("-0.005");
        QTest::newRow("zeros kept") << qint64(100) << 2 << QByteArray("1.00") << QByteArray("1");
        QTest::newRow("zero with digits") << qint64(0) << 2 << QByteArray("0.00") << QByteArray("0");
        QTest::newRow("integer zeros stay") << qint64(100) << 0 << QByteArray("100") << QByteArray("100");
        QTest::newRow("half trimmed") << qint64(1500) << 3 << QByteArray("1.500") << QByteArray("1.5");
        QTest::newRow("negative trimmed") << qint64(-1000) << 3 << QByteArray("-1.000") << QByteArray("-1");
        QTest::newRow("zero inside fraction") << qint64(105) << 1 << QByteArray("10.5") << QByteArray("10.5");
        QTest::newRow("digits equal count") << qint64(123) << 3 << QByteArray("0.123") << QByteArray("0.123");
        QTest::newRow("largest") << kInt64Max << 2 << QByteArray("92233720368547758.07")
                                 << QByteArray("92233720368547758.07");
        QTest::newRow("lowest") << kInt64Min << 4 << QByteArray("-922337203685477.5808")
                                << QByteArray("-922337203685477.5808");
        QTest::newRow("lowest integer") << kInt64Min << 0 << QByteArray("-9223372036854775808")
                                        << QByteArray("-9223372036854775808");
        // Digits 0 or below go through a double: inexact past 2^53, and the largest
        // mantissa rounds up to 2^63, which wraps; 1e-5 is a little above the exact power.
        QTest::newRow("integer past 2^53") << kTwoTo53 + 1 << 0 << QByteArray("9007199254740992")
                                           << QByteArray("9007199254740992");
        QTest::newRow("largest integer wraps") << kInt64Max << 0 << QByteArray("-9223372036854775808")
                                               << QByteArray("-9223372036854775808");
        QTest::newRow("thousands") << qint64(-42) << -3 << QByteArray("-42000") << QByteArray("-42000");
        QTest::newRow("inexact negative power") << qint64(1) << -5 << QByteArray("99999") << QByteArray("99999");
        // Cut at 63 characters.
        QTest::newRow("cut") << qint64(1) << 100 << "0." + QByteArray(61, '0') << QByteArray("0");
        QTest::newRow("cut, huge digits") << qint64(3) << 1000000000 << "0." + QByteArray(61, '0') << QByteArray("0");
        QTest::newRow("just fits") << qint64(-7) << 60 << "-0." + QByteArray(59, '0') + "7"
                                   << "-0." + QByteArray(59, '0') + "7";
    }
    void printing()
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

    void fixedStringAndFraction_data()
    {
        QTest::addColumn<Number>("number");
        QTest::addColumn<QByteArray>("fixed");
        QTest::addColumn<bool>("fraction");

        QTest::newRow("hundredth") << Number(1, 2) << QByteArray("0.01") << true;
        QTest::newRow("zeros trimmed") << Number(100, 2) << QByteArray("1") << false;
        QTest::newRow("negative") << Number(-5, 3) << QByteArray("-0.005") << true;
        QTest::newRow("no digits uses six") << Number(123456789, 0) << QByteArray("123456789") << false;
        QTest::newRow("negative digits") << Number(15, -1) << QByteArray("150") << false;
        QTest::newRow("zero") << Number(0, 3) << QByteArray("0") << false;
        QTest::newRow("tiny") << Number(1, 20) << QByteArray("0.00000000000000000001") << true;
        QTest::newRow("fuzzily whole") << Number(10000000000001LL, 13) << QByteArray("1.0000000000001") << false;
        // Through the double, unlike ToString.
        QTest::newRow("past 2^53") << Number(kTwoTo53 + 1, 2) << QByteArray("90071992547409.92") << false;
        QTest::newRow("invalid prints its fields") << Number() << QByteArray("0") << true;
    }
    void fixedStringAndFraction()
    {
        QFETCH(Number, number);
        QFETCH(QByteArray, fixed);
        QFETCH(bool, fraction);
        QCOMPARE(Text(number.ToFixedString()), fixed);
        QCOMPARE(number.HasFraction(), fraction);
    }

    void parsing_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("expected");

        QTest::newRow("price") << QByteArray("12345.678") << QByteArray("valid 12345678 e-3");
        QTest::newRow("negative") << QByteArray("-0.005") << QByteArray("valid -5 e-3");
        QTest::newRow("zeros kept") << QByteArray("1.50") << QByteArray("valid 150 e-2");
        QTest::newRow("empty is zero") << QByteArray("") << QByteArray("valid 0 e-0");
        QTest::newRow("minus alone") << QByteArray("-") << QByteArray("valid 0 e-0");
        QTest::newRow("no integer part") << QByteArray(".5") << QByteArray("valid 5 e-1");
        QTest::newRow("second dot skipped") << QByteArray("1.2.3") << QByteArray("valid 123 e-2");
        QTest::newRow("exponent") << QByteArray("1.5e2") << QByteArray("valid 15 e--1");
        QTest::newRow("exponent with plus") << QByteArray("1E+3") << QByteArray("valid 1 e--3");
        QTest::newRow("negative exponent") << QByteArray("2e-2") << QByteArray("valid 2 e-2");
        QTest::newRow("empty exponent") << QByteArray("1e") << QByteArray("valid 1 e-0");
        QTest::newRow("exponent ends at junk") << QByteArray("1.5e2x") << QByteArray("valid 15 e--1");
        QTest::newRow("exponent after dot") << QByteArray("3.e1") << QByteArray("valid 3 e--1");
        QTest::newRow("exponent saturates") << QByteArray("1e99999999999") << QByteArray("valid 1 e--2147483647");
        QTest::newRow("stops at the ending zero") << QByteArray("12\0x", 4) << QByteArray("valid 12 e-0");
        QTest::newRow("dot at end") << QByteArray("12.") << QByteArray("invalid 0 e-0");
        QTest::newRow("two dots") << QByteArray("1..2") << QByteArray("invalid 0 e-0");
        QTest::newRow("minus dot") << QByteArray("-.") << QByteArray("invalid 0 e-0");
        QTest::newRow("letters") << QByteArray("abc") << QByteArray("invalid 0 e-0");
        QTest::newRow("plus") << QByteArray("+1") << QByteArray("invalid 0 e-0");
        QTest::newRow("space") << QByteArray("1 ") << QByteArray("invalid 0 e-0");
        // The digit limits: at or above a tenth of the range no further digit is read.
        QTest::newRow("20 digits") << QByteArray("99999999999999999999") << QByteArray("invalid 0 e-0");
        QTest::newRow("20 digits at cutoff") << QByteArray("18446744073709551610") << QByteArray("invalid 0 e-0");
        QTest::newRow("20 digits below cutoff") << QByteArray("18446744073709551609") << QByteArray("valid -7 e-0");
        QTest::newRow("negative at cutoff") << QByteArray("-9223372036854775807") << QByteArray("invalid 0 e-0");
        QTest::newRow("negative below cutoff") << QByteArray("-9223372036854775799")
                                               << QByteArray("valid -9223372036854775799 e-0");
        QTest::newRow("long fraction stops") << QByteArray("0.12345678901234567890123")
                                             << QByteArray("valid -6101065172474983726 e-20");
        QTest::newRow("fraction digit dropped at once") << QByteArray("1844674407370955161.5")
                                                        << QByteArray("valid 1844674407370955161 e-0");
    }
    void parsing()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, expected);
        QCOMPARE(Fields(Number(text.constData())), expected);
        QCOMPARE(Fields(Number(std::string(text.constData(), std::size_t(text.size())))), expected);
        QCOMPARE(Fields(Number(static_cast<char const *>(nullptr))), QByteArray("invalid 0 e-0"));
    }

    void compareWithDouble_data()
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
    void compareWithDouble()
    {
        QFETCH(Number, number);
        QFETCH(double, value);
        QFETCH(QByteArray, answers);
        QCOMPARE(Answers(number, value) + ' ' + Answers(value, number), answers);
    }

    void compareNumbers_data()
    {
        QTest::addColumn<Number>("left");
        QTest::addColumn<Number>("right");
        QTest::addColumn<QByteArray>("answers"); // == != < <= > >=

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
    void compareNumbers()
    {
        QFETCH(Number, left);
        QFETCH(Number, right);
        QFETCH(QByteArray, answers);
        QCOMPARE(Answers(left, right), answers);
    }

    // Constructors, arithmetic, Normalized and Abs: the number made, against the fields expected.
    void results_data()
    {
        QTest::addColumn<Number>("result");
        QTest::addColumn<Number>("expected");
        auto row = [](char const *name, Number const &result, Number const &expected) {
            QTest::newRow(name) << result << expected;
        };
        Number const cent(1, 2);

        // Integer arguments always mean mantissa and digits; a double in the mix rounds.
        row("ints", Number(1u, 2L), cent);
        row("double", Number(1.0, 2), Number(100, 2));
        row("float", Number(0.5f, 1), Number(5, 1));
        row("digits 0 truncates", Number(2.5, 0), Number(2, 0));
        row("negative digits truncate", Number(1234.5, -2), Number(1234, 0));
        row("half rounds up", Number(0.125, 2), Number(13, 2));
        row("negative half away", Number(-0.125, 2), Number(-13, 2));
        row("binary below half", Number(1.005, 2), Number(100, 2)); // stored as 1.00499999999999989...
        row("price", Number(1234.5678, 2), Number(123457, 2));
        row("carry", Number(9.995, 2), Number(1000, 2));
        row("zero keeps digits", Number(0.0, 3), Number(0, 3));
        row("fuzzy zero", Number(1e-20, 2), Number(0, 2));
        row("nan", Number(std::nan(""), 2), Number());
        row("infinity", Number(std::numeric_limits<double>::infinity(), 0), Number());
        row("integer wraps past 2^63", Number(1e19, 0), Number(-8446744073709551616LL, 0));
        // More digits than a double has: the printed zeros still count.
        row("5000 digits", Number(1e-300, 5000), Number(0, 5000));
        row("3000 digits of one", Number(1.0, 3000), Number(0, 3000));
        row("int max digits", Number(0.5, std::numeric_limits<int>::max()), Number(0, std::numeric_limits<int>::max()));

        row("sum across digits", cent + Number(5, 1), Number(51, 2));
        row("difference across digits", cent - Number(5, 1), Number(-49, 2));
        row("sum with negative digits", Number(15, -1) + Number(5, 0), Number(155, 0));
        row("product", Number(15, 1) * Number(3, 2), Number(45, 3));
        row("product wraps", Number(kInt64Max, 0) * Number(2, 0), Number(-2, 0));
        row("difference wraps", Number(kInt64Min, 0) - Number(1, 0), Number(kInt64Max, 0));
        row("invalid right keeps left", cent + Number(), cent);
        row("invalid left stays", Number() * cent, Number());
        row("compound with invalid", ((Number(5, 1) += Number()) -= Number()) *= Number(), Number(5, 1));
        row("invalid compound", (Number() *= 3) += Number(1, 0), Number());
        row("plus int in units", cent + 1, Number(101, 2));
        row("minus int in units", cent - 1, Number(-99, 2));
        row("times int", cent * -3, Number(-3, 2));
        row("invalid plus int", Number() + 1, Number());
        // + int truncates the step to 32 bits and keeps negative digits; += works in 64
        // bits, raises the digits to 0 first and ignores the flag.
        row("plus int 32-bit step", Number(1, 10) + 1, Number(1410065409, 10));
        row("plus int negative digits", Number(15, -1) + 1, Number(15, -1));
        row("compound plus 64-bit step", Number(1, 10) += 1, Number(10000000001LL, 10));
        row("compound plus negative digits", Number(15, -1) += 1, Number(151, 0));
        row("compound minus", Number(5, 1) -= 2, Number(-15, 1));
        row("compound times", Number(5, 1) *= Number(5, 1), Number(25, 2));
        row("compound difference", Number(5, 1) -= Number(25, 2), Number(25, 2));

        row("normalized trailing zeros", Number(1500, 3).Normalized(), Number(15, 1));
        row("normalized to integer", Number(-100, 2).Normalized(), Number(-1, 0));
        row("normalized nothing to drop", Number(123, 2).Normalized(), Number(123, 2));
        row("normalized zero", Number(0, 5).Normalized(), Number(0, 0));
        row("normalized zero negative digits", Number(0, -3).Normalized(), Number(0, 0));
        row("normalized digits 0 kept", Number(1000, 0).Normalized(), Number(1000, 0));
        row("normalized negative digits", Number(15, -2).Normalized(), Number(1500, 0));
        row("normalized invalid", Invalid(2, 1).Normalized(), Number());
        row("abs", Abs(Number(-5, 3)), Number(5, 3));
        row("abs positive", Json::Abs(Number(5, 3)), Number(5, 3));
        row("abs lowest wraps", Number::Abs(Number(kInt64Min, 0)), Number(kInt64Min, 0));
        row("abs invalid", Abs(Number()), Number());
        row("abs of an invalid negative is valid", Abs(Invalid(-2, -2)), Number(2, 0));
    }
    void results()
    {
        QFETCH(Number, result);
        QFETCH(Number, expected);
        QCOMPARE(Fields(result), Fields(expected));
    }

    void roundTrips()
    {
        // An invalid number keeps `out`, but converts what its fields hold.
        double out = 42.0;
        QVERIFY(!Invalid(-2, -3).GetValue(out));
        QCOMPARE(out, 42.0);
        QCOMPARE(Invalid(-2, -3).ToDouble(), -3.0);
        QVERIFY(Number(-15, 1).GetValue(out) && out == -1.5);
        QCOMPARE(Number(-15, 1).ToInt64(), qint64(-1));
        QCOMPARE(Number(15, -2).ToInt64(), qint64(1500));

        std::mt19937_64 random(7);
        // A double already on the grid comes back exactly, and prints as printf does.
        for (int i = 0; i < 20000; ++i) {
            int const digits = 1 + int(random() % 6);
            qint64 const mantissa = qint64(random() % 2000000001) - 1000000000;
            double const value = double(mantissa) / std::pow(10.0, digits);
            Number const n(value, digits);
            char expected[64];
            std::snprintf(expected, sizeof(expected), "%.*f", digits, value);
            if (Fields(n) != Fields(Number(mantissa, digits)) || Text(n.ToString(false)) != QByteArray(expected))
                QFAIL(qPrintable(QStringLiteral("%1 e-%2 came back as ").arg(mantissa).arg(digits) + Fields(n)));
        }
        // Printing then parsing gives the same number.
        for (int i = 0; i < 200000; ++i) {
            int const digits = int(random() % 42) - 1;
            std::uint64_t const bits = random() >> (random() % 64);
            qint64 const mantissa = static_cast<qint64>(random() % 2 ? bits : 0 - bits);
            Number const n(mantissa, digits);
            Number const plain(n.ToString(false).c_str());
            Number const trimmed(std::string(n.ToString(true)));
            bool const small = mantissa > -kTwoTo53 && mantissa < kTwoTo53;
            bool ok = true;
            if (digits > 0 && digits <= 40 && mantissa > -9223372036854775800LL)
                ok = Fields(plain) == Fields(n) && (!small || trimmed == n);
            else if (digits == 0 && small)
                ok = Fields(plain) == Fields(n) && Fields(trimmed) == Fields(n);
            if (!ok)
                QFAIL(qPrintable(QString::number(mantissa) + " e-" + QString::number(digits) + " printed as "
                                 + n.ToString().data()));
        }
        // ToDouble is mantissa / 10^digits; integers print as its truncation.
        for (int digits = -40; digits <= 40; ++digits) {
            for (int i = 0; i < 200; ++i) {
                qint64 const mantissa = static_cast<qint64>(random()) >> (random() % 63);
                double const expected = double(mantissa) / std::pow(10.0, digits);
                QCOMPARE(Number(mantissa, digits).ToDouble(), expected);
                if (digits <= 0 && std::fabs(expected) < 9e18)
                    QCOMPARE(Text(Number(mantissa, digits).ToString(false)), QByteArray::number(qint64(expected)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestJsonNumber)
#include "tst_json_number.moc"
