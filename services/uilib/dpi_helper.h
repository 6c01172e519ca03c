#pragma once
// IDPIHelper: the process-wide DPI service, reached through GetDPIHelper().
//
// It keeps
// - the registry of live scaled objects: each T object enters it at construction and
//   leaves it at destruction (or RemoveParent); entering and leaving are O(1);
// - the scale of each top-level window: a scaled window's own scale, else the scale the
//   client set with SetWindowScale, else the scale of its screen. A window becomes known
//   when a T window is first shown, when WatchWindow or SetWindowScale names it. When a
//   known window moves to another screen, the new screen's scale is applied to it with
//   one scale pass (see ICallDPIChanged);
// - the application style sheet, written by the client in logical pixels (scale 1.0).
//   While it is not empty, every known parentless window carries it with its "px" sizes
//   scaled for that window (QtKelvoHelper::ScaleSheet), set now and again at each change
//   of the window's scale. Such a window's own style sheet is the helper's: a client that
//   styles windows by hand leaves the application sheet empty. Popups made without a
//   parent ask GetWindowStyleSheet for their own window id and apply the answer.
//
// Everything runs on the GUI thread.

#include "uilib/kelvouilib_export.h"

#include <QString>
#include <QWidget>

#include <cstddef>

class ICallDPIChanged;

class KELVOUILIB_EXPORT IDPIHelper
{
public:
    virtual ~IDPIHelper();

    // The application sheet scaled for the top-level window whose native id is `wid`.
    // An id that names no window gives the sheet at the primary screen's scale.
    virtual QString GetWindowStyleSheet(WId wid) = 0;

    // The scale of the top-level window that `widget` lies in; 1.0 for null.
    virtual float GetWindowScale(QWidget const *widget) const = 0;
    // Re-scales the top-level window of `widget` to `scale` in one pass (ScaleChanged on
    // a scaled window, a walk to the scaled objects inside a plain one), remembers the
    // scale and re-applies the window's style sheet. A scale that is not a positive
    // number is ignored.
    virtual void SetWindowScale(QWidget *widget, float scale) = 0;
    // Makes a plain top-level window known, so that it follows screen changes and gets
    // the application sheet. T windows do this themselves when first shown.
    virtual void WatchWindow(QWidget *window) = 0;
    // Sets the application sheet, scaled for the window, on a parentless window (which
    // becomes known); does nothing while the application sheet is empty and the helper
    // never styled the window. Scale changes of windows call it by themselves.
    virtual void UpdateWindowStyleSheet(QWidget *window) = 0;

    virtual void SetApplicationStyleSheet(QString const &sheet) = 0;
    virtual QString GetApplicationStyleSheet() const = 0;

    // Registry of live scaled objects; Register returns the object's serial number.
    virtual unsigned int Register(ICallDPIChanged *object) = 0;
    virtual bool Unregister(ICallDPIChanged *object) = 0;
    virtual bool IsRegistered(ICallDPIChanged const *object) const = 0;
    virtual std::size_t RegisteredCount() const = 0;
};

// The process-wide helper; never null, never destroyed.
KELVOUILIB_EXPORT IDPIHelper *GetDPIHelper();
