# SPDX-License-Identifier: MIT
# find_package(Morvanite) with the source tree. MorvaniteConfig.cmake.in is the same for an installed Morvanite.
set(_morvanite_programs ${CMAKE_CURRENT_LIST_DIR}/../build/bin)
get_filename_component(_morvanite_sources ${CMAKE_CURRENT_LIST_DIR}/../device ABSOLUTE)
set(_morvanite_headers ${_morvanite_sources})
include(${CMAKE_CURRENT_LIST_DIR}/MorvanitePackage.cmake)
