#!/usr/bin/env bash
# Shows every dialog in a language while its texts are being written: whenever a file of the language is saved, the dialogs are
# drawn anew and the texts are checked and measured.
#
# usage: scripts/watch-language.sh [--once] CODE
# Open out/language/CODE.html in a browser, which shows it anew by itself. The first time takes minutes, since it builds the
# program of the tests; each save takes some seconds. With --once it ends after the first page, with 1 where a check found something.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

once=
if [ "${1:-}" = --once ]; then
    once=yes
    shift
fi
code=${1:-}
texts=package/strings/${code}_strings.xml
if [ ! -f "$texts" ]; then
    echo "There is no $texts. The languages are: $(cd package/strings && echo *_strings.xml | sed 's/_strings\.xml//g')" >&2
    exit 2
fi
sources=("$texts" package/glossary/"$code".toml package/eula/*_"$code".txt)

need_packages imagemagick
prepare_fonts || exit 1
build windows kestrune_windows_tests || exit 1
scripts/make-pictures.sh build/windows/package/images
work=build/windows/tests/windows-language
page=out/language
rm -rf "$work"
mkdir -p "$work" "$page"
cp -r build/windows/tests/windows/{strings,tree} "$work/"
start_display
wine_new_prefix "$wine_home/language"
add_letters "$wine_home/language"
trap 'wine_stop "$wine_home/language"; kill $display_process 2> /dev/null || true' EXIT

escaped() { sed 's/&/\&amp;/g; s/</\&lt;/g'; }

# Prints what is wrong with the texts by themselves, and where they do not fit.
findings() {
    scripts/check-languages.py | grep -F "/$code" 
    cp "$texts" package/eula/*_"$code".txt "$work/strings/"
    timeout 300 wine "$work/tree/Setup/x64/kestrune_windows_tests.exe" "--gtest_filter=*PagePicturesTest.*/$code:*FittingTextsTest.*/$code" \
        < /dev/null > "$work/log" 2>&1
    # What a text does, and then in which dialog.
    tr -d '\r' < "$work/log" | awk '/^too (wide|high) in / { text = $0 } text && /FittingTextsTest.cpp:[0-9]+: / { print $NF ": " text; text = "" }'
}

# Draws the page. Fails where something is wrong.
draw() {
    local found
    found=$(findings)
    convert "$work/pictures/$code.bmp" "$page/$code.png"
    {
        echo '<!DOCTYPE html><meta charset="utf-8"><meta http-equiv="refresh" content="2">'
        echo "<title>$code</title><style>img { max-width: 100%; } pre { white-space: pre-wrap; color: #b00; }</style>"
        echo "<p>Drawn at $(date +%H:%M:%S).</p><pre>$(escaped <<< "$found")</pre><img src=\"$code.png\" alt=\"every dialog\">"
    } > "$page/$code.html"
    [ -z "$found" ] || echo "$found"
    echo "Drawn at $(date +%H:%M:%S): $page/$code.html"
    [ -z "$found" ]
}

saved() { stat -c '%n %Y %s' "${sources[@]}" 2> /dev/null; }

while :; do
    state=$(saved)
    draw
    result=$?
    [ -z "$once" ] || exit "$result"
    while [ "$(saved)" = "$state" ]; do sleep 0.5; done
done
