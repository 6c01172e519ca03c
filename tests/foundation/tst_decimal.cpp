#include "foundation/decimal.h"
#include "foundation/value_safe_wrapper.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

using base::Decimal;
using base::RoundMode;

Q_DECLARE_METATYPE(base::RoundMode)

namespace {

constexpr qint64 kInt64Max = std::numeric_limits<qint64>::max();
constexpr qint64 kInt64Min = std::numeric_limits<qint64>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr int kIntMin = std::numeric_limits<int>::min();

QByteArray Fields(Decimal const &d)
{
    return QByteArray::number(qint64(d.GetValue())) + " e-" + QByteArray::number(d.GetScale());
}

// Rounding by the book, in integers, dropping k digits: an oracle for values where no
// shortcut of the real thing shows.
qint64 ReferenceRound(qint64 value, int k, RoundMode mode)
{
    qint64 const p = qint64(std::pow(10, k));
    qint64 const q = value / p, r = value % p, sign = value > 0 ? 1 : -1, twice = 2 * std::abs(r);
    // Whether the last kept digit moves away from zero: Down Up Floor Ceiling HalfDown HalfUp HalfEven.
    bool const moves[] = {false, r != 0, value < 0 && r != 0, value > 0 && r != 0,
                          twice > p, twice >= p, twice > p || (twice == p && q % 2 != 0)};
    return q + moves[mode] * sign;
}

} // namespace

class TestDecimal : public QObject
{
    Q_OBJECT

private slots:
    void construct_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("exact") << 1.25 << 2 << QByteArray("125 e-2");
        QTest::newRow("negative") << -2.5 << 1 << QByteArray("-25 e-1");
        QTest::newRow("gains zeros") << 0.5 << 3 << QByteArray("500 e-3");
        QTest::newRow("truncates") << 0.129 << 2 << QByteArray("12 e-2");
        QTest::newRow("scale cut to 18 digits") << 100.5 << 20 << QByteArray("100500000000000000 e-15");
        QTest::newRow("scale cut below zero") << 1e20 << 2 << QByteArray("100000000000000000 e--3");
        QTest::newRow("below one keeps 18") << 0.001 << 18 << QByteArray("1000000000000000 e-18");
        QTest::newRow("zero keeps scale") << 0.0 << 40 << QByteArray("0 e-40");
        QTest::newRow("fuzzy zero keeps scale") << 1e-13 << 4 << QByteArray("0 e-4");
        QTest::newRow("negative scale") << 12345.0 << -2 << QByteArray("123 e--2");
    }
    void construct()
    {
        QFETCH(double, value);
        QFETCH(int, scale);
        QFETCH(QByteArray, expected);
        Decimal const d(value, scale);
        QCOMPARE(Fields(d), expected);
        QCOMPARE(d.ToDouble(), double(d.GetValue()) / std::pow(10.0, d.GetScale()));
    }

    // What the integer oracle cannot see; the plain cases are in roundAgreesWithIntegerRounding.
    void round_data()
    {
        QTest::addColumn<qint64>("value");
        QTest::addColumn<int>("scale");
        QTest::addColumn<int>("target");
        QTest::addColumn<RoundMode>("mode");
        QTest::addColumn<QByteArray>("expected");
        // Three digits dropped: the half is the whole tail, the even test sees all of it.
        QTest::newRow("tail below half") << qint64(12345) << 4 << 1 << base::RoundHalfUp << QByteArray("12 e-1");
        QTest::newRow("tail half up") << qint64(12500) << 4 << 1 << base::RoundHalfUp << QByteArray("13 e-1");
        QTest::newRow("tail half down") << qint64(12500) << 4 << 1 << base::RoundHalfDown << QByteArray("12 e-1");
        QTest::newRow("tail half even") << qint64(12500) << 4 << 1 << base::RoundHalfEven << QByteArray("12 e-1");
        QTest::newRow("tail past half even") << qint64(12501) << 4 << 1 << base::RoundHalfEven << QByteArray("13 e-1");
        QTest::newRow("tail half to odd") << qint64(13500) << 4 << 1 << base::RoundHalfEven << QByteArray("14 e-1");
        // Only the low 32 bits of the remainder are looked at.
        QTest::newRow("up, remainder 2^32") << qint64(4294967296LL) << 10 << 0 << base::RoundUp << QByteArray("0 e-0");
        QTest::newRow("half, 11 digits") << qint64(150000000000) << 11 << 0 << base::RoundHalfUp << QByteArray("1 e-0");
        QTest::newRow("power beyond 64 bits") << kInt64Max << 20 << 0 << base::RoundUp << QByteArray("1 e-0");
        QTest::newRow("half beyond 64 bits") << kInt64Min << 40 << 0 << base::RoundHalfEven << QByteArray("0 e-0");
        // Gaining digits ignores the mode; the same scale and unknown modes do nothing.
        QTest::newRow("gain") << qint64(125) << 2 << 4 << base::RoundUp << QByteArray("12500 e-4");
        QTest::newRow("same scale") << qint64(125) << 2 << 2 << base::RoundUp << QByteArray("125 e-2");
        QTest::newRow("unknown mode") << qint64(125) << 2 << 1 << RoundMode(42) << QByteArray("125 e-2");
        QTest::newRow("scale range ends") << qint64(5) << kIntMax << kIntMin << base::RoundHalfUp
                                          << QByteArray("0 e--2147483648");
    }
    void round()
    {
        QFETCH(qint64, value);
        QFETCH(int, scale);
        QFETCH(int, target);
        QFETCH(RoundMode, mode);
        QFETCH(QByteArray, expected);
        Decimal d;
        d.Set(value, scale);
        d.Round(target, mode);
        QCOMPARE(Fields(d), expected);
    }

    void roundAgreesWithIntegerRounding()
    {
        std::mt19937_64 random(3);
        for (int i = 0; i < 100000; ++i) {
            int const k = 1 + int(random() % 6);
            int const target = int(random() % 5) - 2;
            qint64 const value = qint64(random() % 2000000001) - 1000000000;
            auto const mode = RoundMode(random() % 7);
            Decimal d;
            d.Set(value, target + k);
            d.Round(target, mode);
            qint64 const expected = ReferenceRound(value, k, mode);
            if (d.GetValue() != expected || d.GetScale() != target)
                QFAIL(qPrintable(QStringLiteral("%1 e-%2 to %3 by mode %4 gave %5, not %6")
                                     .arg(value).arg(target + k).arg(target).arg(int(mode))
                                     .arg(d.GetValue()).arg(expected)));
        }
    }

    void safeWrapper()
    {
        // An empty wrapper hands out its Initializer's value, and Reset brings that back.
        struct Seven
        {
            void operator()(Decimal &d) const { d.Set(7, 1); }
        };
        base::TValueSafeWrapper<Decimal, Seven> w;
        QVERIFY(!w.HasValue());
        QCOMPARE(Fields(w.GetValue()), QByteArray("7 e-1"));
        QCOMPARE(Fields(w.ValueOr(Decimal(1.5, 1))), QByteArray("15 e-1"));
        w.SetValue(Decimal(0.125, 3));
        w->Round(2, base::RoundHalfUp);
        auto const copy = w;
        w.Reset();
        QVERIFY(!w.HasValue() && copy.HasValue());
        QCOMPARE(Fields(w.GetValue()), QByteArray("7 e-1"));
        QCOMPARE(Fields(copy.ValueOr(Decimal())), QByteArray("13 e-2"));
        QCOMPARE(base::TValueSafeWrapper<int>().GetValue(), 0);

        // Deleted through the base, a derived wrapper is destroyed whole.
        static int destroyed = 0;
        struct Counting : base::TValueSafeWrapper<int>
        {
            ~Counting() override { ++destroyed; }
        };
        delete static_cast<base::TValueSafeWrapper<int> *>(new Counting);
        QCOMPARE(destroyed, 1);
    }
};

QTEST_GUILESS_MAIN(TestDecimal)
#include "tst_decimal.moc"
