#pragma once
// TDisplayInfomationItem: one row of an order ticket, a caption with an input beside
// or below it.
//
// The input is one of three kinds, switched at run time with ChangeContentWidget:
// - ContentButtonMenu: a TTradeMenuButton (order type and the like);
// - ContentSpinBox: a CTradeSpinBox for a price or a quantity, with a menu button
//   beside it when the menu type asks for one (ChangeMenuType);
// - ContentButtonGroup: a TButtonsWidget of exclusive buttons.
// One set of functions and signals covers all three; a function meant for another kind
// than the current one does nothing and returns an empty value. The row does not step
// or correct the spin box itself: the client steps on SpinboxButtonClicked (with the
// step's Json::Number) and checks the value on SpinboxFocusOut. Typed numbers are tidied
// as they are typed (GetStandardText), and SpinboxTextChanged carries the tidy text.
//
// Style sheet: caption "DisplayItemName"; inputs "combobox_button" (menu), "TradeSpinBox"
// (spin box, with the property "type" = "normal" or "not_normal" when a menu button
// stands beside it) and "TradeButtonsWidget" (group, whose buttons carry the bool
// property "dark" after SetDarkStyle); the menu button beside a spin box is
// "SpinBoxEditMenu" or "SpinBoxNumberMenu" and carries "type" as well.

#include "foundation/kelvocontrol_export.h"

#include "uilib/widget.h"

#include <QMetaType>
#include <QPointer>
#include <QVariant>

class QAction;
class QFocusEvent;
class QLayout;
class QValidator;
class CTradeSpinBox;
class TButtonsWidget;
class THBoxLayout;
class TLabel;
class TTradeMenuButton;

// Fixed to int, so that a value outside a table (which ChangeMenuType stores) is still a
// value of the type.
enum MainLayout : int {
    MainLayoutHorizontal = 0, // caption on the left of the input
    MainLayoutNone = 1,       // no layout: the client places caption and input
    MainLayoutVertical = 2,   // caption above the input
};

enum ContentWidgetType : int {
    ContentButtonMenu = 0,
    ContentSpinBox = 1,
    ContentButtonGroup = 2,
};

// The menu button beside a spin box.
enum SpinBoxMenuType : int {
    SpinBoxMenuNone = 0,   // hidden
    SpinBoxMenuEdit = 1,   // shown, "SpinBoxEditMenu"
    SpinBoxMenuNumber = 2, // shown, "SpinBoxNumberMenu"
};

enum SpinBoxButtonType : int {
    SpinBoxButtonUp = 0,
    SpinBoxButtonDown = 1,
};

Q_DECLARE_METATYPE(SpinBoxButtonType)

class KELVOCONTROL_EXPORT TDisplayInfomationItem : public TWidget
{
    Q_OBJECT
public:
    TDisplayInfomationItem(float scale, QWidget *parent, MainLayout layout, QString const &text,
                           ContentWidgetType content, SpinBoxMenuType menu = SpinBoxMenuNone);
    ~TDisplayInfomationItem() override;

    // Button group rows.
    void AddButton(QString const &text, QVariant const &id);
    QVariant GetSelectButtonID() const;
    // Enables the first button whose id equals `id`.
    void SetButtonEnble(QVariant const &id, bool enable);
    // The "dark" property on every button of the group.
    void SetDarkStyle(bool dark);

    // Button menu rows.
    QAction *AddButtonMenuItem(QString const &text, QVariant const &data);
    // Empties the menu; items stay known to SetChecked by their data.
    void ClearButtonMenuItems();
    QVariant GetMenuSelectItem();
    void SetMenuFixWidth(int width);

    // Spin box rows.
    QAction *AddMenuItem(QString const &text, QVariant const &data);
    QString GetContentText();
    void SetInputMethodEnabled(bool enable);
    void SetValidator(QValidator *validator);

    // Group: selects the button at `index`; button menu: selects the item with data
    // QVariant(index). Nothing for a spin box row.
    void SetChecked(int index);
    // Spin box: its text (no textEdited follows); button menu: the button's text.
    void SetContentText(QString const &text);
    // The height of the input (the width comes from the layout); for a button menu,
    // the height of its menu.
    void SetContentFixSize(int width, int height);

    // The menu button beside a spin box; these do nothing once the row is no spin box
    // row or before the menu button has a menu (AddSeparatorOnMenu then gives null).
    QAction *AddSeparatorOnMenu();
    void AddWidgetAction(QWidget *widget, QVariant const &data, bool separator);
    void SetMenuEnable(bool enable);
    void SetMenuWidgetItemVisible(QVariant const &data, bool visible);

    // Replaces the input by a new one of `type` (a spin box without menu button);
    // signals keep working. Nothing if the type is unchanged.
    void ChangeContentWidget(ContentWidgetType type);
    // Rebuilds the row's layout; a vertical one adds a stretch below the input each time.
    void ChangeMainLayout(MainLayout type);
    // Spin box rows only: hides or shows the menu button and names it for the sheet.
    void ChangeMenuType(SpinBoxMenuType type);
    SpinBoxMenuType GetMenuType();

    QWidget *GetContentWidget();
    // Null unless the row is a spin box row.
    QWidget *GetMenuButton();

    // The caption's size in physical pixels.
    QSize GetLabelFixSize() const;
    void SetLabelFixSize(int width, int height);
    void SetLabelFixWidth(int width);
    void SetLabelFixHeight(int height);
    void SetText(QString const &text);
    // Whether the caption takes a share of a horizontal row; applies from the next
    // ChangeMainLayout to MainLayoutHorizontal.
    void SetNameStretch(bool stretch);

    // Builds the menu-button input; nothing while the row has an input.
    void InitButtonMenuWidget();

    // The text a typed number is tidied to: leading zeros go ("007.25" -> "7.25",
    // "05" -> "5"), while every state a user passes through on the way to a number is
    // kept ("-", "1.", "1.50", ".5"); "-." becomes "-"; text with a "'" separator and
    // no "." is left alone. Digits are never cut.
    static QString GetStandardText(QString const &text);

signals:
    void MenuSelectItem(QVariant data);
    void ButtonMenuClicked(QVariant data);
    void ButtonGroupSelectItem(QVariant id);
    void SpinboxButtonClicked(SpinBoxButtonType type);
    void SpinboxMenuButtonClicked();
    // The tidy text after the user edited the spin box; the flag is always false.
    void SpinboxTextChanged(QString text, bool flag);
    void SpinboxFocusOut(QFocusEvent *e);
    void SpinboxFocusIn(QFocusEvent *e);

private:
    void InitWidget(MainLayout layout, QString const &text, ContentWidgetType content, SpinBoxMenuType menu);
    void InitHLayout();
    void InitVLayout();
    void InitSpinBoxWidget(SpinBoxMenuType menu);
    void InitButtonGroupWidget();
    void BuildContent(ContentWidgetType type, SpinBoxMenuType menu);
    void OnTextEdited(QString const &text);

    CTradeSpinBox *SpinBox() const;
    TTradeMenuButton *ButtonMenu() const;
    TButtonsWidget *ButtonGroup() const;

    bool m_nameStretch = false;
    QLayout *m_mainLayout = nullptr;
    TLabel *m_nameLabel = nullptr;
    QPointer<QWidget> m_contentWidget;
    QPointer<TTradeMenuButton> m_menuButton;
    THBoxLayout *m_contentLayout = nullptr;
    SpinBoxMenuType m_menuType = SpinBoxMenuNone;
    ContentWidgetType m_contentType;
    MainLayout m_mainLayoutType;
};
