#pragma once
// CTitleBar: the title row of a frameless window: an icon, a name, and at the right end
// a row of buttons chosen with a bit mask of WindowFlag.
//
// Put it at the top of a frameless window, call SetWindowFlag once, and act on
// ButtonClicked. The bar itself only pins its window on top (the 0x20 button, through the
// platform seam); it does not move, maximise or close anything. To drag the window by it,
// hand the bar to the window's WidgetResizeHandler as a local widget. Escape pressed in
// the bar's parent reports ButtonClicked(WindowFlagClose), with or without a close
// button. MousePress/MouseRelease report presses on the bar's own surface and its
// labels, not on its buttons.
//
// SetWindowFlag adds a button for each set bit (left to right: top, setting, minimise,
// mini player, main window, restore, close) and hides the buttons of cleared bits. Call
// it once; the one supported repeat is hiding buttons and bringing the close button back.
//
// Style sheet: the bar is "TitleBar", its labels "Icon" and "Name", the buttons
// "top_btn" (checkable: style its :checked state), "linear_setting_button",
// "minimize_btn", "miniplayer_btn", "call_mainwnd_btn", "restore_btn" and "close_btn".
// The buttons have no pictures of their own: give them an image in the style sheet.

#include "foundation/kelvocontrol_export.h"

#include "uilib/frame.h"

#include <QMap>

class TLabel;
class THBoxLayout;
class TToolButton;

class KELVOCONTROL_EXPORT CTitleBar : public TFrame
{
    Q_OBJECT
public:
    enum WindowFlag {
        WindowFlagSetting = 0x01,
        WindowFlagMinimize = 0x02,
        WindowFlagMiniPlayer = 0x04,
        WindowFlagCallMainWnd = 0x08,
        WindowFlagRestore = 0x10,
        WindowFlagTop = 0x20,
        WindowFlagClose = 0x40,
    };
    Q_ENUM(WindowFlag)
    Q_DECLARE_FLAGS(WindowFlags, WindowFlag)
    Q_FLAG(WindowFlags)

    CTitleBar(float scale, QWidget *parent);
    ~CTitleBar() override;

    void SetWindowFlag(QFlags<CTitleBar::WindowFlag> flags);
    // Null when no button was ever made for `flag`.
    TToolButton *GetButtonByFlag(CTitleBar::WindowFlag flag) const;

    TLabel *GetIconLabel() const;
    TLabel *GetNameLabel() const;
    QString GetName() const;
    void SetName(QString const &name);
    // An image path, loaded for the bar's scale and again at each change of scale.
    void SetIcon(QString const &path);

Q_SIGNALS:
    void ButtonClicked(CTitleBar::WindowFlag flag);
    void MousePress();
    void MouseRelease();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void InitalizeUI();
    TToolButton *AddButton(WindowFlag flag, char const *objectName, int size, wchar_t const *toolTipKey);
    void OnTopButtonClicked(TToolButton *top);
    void OnCloseButtonClicked();
    void StayTopAction(bool top);

    TLabel *m_iconLabel = nullptr;
    TLabel *m_nameLabel = nullptr;
    TToolButton *m_closeButton = nullptr;
    THBoxLayout *m_buttonLayout = nullptr;
    // A cleared flag leaves a row, possibly null, behind.
    QMap<CTitleBar::WindowFlag, TToolButton *> m_buttons;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CTitleBar::WindowFlags)
