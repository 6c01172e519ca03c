list(APPEND KELVO_SOURCES
    trade/trade_spin_box.cpp)
list(APPEND KELVO_HEADERS
    trade/trade_spin_box.h)
