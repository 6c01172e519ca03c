#include "window/title_bar.h"

#include "foundation/platform_window.h"

#include "qtcomm/language_helper.h"
#include "uilib/box_layout.h"
#include "uilib/label.h"
#include "uilib/tool_button.h"

#include <QEvent>
#include <QKeyEvent>

namespace {

struct TitleButton
{
    CTitleBar::WindowFlag flag;
    char const *objectName;
    int size;
    wchar_t const *toolTipKey; // null: no tool tip
    int spacingAfter;
};

// Left-to-right order of the buttons, which is also the order in which they are made.
TitleButton const kTitleButtons[] = {
    {CTitleBar::WindowFlagTop, "top_btn", 16, L"desktop_comm_common_top", 8},
    {CTitleBar::WindowFlagSetting, "linear_setting_button", 16, L"KVS_SETTING", 5},
    {CTitleBar::WindowFlagMinimize, "minimize_btn", 26, nullptr, 0},
    {CTitleBar::WindowFlagMiniPlayer, "miniplayer_btn", 26, L"Watch_Mini_SwitchToFloating", 0},
    {CTitleBar::WindowFlagCallMainWnd, "call_mainwnd_btn", 26, L"KVS_OPEN_MAIN_WND", 0},
    {CTitleBar::WindowFlagRestore, "restore_btn", 26, nullptr, 0},
    {CTitleBar::WindowFlagClose, "close_btn", 26, nullptr, 0},
};

QString Text(wchar_t const *key)
{
    return QString::fromWCharArray(LoadXmlString(key));
}

} // namespace

CTitleBar::CTitleBar(float scale, QWidget *parent)
    : TFrame(scale, parent)
{
    InitalizeUI();
    setObjectName(QStringLiteral("TitleBar"));
    setFixedHeight(28);
    if (parent)
        parent->installEventFilter(this);
    installEventFilter(this);
}

CTitleBar::~CTitleBar() = default;

void CTitleBar::InitalizeUI()
{
    auto *layout = new THBoxLayout(m_scale, nullptr);
    layout->setContentsMargins(5, 0, 0, 0);
    setLayout(layout);

    m_iconLabel = new TLabel(m_scale, nullptr);
    m_iconLabel->setFixedSize(20, 20);
    m_iconLabel->setObjectName(QStringLiteral("Icon"));
    m_nameLabel = new TLabel(m_scale, nullptr);
    m_nameLabel->setObjectName(QStringLiteral("Name"));
    layout->addWidget(m_iconLabel, 0, Qt::AlignCenter);
    layout->addWidget(m_nameLabel, 0, Qt::AlignCenter);
    layout->addStretch(1);

    m_buttonLayout = new THBoxLayout(m_scale, nullptr);
    m_buttonLayout->setMargin(0);
    m_buttonLayout->setSpacing(0);
    m_buttonLayout->addStretch(1);
    layout->addLayout(m_buttonLayout, 0);
}

void CTitleBar::SetWindowFlag(QFlags<CTitleBar::WindowFlag> flags)
{
    for (TitleButton const &row : kTitleButtons) {
        if (!flags.testFlag(row.flag)) {
            if (TToolButton *button = m_buttons[row.flag])
                button->setVisible(false);
            continue;
        }
        if (row.flag == WindowFlagClose) {
            // Only the close button may come back: owners hide it and show it again.
            if (TToolButton *close = m_buttons.value(WindowFlagClose)) {
                close->setVisible(true);
                continue;
            }
        }
        TToolButton *button = AddButton(row.flag, row.objectName, row.size, row.toolTipKey);
        if (row.spacingAfter > 0)
            m_buttonLayout->addSpacing(row.spacingAfter);
        if (row.flag != WindowFlagTop)
            button->setFocusPolicy(Qt::ClickFocus);
        switch (row.flag) {
        case WindowFlagTop:
            button->setCheckable(true);
            connect(button, &TToolButton::clicked, this, [this, button] { OnTopButtonClicked(button); });
            break;
        case WindowFlagClose:
            m_closeButton = button;
            connect(button, &TToolButton::clicked, this, &CTitleBar::OnCloseButtonClicked);
            break;
        default:
            connect(button, &TToolButton::clicked, this, [this, flag = row.flag] { emit ButtonClicked(flag); });
            break;
        }
    }
}

TToolButton *CTitleBar::AddButton(WindowFlag flag, char const *objectName, int size, wchar_t const *toolTipKey)
{
    auto *button = new TToolButton(m_scale, nullptr);
    button->setObjectName(QLatin1String(objectName));
    button->setFixedSize(size, size);
    if (toolTipKey)
        button->setToolTip(Text(toolTipKey));
    button->setCursor(Qt::ArrowCursor);
    m_buttonLayout->addWidget(button, 0, Qt::AlignVCenter);
    m_buttons[flag] = button;
    return button;
}

void CTitleBar::OnTopButtonClicked(TToolButton *top)
{
    bool const pinned = top->isChecked();
    top->setToolTip(Text(pinned ? L"desktop_comm_common_cancel_top" : L"desktop_comm_common_top"));
    StayTopAction(pinned);
    emit ButtonClicked(WindowFlagTop);
}

void CTitleBar::OnCloseButtonClicked()
{
    // A window shown again later must not come up with a hovered close button.
    if (m_closeButton)
        m_closeButton->setAttribute(Qt::WA_UnderMouse, false);
    emit ButtonClicked(WindowFlagClose);
}

void CTitleBar::StayTopAction(bool top)
{
    kelvo::platform::SetStayOnTop(parentWidget(), top);
}

TToolButton *CTitleBar::GetButtonByFlag(CTitleBar::WindowFlag flag) const
{
    return m_buttons.value(flag, nullptr);
}

TLabel *CTitleBar::GetIconLabel() const
{
    return m_iconLabel;
}

TLabel *CTitleBar::GetNameLabel() const
{
    return m_nameLabel;
}

QString CTitleBar::GetName() const
{
    return m_nameLabel ? m_nameLabel->text() : QString();
}

void CTitleBar::SetName(QString const &name)
{
    if (m_nameLabel)
        m_nameLabel->setText(name);
}

void CTitleBar::SetIcon(QString const &path)
{
    if (m_iconLabel)
        m_iconLabel->setPixmap(path);
}

bool CTitleBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent()) {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            emit ButtonClicked(WindowFlagClose);
    } else if (watched == this) {
        switch (event->type()) {
        case QEvent::ParentAboutToChange:
            if (parent())
                parent()->removeEventFilter(this);
            break;
        case QEvent::ParentChange:
            if (parent())
                parent()->installEventFilter(this);
            break;
        case QEvent::MouseButtonPress:
            emit MousePress();
            break;
        case QEvent::MouseButtonRelease:
            emit MouseRelease();
            break;
        default:
            break;
        }
    }
    return TFrame::eventFilter(watched, event);
}
