#include "uilib/tool_tip_proxy_style.h"

#include <QStyleFactory>
#include <QWidget>
#include <QtTest>

class TestToolTipProxyStyle : public QObject
{
    Q_OBJECT
private slots:
    void decidesTheWakeUpDelayOnly()
    {
        QStyle *fusion = QStyleFactory::create(QStringLiteral("Fusion"));
        QVERIFY(fusion);
        int const sleep = fusion->styleHint(QStyle::SH_ToolTip_FallAsleepDelay);
        int const dialogButtons = fusion->styleHint(QStyle::SH_DialogButtonLayout);
        QWidget widget;
        auto *style = new TToolTipProxyStyle(200, fusion);
        style->setParent(&widget);
        widget.setStyle(style);
        QCOMPARE(widget.style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, &widget), 200);
        QCOMPARE(widget.style()->styleHint(QStyle::SH_ToolTip_FallAsleepDelay, nullptr, &widget), sleep);
        QCOMPARE(widget.style()->styleHint(QStyle::SH_DialogButtonLayout), dialogButtons);
        QCOMPARE(style->WakeUpDelay(), 200);

        TToolTipProxyStyle immediate(-5);
        QCOMPARE(immediate.styleHint(QStyle::SH_ToolTip_WakeUpDelay), 0);
    }
};

QTEST_MAIN(TestToolTipProxyStyle)
#include "tst_tool_tip_proxy_style.moc"
