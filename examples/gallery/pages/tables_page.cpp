// Check tables: 5,000 stock-like rows with a search line above them. Typing a code, a
// name or the pinyin initials of a Chinese name ("ZGPA", "腾讯", "007") filters the
// table as you type; the head check acts on the rows shown; the floating scroll bar
// comes up while the pointer is over the table.

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <KelvoControl.h>
#include <table/multi_check_box_table_view.h>

#include <QAbstractProxyModel>
#include <QSet>

using GalleryTheme::Text;

namespace {

using Row = std::shared_ptr<CMultiCheckboxTableRowItem>;

struct Word {
    char const *chinese;
    char const *english;
};

// Company names are put together from a region, a brand and a trade, so that the
// pinyin filter has real polyphones (长 in 长江, 行 in 银行) to work on.
Word const kRegions[] = {{"", ""},          {"北京", "Beijing"}, {"上海", "Shanghai"}, {"深圳", "Shenzhen"},
                         {"浙江", "Zhejiang"}, {"江苏", "Jiangsu"}, {"四川", "Sichuan"},  {"福建", "Fujian"}};
Word const kBrands[] = {{"华夏", "Huaxia"},  {"长江", "Yangtze"},  {"东方", "Oriental"}, {"南方", "Southern"},
                        {"光大", "Everbright"}, {"民生", "Minsheng"}, {"兴业", "Industrial"}, {"海通", "Haitong"},
                        {"国泰", "Guotai"},  {"中信", "Citic"},    {"万和", "Wanhe"},    {"金山", "Jinshan"},
                        {"新华", "Xinhua"},  {"天成", "Tiancheng"}, {"宏达", "Hongda"},   {"永安", "Yongan"}};
Word const kTrades[] = {{"银行", "Bank"},      {"证券", "Securities"}, {"保险", "Insurance"}, {"电力", "Power"},
                        {"科技", "Technology"}, {"医药", "Pharma"},     {"汽车", "Motor"},     {"地产", "Properties"},
                        {"能源", "Energy"},    {"控股", "Holdings"},   {"重工", "Heavy Industry"}, {"传媒", "Media"}};
char const *const kPrefixes[] = {"600", "601", "603", "000", "002", "300", "688"};

struct Known {
    char const *code;
    char const *english;
    char const *chinese;
};
Known const kKnown[] = {{"601318", "Ping An Insurance", "中国平安"}, {"00700", "Tencent Holdings", "腾讯控股"},
                        {"600036", "China Merchants Bank", "招商银行"}, {"600519", "Kweichow Moutai", "贵州茅台"},
                        {"600900", "China Yangtze Power", "长江电力"},  {"000002", "Vanke", "万科A"}};

Row MakeRow(QString const &code, QString const &english, QString const &chinese)
{
    auto row = std::make_shared<CMultiCheckboxTableRowItem>(code);
    row->SetCellItems({std::make_shared<CMultiCheckBoxCellItem const>(code, QVariant()),
                       std::make_shared<CMultiCheckBoxCellItem const>(english, QVariant()),
                       std::make_shared<CMultiCheckBoxCellItem const>(chinese, QVariant())});
    return row;
}

std::vector<Row> MakeStocks(int count)
{
    std::vector<Row> rows;
    rows.reserve(std::size_t(count));
    QSet<QString> codes; // codes are the primary keys, so each is used once
    for (Known const &known : kKnown) {
        rows.push_back(MakeRow(QString::fromLatin1(known.code), QString::fromLatin1(known.english),
                               QString::fromUtf8(known.chinese)));
        codes.insert(rows.back()->GetPrimaryKey());
    }
    // A fixed linear walk through the word lists: the same table on every run.
    for (int i = 0; int(rows.size()) < count; ++i) {
        Word const &region = kRegions[(i * 5) % 8];
        Word const &brand = kBrands[(i * 7 + i / 16) % 16];
        Word const &trade = kTrades[(i * 11 + i / 12) % 12];
        QString const code = QString::fromLatin1(kPrefixes[i % 7]) + QString::number((i / 7) % 1000).rightJustified(3, '0');
        if (codes.contains(code))
            continue;
        codes.insert(code);
        QString english = QString::fromLatin1(brand.english) + ' ' + QString::fromLatin1(trade.english);
        if (*region.english)
            english = QString::fromLatin1(region.english) + ' ' + english;
        rows.push_back(MakeRow(code, english,
                               QString::fromUtf8(region.chinese) + QString::fromUtf8(brand.chinese) +
                                   QString::fromUtf8(trade.chinese)));
    }
    // A few rows checked, and one that the user may not change.
    for (std::size_t i = 0; i < rows.size(); i += 97)
        rows[i]->SetCheckState(true);
    rows[2]->SetCheckState(true);
    rows[2]->SetEnableChangeCheckState(false);
    return rows;
}

QWidget *MakeCheckTable(float scale, CMultiCheckBoxTableView **made)
{
    TWidget *box = nullptr;
    auto *layout = MakeGalleryColumn(scale, 8, box);

    TWidget *searchRow = nullptr;
    auto *searchLayout = MakeGalleryRow(scale, 12, searchRow);
    auto *search = new TLineEdit(scale, nullptr);
    search->setObjectName(QStringLiteral("GalleryTableSearch"));
    search->setPlaceholderText(Text(L"gallery_tables_placeholder"));
    search->setClearButtonEnabled(true);
    search->setFixedSize(260, 26);
    auto *status = new TLabel(scale, nullptr);
    searchLayout->addWidget(search, 0, Qt::Alignment());
    searchLayout->addWidget(status, 1, Qt::Alignment());
    layout->addWidget(searchRow, 0, Qt::Alignment());

    auto *table = new CMultiCheckBoxTableView(scale, nullptr);
    table->InitTableView();
    table->SetHorizontalHeaderLabels(
        {Text(L"gallery_sample_code"), Text(L"gallery_sample_name"), Text(L"gallery_tables_chinese_name")});
    table->SetCheckableColumnAttribute(0, Qt::UserRole + 100, 10);
    table->SetColumnTextAlign(0, Qt::AlignLeft | Qt::AlignVCenter);
    table->SetColumnTextAlign(1, Qt::AlignLeft | Qt::AlignVCenter);
    table->SetColumnTextAlign(2, Qt::AlignLeft | Qt::AlignVCenter);
    table->SetModelData(MakeStocks(5000));
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table->horizontalHeader()->setStretchLastSection(true);
    table->SetDefaultColumnWidth({130, 260});
    table->SetFloatScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAsNeeded);
    table->setFixedHeight(380);
    layout->addWidget(table, 0, Qt::Alignment());

    auto refresh = [table, status] {
        status->setText(Text(L"gallery_tables_status")
                            .arg(table->model()->rowCount())
                            .arg(table->GetAllSelectedItems().size()));
    };
    QObject::connect(search, &QLineEdit::textChanged, table,
                     [table](QString const &text) { table->FilterDataByKeyWord(text.toStdWString()); });
    QObject::connect(table->model(), &QAbstractItemModel::modelReset, status, refresh);
    QObject::connect(table, &CMultiCheckBoxTableView::RowItemClicked, status, refresh);
    QObject::connect(table, &CMultiCheckBoxTableView::AllItemsSelectChanged, status, refresh);
    refresh();
    *made = table;
    return box;
}

// The table leaves its model, proxy and delegate to its client. The page keeps them;
// given to it after the table, they are deleted after the table.
void KeepTableParts(CMultiCheckBoxTableView *table, QWidget *page)
{
    auto *proxy = qobject_cast<QAbstractProxyModel *>(table->model());
    proxy->sourceModel()->setParent(page);
    proxy->setParent(page);
    table->itemDelegate()->setParent(page);
}

QWidget *MakeTablesPage(float scale)
{
    TWidget *page = nullptr;
    TVBoxLayout *layout = MakeGalleryPage(scale, L"gallery_tables_intro", page);
    CMultiCheckBoxTableView *table = nullptr;
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_tables_check_table"), MakeCheckTable(scale, &table)), 0,
                      Qt::Alignment());
    layout->addStretch(1);
    KeepTableParts(table, page);
    return page;
}

GalleryPageRegistrar const registrar({50, QStringLiteral("tables"), L"gallery_page_tables", MakeTablesPage});

} // namespace
