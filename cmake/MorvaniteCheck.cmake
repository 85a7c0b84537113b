# SPDX-License-Identifier: MIT
# For a build that checks a resource project; docs/cmake.md describes how to use it.
#
#   morvanite_check(<name>
#       PROJECT <file.vcproj>               the resource project; relative paths count from the current source folder
#       [FAIL_ON error|warning|note|never]  the target fails for a finding of this level or above; the default is error
#       [RESOLUTION <WxH> ...]              check only these screens; the default is those of the project's settings
#       [RULE <rule> ...]                   run only these rules; the default is all
#       [BASELINE <file>]                   leave out the findings that this file accepts
#       [HEADER <file>]                     a header of an earlier version, to find IDs with other numbers
#       [SARIF <file>]                      write the findings to this file instead of the build's output; relative paths
#                                           count from the current binary folder
#       [SETTINGS <folder>])                as for morvanite_pack
#
# Adds the target <name>, which isn't part of the default build. It checks the project each time that it is built.

# Returns the command that checks a project, with the folder of SETTINGS, which may be empty.
function(_morvanite_check_command result project settings fail_on)
    set(command ${MORVANITE_CLI} check ${project} --fail-on ${fail_on} ${ARGN})
    if(settings)
        list(APPEND command --settings ${settings})
    endif()
    set(${result} ${command} PARENT_SCOPE)
endfunction()

# Stops if a level isn't one of --fail-on.
function(_morvanite_check_level caller argument level)
    if(NOT level MATCHES "^(error|warning|note|never)$")
        message(FATAL_ERROR "${caller}: ${argument} is \"${level}\", but it must be error, warning, note or never")
    endif()
endfunction()

function(morvanite_check name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PROJECT;FAIL_ON;BASELINE;HEADER;SARIF;SETTINGS" "RESOLUTION;RULE")
    set(caller "morvanite_check(${name})")
    if(TARGET ${name})
        message(FATAL_ERROR "${caller}: there is already a target of this name")
    elseif(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${caller}: unknown argument ${arg_UNPARSED_ARGUMENTS}")
    elseif(NOT arg_PROJECT)
        message(FATAL_ERROR "${caller}: PROJECT is needed")
    elseif(NOT MORVANITE_CLI)
        message(FATAL_ERROR "${caller}: morvanite-cli was not found; set MORVANITE_CLI to its path")
    endif()
    if(NOT arg_FAIL_ON)
        set(arg_FAIL_ON error)
    endif()
    _morvanite_check_level("${caller}" FAIL_ON "${arg_FAIL_ON}")
    set(options "")
    foreach(resolution IN LISTS arg_RESOLUTION)
        list(APPEND options --resolution ${resolution})
    endforeach()
    foreach(rule IN LISTS arg_RULE)
        list(APPEND options --rule ${rule})
    endforeach()
    foreach(argument BASELINE HEADER)
        if(arg_${argument})
            get_filename_component(file "${arg_${argument}}" ABSOLUTE)
            string(TOLOWER ${argument} option)
            list(APPEND options --${option} ${file})
        endif()
    endforeach()
    if(arg_SARIF)
        get_filename_component(file "${arg_SARIF}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})
        list(APPEND options --format sarif --output ${file})
    endif()
    set(settings "")
    if(arg_SETTINGS)
        get_filename_component(settings "${arg_SETTINGS}" ABSOLUTE)
    endif()
    get_filename_component(project "${arg_PROJECT}" ABSOLUTE)
    _morvanite_check_command(command ${project} "${settings}" ${arg_FAIL_ON} ${options})
    # In the source folder, so that the paths of the findings are relative to it.
    add_custom_target(${name}
        COMMAND ${command}
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        COMMENT "Checking the resources of ${arg_PROJECT}"
        USES_TERMINAL
        VERBATIM)
endfunction()
