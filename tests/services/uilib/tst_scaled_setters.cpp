// The scaled setters of the T widgets: what they apply, what a change of scale applies
// again, and what they leave to Qt.
#include "uilib/uilib.h"

#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QtTest>

#include <utility>
#include <vector>

namespace {

// A 10 x 8 picture; at scale s the library renders it at (10 s) x (8 s).
QString WriteSvg(QTemporaryDir const &dir)
{
    QString const path = dir.filePath(QStringLiteral("box.svg"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='8'>"
                   "<rect width='10' height='8' fill='red'/></svg>");
    }
    return path;
}

int P(int logical, float scale)
{
    return DpiTool::Physical(logical, scale);
}

} // namespace

class TestScaledSetters : public QObject
{
    Q_OBJECT
private slots:
    void everyClassIsAQObjectWithPublicMetaObject()
    {
        TWidget window(1.0f);
        std::vector<std::pair<QObject *, QMetaObject const *>> const objects = {
            {new TVBoxLayout(1.0f, &window), &TVBoxLayout::staticMetaObject},
            {new TMenu(1.0f, &window), &TMenu::staticMetaObject},
            {new TPushButton(1.0f, &window), &TPushButton::staticMetaObject},
            {new TToolButton(1.0f, &window), &TToolButton::staticMetaObject},
            {new TLabel(1.0f, &window), &TLabel::staticMetaObject},
            {new TLineEdit(1.0f, &window), &TLineEdit::staticMetaObject},
            {new TWidget(1.0f, &window), &TWidget::staticMetaObject},
            {new TFrame(1.0f, &window), &TFrame::staticMetaObject},
            {new TDialog(1.0f, &window), &TDialog::staticMetaObject},
            {new TComboBox(1.0f, &window), &TComboBox::staticMetaObject},
            {new TScrollBar(1.0f, &window), &TScrollBar::staticMetaObject},
            {new TListView(1.0f, &window), &TListView::staticMetaObject},
            {new TTableView(1.0f, &window), &TTableView::staticMetaObject},
            {new TTextBrowser(1.0f, &window), &TTextBrowser::staticMetaObject}};
        for (auto const &entry : objects) {
            QCOMPARE(entry.first->metaObject(), entry.second);
            QVERIFY(dynamic_cast<ICallDPIChanged *>(entry.first));
        }
        QVERIFY(qobject_cast<TBoxLayout *>(objects[0].first));
        QVERIFY(!qobject_cast<TLabel *>(objects[7].first));
    }

    void settersScaleAndRescale_data()
    {
        QTest::addColumn<float>("scale");
        QTest::addColumn<float>("next");
        QTest::newRow("1.0 to 2.0") << 1.0f << 2.0f;
        QTest::newRow("1.5 to 1.0") << 1.5f << 1.0f;
        QTest::newRow("2.0 to 1.5") << 2.0f << 1.5f;
    }
    void settersScaleAndRescale()
    {
        QFETCH(float, scale);
        QFETCH(float, next);
        TWidget window(scale);
        auto *widget = new TWidget(scale, &window);
        auto *frame = new TFrame(scale, &window);
        auto *dialog = new TDialog(scale, &window);
        auto *label = new TLabel(scale, &window);
        auto *edit = new TLineEdit(scale, &window);
        auto *push = new TPushButton(scale, &window);
        auto *tool = new TToolButton(scale, &window);
        auto *check = new TCheckBox(scale, &window);
        auto *spin = new TSpinBox(scale, &window);
        auto *combo = new TComboBox(scale, &window);
        auto *menu = new TMenu(scale, &window);
        auto *listView = new TListView(scale, &window);
        auto *textEdit = new TTextEdit(scale, &window);
        auto *browser = new TTextBrowser(scale, &window);
        auto *table = new TTableView(scale, &window);
        auto *list = new TListWidget(scale, &window);
        QStandardItemModel model(2, 3);
        table->setModel(&model);
        auto *item = new TListWidgetItem(list);

        widget->setFixedSize(11, 12);
        frame->setFixedSize(QSize(13, 14));
        frame->setMinimumSize(9, 7);
        dialog->setFixedWidth(101);
        label->setFixedHeight(15);
        label->setMinimumWidth(16);
        label->setMaximumWidth(170);
        edit->setFixedHeight(23);
        edit->setTextMargins(1, 2, 3, 4);
        push->setFixedSize(17, 19);
        tool->setFixedSize(18, 18);
        check->setFixedSize(19, 20);
        spin->setFixedSize(41, 21);
        combo->setFixedWidth(55);
        menu->setFixedWidth(120);
        listView->setFixedHeight(61);
        textEdit->setFixedHeight(62);
        browser->setFixedHeight(63);
        table->setColumnWidth(1, 70);
        item->setSizeHint(QSize(50, 24));

        for (float s : {scale, next}) {
            QCOMPARE(widget->size(), QSize(P(11, s), P(12, s)));
            QCOMPARE(frame->maximumSize(), QSize(P(13, s), P(14, s)));
            QCOMPARE(dialog->minimumWidth(), P(101, s));
            QCOMPARE(label->maximumHeight(), P(15, s));
            QCOMPARE(label->minimumWidth(), P(16, s));
            QCOMPARE(label->maximumWidth(), P(170, s));
            QCOMPARE(edit->minimumHeight(), P(23, s));
            QCOMPARE(edit->textMargins(), QMargins(P(1, s), P(2, s), P(3, s), P(4, s)));
            QCOMPARE(push->maximumSize(), QSize(P(17, s), P(19, s)));
            QCOMPARE(tool->maximumSize(), QSize(P(18, s), P(18, s)));
            QCOMPARE(check->maximumSize(), QSize(P(19, s), P(20, s)));
            QCOMPARE(spin->maximumSize(), QSize(P(41, s), P(21, s)));
            QCOMPARE(combo->maximumWidth(), P(55, s));
            QCOMPARE(menu->maximumWidth(), P(120, s));
            QCOMPARE(listView->maximumHeight(), P(61, s));
            QCOMPARE(textEdit->maximumHeight(), P(62, s));
            QCOMPARE(browser->maximumHeight(), P(63, s));
            QCOMPARE(table->columnWidth(1), P(70, s));
            QCOMPARE(item->sizeHint(), QSize(P(50, s), P(24, s)));
            // The dialog and the menu are windows of their own: SetScale reaches them.
            window.SetScale(next);
        }
        // The frame's minimum size came after its fixed size and still wins.
        QCOMPARE(frame->minimumSize(), QSize(P(9, next), P(7, next)));
        QCOMPARE(window.GetScale(), next);
        QCOMPARE(dialog->GetScale(), next);
        QCOMPARE(menu->GetScale(), next);
    }

    void onlyScaledSetterCallsAreReappliedInOrder()
    {
        TLabel first(1.0f);
        first.setFixedHeight(30);
        first.setFixedSize(10, 10);
        TLabel second(1.0f);
        second.setFixedSize(10, 10);
        second.setFixedHeight(30);
        first.ScaleChanged(2.0f);
        second.ScaleChanged(2.0f);
        QCOMPARE(first.maximumSize(), QSize(20, 20));
        QCOMPARE(second.maximumSize(), QSize(20, 60));
        // A Qt call through a base pointer stays physical and is not applied again.
        TPushButton button(2.0f);
        QWidget *asQt = &button;
        asQt->setFixedWidth(40);
        QCOMPARE(button.maximumWidth(), 40);
        button.setFixedHeight(10);
        QCOMPARE(button.maximumHeight(), 20);
        button.ScaleChanged(1.0f);
        QCOMPARE(button.maximumWidth(), 40);
        QCOMPARE(button.maximumHeight(), 10);
    }

    void resizeCarriesUserSizeOver()
    {
        TWidget untouched(1.0f);
        untouched.resize(100, 50);
        untouched.ScaleChanged(2.0f);
        QCOMPARE(untouched.size(), QSize(200, 100));

        TWidget dragged(1.0f);
        dragged.resize(100, 50);
        dragged.QWidget::resize(300, 200);
        dragged.ScaleChanged(1.5f);
        QCOMPARE(dragged.size(), QSize(450, 300));

        TFrame odd(1.5f);
        odd.resize(7, 7); // 10 x 10 physical, which divides back to 6
        odd.ScaleChanged(2.0f);
        QCOMPARE(odd.size(), QSize(14, 14));
    }

    void extremeSizesAreKeptSane()
    {
        TLabel label(2.0f);
        label.setMaximumWidth(QWIDGETSIZE_MAX);
        QCOMPARE(label.maximumWidth(), QWIDGETSIZE_MAX);
        label.setMinimumWidth(-5);
        QCOMPARE(label.minimumWidth(), 0);
        label.ScaleChanged(3.0f);
        QCOMPARE(label.maximumWidth(), QWIDGETSIZE_MAX);

        TPushButton button(1.0f);
        button.setFixedWidth(10);
        for (float bad : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()}) {
            button.ScaleChanged(bad);
            button.SetScale(bad);
        }
        QCOMPARE(button.GetScale(), 1.0f);
        QCOMPARE(button.maximumWidth(), 10);
    }

    void labelPixmapPathFollowsScale()
    {
        QTemporaryDir dir;
        QString const path = WriteSvg(dir);
        TLabel label(1.5f);
        label.setPixmap(path);
        QCOMPARE(label.pixmap(Qt::ReturnByValue).size(), QSize(15, 12));
        label.ScaleChanged(2.0f);
        QCOMPARE(label.pixmap(Qt::ReturnByValue).size(), QSize(20, 16));

        QPixmap fixed(7, 3);
        fixed.fill(Qt::blue);
        label.setPixmap(fixed);
        QVERIFY(label.pixmapPath().isEmpty());
        label.ScaleChanged(1.0f);
        QCOMPARE(label.pixmap(Qt::ReturnByValue).size(), QSize(7, 3));

        // Text, or a clear through QLabel, replaces the picture for good.
        label.setPixmap(path);
        label.setText(QStringLiteral("text"));
        label.ScaleChanged(2.0f);
        QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());
        label.setPixmap(path);
        label.clear();
        label.ScaleChanged(1.0f);
        QVERIFY(label.pixmap(Qt::ReturnByValue).isNull());
    }

    void labelSetTextRefitsAdjustedLabel()
    {
        TLabel fitted(1.0f, QStringLiteral("ab"));
        fitted.adjustSize();
        TLabel plain(1.0f, QStringLiteral("ab"));
        plain.QLabel::adjustSize();
        int const before = fitted.width();
        QCOMPARE(plain.width(), before);
        QString const longer = QStringLiteral("a much longer text than before");
        fitted.setText(longer);
        plain.setText(longer);
        QVERIFY(fitted.width() > before);
        QCOMPARE(fitted.width(), fitted.sizeHint().width());
        QCOMPARE(plain.width(), before);
    }

    void toolButtonIconFollowsScale()
    {
        QTemporaryDir dir;
        TToolButton button(2.0f);
        button.setIcon(WriteSvg(dir));
        QCOMPARE(button.iconSize(), QSize(20, 16));
        QCOMPARE(button.icon().availableSizes().value(0), QSize(20, 16));
        button.ScaleChanged(1.0f);
        QCOMPARE(button.iconSize(), QSize(10, 8));
        button.setIcon(QIcon());
        QVERIFY(button.iconPath().isEmpty());
        button.ScaleChanged(2.0f);
        QVERIFY(button.icon().isNull());
    }
};

QTEST_MAIN(TestScaledSetters)
#include "tst_scaled_setters.moc"
