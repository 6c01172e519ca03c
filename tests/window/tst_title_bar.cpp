#include "window/title_bar.h"

#include "uilib/label.h"
#include "uilib/tool_button.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

using Flag = CTitleBar::WindowFlag;

// A shown window with a bar in a layout, so that mouse events travel the real way.
struct Window : QWidget
{
    explicit Window(int flags)
    {
        (new QVBoxLayout(this))->addWidget(bar = new CTitleBar(1.0f, this));
        bar->SetWindowFlag(CTitleBar::WindowFlags(flags));
        bar->SetName(QStringLiteral("Quotes"));
        resize(300, 60);
        show();
    }
    void Click(QWidget *w, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(windowHandle(), button, {}, w->mapTo(this, w->rect().center()));
    }
    CTitleBar *bar;
};

} // namespace

class TstTitleBar : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<Flag>(); }

    void buttonsInOrderAndScaled_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("1.0") << 1.0f;
        QTest::newRow("2.0") << 2.0f;
    }
    void buttonsInOrderAndScaled()
    {
        QFETCH(float, scale);
        auto const px = [scale](int logical) { return int(float(logical) * scale); };
        CTitleBar bar(scale, nullptr);
        bar.SetWindowFlag(CTitleBar::WindowFlags(0x7f));
        bar.resize(px(400), bar.height());
        bar.show();
        QCOMPARE(bar.height(), px(28));
        QCOMPARE(bar.GetIconLabel()->geometry(), QRect(px(5), px(4), px(20), px(20)));
        // Left to right, flush with the right end: flag, size, and the gap before it.
        int const order[][3] = {{0x20, 16, 0}, {0x01, 16, 8}, {0x02, 26, 5}, {0x04, 26, 0},
                                {0x08, 26, 0}, {0x10, 26, 0}, {0x40, 26, 0}};
        int right = -1;
        for (auto const &e : order) {
            TToolButton *button = bar.GetButtonByFlag(Flag(e[0]));
            QVERIFY(button);
            QCOMPARE(button->size(), QSize(px(e[1]), px(e[1])));
            QVERIFY(qAbs(button->geometry().center().y() - bar.rect().center().y()) <= 1);
            if (right >= 0)
                QCOMPARE(button->x() - right, px(e[2]));
            right = button->x() + button->width();
        }
        QCOMPARE(right, bar.width());
    }

    void eachButtonReportsItsFlag_data()
    {
        QTest::addColumn<int>("flag");
        for (int flag = 0x01; flag <= 0x40; flag <<= 1)
            QTest::newRow(qPrintable(QString::number(flag, 16))) << flag;
    }
    void eachButtonReportsItsFlag()
    {
        QFETCH(int, flag);
        Window window(flag);
        for (int other = 0x01; other <= 0x40; other <<= 1)
            QCOMPARE(window.bar->GetButtonByFlag(Flag(other)) != nullptr, other == flag);
        QCOMPARE(window.bar->findChildren<TToolButton *>().size(), 1);
        QSignalSpy clicked(window.bar, &CTitleBar::ButtonClicked);
        QSignalSpy pressed(window.bar, &CTitleBar::MousePress);
        QSignalSpy released(window.bar, &CTitleBar::MouseRelease);
        TToolButton *button = window.bar->GetButtonByFlag(Flag(flag));
        button->setAttribute(Qt::WA_UnderMouse, true); // hovered: offscreen sends no enter events
        window.Click(button);
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(clicked.at(0).at(0).value<Flag>(), Flag(flag));
        QCOMPARE(pressed.size() + released.size(), 0); // the button takes the press
        // Only the close button forgets the hover, so that a window shown again is not hovered.
        QCOMPARE(button->testAttribute(Qt::WA_UnderMouse), flag != CTitleBar::WindowFlagClose);
        window.Click(window.bar, Qt::RightButton);
        window.Click(window.bar->GetNameLabel()); // a label passes the press on to the bar
        QCOMPARE(pressed.size(), 2);
        QCOMPARE(released.size(), 2);
    }

    void hiddenButtonsAndNullRows()
    {
        CTitleBar bar(1.0f, nullptr);
        bar.SetWindowFlag({});
        // The null rows left by the clearing must not pass for buttons.
        bar.SetWindowFlag(CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose);
        TToolButton *top = bar.GetButtonByFlag(CTitleBar::WindowFlagTop);
        TToolButton *close = bar.GetButtonByFlag(CTitleBar::WindowFlagClose);
        QVERIFY(top && close && !bar.GetButtonByFlag(CTitleBar::WindowFlagSetting));
        bar.SetWindowFlag({});
        QVERIFY(top->isHidden() && close->isHidden());
        bar.SetWindowFlag(CTitleBar::WindowFlagClose); // the close button comes back, no new one
        QCOMPARE(bar.GetButtonByFlag(CTitleBar::WindowFlagClose), close);
        QVERIFY(!close->isHidden() && top->isHidden());
        QCOMPARE(bar.findChildren<TToolButton *>().size(), 2);
        QSignalSpy clicked(&bar, &CTitleBar::ButtonClicked);
        top->click(); // without a parent the pin has no window to act on
        QCOMPARE(clicked.size(), 1);
    }

    void escapeInParentFollowsReparenting()
    {
        QWidget first, second;
        struct : QObject
        {
            int keys = 0;
            bool eventFilter(QObject *, QEvent *event) override
            {
                keys += event->type() == QEvent::KeyPress;
                return false;
            }
        } witness; // installed before the bar's filter, so it runs after it
        first.installEventFilter(&witness);
        auto *bar = new CTitleBar(1.0f, nullptr); // and no close button
        QSignalSpy clicked(bar, &CTitleBar::ButtonClicked);
        QTest::keyClick(&first, Qt::Key_Escape);
        QCOMPARE(clicked.size(), 0);
        (new QVBoxLayout(&first))->addWidget(bar); // parented later, by a layout
        QTest::keyClick(&first, Qt::Key_A);
        QTest::keyClick(&first, Qt::Key_Escape);
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(clicked.at(0).at(0).value<Flag>(), CTitleBar::WindowFlagClose);
        QCOMPARE(witness.keys, 3); // not consumed
        bar->setParent(&second);
        QTest::keyClick(&first, Qt::Key_Escape);
        QTest::keyClick(&second, Qt::Key_Escape);
        QCOMPARE(clicked.size(), 2);
    }
};

QTEST_MAIN(TstTitleBar)
#include "tst_title_bar.moc"
