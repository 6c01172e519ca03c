kelvo_add_bench(numbers_bench SOURCES numbers_bench.cpp LIBS KelvoControl Qt5::Core)
