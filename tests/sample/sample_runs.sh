#!/usr/bin/env bash
# Builds the sample for each of its screens and wants the output that lies beside this script.
# Use: sample_runs.sh MORVANITE_CLI REPOSITORY
set -euo pipefail
cli=$1 repository=$2
here=$(cd "$(dirname "$0")" && pwd)
unset MAKEFLAGS MFLAGS CMAKE_GENERATOR

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$repository"/{sample,cmake,device} "$work"
rm -rf "$work/sample/ResID"
project_files() { (cd "$work/sample" && find . -path ./ResID -prune -o -type f -print0 | sort -z | xargs -0 sha256sum); }
project_files >"$work/before"

fail() {
    printf 'FAILED: %s\n' "$1"
    exit 1
}

build() {
    cmake -S "$work/sample" -B "$work/$1" -G Ninja --toolchain arm.cmake -DMORVANITE_CLI="$cli" \
        -DWEATHERCLOCK_RESOLUTION="$1" >"$work/log" 2>&1 && cmake --build "$work/$1" -j 2 >>"$work/log" 2>&1 ||
        { cat "$work/log"; fail "the build for $1"; }
    ! grep -qE 'Warning|\[error\]|\[warning\]' "$work/log" || { cat "$work/log"; fail "warnings in the build for $1"; }
}

build 240x320
project_files | cmp - "$work/before" || fail 'saving and packing changed the files of the project'
app="$work/240x320/weatherclock.packed.axf"
qemu-arm "$app" >"$work/found"
diff "$here/screen_240x320.txt" "$work/found" || fail 'the output for 240x320'

for language in en ru zh hi ko ar; do
    qemu-arm "$app" $language >"$work/all"
    head -n 9 "$work/all"
done >"$work/found"
diff "$here/screens_by_language.txt" "$work/found" || fail 'the screens in six languages'

for screen in 320x240 480x272; do
    build $screen
    qemu-arm "$work/$screen/weatherclock.packed.axf" >"$work/found"
    grep -qE "ID_IMAGE_BACKGROUND +[0-9]+ +${screen%x*} x ${screen#*x} " "$work/found" || fail "the background for $screen"
    grep -qE 'ID_IMAGE_LOGO +[0-9]+ +48 x 48 ' "$work/found" || fail "the pictures of all screens for $screen"
done

# The IDs have the same numbers whatever the screen is: one header serves all.
status=0
qemu-arm "$work/240x320/weatherclock.axf" >"$work/found" 2>"$work/errors" || status=$?
[ $status = 1 ] && [ ! -s "$work/found" ] || fail 'a program without resources has to end with 1 and no output'
grep -q '^weatherclock: this program carries no resources' "$work/errors" || fail 'the message for missing resources'

# A damaged section ends in a message, never in a crash. The entry that leads to the items can't be done without.
arm-linux-gnueabihf-objcopy --dump-section .zp_res="$work/section" "$app" "$work/copy.axf" 2>"$work/log" ||
    fail 'the section cannot be taken out'
offset=$(arm-linux-gnueabihf-readelf -SW "$app" | sed -n 's/.*\.zp_res *[A-Z]* *[0-9a-f]* \([0-9a-f]*\) .*/\1/p')
items=$(grep -abo 'zep-2\.0' "$work/section" | sed -n '1s/:.*//p')
for at in 0 16 $items $((items + 8)) $((items + 12)) $((items + 20)); do
    cp "$app" "$work/damaged.axf"
    printf '\377\377\377\377' | dd of="$work/damaged.axf" bs=1 seek=$((16#$offset + at)) conv=notrunc status=none
    status=0
    qemu-arm "$work/damaged.axf" >"$work/found" 2>"$work/errors" || status=$?
    [ $status -le 1 ] || fail "a section damaged at $at ends with $status"
    [ $status = 0 ] || [ -s "$work/errors" ] || fail "a section damaged at $at ends without a message"
    [ "$at" != "$items" ] || [ $status = 1 ] || fail 'a section without a way to its items is taken for whole'
done
echo 'The sample shows its resources.'
