// The DPI service: registry, window scales, the scaled application style sheet and
// screen changes.
#include "uilib/uilib.h"

#include "qtcomm/qt_kelvo_helper.h"

#include <QScreen>
#include <QWindow>
#include <QtTest>

namespace {

QString const kSheet =
    QStringLiteral("QLabel { font-size: 10px; padding: 3px; } QFrame { border: 1px solid red; }");

} // namespace

class TestDpiHelper : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { GetDPIHelper()->SetApplicationStyleSheet(QString()); }

    void registryFollowsLifetime()
    {
        IDPIHelper *helper = GetDPIHelper();
        std::size_t const before = helper->RegisteredCount();
        auto *widget = new TWidget(1.0f);
        auto *layout = new TVBoxLayout(1.0f, widget);
        auto *label = new TLabel(1.0f, widget);
        QCOMPARE(helper->RegisteredCount(), before + 3);
        QVERIFY(helper->IsRegistered(label));
        QVERIFY(label->GetWID() != 0);
        QVERIFY(label->GetWID() != layout->GetWID());
        QVERIFY(label->RemoveParent());
        QVERIFY(!label->RemoveParent());
        QCOMPARE(label->GetWID(), 0u);
        QVERIFY(!helper->IsRegistered(label));
        QCOMPARE(helper->RegisteredCount(), before + 2);
        delete widget;
        QCOMPARE(helper->RegisteredCount(), before);
    }

    void windowStyleSheetIsScaledForItsWindow()
    {
        IDPIHelper *helper = GetDPIHelper();
        TWidget window(2.0f);
        WId const wid = window.winId();
        QVERIFY(helper->GetWindowStyleSheet(wid).isEmpty());
        helper->SetApplicationStyleSheet(kSheet);
        QString const sheet = helper->GetWindowStyleSheet(wid);
        QCOMPARE(sheet, QtKelvoHelper::ScaleSheet(kSheet, 2.0f));
        window.ScaleChanged(1.5f);
        QCOMPARE(helper->GetWindowStyleSheet(wid), QtKelvoHelper::ScaleSheet(kSheet, 1.5f));
        float const primary = DpiTool::GetWidgetDpi(nullptr);
        QCOMPARE(helper->GetWindowStyleSheet(0), QtKelvoHelper::ScaleSheet(kSheet, primary));
    }

    void knownWindowsCarryTheScaledSheet()
    {
        IDPIHelper *helper = GetDPIHelper();
        TFrame early(1.0f); // known before there is a sheet
        early.show();
        QVERIFY(early.styleSheet().isEmpty());
        helper->SetApplicationStyleSheet(kSheet);
        QCOMPARE(early.styleSheet(), QtKelvoHelper::ScaleSheet(kSheet, 1.0f));
        TWidget window(1.5f);
        auto *child = new TLabel(1.5f, &window);
        window.show();
        QCOMPARE(window.styleSheet(), QtKelvoHelper::ScaleSheet(kSheet, 1.5f));
        window.SetScale(2.0f);
        QCOMPARE(window.styleSheet(), QtKelvoHelper::ScaleSheet(kSheet, 2.0f));
        QCOMPARE(helper->GetWindowScale(child), 2.0f);
        window.ScaleChanged(1.0f);
        QCOMPARE(window.styleSheet(), QtKelvoHelper::ScaleSheet(kSheet, 1.0f));
        QVERIFY(child->styleSheet().isEmpty());
        // Fonts follow the scaled sheet.
        window.SetScale(2.0f);
        QCOMPARE(child->font().pixelSize(), 20);
        // Clearing the sheet unstyles the windows the helper styled, for good.
        helper->SetApplicationStyleSheet(QString());
        helper->UpdateWindowStyleSheet(&early);
        QVERIFY(early.styleSheet().isEmpty() && window.styleSheet().isEmpty());
    }

    void setWindowScaleWalksPlainWindow()
    {
        IDPIHelper *helper = GetDPIHelper();
        helper->SetApplicationStyleSheet(kSheet);
        QWidget plain;
        auto *holder = new QWidget(&plain);
        auto *label = new TLabel(1.0f, holder);
        label->setFixedWidth(10);
        helper->SetWindowScale(label, 2.0f);
        QCOMPARE(label->width(), 20);
        QCOMPARE(helper->GetWindowScale(&plain), 2.0f);
        QCOMPARE(helper->GetWindowScale(holder), 2.0f);
        QCOMPARE(plain.styleSheet(), QtKelvoHelper::ScaleSheet(kSheet, 2.0f));
        QCOMPARE(helper->GetWindowScale(nullptr), 1.0f);
        helper->SetWindowScale(&plain, 0.0f); // bad scales and null are ignored
        helper->SetWindowScale(nullptr, 3.0f);
        QCOMPARE(label->width(), 20);
        QCOMPARE(label->GetScale(), 2.0f);
    }

    void screenChangeAppliesTheScreenScale()
    {
        TWidget window(2.0f);
        auto *label = new TLabel(2.0f, &window);
        label->setFixedWidth(10);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QScreen *screen = QGuiApplication::primaryScreen();
        emit window.windowHandle()->screenChanged(screen);
        float const scale = DpiTool::ScreenScale(screen);
        QCOMPARE(window.GetScale(), scale);
        QCOMPARE(label->width(), DpiTool::Physical(10, scale));
        QCOMPARE(GetDPIHelper()->GetWindowScale(&window), scale);
    }
};

QTEST_MAIN(TestDpiHelper)
#include "tst_dpi_helper.moc"
