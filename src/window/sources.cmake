list(APPEND KELVO_SOURCES
    window/title_bar.cpp
    window/frameless_widget.cpp)
list(APPEND KELVO_HEADERS
    window/title_bar.h
    window/frameless_widget.h)
