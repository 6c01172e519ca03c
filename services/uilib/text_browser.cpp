#include "uilib/text_browser.h"

#include "uilib/scale_pass.h"

TTextBrowser::TTextBrowser(float scale, QWidget *parent)
    : QTextBrowser(parent)
    , CRemoveDPIChanged(this, scale, parent)
{
}

TTextBrowser::~TTextBrowser() = default;

void TTextBrowser::setFixedHeight(int height)
{
    m_sizes.Apply(this, ScaledSizes::FixedHeight, height, 0, m_scale);
}

void TTextBrowser::ScaleChanged(float scale)
{
    ScalePass::ChangeWidget(this, this, &m_sizes, scale);
}
