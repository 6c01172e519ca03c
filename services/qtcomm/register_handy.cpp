#include "qtcomm/register_handy.h"

RegisterHandy::RegisterHandy(IChangeSkinCall *call, Skin::SkinCallPriority priority)
    : m_call(call)
    , m_priority(priority)
{
    GetSkinHelper()->AddChangeSkinCall(m_call, m_priority);
}

RegisterHandy::~RegisterHandy()
{
    GetSkinHelper()->RemoveChangeSkinCall(m_call, m_priority);
}
