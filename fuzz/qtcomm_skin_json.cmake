kelvo_add_fuzzer(qtcomm_skin_json
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/qtcomm_skin_json.cpp
    LIBS KelvoQtComm
    CORPUS ${CMAKE_CURRENT_LIST_DIR}/corpus/qtcomm_skin_json)
