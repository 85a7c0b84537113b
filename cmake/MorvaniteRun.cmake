# SPDX-License-Identifier: MIT
# Runs one command of morvanite-cli for a build rule of Morvanite.cmake:
#   cmake [-D DEPFILE=<file> -D CACHE=<file>] -P MorvaniteRun.cmake -- <command line>
# CACHE is the file in which the generator for make stores the depfile's contents. It never drops a file from it, and make
# regards a missing file as changed at every build. So the cache is removed when a file of the last depfile is missing.
# Shows the whole report if the command fails, otherwise its errors and warnings, each once.

cmake_minimum_required(VERSION 3.20)

set(command "")
set(seen FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(n RANGE ${last})
    if(seen)
        list(APPEND command "${CMAKE_ARGV${n}}")
    elseif("${CMAKE_ARGV${n}}" STREQUAL "--")
        set(seen TRUE)
    endif()
endforeach()

if(CACHE AND EXISTS "${DEPFILE}")
    file(READ "${DEPFILE}" inputs)
    string(FIND "${inputs}" "\n" place) # after the name of the target
    string(SUBSTRING "${inputs}" ${place} -1 inputs)
    string(REPLACE " \\\n" "\n" inputs "${inputs}")
    string(REGEX REPLACE "\\\\([ #\\\\])" "\\1" inputs "${inputs}")
    string(REPLACE "$$" "$" inputs "${inputs}")
    string(REGEX MATCHALL "[^\n]+" inputs "${inputs}")
    foreach(input IN LISTS inputs)
        string(STRIP "${input}" input)
        if(NOT EXISTS "${input}")
            file(REMOVE "${CACHE}")
            break()
        endif()
    endforeach()
endif()

execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE complaint)
string(REPLACE "\r\n" "\n" report "${report}")
if(NOT status EQUAL 0)
    message("${report}${complaint}")
    message(FATAL_ERROR "morvanite-cli ended with ${status}")
endif()
string(REGEX MATCHALL "[^\n]*(Error [0-9]+:|Warning [0-9]+:|\\[warning\\]|\\[error\\]|not exist, ignore)[^\n]*" lines "${report}\n")
string(REGEX MATCHALL "[^\n]+" complaints "${complaint}")
list(APPEND lines ${complaints})
if(NOT lines STREQUAL "")
    list(REMOVE_DUPLICATES lines) # a pack processes the resources twice
    string(REPLACE ";" "\n" lines "${lines}")
    message("${lines}")
endif()
