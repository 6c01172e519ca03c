// Keyword filtering of a check table, per keystroke, against the stock Qt ways.
//
// Rows are stock-like (a code, an English name, a Chinese name). Ours is a
// CMultiCheckBoxTableView filtered with FilterDataByKeyWord. The stock side gets the
// same texts plus a precomputed pinyin column (full spelling and initials), in a plain
// table model behind
//   - a QSortFilterProxyModel subclass whose filterAcceptsRow tests the texts directly
//     and which is refreshed by invalidate() for each key (the best stock way), and
//   - a QSortFilterProxyModel over all columns with setFilterFixedString (the usual way).
// Each has a QTableView attached, and the view's pending layout is run after each key,
// so a keystroke is timed until the view is ready to paint.
//
//   check_table_filter [--million]    10k and 100k rows; --million adds 1M
#include "table/multi_check_box_model.h"
#include "table/multi_check_box_table_view.h"
#include "textengine/py_name_mgr.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSortFilterProxyModel>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using Row = std::shared_ptr<CMultiCheckboxTableRowItem>;

// Syllables of made-up company names; real names are mixed in so that long keys hit.
const QString kHan = QStringLiteral("中国平安招商银行工商建设农业交通光大民生兴业浦发华夏北京上海深圳"
                                    "长江电力能源科技信息网络通信电子医药生物健康食品汽车机械重工钢铁"
                                    "有色金属煤炭石油化工材料地产证券保险基金航空港口物流传媒文化旅游");
const char *const kEnglish[] = {"China", "Merchants", "Bank", "Energy", "Tech", "Power", "Motor", "Steel",
                                "Pharma", "Securities", "Life", "East", "Capital", "Media", "Group"};
const char *const kPrefixes[] = {"600", "601", "603", "000", "002", "300"};
const char *const kKnownHan[] = {"中国平安", "腾讯控股", "招商银行", "长江电力"};
const char *const kKnownEnglish[] = {"Ping An", "Tencent", "Merchants Bank", "Yangtze Power"};

struct Texts {
    QString code, english, chinese, pinyin;
};

std::vector<Texts> MakeTexts(int count)
{
    QRandomGenerator rng(7);
    PyNameMgr *py = PyNameMgr::GetInstance();
    std::vector<Texts> texts(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        Texts &t = texts[std::size_t(i)];
        t.code = QString::fromLatin1(kPrefixes[rng.bounded(6)]) + QString::number(i % 1000).rightJustified(3, '0');
        if (i % 1000 == 0) {
            t.chinese = QString::fromUtf8(kKnownHan[(i / 1000) % 4]);
            t.english = QString::fromLatin1(kKnownEnglish[(i / 1000) % 4]);
        } else {
            for (int k = 0, n = 2 + int(rng.bounded(3)); k < n; ++k)
                t.chinese += kHan.at(int(rng.bounded(kHan.size())));
            t.english = QString::fromLatin1(kEnglish[rng.bounded(15)]) + ' ' +
                        QString::fromLatin1(kEnglish[rng.bounded(15)]);
        }
        const std::wstring name = t.chinese.toStdWString();
        t.pinyin = QString::fromStdWString(py->GetFullSpell(name.c_str(), 0) + L" " +
                                           py->GetInitialSpell(name.c_str(), 0));
    }
    return texts;
}

class StockModel : public QAbstractTableModel
{
public:
    explicit StockModel(const std::vector<Texts> &texts)
        : m_texts(texts)
    {
    }
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_texts.size()); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : 4; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole || !index.isValid())
            return {};
        const Texts &t = m_texts[std::size_t(index.row())];
        const QString *columns[] = {&t.code, &t.english, &t.chinese, &t.pinyin};
        return *columns[index.column()];
    }
    const std::vector<Texts> &m_texts;
};

// The best stock way: the proxy reads the texts itself instead of going through data().
class InvalidateProxy : public QSortFilterProxyModel
{
public:
    explicit InvalidateProxy(const std::vector<Texts> &texts)
        : m_texts(texts)
    {
    }
    void SetKey(const QString &key)
    {
        m_key = key;
        invalidate();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &) const override
    {
        if (m_key.isEmpty())
            return true;
        const Texts &t = m_texts[std::size_t(row)];
        for (const QString *text : {&t.code, &t.english, &t.chinese, &t.pinyin}) {
            if (text->contains(m_key, Qt::CaseInsensitive))
                return true;
        }
        return false;
    }

private:
    const std::vector<Texts> &m_texts;
    QString m_key;
};

// Runs what the view would do on the next turn of the event loop (its delayed layout).
void Settle()
{
    QCoreApplication::processEvents();
}

double Ms(qint64 ns)
{
    return double(ns) / 1e6;
}

template <typename Apply>
double TimeKey(const QString &previous, const QString &key, int repeats, Apply apply)
{
    qint64 best = -1;
    for (int r = 0; r < repeats; ++r) {
        apply(previous);
        Settle();
        QElapsedTimer timer;
        timer.start();
        apply(key);
        Settle();
        const qint64 ns = timer.nsecsElapsed();
        best = best < 0 ? ns : std::min(best, ns);
    }
    return Ms(best);
}

void Run(int count)
{
    std::printf("\n== %d rows ==\n", count);
    const std::vector<Texts> texts = MakeTexts(count);

    std::vector<Row> rows;
    rows.reserve(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        auto row = std::make_shared<CMultiCheckboxTableRowItem>(QString::number(i));
        row->SetCellItems({std::make_shared<const CMultiCheckBoxCellItem>(texts[i].code, QVariant()),
                           std::make_shared<const CMultiCheckBoxCellItem>(texts[i].english, QVariant()),
                           std::make_shared<const CMultiCheckBoxCellItem>(texts[i].chinese, QVariant())});
        rows.push_back(std::move(row));
    }

    CMultiCheckBoxTableView view(1.0f, nullptr);
    view.InitTableView();
    view.resize(600, 400);
    view.SetHorizontalHeaderLabels({"Code", "Name", "Chinese"});
    view.SetCheckableColumnAttribute(0, Qt::UserRole + 100, 10);
    QElapsedTimer timer;
    timer.start();
    view.SetModelData(rows);
    Settle();
    const double load = Ms(timer.nsecsElapsed());
    auto *proxy = qobject_cast<QSortFilterProxyModel *>(view.model());
    auto *model = qobject_cast<CMultiCheckBoxModel *>(proxy->sourceModel());
    timer.restart();
    model->BuildDataIndex(rows);
    const double build = Ms(timer.nsecsElapsed());
    std::printf("ours: index build %.1f ms; SetModelData with the view %.1f ms\n", build, load);

    StockModel stock(texts);
    InvalidateProxy invalidating(texts);
    invalidating.setSourceModel(&stock);
    QTableView invalidatingView;
    invalidatingView.setModel(&invalidating);
    invalidatingView.resize(600, 400);
    QSortFilterProxyModel fixed;
    fixed.setSourceModel(&stock);
    fixed.setFilterKeyColumn(-1);
    fixed.setFilterCaseSensitivity(Qt::CaseInsensitive);
    QTableView fixedView;
    fixedView.setModel(&fixed);
    fixedView.resize(600, 400);
    Settle();

    const int repeats = count >= 1000000 ? 2 : 5;
    // Each key is timed as the keystroke that follows `from`, as a user types it.
    struct Keystroke {
        const char *from, *key;
    };
    const Keystroke strokes[] = {{"", "Z"},     {"Z", "ZG"},           {"ZG", "ZGP"},        {"ZGP", "ZGPA"},
                                 {"", "\xe5\xb9\xb3"}, {"\xe5\xb9\xb3", "\xe5\xb9\xb3\xe5\xae\x89"}, {"", "007"}};
    std::printf("%-8s %9s %10s %12s %8s %12s %8s\n", "key", "rows", "ours ms", "invalidate", "ratio",
                "fixedString", "ratio");
    for (const Keystroke &stroke : strokes) {
        const QString from = QString::fromUtf8(stroke.from);
        const QString key = QString::fromUtf8(stroke.key);
        const double ours =
            TimeKey(from, key, repeats, [&](const QString &k) { view.FilterDataByKeyWord(k.toStdWString()); });
        const int shown = view.model()->rowCount();
        const double inv = TimeKey(from, key, repeats, [&](const QString &k) { invalidating.SetKey(k); });
        const double fix = TimeKey(from, key, count >= 1000000 ? 1 : repeats,
                                   [&](const QString &k) { fixed.setFilterFixedString(k); });
        std::printf("%-8s %9d %10.3f %12.3f %7.1fx %12.3f %7.1fx   (stock rows %d)\n", stroke.key, shown, ours, inv,
                    inv / ours, fix, fix / ours, invalidating.rowCount());
    }

    // Leave the model, proxy and delegate to the view's client, as the view does.
    QAbstractItemDelegate *delegate = view.itemDelegate();
    view.setModel(nullptr);
    delete proxy;
    delete model;
    delete delegate;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                     : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    bool million = false;
    for (int i = 1; i < argc; ++i)
        million = million || std::strcmp(argv[i], "--million") == 0;
    std::printf("Per keystroke: best of several runs, filter call plus the view's pending layout.\n"
                "Ratios are stock time / ours.\n");
    Run(10000);
    Run(100000);
    if (million)
        Run(1000000);
    return 0;
}
