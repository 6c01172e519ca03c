#pragma once
// KelvoControl: include this one header to have every exported control and every
// service interface the controls are written against.

// Services
#include "uilib/uilib.h"
#include "qtcomm/qtcomm.h"
#include "runtime/runtime.h"
#include "textengine/textengine.h"
#include "clientsdk/clientsdk.h"

// Foundation
#include "foundation/decimal.h"
#include "foundation/json_number.h"
#include "foundation/value_safe_wrapper.h"

// Trade inputs
#include "trade/buttons_widget.h"
#include "trade/display_infomation_item.h"
#include "trade/trade_enh_menu_button.h"
#include "trade/trade_menu_button.h"
#include "trade/trade_spin_box.h"

// Tables
#include "table/floating_scroll_bar.h"
#include "table/multi_check_box_model.h"
#include "table/multi_check_box_table_view.h"
#include "table/multi_checkbox_table_row_item.h"
#include "table/suspended_scroll_bar.h"

// Windows and chrome
#include "window/frameless_widget.h"
#include "window/title_bar.h"
