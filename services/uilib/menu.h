#pragma once
// TMenu: a QMenu that follows the scale (see ICallDPIChanged).
//
// setFixedWidth and setMinimumWidth take logical pixels and are applied again at each
// change of scale; they hide QMenu's functions of the same name. Each change of scale
// also reaches the widgets of its widget actions (children of the menu) and the menus
// of its actions (sub-menus, which are windows of their own). addAction(QAction *)
// brings the widget or menu of an action made at another scale to the menu's scale;
// QMenu's other addAction overloads stay available.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QMenu>

class KELVOUILIB_EXPORT TMenu : public QMenu, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TMenu(float scale, QWidget *parent = nullptr);
    TMenu(float scale, QString const &title, QWidget *parent = nullptr);
    ~TMenu() override;

    void setFixedWidth(int width);
    void setMinimumWidth(int width);
    using QMenu::addAction;
    void addAction(QAction *action);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
