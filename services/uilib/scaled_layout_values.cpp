#include "uilib/scaled_layout_values.h"

#include "uilib/dpi_tool.h"

#include <QLayout>

int ScaledLayoutValues::Length(int logical, float scale)
{
    return logical < 0 ? -1 : DpiTool::Physical(logical, scale);
}

void ScaledLayoutValues::SetMargins(QLayout *layout, QMargins const &logical, float scale)
{
    m_margins = logical;
    m_hasMargins = true;
    Reapply(layout, scale);
}

void ScaledLayoutValues::SetSpacing(QLayout *layout, int logical, float scale)
{
    m_spacing = logical;
    m_hasSpacing = true;
    Reapply(layout, scale);
}

void ScaledLayoutValues::Reapply(QLayout *layout, float scale) const
{
    if (m_hasMargins) {
        QMargins const m = m_margins;
        layout->QLayout::setContentsMargins(Length(m.left(), scale), Length(m.top(), scale),
                                            Length(m.right(), scale), Length(m.bottom(), scale));
    }
    if (m_hasSpacing)
        layout->QLayout::setSpacing(Length(m_spacing, scale));
}

QMargins ScaledLayoutValues::Margins(QLayout const *layout, float scale) const
{
    QMargins const effective = DpiTool::Logical(layout->QLayout::contentsMargins(), scale);
    if (!m_hasMargins)
        return effective;
    return QMargins(m_margins.left() < 0 ? effective.left() : m_margins.left(),
                    m_margins.top() < 0 ? effective.top() : m_margins.top(),
                    m_margins.right() < 0 ? effective.right() : m_margins.right(),
                    m_margins.bottom() < 0 ? effective.bottom() : m_margins.bottom());
}

int ScaledLayoutValues::Spacing(QLayout const *layout, float scale) const
{
    if (m_hasSpacing && m_spacing >= 0)
        return m_spacing;
    int const effective = layout->QLayout::spacing();
    return effective < 0 ? effective : DpiTool::Logical(effective, scale);
}
