#pragma once
// TFramelessWidget: the library's ready-made frameless dialog, for message boxes and
// forms: a CTitleBar on top, a content area, and a row of operate buttons (OK, Cancel)
// at the bottom right, inside a one-unit margin where the style sheet draws the border.
//
// Give it a content widget (SetContentWidget), title bar buttons (SetWindowFlags) and
// operate buttons (SetOperateFlags, once), then show it. MessageCompleted reports which
// operate button was clicked; the window stays open until the listener closes it. The
// title bar's close button and Escape close it without MessageCompleted. The window has
// Qt::FramelessWindowHint, deletes itself when closed, moves when dragged by its title
// bar (not by its content), and resizes at its edges unless SetWidgetResizable(false).
// Return clicks the OK button, which is the default button.
//
// Style sheet: select the window by its class, TFramelessWidget (its border shows in the
// one-unit margin); the title bar is "TitleBar" (see CTitleBar), the button row
// "OperateWidget", the OK button "highlight_button" with the dynamic property
// "Checked" = "true", the Cancel button "general_button".

#include "foundation/kelvocontrol_export.h"
#include "window/title_bar.h"

#include "uilib/dialog.h"

#include <QMap>

class TPushButton;
class THBoxLayout;
class TVBoxLayout;

class KELVOCONTROL_EXPORT TFramelessWidget : public TDialog
{
    Q_OBJECT
public:
    enum OperateFlag {
        OperateFlagOk = 1,
        OperateFlagCancel = 2,
    };
    Q_ENUM(OperateFlag)
    Q_DECLARE_FLAGS(OperateFlags, OperateFlag)
    Q_FLAG(OperateFlags)

    enum ResultASK {
        ResultAskOk = 0,
        ResultAskCancel = 1,
    };
    Q_ENUM(ResultASK)

    TFramelessWidget(float scale, QWidget *parent);
    ~TFramelessWidget() override;

    void SetTitleName(QString const &name);
    void SetWindowFlags(QFlags<CTitleBar::WindowFlag> flags);
    // Makes the buttons of the set bits; call once (a repeat would report a click twice).
    void SetOperateFlags(QFlags<TFramelessWidget::OperateFlag> flags);
    // Null when the button was never made.
    TPushButton *GetOperateButton(TFramelessWidget::OperateFlag flag) const;
    // Replaces the content: the widgets shown so far are closed and deleted later.
    void SetContentWidget(QWidget *widget);
    // Fixes the width (logical pixels), fits the height to the content, and half a second
    // later freezes the size the layout has settled on (word-wrapped text needs that time).
    void AdjustHeight(int width);
    void SetWidgetResizable(bool resizable);

Q_SIGNALS:
    void MessageCompleted(TFramelessWidget::ResultASK result);

private:
    void InitlizeUI();
    TPushButton *OperateButton(OperateFlag flag, ResultASK result);

    CTitleBar *m_titleBar = nullptr;
    TVBoxLayout *m_contentLayout = nullptr;
    THBoxLayout *m_operateLayout = nullptr;
    QMap<TFramelessWidget::OperateFlag, TPushButton *> m_operateButtons;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TFramelessWidget::OperateFlags)
