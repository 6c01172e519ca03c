list(APPEND KELVO_SOURCES
    foundation/platform_window.h
    foundation/platform_window.cpp)
list(APPEND KELVO_HEADERS)
