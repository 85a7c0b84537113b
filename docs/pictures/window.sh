#!/bin/sh
# Takes the pictures of the window for README.md and docs/window.md anew, with the sample: docs/pictures/window.sh [BUILD]
# BUILD, "build" if it isn't given, is a folder in which app_pictures has been built.
set -eu
program=$(realpath "${1:-build}")/tests/app_pictures
pictures=$(cd "$(dirname "$0")" && pwd)
taken=$(mktemp -d)
trap 'rm -rf "$taken"' EXIT
take() { # the picture's name among those that the program takes, the name of the file, the look
    "$program" "$taken" ${3:-}
    cp "$taken/$1.png" "$pictures/$2"
}
export LC_ALL=C.UTF-8
# A screen on which the window has room at either scale.
printf '{"screens":[{"name":"s","x":0,"y":0,"width":2560,"height":1600,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]}' >"$taken/screen.json"
export QT_QPA_PLATFORM="offscreen:configfile=$taken/screen.json"
QT_SCALE_FACTOR=2 take project window.png
take tiled window-tiled.png
take images window-dark.png dark
