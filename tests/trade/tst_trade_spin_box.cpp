#include "trade/trade_spin_box.h"

#include "uilib/push_button.h"
#include "uilib/label.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

Q_DECLARE_METATYPE(QFocusEvent *)

namespace {

// A shown window holding one field, so that mouse events travel the real way
// (through the window system interface, which keeps QGuiApplication::mouseButtons()).
struct Fixture {
    explicit Fixture(float scale = 1.0f)
    {
        auto *layout = new QVBoxLayout(&window);
        spin = new CTradeSpinBox(scale, nullptr);
        layout->addWidget(spin);
        window.resize(300, 80);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        up = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxUpButton"));
        down = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxDownButton"));
    }
    void Hover()
    {
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(spin, &enter);
    }
    void Unhover()
    {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(spin, &leave);
    }
    QPoint InWindow(QWidget *w) const { return w->mapTo(&window, w->rect().center()); }
    void Press(QWidget *w, Qt::MouseButton b = Qt::LeftButton)
    {
        QTest::mousePress(window.windowHandle(), b, {}, InWindow(w));
    }
    void Release(QWidget *w, Qt::MouseButton b = Qt::LeftButton)
    {
        QTest::mouseRelease(window.windowHandle(), b, {}, InWindow(w));
    }
    void FocusOut()
    {
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(spin, &out);
    }

    QWidget window;
    CTradeSpinBox *spin = nullptr;
    TPushButton *up = nullptr;
    TPushButton *down = nullptr;
};

} // namespace

class TestTradeSpinBox : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<QFocusEvent *>(); }
    void structure();
    void geometryFollowsScale_data();
    void geometryFollowsScale();
    void clickCountsOnce();
    void heldButtonCountsEachRepeatAndRelease();
    void rightButtonDoesNothing();
    void hoverShowsButtonsAndState();
    void disabledFieldKeepsButtonsHidden();
    void keyboardSteps();
    void wheelDoesNothing();
    void defaultStepping_data();
    void defaultStepping();
    void focusOutCorrection_data();
    void focusOutCorrection();
    void defaultSignalsAreUniqueAndRemovable();
    void unitVisibilityRules();
    void focusSignalsAndActiveFlag();
};

void TestTradeSpinBox::structure()
{
    Fixture f;
    QCOMPARE(f.spin->objectName(), QStringLiteral("TradeSpinBox"));
    QVERIFY(f.up && f.down);
    QVERIFY(f.spin->findChild<TLabel *>(QStringLiteral("Trade_Minimum_Unit")));
    QCOMPARE(f.spin->contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(!f.spin->testAttribute(Qt::WA_InputMethodEnabled));
    QCOMPARE(f.up->focusProxy(), f.spin);
    QVERIFY(f.up->autoRepeat());
    QVERIFY(!f.up->isVisible());
    QCOMPARE(f.spin->GetStep().GetDigits(), 2);
    double lo = 0, hi = 0;
    f.spin->GetValueRange(lo, hi);
    QCOMPARE(lo, 0.01);
    QCOMPARE(hi, 0.5);
}

void TestTradeSpinBox::geometryFollowsScale_data()
{
    QTest::addColumn<float>("scale");
    QTest::newRow("1.0") << 1.0f;
    QTest::newRow("1.5") << 1.5f;
    QTest::newRow("2.0") << 2.0f;
}

void TestTradeSpinBox::geometryFollowsScale()
{
    QFETCH(float, scale);
    Fixture f(1.0f);
    f.spin->ScaleChanged(scale);
    int const side = int(10 * scale);
    QCOMPARE(f.up->size(), QSize(side, side));
    QCOMPARE(f.up->parentWidget()->size(), QSize(int(11 * scale), int(22 * scale)));
}

void TestTradeSpinBox::clickCountsOnce()
{
    Fixture f;
    f.Hover();
    QVERIFY(f.up->isVisible());
    QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
    QSignalSpy downSpy(f.spin, &CTradeSpinBox::DownButtonClicked);
    f.Press(f.up);
    f.Release(f.up);
    QCOMPARE(upSpy.count(), 1);
    f.Press(f.down);
    f.Release(f.down);
    QCOMPARE(downSpy.count(), 1);
    QCOMPARE(upSpy.count(), 1);
}

void TestTradeSpinBox::heldButtonCountsEachRepeatAndRelease()
{
    Fixture f;
    f.Hover();
    f.up->setAutoRepeatDelay(10);
    f.up->setAutoRepeatInterval(10);
    QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
    QSignalSpy repeats(f.up, &QAbstractButton::clicked);
    f.Press(f.up);
    QTRY_VERIFY(repeats.count() >= 3);
    QCOMPARE(upSpy.count(), repeats.count());
    int const beforeRelease = upSpy.count();
    f.Release(f.up);
    QCOMPARE(upSpy.count(), beforeRelease + 1);
}

void TestTradeSpinBox::rightButtonDoesNothing()
{
    Fixture f;
    f.Hover();
    QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
    f.Press(f.up, Qt::RightButton);
    f.Release(f.up, Qt::RightButton);
    QCOMPARE(upSpy.count(), 0);
    // The held flag stayed clear: an auto-repeat click on its own emits nothing.
    f.up->click();
    QCOMPARE(upSpy.count(), 0);
}

void TestTradeSpinBox::hoverShowsButtonsAndState()
{
    Fixture f;
    f.Hover();
    QVERIFY(f.up->isVisible() && f.down->isVisible());
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(f.up, &enter);
    QCOMPARE(f.up->property("state").toString(), QStringLiteral("hover"));
    f.Unhover();
    QVERIFY(!f.up->isVisible() && !f.down->isVisible());
    QVERIFY(f.up->property("state").isValid());
    QCOMPARE(f.up->property("state").toString(), QString());
}

void TestTradeSpinBox::disabledFieldKeepsButtonsHidden()
{
    Fixture f;
    f.spin->setEnabled(false);
    f.Hover();
    QVERIFY(!f.up->isVisible());
    f.Unhover();

    f.spin->setEnabled(true);
    f.Hover();
    f.spin->setEnabled(false);
    QVERIFY(f.up->isVisible());
    f.Unhover();
    QVERIFY(!f.up->isVisible());
}

void TestTradeSpinBox::keyboardSteps()
{
    Fixture f;
    f.spin->setText(QStringLiteral("1.00"));
    QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
    QSignalSpy downSpy(f.spin, &CTradeSpinBox::DownButtonClicked);
    QTest::keyClick(f.spin, Qt::Key_Up);
    QTest::keyClick(f.spin, Qt::Key_Down);
    QTest::keyClick(f.spin, Qt::Key_Down);
    QCOMPARE(upSpy.count(), 1);
    QCOMPARE(downSpy.count(), 2);
    QCOMPARE(f.spin->text(), QStringLiteral("1.00"));
}

void TestTradeSpinBox::wheelDoesNothing()
{
    Fixture f;
    f.spin->UseDefaultSignals(true);
    f.spin->SetValueRange(0, 100);
    f.spin->setText(QStringLiteral("5.00"));
    QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
    QPoint const c = f.spin->rect().center();
    QWheelEvent wheel(c, f.spin->mapToGlobal(c), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(f.spin, &wheel);
    QCOMPARE(f.spin->text(), QStringLiteral("5.00"));
    QCOMPARE(upSpy.count(), 0);
}

void TestTradeSpinBox::defaultStepping_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("mantissa");
    QTest::addColumn<int>("digits");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("stops at maximum") << "0.49" << 1 << 2 << true << QStringList{"0.50", "0.50"};
    QTest::newRow("off grid passes maximum") << "0.495" << 1 << 2 << true << QStringList{"0.51"};
    QTest::newRow("stops at minimum") << "0.02" << 1 << 2 << false << QStringList{"0.01", "0.01"};
    QTest::newRow("whole numbers") << "3" << 1 << 0 << true << QStringList{"4"};
    QTest::newRow("not a number reads 0") << "abc" << 5 << 2 << true << QStringList{"0.05"};
}

void TestTradeSpinBox::defaultStepping()
{
    QFETCH(QString, start);
    QFETCH(int, mantissa);
    QFETCH(int, digits);
    QFETCH(bool, up);
    QFETCH(QStringList, after);
    Fixture f;
    f.spin->UseDefaultSignals(true);
    f.spin->SetStep(Json::Number(mantissa, digits));
    if (digits == 0)
        f.spin->SetValueRange(0, 100);
    f.spin->setText(start);
    f.Hover();
    for (QString const &expected : after) {
        TPushButton *button = up ? f.up : f.down;
        f.Press(button);
        f.Release(button);
        QCOMPARE(f.spin->text(), expected);
    }
}

void TestTradeSpinBox::focusOutCorrection_data()
{
    QTest::addColumn<bool>("emptyEnable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::newRow("above maximum") << false << "0.51" << "0.50";
    QTest::newRow("below minimum") << false << "0.001" << "0.01";
    QTest::newRow("in range reprinted") << false << "0.3" << "0.30";
    QTest::newRow("empty becomes minimum") << false << "" << "0.01";
    QTest::newRow("empty allowed stays empty") << true << "" << "";
    QTest::newRow("garbage becomes minimum") << true << "x" << "0.01";
}

void TestTradeSpinBox::focusOutCorrection()
{
    QFETCH(bool, emptyEnable);
    QFETCH(QString, text);
    QFETCH(QString, after);
    Fixture f;
    f.spin->UseDefaultSignals(true);
    f.spin->SetEmptyEnable(emptyEnable);
    f.spin->setText(text);
    f.FocusOut();
    QCOMPARE(f.spin->text(), after);
}

void TestTradeSpinBox::defaultSignalsAreUniqueAndRemovable()
{
    Fixture f;
    f.spin->SetValueRange(0, 100);
    f.spin->setText(QStringLiteral("1.00"));
    QTest::keyClick(f.spin, Qt::Key_Up);
    QCOMPARE(f.spin->text(), QStringLiteral("1.00")); // nothing by default
    f.spin->UseDefaultSignals(true);
    f.spin->UseDefaultSignals(true);
    QTest::keyClick(f.spin, Qt::Key_Up);
    QCOMPARE(f.spin->text(), QStringLiteral("1.01"));
    f.spin->UseDefaultSignals(false);
    QTest::keyClick(f.spin, Qt::Key_Up);
    f.FocusOut();
    QCOMPARE(f.spin->text(), QStringLiteral("1.01"));
}

void TestTradeSpinBox::unitVisibilityRules()
{
    CTradeSpinBox hidden(1.0f, nullptr);
    hidden.SetUnitVisible(true);
    QVERIFY(!hidden.GetUnitVisible()); // not shown yet

    Fixture f;
    f.spin->SetUnitText(QStringLiteral("lots"));
    QCOMPARE(f.spin->GetUnitText(), QStringLiteral("lots"));
    QVERIFY(!f.spin->GetUnitVisible());
    f.spin->SetUnitEnable(false);
    f.spin->SetUnitVisible(true);
    QVERIFY(!f.spin->GetUnitVisible());
    f.spin->SetUnitEnable(true);
    QVERIFY(f.spin->GetUnitVisible());
    f.spin->SetUnitVisible(false);
    QVERIFY(!f.spin->GetUnitVisible());
    QVERIFY(f.spin->IsUnitEnable());
}

void TestTradeSpinBox::focusSignalsAndActiveFlag()
{
    Fixture f;
    QSignalSpy in(f.spin, &CTradeSpinBox::FocusInEvent);
    QSignalSpy out(f.spin, &CTradeSpinBox::FocusOutEvent);
    QFocusEvent focusIn(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(f.spin, &focusIn);
    QVERIFY(f.spin->IsActived());
    QCOMPARE(in.count(), 1);
    f.FocusOut();
    QVERIFY(!f.spin->IsActived());
    QCOMPARE(out.count(), 1);
    f.spin->SetUpButtonToolTip(QStringLiteral("more"));
    QCOMPARE(f.spin->GetUpButtonToolTip(), QStringLiteral("more"));
    QVERIFY(f.spin->IsUpButtonEnable() && f.spin->IsDwonButtonEnable());
}

QTEST_MAIN(TestTradeSpinBox)
#include "tst_trade_spin_box.moc"
