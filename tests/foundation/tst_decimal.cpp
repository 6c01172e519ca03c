#include "foundation/decimal.h"
#include "foundation/value_safe_wrapper.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

using base::Decimal;
using base::RoundMode;

Q_DECLARE_METATYPE(base::RoundMode)

namespace {

QByteArray Fields(Decimal const &d)
{
    return QByteArray::number(qint64(d.GetValue())) + " e-" + QByteArray::number(d.GetScale());
}

// Rounding by the book, in integers, for values where no shortcut of the real thing
// shows.
qint64 ReferenceRound(qint64 value, int k, RoundMode mode)
{
    qint64 p = 1;
    for (int i = 0; i < k; ++i)
        p *= 10;
    qint64 const q = value / p;
    qint64 const r = value % p;
    qint64 const away = value > 0 ? 1 : -1;
    qint64 const twice = 2 * (r < 0 ? -r : r);
    switch (mode) {
    case base::RoundDown:
        return q;
    case base::RoundUp:
        return r != 0 ? q + away : q;
    case base::RoundFloor:
        return value > 0 ? q : (r != 0 ? q + away : q);
    case base::RoundCeiling:
        return value > 0 ? (r != 0 ? q + away : q) : q;
    case base::RoundHalfDown:
        return twice > p ? q + away : q;
    case base::RoundHalfUp:
        return twice >= p ? q + away : q;
    case base::RoundHalfEven:
        if (twice == p)
            return (q % 2 == 0) ? q : q + away;
        return twice > p ? q + away : q;
    }
    return q;
}

// Marks its values so that the test sees where they came from.
struct SevenInitializer
{
    void operator()(Decimal &d) const { d.Set(7, 1); }
};

int g_destroyed = 0;

class CountingWrapper : public base::TValueSafeWrapper<int>
{
public:
    ~CountingWrapper() override { ++g_destroyed; }
};

} // namespace

class TestDecimal : public QObject
{
    Q_OBJECT

private slots:
    void construct_data();
    void construct();
    void round_data();
    void round();
    void roundAgreesWithIntegerRounding();
    void safeWrapper();
};

void TestDecimal::construct_data()
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

void TestDecimal::construct()
{
    QFETCH(double, value);
    QFETCH(int, scale);
    QFETCH(QByteArray, expected);
    Decimal const d(value, scale);
    QCOMPARE(Fields(d), expected);
    QCOMPARE(d.ToDouble(), double(d.GetValue()) / std::pow(10.0, d.GetScale()));
}

void TestDecimal::round_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("scale");
    QTest::addColumn<int>("target");
    QTest::addColumn<RoundMode>("mode");
    QTest::addColumn<QByteArray>("expected");

    struct Row
    {
        qint64 value;
        char const *results; // Down Up Floor Ceiling HalfDown HalfUp HalfEven
    };
    // One digit dropped, every mode.
    Row const rows[] = {
        {125, "12 13 12 13 12 13 12"},    {135, "13 14 13 14 13 14 14"},
        {126, "12 13 12 13 13 13 13"},    {121, "12 13 12 13 12 12 12"},
        {120, "12 12 12 12 12 12 12"},    {-125, "-12 -13 -13 -12 -12 -13 -12"},
        {-135, "-13 -14 -14 -13 -13 -14 -14"}, {-121, "-12 -13 -13 -12 -12 -12 -12"},
        {0, "0 0 0 0 0 0 0"},
    };
    for (Row const &row : rows) {
        QList<QByteArray> const results = QByteArray(row.results).split(' ');
        for (int mode = 0; mode < 7; ++mode)
            QTest::addRow("%lld mode %d", row.value, mode)
                << row.value << 2 << 1 << RoundMode(mode) << results[mode] + " e-1";
    }
    // Three digits dropped: the half is the whole tail, the even test sees all of it.
    QTest::newRow("tail below half") << qint64(12345) << 4 << 1 << base::RoundHalfUp << QByteArray("12 e-1");
    QTest::newRow("tail half up") << qint64(12500) << 4 << 1 << base::RoundHalfUp << QByteArray("13 e-1");
    QTest::newRow("tail half down") << qint64(12500) << 4 << 1 << base::RoundHalfDown << QByteArray("12 e-1");
    QTest::newRow("tail half even") << qint64(12500) << 4 << 1 << base::RoundHalfEven << QByteArray("12 e-1");
    QTest::newRow("tail past half even") << qint64(12501) << 4 << 1 << base::RoundHalfEven << QByteArray("13 e-1");
    QTest::newRow("tail half to odd") << qint64(13500) << 4 << 1 << base::RoundHalfEven << QByteArray("14 e-1");
    // Only the low 32 bits of the remainder are looked at.
    QTest::newRow("up, remainder 2^32") << qint64(4294967296LL) << 10 << 0 << base::RoundUp << QByteArray("0 e-0");
    QTest::newRow("half, eleven digits") << qint64(150000000000LL) << 11 << 0 << base::RoundHalfUp
                                         << QByteArray("1 e-0");
    QTest::newRow("power beyond 64 bits") << std::numeric_limits<qint64>::max() << 20 << 0 << base::RoundUp
                                          << QByteArray("1 e-0");
    QTest::newRow("half beyond 64 bits") << std::numeric_limits<qint64>::min() << 40 << 0 << base::RoundHalfEven
                                         << QByteArray("0 e-0");
    // Gaining digits ignores the mode; the same scale and unknown modes do nothing.
    QTest::newRow("gain") << qint64(125) << 2 << 4 << base::RoundUp << QByteArray("12500 e-4");
    QTest::newRow("same scale") << qint64(125) << 2 << 2 << base::RoundUp << QByteArray("125 e-2");
    QTest::newRow("unknown mode") << qint64(125) << 2 << 1 << RoundMode(42) << QByteArray("125 e-2");
    QTest::newRow("scale range ends") << qint64(5) << std::numeric_limits<int>::max()
                                      << std::numeric_limits<int>::min() << base::RoundHalfUp << QByteArray("0 e--2147483648");
}

void TestDecimal::round()
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

void TestDecimal::roundAgreesWithIntegerRounding()
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
                                 .arg(value)
                                 .arg(target + k)
                                 .arg(target)
                                 .arg(int(mode))
                                 .arg(d.GetValue())
                                 .arg(expected)));
    }
}

void TestDecimal::safeWrapper()
{
    using Wrapper = base::TValueSafeWrapper<Decimal, base::DefaultInitializer<Decimal>>;
    static_assert(std::is_polymorphic_v<Wrapper>);
    static_assert(std::has_virtual_destructor_v<Wrapper>);

    Wrapper w;
    QVERIFY(!w.HasValue());
    QCOMPARE(Fields(w.GetValue()), QByteArray("0 e-0"));
    QCOMPARE(Fields(w.ValueOr(Decimal(1.5, 1))), QByteArray("15 e-1"));
    w.SetValue(Decimal(0.125, 3));
    QVERIFY(w.HasValue());
    w->Round(2, base::RoundHalfUp);
    QCOMPARE(Fields(w.ValueOr(Decimal())), QByteArray("13 e-2"));
    Wrapper const copy = w;
    QVERIFY(copy.HasValue());
    w.Reset();
    QVERIFY(!w.HasValue());
    QCOMPARE(Fields(w.GetValue()), QByteArray("0 e-0"));
    QCOMPARE(Fields(copy.GetValue()), QByteArray("13 e-2"));

    base::TValueSafeWrapper<Decimal, SevenInitializer> seven;
    QCOMPARE(Fields(seven.GetValue()), QByteArray("7 e-1"));
    seven.SetValue(Decimal(2.0, 0));
    seven.Reset();
    QCOMPARE(Fields(seven.GetValue()), QByteArray("7 e-1"));

    base::TValueSafeWrapper<int> number;
    QCOMPARE(number.GetValue(), 0);
    g_destroyed = 0;
    base::TValueSafeWrapper<int> *holder = new CountingWrapper;
    delete holder;
    QCOMPARE(g_destroyed, 1);
}

QTEST_GUILESS_MAIN(TestDecimal)
#include "tst_decimal.moc"
