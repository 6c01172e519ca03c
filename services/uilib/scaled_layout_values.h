#pragma once
// ScaledLayoutValues: the contents margins and spacing a T layout was given, in logical
// pixels, so that a change of scale can apply them again.
//
// A negative margin or spacing keeps Qt's meaning, "the style's default", at every
// scale. The getters answer in logical pixels: what the setter was given, or, for a
// value never set (or set negative), Qt's effective value divided by the scale.

#include "uilib/kelvouilib_export.h"

#include <QMargins>

class QLayout;

class KELVOUILIB_EXPORT ScaledLayoutValues
{
public:
    void SetMargins(QLayout *layout, QMargins const &logical, float scale);
    void SetSpacing(QLayout *layout, int logical, float scale);
    void Reapply(QLayout *layout, float scale) const;

    QMargins Margins(QLayout const *layout, float scale) const;
    int Spacing(QLayout const *layout, float scale) const;

    // A layout length at a scale, negatives meaning "default".
    static int Length(int logical, float scale);

private:
    QMargins m_margins;
    int m_spacing = -1;
    bool m_hasMargins = false;
    bool m_hasSpacing = false;
};
