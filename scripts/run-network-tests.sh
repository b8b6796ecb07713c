#!/usr/bin/env bash
# Tests the simulated network itself, each form of it in namespaces of its own, what the package's libraries find in it,
# and whole walks of the wizard in it; the machine's network is not used.
#
# usage: scripts/run-network-tests.sh
# Where no namespace can be had, or the programs that play the devices cannot be fetched, it says so and tests nothing.
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh
source scripts/network.sh

prepare_network || {
    echo 'The network tests are left out: the programs that play the devices cannot be fetched.'
    exit 0
}
in_network few true
case $? in
    0) ;;
    "$network_no_namespace")
        echo 'The network tests are left out: this machine gives no namespaces.'
        exit 0
        ;;
    *) exit 1 ;;
esac

tests=tests/network
failed=0
$tests/outside_test.py || failed=1
in_network few $tests/demo_test.py || failed=1
in_network --browser office $tests/office_test.py || failed=1
in_network liars $tests/liars_test.py || failed=1
in_network wide $tests/wide_test.py || failed=1
in_network --loss 20 few $tests/loss_test.py || failed=1

build_folder=${BUILD_DIR:-build/windows}
if [ -z "${BUILD_DIR:-}" ]; then
    build windows AskNetwork Kestrune PrintSystem PrinterQueue Quelmar Sondrix TestActions WizardRemote || exit 1
fi
stay_on_processor 0
wine_make_template
start_display
# find_in FORM... TEST: what the package's libraries find in that network.
find_in() { in_network "${@:1:$#-1}" $tests/with_libraries.sh "$tests/${!#}" || failed=1; }
find_in office find_office_test.py
find_in --loss 20 office find_lost_test.py
find_in wide find_far_test.py
find_in liars find_liars_test.py

scripts/build-package.sh "$build_folder" || exit 1
package/make_packages.py $tests/packages/packages.toml build/network/packages package/packages \
    "$build_folder/tests/windows/standins" "$build_folder/standins/PrinterQueue" || exit 1
in_network --browser few $tests/with_package.sh $tests/walk_test.py || failed=1
exit "$failed"
