// WidgetResizeHandler on shown frameless windows: dragging, where a drag may start,
// edge resizing, cursors, and dead windows.
#include "uilib/uilib.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWindow>
#include <QtTest>

namespace {

// A frameless window: a title bar (label, stretch, button) that drags it, a content area.
class FramelessWindow : public TWidget
{
public:
    explicit FramelessWindow(float scale)
        : TWidget(scale)
    {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        auto *layout = new TVBoxLayout(m_scale, this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        title = new TWidget(m_scale);
        title->setFixedHeight(30);
        auto *row = new QHBoxLayout(title);
        titleLabel = new QLabel(QStringLiteral("Title"));
        closeButton = new QPushButton(QStringLiteral("x"));
        row->addWidget(titleLabel);
        row->addStretch(1);
        row->addWidget(closeButton);
        content = new QWidget;
        layout->addWidget(title);
        layout->addWidget(content, 1);
        resize(300, 200);
        m_resizeHandler.activateOn(this);
        m_resizeHandler.useLocalMoveabled(true);
        m_resizeHandler.addLocalWidget(title);
    }
    WidgetResizeHandler &handler() { return m_resizeHandler; }

    TWidget *title;
    QLabel *titleLabel;
    QPushButton *closeButton;
    QWidget *content;
};

void Send(QWidget *target, QEvent::Type type, QPoint const &global, Qt::MouseButtons buttons)
{
    Qt::MouseButton const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, target->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

// Press on `target` at its centre, move by `delta`, release.
void Drag(QWidget *target, QPoint const &delta)
{
    QPoint const from = target->mapToGlobal(target->rect().center());
    Send(target, QEvent::MouseButtonPress, from, Qt::LeftButton);
    Send(target, QEvent::MouseMove, from + delta, Qt::LeftButton);
    Send(target, QEvent::MouseButtonRelease, from + delta, Qt::NoButton);
}

bool ShowAt(QWidget &window, QPoint const &pos)
{
    window.move(pos);
    window.show();
    return QTest::qWaitForWindowExposed(&window);
}

} // namespace

class TestWidgetResizeHandler : public QObject
{
    Q_OBJECT
private slots:
    // Title-only drags start on the title and its labels, never on a button; whole-window
    // drags start anywhere. A drag follows each move and ends with the release.
    void whereADragMayStart_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<float>("scale");
        QTest::addColumn<bool>("local");
        QTest::addColumn<bool>("moves");
        QTest::newRow("title 1.0") << "title" << 1.0f << true << true;
        QTest::newRow("label on the title 1.5") << "label" << 1.5f << true << true;
        QTest::newRow("title 2.0") << "title" << 2.0f << true << true;
        QTest::newRow("content, title-only drag") << "content" << 1.0f << true << false;
        QTest::newRow("button on the title") << "button" << 1.0f << true << false;
        QTest::newRow("content, whole-window drag") << "content" << 1.0f << false << true;
        QTest::newRow("title, whole-window drag") << "title" << 1.0f << false << true;
    }
    void whereADragMayStart()
    {
        QFETCH(QString, target);
        QFETCH(float, scale);
        QFETCH(bool, local);
        QFETCH(bool, moves);
        FramelessWindow window(scale);
        window.handler().useLocalMoveabled(local);
        QVERIFY(ShowAt(window, QPoint(100, 120)));
        QPoint const start = window.pos();
        QMap<QString, QWidget *> const targets{{"title", window.title}, {"label", window.titleLabel},
                                               {"button", window.closeButton}, {"content", window.content}};
        QWidget *widget = targets.value(target);
        QPoint const from = widget->mapToGlobal(widget->rect().center());
        QSignalSpy clicks(window.closeButton, &QPushButton::clicked);
        Send(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
        QCOMPARE(window.handler().isMoving(), moves);
        Send(widget, QEvent::MouseMove, from + QPoint(40, 25), Qt::LeftButton);
        QTRY_COMPARE(window.pos(), moves ? start + QPoint(40, 25) : start);
        Send(widget, QEvent::MouseMove, from + QPoint(-30, 30), Qt::LeftButton);
        QTRY_COMPARE(window.pos(), moves ? start + QPoint(-30, 30) : start);
        Send(widget, QEvent::MouseButtonRelease, from + QPoint(-30, 30), Qt::NoButton);
        QVERIFY(!window.handler().isMoving());
        Send(widget, QEvent::MouseMove, from + QPoint(90, 90), Qt::LeftButton);
        QCOMPARE(window.pos(), moves ? start + QPoint(-30, 30) : start);
        QCOMPARE(clicks.count(), 0); // released away from the button: no click, no drag
    }

    void dragOnEdgeResizes_data()
    {
        QTest::addColumn<float>("scale");
        QTest::addColumn<bool>("native");
        QTest::newRow("1.0 through widgets") << 1.0f << false;
        QTest::newRow("2.0 through widgets") << 2.0f << false;
        QTest::newRow("1.0 through the native window") << 1.0f << true;
        QTest::newRow("2.0 through the native window") << 2.0f << true;
    }
    void dragOnEdgeResizes()
    {
        QFETCH(float, scale);
        QFETCH(bool, native);
        FramelessWindow window(scale);
        QVERIFY(ShowAt(window, QPoint(80, 90)));
        QPoint const start = window.pos();
        QSize const size = window.size();
        int const border = DpiTool::Physical(window.handler().borderWidth(), scale);
        // Inside the border at the bottom-right corner, over the content area.
        QPoint const corner(size.width() - border, size.height() - border);
        QCOMPARE(window.handler().edgesAt(corner), Qt::RightEdge | Qt::BottomEdge);
        QCOMPARE(window.handler().edgesAt(corner - QPoint(1, 1)), Qt::Edges());

        if (native) {
            QWindow *handle = window.windowHandle();
            QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, corner);
            QVERIFY(window.handler().isResizing());
            // Inwards: QTest warns about events outside the window.
            QTest::mouseMove(handle, corner - QPoint(30, 20));
            QTRY_COMPARE(window.size(), size - QSize(30, 20));
            QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, corner - QPoint(30, 20));
        } else {
            QPoint const global = window.mapToGlobal(corner);
            Send(window.content, QEvent::MouseButtonPress, global, Qt::LeftButton);
            QVERIFY(window.handler().isResizing());
            Send(window.content, QEvent::MouseMove, global + QPoint(30, 20), Qt::LeftButton);
            QTRY_COMPARE(window.size(), size + QSize(30, 20));
            Send(window.content, QEvent::MouseButtonRelease, global + QPoint(30, 20), Qt::NoButton);
        }
        QVERIFY(!window.handler().isResizing());
        QCOMPARE(window.pos(), start);
    }

    void resizeKeepsMinimumSize()
    {
        FramelessWindow window(1.0f);
        window.QWidget::setMinimumSize(120, 100);
        QVERIFY(ShowAt(window, QPoint(200, 100)));
        QRect const start = window.geometry();
        QPoint const leftEdge = window.mapToGlobal(QPoint(1, start.height() / 2));
        Send(window.content, QEvent::MouseButtonPress, leftEdge, Qt::LeftButton);
        Send(window.content, QEvent::MouseMove, leftEdge + QPoint(1000, 0), Qt::LeftButton);
        QTRY_COMPARE(window.width(), 120);
        QCOMPARE(window.geometry().right(), start.right());
        Send(window.content, QEvent::MouseMove, leftEdge - QPoint(50, 0), Qt::LeftButton);
        QTRY_COMPARE(window.geometry().left(), start.left() - 50);
        QCOMPARE(window.geometry().right(), start.right());
        Send(window.content, QEvent::MouseButtonRelease, leftEdge, Qt::NoButton);
    }

    void hoverAtEdgesShowsResizeCursor()
    {
        FramelessWindow window(2.0f);
        QVERIFY(ShowAt(window, QPoint(10, 10)));
        QWindow *handle = window.windowHandle();
        int const w = window.width();
        int const h = window.height();
        QTest::mouseMove(handle, QPoint(w - 2, h / 2));
        QCOMPARE(window.cursor().shape(), Qt::SizeHorCursor);
        QTest::mouseMove(handle, QPoint(2, h - 2));
        QCOMPARE(window.cursor().shape(), Qt::SizeBDiagCursor);
        QTest::mouseMove(handle, QPoint(w / 2, 1));
        QCOMPARE(window.cursor().shape(), Qt::SizeVerCursor);
        QTest::mouseMove(handle, QPoint(w / 2, h / 2));
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);

        window.handler().setWidgetResizable(false);
        QTest::mouseMove(handle, QPoint(w - 2, h - 2));
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(window.handler().edgesAt(QPoint(w - 2, h - 2)), Qt::Edges());
    }

    void survivesDeadWindowAndLocals()
    {
        WidgetResizeHandler handler;
        auto *window = new QWidget;
        auto *local = new QWidget(window);
        handler.activateOn(window);
        handler.addLocalWidget(local);
        handler.addLocalWidget(local);
        window->show();
        delete local;
        Drag(window, QPoint(5, 5));
        delete window;
        QVERIFY(!handler.activeWidget());
        handler.reattach();
        handler.addLocalWidget(nullptr);

        // A handler that dies first leaves no filter behind on a live window.
        QWidget survivor;
        {
            WidgetResizeHandler shortLived;
            shortLived.activateOn(&survivor);
            shortLived.addLocalWidget(&survivor);
        }
        survivor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&survivor));
        QPoint const start = survivor.pos();
        Drag(&survivor, QPoint(5, 5));
        QCOMPARE(survivor.pos(), start);
    }

    void followsRecreatedNativeWindow()
    {
        FramelessWindow window(1.0f);
        QVERIFY(ShowAt(window, QPoint(30, 30)));
        window.setWindowFlags(window.windowFlags() | Qt::WindowStaysOnTopHint);
        window.AdjustReiszeHandle();
        QVERIFY(ShowAt(window, QPoint(30, 30)));
        QTest::mouseMove(window.windowHandle(), QPoint(window.width() - 1, window.height() / 2));
        QCOMPARE(window.cursor().shape(), Qt::SizeHorCursor);
        QPoint const start = window.pos();
        Drag(window.title, QPoint(12, 8));
        QTRY_COMPARE(window.pos(), start + QPoint(12, 8));
    }
};

QTEST_MAIN(TestWidgetResizeHandler)
#include "tst_widget_resize_handler.moc"
