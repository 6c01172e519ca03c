#pragma once
// KelvoControl: include this one header to have every exported control and every
// service interface the controls are written against.

// Services
#if __has_include("uilib/uilib.h")
#include "uilib/uilib.h"
#endif
#if __has_include("qtcomm/qtcomm.h")
#include "qtcomm/qtcomm.h"
#endif
#if __has_include("runtime/runtime.h")
#include "runtime/runtime.h"
#endif
#if __has_include("textengine/textengine.h")
#include "textengine/textengine.h"
#endif
#if __has_include("clientsdk/clientsdk.h")
#include "clientsdk/clientsdk.h"
#endif

// Foundation
#include "foundation/decimal.h"
#include "foundation/json_number.h"
#include "foundation/value_safe_wrapper.h"

// Trade inputs
#include "trade/trade_spin_box.h"

// Windows and chrome
#include "window/frameless_widget.h"
#include "window/title_bar.h"
