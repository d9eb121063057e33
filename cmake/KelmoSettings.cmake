# SPDX-FileCopyrightText: 2026 KelmoWare
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Compiler settings and the shape of the install tree, the same for every target.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOUIC ON)

# The build tree has the shape of the installed one; binaries find one another
# by $ORIGIN, so that either tree can be moved as a whole.
set(KELMO_BIN_DIR bin)
set(KELMO_LIB_DIR lib)
set(KELMO_PLUGIN_DIR lib/plugins)
set(KELMO_DATA_DIR data)
set(KELMO_INCLUDE_DIR include)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KELMO_BIN_DIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KELMO_LIB_DIR})
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${KELMO_LIB_DIR})
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
    set(CMAKE_INSTALL_PREFIX /opt/kelmo-fpga-designer CACHE PATH "Install prefix" FORCE)
endif()

# Generated headers (export macros, build constants) lie under the same paths
# as the hand-written ones: <extsys/extsys_export.h>.
set(KELMO_GENERATED_DIR ${CMAKE_BINARY_DIR}/generated)

find_program(KELMO_CCACHE ccache)
if(KELMO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${KELMO_CCACHE})
endif()

add_library(kelmo_settings INTERFACE)
target_compile_definitions(kelmo_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_STRICT_ITERATORS
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x050d00)
target_compile_options(kelmo_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wsuggest-override -Wconversion -Wno-sign-conversion)
if(KELMO_WERROR)
    target_compile_options(kelmo_settings INTERFACE -Werror)
endif()
if(KELMO_SANITIZE)
    target_compile_options(kelmo_settings INTERFACE
        -fsanitize=${KELMO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kelmo_settings INTERFACE -fsanitize=${KELMO_SANITIZE})
else()
    # Sanitizer runtimes are resolved at run time, everything else at link time.
    add_link_options(LINKER:--no-undefined)
endif()
if(KELMO_COVERAGE)
    target_compile_options(kelmo_settings INTERFACE --coverage)
    target_link_options(kelmo_settings INTERFACE --coverage)
endif()
