#!/usr/bin/env bash
# Tests the simulated network itself, each form of it in namespaces of its own; the machine's network is not used.
#
# usage: scripts/run-network-tests.sh
# Where no namespace can be had, or the programs that play the devices cannot be fetched, it says so and tests nothing.
set -uo pipefail
source "$(dirname "$0")/common.sh"
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
exit "$failed"
