#include "qtcomm/qt_kelvo_helper.h"

#include <QCursor>
#include <QLabel>
#include <QtTest>

#include <limits>

class TestQtKelvoHelper : public QObject
{
    Q_OBJECT

private slots:
    void scaleSheet_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<float>("scale");
        QTest::addColumn<QString>("expected");
        QTest::newRow("truncates") << "width: 11px;" << 1.5f << "width: 16px;";
        QTest::newRow("1px survives 0.5") << "border: 1px solid #000;" << 0.5f << "border: 1px solid #000;";
        QTest::newRow("-1px survives 0.5") << "margin: -1px;" << 0.5f << "margin: -1px;";
        QTest::newRow("zero stays zero") << "padding: 0px;" << 2.0f << "padding: 0px;";
        QTest::newRow("negative truncates towards zero") << "top: -5px" << 1.5f << "top: -7px";
        QTest::newRow("decimal") << "height: 2.5px" << 2.0f << "height: 5px";
        QTest::newRow("leading dot") << "height: .5px" << 3.0f << "height: 1px";
        QTest::newRow("identity truncates") << "a{border:1px solid red;padding:2.5px}" << 1.0f
                                            << "a{border:1px solid red;padding:2px}";
        QTest::newRow("unit case kept") << "font-size: 12PX" << 1.5f << "font-size: 18PX";
        QTest::newRow("other units") << "width: 10em; height: 10%; min-width: 10px" << 2.0f
                                     << "width: 10em; height: 10%; min-width: 20px";
        QTest::newRow("no unit") << "font-weight: 600; line-height: 2" << 2.0f << "font-weight: 600; line-height: 2";
        QTest::newRow("url") << "image: url(:/img/arrow_10px.png); width: 10px" << 2.0f
                             << "image: url(:/img/arrow_10px.png); width: 20px";
        QTest::newRow("quoted url") << "border-image: url(\"a) 4px.png\") 4px" << 2.0f
                                    << "border-image: url(\"a) 4px.png\") 8px";
        QTest::newRow("quotes") << "font-family: \"Mono 10px\"; qproperty-text: '3px'" << 2.0f
                                << "font-family: \"Mono 10px\"; qproperty-text: '3px'";
        QTest::newRow("hex colour") << "color: #10a0ff; background: #123px" << 2.0f
                                    << "color: #10a0ff; background: #123px";
        QTest::newRow("id and class names") << "QLabel#label10px, .h2px { margin: 2px }" << 2.0f
                                            << "QLabel#label10px, .h2px { margin: 4px }";
        QTest::newRow("comment") << "/* 10px */ width:1px" << 3.0f << "/* 10px */ width:3px";
        QTest::newRow("px glued to a name") << "width: 10pxx; height: 1px" << 2.0f << "width: 10pxx; height: 2px";
        QTest::newRow("unterminated quote") << "a: \"10px" << 2.0f << "a: \"10px";
        QTest::newRow("empty") << "" << 2.0f << "";
        // A scale that is no positive number leaves the sheet alone.
        QTest::newRow("scale 0") << "width: 10px" << 0.0f << "width: 10px";
        QTest::newRow("scale -1") << "width: 10px" << -1.0f << "width: 10px";
        QTest::newRow("scale NaN") << "width: 10px" << std::numeric_limits<float>::quiet_NaN() << "width: 10px";
        QTest::newRow("scale inf") << "width: 10px" << std::numeric_limits<float>::infinity() << "width: 10px";
    }
    void scaleSheet()
    {
        QFETCH(QString, sheet);
        QFETCH(float, scale);
        QFETCH(QString, expected);
        QCOMPARE(QtKelvoHelper::ScaleSheet(sheet, scale), expected);
    }

    // The view is 200 by 100; only the tip's size counts, not where its rectangle stands.
    void tipPosition_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<QSize>("tip");
        QTest::addColumn<int>("margin");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("fits") << QPoint(20, 30) << QSize(50, 20) << 10 << QPoint(20, 30);
        QTest::newRow("on the margin") << QPoint(10, 10) << QSize(50, 20) << 10 << QPoint(10, 10);
        QTest::newRow("top left") << QPoint(0, 0) << QSize(50, 20) << 10 << QPoint(10, 10);
        QTest::newRow("bottom right") << QPoint(180, 90) << QSize(50, 20) << 10 << QPoint(140, 70);
        QTest::newRow("exactly to the right edge") << QPoint(140, 70) << QSize(50, 20) << 10 << QPoint(140, 70);
        QTest::newRow("left outside") << QPoint(-30, 50) << QSize(50, 20) << 10 << QPoint(10, 50);
        QTest::newRow("too wide keeps the left edge") << QPoint(50, 20) << QSize(300, 20) << 10 << QPoint(10, 20);
        QTest::newRow("too tall keeps the top edge") << QPoint(50, 20) << QSize(20, 300) << 10 << QPoint(50, 10);
        QTest::newRow("no margin") << QPoint(180, 90) << QSize(50, 20) << 0 << QPoint(150, 80);
        QTest::newRow("negative margin counts as 0") << QPoint(180, 90) << QSize(50, 20) << -5 << QPoint(150, 80);
    }
    void tipPosition()
    {
        QFETCH(QPoint, point);
        QFETCH(QSize, tip);
        QFETCH(int, margin);
        QFETCH(QPoint, expected);
        QWidget view;
        view.resize(200, 100);
        QCOMPARE(QtKelvoHelper::TransTipPositionOnView(point, QRect(QPoint(500, -70), tip), &view, margin), expected);
        QCOMPARE(QtKelvoHelper::TransTipPositionOnView(point, QRect(QPoint(), tip), nullptr, margin), point);
    }

    void cursorInWidgetAndFindWindow()
    {
        QWidget window;
        window.setGeometry(100, 100, 200, 150);
        QWidget *child = new QWidget(new QWidget(&window));
        child->setGeometry(10, 10, 50, 40);
        QCOMPARE(QtKelvoHelper::findWindow(child), &window);
        QCOMPARE(QtKelvoHelper::findWindow(nullptr), nullptr);
        QVERIFY(!QtKelvoHelper::CursorInWidget(nullptr));
        QCursor::setPos(window.mapToGlobal(QPoint(20, 20)));
        QVERIFY(!QtKelvoHelper::CursorInWidget(&window)); // not shown yet
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(QCursor::pos(), window.mapToGlobal(QPoint(20, 20)));
        QVERIFY(QtKelvoHelper::CursorInWidget(child) && QtKelvoHelper::CursorInWidget(&window));
        QCursor::setPos(window.mapToGlobal(QPoint(60, 20))); // just right of the child
        QVERIFY(!QtKelvoHelper::CursorInWidget(child) && QtKelvoHelper::CursorInWidget(&window));
        QCursor::setPos(window.mapToGlobal(QPoint(20, 20)));
        child->hide();
        QVERIFY(!QtKelvoHelper::CursorInWidget(child));
    }

    void updateWidgetStyleAppliesPropertySelectors()
    {
        QWidget window;
        window.setStyleSheet(QStringLiteral("QLabel { color: #00ff00; } QLabel[state=\"hover\"] { color: #ff0000; }"));
        QLabel *label = new QLabel(QStringLiteral("x"), &window);
        window.show();
        label->setProperty("state", "hover");
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0, 255, 0)); // Qt doesn't notice by itself
        QtKelvoHelper::UpdateWidgetStyle(label);
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(255, 0, 0));
        QtKelvoHelper::UpdateWidgetStyle(nullptr);
    }
};

QTEST_MAIN(TestQtKelvoHelper)
#include "tst_qt_kelvo_helper.moc"
