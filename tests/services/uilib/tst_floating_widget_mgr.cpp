#include "uilib/floating_widget_mgr.h"

#include <QtTest>

class TestFloatingWidgetMgr : public QObject
{
    Q_OBJECT
private slots:
    void listsLiveWidgetsOnce()
    {
        CFloatingWidgetMgr *manager = CFloatingWidgetMgr::getInstance();
        QCOMPARE(CFloatingWidgetMgr::getInstance(), manager);
        auto *first = new QWidget;
        auto *second = new QWidget;
        QWidget third;
        manager->addWidget(first);
        manager->addWidget(second);
        manager->addWidget(first);
        manager->addWidget(nullptr);
        manager->addWidget(&third);
        QCOMPARE(manager->getWidgets(), (QList<QWidget *>{first, second, &third}));
        delete first;
        QCOMPARE(manager->getWidgets(), (QList<QWidget *>{second, &third}));
        QVERIFY(!manager->containsWidget(first));
        manager->removeWidget(second);
        delete second;
        QCOMPARE(manager->getWidgets(), QList<QWidget *>{&third});
        manager->removeWidget(&third);
        QVERIFY(manager->getWidgets().isEmpty());
    }
};

QTEST_MAIN(TestFloatingWidgetMgr)
#include "tst_floating_widget_mgr.moc"
