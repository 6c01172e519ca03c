#include "uilib/dpi_changed.h"

#include "uilib/dpi_helper.h"
#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

#include <QWidget>

ICallDPIChanged::~ICallDPIChanged() = default;

CRemoveDPIChanged::CRemoveDPIChanged(QObject *self, float scale, QObject const *scaleSource)
    : m_scale(DpiTool::ResolveScale(scale, scaleSource))
    , m_self(self)
{
    m_wid = GetDPIHelper()->Register(this);
}

CRemoveDPIChanged::~CRemoveDPIChanged()
{
    RemoveParent();
}

unsigned int CRemoveDPIChanged::GetWID() const
{
    return m_wid;
}

void CRemoveDPIChanged::SetScale(float scale)
{
    if (!DpiTool::IsValidScale(scale) || !m_self)
        return;
    // A window's scale belongs to the DPI service, which also re-styles the window.
    if (m_self->isWidgetType() && static_cast<QWidget *>(m_self)->isWindow())
        GetDPIHelper()->SetWindowScale(static_cast<QWidget *>(m_self), scale);
    else
        ScalePass::Run(m_self, scale);
}

bool CRemoveDPIChanged::RemoveParent()
{
    if (m_wid == 0)
        return false;
    GetDPIHelper()->Unregister(this);
    m_wid = 0;
    return true;
}
