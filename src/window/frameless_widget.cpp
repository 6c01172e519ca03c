#include "window/frameless_widget.h"

#include "qtcomm/language_helper.h"
#include "qtcomm/qt_kelvo_helper.h"
#include "uilib/box_layout.h"
#include "uilib/dpi_tool.h"
#include "uilib/frame.h"
#include "uilib/push_button.h"

#include <QTimer>

TFramelessWidget::TFramelessWidget(float scale, QWidget *parent)
    : TDialog(scale, parent)
{
    // Before anything makes the native window, so that it is made without a frame.
    setWindowFlag(Qt::FramelessWindowHint, true);
    setAttribute(Qt::WA_DeleteOnClose, true);
    InitlizeUI();
    m_resizeHandler.activateOn(this);
    m_resizeHandler.setWidgetMovable(true);
}

TFramelessWidget::~TFramelessWidget() = default;

void TFramelessWidget::InitlizeUI()
{
    auto *outer = new TVBoxLayout(m_scale, nullptr);
    outer->setMargin(1);
    outer->setSpacing(0);
    setLayout(outer);

    m_titleBar = new CTitleBar(m_scale, nullptr);
    connect(m_titleBar, &CTitleBar::ButtonClicked, this, [this](CTitleBar::WindowFlag flag) {
        if (flag == CTitleBar::WindowFlagClose)
            close();
    });

    auto *content = new TFrame(m_scale, nullptr);
    m_contentLayout = new TVBoxLayout(m_scale, nullptr);
    m_contentLayout->setSpacing(0);
    m_contentLayout->setContentsMargins(0, 0, 0, 0);
    content->setLayout(m_contentLayout);

    auto *operate = new TFrame(m_scale, nullptr);
    m_operateLayout = new THBoxLayout(m_scale, nullptr);
    m_operateLayout->setSpacing(10);
    m_operateLayout->setContentsMargins(20, 20, 20, 20);
    m_operateLayout->addStretch(1);
    operate->setLayout(m_operateLayout);
    operate->setObjectName(QStringLiteral("OperateWidget"));

    m_resizeHandler.useLocalMoveabled(true);
    m_resizeHandler.addLocalWidget(m_titleBar);

    outer->addWidget(m_titleBar, 0, Qt::Alignment());
    outer->addWidget(content, 0, Qt::Alignment());
    outer->addWidget(operate, 0, Qt::Alignment());
}

void TFramelessWidget::SetTitleName(QString const &name)
{
    if (m_titleBar)
        m_titleBar->SetName(name);
}

void TFramelessWidget::SetWindowFlags(QFlags<CTitleBar::WindowFlag> flags)
{
    if (m_titleBar)
        m_titleBar->SetWindowFlag(flags);
}

TPushButton *TFramelessWidget::OperateButton(OperateFlag flag, ResultASK result)
{
    TPushButton *button = m_operateButtons.value(flag, nullptr);
    if (!button)
        button = new TPushButton(m_scale, nullptr);
    m_operateButtons[flag] = button;
    button->setFixedSize(80, 20);
    m_operateLayout->insertWidget(m_operateLayout->count(), button, 0, Qt::AlignVCenter);
    connect(button, &TPushButton::clicked, this, [this, result] { emit MessageCompleted(result); });
    return button;
}

void TFramelessWidget::SetOperateFlags(QFlags<TFramelessWidget::OperateFlag> flags)
{
    if (flags.testFlag(OperateFlagOk)) {
        TPushButton *ok = OperateButton(OperateFlagOk, ResultAskOk);
        ok->setObjectName(QStringLiteral("highlight_button"));
        ok->setDefault(true);
        ok->setProperty("Checked", QStringLiteral("true"));
        QtKelvoHelper::UpdateWidgetStyle(ok);
        ok->setText(QString::fromWCharArray(LoadXmlString(L"KVS_MGSBOX_OK")));
    }
    if (flags.testFlag(OperateFlagCancel)) {
        TPushButton *cancel = OperateButton(OperateFlagCancel, ResultAskCancel);
        cancel->setObjectName(QStringLiteral("general_button"));
        cancel->setText(QString::fromWCharArray(LoadXmlString(L"KVS_ORDER_CANCEL_ASK")));
    }
}

TPushButton *TFramelessWidget::GetOperateButton(TFramelessWidget::OperateFlag flag) const
{
    return m_operateButtons.value(flag, nullptr);
}

void TFramelessWidget::SetContentWidget(QWidget *widget)
{
    while (QLayoutItem *item = m_contentLayout->takeAt(0)) {
        QWidget *old = item->widget();
        if (old && old != widget) {
            old->close();
            old->deleteLater();
        }
        delete item;
    }
    if (widget)
        m_contentLayout->addWidget(widget, 0, Qt::Alignment());
}

void TFramelessWidget::AdjustHeight(int width)
{
    setFixedWidth(width);
    adjustSize();
    // The widget is the context: a window closed (and deleted) meanwhile drops this step.
    QTimer::singleShot(500, this, [this] {
        setFixedSize(DpiTool::Logical(this->width(), m_scale), DpiTool::Logical(height(), m_scale));
    });
}

void TFramelessWidget::SetWidgetResizable(bool resizable)
{
    m_resizeHandler.setWidgetResizable(resizable);
}
