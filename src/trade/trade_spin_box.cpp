#include "trade/trade_spin_box.h"

#include "qtcomm/qt_kelvo_helper.h"
#include "uilib/box_layout.h"
#include "uilib/label.h"
#include "uilib/push_button.h"
#include "uilib/widget.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

CTradeSpinBox::CTradeSpinBox(float scale, QWidget *parent)
    : TLineEdit(scale, parent)
    , m_step(Json::Number(1, 2))
{
    InitWidget();
}

void CTradeSpinBox::InitWidget()
{
    setObjectName(QStringLiteral("TradeSpinBox"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_InputMethodEnabled, false);

    m_mainLayout = new THBoxLayout(m_scale, nullptr);
    TLineEdit::setLayout(m_mainLayout);
    m_mainLayout->setContentsMargins(1, 1, 1, 1);
    m_mainLayout->setSpacing(0);

    m_buttonLayout = new TVBoxLayout(m_scale, nullptr);
    m_buttonLayout->setContentsMargins(0, 1, 1, 1);
    m_buttonLayout->setSpacing(1);

    m_upButton = MakeStepButton("SpinBoxUpButton");
    m_downButton = MakeStepButton("SpinBoxDownButton");
    m_buttonLayout->addWidget(m_upButton, 0, Qt::Alignment());
    m_buttonLayout->addWidget(m_downButton, 0, Qt::Alignment());

    auto *buttonBox = new TWidget(m_scale, nullptr);
    buttonBox->setFixedSize(11, 22);
    buttonBox->setLayout(m_buttonLayout);

    m_unitLabel = new TLabel(m_scale, nullptr);
    m_unitLabel->hide();
    m_unitLabel->setObjectName(QStringLiteral("Trade_Minimum_Unit"));

    m_mainLayout->addStretch();
    m_mainLayout->addWidget(m_unitLabel, 0, Qt::Alignment());
    m_mainLayout->addSpacing(2);
    m_mainLayout->addWidget(buttonBox, 0, Qt::Alignment());
}

TPushButton *CTradeSpinBox::MakeStepButton(char const *objectName)
{
    auto *button = new TPushButton(m_scale, this);
    button->installEventFilter(this);
    button->setAutoRepeat(true);
    // A click must not take the focus from the text.
    button->setFocusProxy(this);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setFixedSize(10, 10);
    connect(button, &QAbstractButton::clicked, this, [this, button] { OnStepButtonClicked(button); });
    button->hide();
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

// Auto repeat emits clicked while the left button is held; the release itself is
// counted by the event filter, which runs before the button's own release handling.
void CTradeSpinBox::OnStepButtonClicked(TPushButton *button)
{
    if (!m_mouseHeld)
        return;
    if (QGuiApplication::mouseButtons() & Qt::LeftButton)
        EmitStep(button);
    else
        m_mouseHeld = false;
}

void CTradeSpinBox::EmitStep(TPushButton *button)
{
    if (button == m_upButton)
        emit UpButtonClicked();
    else if (button == m_downButton)
        emit DownButtonClicked();
}

bool CTradeSpinBox::eventFilter(QObject *watched, QEvent *e)
{
    if (auto *button = qobject_cast<TPushButton *>(watched)) {
        switch (e->type()) {
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent *>(e)->button() == Qt::LeftButton)
                m_mouseHeld = true;
            break;
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent *>(e)->button() == Qt::LeftButton) {
                m_mouseHeld = false;
                EmitStep(button);
            }
            break;
        case QEvent::Enter:
            SetButtonState(button, QStringLiteral("hover"));
            break;
        case QEvent::Leave:
            SetButtonState(button, QString());
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, e);
}

void CTradeSpinBox::SetButtonState(TPushButton *button, QString const &state)
{
    button->setProperty("state", state);
    QtKelvoHelper::UpdateWidgetStyle(button);
}

bool CTradeSpinBox::event(QEvent *e)
{
    if (e->type() == QEvent::KeyPress) {
        int const key = static_cast<QKeyEvent *>(e)->key();
        if (key == Qt::Key_Up) {
            emit UpButtonClicked();
            return true;
        }
        if (key == Qt::Key_Down) {
            emit DownButtonClicked();
            return true;
        }
    }
    return QLineEdit::event(e);
}

void CTradeSpinBox::focusInEvent(QFocusEvent *e)
{
    m_active = true;
    emit FocusInEvent(e);
    QLineEdit::focusInEvent(e);
}

void CTradeSpinBox::focusOutEvent(QFocusEvent *e)
{
    m_active = false;
    emit FocusOutEvent(e);
    QLineEdit::focusOutEvent(e);
}

void CTradeSpinBox::enterEvent(QEvent *)
{
    if (m_upButton && m_downButton && isEnabled()) {
        m_upButton->show();
        m_downButton->show();
    }
}

void CTradeSpinBox::leaveEvent(QEvent *)
{
    if (m_upButton && m_downButton) {
        SetButtonState(m_upButton, QString());
        SetButtonState(m_downButton, QString());
        m_upButton->hide();
        m_downButton->hide();
    }
}

void CTradeSpinBox::SetStep(Json::Number const &step)
{
    m_step = step;
}

Json::Number CTradeSpinBox::GetStep()
{
    return m_step;
}

void CTradeSpinBox::SetValueRange(double minimum, double maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
}

void CTradeSpinBox::GetValueRange(double &minimum, double &maximum)
{
    minimum = m_minimum;
    maximum = m_maximum;
}

void CTradeSpinBox::SetEmptyEnable(bool enable)
{
    m_emptyEnable = enable;
}

bool CTradeSpinBox::IsEmptyEnable() const
{
    return m_emptyEnable;
}

void CTradeSpinBox::SetUnitEnable(bool enable)
{
    m_unitEnable = enable;
    UpdateUnitLabel();
}

bool CTradeSpinBox::IsUnitEnable() const
{
    return m_unitEnable;
}

void CTradeSpinBox::SetUnitVisible(bool visible)
{
    m_unitVisible = visible;
    UpdateUnitLabel();
}

bool CTradeSpinBox::GetUnitVisible() const
{
    return m_unitLabel->isVisible();
}

void CTradeSpinBox::UpdateUnitLabel()
{
    m_unitLabel->setVisible(m_unitVisible && m_unitEnable);
}

void CTradeSpinBox::SetUnitText(QString const &text)
{
    m_unitLabel->setText(text);
}

QString CTradeSpinBox::GetUnitText()
{
    return m_unitLabel->text();
}

void CTradeSpinBox::SetUpButtonToolTip(QString const &tip)
{
    if (m_upButton)
        m_upButton->setToolTip(tip);
}

void CTradeSpinBox::SetDownButtonToolTip(QString const &tip)
{
    if (m_downButton)
        m_downButton->setToolTip(tip);
}

QString CTradeSpinBox::GetUpButtonToolTip() const
{
    return m_upButton ? m_upButton->toolTip() : QString();
}

QString CTradeSpinBox::GetDownButtonToolTip() const
{
    return m_downButton ? m_downButton->toolTip() : QString();
}

bool CTradeSpinBox::IsUpButtonEnable() const
{
    return m_upButton->isEnabled();
}

bool CTradeSpinBox::IsDwonButtonEnable() const
{
    return m_downButton->isEnabled();
}

bool CTradeSpinBox::IsActived() const
{
    return m_active;
}

void CTradeSpinBox::UseDefaultSignals(bool use)
{
    if (use) {
        connect(this, &CTradeSpinBox::UpButtonClicked, this, &CTradeSpinBox::OnUpButton, Qt::UniqueConnection);
        connect(this, &CTradeSpinBox::DownButtonClicked, this, &CTradeSpinBox::OnDownButton, Qt::UniqueConnection);
        connect(this, &CTradeSpinBox::FocusOutEvent, this, &CTradeSpinBox::OnFocusOut, Qt::UniqueConnection);
    } else {
        disconnect(this, &CTradeSpinBox::UpButtonClicked, this, &CTradeSpinBox::OnUpButton);
        disconnect(this, &CTradeSpinBox::DownButtonClicked, this, &CTradeSpinBox::OnDownButton);
        disconnect(this, &CTradeSpinBox::FocusOutEvent, this, &CTradeSpinBox::OnFocusOut);
    }
}

void CTradeSpinBox::ShowValue(double value)
{
    setText(QString::number(value, 'f', m_step.GetDigits()));
}

// Equality only: a value off the step grid may pass the bound, and the focus-out
// correction brings it back.
void CTradeSpinBox::OnUpButton()
{
    double const value = text().toDouble();
    if (qFuzzyCompare(value, m_maximum))
        return;
    ShowValue(value + m_step.ToDouble());
}

void CTradeSpinBox::OnDownButton()
{
    double const value = text().toDouble();
    if (qFuzzyCompare(value, m_minimum))
        return;
    ShowValue(value - m_step.ToDouble());
}

void CTradeSpinBox::OnFocusOut()
{
    if (m_emptyEnable && text().isEmpty())
        return;
    double value = text().toDouble();
    if (value > m_maximum)
        value = m_maximum;
    else if (value < m_minimum)
        value = m_minimum;
    ShowValue(value);
}
