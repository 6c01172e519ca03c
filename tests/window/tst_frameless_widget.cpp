#include "window/frameless_widget.h"

#include "qtcomm/language_helper.h"
#include "uilib/label.h"
#include "uilib/push_button.h"
#include "uilib/tool_button.h"

#include <QLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace {

using Result = TFramelessWidget::ResultASK;

// A message box with OK and Cancel, a text and the given title bar buttons, shown.
struct Box
{
    explicit Box(int titleFlags = 0, float scale = 1.0f)
        : widget(new TFramelessWidget(scale, nullptr))
    {
        widget->SetTitleName(QStringLiteral("Confirm"));
        widget->SetWindowFlags(CTitleBar::WindowFlags(titleFlags));
        widget->SetOperateFlags(TFramelessWidget::OperateFlagOk | TFramelessWidget::OperateFlagCancel);
        content = new TLabel(scale, QStringLiteral("Cancel all open orders?"), nullptr);
        content->setFixedSize(200, 60);
        widget->SetContentWidget(content);
        widget->move(100, 100);
        widget->show();
        bar = widget->findChild<CTitleBar *>();
    }
    ~Box() { delete widget.data(); }
    TPushButton *Button(TFramelessWidget::OperateFlag flag) const { return widget->GetOperateButton(flag); }
    QPoint At(QWidget *w) const { return w->mapTo(widget, w->rect().center()); }
    void Click(QWidget *w) const { QTest::mouseClick(widget->windowHandle(), Qt::LeftButton, {}, At(w)); }

    QPointer<TFramelessWidget> widget;
    QPointer<TLabel> content;
    CTitleBar *bar;
};

} // namespace

class TstFramelessWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<Result>(); }

    void layoutAndOperateButtons_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("1.0") << 1.0f;
        QTest::newRow("2.0") << 2.0f;
    }
    void layoutAndOperateButtons()
    {
        QFETCH(float, scale);
        auto const px = [scale](int logical) { return int(float(logical) * scale); };
        Box box(0, scale);
        QVERIFY(box.widget->windowFlags() & Qt::FramelessWindowHint);
        TPushButton *ok = box.Button(TFramelessWidget::OperateFlagOk);
        TPushButton *cancel = box.Button(TFramelessWidget::OperateFlagCancel);
        QWidget *operate = ok->parentWidget();
        // A border of one unit, then the rows without stretch; OK left of Cancel at the right end.
        QCOMPARE(box.bar->geometry(), QRect(px(1), px(1), box.widget->width() - 2 * px(1), px(28)));
        int const row = 3 * px(20); // the buttons between margins of 20
        QCOMPARE(operate->geometry(), QRect(px(1), box.widget->height() - row - px(1), box.bar->width(), row));
        QCOMPARE(ok->size(), QSize(px(80), px(20)));
        QCOMPARE(cancel->x() - ok->geometry().right() - 1, px(10));
        QCOMPARE(cancel->geometry().right() + 1, operate->width() - px(20));

        QSignalSpy completed(box.widget.data(), &TFramelessWidget::MessageCompleted);
        box.Click(cancel);
        box.Click(ok);
        QTest::keyClick(box.widget.data(), Qt::Key_Return); // Return clicks the default button
        QTRY_COMPARE(completed.size(), 3);
        QCOMPARE(completed.at(0).at(0).value<Result>(), TFramelessWidget::ResultAskCancel);
        QCOMPARE(completed.at(1).at(0).value<Result>(), TFramelessWidget::ResultAskOk);
        QCOMPARE(completed.at(2).at(0).value<Result>(), TFramelessWidget::ResultAskOk);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(box.widget && box.widget->isVisible()); // the listener decides when to close

        TFramelessWidget onlyCancel(scale, nullptr);
        onlyCancel.SetOperateFlags(TFramelessWidget::OperateFlagCancel);
        QVERIFY(!onlyCancel.GetOperateButton(TFramelessWidget::OperateFlagOk));

        // AdjustHeight fits the height to word-wrapped text, and freezes it half a second later.
        auto *text = new TLabel(scale, QStringLiteral("word ").repeated(40), nullptr);
        text->setWordWrap(true);
        onlyCancel.SetContentWidget(text);
        onlyCancel.AdjustHeight(240);
        QCOMPARE(onlyCancel.width(), px(240));
        QVERIFY(onlyCancel.minimumHeight() != onlyCancel.maximumHeight());
        int const fitted = onlyCancel.height();
        QVERIFY(fitted > px(2 + 28 + 60) + text->fontMetrics().height() * 2);
        QTRY_COMPARE(onlyCancel.maximumHeight(), onlyCancel.minimumHeight());
        QCOMPARE(onlyCancel.maximumHeight(), px(int(fitted / scale)));
        QCOMPARE(onlyCancel.maximumWidth(), px(240));
    }

    void closesWithoutResultAndTakesAll_data()
    {
        QTest::addColumn<int>("titleFlags");
        QTest::addColumn<bool>("escape");
        QTest::newRow("close button") << int(CTitleBar::WindowFlagClose) << false;
        QTest::newRow("escape") << int(CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose) << true;
        QTest::newRow("escape, no close button") << 0 << true;
    }
    void closesWithoutResultAndTakesAll()
    {
        QFETCH(int, titleFlags);
        QFETCH(bool, escape);
        Box box(titleFlags);
        TPushButton *ok = box.Button(TFramelessWidget::OperateFlagOk);
        QList<QPointer<QObject>> const owned{box.bar, box.content.data(), ok, ok->parentWidget(),
                                             box.Button(TFramelessWidget::OperateFlagCancel)};
        QSignalSpy completed(box.widget.data(), &TFramelessWidget::MessageCompleted);
        if (escape)
            QTest::keyClick(box.widget.data(), Qt::Key_Escape);
        else
            box.Click(box.bar->GetButtonByFlag(CTitleBar::WindowFlagClose));
        QTRY_VERIFY(box.widget.isNull());
        QCOMPARE(completed.size(), 0);
        for (auto const &object : owned)
            QVERIFY(object.isNull());
    }

    void contentReplaced()
    {
        Box box;
        QPointer<TLabel> first = box.content;
        QWidget *frame = first->parentWidget();
        QPointer<TLabel> second = new TLabel(1.0f, QStringLiteral("second"), nullptr);
        box.widget->SetContentWidget(second);
        QVERIFY(first && first->isHidden()); // closed now, deleted later
        QTRY_VERIFY(first.isNull());
        QCOMPARE(second->parentWidget(), frame);
        box.widget->SetContentWidget(second); // the current content given again stays
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(second);
        QCOMPARE(frame->layout()->count(), 1);
        box.widget->SetContentWidget(nullptr);
        QCOMPARE(frame->layout()->count(), 0);
        QTRY_VERIFY(second.isNull());
    }

    void adjustHeightThenClosed()
    {
        QPointer<TFramelessWidget> widget = new TFramelessWidget(1.0f, nullptr);
        widget->show();
        widget->AdjustHeight(240);
        QObject context;
        bool stepDue = false; // started after the widget's step, so it fires after it
        QTimer::singleShot(501, &context, [&stepDue] { stepDue = true; });
        widget->close();
        QTRY_VERIFY(widget.isNull());
        QTRY_VERIFY(stepDue); // a step that outlived its widget would touch freed memory here (ASan)
    }

    void dragByTitleBarOnly_data()
    {
        QTest::addColumn<QString>("where");
        QTest::addColumn<bool>("moves");
        QTest::newRow("title bar") << "bar" << true;
        QTest::newRow("title name") << "name" << true;
        QTest::newRow("title button") << "button" << false;
        QTest::newRow("content") << "content" << false;
    }
    void dragByTitleBarOnly()
    {
        QFETCH(QString, where);
        QFETCH(bool, moves);
        Box box(CTitleBar::WindowFlagMinimize);
        QVERIFY(QTest::qWaitForWindowExposed(box.widget));
        QMap<QString, QWidget *> const targets{{"bar", box.bar}, {"content", box.content},
                                               {"name", box.bar->GetNameLabel()},
                                               {"button", box.bar->findChild<TToolButton *>()}};
        QWidget *target = targets.value(where);
        QVERIFY(!target->size().isEmpty());
        QPoint const start = box.At(target), before = box.widget->pos(), delta(-40, 25);
        QWindow *handle = box.widget->windowHandle();
        QPoint const end = handle->mapToGlobal(start + delta);
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        QTest::mouseMove(handle, start + delta);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFromGlobal(end)); // the pointer stays put
        QTRY_COMPARE(box.widget->pos(), moves ? before + delta : before);
    }

    void stayOnTopToggle()
    {
        Box box(CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose);
        box.widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(box.widget));
        QRect const geometry = box.widget->geometry();
        QWindow *native = box.widget->windowHandle();
        TToolButton *top = box.bar->GetButtonByFlag(CTitleBar::WindowFlagTop);
        QSignalSpy clicked(box.bar, &CTitleBar::ButtonClicked);
        for (bool pinned : {true, false}) {
            box.Click(top);
            QCOMPARE(bool(box.widget->windowFlags() & Qt::WindowStaysOnTopHint), pinned);
            QCOMPARE(bool(native->flags() & Qt::WindowStaysOnTopHint), pinned); // told to the window system
            QVERIFY(box.widget->windowFlags() & Qt::FramelessWindowHint);
            QCOMPARE(box.widget->windowHandle(), native); // not made anew
            QVERIFY(box.widget->isVisible() && box.widget->isActiveWindow());
            QCOMPARE(box.widget->geometry(), geometry);
            wchar_t const *tip = pinned ? L"desktop_comm_common_cancel_top" : L"desktop_comm_common_top";
            QCOMPARE(top->toolTip(), QString::fromWCharArray(LoadXmlString(tip)));
        }
        QCOMPARE(clicked.size(), 2);
    }
};

QTEST_MAIN(TstFramelessWidget)
#include "tst_frameless_widget.moc"
