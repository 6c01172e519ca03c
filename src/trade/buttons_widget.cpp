#include "trade/buttons_widget.h"

#include "trade/trade_enh_menu_button.h"

#include "uilib/box_layout.h"
#include "uilib/push_button.h"

TButtonsWidget::TButtonsWidget(float scale, QWidget *parent)
    : TFrame(scale, parent)
{
    InitWidget();
}

// The buttons die after this object's members, as children of the QWidget part; they
// must not report to a list that is gone.
TButtonsWidget::~TButtonsWidget()
{
    for (QAbstractButton *button : qAsConst(m_buttons))
        disconnect(button, &QObject::destroyed, this, nullptr);
}

void TButtonsWidget::InitWidget()
{
    setObjectName(QStringLiteral("TradeButtonsWidget"));
    m_layout = new THBoxLayout(m_scale, this);
    m_layout->setSpacing(0);
    m_layout->setContentsMargins(0, 0, 0, 0);
    TFrame::setLayout(m_layout);
}

TPushButton *TButtonsWidget::AddButton(QString const &text, QVariant const &id)
{
    auto *button = new TPushButton(m_scale, text, nullptr);
    button->setCheckable(true);
    connect(button, &QAbstractButton::clicked, this, [this, button, id] { onButtonClicked(button, id); });
    button->SetKelvoData(id);
    Append(button);
    return button;
}

TPushButton *TButtonsWidget::AddButton()
{
    auto *button = new TPushButton(m_scale, nullptr);
    button->setCheckable(true);
    connect(button, &QAbstractButton::clicked, this,
            [this, button] { onButtonClicked(button, button->GetKelvoData()); });
    Append(button);
    return button;
}

void TButtonsWidget::AddMenuButton(TTradeEnhMenuButton *button, QVariant const &id)
{
    if (!button)
        return;
    button->SetKelvoData(id);
    connect(button, &QAbstractButton::clicked, this,
            [this, button] { onButtonClicked(button, button->CurrentData()); });
    Append(button);
}

void TButtonsWidget::Append(QAbstractButton *button)
{
    m_buttons.append(button);
    // Buttons come fixed in height (tool buttons in width too); in the row they take
    // their equal share and its full height.
    QSizePolicy policy = button->sizePolicy();
    if (policy.horizontalPolicy() == QSizePolicy::Fixed)
        policy.setHorizontalPolicy(QSizePolicy::Preferred);
    policy.setVerticalPolicy(QSizePolicy::Preferred);
    button->setSizePolicy(policy);
    m_layout->addWidget(button, 1, Qt::Alignment());
    // A member its owner deletes leaves the row rather than dangle in it.
    connect(button, &QObject::destroyed, this, [this, button] {
        m_buttons.removeAll(button);
        if (m_selectButton == button)
            m_selectButton = nullptr;
    });
}

void TButtonsWidget::AddStretch(int stretch) const
{
    m_layout->addStretch(stretch);
}

void TButtonsWidget::SetSpacing(int spacing)
{
    m_layout->setSpacing(spacing);
}

void TButtonsWidget::onButtonClicked(QAbstractButton *button, QVariant const &id)
{
    // A checkable button toggles off at a second click; the row keeps it selected.
    button->setChecked(true);
    if (button == m_selectButton)
        return;
    m_checkedId = id;
    if (m_selectButton)
        m_selectButton->setChecked(false);
    m_selectButton = button;
    emit clickedButton(id);
}

void TButtonsWidget::SetChecked(int index)
{
    if (index < 0 || index >= m_buttons.size())
        return;
    if (m_selectButton)
        m_selectButton->setChecked(false);
    m_selectButton = m_buttons.at(index);
    m_selectButton->setChecked(true);
    m_checkedId = QVariant(index);
}

QVariant TButtonsWidget::CheckedButtonID()
{
    return m_checkedId;
}

QList<QAbstractButton *> TButtonsWidget::GetButtons()
{
    return m_buttons;
}

QAbstractButton *TButtonsWidget::GetSelectButton() const
{
    return m_selectButton;
}
