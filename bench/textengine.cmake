if(TARGET KelvoTextEngine)
    kelvo_add_bench(textengine_search
        SOURCES "${CMAKE_CURRENT_SOURCE_DIR}/textengine_search.cpp"
        LIBS KelvoTextEngine Qt5::Core)
endif()
