kelvo_add_bench(check_table_filter SOURCES check_table_filter.cpp LIBS KelvoControl Qt5::Widgets)
