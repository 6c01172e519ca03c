#pragma once
// ScalePass: the walk that carries a change of scale through the scaled objects.
// Internal to KelvoUILib; the T classes' ScaleChanged and SetScale are built on it.
//
// A pass lasts from the outermost scale change until it returns. Within a pass every
// object is handled at most once (a visited set), so an object reachable as a layout
// item and as a child widget gets one ScaleChanged. Run() is the driver behind SetScale
// and the DPI service: it keeps the pass open around the root's whole ScaleChanged,
// overrides included, and afterwards re-scales the child windows the walk came across.

#include "uilib/dpi_changed.h"
#include "uilib/scaled_sizes.h"

#include <QLayout>
#include <QWidget>

class QEvent;
class QLayout;
class QLayoutItem;

class ScalePass
{
public:
    // The scaled side of an object, or null.
    static CRemoveDPIChanged *Scaled(QObject const *object);

    // Opens (or joins) a pass for the scale change of one object. When accepted, the
    // object's scale is already `scale`; oldScale() is the one it had.
    class Change
    {
    public:
        Change(CRemoveDPIChanged *object, float scale);
        ~Change();
        Change(Change const &) = delete;
        Change &operator=(Change const &) = delete;

        bool accepted() const { return m_accepted; }
        float oldScale() const { return m_oldScale; }

    private:
        bool m_accepted = false;
        float m_oldScale = 1.0f;
    };

    // The whole ScaleChanged of a T widget: guard, the class's own stored values
    // (`extra`, given the old scale), stored sizes (after the content, so that a stored
    // adjustSize fits the new content), then the walk to the children. A top-level
    // window gets its style sheet re-applied first, so that sizes meet the new fonts.
    template <typename Extra>
    static void ChangeWidget(QWidget *widget, CRemoveDPIChanged *scaled, ScaledSizes *sizes, float scale,
                             Extra const &extra)
    {
        Change change(scaled, scale);
        if (!change.accepted())
            return;
        if (!widget->isWindow()) {
            extra(change.oldScale());
            if (sizes)
                sizes->Reapply(widget, change.oldScale(), scale);
            ReachChildren(widget, scale);
            return;
        }
        // A window's minimum size comes from its layout, which still holds the old
        // sizes until the children are re-scaled: its own size goes last, or the old
        // minimum would clamp it.
        RestyleWindow(widget);
        if (sizes)
            sizes->CarryOver(widget, change.oldScale());
        extra(change.oldScale());
        ReachChildren(widget, scale);
        if (QLayout *layout = widget->layout())
            layout->activate();
        if (sizes)
            sizes->ReapplyStored(widget, scale);
    }
    static void ChangeWidget(QWidget *widget, CRemoveDPIChanged *scaled, ScaledSizes *sizes, float scale)
    {
        ChangeWidget(widget, scaled, sizes, scale, [](float) {});
    }

    // The whole ScaleChanged of a T layout: guard, `extra` (the layout's own values),
    // then its items.
    template <typename Extra>
    static void ChangeLayout(QLayout *layout, CRemoveDPIChanged *scaled, float scale, Extra const &extra)
    {
        Change change(scaled, scale);
        if (!change.accepted())
            return;
        extra();
        ReachItems(layout, scale);
    }

    // Window bookkeeping shared by the T window classes' event(): a shown top-level
    // window becomes known to the DPI service.
    static void WindowEvent(QWidget *widget, QEvent *event);

    // Passes the scale to one object: ScaleChanged on a scaled one not yet handled in
    // this pass, a walk through a plain widget or layout. A widget that is a window is
    // only noted for the driver, unless `intoWindow`.
    static void Reach(QObject *object, float scale, bool intoWindow = false);
    static void ReachChildren(QObject *object, float scale);
    static void ReachItems(QLayout *layout, float scale);
    static void ReachItem(QLayoutItem *item, float scale);

    // Brings an object just added to a scaled container to the container's scale when
    // it was made with another one.
    static void Adopt(QObject *object, float scale);

    // The driver: one pass over `root` (scaled or plain) and the windows it owns.
    static void Run(QObject *root, float scale);

private:
    static void RestyleWindow(QWidget *window);
};
