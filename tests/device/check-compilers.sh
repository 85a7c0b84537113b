#!/bin/sh
# SPDX-License-Identifier: MIT
# Compiles the reader like a firmware: every warning is an error, as C99 and as C++, freestanding. For ARM it must have
# less than 2 KiB of Thumb code, and 1 KiB for layouts, and need no library. The header for C++ is compiled with the
# example of the manual. Exits with 77 if there is no compiler.
# Usage: check-compilers.sh DEVICE_FOLDER MANUAL
set -eu
device=$1
manual=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
strict="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffreestanding -c"
tried=0

compile() { # COMPILER FLAGS...
    command -v "$1" >/dev/null || return 0
    tried=$((tried + 1))
    for source in morvanite_device.c morvanite_elf.c morvanite_layout.c; do
        # shellcheck disable=SC2086
        "$@" $strict -o "$work/$source.o" "$device/$source" || { echo "failed: $* $source" >&2; exit 1; }
    done
}

compile_example() { # COMPILER FLAGS...
    command -v "$1" >/dev/null || return 0
    # shellcheck disable=SC2086
    "$@" $strict -fno-exceptions -fno-rtti -x c++ "-I$device" "-I$work" -o "$work/example.o" "$work/example.cpp" ||
        { echo "failed: $* example of $manual" >&2; exit 1; }
}

sed -n '/^```cpp$/,/^```$/{/^```/!p}' "$manual" >"$work/example.cpp"
[ -s "$work/example.cpp" ]
printf '#define ID_IMAGE_LOGO 1\n#define ID_STRING_TITLE 2\n' >"$work/ResID.h"
for language in c++11 c++14 c++20; do
    compile_example g++ -std=$language
    compile_example clang++ -std=$language
done

for optimise in -O0 -O3; do
    compile gcc -std=c99 $optimise
    compile clang -std=c99 $optimise
    compile g++ -x c++ -std=c++11 $optimise
    compile clang++ -x c++ -std=c++20 $optimise
done

arm='arm-linux-gnueabihf'
for cpu in cortex-m0 cortex-m3; do
    command -v $arm-gcc >/dev/null || break
    compile $arm-gcc -std=c99 -mthumb -mcpu=$cpu -mfloat-abi=soft -Os
    for part in device:2048 layout:1024; do
        size=$($arm-size "$work/morvanite_${part%:*}.c.o" | awk 'NR == 2 { print $1 + $2 + $3 }')
        echo "$cpu: morvanite_${part%:*}.c takes $size bytes, wanted below ${part#*:}; $arm-nm --size-sort tells where they go"
        [ "$size" -lt "${part#*:}" ]
    done
    echo "$cpu: it needs no other code, but for what follows"
    ! $arm-nm -u "$work/morvanite_device.c.o" "$work/morvanite_elf.c.o" "$work/morvanite_layout.c.o" | grep ' U ' || exit 1
done
[ $tried -gt 0 ] || exit 77
