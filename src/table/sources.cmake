list(APPEND KELVO_SOURCES
    table/multi_checkbox_table_row_item.cpp
    table/multi_check_box_model.cpp
    table/suspended_scroll_bar.cpp
    table/floating_scroll_bar.cpp
    table/multi_check_box_table_view.cpp)
list(APPEND KELVO_HEADERS
    table/multi_checkbox_table_row_item.h
    table/multi_check_box_model.h
    table/suspended_scroll_bar.h
    table/floating_scroll_bar.h
    table/multi_check_box_table_view.h)
