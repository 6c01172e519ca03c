#include "check_table_rows.h"

#include "table/floating_scroll_bar.h"
#include "table/multi_check_box_table_view.h"

#include "qtcomm/image_path.h"
#include "qtcomm/skin_helper.h"

#include <QAbstractItemModelTester>
#include <QAbstractProxyModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <map>

namespace {

using Row = std::shared_ptr<CMultiCheckboxTableRowItem>;

std::vector<Row> ManyRows(int count)
{
    std::vector<Row> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back(MakeRow(QString("k%1").arg(i), {QString("60%1").arg(i, 4, 10, QChar('0')), QString("Name %1").arg(i),
                                                      i % 2 ? QString::fromUtf8("银行") : QString::fromUtf8("平安")}));
    return rows;
}

// Records the state each cell is painted with, to see what the table's delegate decides.
class ProbeDelegate : public CMultiCheckBoxViewDelegate
{
public:
    ProbeDelegate()
        : CMultiCheckBoxViewDelegate(nullptr)
    {
    }
    mutable std::map<std::pair<int, int>, QStyle::State> painted;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        CMultiCheckBoxViewDelegate::initStyleOption(option, index);
        painted[{index.row(), index.column()}] = option->state;
    }
};

class ProbeTable : public CMultiCheckBoxTableView
{
public:
    using CMultiCheckBoxTableView::CMultiCheckBoxTableView;
    ProbeDelegate *probe = nullptr;

protected:
    CMultiCheckBoxViewDelegate *CheckableTableViewDelegate() override { return probe = new ProbeDelegate; }
};

// A shown table with its parts freed afterwards: the table leaves model, proxy and
// delegate to its client.
struct Fixture {
    explicit Fixture(std::vector<Row> rows)
        : rows(rows)
    {
        view = new ProbeTable(1.0f, nullptr);
        view->InitTableView();
        view->SetHorizontalHeaderLabels({"Code", "Name", "Chinese"});
        view->SetCheckableColumnAttribute(0, Qt::UserRole + 100, 10);
        view->SetModelData(rows);
        view->resize(420, 300);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view));
    }
    ~Fixture()
    {
        QAbstractItemModel *proxy = view->model();
        QAbstractItemModel *model = static_cast<QAbstractProxyModel *>(proxy)->sourceModel();
        QAbstractItemDelegate *delegate = view->itemDelegate();
        delete view;
        delete proxy;
        delete model;
        delete delegate;
    }

    void ClickCell(int row, int column)
    {
        view->scrollTo(view->model()->index(row, column));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, Center(row, column));
    }
    void ClickHeader(int section, Qt::MouseButton button = Qt::LeftButton)
    {
        QHeaderView *header = view->horizontalHeader();
        QTest::mouseClick(header->viewport(), button, {},
                          QPoint(header->sectionViewportPosition(section) + header->sectionSize(section) / 2,
                                 header->height() / 2));
    }
    void Move(QPoint pos)
    {
        QMouseEvent event(QEvent::MouseMove, pos, view->viewport()->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }
    QPoint Center(int row, int column) const { return view->visualRect(view->model()->index(row, column)).center(); }

    std::vector<Row> rows;
    ProbeTable *view = nullptr;
};

} // namespace

class TstMultiCheckBoxTableView : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<Qt::CheckState>(); }

    void checkColumnClickTogglesRow()
    {
        Fixture f({MakeRow("a", {"600036", "Bank"}), MakeRow("b", {"000001", "Ping An"}, true),
                   MakeRow("locked", {"600000", "Locked"}, false, false)});
        QSignalSpy rowSpy(f.view, &CMultiCheckBoxTableView::RowItemClicked);
        QSignalSpy allSpy(f.view, &CMultiCheckBoxTableView::AllItemsSelectChanged);
        f.ClickCell(0, 0);
        QVERIFY(f.rows[0]->GetCheckState());
        QCOMPARE(rowSpy.count(), 1);
        QCOMPARE(rowSpy.at(0), (QList<QVariant>{0, true}));
        QCOMPARE(allSpy.count(), 0); // though the click completed the head check
        f.ClickCell(1, 0);
        QVERIFY(!f.rows[1]->GetCheckState());
        QCOMPARE(rowSpy.at(1), (QList<QVariant>{1, false}));

        // Another column only highlights; a locked row ends silently.
        f.ClickCell(0, 1);
        QVERIFY(f.rows[0]->GetCheckState());
        f.ClickCell(2, 0);
        QVERIFY(!f.rows[2]->GetCheckState());
        QCOMPARE(rowSpy.count(), 2);
        QCOMPARE(f.view->probe->GetCurrentCheckedRow(), 2);
    }

    // The head check and the calls by key act on the rows on show.
    void filteredRows()
    {
        Fixture f(ManyRows(6));
        QSignalSpy rowSpy(f.view, &CMultiCheckBoxTableView::RowItemClicked);
        QSignalSpy allSpy(f.view, &CMultiCheckBoxTableView::AllItemsSelectChanged);
        auto selected = [&f] {
            QStringList keys;
            for (const auto &row : f.view->GetAllSelectedItems())
                keys << row->GetPrimaryKey();
            return keys;
        };
        f.view->FilterDataByKeyWord(L"YH"); // the odd rows, 银行
        f.ClickHeader(0);
        QCOMPARE(selected(), QStringList({"k1", "k3", "k5"}));
        f.ClickHeader(0);
        QCOMPARE(selected(), QStringList());
        f.ClickHeader(1); // not the check column
        f.ClickHeader(0, Qt::RightButton); // nor a right click
        QCOMPARE(allSpy.count(), 2);
        QCOMPARE(allSpy.at(0).at(0).toBool(), true);
        QCOMPARE(allSpy.at(1).at(0).toBool(), false);

        QVERIFY(!f.view->OnRowSelectedStateChanged("k0", true)); // hidden by the keyword
        QVERIFY(f.view->OnRowSelectedStateChanged("k3", true));
        QCOMPARE(selected(), QStringList({"k3"}));
        QCOMPARE(rowSpy.count(), 0);
        QCOMPARE(f.view->GetRowItemIndex("k3"), 1);
        QCOMPARE(f.view->GetRowItemIndex("k0"), -1);
        QCOMPARE(f.view->GetRowItem(1)->GetPrimaryKey(), QString("k3"));
        // Unlike the model's, the table's search does not ask for full rows.
        f.view->AddRowItem(MakeRow("k6", {"YH"}));
        auto *model = static_cast<CMultiCheckBoxModel *>(static_cast<QAbstractProxyModel *>(f.view->model())->sourceModel());
        QCOMPARE(model->GetRowItemIndex("k6"), -1);
        QCOMPARE(f.view->GetRowItemIndex("k6"), 3);
    }

    void hoverCoversTheRow()
    {
        Fixture f(ManyRows(30));
        ProbeDelegate *probe = f.view->probe;
        QWidget *viewport = f.view->viewport();
        f.Move(f.Center(2, 1));
        QCOMPARE(probe->GetCurrentHoverRow(), 2);
        f.ClickCell(3, 2);
        probe->painted.clear();
        viewport->repaint();
        for (int column = 0; column < 3; ++column) {
            QVERIFY(probe->painted.at({2, column}) & QStyle::State_MouseOver);
            QVERIFY(!(probe->painted.at({1, column}) & QStyle::State_MouseOver));
            // The table tracks the pressed row but does not draw it selected.
            QVERIFY(!(probe->painted.at({3, column}) & QStyle::State_Selected));
            QVERIFY(!(probe->painted.at({3, column}) & QStyle::State_HasFocus));
        }
        QCOMPARE(probe->GetCurrentCheckedRow(), 3);
        probe->SetRowCheckedEnable(true);
        viewport->repaint();
        QVERIFY(probe->painted.at({3, 1}) & QStyle::State_Selected);

        QWheelEvent wheel(QPointF(10, 10), QPointF(viewport->mapToGlobal(QPoint(10, 10))), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport, &wheel);
        QVERIFY(f.view->verticalScrollBar()->value() > 0);
        QCOMPARE(probe->GetCurrentHoverRow(), -1);
        f.Move(QPoint(10, 10));
        QVERIFY(probe->GetCurrentHoverRow() >= 0);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(f.view, &leave);
        QCOMPARE(probe->GetCurrentHoverRow(), -1);
    }

    void hoverStaysOverEmptySpace()
    {
        Fixture f(ManyRows(3));
        f.Move(f.Center(1, 2));
        f.Move(QPoint(5, f.view->viewport()->height() - 5)); // below the rows
        QCOMPARE(f.view->probe->GetCurrentHoverRow(), 1);
    }

    void headCheckDrawnAtItsPlace_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("1.0") << 1.0f;
        QTest::newRow("1.5") << 1.5f;
        QTest::newRow("2.0") << 2.0f;
    }
    void headCheckDrawnAtItsPlace()
    {
        QFETCH(float, scale);
        Fixture f({MakeRow("a", {"600036", "Bank"}, true)});
        // Built at 1.0 and changed, so the header and the model must both follow.
        f.view->ScaleChanged(scale);
        const QPixmap check =
            ImagePath::GetStretchPixmap(GetSkinHelper()->GetImagePath(L"common", L"check_box_checked"), scale);
        QCOMPARE(f.view->model()->headerData(0, Qt::Horizontal, Qt::CheckStateRole).value<QPixmap>().size(), check.size());
        QHeaderView *header = f.view->horizontalHeader();
        header->setFixedHeight(int(36.0f * scale)); // the client's style sheet sizes it
        const QImage shot = header->viewport()->grab().toImage().convertToFormat(QImage::Format_ARGB32);
        const QImage picture = check.toImage().convertToFormat(QImage::Format_ARGB32);
        const int x = header->sectionViewportPosition(0) + int(13.0f * scale);
        const int y = (header->height() - picture.height()) / 2;
        int opaque = 0;
        for (int py = 0; py < picture.height(); ++py) {
            for (int px = 0; px < picture.width(); ++px) {
                if (qAlpha(picture.pixel(px, py)) != 255)
                    continue;
                ++opaque;
                QCOMPARE(shot.pixel(x + px, y + py), picture.pixel(px, py));
            }
        }
        QVERIFY(opaque > 10);
        QCOMPARE(f.view->verticalHeader()->defaultSectionSize(), int(30.0f * scale));
    }

    void floatingBarsFollowTheScaleAndPolicy_data() { headCheckDrawnAtItsPlace_data(); }
    void floatingBarsFollowTheScaleAndPolicy()
    {
        QFETCH(float, scale);
        Fixture f(ManyRows(40));
        CFloatingScrollBar *bar = f.view->VerticalFloatScrollBar();
        QTRY_VERIFY(bar->isVisible());
        QVERIFY(!f.view->HorizontalFloatScrollBar()->isVisible()); // columns stretch: nothing to scroll
        f.view->ScaleChanged(scale);
        const int thick = int(6.0f * scale);
        QCOMPARE(bar->geometry(), QRect(f.view->width() - thick, 0, thick, f.view->height()));
        QTRY_COMPARE(bar->maximum(), f.view->verticalScrollBar()->maximum());
        bar->setValue(bar->maximum());
        QCOMPARE(f.view->verticalScrollBar()->value(), bar->maximum());

        // Turned off, the bar stays up until it next hides; allowed again, it follows the pointer.
        f.view->SetFloatScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
        QVERIFY(bar->isVisible());
        QEvent leave(QEvent::Leave), enter(QEvent::Enter);
        f.view->hide();
        f.view->show();
        QApplication::sendEvent(f.view, &enter);
        f.view->repaint();
        QVERIFY(!bar->isVisible());
        f.view->SetFloatScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAsNeeded);
        QApplication::sendEvent(f.view, &enter);
        QVERIFY(bar->isVisible());
        QApplication::sendEvent(f.view, &leave);
        QVERIFY(!bar->isVisible());
    }

    void testerOnTheProxy()
    {
        Fixture f(ManyRows(12));
        QAbstractItemModelTester tester(f.view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        f.view->SetColumnTextAlign(1, Qt::AlignLeft | Qt::AlignVCenter);
        f.view->SetResetModelData({f.rows.begin(), f.rows.end()});
        for (const wchar_t *key : {L"P", L"PA", L"", L"60000", L"nothing", L"YX"}) {
            f.view->FilterDataByKeyWord(key);
            f.ClickHeader(0);
            if (f.view->model()->rowCount() > 0)
                f.ClickCell(0, 0);
        }
        f.view->AddRowItem(MakeRow("new", {"688001", "New"}));
        QVERIFY(f.view->DeleteRowItem("k1"));
        QVERIFY(!f.view->DeleteRowItem("k1"));
        f.view->Reset();
        f.view->SetModelData({});
        f.ClickHeader(0);
        f.view->SetModelData(ManyRows(3));
        QCOMPARE(f.view->model()->rowCount(), 3);
    }
};

QTEST_MAIN(TstMultiCheckBoxTableView)
#include "tst_multi_check_box_table_view.moc"
