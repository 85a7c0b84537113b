#!/bin/sh
# SPDX-License-Identifier: MIT
# Takes new pictures of the window for README.md and docs/window.md, with the sample: docs/pictures/window.sh [BUILD]
# BUILD is a folder in which app_pictures has been built, "build" by default. Needs the packages of the tests, and
# fonts-lohit-deva for the texts in Hindi.
set -eu
program=$(realpath "${1:-build}")/tests/app_pictures
pictures=$(cd "$(dirname "$0")" && pwd)
taken=$(mktemp -d)
trap 'rm -rf "$taken"' EXIT
take() { # LOOK PICTURE FILE ...: the look, then for each picture its name in the program and the name of its file
    "$program" "$taken" $1
    shift
    while [ $# -gt 0 ]; do
        cp "$taken/$1.png" "$pictures/$2"
        shift 2
    done
}
export LC_ALL=C.UTF-8
# A screen with enough room for the window at either scale.
printf '{"screens":[{"name":"s","x":0,"y":0,"width":2880,"height":1700,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]}' >"$taken/screen.json"
export QT_QPA_PLATFORM="offscreen:configfile=$taken/screen.json"
QT_SCALE_FACTOR=2 take "" project window.png strings strings.png file-pictures files.png layout layout.png
take "" tiled window-tiled.png string-bars strings-find.png string-editor strings-edit.png languages languages.png resolutions resolutions.png v1-list v1-list.png reload reload.png preview preview.png layout-color layout-edit.png
take dark images window-dark.png string-bars strings-dark.png file-types files-dark.png layout-fit layout-dark.png
