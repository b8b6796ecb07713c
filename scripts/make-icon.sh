#!/usr/bin/env bash
# Renders a vector picture into a Windows icon of several sizes.
# usage: make-icon.sh picture.svg icon.ico
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for size in 16 20 24 32 40 48 64 96 256; do
    rsvg-convert -w "$size" -h "$size" "$1" -o "$work/$size.png"
done
mkdir -p "$(dirname "$2")"
icotool -c -o "$2" "$work"/*.png
