# SPDX-License-Identifier: MIT
# A toolchain for the device's processor. It targets 32-bit ARM with Linux, so that qemu-arm can run the result.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
