#include "uilib/text_edit.h"

#include "uilib/scale_pass.h"

TTextEdit::TTextEdit(float scale, QWidget *parent)
    : QTextEdit(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TTextEdit::TTextEdit(float scale, QString const &text, QWidget *parent)
    : QTextEdit(text, parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TTextEdit::~TTextEdit() = default;

void TTextEdit::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TTextEdit::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
