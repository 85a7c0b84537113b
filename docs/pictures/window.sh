#!/bin/sh
# SPDX-License-Identifier: MIT
# Takes all pictures of README.md and docs/window.md again, with the sample: docs/pictures/window.sh [BUILD]
# BUILD, "build" if it isn't given, is a folder in which app_pictures has been built. Run ./run.sh first, because some of
# the pictures show the packed sample. Needs the packages of the tests, python3-pil and librsvg2-bin.
set -eu
cd "$(dirname "$0")/../.."
program="${1:-build}/tests/app_pictures"
taken=$(mktemp -d)
trap 'rm -rf "$taken"' EXIT
"$program" views "$taken/views"
"$program" session "$taken/session"
rm -rf docs/pictures/window
mkdir docs/pictures/window
/usr/bin/python3 -B docs/pictures/palette.py "$taken/views" docs/pictures/window
/usr/bin/python3 -B docs/pictures/session.py "$taken/session"
/usr/bin/python3 -B docs/pictures/run.py
