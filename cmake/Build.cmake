# SPDX-License-Identifier: MIT
# Functions that build the parts of this tree. Projects of users need Morvanite.cmake instead.

# Compiler options of all targets.
add_library(morvanite_options INTERFACE)
target_compile_options(morvanite_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${MORVANITE_WERROR}>:-Werror>
    -fvisibility=hidden -fstack-protector-strong)
target_compile_definitions(morvanite_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports an overlapping copy for any std::string built with operator+ (its bug 105651).
    target_compile_options(morvanite_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()
if(MORVANITE_SANITIZE)
    target_compile_options(morvanite_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(morvanite_options INTERFACE -fsanitize=address,undefined)
endif()
if(MORVANITE_TSAN)
    target_compile_options(morvanite_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(morvanite_options INTERFACE -fsanitize=thread)
endif()
if(MORVANITE_FUZZ)
    target_compile_options(morvanite_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(morvanite_options INTERFACE -fsanitize=address,undefined)
endif()

# Links the named parts of this tree, or libraries of the system, to a target.
function(morvanite_link target visibility)
    foreach(use ${ARGN})
        if(TARGET morvanite_${use})
            set(use morvanite_${use})
        endif()
        target_link_libraries(${target} ${visibility} ${use})
    endforeach()
endfunction()

# morvanite_part(pack pack USES model platform WITHIN idgen X::y): builds a folder as the library morvanite_pack.
# USES names the libraries whose headers its own headers include, WITHIN those that only its sources include. A folder
# can include headers of the folders that it names, and of those that these have under USES. Upward includes fail.
# scripts/check_tree.py compares both lists with the includes.
function(morvanite_part name folder)
    cmake_parse_arguments(arg "" "" "USES;WITHIN" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    list(REMOVE_ITEM sources ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/main.cpp)
    add_library(morvanite_${name} STATIC ${sources})
    target_include_directories(morvanite_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
    morvanite_link(morvanite_${name} PUBLIC ${arg_USES})
    morvanite_link(morvanite_${name} PRIVATE ${arg_WITHIN} options)
endfunction()

function(morvanite_uses target)
    morvanite_link(${target} PRIVATE ${ARGN} options)
endfunction()

# morvanite_test(model SOURCES a.cpp USES model project): a GoogleTest program. CTest lists its tests one by one.
function(morvanite_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    add_executable(${name}_test ${arg_SOURCES})
    morvanite_uses(${name}_test ${arg_USES} GTest::gmock GTest::gtest_main)
    set_target_properties(${name}_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    gtest_discover_tests(${name}_test DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT "MORVANITE_PROGRAM_DIR=${CMAKE_BINARY_DIR}/bin"
        TIMEOUT 300)
endfunction()

# morvanite_fuzz(elf SOURCES elf.cpp USES pack): a libFuzzer program; its seeds are in fuzz/seeds/elf.
function(morvanite_fuzz name)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    add_executable(fuzz_${name} ${arg_SOURCES})
    morvanite_uses(fuzz_${name} ${arg_USES})
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(fuzz_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
endfunction()

# Copies every file of the folder to the programs, and again when it changes.
function(add_program_folder folder)
    file(GLOB files CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/${folder}
        ${CMAKE_SOURCE_DIR}/${folder}/*.ini ${CMAKE_SOURCE_DIR}/${folder}/*.img ${CMAKE_SOURCE_DIR}/${folder}/*.xml)
    set(copies "")
    foreach(file ${files})
        add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/bin/${file}
            COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/${folder}/${file} ${CMAKE_BINARY_DIR}/bin/${file}
            DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/${file})
        list(APPEND copies ${CMAKE_BINARY_DIR}/bin/${file})
    endforeach()
    add_custom_target(program_folder ALL DEPENDS ${copies})
endfunction()

# Makes a program load the decoders of pictures only when the check needs them.
function(morvanite_loads_pictures target)
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src/cli/LazyPictures.cpp ${CMAKE_SOURCE_DIR}/src/cli/Module.cpp)
    add_dependencies(${target} morvanite-pictures)
endfunction()

# Makes a program load the workbook formats, and the reader of XLIFF, only when it needs them.
function(morvanite_loads_workbooks target)
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src/cli/LazyWorkbook.cpp ${CMAKE_SOURCE_DIR}/src/cli/Module.cpp)
    # As needed: libraries that only the formats use are left to the library of the formats.
    target_link_options(${target} PRIVATE -Wl,--as-needed)
    morvanite_uses(${target} translation workbook)
    add_dependencies(${target} morvanite-workbook)
endfunction()
