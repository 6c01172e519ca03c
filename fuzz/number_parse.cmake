# The text parser of Json::Number and everything it feeds. The number sources are built
# into the target itself so that libFuzzer's coverage and the sanitizers see them.
kelvo_add_fuzzer(number_parse
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/number_parse_fuzzer.cpp
            ${PROJECT_SOURCE_DIR}/src/foundation/json_number.cpp
            ${PROJECT_SOURCE_DIR}/src/foundation/decimal.cpp
    LIBS Qt5::Core
    CORPUS ${CMAKE_CURRENT_LIST_DIR}/corpus/number_parse)
foreach(target number_parse number_parse_replay)
    if(TARGET ${target})
        target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/include)
    endif()
endforeach()
