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
    // Both ways truncate towards zero; a bad scale leaves values alone, huge products clamp.
    void conversions_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<float>("scale");
        QTest::addColumn<int>("physical");
        QTest::addColumn<int>("logical");
        int const max = std::numeric_limits<int>::max(), min = std::numeric_limits<int>::min();
        QTest::newRow("1.0") << 7 << 1.0f << 7 << 7;
        QTest::newRow("1.25") << 7 << 1.25f << 8 << 5;
        QTest::newRow("1.5") << 7 << 1.5f << 10 << 4;
        QTest::newRow("1.5 exact back") << 15 << 1.5f << 22 << 10;
        QTest::newRow("1.5 truncated back") << 16 << 1.5f << 24 << 10;
        QTest::newRow("2.0") << 15 << 2.0f << 30 << 7;
        QTest::newRow("negative") << -7 << 1.5f << -10 << -4;
        QTest::newRow("zero") << 0 << 2.0f << 0 << 0;
        QTest::newRow("scale 0") << 12 << 0.0f << 12 << 12;
        QTest::newRow("scale -1") << 12 << -1.0f << 12 << 12;
        QTest::newRow("scale NaN") << 12 << std::numeric_limits<float>::quiet_NaN() << 12 << 12;
        QTest::newRow("scale inf") << 12 << std::numeric_limits<float>::infinity() << 12 << 12;
        QTest::newRow("huge") << max << 4.0f << max << 536870912;
        QTest::newRow("huge negative") << min << 4.0f << min << -536870912;
    }
    void conversions()
    {
        QFETCH(int, value);
        QFETCH(float, scale);
        QFETCH(int, physical);
        QFETCH(int, logical);
        QCOMPARE(DpiTool::Physical(value, scale), physical);
        QCOMPARE(DpiTool::Logical(value, scale), logical);
        QCOMPARE(DpiTool::Physical(QSize(value, 1), scale).width(), physical);
        QCOMPARE(DpiTool::Logical(QSize(1, value), scale).height(), logical);
        QCOMPARE(DpiTool::Physical(QMargins(0, value, 0, value), scale), QMargins(0, physical, 0, physical));
        QCOMPARE(DpiTool::Logical(QMargins(value, 0, value, 0), scale), QMargins(logical, 0, logical, 0));
        // QRect keeps x + width - 1, which the lowest int cannot hold.
        if (value != std::numeric_limits<int>::min())
            QCOMPARE(DpiTool::Physical(QRect(value, 0, 0, value), scale), QRect(physical, 0, 0, physical));
    }

    void scaleOfFindsNearestScaledAncestor()
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
        // ResolveScale keeps a usable scale and asks ScaleOf for any other.
        QCOMPARE(DpiTool::ResolveScale(1.75f, &model), 1.75f);
        QCOMPARE(DpiTool::ResolveScale(-1.0f, &model), 2.0f);
        QCOMPARE(DpiTool::ResolveScale(0.0f, &plain), 1.5f);
    }

    void scaleOfFallsBackToScreen()
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
};

QTEST_MAIN(TestDpiTool)
#include "tst_dpi_tool.moc"
