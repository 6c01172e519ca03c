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

int Px(int logical, float scale)
{
    return int(float(logical) * scale);
}

QString Text(wchar_t const *key)
{
    return QString::fromWCharArray(LoadXmlString(key));
}

// A message box with OK and Cancel, a text and the given title bar buttons, shown.
struct Box {
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
    QPoint At(QWidget *w, QPoint local) const { return w->mapTo(widget, local); }
    void Click(QWidget *w) const
    {
        QTest::mouseClick(widget->windowHandle(), Qt::LeftButton, {}, At(w, w->rect().center()));
    }

    QPointer<TFramelessWidget> widget;
    QPointer<TLabel> content;
    CTitleBar *bar;
};

} // namespace

class TstFramelessWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<TFramelessWidget::ResultASK>(); }
    void emptyWindowLayout_data();
    void emptyWindowLayout();
    void operateButtons_data() { emptyWindowLayout_data(); }
    void operateButtons();
    void closesWithoutResultAndTakesAll_data();
    void closesWithoutResultAndTakesAll();
    void contentReplaced();
    void adjustHeightFreezes_data() { emptyWindowLayout_data(); }
    void adjustHeightFreezes();
    void adjustHeightThenClosed();
    void dragByTitleBarOnly_data();
    void dragByTitleBarOnly();
    void stayOnTopToggle();
};

void TstFramelessWidget::emptyWindowLayout_data()
{
    QTest::addColumn<float>("scale");
    QTest::newRow("1.0") << 1.0f;
    QTest::newRow("2.0") << 2.0f;
}

void TstFramelessWidget::emptyWindowLayout()
{
    QFETCH(float, scale);
    TFramelessWidget widget(scale, nullptr);
    widget.setAttribute(Qt::WA_DeleteOnClose, false);
    widget.show();
    QVERIFY(widget.windowFlags() & Qt::FramelessWindowHint);
    CTitleBar *bar = widget.findChild<CTitleBar *>();
    QWidget *operate = widget.findChild<QWidget *>(QStringLiteral("OperateWidget"));
    QVERIFY(bar && operate);
    QVERIFY(bar->findChildren<TToolButton *>().isEmpty());
    QVERIFY(operate->findChildren<TPushButton *>().isEmpty());
    // Border of one unit, then the rows without stretch; the empty button row keeps its margins.
    int const border = Px(1, scale);
    QCOMPARE(bar->geometry(), QRect(border, border, widget.width() - 2 * border, Px(28, scale)));
    QCOMPARE(operate->geometry(), QRect(border, bar->geometry().bottom() + 1, bar->width(), 2 * Px(20, scale)));
    QCOMPARE(widget.height(), operate->geometry().bottom() + 1 + border);
}

void TstFramelessWidget::operateButtons()
{
    QFETCH(float, scale);
    Box box(0, scale);
    TPushButton *ok = box.Button(TFramelessWidget::OperateFlagOk);
    TPushButton *cancel = box.Button(TFramelessWidget::OperateFlagCancel);
    QVERIFY(ok && cancel);
    QCOMPARE(ok->objectName(), QStringLiteral("highlight_button"));
    QCOMPARE(cancel->objectName(), QStringLiteral("general_button"));
    QCOMPARE(ok->text(), Text(L"KVS_MGSBOX_OK"));
    QCOMPARE(cancel->text(), Text(L"KVS_ORDER_CANCEL_ASK"));
    QCOMPARE(ok->property("Checked").toString(), QStringLiteral("true"));
    QVERIFY(ok->isDefault() && !cancel->isDefault());
    QCOMPARE(ok->size(), QSize(Px(80, scale), Px(20, scale)));
    QCOMPARE(cancel->x() - ok->geometry().right() - 1, Px(10, scale)); // OK left of Cancel, at the right end
    QCOMPARE(cancel->geometry().right() + 1, cancel->parentWidget()->width() - Px(20, scale));

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
}

void TstFramelessWidget::closesWithoutResultAndTakesAll_data()
{
    QTest::addColumn<int>("titleFlags");
    QTest::addColumn<bool>("escape");
    QTest::newRow("close button") << int(CTitleBar::WindowFlagClose) << false;
    QTest::newRow("escape") << int(CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose) << true;
    QTest::newRow("escape, no close button") << 0 << true;
}

void TstFramelessWidget::closesWithoutResultAndTakesAll()
{
    QFETCH(int, titleFlags);
    QFETCH(bool, escape);
    Box box(titleFlags);
    QList<QPointer<QObject>> const owned{box.bar, box.content.data(), box.Button(TFramelessWidget::OperateFlagOk),
                                         box.Button(TFramelessWidget::OperateFlagCancel),
                                         box.widget->findChild<QWidget *>(QStringLiteral("OperateWidget"))};
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

void TstFramelessWidget::contentReplaced()
{
    Box box;
    QPointer<TLabel> first = box.content;
    QWidget *frame = first->parentWidget();
    QPointer<TLabel> second = new TLabel(1.0f, QStringLiteral("second"), nullptr);
    box.widget->SetContentWidget(second);
    QVERIFY(first && first->isHidden()); // closed now, deleted later
    QTRY_VERIFY(first.isNull());
    QCOMPARE(second->parentWidget(), frame);
    QCOMPARE(frame->layout()->count(), 1);

    box.widget->SetContentWidget(second); // the current content given again stays
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(second);
    QCOMPARE(frame->layout()->count(), 1);
    box.widget->SetContentWidget(nullptr);
    QCOMPARE(frame->layout()->count(), 0);
    QTRY_VERIFY(second.isNull());
}

void TstFramelessWidget::adjustHeightFreezes()
{
    QFETCH(float, scale);
    TFramelessWidget widget(scale, nullptr);
    widget.setAttribute(Qt::WA_DeleteOnClose, false);
    auto *text = new TLabel(scale, QStringLiteral("word ").repeated(40), nullptr);
    text->setWordWrap(true);
    widget.SetContentWidget(text);
    widget.AdjustHeight(240);
    QCOMPARE(widget.width(), Px(240, scale));
    QVERIFY(widget.minimumHeight() != widget.maximumHeight()); // not frozen yet
    int const fitted = widget.height();
    QVERIFY(fitted > Px(2 + 28 + 40, scale) + text->fontMetrics().height() * 2); // wrapped text

    QTRY_COMPARE(widget.maximumHeight(), widget.minimumHeight());
    QCOMPARE(widget.maximumHeight(), Px(int(fitted / scale), scale));
    QCOMPARE(widget.maximumWidth(), Px(240, scale));
}

void TstFramelessWidget::adjustHeightThenClosed()
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

void TstFramelessWidget::dragByTitleBarOnly_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<bool>("moves");
    QTest::newRow("title bar") << "bar" << true;
    QTest::newRow("title name") << "name" << true;
    QTest::newRow("title button") << "button" << false;
    QTest::newRow("content") << "content" << false;
}

void TstFramelessWidget::dragByTitleBarOnly()
{
    QFETCH(QString, where);
    QFETCH(bool, moves);
    Box box(CTitleBar::WindowFlagMinimize);
    QVERIFY(QTest::qWaitForWindowExposed(box.widget));
    QWidget *target = box.content;
    if (where == "bar")
        target = box.bar;
    else if (where == "name")
        target = box.bar->GetNameLabel();
    else if (where == "button")
        target = box.bar->GetButtonByFlag(CTitleBar::WindowFlagMinimize);
    QPoint const start = box.At(target, target->rect().center());
    QPoint const before = box.widget->pos();
    QPoint const delta(-40, 25);
    QWindow *handle = box.widget->windowHandle();
    QPoint const end = handle->mapToGlobal(start + delta);
    QTest::mousePress(handle, Qt::LeftButton, {}, start);
    QTest::mouseMove(handle, start + delta);
    // The pointer stays where it is while the window moves under it.
    QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFromGlobal(end));
    QTRY_COMPARE(box.widget->pos(), moves ? before + delta : before);
}

void TstFramelessWidget::stayOnTopToggle()
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
        QCOMPARE(top->toolTip(), Text(pinned ? L"desktop_comm_common_cancel_top" : L"desktop_comm_common_top"));
    }
    QCOMPARE(clicked.size(), 2);
}

QTEST_MAIN(TstFramelessWidget)
#include "tst_frameless_widget.moc"
