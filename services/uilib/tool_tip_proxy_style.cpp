#include "uilib/tool_tip_proxy_style.h"

TToolTipProxyStyle::TToolTipProxyStyle(int wakeUpDelay, QStyle *baseStyle)
    : QProxyStyle(baseStyle)
    , m_wakeUpDelay(qMax(0, wakeUpDelay))
{
}

int TToolTipProxyStyle::styleHint(StyleHint hint, QStyleOption const *option, QWidget const *widget,
                                  QStyleHintReturn *returnData) const
{
    if (hint == SH_ToolTip_WakeUpDelay)
        return m_wakeUpDelay;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}
