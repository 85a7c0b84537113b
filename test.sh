#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs missing packages, builds, and runs all tests.
set -eu
cd "$(dirname "$0")"
. scripts/lib.sh

# shellcheck disable=SC2086
need_packages $BUILD_PACKAGES $TEST_PACKAGES
configure_and_build build -DMORVANITE_TESTS=ON
say "Testing"
ctest --test-dir build --output-on-failure --parallel "$(nproc)" "$@"
