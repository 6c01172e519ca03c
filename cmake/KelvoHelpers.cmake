# kelvo_add_library(<target> ROOT <include root> EXPORT_HEADER <rel path of generated header>
#                   SOURCES ... HEADERS ... [PUBLIC_LIBS ...] [PRIVATE_LIBS ...] [RESOURCES ...])
#
# A shared library with hidden visibility, an export header from GenerateExportHeader
# (macro <TARGET>_EXPORT), headers installed under include/KelvoControl/ keeping their
# path below ROOT, and an entry in the KelvoControlTargets export set.
function(kelvo_add_library target)
    cmake_parse_arguments(A "" "ROOT;EXPORT_HEADER" "SOURCES;HEADERS;PUBLIC_LIBS;PRIVATE_LIBS;RESOURCES" ${ARGN})
    add_library(${target} SHARED ${A_SOURCES} ${A_HEADERS} ${A_RESOURCES})
    add_library(KelvoControl::${target} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        AUTORCC ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${target})
    string(TOUPPER ${target} upper)
    generate_export_header(${target}
        EXPORT_MACRO_NAME ${upper}_EXPORT
        EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/include/${A_EXPORT_HEADER}")
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${A_ROOT}>
        $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/KelvoControl>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_link_libraries(${target} PUBLIC ${A_PUBLIC_LIBS} PRIVATE ${A_PRIVATE_LIBS})
    install(TARGETS ${target} EXPORT KelvoControlTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    foreach(h ${A_HEADERS})
        get_filename_component(abs "${h}" ABSOLUTE)
        file(RELATIVE_PATH rel "${A_ROOT}" "${abs}")
        get_filename_component(dir "${rel}" DIRECTORY)
        install(FILES "${abs}" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/KelvoControl/${dir})
    endforeach()
    get_filename_component(edir "${A_EXPORT_HEADER}" DIRECTORY)
    install(FILES "${PROJECT_BINARY_DIR}/include/${A_EXPORT_HEADER}"
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/KelvoControl/${edir})
endfunction()

# kelvo_add_test(<name> SOURCES ... LIBS ...)
# A Qt Test program run by CTest on the offscreen platform.
function(kelvo_add_test name)
    cmake_parse_arguments(A "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${A_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(${name} PRIVATE Qt5::Test Qt5::Widgets ${A_LIBS})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_AUTO_SCREEN_SCALE_FACTOR=0;QT_SCALE_FACTOR=1;LC_ALL=C.UTF-8"
        TIMEOUT 300)
endfunction()
