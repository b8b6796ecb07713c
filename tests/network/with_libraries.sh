#!/usr/bin/env bash
# Runs a test with a Windows in this network that holds the package's libraries and the program that asks them.
#
# usage: tests/network/with_libraries.sh TEST
# Run inside a simulated network, on a display; the libraries and AskNetwork are built already.
set -euo pipefail
source "$(dirname "$0")/../../scripts/common.sh"
source scripts/wine.sh
source scripts/network.sh

build_folder=${BUILD_DIR:-build/windows}
network_windows finding
cp "$build_folder"/standins/{Sondrix,Quelmar}.dll "$build_folder/AskNetwork.exe" "$prefix/drive_c/"
ASK_NETWORK='C:\AskNetwork.exe' "$@"
