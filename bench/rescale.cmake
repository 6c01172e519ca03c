# Re-scaling a window of order-ticket rows: the scale layer against the stock ways.
kelvo_add_bench(rescale_window
    SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/rescale_window.cpp
    LIBS KelvoUILib Qt5::Widgets)
