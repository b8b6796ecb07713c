#!/usr/bin/env bash
# Keeps a display and a Wine prefix for the tests of mutants as long as its input is open. For each line that it reads it
# makes the prefix anew and prints what the environment of a program must have.
set -uo pipefail
source "$(dirname "$0")/../common.sh"
source scripts/wine.sh

prefix=$wine_home/mutants
prepare_fonts >&2 || exit 1
scripts/make-pictures.sh build/windows/package/images >&2
start_display
while read -r _; do
    wine_new_prefix "$prefix" >&2
    add_letters "$prefix" >&2
    printf '%s\t' "DISPLAY=$DISPLAY" "WINEPREFIX=$WINEPREFIX" "HOME=$HOME" "LANG=$LANG"
    echo "WINEDEBUG=$WINEDEBUG"
done
wine_stop "$prefix"
