# SPDX-License-Identifier: MIT
# The device's processor, as far as it matters here: 32-bit ARM under Linux, so that qemu-arm can run the result.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
