# SPDX-License-Identifier: MIT
# The version of the source tree, for find_package(Morvanite 1.0): any version from the wanted one on, as long as the
# first number is the same. An installed package has the file that CMakePackageConfigHelpers makes.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../CMakeLists.txt _morvanite_project REGEX "^project\\(")
string(REGEX REPLACE ".* VERSION ([0-9.]+).*" "\\1" PACKAGE_VERSION "${_morvanite_project}")
string(REGEX MATCH "^[0-9]+" _morvanite_major ${PACKAGE_VERSION})
set(PACKAGE_VERSION_COMPATIBLE FALSE)
if(PACKAGE_FIND_VERSION VERSION_LESS_EQUAL PACKAGE_VERSION AND
        (NOT PACKAGE_FIND_VERSION OR PACKAGE_FIND_VERSION_MAJOR STREQUAL _morvanite_major))
    set(PACKAGE_VERSION_COMPATIBLE TRUE)
endif()
if(PACKAGE_FIND_VERSION VERSION_EQUAL PACKAGE_VERSION)
    set(PACKAGE_VERSION_EXACT TRUE)
endif()
unset(_morvanite_project)
unset(_morvanite_major)
