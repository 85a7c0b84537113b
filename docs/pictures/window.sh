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
QT_SCALE_FACTOR=2 take project window.png
take tiled window-tiled.png
take images window-dark.png dark
