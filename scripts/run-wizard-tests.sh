#!/usr/bin/env bash
# Runs the stories of the program under Wine on a virtual display, in a fresh prefix.
#
# usage: scripts/run-wizard-tests.sh [BUILD_DIR] [GoogleTest arguments]
# Without a build folder the preset's is brought up to date and taken.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

case ${1:--} in
    -*)
        build_folder=build/windows
        build windows kestrune_wizard_tests || exit 1
        ;;
    *)
        build_folder=$1
        shift
        ;;
esac

prefix=$wine_home/wizard-tests
wine_new_prefix "$prefix"
start_display
wine "$build_folder/tests/wizard/kestrune_wizard_tests.exe" "$@" < /dev/null
code=$?
wine_stop "$prefix"
exit $code
