#!/usr/bin/env bash
# Opens the wizard on the sample package in a fresh Windows, on the display and in the network that this is started in.
#
# usage: scripts/open-wizard.sh [LANGUAGE]
# Run from demo, which has built the package.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh
source scripts/network.sh

prefix=$(network_prefix demo)
wine_new_prefix "$prefix"
trap 'wine_stop "$prefix"' EXIT
add_title_fonts "$prefix"
add_letters "$prefix"
wine_add_printing
cp -r out/package "$prefix/drive_c/Package"
(cd "$prefix/drive_c/Package/Setup/x64" && wine Kestrune.exe ${1:+"-lang=$1"} < /dev/null)
