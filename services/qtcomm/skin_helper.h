#pragma once
// The skin service: colours and pictures by group and key, and the callbacks that
// follow a change of skin.
//
// A skin is a table of groups, each a table of keys, each a colour text that
// QColor(QString) accepts ("#rrggbb", "#aarrggbb", SVG colour names) or a picture path.
// The light and dark tables are built in (resources ":/skins/light.json" and
// ":/skins/dark.json"); the light skin is current at start. A client may replace any
// table with LoadSkinTable and switch with SwitchSkin.
//
// A control that follows the skin inherits IChangeSkinCall and keeps a
// std::shared_ptr<RegisterHandy> made in its constructor; it reads its values once when
// built and again in ChangedSkin.
//
// Everything here runs on the GUI thread.

#include "qtcomm/kelvoqtcomm_export.h"

#include <string>
#include <vector>

namespace Skin {

enum SKIN_TYPE {
    SKIN_LIGHT = 0,
    SKIN_DARK = 1,
    // Values from here on are free for skins the client loads itself.
    SKIN_USER = 16,
};

// Order in which the callbacks of one skin change are called: a smaller value is
// called earlier; equal values in the order they were registered. Controls use
// PRIORITY_NORMAL (0). PRIORITY_FIRST suits whoever re-applies the application style
// sheet, PRIORITY_LAST whoever repaints a whole window after its controls.
enum SkinCallPriority {
    PRIORITY_FIRST = -100,
    PRIORITY_NORMAL = 0,
    PRIORITY_LAST = 100,
};

} // namespace Skin

// Callback of a skin change. Overrides read their values anew from GetSkinHelper().
class KELVOQTCOMM_EXPORT IChangeSkinCall
{
public:
    virtual ~IChangeSkinCall();
    virtual void ChangedSkin(Skin::SKIN_TYPE type) = 0;
};

class KELVOQTCOMM_EXPORT IStorageSkinHelper
{
public:
    virtual ~IStorageSkinHelper();

    // The current skin; the pointer stays valid and follows later switches.
    virtual Skin::SKIN_TYPE const *GetCurrentSkin() const = 0;
    // Colour text of group/key in the current skin; empty text if there is no entry.
    virtual std::wstring GetColorText(std::wstring const &group, std::wstring const &key) const = 0;
    // As GetColorText from the default group, "common".
    virtual std::wstring GetColorString(std::wstring const &key) const = 0;
    // The colour as 0xAARRGGBB; 0 if there is no entry or the text is no colour.
    virtual unsigned int GetColorValue(std::wstring const &group, std::wstring const &key) const = 0;
    // Picture path of group/key in the current skin; empty if there is no entry.
    virtual std::wstring GetImagePath(std::wstring const &group, std::wstring const &key) const = 0;
    // A callback is registered at most once: adding it again changes nothing, and
    // removing it removes it whatever the priority given. Adding and removing are safe
    // during a skin change: a callback removed then is not called any more, one added
    // then is called from the next change on.
    virtual void AddChangeSkinCall(IChangeSkinCall *call, Skin::SkinCallPriority priority) = 0;
    virtual void RemoveChangeSkinCall(IChangeSkinCall *call, Skin::SkinCallPriority priority) = 0;

    // Replaces the table of `type` with the JSON text `json` (UTF-8): an object whose
    // members are groups, each an object whose members are strings; comments are
    // allowed, duplicate names are not. Any other text is refused with one warning in the log, and the table in force stays. The
    // callbacks are not called, even for the current skin: SwitchSkin does that.
    virtual bool LoadSkinTable(Skin::SKIN_TYPE type, std::string const &json) = 0;
    // Makes `type` current and calls every registered callback once, also when `type`
    // was current already (so a reloaded table reaches the controls). False, and no
    // change, if no table is loaded for `type`. Called from inside a callback, it lets
    // the running round finish and then calls everyone again with the newer skin.
    virtual bool SwitchSkin(Skin::SKIN_TYPE type) = 0;
    // The skins that have a table, in ascending order.
    virtual std::vector<Skin::SKIN_TYPE> GetLoadedSkins() const = 0;
};

// The process-wide skin service; never null.
KELVOQTCOMM_EXPORT IStorageSkinHelper *GetSkinHelper();
