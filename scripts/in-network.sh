#!/usr/bin/env bash
# Runs a command in a network of simulated printers, and takes the network down after it.
#
# usage: scripts/in-network.sh [--loss PERCENT] [--browser] office|few|wide|liars COMMAND...
# tests/network/in_network.py says what the forms are, what the command finds and what the exit codes mean.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/network.sh

prepare_network
in_network "$@"
