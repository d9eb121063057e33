# SPDX-FileCopyrightText: 2026 KelmoWare
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# What plugin authors find_package(), and the Debian package.

include(CMakePackageConfigHelpers)

set(config_dir ${KELMO_LIB_DIR}/cmake/Kelmo)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KelmoConfig.cmake.in
    ${PROJECT_BINARY_DIR}/cmake/KelmoConfig.cmake
    INSTALL_DESTINATION ${config_dir}
    PATH_VARS KELMO_PLUGIN_DIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/KelmoConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/cmake/KelmoConfig.cmake
    ${PROJECT_BINARY_DIR}/cmake/KelmoConfigVersion.cmake
    DESTINATION ${config_dir})
install(EXPORT KelmoTargets NAMESPACE Kelmo:: DESTINATION ${config_dir})

# A desktop looks at entries under /usr/share only, and the program lies
# elsewhere: the entry names it by its full path, and the package links to it.
configure_file(${PROJECT_SOURCE_DIR}/packaging/kelmo-fpga-designer.desktop.in
    ${PROJECT_BINARY_DIR}/packaging/kelmo-fpga-designer.desktop @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packaging/kelmo-fpga-designer.desktop
    DESTINATION share/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/kelmo-fpga-designer.xml
    DESTINATION share/mime/packages)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSES/LGPL-2.1-or-later.txt
    DESTINATION share/doc/kelmo-fpga-designer)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelmo-fpga-designer)
set(CPACK_PACKAGE_VENDOR KelmoWare)
set(CPACK_PACKAGE_CONTACT "KelmoWare <packages@kelmoware.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Desktop environment for FPGA design")
set(CPACK_PACKAGE_DESCRIPTION "Edits Verilog, SystemVerilog, VHDL and constraint files as documents of
one window. Plugins bring further editors, panels, project types and wizards;
the headers to write them with are included.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_LIBRARY_OUTPUT_DIRECTORY} ${CMAKE_BINARY_DIR}/${KELMO_PLUGIN_DIR})
# Loaded at run time, so that no tool sees it: the help viewer with its database
# driver, the SVG icons, the texts of Qt's own dialogs, the file types of the desktop.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt5-assistant, libqt5sql5-sqlite, libqt5svg5, \
qttranslations5-l10n, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "breeze-icon-theme, fonts-noto-cjk | fonts-droid-fallback")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/LinkDesktopEntry.cmake)
include(CPack)
