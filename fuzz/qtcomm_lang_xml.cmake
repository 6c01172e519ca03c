kelvo_add_fuzzer(qtcomm_lang_xml
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/qtcomm_lang_xml.cpp
    LIBS KelvoQtComm
    CORPUS ${CMAKE_CURRENT_LIST_DIR}/corpus/qtcomm_lang_xml)
