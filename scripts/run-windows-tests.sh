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
folder=$build_folder/tests/windows/tree/Setup/x64

# A program cannot start another one in another language, so the companion is asked from here.
for locale in de_DE en_US ar_SA he_IL pt_BR pt_PT zh_CN zh_TW zh_HK ja_JP id_ID nb_NO nn_NO hr_HR uk_UA; do
    echo "$locale.UTF-8 $(LC_ALL=$locale.UTF-8 timeout 60 wine "$folder/Companion.exe" tell-language < /dev/null)"
done > "$folder/UserLanguages.txt"
for locale in zh-SG sr-Latn-RS sr-Cyrl-RS; do
    echo "$locale $(LC_ALL=$locale timeout 60 wine "$folder/Companion.exe" tell-language < /dev/null)"
done >> "$folder/UserLanguages.txt"

run_tests() { run_to_its_end timeout 600 wine "$folder/kestrune_windows_tests.exe" "$@"; }

# What failed among hundreds of others in one process is tried once more in a fresh one: a thread of the system that ends
# late is no fault of the program. A test that fails there as well has failed.
log=$(mktemp)
run_tests "$@" > "$log"
code=$?
cat "$log"
failed=$(failed_tests "$log")
rm -f "$log"
if [ "$code" != 0 ] && [ -n "$failed" ]; then
    echo "Once more in a fresh process: $failed"
    run_tests --gtest_brief=1 "--gtest_filter=$failed" && note_second_try "$failed"
    code=$?
fi
wine_stop "$prefix"
exit "$code"
