#!/usr/bin/env bash
# Runs the tests of what touches the system under Wine, on a virtual display and in a fresh prefix.
#
# usage: scripts/run-windows-tests.sh [GoogleTest arguments]
# The build folder of the preset "windows" is brought up to date first; BUILD_DIR names another one.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

build_folder=${BUILD_DIR:-build/windows}
if [ -n "${BUILD_DIR:-}" ]; then
    cmake --build "$BUILD_DIR" --target kestrune_windows_tests -- --quiet || exit 1
else
    build windows kestrune_windows_tests || exit 1
fi

prefix=$wine_home/windows-tests
wine_new_prefix "$prefix"
start_display
timeout 600 wine "$build_folder/tests/windows/tree/Setup/x64/kestrune_windows_tests.exe" "$@" < /dev/null
code=$?
wine_stop "$prefix"
exit $code
