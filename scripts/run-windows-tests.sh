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

stay_on_processor 0
prefix=$wine_home/windows-tests
prepare_fonts || exit 1
scripts/make-pictures.sh "$build_folder/package/images"
start_display
wine_new_prefix "$prefix"
add_letters "$prefix"
folder=$build_folder/tests/windows/tree/Setup/x64

# A program cannot start another one in another language, so the companion is asked from here.
ask_languages() {
    local locale
    for locale in de_DE en_US ar_SA he_IL pt_BR pt_PT zh_CN zh_TW zh_HK ja_JP id_ID nb_NO nn_NO hr_HR uk_UA; do
        echo "$locale.UTF-8 $(LC_ALL=$locale.UTF-8 timeout 60 wine "$folder/Companion.exe" tell-language < /dev/null)"
    done
    for locale in zh-SG sr-Latn-RS sr-Cyrl-RS; do
        echo "$locale $(LC_ALL=$locale timeout 60 wine "$folder/Companion.exe" tell-language < /dev/null)"
    done
}

# needs_languages ARGUMENT...: whether a test that reads the answers is to run. They take longer than many a test, so a
# filter that leaves it out saves them.
needs_languages() {
    [ $# != 0 ] || return 0
    local list
    list=$(mktemp)
    timeout 60 wine "$folder/kestrune_windows_tests.exe" --gtest_list_tests "$@" > "$list" 2> /dev/null < /dev/null
    grep -aq 'UserLanguageTest\.' "$list"
    local code=$?
    rm -f "$list"
    return $code
}

! needs_languages "$@" || ask_languages > "$folder/UserLanguages.txt"

run_tests() { run_to_its_end 600 wine "$folder/kestrune_windows_tests.exe" "$@"; }

# The tests lay packages out around their program, so a second program has a folder of its own.
look_folder=$build_folder/tests/windows-look
pictures='*PagePicturesTest*'
fitting='*FittingTextsTest*'

# look_with DOTS PERCENT FILTER: in a Windows of its own, since the resolution is read when it starts, and some tests leave
# other colours behind.
look_with() {
    local folder=$look_folder/tree/Setup/x64 home=$prefix-$1-$2 code
    wine_new_prefix "$home"
    add_letters "$home"
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f > /dev/null
    wine reg add 'HKCU\Software\Microsoft\Accessibility' /v TextScaleFactor /t REG_DWORD /d "$2" /f > /dev/null
    echo "With $1 dots per inch and texts of $2 %:"
    run_tests --gtest_brief=1 "--gtest_filter=$3"
    code=$?
    wine_stop "$home"
    return "$code"
}

# Takes the pictures of the dialogs, and sees whether the texts fit on finer screens and with larger letters too. On another
# display, where no window takes the focus from a test's.
look_at_dialogs() {
    local dots percent code=0
    start_display
    look_with 96 100 "$fitting:$pictures" || code=1
    for dots in 120 144 192; do look_with "$dots" 100 "$fitting" || code=1; done
    # The letters of the largest size are those that the screen has room for.
    for percent in 150 225; do look_with 96 "$percent" "$fitting" || code=1; done
    scripts/check-pictures.sh "$look_folder/pictures" || code=1
    return "$code"
}

look_log=
if [ $# = 0 ]; then
    look_log=$(mktemp)
    rm -rf "$look_folder"
    mkdir "$look_folder"
    cp -r "$build_folder"/tests/windows/{strings,tree} "$look_folder/"
    (
        stay_on_processor 1
        look_at_dialogs
    ) > "$look_log" 2>&1 &
    look_process=$!
    set -- "--gtest_filter=-$fitting:$pictures"
fi

# What failed among hundreds of others in one process is tried once more in a fresh one: a thread of the system that ends
# late is no fault of the program. A test that fails there as well has failed.
log=$(mktemp)
run_tests "$@" > "$log"
code=$?
cat "$log"
failed=$(failed_tests "$log")
rm -f "$log"
if [ "$code" != 0 ] && [ -n "$failed" ] && may_try_again; then
    echo "Once more in a fresh process: $failed"
    run_tests --gtest_brief=1 "--gtest_filter=$failed" && note_second_try "$failed"
    code=$?
fi
wine_stop "$prefix"
if [ -n "$look_log" ]; then
    wait "$look_process" || code=1
    cat "$look_log"
    rm -f "$look_log"
fi
exit "$code"
