#pragma once
// IpcClientSdk: the door from the widget library to the client's inter-process link.
//
// SetActive() tells the rest of the client that a window of this process was activated.
// The link itself belongs to the client, which installs it with SetActiveHandler. Until
// it does, SetActive() only records the request (ActiveRequestCount) and answers true,
// so that a process without a link logs no failures. Every call is recorded, with or
// without a handler. GUI thread only.

#include "clientsdk/kelvoclientsdk_export.h"

#include <functional>

class KELVOCLIENTSDK_EXPORT IpcClientSdk
{
public:
    // True on success: the handler's answer, or true without a handler.
    static bool SetActive();

    // Installs the transport behind SetActive(); an empty function removes it.
    static void SetActiveHandler(std::function<bool()> handler);
    // How many times SetActive() has been called in this process.
    static int ActiveRequestCount();
};
