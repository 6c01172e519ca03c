# Building, showing and re-scaling an order ticket of display rows, against the same
# ticket of stock labels and double spin boxes in a form layout.
kelvo_add_bench(order_ticket
    SOURCES ${CMAKE_CURRENT_SOURCE_DIR}/order_ticket.cpp
    LIBS KelvoControl Qt5::Widgets)
