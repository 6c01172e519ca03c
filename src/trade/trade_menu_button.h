#pragma once
// TTradeMenuButton: a push button that opens a menu of choices, as for an order type.
//
// Each choice is a text with a QVariant data value; the button remembers the data of
// the last choice (CurrentData) and, unless SetShowText(false), shows its text. Any
// widget can also be a menu row (AddWidgetItem), for example a small form, and be
// hidden or shown again by its data. The menu is made at the first item.
//
// Items are kept by their text: two items with the same text share one entry (the last
// one added wins), and a search by data goes through the texts in sorted order.
//
// Style sheet: no object name of its own (a ticket row names it "combobox_button");
// its arrow is the QPushButton::menu-indicator sub-control.

#include "foundation/kelvocontrol_export.h"

#include "uilib/push_button.h"

#include <QMap>
#include <QPointer>
#include <QVariant>

#include <vector>

class QAction;
class QWidgetAction;
class TMenu;

class KELVOCONTROL_EXPORT TTradeMenuButton : public TPushButton
{
    Q_OBJECT
public:
    TTradeMenuButton(float scale, QWidget *parent);

    // A text choice; returns its action, which the button owns.
    QAction *AddItem(QString const &text, QVariant const &data);
    // A widget row, with a separator below it if `separator`. Widget rows take no part
    // in SetCheckedItemByData. A null widget is ignored.
    void AddWidgetItem(QWidget *widget, QVariant const &data, bool separator);

    // The data of the last choice; invalid while there is no menu.
    QVariant CurrentData();
    // Null until the first item is added.
    TMenu *GetMenu();

    // Selects the first item (by text order) whose data equals `data`: takes its data,
    // checks it and puts its text on the button even with SetShowText(false). Emits
    // nothing; no match changes nothing.
    void SetCheckedItemByData(QVariant const &data);
    // As above over all items: every match is checked, its data taken and `text` (or,
    // if empty, the item's text) put on the button; with `uncheckOthers` every other
    // item is unchecked.
    void SetCheckedItemByData(QVariant const &data, bool uncheckOthers, QString const &text);

    // Logical width of the menu; ignored before the first item.
    void SetMenuFixWidth(int width);
    // Whether a choice by the user changes the button's text (default true).
    void SetShowText(bool show);
    // Hides or shows a widget row (and its separator) by its data.
    void SetWidgetItemVisible(QVariant const &data, bool visible);

signals:
    // A choice by the user, also when the same item is picked again.
    void SelectItem(QVariant data);

private slots:
    void onTriggered(bool checked);

private:
    struct WidgetItem
    {
        QVariant data;
        QPointer<QWidget> widget;
        QPointer<QWidgetAction> action;
        QPointer<QAction> separator;
    };

    void EnsureMenu();
    void TakeItem(QAction *action, QString const &buttonText);

    QPointer<TMenu> m_menu;
    QVariant m_currentData;
    bool m_showText = true;
    QMap<QString, QPointer<QAction>> m_items;
    // Keyed by data as a map would be (a later row with equal data replaces the entry);
    // QVariant has no ordering to build a real map on.
    std::vector<WidgetItem> m_widgetItems;
};
