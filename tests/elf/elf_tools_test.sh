#!/bin/sh
# SPDX-License-Identifier: MIT
# Checks with other tools the files of the real compiler that a pack has extended: no tool has a new complaint, nothing
# after the header has changed, and the new section has the contents of the side file.
# Usage: elf_tools_test.sh MORVANITE_CLI ARM_GCC
set -eu
cli=$1
gcc=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export LC_ALL=C XDG_CONFIG_HOME="$work/none"
mkdir -p res old/arm new
touch demo.vcproj
echo 'static const char words[] = "some words of a section";
int counters[1000];
int main(int argc, char **argv) { counters[argc] = words[argc % 8]; return argv[0] == words; }' >main.c
echo '<config><resolution><Width>240</Width><Height>320</Height></resolution>
<zxa><zepversion>20</zepversion></zxa></config>' >config.xml
echo '<APP><FILE id="ID_MAIN">main.c</FILE></APP>' >res/demo.res.xml

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# Prints the complaints of a tool about the file of a folder, and its exit status. Leaves its output in the file "said".
complaints() { # FOLDER TOOL...
    (cd "$1" && shift && "$@" demo.axf) >said 2>errors && status=0 || status=$?
    case $2 in
    eu-elflint) # one complaint is expected: the section is for the application, and in no segment
        grep -v -e 'No errors' -e "'.zp_res': alloc flag set but section not in any loaded segment" said || true ;;
    *)
        grep -a -e arning -e rror: said || true
        echo "status $status" ;;
    esac
    cat errors
}

check() { # WHAT; the file is old/demo.axf
    echo "$1"
    "$cli" pack "$work/demo.vcproj" --input "$work/old/demo.axf" --output "$work/new/demo.axf" --resolution 240x320 \
        --target axf >pack.out || fail "$(cat pack.out)"
    cmp -i 52 -n $(($(stat -c %s old/demo.axf) - 52)) old/demo.axf new/demo.axf || fail "bytes have changed"
    "${gcc%gcc}objcopy" --dump-section .zp_res=section new/demo.axf /dev/null 2>warnings || fail "$(cat warnings)"
    cmp section old/arm/demo.res || fail "the side file differs"
    for tool in 'readelf -a -W' 'llvm-readelf-14 -a' 'arm-linux-gnueabihf-objdump -x -s' 'llvm-objdump-14 -x -s' \
        'eu-readelf -a' 'eu-elflint --gnu-ld'; do
        command -v "${tool%% *}" >/dev/null || continue
        # shellcheck disable=SC2086
        complaints old $tool >old.txt
        # shellcheck disable=SC2086
        complaints new $tool >new.txt
        grep -aq '\.zp_res' said || [ "$tool" = 'eu-elflint --gnu-ld' ] || fail "$tool doesn't see the section"
        diff old.txt new.txt || fail "$tool has new complaints"
    done
}

compile() { "$gcc" -O1 "$@" -o old/demo.axf main.c; }

compile -g && check "a program with debug information and dynamic libraries"
compile -static && check "a static program"
compile -c && check "an object without segments"
compile -s -nostdlib -Wl,-e,main && printf x >>old/demo.axf && check "a stripped program of an odd size"
mv new/demo.axf old/demo.axf && check "a program packed twice"
