#!/usr/bin/env bash
# Runs the tests of the library that stands in for the installer library, on real packages under Wine and in a
# fresh prefix, and then rolls such packages out to several machines at once, and the package that PackageCheck lays out.
#
# usage: scripts/run-standin-tests.sh [GoogleTest arguments]
# The build folder of the preset "windows" is brought up to date first; BUILD_DIR names another one.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

build_folder=${BUILD_DIR:-build/windows}
if [ -n "${BUILD_DIR:-}" ]; then
    cmake --build "$BUILD_DIR" --target standins_tests standins_world Kestrune Rollout -- --quiet || exit 1
else
    build windows standins_tests standins_world Kestrune Rollout || exit 1
fi

stay_on_processor 0
prefix=$wine_home/standins
wine_new_prefix "$prefix"
run_to_its_end 600 wine "$build_folder/tests/windows/standins/standins_tests.exe" "$@"
code=$?
wine_stop "$prefix"
# A filter names tests of the program above.
if [ $# = 0 ]; then
    tests/rollout/machines.sh "$build_folder" || code=1
    tests/rollout/new_package.sh "$build_folder" || code=1
fi
exit $code
