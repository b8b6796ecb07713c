#!/usr/bin/env bash
# Measures the logic natively by Google Benchmark. What touches the system is in scripts/figures.sh. Never part of the tests.
# usage: scripts/bench.sh [OPTION OF GOOGLE BENCHMARK]...
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_packages libbenchmark-dev
build bench kestrune_bench
build/bench/tests/bench/kestrune_bench "$@"
