# Runs one command of morvanite-cli for a build rule of Morvanite.cmake:
#   cmake -D LOCK=<file> -D SETTINGS=<folder, or empty> -P MorvaniteRun.cmake -- <command line>
# It waits for its turn, and shows the whole report when the command fails, otherwise only the warnings.

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

if(SETTINGS)
    set(ENV{XDG_CONFIG_HOME} "${SETTINGS}")
endif()
file(LOCK "${LOCK}" GUARD PROCESS)
execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE complaint)
string(REPLACE "\r\n" "\n" report "${report}${complaint}")
if(NOT status EQUAL 0)
    message("${report}")
    message(FATAL_ERROR "morvanite-cli ended with ${status}")
endif()
string(REGEX MATCHALL "[^\n]*(Warning [0-9]+:|\\[warning\\]|\\[error\\]|not exist, ignore)[^\n]*" warnings "${report}")
if(NOT warnings STREQUAL "")
    list(REMOVE_DUPLICATES warnings) # a pack goes through the resources twice
    string(REPLACE ";" "\n" warnings "${warnings}")
    message("${warnings}")
endif()
