#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs missing packages, builds, and packs the sample project into the sample application, which then reads its
# resources on an emulated ARM processor.
set -eu
cd "$(dirname "$0")"
. scripts/lib.sh

# shellcheck disable=SC2086
need_packages $BUILD_PACKAGES
configure_and_build build -DMORVANITE_TESTS=OFF

cli=build/bin/morvanite-cli
project=sample/weatherclock.vcproj
out=build/sample
mkdir -p $out/arm

say "Numbering the IDs of $project and writing sample/ResID/ResID.h and LayoutID.h"
$cli save $project

say "Compiling the sample application for ARM"
arm-linux-gnueabihf-gcc -static -O2 -Wall -Wextra -Werror -Isample/ResID -Idevice -o $out/weatherclock.axf \
    sample/src/*.c device/*.c

say "Packing the resources into it"
$cli pack $project --input $out/weatherclock.axf --output $out/weatherclock.packed.axf \
    --resolution 240x320 --target axf --convert-images 1 --temp $out/temp

say "Running it: it reads its own section .zp_res"
qemu-arm $out/weatherclock.packed.axf

say "What the packed application carries"
$cli inspect $out/weatherclock.packed.axf

say "Made
  $out/weatherclock.packed.axf   the application with its resources in the section .zp_res
  $out/arm/weatherclock.res      the same resources in a file of their own
  sample/ResID/ResID.h           the numbers of the IDs for the application's source
  sample/ResID/LayoutID.h        the numbers of the classes and properties in its layouts

Look at them with
  build/bin/morvanite sample/weatherclock.vcproj
  $cli inspect $out/weatherclock.packed.axf --json
  $cli inspect $out/weatherclock.packed.axf --extract /tmp/weatherclock
  qemu-arm $out/weatherclock.packed.axf"
