# SPDX-License-Identifier: MIT
# What find_package(Morvanite) gives: the function morvanite_pack and the target Morvanite::Device. The caller sets the
# folders of the programs and of the device reader.

# The program that belongs to this package, whatever else the search path has, and also in a build for another system.
find_program(MORVANITE_CLI morvanite-cli
    HINTS ENV MORVANITE_PROGRAM_DIR ${_morvanite_programs}
    NO_CMAKE_FIND_ROOT_PATH
    DOC "The program morvanite-cli")
include(${CMAKE_CURRENT_LIST_DIR}/Morvanite.cmake)
if(NOT MORVANITE_CLI)
    set(Morvanite_FOUND FALSE)
    set(Morvanite_NOT_FOUND_MESSAGE "morvanite-cli wasn't found; set MORVANITE_CLI to its path")
endif()

# The sources of the device reader, compiled by the target that links this one. They are C99.
if(NOT TARGET Morvanite::Device)
    add_library(Morvanite::Device INTERFACE IMPORTED)
    set_target_properties(Morvanite::Device PROPERTIES
        INTERFACE_SOURCES "${_morvanite_sources}/morvanite_device.c;${_morvanite_sources}/morvanite_elf.c;${_morvanite_sources}/morvanite_layout.c"
        INTERFACE_INCLUDE_DIRECTORIES "${_morvanite_headers}"
        INTERFACE_COMPILE_FEATURES c_std_99)
endif()
