#include "trade/trade_spin_box.h"

#include "uilib/push_button.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

Q_DECLARE_METATYPE(QFocusEvent *)

namespace {

// A shown window holding one field, so that mouse events travel the real way (through
// the window system interface, which keeps QGuiApplication::mouseButtons()).
struct Fixture : QWidget {
    Fixture()
    {
        (new QVBoxLayout(this))->addWidget(spin = new CTradeSpinBox(1.0f, nullptr));
        resize(300, 80);
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
        up = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxUpButton"));
        down = spin->findChild<TPushButton *>(QStringLiteral("SpinBoxDownButton"));
    }
    // A focus event serves for the plain ones too (enter, leave).
    static void Send(QWidget *w, QEvent::Type type)
    {
        QFocusEvent event(type, Qt::TabFocusReason);
        QApplication::sendEvent(w, &event);
    }
    void Mouse(QWidget *w, bool press, Qt::MouseButton b = Qt::LeftButton)
    {
        QPoint const at = w->mapTo(this, w->rect().center());
        if (press)
            QTest::mousePress(windowHandle(), b, {}, at);
        else
            QTest::mouseRelease(windowHandle(), b, {}, at);
    }
    void Click(QWidget *w)
    {
        Mouse(w, true);
        Mouse(w, false);
    }

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

    void geometryFollowsScale_data()
    {
        QTest::addColumn<float>("scale");
        for (float scale : {1.0f, 1.5f, 2.0f})
            QTest::addRow("%.1f", double(scale)) << scale;
    }
    void geometryFollowsScale()
    {
        QFETCH(float, scale);
        Fixture f;
        f.spin->ScaleChanged(scale);
        QCOMPARE(f.up->size(), QSize(int(10 * scale), int(10 * scale)));
        QCOMPARE(f.up->parentWidget()->size(), QSize(int(11 * scale), int(22 * scale)));
    }

    // A click emits once, for its own button; a right click emits nothing. Held down,
    // the left button emits at each auto repeat and once more at the release.
    void clicksCountOnceAndRepeatWhileHeld()
    {
        Fixture f;
        f.Send(f.spin, QEvent::Enter);
        QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
        QSignalSpy downSpy(f.spin, &CTradeSpinBox::DownButtonClicked);
        f.Click(f.up);
        f.Click(f.down);
        f.Mouse(f.up, true, Qt::RightButton);
        f.Mouse(f.up, false, Qt::RightButton);
        f.Mouse(f.spin, true); // held on the text, not on the button: its repeat click says nothing
        f.up->click();
        f.Mouse(f.spin, false);
        QCOMPARE(upSpy.count(), 1);
        QCOMPARE(downSpy.count(), 1);

        f.up->setAutoRepeatDelay(10);
        f.up->setAutoRepeatInterval(10);
        QSignalSpy repeats(f.up, &QAbstractButton::clicked);
        f.Mouse(f.up, true);
        QTRY_VERIFY(repeats.count() >= 3);
        QCOMPARE(upSpy.count(), 1 + repeats.count());
        int const beforeRelease = upSpy.count();
        f.Mouse(f.up, false);
        QCOMPARE(upSpy.count(), beforeRelease + 1);
        QCOMPARE(downSpy.count(), 1);
    }

    void hoverShowsButtonsUnlessDisabled()
    {
        Fixture f;
        f.spin->setEnabled(false);
        f.Send(f.spin, QEvent::Enter);
        QVERIFY(!f.up->isVisible());
        f.spin->setEnabled(true);
        f.Send(f.spin, QEvent::Enter);
        QVERIFY(f.up->isVisible() && f.down->isVisible());
        f.Send(f.up, QEvent::Enter);
        QCOMPARE(f.up->property("state").toString(), QStringLiteral("hover"));
        f.spin->setEnabled(false); // buttons on show stay until the pointer leaves
        QVERIFY(f.up->isVisible());
        f.Send(f.spin, QEvent::Leave);
        QVERIFY(!f.up->isVisible() && !f.down->isVisible());
        QVERIFY(f.up->property("state").isValid());
        QCOMPARE(f.up->property("state").toString(), QString());
    }

    // Keys emit like the buttons. The field steps and corrects by itself only while the
    // default signals are on, which they are not at first.
    void keysFocusAndDefaultSignalsOff()
    {
        Fixture f;
        QSignalSpy in(f.spin, &CTradeSpinBox::FocusInEvent);
        QSignalSpy out(f.spin, &CTradeSpinBox::FocusOutEvent);
        QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
        QSignalSpy downSpy(f.spin, &CTradeSpinBox::DownButtonClicked);
        f.Send(f.spin, QEvent::FocusIn);
        QVERIFY(f.spin->IsActived());
        f.spin->setText(QStringLiteral("500"));
        for (Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down})
            QTest::keyClick(f.spin, key);
        QCOMPARE(f.spin->text(), QStringLiteral("500"));
        f.spin->UseDefaultSignals(true);
        f.spin->UseDefaultSignals(false);
        QTest::keyClick(f.spin, Qt::Key_Up);
        f.Send(f.spin, QEvent::FocusOut);
        QCOMPARE(f.spin->text(), QStringLiteral("500"));
        QVERIFY(!f.spin->IsActived());
        QCOMPARE(in.count(), 1);
        QCOMPARE(out.count(), 1);
        QCOMPARE(upSpy.count(), 2);
        QCOMPARE(downSpy.count(), 2);
    }

    // The wheel is not a way to step a price: nothing changes, nothing is sent.
    void wheelChangesNothing()
    {
        Fixture f;
        f.spin->UseDefaultSignals(true);
        f.spin->setText(QStringLiteral("0.25"));
        QSignalSpy upSpy(f.spin, &CTradeSpinBox::UpButtonClicked);
        QSignalSpy downSpy(f.spin, &CTradeSpinBox::DownButtonClicked);
        QPoint const at = f.spin->rect().center();
        for (int delta : {120, -120}) {
            QWheelEvent wheel(at, f.spin->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(f.spin, &wheel);
        }
        QCOMPARE(f.spin->text(), QStringLiteral("0.25"));
        QCOMPARE(upSpy.count() + downSpy.count(), 0);
    }

    // With the default signals, in the default range 0.01 to 0.5: "u" and "d" click a
    // step button, "o" takes the focus away; `after` holds the text after each.
    void defaultSteppingAndCorrection_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<bool>("emptyEnable");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("actions");
        QTest::addColumn<QStringList>("after");
        QTest::newRow("stops at maximum") << "0.01" << false << "0.49" << "uu" << QStringList{"0.50", "0.50"};
        QTest::newRow("off grid passes maximum") << "0.01" << false << "0.495" << "uo" << QStringList{"0.51", "0.50"};
        QTest::newRow("stops at minimum") << "0.01" << false << "0.02" << "dd" << QStringList{"0.01", "0.01"};
        QTest::newRow("whole numbers") << "1" << false << "3" << "u" << QStringList{"4"};
        QTest::newRow("not a number reads 0") << "0.05" << false << "abc" << "u" << QStringList{"0.05"};
        QTest::newRow("below minimum") << "0.01" << false << "0.001" << "o" << QStringList{"0.01"};
        QTest::newRow("in range reprinted") << "0.01" << false << "0.3" << "o" << QStringList{"0.30"};
        QTest::newRow("empty becomes minimum") << "0.01" << false << "" << "o" << QStringList{"0.01"};
        QTest::newRow("empty allowed stays empty") << "0.01" << true << "" << "o" << QStringList{""};
        QTest::newRow("garbage becomes minimum") << "0.01" << true << "x" << "o" << QStringList{"0.01"};
    }
    void defaultSteppingAndCorrection()
    {
        QFETCH(QString, step);
        QFETCH(bool, emptyEnable);
        QFETCH(QString, start);
        QFETCH(QString, actions);
        QFETCH(QStringList, after);
        Fixture f;
        f.spin->UseDefaultSignals(true);
        f.spin->UseDefaultSignals(true); // connected once all the same
        f.spin->SetStep(Json::Number(step.toStdString()));
        f.spin->SetEmptyEnable(emptyEnable);
        f.spin->setText(start);
        f.Send(f.spin, QEvent::Enter);
        for (int i = 0; i < actions.size(); ++i) {
            if (actions.at(i) == QLatin1Char('o'))
                f.Send(f.spin, QEvent::FocusOut);
            else
                f.Click(actions.at(i) == QLatin1Char('u') ? f.up : f.down);
            QCOMPARE(f.spin->text(), after.at(i));
        }
    }

    void unitShowsWhenEnabledAndWanted()
    {
        CTradeSpinBox hidden(1.0f, nullptr);
        hidden.SetUnitVisible(true);
        QVERIFY(!hidden.GetUnitVisible()); // the field itself is not shown yet

        Fixture f;
        QVERIFY(!f.spin->GetUnitVisible());
        f.spin->SetUnitEnable(false);
        f.spin->SetUnitVisible(true);
        QVERIFY(!f.spin->GetUnitVisible());
        f.spin->SetUnitEnable(true);
        QVERIFY(f.spin->GetUnitVisible());
        f.spin->SetUnitVisible(false);
        QVERIFY(!f.spin->GetUnitVisible());
    }
};

QTEST_MAIN(TestTradeSpinBox)
#include "tst_trade_spin_box.moc"
