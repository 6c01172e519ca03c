#pragma once
// KelvoClientSdk: the client's inter-process link as the widget library sees it.

#include "clientsdk/ipc_client_sdk.h"
