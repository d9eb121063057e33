# SPDX-FileCopyrightText: 2026 KelmoWare
# SPDX-License-Identifier: LGPL-2.1-or-later

include(GenerateExportHeader)

# Include roots: src/libs and src/plugins, so that <extsys/pluginmanager.h> and
# <idecore/actions/actionmanager.h> read the same in the tree and installed.
function(_kelmo_common target name root)
    string(TOUPPER ${name} upper)
    set(export_dir ${KELMO_GENERATED_DIR}/${name})
    generate_export_header(${target} BASE_NAME ${name}
        EXPORT_FILE_NAME ${export_dir}/${name}_export.h)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/${root}>
        $<BUILD_INTERFACE:${KELMO_GENERATED_DIR}>
        $<INSTALL_INTERFACE:${KELMO_INCLUDE_DIR}>)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:kelmo_settings>)
    # Looking own functions up in all libraries of the program is paid for at each start.
    # What a library lists as replaceable stays open to tests that put others in its place.
    target_link_options(${target} PRIVATE LINKER:-Bsymbolic-functions)
    set(replaceable ${CMAKE_CURRENT_SOURCE_DIR}/replaceable.list)
    if(EXISTS ${replaceable})
        target_link_options(${target} PRIVATE LINKER:--dynamic-list=${replaceable})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${replaceable})
    endif()
    # One by one: of a whole folder the inner ones would be made, too, headers or not.
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h)
    list(FILTER headers EXCLUDE REGEX "_p\\.h$")
    foreach(header IN LISTS headers)
        get_filename_component(folder ${header} DIRECTORY)
        install(FILES ${header} DESTINATION ${KELMO_INCLUDE_DIR}/${name}/${folder})
    endforeach()
    install(FILES ${export_dir}/${name}_export.h DESTINATION ${KELMO_INCLUDE_DIR}/${name})
endfunction()

# kelmo_library(<folder> OUTPUT <Name> SOURCES ... PUBLIC ... PRIVATE ...)
# A platform library in src/libs/<folder>: lib/lib<Name>.so, alias Kelmo::<Name>.
function(kelmo_library name)
    cmake_parse_arguments(ARG "" "OUTPUT" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${ARG_OUTPUT} SHARED ${ARG_SOURCES})
    add_library(Kelmo::${ARG_OUTPUT} ALIAS ${ARG_OUTPUT})
    _kelmo_common(${ARG_OUTPUT} ${name} libs)
    target_link_libraries(${ARG_OUTPUT} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    set_target_properties(${ARG_OUTPUT} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${ARG_OUTPUT} EXPORT KelmoTargets LIBRARY DESTINATION ${KELMO_LIB_DIR})
endfunction()

# kelmo_plugin(<folder> OUTPUT <Name> SOURCES ... PUBLIC ... PRIVATE ...)
# A plugin in src/plugins/<folder>: lib/plugins/lib<Name>.so, alias Kelmo::<Name>.
# Shared rather than a module, because plugins link the plugins they build on.
function(kelmo_plugin name)
    cmake_parse_arguments(ARG "" "OUTPUT" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${ARG_OUTPUT} SHARED ${ARG_SOURCES})
    add_library(Kelmo::${ARG_OUTPUT} ALIAS ${ARG_OUTPUT})
    _kelmo_common(${ARG_OUTPUT} ${name} plugins)
    target_link_libraries(${ARG_OUTPUT} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    set_target_properties(${ARG_OUTPUT} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KELMO_PLUGIN_DIR}
        INSTALL_RPATH "$ORIGIN;$ORIGIN/..")
    install(TARGETS ${ARG_OUTPUT} EXPORT KelmoTargets LIBRARY DESTINATION ${KELMO_PLUGIN_DIR})
endfunction()
