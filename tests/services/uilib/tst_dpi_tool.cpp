#include "uilib/box_layout.h"
#include "uilib/dpi_tool.h"
#include "uilib/widget.h"

#include <QScreen>
#include <QStandardItemModel>
#include <QtTest>

#include <limits>

class TestDpiTool : public QObject
{
    Q_OBJECT
private slots:
    void physicalTruncates_data();
    void physicalTruncates();
    void logicalTruncates_data();
    void logicalTruncates();
    void badScalesLeaveValuesAlone();
    void hugeProductsClampInsteadOfOverflowing();
    void scaleOfFindsNearestScaledAncestor();
    void scaleOfFallsBackToScreen();
    void resolveScaleKeepsValidScales();
};

void TestDpiTool::physicalTruncates_data()
{
    QTest::addColumn<int>("logical");
    QTest::addColumn<float>("scale");
    QTest::addColumn<int>("physical");
    QTest::newRow("1.0") << 7 << 1.0f << 7;
    QTest::newRow("1.25 drops .75") << 7 << 1.25f << 8;
    QTest::newRow("1.5") << 7 << 1.5f << 10;
    QTest::newRow("2.0") << 7 << 2.0f << 14;
    QTest::newRow("negative towards zero") << -7 << 1.5f << -10;
    QTest::newRow("zero") << 0 << 2.0f << 0;
}

void TestDpiTool::physicalTruncates()
{
    QFETCH(int, logical);
    QFETCH(float, scale);
    QFETCH(int, physical);
    QCOMPARE(DpiTool::Physical(logical, scale), physical);
    QCOMPARE(DpiTool::Physical(QSize(logical, logical), scale), QSize(physical, physical));
    QCOMPARE(DpiTool::Physical(QMargins(logical, 0, logical, 0), scale), QMargins(physical, 0, physical, 0));
}

void TestDpiTool::logicalTruncates_data()
{
    QTest::addColumn<int>("physical");
    QTest::addColumn<float>("scale");
    QTest::addColumn<int>("logical");
    QTest::newRow("1.0") << 15 << 1.0f << 15;
    QTest::newRow("1.5 exact") << 15 << 1.5f << 10;
    QTest::newRow("1.5 truncated") << 16 << 1.5f << 10;
    QTest::newRow("2.0 truncated") << 15 << 2.0f << 7;
}

void TestDpiTool::logicalTruncates()
{
    QFETCH(int, physical);
    QFETCH(float, scale);
    QFETCH(int, logical);
    QCOMPARE(DpiTool::Logical(physical, scale), logical);
    QCOMPARE(DpiTool::Logical(QSize(physical, 1), scale).width(), logical);
}

void TestDpiTool::badScalesLeaveValuesAlone()
{
    float const nan = std::numeric_limits<float>::quiet_NaN();
    float const inf = std::numeric_limits<float>::infinity();
    for (float scale : {0.0f, -1.0f, nan, inf}) {
        QVERIFY(!DpiTool::IsValidScale(scale));
        QCOMPARE(DpiTool::Physical(12, scale), 12);
        QCOMPARE(DpiTool::Logical(12, scale), 12);
    }
}

void TestDpiTool::hugeProductsClampInsteadOfOverflowing()
{
    QCOMPARE(DpiTool::Physical(std::numeric_limits<int>::max(), 4.0f), std::numeric_limits<int>::max());
    QCOMPARE(DpiTool::Physical(std::numeric_limits<int>::min(), 4.0f), std::numeric_limits<int>::min());
}

void TestDpiTool::scaleOfFindsNearestScaledAncestor()
{
    TWidget outer(1.5f);
    QWidget plain(&outer);
    TWidget inner(2.0f, &plain);
    QWidget leaf(&inner);
    QStandardItemModel model(&leaf);
    QCOMPARE(DpiTool::ScaleOf(&model), 2.0f);
    QCOMPARE(DpiTool::ScaleOf(&plain), 1.5f);
    QCOMPARE(DpiTool::ScaleOf(&inner), 2.0f);

    TVBoxLayout layout(1.25f, nullptr);
    QObject companion(&layout);
    QCOMPARE(DpiTool::ScaleOf(&companion), 1.25f);
}

void TestDpiTool::scaleOfFallsBackToScreen()
{
    QWidget plain;
    QObject loose;
    float const screen = DpiTool::ScreenScale(QGuiApplication::primaryScreen());
    QCOMPARE(screen, float(QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0));
    QCOMPARE(DpiTool::GetWidgetDpi(&plain), screen);
    QCOMPARE(DpiTool::GetWidgetDpi(nullptr), screen);
    QCOMPARE(DpiTool::ScaleOf(&plain), screen);
    QCOMPARE(DpiTool::ScaleOf(&loose), screen);
    QCOMPARE(DpiTool::ScaleOf(nullptr), screen);
    QCOMPARE(DpiTool::ScreenScale(nullptr), 1.0f);
}

void TestDpiTool::resolveScaleKeepsValidScales()
{
    TWidget parent(1.75f);
    QCOMPARE(DpiTool::ResolveScale(1.5f, &parent), 1.5f);
    QCOMPARE(DpiTool::ResolveScale(-1.0f, &parent), 1.75f);
    QCOMPARE(DpiTool::ResolveScale(0.0f, &parent), 1.75f);
}

QTEST_MAIN(TestDpiTool)
#include "tst_dpi_tool.moc"
