#pragma once
// RegisterHandy: keeps one IChangeSkinCall registered with the skin service for as long
// as the guard lives. A control holds it as a std::shared_ptr<RegisterHandy> member,
// made in its constructor, so that registration ends with the control:
//
//     m_skinHandy = std::make_shared<RegisterHandy>(this, Skin::PRIORITY_NORMAL);

#include "qtcomm/kelvoqtcomm_export.h"
#include "qtcomm/skin_helper.h"

class KELVOQTCOMM_EXPORT RegisterHandy
{
public:
    RegisterHandy(IChangeSkinCall *call, Skin::SkinCallPriority priority);
    ~RegisterHandy();

    RegisterHandy(RegisterHandy const &) = delete;
    RegisterHandy &operator=(RegisterHandy const &) = delete;

private:
    IChangeSkinCall *m_call;
    Skin::SkinCallPriority m_priority;
};
