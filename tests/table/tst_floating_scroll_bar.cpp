#include "table/floating_scroll_bar.h"
#include "table/suspended_scroll_bar.h"

#include <QCursor>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace {

// A window with a scroll area whose content is `contentHeight` high, placed below a
// 20-pixel strip so that the area does not start at the window's origin.
struct Window : QWidget {
    explicit Window(int contentHeight)
    {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 20, 0, 0);
        area = new QScrollArea(this);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        content = new QWidget;
        content->setFixedSize(100, contentHeight);
        area->setWidget(content);
        layout->addWidget(area);
        resize(300, 220);
    }
    void ShowUp()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    void Send(QEvent::Type type)
    {
        QEvent event(type);
        QApplication::sendEvent(area, &event);
    }
    QScrollArea *area;
    QWidget *content;
};

} // namespace

class TstFloatingScrollBar : public QObject
{
    Q_OBJECT
private slots:
    void rangeAndPageStep()
    {
        QWidget parent;
        CSuspendedScrollBar bar(1.0f, Qt::Vertical, &parent);
        bar.setGeometry(0, 0, 8, 200);
        bar.rangeChanged(5, 100);
        QCOMPARE(bar.minimum(), 0);
        QCOMPARE(bar.maximum(), 100);
        QCOMPARE(bar.pageStep(), 180);

        CSuspendedScrollBar across(1.0f, Qt::Horizontal, &parent);
        across.setGeometry(0, 0, 150, 8);
        across.rangeChanged(0, 50);
        QCOMPARE(across.pageStep(), 120);

        bar.show();
        bar.rangeChanged(0, 0);
        QVERIFY(bar.isHidden());
    }

    void followsTheNativeBarBothWays()
    {
        Window w(1000);
        CFloatingScrollBar bar(1.0f, Qt::Vertical, w.area, w.area);
        w.ShowUp();
        QScrollBar *native = w.area->verticalScrollBar();
        QVERIFY(native->maximum() > 0);
        QCOMPARE(bar.maximum(), native->maximum());
        native->setValue(120);
        QCOMPARE(bar.value(), 120);
        bar.setValue(300);
        QCOMPARE(native->value(), 300);
        QCOMPARE(w.content->y(), -300);

        // A bar made after the area was filled starts from the area's range too.
        CFloatingScrollBar late(1.0f, Qt::Vertical, w.area, w.area);
        QCOMPARE(late.maximum(), native->maximum());
        QCOMPARE(late.value(), 300);
    }

    // Without auto hide the bar is up while there is a range; with it, only while the
    // pointer is over the area.
    void showsWhileThereIsARange()
    {
        Window w(50);
        CFloatingScrollBar bar(1.0f, Qt::Vertical, w.area, w.area);
        w.ShowUp();
        w.Send(QEvent::Enter);
        w.area->repaint();
        w.Send(QEvent::Leave);
        QVERIFY(!bar.isVisible());
        w.content->setFixedHeight(900); // now there is a range: the bar comes by itself
        QTRY_VERIFY(bar.isVisible());
        w.content->setFixedHeight(40);
        QTRY_VERIFY(!bar.isVisible());

        w.content->setFixedHeight(1000);
        bar.SetScrollBarAutoHide(true);
        QCursor::setPos(w.mapToGlobal(QPoint(-50, -50)));
        w.area->repaint();
        QVERIFY(!bar.isVisible());
        w.Send(QEvent::Enter);
        QVERIFY(bar.isVisible());
        w.Send(QEvent::Leave);
        QVERIFY(!bar.isVisible());
        w.area->repaint(); // the pointer is still outside
        QVERIFY(!bar.isVisible());
        QCursor::setPos(w.area->mapToGlobal(QPoint(30, 30)));
        w.area->repaint();
        QVERIFY(bar.isVisible());
    }

    void placement_data()
    {
        QTest::addColumn<float>("scale");
        QTest::addColumn<int>("orientation");
        QTest::addColumn<bool>("child");
        for (float scale : {1.0f, 1.5f, 2.0f}) {
            for (int o : {int(Qt::Horizontal), int(Qt::Vertical)}) {
                for (bool child : {true, false}) {
                    QTest::addRow("%.1f %s %s", double(scale), o == Qt::Vertical ? "vertical" : "horizontal",
                                  child ? "child" : "sibling")
                        << scale << o << child;
                }
            }
        }
    }
    void placement()
    {
        QFETCH(float, scale);
        QFETCH(int, orientation);
        QFETCH(bool, child);
        Window w(1000);
        w.content->setFixedSize(1000, 1000);
        QWidget *parent = child ? static_cast<QWidget *>(w.area) : &w;
        // Made at 1.0 and then changed: the bar must be placed again for the new scale.
        CFloatingScrollBar bar(1.0f, Qt::Orientation(orientation), parent, w.area);
        bar.SetPositionMargin(10);
        w.ShowUp();
        QTRY_VERIFY(bar.isVisible());
        bar.ScaleChanged(scale);

        const QRect a = w.area->geometry();
        const int thick = int(6.0f * scale);
        const int margin = child ? 0 : int(10.0f * scale);
        QRect expected;
        if (orientation == Qt::Horizontal)
            expected = child ? QRect(0, a.height() - thick, a.width(), thick)
                             : QRect(a.left() + margin, a.bottom() - thick, a.width() - margin, thick);
        else
            expected = child ? QRect(a.width() - thick, 0, thick, a.height())
                             : QRect(a.right() - thick, a.top() + margin, thick, a.height() - margin);
        QCOMPARE(bar.geometry(), expected);
    }

    // The area is watched, not owned: after it goes the bar must not reach for it.
    void areaDyingFirst()
    {
        Window w(900);
        CFloatingScrollBar bar(1.0f, Qt::Vertical, &w, w.area);
        w.ShowUp();
        delete w.area;
        bar.rangeChanged(0, 10);
        bar.ScaleChanged(2.0f);
        QCOMPARE(bar.maximum(), 10);
    }
};

QTEST_MAIN(TstFloatingScrollBar)
#include "tst_floating_scroll_bar.moc"
