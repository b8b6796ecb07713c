#!/usr/bin/env bash
# Runs the fuzzers for long, with what they know from before, and keeps what they learn.
#
# usage: scripts/fuzz.sh [--runs N] [--reader NAME]... [--pack]
#
# --runs N       inputs for each reader, a million without it; a reader that is slow gets its part of them
# --reader NAME  that reader alone, as tests/fuzz/CMakeLists.txt names it; may be given several times
# --pack         afterwards reduces what was found to what covers more than the seeds do, and keeps it in tests/fuzz/corpora
#
# What is found stays in build/fuzz/inputs, and the next run begins with it. An input that ends a fuzzer lies in
# build/fuzz/finds; the exit code is 1 then.
set -uo pipefail
source "$(dirname "$0")/common.sh"

usage() {
    sed -n 's/^# \(usage: .*\)/\1/p' "$0" >&2
    exit 2
}

mapfile -t known < <(sed -n 's:^tests/fuzz/Fuzz\(.*\)\.cpp$:\1:p' < <(git ls-files tests/fuzz))
# By how much slower a reader is than most, and its longest inputs where they are not of 1500 bytes, as in a packet.
declare -A slowness=([PackageCheck]=500 [PrinterDevices]=10)
declare -A longest=([AddressText]=64 [ElementNames]=256 [MergeDocument]=512 [PackageCheck]=32768 [TagDocument]=512
    [TextExpansion]=512)
runs=1000000
readers=()
packs=
while [ $# -gt 0 ]; do
    case $1 in
        --pack)
            packs=yes
            shift
            continue
            ;;
        --runs)
            [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || usage
            runs=$2
            ;;
        --reader)
            [[ -n ${2:-} && " ${known[*]} " == *" $2 "* ]] || usage
            readers+=("$2")
            ;;
        *) usage ;;
    esac
    shift 2
done
[ ${#readers[@]} -gt 0 ] || readers=("${known[@]}")

fuzzer() { echo "build/fuzz/tests/fuzz/Fuzz$1"; }

# fuzz READER: runs its fuzzer; a line of the table, and a failure where it found something.
fuzz() {
    local reader=$1 code started=$SECONDS log=build/fuzz/logs/$1.log
    mkdir -p build/fuzz/logs "build/fuzz/inputs/$reader" "build/fuzz/finds/$reader"
    # Stacks of allocations take a good part of the time, and a find is repeated with all of them. An input may take ten
    # seconds of the processor; the clock bounds one that waits.
    ASAN_OPTIONS=malloc_context_size=1 "$(fuzzer "$reader")" -runs=$((runs / ${slowness[$reader]:-1})) \
        -max_len="${longest[$reader]:-1500}" -len_control=100 -timeout=600 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/finds/$reader/" "build/fuzz/inputs/$reader" "tests/fuzz/seeds/$reader" \
        "build/fuzz/tests/fuzz/corpora/$reader" > "$log" 2>&1
    code=$?
    printf '%-16s %10s runs %6d s %8s features %3d finds\n' "$reader" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" $((SECONDS - started)) \
        "$(grep -a ' ft: ' "$log" | tail -n 1 | sed 's/.* ft: \([0-9]*\).*/\1/')" \
        "$(find "build/fuzz/finds/$reader" -type f | wc -l)" >> build/fuzz/table
    [ $code = 0 ] || tail -n 30 "$log"
    return $code
}

# pack READER: keeps what covers more than the seeds, of all that was found, as an archive.
pack() {
    local reader=$1 chosen archive=tests/fuzz/corpora/$1.tar.xz
    chosen=$(mktemp -d)
    cp "tests/fuzz/seeds/$reader"/* "$chosen"
    "$(fuzzer "$reader")" -set_cover_merge=1 -max_len="${longest[$reader]:-1500}" "$chosen" "build/fuzz/inputs/$reader" \
        "build/fuzz/tests/fuzz/corpora/$reader" > "build/fuzz/logs/$reader-pack.log" 2>&1 || {
        tail -n 30 "build/fuzz/logs/$reader-pack.log"
        rm -rf "$chosen"
        return 1
    }
    (cd "tests/fuzz/seeds/$reader" && find . -type f -exec rm -f "$chosen"/{} \;)
    rm -f "$archive"
    [ -z "$(ls -A "$chosen")" ] ||
        tar --create --xz --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner --file="$archive" -C "$chosen" .
    rm -rf "$chosen"
}

need_packages clang libclang-rt-14-dev llvm xz-utils
build_packages
build fuzz fuzzers || exit 1
: > build/fuzz/table
code=0
for reader in "${readers[@]}"; do
    fuzz "$reader" || code=1
    [ -z "$packs" ] || pack "$reader" || code=1
done
cat build/fuzz/table
exit $code
