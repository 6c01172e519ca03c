#include "trade/display_infomation_item.h"

#include "trade/buttons_widget.h"
#include "trade/trade_menu_button.h"
#include "trade/trade_spin_box.h"

#include "foundation/json_number.h"
#include "qtcomm/language_helper.h"
#include "qtcomm/qt_kelvo_helper.h"
#include "uilib/box_layout.h"
#include "uilib/label.h"
#include "uilib/menu.h"

#include <QAction>

namespace {

// The language whose captions need the wider column.
int const kWideCaptionLanguage = 3;
int const kRowHeight = 24;

int CaptionWidth()
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    std::string const current = language->GetLanguageName(language->GetCurrentLanguage());
    return current == language->GetLanguageName(kWideCaptionLanguage) ? 70 : 60;
}

} // namespace

TDisplayInfomationItem::TDisplayInfomationItem(float scale, QWidget *parent, MainLayout layout, QString const &text,
                                               ContentWidgetType content, SpinBoxMenuType menu)
    : TWidget(scale, parent)
    , m_contentType(content)
    , m_mainLayoutType(layout)
{
    static int const registered = qRegisterMetaType<SpinBoxButtonType>();
    Q_UNUSED(registered)
    // The row may sit on a clickable parent that shows another cursor.
    setCursor(Qt::ArrowCursor);
    InitWidget(layout, text, content, menu);
}

TDisplayInfomationItem::~TDisplayInfomationItem()
{
    // Without a main layout nobody owns the content layout.
    if (m_contentLayout && !m_contentLayout->parent())
        delete m_contentLayout;
}

void TDisplayInfomationItem::InitWidget(MainLayout layout, QString const &text, ContentWidgetType content,
                                        SpinBoxMenuType menu)
{
    m_nameLabel = new TLabel(m_scale, this);
    m_nameLabel->setWordWrap(true);
    m_nameLabel->setObjectName(QStringLiteral("DisplayItemName"));
    m_nameLabel->setText(text);

    m_contentLayout = new THBoxLayout(m_scale, nullptr);
    m_contentLayout->setSpacing(0);
    m_contentLayout->setContentsMargins(0, 0, 0, 0);

    BuildContent(content, menu);

    if (layout == MainLayoutHorizontal) {
        m_nameLabel->setFixedSize(CaptionWidth(), kRowHeight);
        InitHLayout();
    } else if (layout == MainLayoutVertical) {
        InitVLayout();
    }
}

void TDisplayInfomationItem::BuildContent(ContentWidgetType type, SpinBoxMenuType menu)
{
    switch (type) {
    case ContentButtonMenu:
        InitButtonMenuWidget();
        break;
    case ContentSpinBox:
        InitSpinBoxWidget(menu);
        break;
    case ContentButtonGroup:
        InitButtonGroupWidget();
        break;
    }
}

void TDisplayInfomationItem::InitHLayout()
{
    auto *layout = new THBoxLayout(m_scale, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_nameLabel, m_nameStretch ? 1 : 0, Qt::Alignment());
    layout->addLayout(m_contentLayout, 1);
    m_mainLayout = layout;
    TWidget::setLayout(layout);
}

void TDisplayInfomationItem::InitVLayout()
{
    auto *layout = new TVBoxLayout(m_scale, this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_nameLabel, 0, Qt::Alignment());
    layout->addSpacing(6);
    layout->addLayout(m_contentLayout, 0);
    m_mainLayout = layout;
    TWidget::setLayout(layout);
}

void TDisplayInfomationItem::InitButtonMenuWidget()
{
    if (m_contentWidget)
        return;
    auto *button = new TTradeMenuButton(m_scale, this);
    button->setFixedHeight(kRowHeight);
    button->setObjectName(QStringLiteral("combobox_button"));
    connect(button, &TTradeMenuButton::SelectItem, this, &TDisplayInfomationItem::ButtonMenuClicked);
    m_contentWidget = button;
    m_contentLayout->addWidget(button, 1, Qt::Alignment());
}

void TDisplayInfomationItem::InitButtonGroupWidget()
{
    auto *group = new TButtonsWidget(m_scale, this);
    group->setFixedHeight(kRowHeight);
    connect(group, &TButtonsWidget::clickedButton, this, &TDisplayInfomationItem::ButtonGroupSelectItem);
    m_contentWidget = group;
    m_contentLayout->addWidget(group, 1, Qt::Alignment());
}

void TDisplayInfomationItem::InitSpinBoxWidget(SpinBoxMenuType menu)
{
    auto *spin = new CTradeSpinBox(m_scale, this);
    spin->setFixedHeight(kRowHeight);
    connect(spin, &QLineEdit::textEdited, this, &TDisplayInfomationItem::OnTextEdited);
    connect(spin, &CTradeSpinBox::UpButtonClicked, this, [this] { emit SpinboxButtonClicked(SpinBoxButtonUp); });
    connect(spin, &CTradeSpinBox::DownButtonClicked, this,
            [this] { emit SpinboxButtonClicked(SpinBoxButtonDown); });
    connect(spin, &CTradeSpinBox::FocusOutEvent, this, &TDisplayInfomationItem::SpinboxFocusOut);
    connect(spin, &CTradeSpinBox::FocusInEvent, this, &TDisplayInfomationItem::SpinboxFocusIn);
    m_contentWidget = spin;

    m_menuButton = new TTradeMenuButton(m_scale, this);
    // The menu button belongs to the field: focus stays with the row.
    m_menuButton->setFocusProxy(this);
    m_menuButton->SetShowText(false);
    m_menuButton->setFixedSize(kRowHeight, kRowHeight);
    ChangeMenuType(menu);
    connect(m_menuButton, &TTradeMenuButton::SelectItem, this, &TDisplayInfomationItem::MenuSelectItem);
    connect(m_menuButton, &QAbstractButton::pressed, this, &TDisplayInfomationItem::SpinboxMenuButtonClicked);

    m_contentLayout->addWidget(spin, 1, Qt::Alignment());
    m_contentLayout->addWidget(m_menuButton, 0, Qt::Alignment());
}

void TDisplayInfomationItem::OnTextEdited(QString const &text)
{
    auto *edited = qobject_cast<CTradeSpinBox *>(sender());
    QString const standard = GetStandardText(text);
    emit SpinboxTextChanged(standard, false);
    // A listener may have replaced the input meanwhile.
    if (standard != text && edited && edited == SpinBox())
        SetContentText(standard);
}

QString TDisplayInfomationItem::GetStandardText(QString const &text)
{
    if (text.isEmpty())
        return text;
    int const point = text.indexOf(QLatin1Char('.'));
    if (point < 0) {
        if (text.contains(QLatin1Char('\'')))
            return text;
        if (text.startsWith(QLatin1Char('0')))
            return QString::number(text.toInt());
        return text;
    }
    // A number on its way: "1.", "1.50" (another digit may follow) or ".5".
    if (text.endsWith(QLatin1Char('.')) || text.endsWith(QLatin1Char('0')) || text.startsWith(QLatin1Char('.')))
        return text == QLatin1String("-.") ? QStringLiteral("-") : text;

    QString digits = text;
    digits.remove(point, 1);
    // A sign counts in both the length and the point's index, so the difference is the
    // number of decimals either way.
    Json::NumberText const tidy = Json::Number(digits.toLongLong(), digits.size() - point).ToString(false);
    return QString::fromLatin1(tidy.data(), int(tidy.size()));
}

CTradeSpinBox *TDisplayInfomationItem::SpinBox() const
{
    return m_contentType == ContentSpinBox ? qobject_cast<CTradeSpinBox *>(m_contentWidget.data()) : nullptr;
}

TTradeMenuButton *TDisplayInfomationItem::ButtonMenu() const
{
    return m_contentType == ContentButtonMenu ? qobject_cast<TTradeMenuButton *>(m_contentWidget.data())
                                              : nullptr;
}

TButtonsWidget *TDisplayInfomationItem::ButtonGroup() const
{
    return m_contentType == ContentButtonGroup ? qobject_cast<TButtonsWidget *>(m_contentWidget.data()) : nullptr;
}

void TDisplayInfomationItem::AddButton(QString const &text, QVariant const &id)
{
    if (TButtonsWidget *group = ButtonGroup())
        group->AddButton(text, id);
}

QVariant TDisplayInfomationItem::GetSelectButtonID() const
{
    TButtonsWidget *group = ButtonGroup();
    return group ? group->CheckedButtonID() : QVariant();
}

void TDisplayInfomationItem::SetButtonEnble(QVariant const &id, bool enable)
{
    TButtonsWidget *group = ButtonGroup();
    if (!group)
        return;
    for (QAbstractButton *button : group->GetButtons()) {
        auto *push = qobject_cast<TPushButton *>(button);
        if (push && push->GetKelvoData() == id) {
            push->setEnabled(enable);
            return;
        }
    }
}

void TDisplayInfomationItem::SetDarkStyle(bool dark)
{
    TButtonsWidget *group = ButtonGroup();
    if (!group)
        return;
    for (QAbstractButton *button : group->GetButtons()) {
        button->setProperty("dark", dark);
        QtKelvoHelper::UpdateWidgetStyle(button);
    }
}

QAction *TDisplayInfomationItem::AddButtonMenuItem(QString const &text, QVariant const &data)
{
    TTradeMenuButton *button = ButtonMenu();
    return button ? button->AddItem(text, data) : nullptr;
}

void TDisplayInfomationItem::ClearButtonMenuItems()
{
    TTradeMenuButton *button = ButtonMenu();
    if (button && !button->actions().isEmpty() && button->GetMenu())
        button->GetMenu()->clear();
}

QVariant TDisplayInfomationItem::GetMenuSelectItem()
{
    TTradeMenuButton *button = ButtonMenu();
    return button ? button->CurrentData() : QVariant();
}

void TDisplayInfomationItem::SetMenuFixWidth(int width)
{
    if (TTradeMenuButton *button = ButtonMenu())
        button->SetMenuFixWidth(width);
}

QAction *TDisplayInfomationItem::AddMenuItem(QString const &text, QVariant const &data)
{
    return SpinBox() && m_menuButton ? m_menuButton->AddItem(text, data) : nullptr;
}

QString TDisplayInfomationItem::GetContentText()
{
    CTradeSpinBox *spin = SpinBox();
    return spin ? spin->text() : QString();
}

void TDisplayInfomationItem::SetInputMethodEnabled(bool enable)
{
    if (CTradeSpinBox *spin = SpinBox())
        spin->setAttribute(Qt::WA_InputMethodEnabled, enable);
}

void TDisplayInfomationItem::SetValidator(QValidator *validator)
{
    if (CTradeSpinBox *spin = SpinBox())
        spin->setValidator(validator);
}

void TDisplayInfomationItem::SetChecked(int index)
{
    if (TButtonsWidget *group = ButtonGroup())
        group->SetChecked(index);
    else if (TTradeMenuButton *button = ButtonMenu())
        button->SetCheckedItemByData(QVariant(index));
}

void TDisplayInfomationItem::SetContentText(QString const &text)
{
    if (CTradeSpinBox *spin = SpinBox())
        spin->setText(text);
    else if (TTradeMenuButton *button = ButtonMenu())
        button->setText(text);
}

void TDisplayInfomationItem::SetContentFixSize(int, int height)
{
    if (CTradeSpinBox *spin = SpinBox()) {
        spin->setFixedHeight(height);
    } else if (TTradeMenuButton *button = ButtonMenu()) {
        if (QMenu *menu = button->GetMenu())
            menu->QWidget::setFixedHeight(height);
    }
}

QAction *TDisplayInfomationItem::AddSeparatorOnMenu()
{
    return m_menuButton && m_menuButton->GetMenu() ? m_menuButton->GetMenu()->addSeparator() : nullptr;
}

void TDisplayInfomationItem::AddWidgetAction(QWidget *widget, QVariant const &data, bool separator)
{
    if (m_menuButton)
        m_menuButton->AddWidgetItem(widget, data, separator);
}

void TDisplayInfomationItem::SetMenuEnable(bool enable)
{
    if (m_menuButton)
        m_menuButton->setEnabled(enable);
}

void TDisplayInfomationItem::SetMenuWidgetItemVisible(QVariant const &data, bool visible)
{
    if (m_menuButton)
        m_menuButton->SetWidgetItemVisible(data, visible);
}

void TDisplayInfomationItem::ChangeContentWidget(ContentWidgetType type)
{
    if (type == m_contentType)
        return;
    m_contentType = type;
    while (QLayoutItem *item = m_contentLayout->takeAt(0)) {
        if (QWidget *widget = item->widget()) {
            // The old input must not speak for the row any more, not even of the focus
            // it loses when it closes.
            widget->disconnect(this);
            widget->close();
            widget->deleteLater();
        }
        delete item;
    }
    m_contentWidget = nullptr;
    m_menuButton = nullptr;
    BuildContent(type, SpinBoxMenuNone);
}

void TDisplayInfomationItem::ChangeMainLayout(MainLayout type)
{
    if (type == m_mainLayoutType)
        return;
    m_mainLayoutType = type;
    if (m_mainLayout) {
        // The content layout comes out unowned and is used again; the rest is spent.
        while (QLayoutItem *item = m_mainLayout->takeAt(0)) {
            if (item != m_contentLayout)
                delete item;
        }
        delete m_mainLayout;
        m_mainLayout = nullptr;
    }
    if (type == MainLayoutHorizontal) {
        InitHLayout();
    } else if (type == MainLayoutVertical) {
        InitVLayout();
        m_contentLayout->addStretch();
    }
}

void TDisplayInfomationItem::ChangeMenuType(SpinBoxMenuType type)
{
    if (m_contentType != ContentSpinBox)
        return;
    m_menuType = type;
    CTradeSpinBox *spin = SpinBox();
    if (!spin || !m_menuButton)
        return;

    int width = 0;
    char const *kind = nullptr;
    QString name;
    switch (type) {
    case SpinBoxMenuNone:
        width = 269;
        kind = "normal";
        break;
    case SpinBoxMenuEdit:
        width = 245;
        kind = "not_normal";
        name = QStringLiteral("SpinBoxEditMenu");
        break;
    case SpinBoxMenuNumber:
        width = 245;
        kind = "not_normal";
        name = QStringLiteral("SpinBoxNumberMenu");
        break;
    }
    if (kind) {
        SetContentFixSize(width, kRowHeight);
        spin->setProperty("type", QString::fromLatin1(kind));
        m_menuButton->setProperty("type", QString::fromLatin1(kind));
        if (!name.isEmpty())
            m_menuButton->setObjectName(name);
        m_menuButton->setVisible(type != SpinBoxMenuNone);
    }
    QtKelvoHelper::UpdateWidgetStyle(spin);
    QtKelvoHelper::UpdateWidgetStyle(m_menuButton);
}

SpinBoxMenuType TDisplayInfomationItem::GetMenuType()
{
    return m_menuType;
}

QWidget *TDisplayInfomationItem::GetContentWidget()
{
    return m_contentWidget;
}

QWidget *TDisplayInfomationItem::GetMenuButton()
{
    return m_menuButton;
}

QSize TDisplayInfomationItem::GetLabelFixSize() const
{
    return m_nameLabel->size();
}

void TDisplayInfomationItem::SetLabelFixSize(int width, int height)
{
    m_nameLabel->setFixedSize(width, height);
}

void TDisplayInfomationItem::SetLabelFixWidth(int width)
{
    m_nameLabel->setFixedWidth(width);
}

void TDisplayInfomationItem::SetLabelFixHeight(int height)
{
    m_nameLabel->setFixedHeight(height);
}

void TDisplayInfomationItem::SetText(QString const &text)
{
    m_nameLabel->setText(text);
}

void TDisplayInfomationItem::SetNameStretch(bool stretch)
{
    m_nameStretch = stretch;
}
