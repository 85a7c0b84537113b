# SPDX-License-Identifier: MIT
# `cmake --install`. Nothing that is installed knows the prefix, so it can be moved: docs/program-folder.md has the
# layout. The components are window, cli, device and doc.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
if("$CACHE{CMAKE_INSTALL_DOCDIR}" STREQUAL "") # the default has the project's name in its own case
    set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/morvanite)
endif()

# The links between these folders are relative, so the folders must be below the prefix. Some packagers give full paths.
foreach(folder BINDIR DATADIR INCLUDEDIR DOCDIR)
    if(IS_ABSOLUTE ${CMAKE_INSTALL_${folder}})
        file(RELATIVE_PATH relative ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_${folder}})
        if(relative MATCHES "^\\.\\./")
            message(FATAL_ERROR "CMAKE_INSTALL_${folder} is ${CMAKE_INSTALL_${folder}}, which isn't below ${CMAKE_INSTALL_PREFIX}")
        endif()
        set(CMAKE_INSTALL_${folder} ${relative})
    endif()
endforeach()

# Not CMAKE_INSTALL_LIBDIR: a build for another processor doesn't look for packages in this one's folder.
set(MORVANITE_INSTALL_PROGRAMS lib/morvanite)
set(MORVANITE_INSTALL_PACKAGE lib/cmake/Morvanite)
set(MORVANITE_INSTALL_DATA ${CMAKE_INSTALL_DATADIR}/morvanite)
set(MORVANITE_INSTALL_DEVICE ${MORVANITE_INSTALL_DATA}/device)
set(MORVANITE_INSTALL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/morvanite)
set(MORVANITE_INSTALL_PKGCONFIG ${CMAKE_INSTALL_DATADIR}/pkgconfig)

# Where a path from the prefix leads to, as seen from another.
function(install_path_from result folder path)
    file(RELATIVE_PATH relative /prefix/${folder} /prefix/${path})
    string(REGEX REPLACE "/$" "" relative ${relative})
    set(${result} ${relative} PARENT_SCOPE)
endfunction()

# Installs a link in `folder` to `path`; both are relative to the prefix.
function(install_link folder path component)
    get_filename_component(name ${path} NAME)
    install_path_from(target ${folder} ${path})
    set(link ${CMAKE_BINARY_DIR}/links/${folder}/${name})
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links/${folder})
    file(CREATE_LINK ${target} ${link} SYMBOLIC)
    install(FILES ${link} DESTINATION ${folder} COMPONENT ${component})
endfunction()

# The programs, with everything beside them that they look for there.
install(TARGETS morvanite RUNTIME DESTINATION ${MORVANITE_INSTALL_PROGRAMS} COMPONENT window)
install(TARGETS morvanite-cli qrk_resgenerator zul_xml_conv
    RUNTIME DESTINATION ${MORVANITE_INSTALL_PROGRAMS} COMPONENT cli)
install(TARGETS morvanite-commands morvanite-fonts morvanite-pictures morvanite-workbook
    LIBRARY DESTINATION ${MORVANITE_INSTALL_PROGRAMS} COMPONENT cli)
install(TARGETS convert_i_2_h RUNTIME DESTINATION ${MORVANITE_INSTALL_PROGRAMS}/convert_i_2_h COMPONENT cli)
install_link(${CMAKE_INSTALL_BINDIR} ${MORVANITE_INSTALL_PROGRAMS}/morvanite window)
install_link(${CMAKE_INSTALL_BINDIR} ${MORVANITE_INSTALL_PROGRAMS}/morvanite-cli cli)
file(GLOB data CONFIGURE_DEPENDS packaging/program/*.ini packaging/program/*.img packaging/program/*.xml)
list(REMOVE_ITEM data ${CMAKE_SOURCE_DIR}/packaging/program/Morvanite.ini)
install(FILES ${data} DESTINATION ${MORVANITE_INSTALL_DATA} COMPONENT cli)
foreach(file ${data})
    get_filename_component(name ${file} NAME)
    install_link(${MORVANITE_INSTALL_PROGRAMS} ${MORVANITE_INSTALL_DATA}/${name} cli)
endforeach()
configure_file(cmake/InstallSettings.cmake.in InstallSettings.cmake @ONLY)
install(SCRIPT ${CMAKE_BINARY_DIR}/InstallSettings.cmake COMPONENT cli)

# The desktop's files.
install(FILES packaging/desktop/org.morvanite.Morvanite.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT window)
install(FILES packaging/desktop/org.morvanite.Morvanite.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT window)
install(FILES packaging/desktop/org.morvanite.Morvanite.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT window)
install(FILES packaging/icons/morvanite.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT window)
foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES packaging/icons/morvanite-${size}.png RENAME morvanite.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps COMPONENT window)
endforeach()

# The reader for devices, as sources, and the CMake package.
file(GLOB sources CONFIGURE_DEPENDS device/*.c)
file(GLOB headers CONFIGURE_DEPENDS device/*.h device/*.hpp)
install(FILES ${sources} DESTINATION ${MORVANITE_INSTALL_DEVICE} COMPONENT device)
install(FILES ${headers} DESTINATION ${MORVANITE_INSTALL_HEADERS} COMPONENT device)
install_path_from(pkgconfig_prefix ${MORVANITE_INSTALL_PKGCONFIG} "")
configure_file(cmake/morvanite-device.pc.in morvanite-device.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/morvanite-device.pc DESTINATION ${MORVANITE_INSTALL_PKGCONFIG} COMPONENT device)
configure_package_config_file(cmake/MorvaniteConfig.cmake.in package/MorvaniteConfig.cmake
    INSTALL_DESTINATION ${MORVANITE_INSTALL_PACKAGE}
    PATH_VARS MORVANITE_INSTALL_PROGRAMS MORVANITE_INSTALL_DEVICE MORVANITE_INSTALL_HEADERS
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
# Independent of the processor: a firmware's word size isn't that of the programs.
write_basic_package_version_file(package/MorvaniteConfigVersion.cmake COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
# The package for who uses the programs of this build by the search path.
configure_file(cmake/BuildTreeConfig.cmake.in lib/cmake/Morvanite/MorvaniteConfig.cmake @ONLY)
configure_file(${CMAKE_BINARY_DIR}/package/MorvaniteConfigVersion.cmake lib/cmake/Morvanite/MorvaniteConfigVersion.cmake COPYONLY)
install(FILES ${CMAKE_BINARY_DIR}/package/MorvaniteConfig.cmake ${CMAKE_BINARY_DIR}/package/MorvaniteConfigVersion.cmake
    cmake/Morvanite.cmake cmake/MorvaniteCheck.cmake cmake/MorvanitePackage.cmake cmake/MorvaniteRun.cmake
    DESTINATION ${MORVANITE_INSTALL_PACKAGE} COMPONENT device)

# The documents, with the folders that their links lead to.
install(FILES README.md CHANGELOG.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc PATTERN *.sh EXCLUDE PATTERN __pycache__ EXCLUDE)
install(DIRECTORY sample DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc
    PATTERN .gitattributes EXCLUDE PATTERN ResID EXCLUDE PATTERN *.tmp EXCLUDE PATTERN build* EXCLUDE PATTERN __pycache__ EXCLUDE)
