#include "uilib/line_edit.h"

#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

#include <QLayout>
#include "uilib/widget.h"

TLineEdit::TLineEdit(float scale, QWidget *parent)
    : QLineEdit(parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TLineEdit::TLineEdit(float scale, QString const &text, TWidget *parent)
    : QLineEdit(text, parent)
    , CSingleDPIChanged(this, scale, parent)
{
}

TLineEdit::~TLineEdit() = default;

void TLineEdit::setFixedSize(int width, int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedSize, width, height, m_scale);
}

void TLineEdit::setFixedSize(QSize const &size)
{
    setFixedSize(size.width(), size.height());
}

void TLineEdit::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TLineEdit::setTextMargins(int left, int top, int right, int bottom)
{
    m_textMargins = QMargins(left, top, right, bottom);
    m_hasTextMargins = true;
    ApplyTextMargins();
}

void TLineEdit::ApplyTextMargins()
{
    QLineEdit::setTextMargins(DpiTool::Physical(m_textMargins, m_scale));
}

void TLineEdit::setLayout(QLayout *layout)
{
    QLineEdit::setLayout(layout);
    ScalePass::Adopt(layout, m_scale);
}

void TLineEdit::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale, [this](float) {
        if (m_hasTextMargins)
            ApplyTextMargins();
    });
}
