# SPDX-License-Identifier: MIT
# For the build of an application whose resources Morvanite manages. docs/cmake.md is the manual.
#
#   morvanite_pack(<target>
#       PROJECT <file.vcproj>       the resource project; relative paths count from the current source folder
#       RESOLUTION <WxH>            the device's screen, one of the program's list
#       [TARGET axf|dll]            kind of the application file; the default is axf
#       [OUTPUT <file>]             the packed file; relative paths count from the current binary folder.
#                                   The default is <target>.packed.axf or <target>.packed.dll
#       [SETTINGS <folder>]         the folder of settings of the project's own, <folder>/morvanite/Morvanite.ini; the
#                                   user's settings are then not read
#       [CONVERT_IMAGES]            pack the images in the device's format, and pack the preview pictures
#       [SORTED]                    pack every table in ascending order, for faster look-ups on the device
#       [VER <n>]                   a version number for the log of the pack
#       [CHECK error|warning|note]  check the project before each pack, and fail for a finding of this level or above
#       [BUDGET <bytes>]            fail if the resources have more bytes, and list the largest; K and M are units
#       [JOBS <n>]                  how many pictures are converted at the same time; the default is the number of processors
#       [CACHE <folder>|OFF])       where converted pictures are kept; relative paths count from the current binary folder.
#                                   The default is the variable MORVANITE_CACHE, otherwise a folder of the build
#
# The headers are generated before <target> is compiled, into a folder of the build that is added to its include path. The
# target <target>_packed writes the packed file and is built by default. Nothing is written into the project.
# MORVANITE_CLI is the path of the program; MorvanitePackage.cmake finds it.

# This also sets the policies of the functions below: paths in depfiles have the form that CMake 3.20 introduced.
cmake_minimum_required(VERSION 3.20)

set(MORVANITE_CMAKE_DIR ${CMAKE_CURRENT_LIST_DIR})
include(${MORVANITE_CMAKE_DIR}/MorvaniteCheck.cmake)

# Finds the program's folder and the folder with the settings that have precedence over the program's.
function(_morvanite_folders program_result config_result settings)
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
    set(${program_result} ${folder} PARENT_SCOPE)
    set(${config_result} ${config} PARENT_SCOPE)
endfunction()

# Returns the program and the existing files with its settings, its tables, the icon and its tools.
function(_morvanite_program_files result settings)
    get_filename_component(program ${MORVANITE_CLI} REALPATH)
    _morvanite_folders(folder config "${settings}")
    # The settings may name other tables and another icon.
    file(GLOB files CONFIGURE_DEPENDS ${folder}/libmorvanite-commands.so ${folder}/*.ini ${folder}/*.img
        ${folder}/*.xml ${folder}/qrk_resgenerator.exe ${folder}/zul_xml_conv.exe ${folder}/convert_i_2_h/convert_i_2_h.exe
        ${config}/morvanite/Morvanite.ini)
    set(existing ${program})
    foreach(file IN LISTS files)
        if(EXISTS ${file}) # a link to nothing is in the list too
            list(APPEND existing ${file})
        endif()
    endforeach()
    set(${result} ${existing} PARENT_SCOPE)
endfunction()

# Runs morvanite-cli while the build is configured and returns its lines as a list; the list is empty if it fails.
function(_morvanite_listed result settings)
    set(options "")
    if(settings)
        set(options --settings ${settings})
    endif()
    execute_process(COMMAND ${MORVANITE_CLI} ${ARGN} ${options} OUTPUT_VARIABLE lines RESULT_VARIABLE status ERROR_QUIET)
    if(NOT status EQUAL 0)
        set(lines "")
    endif()
    string(STRIP "${lines}" lines)
    string(REPLACE "\n" ";" lines "${lines}")
    set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# Stops with an error if the program's list of sizes lacks the resolution: the pack would have no pictures.
function(_morvanite_check_resolution target resolution settings)
    _morvanite_listed(known "${settings}" resolutions)
    if(known AND NOT resolution IN_LIST known)
        list(JOIN known ", " known)
        message(FATAL_ERROR "morvanite_pack(${target}): RESOLUTION is ${resolution}, but the list of screen sizes has only ${known}")
    endif()
endfunction()

# Returns the command line that runs morvanite-cli with the settings and the remaining arguments, for the rule of a custom
# target with the depfile.
function(_morvanite_run result settings target depfile)
    set(options --depfile ${depfile})
    if(settings)
        list(APPEND options --settings ${settings})
    endif()
    set(cache "")
    if(CMAKE_GENERATOR MATCHES "Makefiles")
        set(cache ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/compiler_depend.internal)
    endif()
    set(${result} ${CMAKE_COMMAND} -D DEPFILE=${depfile} -D CACHE=${cache} -P ${MORVANITE_CMAKE_DIR}/MorvaniteRun.cmake -- ${MORVANITE_CLI} ${ARGN} ${options}
        PARENT_SCOPE)
endfunction()

# Adds the target that keeps the headers of a project up to date. All applications that are packed from the project with
# the same settings share it.
function(_morvanite_headers_target result project settings state)
    get_filename_component(folder ${project} DIRECTORY)
    get_filename_component(name ${project} NAME_WLE)
    get_filename_component(hash ${state} NAME)
    string(SUBSTRING ${hash} 0 8 hash)
    string(MAKE_C_IDENTIFIER morvanite_ids_${name}_${hash} ids)
    set(${result} ${ids} PARENT_SCOPE)
    if(TARGET ${ids})
        return()
    endif()
    set(stamp ${state}/headers.stamp)
    _morvanite_program_files(program_files "${settings}")
    file(GLOB own_settings CONFIGURE_DEPENDS ${folder}/morvanite.ini)
    _morvanite_run(command "${settings}" ${ids} ${state}/headers.d
        headers ${project} --output ${state}/include --depfile-target ${stamp})
    _morvanite_listed(headers "${settings}" headers ${project} --list)
    list(TRANSFORM headers PREPEND ${state}/include/)
    if(CMAKE_GENERATOR MATCHES "Ninja")
        set(also BYPRODUCTS ${headers})
    else()
        # Make doesn't support by-products. With these rules it detects that a header was removed.
        foreach(header ${headers})
            add_custom_command(OUTPUT ${header} COMMAND ${CMAKE_COMMAND} -E true)
        endforeach()
        set(also DEPENDS ${headers})
    endif()
    # A header is only written when its text changes; the stamp has the time of the last check.
    add_custom_command(OUTPUT ${stamp}
        ${also}
        COMMAND ${command}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${program_files} ${own_settings}
        DEPFILE ${state}/headers.d
        COMMENT "Numbering the resources of ${name}"
        VERBATIM)
    add_custom_target(${ids} DEPENDS ${stamp})
    set_property(TARGET ${ids} APPEND PROPERTY ADDITIONAL_CLEAN_FILES ${state}/include ${state}/headers.d)
endfunction()

# Returns the options of a pack that change only how long it takes.
function(_morvanite_speed_options result target jobs cache)
    if(NOT jobs)
        include(ProcessorCount)
        ProcessorCount(jobs)
        if(jobs LESS 1) # unknown
            set(jobs 1)
        elseif(jobs GREATER 64)
            set(jobs 64)
        endif()
    elseif(NOT jobs MATCHES "^([1-9]|[1-5][0-9]|6[0-4])$")
        message(FATAL_ERROR "morvanite_pack(${target}): JOBS is \"${jobs}\", but it must be a number from 1 to 64")
    endif()
    set(options --once --jobs ${jobs})
    if("${cache}" STREQUAL "")
        set(cache ${CMAKE_BINARY_DIR}/CMakeFiles/morvanite/pictures)
        if(NOT "${MORVANITE_CACHE}" STREQUAL "")
            set(cache ${MORVANITE_CACHE})
        endif()
    endif()
    if(NOT cache STREQUAL "OFF")
        get_filename_component(cache "${cache}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})
        list(APPEND options --cache ${cache})
    endif()
    set(${result} ${options} PARENT_SCOPE)
endfunction()

function(morvanite_pack target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "CONVERT_IMAGES;SORTED" "PROJECT;RESOLUTION;TARGET;OUTPUT;HEADER;LISTS;SETTINGS;VER;CHECK;BUDGET;JOBS;CACHE" "")
    if(NOT TARGET ${target})
        message(FATAL_ERROR "morvanite_pack: ${target} is not a target; call morvanite_pack after add_executable")
    elseif(TARGET ${target}_packed)
        # The file with only the resources, beside the linked file, can have the resources of one pack only.
        message(FATAL_ERROR "morvanite_pack: ${target} is already packed; add an executable for each screen")
    elseif(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "morvanite_pack(${target}): unknown argument ${arg_UNPARSED_ARGUMENTS}")
    elseif(NOT arg_PROJECT OR NOT arg_RESOLUTION)
        message(FATAL_ERROR "morvanite_pack(${target}): PROJECT and RESOLUTION are needed")
    elseif(NOT arg_RESOLUTION MATCHES "^[0-9]+x[0-9]+$")
        message(FATAL_ERROR "morvanite_pack(${target}): RESOLUTION is \"${arg_RESOLUTION}\", but it must have the form 240x320")
    elseif(NOT MORVANITE_CLI)
        message(FATAL_ERROR "morvanite_pack(${target}): morvanite-cli was not found; set MORVANITE_CLI to its path")
    endif()
    if(NOT arg_TARGET)
        set(arg_TARGET axf)
    elseif(NOT arg_TARGET MATCHES "^(axf|dll)$")
        message(FATAL_ERROR "morvanite_pack(${target}): TARGET is \"${arg_TARGET}\", but it must be axf or dll")
    endif()

    get_filename_component(project "${arg_PROJECT}" ABSOLUTE)
    if(NOT EXISTS ${project})
        message(FATAL_ERROR "morvanite_pack(${target}): the project ${project} does not exist")
    endif()
    get_filename_component(folder ${project} DIRECTORY)
    get_filename_component(name ${project} NAME_WLE)
    foreach(argument HEADER LISTS)
        if(arg_${argument})
            message(DEPRECATION "morvanite_pack(${target}): ${argument} is not needed any more and is ignored")
        endif()
    endforeach()
    set(settings "")
    if(arg_SETTINGS)
        get_filename_component(settings "${arg_SETTINGS}" ABSOLUTE)
        if(NOT IS_DIRECTORY ${settings})
            message(FATAL_ERROR "morvanite_pack(${target}): the folder ${settings} of SETTINGS does not exist")
        endif()
    endif()
    _morvanite_check_resolution(${target} ${arg_RESOLUTION} "${settings}")
    if(NOT arg_OUTPUT)
        set(arg_OUTPUT ${target}.packed.${arg_TARGET})
    endif()
    get_filename_component(output "${arg_OUTPUT}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})

    string(MD5 hash "${project} ${settings}")
    set(state ${CMAKE_BINARY_DIR}/CMakeFiles/morvanite/${hash})
    file(MAKE_DIRECTORY ${state}/include)
    _morvanite_headers_target(ids ${project} "${settings}" ${state})
    add_dependencies(${target} ${ids})
    target_include_directories(${target} PRIVATE ${state}/include)

    # Each pack has its own folder for temporary files, so several packs can run at the same time.
    set(options --resolution ${arg_RESOLUTION} --target ${arg_TARGET} --strict --headers ${state}/include
        --temp ${state}/${target}.files)
    if(arg_CONVERT_IMAGES)
        list(APPEND options --convert-images 1)
    endif()
    if(arg_SORTED)
        list(APPEND options --sorted)
    endif()
    if(DEFINED arg_VER)
        list(APPEND options --ver ${arg_VER})
    endif()
    if(DEFINED arg_BUDGET)
        if(NOT arg_BUDGET MATCHES "^[0-9]+[KkMm]?$")
            message(FATAL_ERROR "morvanite_pack(${target}): BUDGET is \"${arg_BUDGET}\", but it must be a number of bytes, or of units such as in 512K or 2M")
        endif()
        list(APPEND options --budget ${arg_BUDGET})
    endif()
    _morvanite_speed_options(speed_options ${target} "${arg_JOBS}" "${arg_CACHE}")
    list(APPEND options ${speed_options})
    # A pack searches for these files, so a pack is also needed when one of them is added or removed.
    file(GLOB found CONFIGURE_DEPENDS ${folder}/preview.lst ${folder}/${name}_res.lst ${folder}/AppLogo.img
        ${folder}/morvanite.ini)
    set(check "")
    if(arg_CHECK)
        _morvanite_check_level("morvanite_pack(${target})" CHECK "${arg_CHECK}")
        _morvanite_check_command(check_command ${project} "${settings}" ${arg_CHECK} --resolution ${arg_RESOLUTION})
        set(check COMMAND ${check_command})
        file(GLOB check_settings CONFIGURE_DEPENDS ${folder}/morvanite-check.ini)
        list(APPEND found ${check_settings})
    endif()
    _morvanite_program_files(program_files "${settings}")
    _morvanite_run(command "${settings}" ${target}_packed ${state}/${target}.d
        pack ${project} --input $<TARGET_FILE:${target}> --output ${output} ${options})
    # The packer writes the file with only the resources into this folder, but doesn't create the folder.
    set(side_folder $<TARGET_FILE_DIR:${target}>/arm)
    add_custom_command(OUTPUT ${output}
        ${check}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${side_folder}
        COMMAND ${command}
        DEPENDS ${target} ${ids} ${found} ${program_files}
        DEPFILE ${state}/${target}.d
        COMMENT "Packing the resources of ${name} into ${arg_OUTPUT}"
        VERBATIM)
    add_custom_target(${target}_packed ALL DEPENDS ${output})
    set_property(TARGET ${target} APPEND PROPERTY
        ADDITIONAL_CLEAN_FILES ${side_folder}/$<TARGET_FILE_BASE_NAME:${target}>.res)
endfunction()
