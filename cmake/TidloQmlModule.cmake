# The folder of the QML modules in the resources, and for qmllint on the disk.
set(QT_QML_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml")

# tidlo_qml_module(name URI uri SOURCES files... QML files... [IMPORTS modules...] [LINKS targets...]): one folder of
# src/ui/ as a static library and QML module. IMPORTS are the modules whose types its C++ sources use.
function(tidlo_qml_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "URI" "SOURCES;QML;IMPORTS;LINKS")
    qt_add_library(${name} STATIC)
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    # Only byte code. The C++ that Qt can generate in addition saves the window 3 % of its work, makes it a third
    # larger, and differs from one build to the next: Qt orders its declarations by addresses in memory.
    set_target_properties(${name} PROPERTIES QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
    qt_add_qml_module(${name}
        URI ${arg_URI}
        VERSION 1.0
        NO_PLUGIN
        ${TIDLO_QML_OPTIONS}
        DEPENDENCIES QtQuick ${arg_IMPORTS}
        RESOURCE_PREFIX /qt/qml
        IMPORT_PATH "${QT_QML_OUTPUT_DIRECTORY}"
        SOURCES ${arg_SOURCES}
        QML_FILES ${arg_QML})
    target_link_libraries(${name} PUBLIC ${arg_LINKS})
    tidlo_use_precompiled_headers(${name} common_headers)
    # The sources that Qt generates from QML files all include the same many headers, so they are compiled together.
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON)
    if(NOT TIDLO_TOGETHER)
        set_source_files_properties(${arg_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
endfunction()
