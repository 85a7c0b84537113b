#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the release of HEAD in build/packages: the source tarball and the Debian packages. The same commit gives the same
# bytes: a second run for it, with or without --check as the first, fails if they differ. Installs what is missing.
# Use: scripts/package.sh [--check]     with --check the packages' build also runs all tests
set -eu
cd "$(dirname "$0")/.."
. scripts/lib.sh

mode=${1:-}
[ -z "$mode" ] || [ "$mode" = --check ] || { echo "Use: scripts/package.sh [--check]" >&2; exit 2; }
packages="$BUILD_PACKAGES $PACKAGE_PACKAGES"
[ "$mode" != --check ] || packages="$packages $TEST_PACKAGES"
# shellcheck disable=SC2086
need_packages $packages

# No packages with debug information, which takes a third of the time.
options="parallel=$(nproc) noautodbgsym"
export DEB_CFLAGS_STRIP=-g DEB_CXXFLAGS_STRIP=-g
unset DEB_BUILD_PROFILES
if [ "$mode" != --check ]; then
    options="$options nocheck"
    export DEB_BUILD_PROFILES=nocheck # the packages name it, so their bytes aren't those of --check
fi

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
out=$PWD/build/packages
sums=$PWD/build/package-sums/$(git rev-parse HEAD)$mode
mkdir -p "$(dirname "$sums")"
rm -rf "$out"
mkdir -p "$out"

say "Tarball of $(git describe --always)"
git archive --prefix="morvanite-$version/" HEAD | gzip -9n >"$out/morvanite_$version.orig.tar.gz"
tar -xf "$out/morvanite_$version.orig.tar.gz" -C "$out"
cp "$out/morvanite_$version.orig.tar.gz" "$out/morvanite-$version.tar.gz"

say "Debian packages"
# debhelper changes HOME, and ccache would forget what it has.
if command -v ccache >/dev/null; then
    CCACHE_DIR=${CCACHE_DIR:-$(ccache -k cache_dir)}
    export CCACHE_DIR CCACHE_BASEDIR="$out/morvanite-$version" PATH="/usr/lib/ccache:$PATH"
fi
cd "$out/morvanite-$version"
DEB_BUILD_OPTIONS=$options dpkg-buildpackage -us -uc >"$out/build.log" 2>&1 || { tail -n 60 "$out/build.log"; exit 1; }
cd "$out"
rm -r "morvanite-$version"
sha256sum ./*.tar.* ./*.deb >"$out/sums"
cat "$out/sums"
if [ -f "$sums" ]; then
    diff -u "$sums" "$out/sums" >&2 || { echo "The packages differ from those of an earlier run for this commit." >&2; exit 1; }
    echo "The same bytes as before."
fi
mv "$out/sums" "$sums"
