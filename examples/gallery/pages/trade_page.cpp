// Trade inputs: the price and quantity fields of an order ticket in their usual
// set-ups, with the last signal each one sent shown beside it.

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <KelvoControl.h>

using GalleryTheme::Text;

namespace {

struct FieldRow {
    TWidget *row;
    CTradeSpinBox *spin;
};

// A caption, the field, and a note that names the field's last signal.
FieldRow MakeRow(float scale, wchar_t const *captionKey)
{
    TWidget *row = nullptr;
    auto *layout = MakeGalleryRow(scale, 12, row);

    auto *caption = new TLabel(scale, Text(captionKey), nullptr);
    caption->setFixedWidth(120);
    auto *spin = new CTradeSpinBox(scale, nullptr);
    spin->setFixedSize(170, 28);
    auto *note = new TLabel(scale, QString(), nullptr);
    note->setObjectName(QStringLiteral("GalleryNote"));

    auto show = [note](char const *signal) { note->setText(Text(L"gallery_trade_last_signal").arg(QLatin1String(signal))); };
    QObject::connect(spin, &CTradeSpinBox::UpButtonClicked, note, [show] { show("UpButtonClicked"); });
    QObject::connect(spin, &CTradeSpinBox::DownButtonClicked, note, [show] { show("DownButtonClicked"); });
    QObject::connect(spin, &CTradeSpinBox::FocusOutEvent, note, [show] { show("FocusOutEvent"); });

    layout->addWidget(caption, 0, Qt::Alignment());
    layout->addWidget(spin, 0, Qt::Alignment());
    layout->addWidget(note, 1, Qt::Alignment());
    return {row, spin};
}

QWidget *MakeTradePage(float scale)
{
    TWidget *page = nullptr;
    TVBoxLayout *layout = MakeGalleryPage(scale, L"gallery_trade_intro", page);

    TWidget *fields = nullptr;
    auto *list = MakeGalleryColumn(scale, 10, fields);

    FieldRow price = MakeRow(scale, L"gallery_trade_price");
    price.spin->SetStep(Json::Number(1, 2));
    price.spin->SetValueRange(0.01, 9999.99);
    price.spin->UseDefaultSignals(true);
    price.spin->setText(QStringLiteral("35.42"));
    price.spin->setProperty("galleryHover", true); // screenshots show its step buttons

    FieldRow quantity = MakeRow(scale, L"gallery_trade_quantity");
    quantity.spin->SetStep(Json::Number(1, 0));
    quantity.spin->SetValueRange(1, 1000000);
    quantity.spin->UseDefaultSignals(true);
    quantity.spin->SetUnitText(Text(L"gallery_trade_unit_shares"));
    quantity.spin->SetUnitVisible(true);
    quantity.spin->setText(QStringLiteral("200"));

    FieldRow ranged = MakeRow(scale, L"gallery_trade_ranged");
    ranged.spin->SetStep(Json::Number(5, 2));
    ranged.spin->SetValueRange(30.0, 40.0);
    ranged.spin->UseDefaultSignals(true);
    ranged.spin->setText(QStringLiteral("39.95"));
    ranged.spin->SetUpButtonToolTip(Text(L"gallery_trade_range_tip"));
    ranged.spin->SetDownButtonToolTip(Text(L"gallery_trade_range_tip"));

    FieldRow optional = MakeRow(scale, L"gallery_trade_optional");
    optional.spin->SetStep(Json::Number(1, 2));
    optional.spin->SetValueRange(0.01, 9999.99);
    optional.spin->SetEmptyEnable(true);
    optional.spin->UseDefaultSignals(true);
    optional.spin->setPlaceholderText(Text(L"gallery_trade_optional_hint"));

    FieldRow disabled = MakeRow(scale, L"gallery_trade_disabled");
    disabled.spin->setText(QStringLiteral("12.50"));
    disabled.spin->setEnabled(false);

    for (FieldRow const &row : {price, quantity, ranged, optional, disabled})
        list->addWidget(row.row, 0, Qt::Alignment());

    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_trade_fields"), fields), 0, Qt::Alignment());
    layout->addStretch(1);
    return page;
}

GalleryPageRegistrar const registrar({20, QStringLiteral("trade"), L"gallery_page_trade", MakeTradePage});

} // namespace
