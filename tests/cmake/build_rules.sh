#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Tests which steps a build with morvanite_pack repeats when one file of the project changes.
# Usage: build_rules.sh MORVANITE_CLI REPOSITORY GENERATOR
set -euo pipefail
cli=$1 repository=$2 generator=$3
unset MAKEFLAGS MFLAGS CMAKE_GENERATOR

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
app="$work/weather clock" # paths with a blank reveal missing quotes
build="$app/out"
mkdir "$app"
cp -r "$repository"/sample/{res,config.xml,weatherclock.vcproj,weatherclock_res.lst,preview.lst} "$app"
mkdir -p "$app/settings/morvanite"
cat >"$app/settings/morvanite/Morvanite.ini" <<END
[Layout]
folders=1
catalogue=catalogue.xml
[Path]
layout_temp=.\\ResID\\layouts\\
export_xml=catalogue.xml
export_layout=layout_tables.xml
END
printf '#include "LayoutID.h"\n#include "ResID.h"\nint main(void) { return ID_IMAGE_SUN == LAYOUT_CLASS_Label; }\n' >"$app/main.c"
echo 'int without_ids(void); int without_ids(void) { return 1; }' >"$app/other.c"
cat >"$app/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.20)
project(Clock LANGUAGES C)
find_package(Morvanite 1.0 REQUIRED PATHS "$repository")
foreach(name upright across appended)
    add_executable(\${name} main.c other.c)
    set_target_properties(\${name} PROPERTIES SUFFIX .axf)
endforeach()
if(WITH_CHECK)
    set(check CHECK error)
    morvanite_check(check_all PROJECT weatherclock.vcproj SETTINGS settings SARIF found.sarif)
endif()
if(BUDGET)
    set(check BUDGET \${BUDGET})
endif()
morvanite_pack(upright PROJECT weatherclock.vcproj RESOLUTION 240x320 SETTINGS settings CONVERT_IMAGES \${check})
morvanite_pack(across PROJECT weatherclock.vcproj RESOLUTION 320x240 SETTINGS settings TARGET axf OUTPUT packed.bin CONVERT_IMAGES VER 3)
if(WITH_DLL)
    morvanite_pack(appended PROJECT weatherclock.vcproj RESOLUTION 480x272 SETTINGS settings TARGET dll)
else()
    set_property(TARGET appended PROPERTY EXCLUDE_FROM_ALL TRUE)
endif()
END

fail() {
    printf 'FAILED: %s\n' "$1"
    cat "$work/log"
    exit 1
}

configure() { cmake -S "$app" -B "$build" "$@" >"$work/log" 2>&1 || fail "configuring with $*"; }

# builds WHAT STEPS: checks that a build after WHAT has exactly these steps, by name and number.
builds() {
    local steps
    cmake --build "$build" -j 4 >"$work/log" 2>&1 || fail "the build after $1 failed"
    steps=$({ grep -oE 'Numbering the|Building C|Linking C|Packing the' "$work/log" || :; } | sort | uniq -c | awk '{printf "%s%s %s", s, $2, $1; s = ", "}')
    [ "$steps" = "$2" ] || fail "after $1: found the steps [$steps], wanted [$2]"
}

has_entry() { "$cli" inspect --json "$1" >"$work/entries" && grep -q "$2" "$work/entries"; }

configure -G "$generator" -DCMAKE_C_COMPILER=arm-linux-gnueabihf-gcc -DCMAKE_SYSTEM_NAME=Linux -DMORVANITE_CLI="$cli"
cp -r "$app" "$work/before"
rm -r "$work/before/out"
all='Building 4, Linking 2, Numbering 1, Packing 2'
builds 'the configuration' "$all"
builds 'nothing changed' ''
[ -s "$build/upright.packed.axf" ] && [ -s "$build/arm/upright.res" ] || fail 'a packed file is missing'
arm-linux-gnueabihf-readelf -S "$build/packed.bin" | grep -q '\.zp_res' || fail 'the packed file has no section .zp_res'
diff -r -x out "$work/before" "$app" || fail 'the build changed the project'

# A picture of one resolution: only that pack is repeated, and its bytes are the new ones.
cp "$build/upright.packed.axf" "$work/old"
cp "$app/res/240x320/rain.png" "$app/res/240x320/sun.png"
builds 'a picture changed' 'Packing 1'
builds 'a picture was packed' ''
! cmp -s "$build/upright.packed.axf" "$work/old" || fail 'the changed picture was not packed'
touch "$app/res/common/logo.gif"
"$cli" cache --stats --cache "$build/CMakeFiles/morvanite/pictures" >"$work/cached"
builds 'a picture of all resolutions was touched' 'Packing 2'
"$cli" cache --stats --cache "$build/CMakeFiles/morvanite/pictures" | diff - "$work/cached" || fail 'an unchanged picture was converted again'
grep -q '/pictures: [1-9][0-9]* pictures, ' "$work/cached" || fail 'the build keeps no converted pictures'

# A text but no ID: the headers are generated again and stay unchanged, so nothing is compiled.
iconv -f utf-16 -t utf-8 "$work/before/res/ref_list_weatherclock.txt" | sed 's/\tToday\t/\tThis day\t/' | iconv -t utf-16 >"$app/res/ref_list_weatherclock.txt"
builds 'a text changed' 'Numbering 1, Packing 2'
builds 'a text was packed' ''

# A layout.
layout="$app/res/layout_weatherclock_240x320.xml"
cp "$build/upright.packed.axf" "$work/old"
sed -i 's/value="62"/value="63"/' "$layout"
builds 'a layout changed' 'Numbering 1, Packing 2'
builds 'a layout was packed' ''
! cmp -s "$build/upright.packed.axf" "$work/old" || fail 'the changed layout was not packed'

# The name of an ID: everything that includes the header is compiled again.
sed -i 's/ID_IMAGE_FOG/ID_IMAGE_MIST/' "$app/res/weatherclock.res.xml"
builds 'an ID changed' 'Building 2, Linking 2, Numbering 1, Packing 2'
header=$(find "$build/CMakeFiles/morvanite" -name ResID.h)
grep -q ID_IMAGE_MIST "$header" || fail 'the header does not have the new ID'
rm "$header" "$(dirname "$header")/LayoutID.h"
cmake --build "$build" >"$work/log" 2>&1 || fail 'the build after the headers were removed failed'
[ -s "$header" ] && [ -s "$(dirname "$header")/LayoutID.h" ] || fail 'a removed header was not written again'
builds 'the headers were written again' ''

# Settings of the project, which may appear and disappear.
printf '[Layout]\nfolders=1\n' >"$app/morvanite.ini"
builds 'settings of the project appeared' 'Numbering 1, Packing 2'
builds 'settings of the project were read' ''
touch "$app/settings/morvanite/Morvanite.ini"
builds 'settings were touched' 'Numbering 1, Packing 2'
rm "$app/morvanite.ini"
builds 'settings of the project disappeared' 'Numbering 1, Packing 2'
builds 'the settings had disappeared' ''

# Lists that appear or disappear.
rm "$app/preview.lst"
builds 'the previews were dropped' 'Packing 2'
! has_entry "$build/packed.bin" zep.preview_0 || fail 'the dropped previews are still packed'
printf '.\\res\\preview\\day.png\r\n' >"$app/preview.lst"
builds 'previews appeared' 'Packing 2'
has_entry "$build/packed.bin" zep.preview_0 || fail 'the new preview is not packed'

# A pack that fails reports why, and runs again in the next build.
mv "$app/res/common/alarm.png" "$work"
for time in first second; do
    ! cmake --build "$build" -j 4 >"$work/log" 2>&1 || fail "the $time build without a picture didn't fail"
    grep -q 'Image file does not exist: .*alarm.png' "$work/log" || fail 'the message of the pack is not shown'
done
mv "$work/alarm.png" "$app/res/common"
cmake --build "$build" >"$work/log" 2>&1 || fail 'the build after the picture was restored failed'
builds 'the picture was restored' ''
[ -z "$(find "$app" -name '*.tmp')" ] || fail 'temporary files were left'

# The same resources appended to an application of the other kind.
configure -DWITH_DLL=ON
builds 'a third target was added' 'Building 2, Linking 1, Packing 1'
has_entry "$build/appended.packed.dll" AppLogo.img || fail 'the file of kind dll has no icon'

# With a check, a finding ends the build before the pack.
configure -DWITH_DLL=OFF -DWITH_CHECK=ON
cmake --build "$build" --target upright_packed >"$work/log" 2>&1 || fail 'the build with a check failed'
printf '[Severity]\nlayout-outside=error\n[Check]\nno-such-key=1\n' >"$app/morvanite-check.ini"
! cmake --build "$build" --target upright_packed >"$work/log" 2>&1 || fail 'a finding of the check did not end the build'
grep -q 'no-such-key.*\[check-settings\]' "$work/log" || fail 'the finding of the check is not shown'
rm "$app/morvanite-check.ini"
cmake --build "$build" --target upright_packed check_all >"$work/log" 2>&1 || fail 'the target of morvanite_check failed'
grep -q '"version": "2.1.0"' "$build/found.sarif" || fail 'the findings were not written'

# Resources that are larger than the budget aren't packed.
configure -DWITH_CHECK=OFF -DBUDGET=100K
! cmake --build "$build" --target upright_packed >"$work/log" 2>&1 || fail 'a budget that is too small did not end the build'
grep -q ' more than the budget of 102400 bytes' "$work/log" && grep -q '  ID_IMAGE_BACKGROUND$' "$work/log" || fail 'the largest resources are not shown'

configure -DBUDGET= -DMORVANITE_CACHE=OFF
cmake --build "$build" --target clean >"$work/log" 2>&1 || fail 'cleaning failed'
[ ! -e "$build/upright.packed.axf" ] && [ ! -e "$build/arm/upright.res" ] || fail 'cleaning leaves packed files'
"$cli" cache --clear --cache "$build/CMakeFiles/morvanite/pictures" >"$work/log"
builds 'cleaning' "$all"
[ -z "$(ls "$build/CMakeFiles/morvanite/pictures")" ] || fail 'a cache that is turned off is used'
echo 'The build rules work.'
