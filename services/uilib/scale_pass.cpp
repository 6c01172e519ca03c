#include "uilib/scale_pass.h"

#include "uilib/dpi_helper.h"
#include "uilib/dpi_tool.h"

#include <QEvent>
#include <QLayout>
#include <QPointer>

#include <unordered_set>
#include <vector>

namespace {

struct PassState
{
    int depth = 0;   // nesting of open scale changes and drivers
    int drivers = 0; // open Run() calls: only they collect windows
    std::unordered_set<QObject const *> visited;
    std::vector<QPointer<QWidget>> windows; // child windows met by the walk
};

PassState &State()
{
    static PassState state;
    return state;
}

void Open(PassState &state)
{
    ++state.depth;
}

void Close(PassState &state)
{
    if (--state.depth == 0) {
        state.visited.clear();
        state.windows.clear();
    }
}

} // namespace

CRemoveDPIChanged *ScalePass::Scaled(QObject const *object)
{
    return dynamic_cast<CRemoveDPIChanged *>(const_cast<QObject *>(object));
}

ScalePass::Change::Change(CRemoveDPIChanged *object, float scale)
{
    if (!object || !DpiTool::IsValidScale(scale))
        return;
    PassState &state = State();
    QObject const *key = object->m_self;
    if (state.depth > 0 && object->m_scale == scale && state.visited.count(key))
        return;
    Open(state);
    state.visited.insert(key);
    m_oldScale = object->m_scale;
    object->m_scale = scale;
    m_accepted = true;
}

ScalePass::Change::~Change()
{
    if (m_accepted)
        Close(State());
}

void ScalePass::Reach(QObject *object, float scale, bool intoWindow)
{
    if (!object)
        return;
    PassState &state = State();
    bool const isWidget = object->isWidgetType();
    if (isWidget && !intoWindow && static_cast<QWidget *>(object)->isWindow()) {
        if (state.drivers > 0)
            state.windows.emplace_back(static_cast<QWidget *>(object));
        return;
    }
    if (CRemoveDPIChanged *scaled = Scaled(object)) {
        if (scaled->m_scale != scale || !state.visited.count(object))
            scaled->ScaleChanged(scale);
        return;
    }
    if (!state.visited.insert(object).second)
        return;
    if (isWidget)
        ReachChildren(object, scale);
    else if (QLayout *layout = qobject_cast<QLayout *>(object))
        ReachItems(layout, scale);
    else
        ReachChildren(object, scale);
}

void ScalePass::ReachChildren(QObject *object, float scale)
{
    // Index loop over the live list: a ScaleChanged that deletes a sibling must not
    // leave us iterating a stale copy.
    for (int i = 0; i < object->children().size(); ++i)
        Reach(object->children().at(i), scale);
}

void ScalePass::ReachItems(QLayout *layout, float scale)
{
    for (int i = 0; i < layout->count(); ++i)
        ReachItem(layout->itemAt(i), scale);
}

void ScalePass::ReachItem(QLayoutItem *item, float scale)
{
    if (!item)
        return;
    if (QWidget *widget = item->widget())
        Reach(widget, scale);
    else if (QLayout *layout = item->layout())
        Reach(layout, scale);
}

void ScalePass::Adopt(QObject *object, float scale)
{
    CRemoveDPIChanged *scaled = Scaled(object);
    if (scaled && scaled->m_scale != scale)
        Run(object, scale);
}

void ScalePass::Run(QObject *root, float scale)
{
    if (!root || !DpiTool::IsValidScale(scale))
        return;
    PassState &state = State();
    Open(state);
    ++state.drivers;
    Reach(root, scale, true);
    // The list grows while owned windows are walked; hold each entry by value.
    for (std::size_t i = 0; i < state.windows.size(); ++i) {
        QPointer<QWidget> const window = state.windows[i];
        if (window)
            Reach(window, scale, true);
    }
    --state.drivers;
    Close(state);
}

void ScalePass::RestyleWindow(QWidget *window)
{
    GetDPIHelper()->UpdateWindowStyleSheet(window);
}

void ScalePass::WindowEvent(QWidget *widget, QEvent *event)
{
    if (event->type() == QEvent::Show && widget->isWindow())
        GetDPIHelper()->WatchWindow(widget);
}
