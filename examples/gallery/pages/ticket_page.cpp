// An order ticket as a client builds it from display rows: side, order type, price with
// a menu of quotes, quantity in lots and validity. The client does the stepping: a
// click on a step button moves the price by its Json::Number step, so 0.01 stays exact.
// Amount and order button follow every change, the last signals show beside the ticket,
// and the caption can be moved above the inputs while the ticket runs.

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <KelvoControl.h>
#include <trade/buttons_widget.h>
#include <trade/display_infomation_item.h>
#include <trade/trade_enh_menu_button.h>
#include <trade/trade_menu_button.h>
#include <trade/trade_spin_box.h>

#include <QLocale>

#include <memory>

using GalleryTheme::Text;

namespace {

char const kLastPrice[] = "35.42";
char const kBidPrice[] = "35.41";
char const kAskPrice[] = "35.43";
int const kMaxBuy = 5600;

enum OrderType { OrderLimit, OrderMarket, OrderStop, OrderStopLimit };

QString ToText(Json::Number const &number)
{
    Json::NumberText const text = number.ToString(false);
    return QString::fromLatin1(text.data(), int(text.size()));
}

// The row's text as a number; a field that holds none starts from `fallback`.
Json::Number ReadNumber(QString const &text, char const *fallback)
{
    Json::Number value(text.toStdString());
    return text.isEmpty() || !value.IsValid() ? Json::Number(fallback) : value;
}

struct Ticket {
    float scale = 1.0f;
    TDisplayInfomationItem *side = nullptr;
    TDisplayInfomationItem *type = nullptr;
    TDisplayInfomationItem *price = nullptr;
    TDisplayInfomationItem *quantity = nullptr;
    TDisplayInfomationItem *validity = nullptr;
    TTradeEnhMenuButton *immediate = nullptr;
    TLabel *amount = nullptr;
    TPushButton *place = nullptr;
    TLabel *log = nullptr;
    QStringList events;

    QList<TDisplayInfomationItem *> Rows() const { return {side, type, price, quantity, validity}; }
    CTradeSpinBox *Spin(TDisplayInfomationItem *row) const
    {
        return qobject_cast<CTradeSpinBox *>(row->GetContentWidget());
    }

    void Log(QString const &line)
    {
        events.prepend(line);
        while (events.size() > 8)
            events.removeLast();
        log->setText(events.join(QLatin1Char('\n')));
    }

    // The client's stepping: the step is exact, and nothing goes below one step.
    void Step(TDisplayInfomationItem *row, SpinBoxButtonType direction, char const *fallback)
    {
        Json::Number const step = Spin(row)->GetStep();
        Json::Number const value = ReadNumber(row->GetContentText(), fallback);
        Json::Number next = direction == SpinBoxButtonUp ? value + step : value - step;
        if (next < step)
            next = step;
        row->SetContentText(ToText(next));
        UpdateAmount();
    }

    void UpdateAmount()
    {
        bool const market = type->GetMenuSelectItem().toInt() == OrderMarket;
        Json::Number const p = market ? Json::Number(kLastPrice) : ReadNumber(price->GetContentText(), kLastPrice);
        Json::Number const q = ReadNumber(quantity->GetContentText(), "0");
        Json::Number const total = p * q;
        amount->setText(QStringLiteral("%1  %2").arg(
            Text(L"gallery_sample_amount"),
            QLocale(QLocale::English).toString(total.ToDouble(), 'f', 2)));
    }

    void UpdateSide()
    {
        bool const buy = side->GetSelectButtonID().toInt() == 0;
        place->setText(Text(buy ? L"gallery_sample_buy" : L"gallery_sample_sell"));
        place->setObjectName(buy ? QStringLiteral("GalleryBuyButton") : QStringLiteral("GallerySellButton"));
        QtKelvoHelper::UpdateWidgetStyle(place);
    }
};

TDisplayInfomationItem *MakeRow(float scale, wchar_t const *caption, ContentWidgetType content,
                                 SpinBoxMenuType menu = SpinBoxMenuNone)
{
    return new TDisplayInfomationItem(scale, nullptr, MainLayoutHorizontal, Text(caption), content, menu);
}

void BuildSide(Ticket &t)
{
    t.side = MakeRow(t.scale, L"gallery_ticket_side", ContentButtonGroup);
    t.side->AddButton(Text(L"gallery_sample_buy"), 0);
    t.side->AddButton(Text(L"gallery_sample_sell"), 1);
    // The side buttons carry a property of the client's own, for their colours.
    auto *group = qobject_cast<TButtonsWidget *>(t.side->GetContentWidget());
    group->GetButtons().at(0)->setProperty("side", QStringLiteral("buy"));
    group->GetButtons().at(1)->setProperty("side", QStringLiteral("sell"));
    t.side->SetDarkStyle(true);
    t.side->SetChecked(0);
}

void BuildOrderType(Ticket &t)
{
    t.type = MakeRow(t.scale, L"gallery_sample_order_type", ContentButtonMenu);
    t.type->AddButtonMenuItem(Text(L"gallery_sample_limit"), OrderLimit);
    t.type->AddButtonMenuItem(Text(L"gallery_sample_market"), OrderMarket);
    t.type->AddButtonMenuItem(Text(L"gallery_ticket_stop"), OrderStop);
    t.type->AddButtonMenuItem(Text(L"gallery_ticket_stop_limit"), OrderStopLimit);
    t.type->SetChecked(OrderLimit);
}

void BuildPrice(Ticket &t)
{
    t.price = MakeRow(t.scale, L"gallery_sample_price", ContentSpinBox, SpinBoxMenuEdit);
    CTradeSpinBox *spin = t.Spin(t.price);
    spin->SetStep(Json::Number(1, 2));
    t.price->SetContentText(QString::fromLatin1(kLastPrice));
    t.price->AddMenuItem(QStringLiteral("%1  %2").arg(Text(L"gallery_sample_last"), QLatin1String(kLastPrice)),
                         QString::fromLatin1(kLastPrice));
    t.price->AddMenuItem(QStringLiteral("%1  %2").arg(Text(L"gallery_ticket_bid"), QLatin1String(kBidPrice)),
                         QString::fromLatin1(kBidPrice));
    t.price->AddMenuItem(QStringLiteral("%1  %2").arg(Text(L"gallery_ticket_ask"), QLatin1String(kAskPrice)),
                         QString::fromLatin1(kAskPrice));
}

void BuildQuantity(Ticket &t)
{
    t.quantity = MakeRow(t.scale, L"gallery_sample_quantity", ContentSpinBox);
    CTradeSpinBox *spin = t.Spin(t.quantity);
    spin->SetStep(Json::Number(100, 0));
    spin->SetUnitText(Text(L"gallery_ticket_shares"));
    spin->SetUnitVisible(true);
    t.quantity->SetContentText(QStringLiteral("1000"));
}

void BuildValidity(Ticket &t)
{
    t.validity = MakeRow(t.scale, L"gallery_sample_validity", ContentButtonGroup);
    t.validity->AddButton(Text(L"gallery_sample_today"), QStringLiteral("DAY"));
    t.validity->AddButton(Text(L"gallery_ticket_gtc"), QStringLiteral("GTC"));
    // The immediate kinds share one split button: its menu lists the other one.
    t.immediate = new TTradeEnhMenuButton(t.scale, nullptr);
    t.immediate->AddItem(Text(L"gallery_ticket_ioc"), QStringLiteral("IOC"));
    t.immediate->AddItem(Text(L"gallery_ticket_fok"), QStringLiteral("FOK"));
    qobject_cast<TButtonsWidget *>(t.validity->GetContentWidget())->AddMenuButton(t.immediate, QStringLiteral("IOC"));
    t.validity->SetChecked(0);
}

void Connect(std::shared_ptr<Ticket> const &ticket)
{
    Ticket *t = ticket.get();
    // The ticket state lives as long as the page: every connection below holds it.
    QObject::connect(t->side, &TDisplayInfomationItem::ButtonGroupSelectItem, t->side, [ticket](QVariant const &id) {
        ticket->UpdateSide();
        ticket->Log(QStringLiteral("ButtonGroupSelectItem(%1)").arg(id.toInt()));
    });
    QObject::connect(t->type, &TDisplayInfomationItem::ButtonMenuClicked, t->type, [ticket](QVariant const &data) {
        ticket->price->setEnabled(data.toInt() != OrderMarket);
        ticket->UpdateAmount();
        ticket->Log(QStringLiteral("ButtonMenuClicked(%1)").arg(data.toInt()));
    });
    QObject::connect(t->price, &TDisplayInfomationItem::SpinboxButtonClicked, t->price,
                     [ticket](SpinBoxButtonType direction) {
                         ticket->Step(ticket->price, direction, kLastPrice);
                         QLatin1String const way(direction == SpinBoxButtonUp ? "up" : "down");
                         ticket->Log(QStringLiteral("SpinboxButtonClicked(%1)  %2")
                                         .arg(way, ticket->price->GetContentText()));
                     });
    QObject::connect(t->price, &TDisplayInfomationItem::MenuSelectItem, t->price, [ticket](QVariant const &data) {
        ticket->price->SetContentText(data.toString());
        ticket->UpdateAmount();
        ticket->Log(QStringLiteral("MenuSelectItem(%1)").arg(data.toString()));
    });
    QObject::connect(t->quantity, &TDisplayInfomationItem::SpinboxButtonClicked, t->quantity,
                     [ticket](SpinBoxButtonType direction) { ticket->Step(ticket->quantity, direction, "0"); });
    for (TDisplayInfomationItem *row : {t->price, t->quantity}) {
        QObject::connect(row, &TDisplayInfomationItem::SpinboxTextChanged, row, [ticket](QString const &text) {
            ticket->UpdateAmount();
            ticket->Log(QStringLiteral("SpinboxTextChanged(\"%1\")").arg(text));
        });
    }
    QObject::connect(t->validity, &TDisplayInfomationItem::ButtonGroupSelectItem, t->validity,
                     [ticket](QVariant const &id) {
                         ticket->Log(QStringLiteral("ButtonGroupSelectItem(%1)").arg(id.toString()));
                     });
    QObject::connect(t->immediate, &TTradeEnhMenuButton::SelectItem, t->immediate, [ticket](QVariant const &data) {
        ticket->Log(QStringLiteral("SelectItem(%1)").arg(data.toString()));
    });
}

QWidget *MakeTicketForm(std::shared_ptr<Ticket> const &t)
{
    TWidget *form = nullptr;
    auto *layout = MakeGalleryColumn(t->scale, 10, form);

    auto *quote = new TLabel(t->scale, QStringLiteral("600036  %1  %2").arg(Text(L"gallery_sample_stock_1"),
                                                                          QLatin1String(kLastPrice)),
                             nullptr);
    quote->setObjectName(QStringLiteral("GalleryTicketQuote"));
    layout->addWidget(quote, 0, Qt::Alignment());

    BuildSide(*t);
    BuildOrderType(*t);
    BuildPrice(*t);
    BuildQuantity(*t);
    BuildValidity(*t);
    for (TDisplayInfomationItem *row : t->Rows())
        layout->addWidget(row, 0, Qt::Alignment());

    auto *maxBuy = new TLabel(t->scale, QStringLiteral("%1  %2").arg(Text(L"gallery_sample_max_buy"),
                                                                   QLocale(QLocale::English).toString(kMaxBuy)),
                              nullptr);
    maxBuy->setObjectName(QStringLiteral("GalleryNote"));
    t->amount = new TLabel(t->scale, nullptr);
    t->amount->setObjectName(QStringLiteral("GalleryTicketAmount"));
    layout->addWidget(maxBuy, 0, Qt::Alignment());
    layout->addWidget(t->amount, 0, Qt::Alignment());

    t->place = new TPushButton(t->scale, nullptr);
    t->place->setFixedHeight(32);
    layout->addWidget(t->place, 0, Qt::Alignment());
    return form;
}

// Moves every caption beside or above its input while the ticket runs.
QWidget *MakeCaptionSwitch(std::shared_ptr<Ticket> const &ticket)
{
    auto *choice = new TButtonsWidget(ticket->scale, nullptr);
    choice->setFixedHeight(24);
    choice->AddButton(Text(L"gallery_ticket_beside"), int(MainLayoutHorizontal));
    choice->AddButton(Text(L"gallery_ticket_above"), int(MainLayoutVertical));
    choice->SetChecked(0);
    QObject::connect(choice, &TButtonsWidget::clickedButton, choice, [ticket](QVariant const &id) {
        for (TDisplayInfomationItem *row : ticket->Rows())
            row->ChangeMainLayout(MainLayout(id.toInt()));
    });
    return choice;
}

QWidget *MakeTicketPage(float scale)
{
    TWidget *page = nullptr;
    TVBoxLayout *layout = MakeGalleryPage(scale, L"gallery_ticket_intro", page);

    auto ticket = std::make_shared<Ticket>();
    ticket->scale = scale;
    auto *columns = new THBoxLayout(scale, nullptr);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(12);
    layout->addLayout(columns, 0);

    QWidget *form = MakeGallerySection(scale, Text(L"gallery_ticket_form"), MakeTicketForm(ticket));
    auto *formFrame = qobject_cast<TFrame *>(form);
    formFrame->setFixedWidth(320);
    columns->addWidget(form, 0, Qt::AlignTop);

    auto *side = new TVBoxLayout(scale, nullptr);
    side->setContentsMargins(0, 0, 0, 0);
    side->setSpacing(12);
    columns->addLayout(side, 1);
    side->addWidget(MakeGallerySection(scale, Text(L"gallery_ticket_caption"), MakeCaptionSwitch(ticket)), 0,
                    Qt::Alignment());
    ticket->log = new TLabel(scale, Text(L"gallery_ticket_signals_none"), nullptr);
    ticket->log->setObjectName(QStringLiteral("GalleryNote"));
    ticket->log->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    ticket->log->setMinimumWidth(200);
    side->addWidget(MakeGallerySection(scale, Text(L"gallery_ticket_signals"), ticket->log), 0, Qt::Alignment());
    side->addStretch(1);

    Connect(ticket);
    ticket->UpdateSide();
    ticket->UpdateAmount();
    layout->addStretch(1);
    return page;
}

GalleryPageRegistrar const registrar({30, QStringLiteral("ticket"), L"gallery_page_ticket", MakeTicketPage});

} // namespace
