#pragma once
// TToolTipProxyStyle: a proxy style that decides how soon tool tips appear on the
// widget it is set on (QWidget::setStyle), whatever the application style says.
//
// styleHint answers SH_ToolTip_WakeUpDelay with the delay given to the constructor, in
// milliseconds (0: at once; negatives count as 0) and passes every other hint on to the
// base style. The widget does not own the style: give it a parent, for instance the
// widget itself, so that it dies with the widget.

#include "uilib/kelvouilib_export.h"

#include <QProxyStyle>

class KELVOUILIB_EXPORT TToolTipProxyStyle : public QProxyStyle
{
public:
    // A null `baseStyle` stands for the application style.
    explicit TToolTipProxyStyle(int wakeUpDelay = 0, QStyle *baseStyle = nullptr);

    int styleHint(StyleHint hint, QStyleOption const *option = nullptr, QWidget const *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;

    int WakeUpDelay() const { return m_wakeUpDelay; }

private:
    int m_wakeUpDelay;
};
