#include "qtcomm/qt_desktop_screen_helper.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

namespace {

struct CountingHelper : CQtDesktopScreenHelper
{
    void InitGlobalRect() override
    {
        ++reads;
        CQtDesktopScreenHelper::InitGlobalRect();
    }
    int reads = 0;
};

// Built before the application, as the process-wide effects are.
CQtDesktopScreenHelper g_earlyHelper;

QRect const kLeft(0, 0, 1920, 1080);
QRect const kRight(1920, 0, 1920, 1080);

} // namespace

class TestQtDesktopScreenHelper : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CQtDesktopScreenHelper::ClearScreenRectsForTest(); }

    void realScreensAlsoForAHelperBuiltBeforeTheApplication()
    {
        QList<QRect> expected;
        for (QScreen *screen : QGuiApplication::screens())
            expected << screen->geometry();
        QCOMPARE(CQtDesktopScreenHelper().ScreenRects(), expected);
        QRect const primary = QGuiApplication::primaryScreen()->geometry();
        QCOMPARE(g_earlyHelper.CurScreenWithPointIn(primary.center()), primary);
    }

    void screenWithPoint_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<QRect>("screen");
        QTest::newRow("left") << QPoint(100, 100) << kLeft;
        QTest::newRow("right") << QPoint(2000, 500) << kRight;
        QTest::newRow("last pixel of the left") << QPoint(1919, 1079) << kLeft;
        QTest::newRow("first pixel of the right") << QPoint(1920, 0) << kRight;
        QTest::newRow("left of everything") << QPoint(-1, 10) << QRect();
        QTest::newRow("below") << QPoint(100, 1080) << QRect();
        QTest::newRow("above") << QPoint(2500, -3) << QRect();
    }
    void screenWithPoint()
    {
        QFETCH(QPoint, point);
        QFETCH(QRect, screen);
        CQtDesktopScreenHelper::SetScreenRectsForTest({kLeft, kRight});
        QRect const result = CQtDesktopScreenHelper().CurScreenWithPointIn(point);
        QCOMPARE(result, screen);
        QCOMPARE(result.width(), screen.width()); // none: zero wide
    }

    void screenWithMouse()
    {
        // The offscreen platform keeps the cursor on its own screen: lay the test screens over it.
        QRect const real = QGuiApplication::primaryScreen()->geometry();
        QRect const left(real.topLeft(), QSize(real.width() / 2, real.height()));
        QRect const right(QPoint(left.right() + 1, real.top()), QSize(real.width() - left.width(), real.height()));
        CQtDesktopScreenHelper::SetScreenRectsForTest({left, right});
        CQtDesktopScreenHelper helper;
        QCursor::setPos(right.center());
        QCOMPARE(helper.CurScreenWithMouseIn(), right);
        QCursor::setPos(left.topLeft());
        QCOMPARE(helper.CurScreenWithMouseIn(), left);
        CQtDesktopScreenHelper::SetScreenRectsForTest({});
        QCOMPARE(helper.CurScreenWithMouseIn().width(), 0);
    }

    void liveHelpersRereadWhenTheScreensChange()
    {
        CountingHelper helper;
        int const reads = helper.reads;
        CQtDesktopScreenHelper::SetScreenRectsForTest({kLeft, kRight});
        QCOMPARE(helper.reads, reads + 1); // the override is what runs
        QCOMPARE(helper.ScreenRects(), (QList<QRect>{kLeft, kRight}));
        CQtDesktopScreenHelper::SetScreenRectsForTest({kLeft});
        QCOMPARE(helper.CurScreenWithPointIn(QPoint(3000, 10)).width(), 0);
        CQtDesktopScreenHelper::ClearScreenRectsForTest();
        QCOMPARE(helper.ScreenRects().size(), QGuiApplication::screens().size());
    }
};

QTEST_MAIN(TestQtDesktopScreenHelper)
#include "tst_qt_desktop_screen_helper.moc"
