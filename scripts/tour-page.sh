#!/usr/bin/env bash
# Lays the pictures of tours out on a page with a sheet for each language: index.html beside them.
#
# usage: scripts/tour-page.sh FOLDER LANGUAGE...
#
# The folder has a folder of each language's pictures.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

folder=$1
shift
need_packages imagemagick
prepare_fonts
letters=$wine_home/fonts/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf

# sheet LANGUAGE: all pages of a tour in one picture, with their names below.
sheet() {
    (cd "$folder/$1" && montage -font "$letters" -label '%t' [0-9]*.png -geometry 480x480+8+8 -tile 5x "../$1.png")
}

{
    echo '<!DOCTYPE html><meta charset="utf-8"><title>The tour in each language</title>'
    echo '<style>img { max-width: 100%; border: 1px solid gray; }</style>'
    echo '<p>What has changed since the pictures were looked at last stands in'
    echo '<a href="../pictures/index.html">the pages of the tests</a>, dialog by dialog.</p>'
    for language in "$@"; do
        sheet "$language" >&2
        echo "<h2 id=\"$language\">$language</h2>"
        echo "<a href=\"$language/\"><img src=\"$language.png\" alt=\"each page of the tour\"></a>"
    done
} > "$folder/index.html"
