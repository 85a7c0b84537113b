# SPDX-License-Identifier: MIT
# find_package(Morvanite) provides the function morvanite_pack.
include(${CMAKE_CURRENT_LIST_DIR}/Morvanite.cmake)
if(NOT MORVANITE_CLI)
    set(Morvanite_FOUND FALSE)
    set(Morvanite_NOT_FOUND_MESSAGE "morvanite-cli wasn't found; set MORVANITE_CLI to its path")
endif()
