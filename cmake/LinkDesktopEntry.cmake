# SPDX-FileCopyrightText: 2026 KelmoWare
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Run by CPack on what is about to be packed: desktops find the entry, the file
# type and the icons where they look for them, a shell finds the program.

set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
set(installed ${root}${CPACK_PACKAGING_INSTALL_PREFIX})
file(GLOB_RECURSE icons RELATIVE ${installed} ${installed}/share/icons/*)
foreach(file
        share/applications/kelmo-fpga-designer.desktop
        share/mime/packages/kelmo-fpga-designer.xml
        ${icons}
        bin/kelmo-designer)
    get_filename_component(folder ${root}/usr/${file} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${CPACK_PACKAGING_INSTALL_PREFIX}/${file} ${root}/usr/${file} SYMBOLIC)
endforeach()
