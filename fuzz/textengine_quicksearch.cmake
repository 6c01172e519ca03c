if(TARGET KelvoTextEngine)
    kelvo_add_fuzzer(textengine_quicksearch
        SOURCES "${CMAKE_CURRENT_SOURCE_DIR}/textengine_quicksearch.cpp"
        LIBS KelvoTextEngine
        CORPUS "${CMAKE_CURRENT_SOURCE_DIR}/corpus/textengine_quicksearch")
endif()
