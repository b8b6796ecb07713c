#!/usr/bin/env bash
# Compares the pictures that the tests took of every dialog, on a sheet for each language, with those that were looked at
# last, and lays both out on a page: out/pictures/index.html.
#
# usage: scripts/check-pictures.sh [--accept] FOLDER
#
# Letters may be smoothed a little differently; nothing may stand elsewhere. With --accept the sheets of the folder become
# those that the next are compared with: look at the page before.
set -euo pipefail
source "$(dirname "$0")/common.sh"

accept=
if [ "${1:-}" = --accept ]; then
    accept=yes
    shift
fi
taken=$1
accepted=tests/windows/pictures
page=out/pictures
tolerance=20%

sheets() { (cd "$1" && for sheet in *."$2"; do [ ! -f "$sheet" ] || echo "${sheet%."$2"}"; done | sort); }

# same_bytes LANGUAGE: whether the sheet is the one that was accepted, byte for byte. Most are, which saves comparing.
same_bytes() {
    local sum
    sum=$(sha256sum "$taken/$1.bmp")
    grep -qxF "${sum%% *}  $1.bmp" "$accepted/sheets.sha256" 2> /dev/null
}

# differs LANGUAGE: whether more than the smoothing of letters has changed. Leaves a picture of what.
differs() {
    local count
    count=$(compare -metric AE -fuzz "$tolerance" "$accepted/$1.png" "$taken/$1.bmp" "$page/$1-difference.png" 2>&1) || true
    if [ "$count" = 0 ]; then
        rm -f "$page/$1-difference.png"
        return 1
    fi
    convert "$taken/$1.bmp" -depth 4 "$page/$1.png"
    echo "$1: $count pixels differ from the accepted sheet"
}

write_page() {
    local language
    {
        echo '<!DOCTYPE html><meta charset="utf-8"><title>Every dialog in every language</title>'
        echo '<style>img { max-width: 100%; border: 1px solid gray; } .changed { color: #b00; }</style>'
        for language in $(sheets "$accepted" png); do
            if [ -f "$page/$language-difference.png" ]; then
                echo "<h2 class=\"changed\" id=\"$language\">$language: changed</h2>"
                echo "<img src=\"$language-difference.png\" alt=\"what changed\"><img src=\"$language.png\" alt=\"as taken\">"
            else
                echo "<h2 id=\"$language\">$language</h2><img src=\"../../$accepted/$language.png\" alt=\"as accepted\">"
            fi
        done
    } > "$page/index.html"
}

accept_all() {
    local language
    mkdir -p "$accepted"
    for language in $(sheets "$taken" bmp); do
        same_bytes "$language" || convert "$taken/$language.bmp" -depth 4 -define png:compression-level=9 "$accepted/$language.png"
    done
    (cd "$taken" && sha256sum -- *.bmp) > "$accepted/sheets.sha256"
}

rm -rf "$page"
mkdir -p "$page"
need_packages imagemagick
[ -z "$accept" ] || accept_all
code=0
if ! diff <(sheets "$accepted" png) <(sheets "$taken" bmp); then
    echo 'The languages are not those of the accepted sheets.'
    code=1
else
    for language in $(sheets "$taken" bmp); do
        if ! same_bytes "$language" && differs "$language"; then code=1; fi
    done
fi
write_page
[ "$code" = 0 ] || echo "See $page/index.html; scripts/check-pictures.sh --accept $taken takes the new pictures over."
exit "$code"
