// The scale layer itself: T labels, buttons, line edits, a table and a scroll area,
// laid out with T layouts in logical pixels, so that a scale change shows at once.

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <KelvoControl.h>

#include <QHeaderView>
#include <QStandardItemModel>

using GalleryTheme::Text;

namespace {

QWidget *MakeButtons(float scale)
{
    TWidget *row = nullptr;
    auto *layout = MakeGalleryRow(scale, 8, row);
    auto *buy = new TPushButton(scale, Text(L"gallery_sample_buy"), nullptr);
    buy->setObjectName(QStringLiteral("GalleryBuyButton"));
    buy->setFixedSize(96, 28);
    auto *sell = new TPushButton(scale, Text(L"gallery_sample_sell"), nullptr);
    sell->setObjectName(QStringLiteral("GallerySellButton"));
    sell->setFixedSize(96, 28);
    auto *plain = new TPushButton(scale, Text(L"desktop_comm_common_cancel"), nullptr);
    plain->setFixedSize(96, 28);
    auto *disabled = new TPushButton(scale, Text(L"desktop_comm_common_done"), nullptr);
    disabled->setFixedSize(96, 28);
    disabled->setEnabled(false);
    auto *tool = new TToolButton(scale, nullptr);
    tool->setFixedSize(28, 28);
    tool->setIcon(QString::fromStdWString(GetSkinHelper()->GetImagePath(L"common", L"refresh")));
    tool->setToolTip(Text(L"gallery_sample_refresh"));
    for (QWidget *w : std::initializer_list<QWidget *>{buy, sell, plain, disabled, tool})
        layout->addWidget(w, 0, Qt::Alignment());
    layout->addStretch(1);
    return row;
}

QWidget *MakeInputs(float scale)
{
    TWidget *row = nullptr;
    auto *layout = MakeGalleryRow(scale, 8, row);
    auto *caption = new TLabel(scale, Text(L"gallery_sample_symbol"), nullptr);
    caption->setFixedWidth(60);
    auto *edit = new TLineEdit(scale, nullptr);
    edit->setPlaceholderText(Text(L"gallery_sample_placeholder"));
    edit->setFixedSize(180, 26);
    auto *combo = new TComboBox(scale, nullptr);
    combo->addItems({QStringLiteral("600036"), QStringLiteral("000001"), QStringLiteral("00700")});
    combo->setFixedWidth(110);
    auto *check = new TCheckBox(scale, nullptr);
    check->setText(Text(L"gallery_sample_check"));
    check->setChecked(true);
    layout->addWidget(caption, 0, Qt::Alignment());
    layout->addWidget(edit, 0, Qt::Alignment());
    layout->addWidget(combo, 0, Qt::Alignment());
    layout->addWidget(check, 0, Qt::Alignment());
    layout->addStretch(1);
    return row;
}

QWidget *MakeTable(float scale)
{
    auto *table = new TTableView(scale, nullptr);
    auto *model = new QStandardItemModel(0, 4, table);
    model->setHorizontalHeaderLabels({Text(L"gallery_sample_code"), Text(L"gallery_sample_name"),
                                      Text(L"gallery_sample_last"), Text(L"gallery_sample_change")});
    struct Row { char const *code; wchar_t const *name; double last; double change; };
    Row const rows[] = {{"600036", L"gallery_sample_stock_1", 35.42, 1.23},
                        {"000001", L"gallery_sample_stock_2", 11.07, -0.54},
                        {"00700", L"gallery_sample_stock_3", 386.20, 2.10},
                        {"601318", L"gallery_sample_stock_4", 48.66, -1.02}};
    for (Row const &r : rows) {
        auto *change = new QStandardItem(QString::asprintf("%+.2f%%", r.change));
        change->setData(r.change >= 0 ? QStringLiteral("up") : QStringLiteral("down"), Qt::UserRole);
        model->appendRow({new QStandardItem(QString::fromLatin1(r.code)), new QStandardItem(Text(r.name)),
                          new QStandardItem(QString::number(r.last, 'f', 2)), change});
    }
    table->setModel(model);
    table->verticalHeader()->hide();
    // Row heights follow the font, which the style sheet scales.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setColumnWidth(0, 80);
    table->setColumnWidth(1, 160);
    table->setColumnWidth(2, 80);
    table->setColumnWidth(3, 80);
    table->setFixedHeight(150);
    return table;
}

QWidget *MakeScrollArea(float scale)
{
    // TScrollArea scales what it holds; its own height comes from a scaled frame.
    auto *frame = new TWidget(scale, nullptr);
    frame->setFixedHeight(110);
    auto *frameLayout = new TVBoxLayout(scale, nullptr);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frame->setLayout(frameLayout);
    auto *area = new TScrollArea(scale, nullptr);
    frameLayout->addWidget(area, 0, Qt::Alignment());
    auto *content = new TWidget(scale, nullptr);
    auto *layout = new TVBoxLayout(scale, nullptr);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(4);
    content->setLayout(layout);
    for (int i = 1; i <= 8; ++i) {
        auto *line = new TLabel(scale, Text(L"gallery_sample_line").arg(i), nullptr);
        line->setFixedHeight(20);
        layout->addWidget(line, 0, Qt::Alignment());
    }
    area->setWidgetResizable(true);
    area->setWidget(content);
    return frame;
}

QWidget *MakeBasicsPage(float scale)
{
    TWidget *page = nullptr;
    TVBoxLayout *layout = MakeGalleryPage(scale, L"gallery_basics_intro", page);
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_basics_buttons"), MakeButtons(scale)), 0,
                      Qt::Alignment());
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_basics_inputs"), MakeInputs(scale)), 0,
                      Qt::Alignment());
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_basics_table"), MakeTable(scale)), 0,
                      Qt::Alignment());
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_basics_scroll"), MakeScrollArea(scale)), 0,
                      Qt::Alignment());
    layout->addStretch(1);
    return page;
}

GalleryPageRegistrar const registrar({0, QStringLiteral("basics"), L"gallery_page_basics", MakeBasicsPage});

} // namespace
