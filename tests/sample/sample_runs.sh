#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the sample for each of its screens and compares the output with the files beside this script.
# Usage: sample_runs.sh MORVANITE_CLI REPOSITORY
set -euo pipefail
cli=$1 repository=$2
here=$(cd "$(dirname "$0")" && pwd)
unset MAKEFLAGS MFLAGS CMAKE_GENERATOR
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$repository"/{sample,cmake,device,CMakeLists.txt} "$work"
cd "$work"
rm -rf sample/ResID
cp -r sample before

fail() {
    printf 'FAILED: %s\n' "$1"
    cat log
    exit 1
}

for screen in 240x320 320x240 480x272; do
    cmake -S sample -B $screen -G Ninja --toolchain arm.cmake -DMORVANITE_CLI="$cli" -DWEATHERCLOCK_RESOLUTION=$screen >log 2>&1 &&
        cmake --build $screen -j 2 >>log 2>&1 && ! grep -E 'Warning|\[error\]|\[warning\]' log || fail "the build for $screen"
    qemu-arm $screen/weatherclock.packed.axf >found
    [ $screen != 240x320 ] || diff "$here/screen_240x320.txt" found || fail "the output for $screen"
    grep -qE "ID_IMAGE_BACKGROUND +[0-9]+ +${screen%x*} x ${screen#*x} " found || fail "the background for $screen"
    grep -qE "^  Screen +start +${screen%x*} x ${screen#*x} .* background ${screen}$" found || fail "the layout for $screen"
    grep -qE 'ID_IMAGE_LOGO +[0-9]+ +48 x 48 ' found || fail "the pictures of all screens for $screen"
done
diff -r -x ResID before sample || fail 'saving and packing changed the files of the project'

app=240x320/weatherclock.packed.axf
for language in en ru zh hi ko ar; do
    qemu-arm $app $language >all
    head -n 9 all
done | diff "$here/screens_by_language.txt" - || fail 'the screens in six languages'

# In ascending order all resources are found as before.
for language in en ru zh hi ko ar; do qemu-arm $app $language; done | sort >before.txt
cp $app before.axf
printf '\n[Pack]\nsorted=1\n' >>sample/morvanite.ini
cmake --build 240x320 >log 2>&1 || fail 'the build in ascending order'
for language in en ru zh hi ko ar; do qemu-arm $app $language; done | sort | diff before.txt - || fail 'the output in ascending order'
! cmp -s before.axf $app || fail 'the setting has no effect'

# Without its section, and with a damaged one, the program ends with a message and never crashes. The entry that
# leads to the items is required.
arm-linux-gnueabihf-objcopy --dump-section .zp_res=section $app copy.axf 2>log || fail 'the section cannot be extracted'
offset=$(arm-linux-gnueabihf-readelf -SW $app | sed -n 's/.*\.zp_res *[A-Z]* *[0-9a-f]* \([0-9a-f]*\) .*/\1/p')
items=$(grep -abo 'zep-2\.0' section | sed -n '1s/:.*//p')
for at in none 0 16 "$items" $((items + 8)) $((items + 12)) $((items + 20)); do
    cp $app damaged.axf
    [ "$at" = none ] && cp 240x320/weatherclock.axf damaged.axf ||
        printf '\377\377\377\377' | dd of=damaged.axf bs=1 seek=$((16#$offset + at)) conv=notrunc status=none
    status=0
    qemu-arm damaged.axf >found 2>errors || status=$?
    [ $status = 0 ] || { [ $status = 1 ] && [ -s errors ]; } || fail "a section damaged at $at ends with $status and no message"
    [[ $at != none && $at != "$items" ]] || [ $status = 1 ] || fail "a section damaged at $at isn't detected"
    [ "$at" != none ] || { [ ! -s found ] && grep -q '^weatherclock: this program contains no resources' errors; } ||
        fail 'a program without resources must report that'
done
echo 'The sample shows its resources.'
