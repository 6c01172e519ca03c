#pragma once
// TTradeEnhMenuButton: a split button for a group of trade modes.
//
// The main part shows the current choice and its arrow opens a menu that lists only
// the other choices, so a pick swaps the two. The first item added becomes the current
// choice without a signal; a pick by the user or SetItemChecked emits SelectItem. Used
// alone or as a member of a TButtonsWidget row, where a click on the main part selects
// the row's member and reports the current choice.
//
// Style sheet: object name "TradeMenuButton"; the dynamic property "ShowMenu" (bool,
// true at first) is set by SetMenuVisible, so a sheet can hide or show the arrow part
// (QToolButton::menu-button) by it. The button is checkable.

#include "foundation/kelvocontrol_export.h"

#include "uilib/tool_button.h"

#include <QMap>
#include <QPointer>
#include <QVariant>

class QAction;
class TMenu;

class KELVOCONTROL_EXPORT TTradeEnhMenuButton : public TToolButton
{
    Q_OBJECT
public:
    TTradeEnhMenuButton(float scale, QWidget *parent);

    void AddItem(QString const &text, QVariant const &data);
    // Empties the menu and forgets the current choice; the menu object stays.
    void ClearMenuButton();

    // The data of the current choice; invalid while there is no menu or no choice.
    QVariant CurrentData();
    // Null until the first item is added.
    TMenu *GetMenu();
    // The width a client gives the button by default, in logical pixels (-1: none).
    int GetDefaultMiniWidth();
    int GetDefaultMaxWidth();

    // Makes the first item (by text order) whose data reads as `id` the current choice
    // and emits SelectItem; nothing when it is current already or no item matches. The
    // button shows its text even with SetShowText(false).
    Q_INVOKABLE void SetItemChecked(int id);
    // Only sets the "ShowMenu" property for the style sheet; the menu is not touched.
    void SetMenuVisible(bool visible);
    // Whether a pick by the user changes the button's text (default true).
    void SetShowText(bool show);

    // The menu is a window of its own that the scale walk does not reach from here.
    void ScaleChanged(float scale) override;

signals:
    void SelectItem(QVariant data);
    // The menu is about to open.
    void MenuShow();

private slots:
    void onTriggered(bool checked);

private:
    void MakeCurrent(QAction *action);

    QPointer<TMenu> m_menu;
    bool m_hasFirstItem = false;
    QPointer<QAction> m_currentAction;
    bool m_showText = true;
    QMap<QString, QPointer<QAction>> m_items;
};
