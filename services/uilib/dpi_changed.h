#pragma once
// ICallDPIChanged and its mix-ins: how a scaled object follows a change of scale.
//
// Every T class (TWidget, TLabel, THBoxLayout ...) derives from its Qt class first and
// from one of these mix-ins second. The mix-in holds the object's scale in `m_scale`
// (1.0 on a standard screen), registers the object with the DPI service for its
// lifetime, and offers SetScale, which re-scales the object and everything it holds.
//
// ScaleChanged(s), implemented by each T class, is the heart of the layer: it stores s,
// re-applies every logical size its scaled setters were given, then passes the call on
// to the scaled objects it holds. A widget passes it to its layout and to its child
// objects, walking through plain Qt widgets and layouts to reach the T objects inside;
// a layout passes it to its items. Child widgets that are windows of their own (popups,
// dialogs, tool tips) are not reached by that walk, except where a T setter recorded
// them (TPushButton::setMenu, the sub-menus of a TMenu). Each object is handled once per
// pass even when several routes lead to it, and the scale is never changed on the way.
//
// Overriding ScaleChanged in a control: call the T base first, then add only what the
// walk does not reach. From outside, prefer SetScale over ScaleChanged: SetScale opens
// one pass around everything it triggers (so an override that forwards to an object the
// walk already reached does not re-apply it twice), also reaches the windows the object
// owns, and for a top-level window goes through the DPI service, which re-applies the
// window's style sheet.

#include "uilib/kelvouilib_export.h"

class QObject;

class KELVOUILIB_EXPORT ICallDPIChanged
{
public:
    virtual ~ICallDPIChanged();
    // The scale of this object has changed to `scale`.
    virtual void ScaleChanged(float scale) = 0;
    // An identifier of the object for the DPI service.
    virtual unsigned int GetWID() const = 0;
    // Sets the scale, which leads to ScaleChanged on this object and its chain.
    virtual void SetScale(float scale) = 0;
    // Takes the object out of the DPI service; true if it was registered.
    virtual bool RemoveParent() = 0;
};

// Common base of every scaled class: scale, registration, SetScale.
class KELVOUILIB_EXPORT CRemoveDPIChanged : public ICallDPIChanged
{
public:
    ~CRemoveDPIChanged() override;

    // The serial number the DPI service gave this object; 0 once it was removed.
    unsigned int GetWID() const override;
    void SetScale(float scale) override;
    bool RemoveParent() override;

    float GetScale() const { return m_scale; }
    // The QObject this mix-in belongs to.
    QObject *ScaledObject() const { return m_self; }

protected:
    // `self` is the object itself (its Qt base is complete when this runs). A `scale`
    // that is not a positive number is resolved from `scaleSource` upwards: the nearest
    // scaled object's scale, else the scale of the screen (see DpiTool::ScaleOf).
    CRemoveDPIChanged(QObject *self, float scale, QObject const *scaleSource);

    float m_scale = 1.0f;

private:
    friend class ScalePass;
    CRemoveDPIChanged(CRemoveDPIChanged const &) = delete;
    CRemoveDPIChanged &operator=(CRemoveDPIChanged const &) = delete;

    QObject *m_self;
    unsigned int m_wid = 0;
};

// A widget that passes its scale to its layout and the scaled widgets inside it.
class KELVOUILIB_EXPORT CSingleDPIChanged : public CRemoveDPIChanged
{
protected:
    using CRemoveDPIChanged::CRemoveDPIChanged;
};

// A container that also holds scaled content outside its own layout: a view's viewport,
// a menu's actions, a scroll area's widget, a stacked layout's pages.
class KELVOUILIB_EXPORT CWidgetDPIChanged : public CRemoveDPIChanged
{
protected:
    using CRemoveDPIChanged::CRemoveDPIChanged;
};

// A layout: passes its scale to its items and nested layouts.
class KELVOUILIB_EXPORT CLayoutDPIChanged : public CWidgetDPIChanged
{
protected:
    using CWidgetDPIChanged::CWidgetDPIChanged;
};
