#!/usr/bin/env bash
# Renders the wizard's pictures into a folder, those that have changed: each .svg to a .png, the logo to a .bmp.
# usage: make-pictures.sh FOLDER
set -euo pipefail
sources=$(cd "$(dirname "$0")/../resources/images" && pwd)
mkdir -p "$1"
for source in "$sources"/*.svg; do
    name=$(basename "$source" .svg)
    case $name in
        icon) ;;
        logo)
            [ "$1/logo.bmp" -nt "$source" ] && continue
            rsvg-convert "$source" | pngtopam -mix -background=white | ppmtobmp -bpp=24 > "$1/logo.new" 2> /dev/null
            mv "$1/logo.new" "$1/logo.bmp"
            ;;
        *)
            [ "$1/$name.png" -nt "$source" ] && continue
            rsvg-convert "$source" -o "$1/$name.png"
            ;;
    esac
done
