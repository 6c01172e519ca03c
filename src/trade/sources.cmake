list(APPEND KELVO_SOURCES
    trade/trade_spin_box.cpp
    trade/trade_menu_button.cpp
    trade/trade_enh_menu_button.cpp
    trade/buttons_widget.cpp
    trade/display_infomation_item.cpp)
list(APPEND KELVO_HEADERS
    trade/trade_spin_box.h
    trade/trade_menu_button.h
    trade/trade_enh_menu_button.h
    trade/buttons_widget.h
    trade/display_infomation_item.h)
