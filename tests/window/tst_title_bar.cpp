#include "window/title_bar.h"

#include "qtcomm/language_helper.h"
#include "uilib/label.h"
#include "uilib/tool_button.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

using Flag = CTitleBar::WindowFlag;

QString Text(wchar_t const *key)
{
    return QString::fromWCharArray(LoadXmlString(key));
}

int Px(int logical, float scale)
{
    return int(float(logical) * scale);
}

// Counts key presses that still reach the watched object after the bar's filter.
struct KeyWitness : QObject {
    int keys = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        keys += event->type() == QEvent::KeyPress;
        return false;
    }
};

// A shown window with a bar in a layout, so that mouse events travel the real way.
struct Window : QWidget {
    explicit Window(int flags)
    {
        auto *layout = new QVBoxLayout(this);
        bar = new CTitleBar(1.0f, this);
        layout->addWidget(bar);
        bar->SetWindowFlag(CTitleBar::WindowFlags(flags));
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
    void initTestCase() { qRegisterMetaType<CTitleBar::WindowFlag>(); }
    void buttonsInOrderAndScaled_data();
    void buttonsInOrderAndScaled();
    void eachButtonReportsItsFlag_data();
    void eachButtonReportsItsFlag();
    void hiddenButtonsAndNullRows();
    void escapeInParentFollowsReparenting();
    void mousePressOnSurfaceOnly();
};

void TstTitleBar::buttonsInOrderAndScaled_data()
{
    QTest::addColumn<float>("scale");
    QTest::newRow("1.0") << 1.0f;
    QTest::newRow("2.0") << 2.0f;
}

void TstTitleBar::buttonsInOrderAndScaled()
{
    QFETCH(float, scale);
    CTitleBar bar(scale, nullptr);
    bar.SetWindowFlag(CTitleBar::WindowFlags(0x7f));
    bar.resize(Px(400, scale), bar.height());
    bar.show();
    QCOMPARE(bar.height(), Px(28, scale));
    QCOMPARE(bar.GetIconLabel()->geometry(), QRect(Px(5, scale), Px(4, scale), Px(20, scale), Px(20, scale)));

    struct Expect { Flag flag; char const *name; int size; QString tip; };
    Expect const order[] = {
        {CTitleBar::WindowFlagTop, "top_btn", 16, Text(L"desktop_comm_common_top")},
        {CTitleBar::WindowFlagSetting, "linear_setting_button", 16, Text(L"KVS_SETTING")},
        {CTitleBar::WindowFlagMinimize, "minimize_btn", 26, QString()},
        {CTitleBar::WindowFlagMiniPlayer, "miniplayer_btn", 26, Text(L"Watch_Mini_SwitchToFloating")},
        {CTitleBar::WindowFlagCallMainWnd, "call_mainwnd_btn", 26, Text(L"KVS_OPEN_MAIN_WND")},
        {CTitleBar::WindowFlagRestore, "restore_btn", 26, QString()},
        {CTitleBar::WindowFlagClose, "close_btn", 26, QString()},
    };
    int right = 0; // left to right, with 8 and 5 units after the first two
    int const gaps[] = {0, 8, 5, 0, 0, 0, 0};
    for (int i = 0; i < 7; ++i) {
        TToolButton *button = bar.GetButtonByFlag(order[i].flag);
        QVERIFY2(button && button->objectName() == QLatin1String(order[i].name), order[i].name);
        QCOMPARE(button->size(), QSize(Px(order[i].size, scale), Px(order[i].size, scale)));
        QCOMPARE(button->toolTip(), order[i].tip);
        QCOMPARE(button->isCheckable(), i == 0);
        QCOMPARE(button->focusPolicy() == Qt::ClickFocus, i > 0);
        QVERIFY(qAbs(button->geometry().center().y() - bar.rect().center().y()) <= 1);
        if (i > 0)
            QCOMPARE(button->x() - right, Px(gaps[i], scale));
        right = button->x() + button->width();
    }
    QCOMPARE(right, bar.width());
}

void TstTitleBar::eachButtonReportsItsFlag_data()
{
    QTest::addColumn<int>("flag");
    for (int flag = 0x01; flag <= 0x40; flag <<= 1)
        QTest::newRow(qPrintable(QString::number(flag, 16))) << flag;
}

void TstTitleBar::eachButtonReportsItsFlag()
{
    QFETCH(int, flag);
    Window window(flag);
    for (int other = 0x01; other <= 0x40; other <<= 1)
        QCOMPARE(window.bar->GetButtonByFlag(Flag(other)) != nullptr, other == flag);
    QCOMPARE(window.bar->findChildren<TToolButton *>().size(), 1);

    QSignalSpy clicked(window.bar, &CTitleBar::ButtonClicked);
    QSignalSpy pressed(window.bar, &CTitleBar::MousePress);
    TToolButton *button = window.bar->GetButtonByFlag(Flag(flag));
    button->setAttribute(Qt::WA_UnderMouse, true); // hovered: offscreen sends no enter events
    window.Click(button);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.at(0).at(0).value<Flag>(), Flag(flag));
    QCOMPARE(pressed.size(), 0); // the button takes the press
    // Only the close button forgets the hover, so that a window shown again is not hovered.
    QCOMPARE(button->testAttribute(Qt::WA_UnderMouse), flag != CTitleBar::WindowFlagClose);
}

void TstTitleBar::hiddenButtonsAndNullRows()
{
    CTitleBar bar(1.0f, nullptr);
    bar.SetWindowFlag({});
    for (int flag = 0x01; flag <= 0x40; flag <<= 1)
        QVERIFY(!bar.GetButtonByFlag(Flag(flag)));
    // The null rows left by the clearing must not pass for buttons.
    bar.SetWindowFlag(CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose);
    TToolButton *top = bar.GetButtonByFlag(CTitleBar::WindowFlagTop);
    TToolButton *close = bar.GetButtonByFlag(CTitleBar::WindowFlagClose);
    QVERIFY(top && close);
    bar.SetWindowFlag({});
    QVERIFY(top->isHidden() && close->isHidden());
    bar.SetWindowFlag(CTitleBar::WindowFlagClose); // the close button comes back, no new one
    QCOMPARE(bar.GetButtonByFlag(CTitleBar::WindowFlagClose), close);
    QVERIFY(!close->isHidden() && top->isHidden());
    QCOMPARE(bar.findChildren<TToolButton *>().size(), 2);

    // Without a parent the pin has no window to act on; the button still toggles.
    QSignalSpy clicked(&bar, &CTitleBar::ButtonClicked);
    top->click();
    QCOMPARE(top->toolTip(), Text(L"desktop_comm_common_cancel_top"));
    top->click();
    QCOMPARE(top->toolTip(), Text(L"desktop_comm_common_top"));
    QCOMPARE(clicked.size(), 2);
}

void TstTitleBar::escapeInParentFollowsReparenting()
{
    QWidget first;
    QWidget second;
    KeyWitness witness; // installed before the bar's filter, so it runs after it
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
    QCOMPARE(clicked.size(), 1);
    QTest::keyClick(&second, Qt::Key_Escape);
    QCOMPARE(clicked.size(), 2);
}

void TstTitleBar::mousePressOnSurfaceOnly()
{
    Window window(CTitleBar::WindowFlagMinimize);
    window.bar->SetName(QStringLiteral("Quotes"));
    QCOMPARE(window.bar->GetName(), QStringLiteral("Quotes"));
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy pressed(window.bar, &CTitleBar::MousePress);
    QSignalSpy released(window.bar, &CTitleBar::MouseRelease);

    window.Click(window.bar, Qt::LeftButton);
    window.Click(window.bar, Qt::RightButton);
    window.Click(window.bar->GetNameLabel()); // a label passes the press on to the bar
    QCOMPARE(pressed.size(), 3);
    QCOMPARE(released.size(), 3);
    window.Click(window.bar->GetButtonByFlag(CTitleBar::WindowFlagMinimize));
    QCOMPARE(pressed.size(), 3);
    QCOMPARE(released.size(), 3);
}

QTEST_MAIN(TstTitleBar)
#include "tst_title_bar.moc"
