# Copies generated headers for a build, those whose text has changed:
#   cmake -D FROM=<folder> -D TO=<folder> -P MorvaniteHeaders.cmake

cmake_minimum_required(VERSION 3.20)

file(GLOB headers "${FROM}/*.h")
foreach(header ${headers})
    get_filename_component(name "${header}" NAME)
    configure_file("${header}" "${TO}/${name}" COPYONLY)
endforeach()
