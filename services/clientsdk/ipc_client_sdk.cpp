#include "clientsdk/ipc_client_sdk.h"

#include <utility>

namespace {

struct ActiveState
{
    std::function<bool()> handler;
    int requests = 0;
};

ActiveState &State()
{
    static ActiveState state;
    return state;
}

} // namespace

bool IpcClientSdk::SetActive()
{
    ActiveState &state = State();
    ++state.requests;
    // A copy, so a handler that replaces itself keeps running to its end.
    std::function<bool()> const handler = state.handler;
    if (!handler)
        return true;
    try {
        return handler();
    } catch (...) {
        return false; // the link failed; nothing may escape into the widgets
    }
}

void IpcClientSdk::SetActiveHandler(std::function<bool()> handler)
{
    State().handler = std::move(handler);
}

int IpcClientSdk::ActiveRequestCount()
{
    return State().requests;
}
