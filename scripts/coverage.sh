#!/usr/bin/env bash
# Says which lines of the logic the unit tests and the fuzzers run, and fails where the logic or a reader of foreign bytes
# is below its limit. The report of every line is out/coverage/index.html.
# usage: scripts/coverage.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"

build_packages
need_packages clang libclang-rt-14-dev llvm python3
build coverage kestrune_unit_tests fuzzers

programs=(build/coverage/tests/unit/kestrune_unit_tests)
counts=build/coverage/counts
rm -rf "$counts" out/coverage
mkdir -p "$counts" out

# counted COMMAND...: runs a program that writes its counts down.
counted() {
    local log
    log=$counts/$(basename "$1").log
    LLVM_PROFILE_FILE="$counts/%p.profraw" "$@" > "$log" 2>&1 && return
    tail -n 30 "$log"
    echo "coverage: $1 failed"
    exit 1
}

counted "${programs[0]}"
for source in tests/fuzz/Fuzz*.cpp; do
    reader=$(basename "$source" .cpp)
    programs+=("build/coverage/tests/fuzz/$reader")
    counted "${programs[-1]}" -runs=0 "tests/fuzz/seeds/${reader#Fuzz}" "build/coverage/tests/fuzz/corpora/${reader#Fuzz}"
done
llvm-profdata merge -sparse "$counts"/*.profraw -o "$counts/all.profdata"

objects=("${programs[0]}" "${programs[@]/#/-object=}")
show() { llvm-cov "$1" "${objects[@]}" -instr-profile="$counts/all.profdata" "${@:2}" src standins tools; }
show show -format=html -output-dir=out/coverage 2> "$counts/show.log"
show export -format=lcov > "$counts/lines" 2> "$counts/export.log"
scripts/coverage-table.py "$counts/lines"
