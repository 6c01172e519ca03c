list(APPEND KELVO_SOURCES
    foundation/platform_window.h
    foundation/platform_window.cpp
    foundation/decimal.cpp
    foundation/json_number.cpp)
list(APPEND KELVO_HEADERS
    foundation/decimal.h
    foundation/json_number.h
    foundation/value_safe_wrapper.h)
