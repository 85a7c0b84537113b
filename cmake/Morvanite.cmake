# For the build of an application whose resources Morvanite keeps: docs/cmake.md tells how to use it.
#
#   morvanite_pack(<target>
#       PROJECT <file.vcproj>       the resource project; relative paths count from the current source folder
#       RESOLUTION <WxH>            the device's screen
#       [TARGET axf|dll]            kind of the application file; axf when not given
#       [OUTPUT <file>]             the packed file; relative paths count from the current binary folder.
#                                   <target>.packed.axf or <target>.packed.dll when not given
#       [HEADER <file>]             the generated main header, relative to the project's folder; ResID/ResID.h when not
#                                   given. Morvanite.ini decides where it really goes, so the two have to agree
#       [LISTS <folder>]            where the project's .res.xml and string file lie; res when not given. As above
#       [SETTINGS <folder>]         settings of the project's own, in <folder>/morvanite/Morvanite.ini; the user's are
#                                   not read then
#       [CONVERT_IMAGES]            pack the images in the device's format, and the previews
#       [VER <n>])                  version number for the pack's log
#
# <target> gets the generated headers before it compiles, and a folder with copies of them as an include path. The packed file is made by
# the target <target>_packed, which is part of a plain build. MORVANITE_CLI names the program; it is searched when unset.

# Also the policies of the functions below: depfiles are in the form of 3.20.
cmake_minimum_required(VERSION 3.20)

set(MORVANITE_CMAKE_DIR ${CMAKE_CURRENT_LIST_DIR})
find_program(MORVANITE_CLI morvanite-cli
    HINTS ENV MORVANITE_PROGRAM_DIR
    PATHS ${MORVANITE_CMAKE_DIR}/../../../bin ${MORVANITE_CMAKE_DIR}/../build/bin
    DOC "The program morvanite-cli")

# The program and the files that its settings lead to, those that are there.
function(_morvanite_program_files result settings)
    get_filename_component(program ${MORVANITE_CLI} REALPATH)
    get_filename_component(folder ${program} DIRECTORY)
    if(DEFINED ENV{MORVANITE_PROGRAM_DIR})
        set(folder $ENV{MORVANITE_PROGRAM_DIR})
    endif()
    set(config $ENV{HOME}/.config)
    if(settings)
        set(config ${settings})
    elseif(DEFINED ENV{XDG_CONFIG_HOME})
        set(config $ENV{XDG_CONFIG_HOME})
    endif()
    # The settings may name other tables and another icon.
    file(GLOB files CONFIGURE_DEPENDS ${folder}/libmorvanite-commands.so ${folder}/*.ini ${folder}/*.img
        ${folder}/*.xml ${folder}/qrk_resgenerator.exe ${folder}/zul_xml_conv.exe ${folder}/convert_i_2_h/convert_i_2_h.exe
        ${config}/morvanite/Morvanite.ini)
    set(${result} ${program} ${files} PARENT_SCOPE)
endfunction()

# The command line that runs morvanite-cli with those settings and the remaining arguments. A pack makes temporary files beside the pictures, so
# the commands of one project take turns.
function(_morvanite_run result lock settings)
    set(${result} ${CMAKE_COMMAND} -D LOCK=${lock} -D SETTINGS=${settings} -P ${MORVANITE_CMAKE_DIR}/MorvaniteRun.cmake -- ${MORVANITE_CLI} ${ARGN}
        PARENT_SCOPE)
endfunction()

# The target that keeps the headers of a project up to date, one for all that are packed from it.
function(_morvanite_ids_target result project header lists settings state)
    get_filename_component(folder ${project} DIRECTORY)
    get_filename_component(name ${project} NAME_WLE)
    string(MD5 hash ${project})
    string(SUBSTRING ${hash} 0 8 hash)
    string(MAKE_C_IDENTIFIER morvanite_ids_${name}_${hash} ids)
    set(${result} ${ids} PARENT_SCOPE)
    if(TARGET ${ids})
        return()
    endif()
    set(stamp ${state}/ids.stamp)
    _morvanite_program_files(program_files "${settings}")
    # The numbers come from the names alone: a picture that changes is no reason to work them out again.
    file(GLOB lists CONFIGURE_DEPENDS ${lists}/${name}.res.xml ${lists}/ref_list_${name}.txt ${lists}/layout_${name}_*.xml
        ${folder}/config.xml)
    _morvanite_run(command ${state}/lock "${settings}" save ${project})
    get_filename_component(header_name ${header} NAME)
    get_filename_component(header_folder ${header} DIRECTORY)
    set(copy ${state}/include/${header_name})
    if(CMAKE_GENERATOR MATCHES "Ninja")
        set(also BYPRODUCTS ${copy})
    else()
        # Make knows nothing of by-products: this is how it sees that somebody removed the header.
        add_custom_command(OUTPUT ${copy} COMMAND ${CMAKE_COMMAND} -E true)
        set(also DEPENDS ${copy})
    endif()
    # Every save writes the headers; what is compiled is a copy that stays as old as its text.
    add_custom_command(OUTPUT ${stamp}
        ${also}
        COMMAND ${command}
        COMMAND ${CMAKE_COMMAND} -D FROM=${header_folder} -D TO=${state}/include
            -P ${MORVANITE_CMAKE_DIR}/MorvaniteHeaders.cmake
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${project} ${lists} ${program_files}
        COMMENT "Numbering the resources of ${name}"
        VERBATIM)
    add_custom_target(${ids} DEPENDS ${stamp})
endfunction()

function(morvanite_pack target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "CONVERT_IMAGES" "PROJECT;RESOLUTION;TARGET;OUTPUT;HEADER;LISTS;SETTINGS;VER" "")
    if(NOT TARGET ${target})
        message(FATAL_ERROR "morvanite_pack: ${target} is no target; call it behind add_executable")
    elseif(TARGET ${target}_packed)
        # The file with the resources alone, beside the linked file, can hold only one of them.
        message(FATAL_ERROR "morvanite_pack: ${target} is packed already; make an executable for each screen")
    elseif(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "morvanite_pack(${target}): unknown argument ${arg_UNPARSED_ARGUMENTS}")
    elseif(NOT arg_PROJECT OR NOT arg_RESOLUTION)
        message(FATAL_ERROR "morvanite_pack(${target}): PROJECT and RESOLUTION are needed")
    elseif(NOT arg_RESOLUTION MATCHES "^[0-9]+x[0-9]+$")
        message(FATAL_ERROR "morvanite_pack(${target}): RESOLUTION is \"${arg_RESOLUTION}\", not of the form 240x320")
    elseif(NOT MORVANITE_CLI)
        message(FATAL_ERROR "morvanite_pack(${target}): morvanite-cli wasn't found; set MORVANITE_CLI to its path")
    endif()
    if(NOT arg_TARGET)
        set(arg_TARGET axf)
    elseif(NOT arg_TARGET MATCHES "^(axf|dll)$")
        message(FATAL_ERROR "morvanite_pack(${target}): TARGET is \"${arg_TARGET}\", neither axf nor dll")
    endif()

    get_filename_component(project "${arg_PROJECT}" ABSOLUTE)
    if(NOT EXISTS ${project})
        message(FATAL_ERROR "morvanite_pack(${target}): there is no project ${project}")
    endif()
    get_filename_component(folder ${project} DIRECTORY)
    get_filename_component(name ${project} NAME_WLE)
    if(NOT arg_HEADER)
        set(arg_HEADER ResID/ResID.h)
    endif()
    get_filename_component(header "${arg_HEADER}" ABSOLUTE BASE_DIR ${folder})
    if(NOT arg_LISTS)
        set(arg_LISTS res)
    endif()
    get_filename_component(lists "${arg_LISTS}" ABSOLUTE BASE_DIR ${folder})
    set(settings "")
    if(arg_SETTINGS)
        get_filename_component(settings "${arg_SETTINGS}" ABSOLUTE)
    endif()
    if(NOT arg_OUTPUT)
        set(arg_OUTPUT ${target}.packed.${arg_TARGET})
    endif()
    get_filename_component(output "${arg_OUTPUT}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})

    string(MD5 hash ${project})
    set(state ${CMAKE_BINARY_DIR}/CMakeFiles/morvanite/${hash})
    file(MAKE_DIRECTORY ${state})
    _morvanite_ids_target(ids ${project} ${header} ${lists} "${settings}" ${state})
    add_dependencies(${target} ${ids})
    target_include_directories(${target} PRIVATE ${state}/include)

    set(options --resolution ${arg_RESOLUTION} --target ${arg_TARGET})
    if(arg_CONVERT_IMAGES)
        list(APPEND options --convert-images 1)
    endif()
    if(DEFINED arg_VER)
        list(APPEND options --ver ${arg_VER})
    endif()
    # These are looked for at every pack, so one that appears or goes is a change too.
    file(GLOB found CONFIGURE_DEPENDS ${folder}/preview.lst ${folder}/${name}_res.lst ${folder}/AppLogo.img)
    _morvanite_program_files(program_files "${settings}")
    _morvanite_run(command ${state}/lock "${settings}"
        pack ${project} --input $<TARGET_FILE:${target}> --output ${output} ${options} --depfile ${state}/${target}.d)
    # The packer writes the resources alone into this folder, and doesn't make it.
    set(side_folder $<TARGET_FILE_DIR:${target}>/arm)
    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${side_folder}
        COMMAND ${command}
        DEPENDS ${target} ${project} ${found} ${program_files}
        DEPFILE ${state}/${target}.d
        COMMENT "Packing the resources of ${name} into ${arg_OUTPUT}"
        VERBATIM)
    add_custom_target(${target}_packed ALL DEPENDS ${output})
    set_property(TARGET ${target} APPEND PROPERTY
        ADDITIONAL_CLEAN_FILES ${side_folder}/$<TARGET_FILE_BASE_NAME:${target}>.res)
endfunction()
