if(TARGET KelvoTextEngine)
    kelvo_add_fuzzer(textengine_fnmatch
        SOURCES "${CMAKE_CURRENT_SOURCE_DIR}/textengine_fnmatch.cpp"
        LIBS KelvoTextEngine
        CORPUS "${CMAKE_CURRENT_SOURCE_DIR}/corpus/textengine_fnmatch")
endif()
