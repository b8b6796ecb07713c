#!/usr/bin/env bash
# Runs a test with a Windows in this network that can print and holds the sample package.
#
# usage: tests/network/with_package.sh TEST
# Run inside a simulated network, on a display; the package and the programs of the tests are built already.
set -euo pipefail
source "$(dirname "$0")/../../scripts/common.sh"
source scripts/wine.sh
source scripts/network.sh

build_folder=${BUILD_DIR:-build/windows}
network_windows walking
wine_add_printing
cp -r out/package "$prefix/drive_c/Package"
cp "$build_folder/WizardRemote.exe" "$prefix/drive_c/Package/Setup/x64/"
PRINT_SYSTEM=$(realpath "$build_folder/tests/fakes/PrintSystem.exe") WALK_PACKAGES=$root/build/network/packages "$@"
