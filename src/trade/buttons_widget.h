#pragma once
// TButtonsWidget: a row of mutually exclusive buttons, as buy / sell or the validity
// of an order.
//
// Exactly one button is selected once the user has clicked one (or SetChecked chose
// one); clicking it again keeps it selected and reports nothing. Each button carries
// an id (TPushButton::SetKelvoData) that clickedButton reports. A TTradeEnhMenuButton
// can be a member too: a click on its main part selects it and reports its menu's
// current choice, while a pick in its menu is reported by the button's own SelectItem.
// Buttons share the row equally and fill its height. Buttons are only added; one that
// its owner deletes simply leaves the row.
//
// Style sheet: the row is "TradeButtonsWidget"; its buttons are checkable, so
// ":checked" marks the selected one.

#include "foundation/kelvocontrol_export.h"

#include "uilib/frame.h"

#include <QList>
#include <QVariant>

class QAbstractButton;
class THBoxLayout;
class TPushButton;
class TTradeEnhMenuButton;

class KELVOCONTROL_EXPORT TButtonsWidget : public TFrame
{
    Q_OBJECT
public:
    TButtonsWidget(float scale, QWidget *parent);
    ~TButtonsWidget() override;

    // A button with a fixed id.
    TPushButton *AddButton(QString const &text, QVariant const &id);
    // A button whose text and id (SetKelvoData) the client sets afterwards; the id is
    // read at the moment of a click.
    TPushButton *AddButton();
    // A menu button as a member; a click reports its CurrentData(), not `id`. A null
    // button is ignored.
    void AddMenuButton(TTradeEnhMenuButton *button, QVariant const &id);
    void AddStretch(int stretch) const;
    // Logical pixels between buttons (0 at first).
    void SetSpacing(int spacing);

    // Selects the button at `index` (order of adding) without a signal; the checked id
    // becomes `index` itself. An index out of range is ignored.
    void SetChecked(int index);
    // The id of the selected button; invalid before any selection.
    QVariant CheckedButtonID();
    QList<QAbstractButton *> GetButtons();
    // Null before any selection.
    QAbstractButton *GetSelectButton() const;

signals:
    void clickedButton(QVariant id);

private:
    void InitWidget();
    void Append(QAbstractButton *button);
    void onButtonClicked(QAbstractButton *button, QVariant const &id);

    THBoxLayout *m_layout = nullptr;
    QAbstractButton *m_selectButton = nullptr;
    QList<QAbstractButton *> m_buttons;
    QVariant m_checkedId;
};
