#!/usr/bin/env bash
# Compares the discovery libraries with other programs that find printers, in the simulated office of 24 devices, and
# prints what each finds as a table in Markdown.
#
# usage: scripts/compare-discovery.sh [LIBRARIES]
# LIBRARIES is the folder with Sondrix.dll and Quelmar.dll; without one the others are compared alone.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh
source scripts/network.sh

libraries=${1:-}
backends=$root/build/network/cups
prefix=$wine_home/compare

# ask_with PREFIX: makes the prefix in this network, so that its server is in it too, and compares.
ask_in_network() {
    wine_new_prefix "$prefix"
    trap 'wine_stop "$prefix"' EXIT
    cp "$libraries"/{Sondrix,Quelmar}.dll build/windows/AskNetwork.exe "$prefix/drive_c/"
    # The scripted libraries have their devices beside them.
    cp "$libraries"/Network.script "$prefix/drive_c/" 2> /dev/null || true
    tests/network/compare.py "$1" wine 'C:\AskNetwork.exe' < /dev/null
}

if [ "${COMPARE_INSIDE:-}" = true ]; then
    ask_in_network "$backends/usr/lib/cups/backend-available"
    exit
fi

prepare_network
unpack_packages "$backends" cups
if [ -z "$libraries" ]; then
    in_network --browser office tests/network/compare.py "$backends/usr/lib/cups/backend-available"
    exit
fi
build windows AskNetwork
wine_make_template
start_display
COMPARE_INSIDE=true in_network --browser office "$0" "$libraries"
