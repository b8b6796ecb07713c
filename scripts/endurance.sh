#!/usr/bin/env bash
# Runs the program again and again on packages and with faults that a seed deals, and says which run went wrong. The suite
# of the wizard does so for a few runs of a fixed seed.
#
# usage: scripts/endurance.sh [--seed N] [--silent N] [--shown N] [--twice N] [--minutes N] [--only KIND/N]
#
# --silent N     silent runs, 200 without it; each is followed by one without faults
# --shown N      shown walks, 100 without it
# --twice N      starts of two copies in one instant, 500 without it
# --minutes N    goes on with the next seeds until so much time is over, and then begins nothing new
# --only KIND/N  that run alone, as a line about it names it
set -uo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

usage() {
    sed -n 's/^# \(usage: .*\)/\1/p' "$0" >&2
    exit 2
}

declare -A counts=([silent]=200 [shown]=100 [twice]=500)
declare -A suites=([silent]=SilentEnduranceTest [shown]=ShownEnduranceTest [twice]=TwiceEnduranceTest)
seed=$((RANDOM * 32768 + RANDOM))
minutes=
only=
while [ $# -gt 0 ]; do
    [ $# -gt 1 ] || usage
    case $1 in
        --only)
            [[ $2 =~ ^(silent|shown|twice)/[1-9][0-9]*$ ]] || usage
            only=$2
            ;;
        --seed | --silent | --shown | --twice | --minutes)
            [[ $2 =~ ^(0|[1-9][0-9]*)$ ]] || usage
            case $1 in
                --seed) seed=$2 ;;
                --minutes) minutes=$2 ;;
                *) counts[${1#--}]=$2 ;;
            esac
            ;;
        *) usage ;;
    esac
    shift 2
done
if [ -n "$only" ]; then
    counts=([${only%/*}]=${only#*/})
    minutes=
fi

build windows kestrune_wizard_tests || exit 1
wine_make_template
program=build/windows/tests/wizard/kestrune_wizard_tests.exe
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
[ -z "$minutes" ] || export KESTRUNE_ENDURANCE_END=$(($(date +%s) + 60 * minutes))
# No file of a run may grow beyond this, so that a log of that size meets a full disk.
file_limit=$((4 * 1024 * 1024))

# run_kind KIND: its runs in a prefix and on a display of their own.
run_kind() {
    local kind=$1 prefix=$wine_home/endurance-$1 code filter="Endurance/${suites[$1]}.*"
    [ -z "$only" ] || filter="$filter/${only#*/}"
    wine_new_prefix "$prefix"
    start_display
    # Only what is started here is limited, and told so by the error of the write and not by a signal.
    trap '' XFSZ
    ulimit -f $((file_limit / 1024))
    export KESTRUNE_ENDURANCE_SEED=$seed KESTRUNE_ENDURANCE_FILE_LIMIT=$file_limit
    export "KESTRUNE_ENDURANCE_${kind^^}=${counts[$kind]}"
    wine "$program" --gtest_filter="$filter" < /dev/null > "$logs/$kind" 2>&1
    code=$?
    wine_stop "$prefix"
    return $code
}

# told KIND: the lines of a kind's log, as text.
told() { tr -d '\r' < "$logs/$1"; }

# report KIND: one line for each run that went wrong, and its part of the table. Fails where there is one.
report() {
    local kind=$1 found run
    found=$(told "$kind" | sed -n "s:^\[  FAILED  \] Endurance/[^/]*/\([0-9]*\), .* ms)$:\1:p" | sort -nu)
    run=$(told "$kind" | grep -c '^\[ DEALT ')
    [ -z "$only" ] || told "$kind"
    local number
    for number in $found; do
        printf 'scripts/endurance.sh --seed %s --only %s/%s    %s\n' "$seed" "$kind" "$number" \
            "$(told "$kind" | awk -v name="/$number" '
                /^\[ RUN / {inside = $NF ~ name "$"; next}
                inside && /: Failure$/ {failed = 1; next}
                inside && failed && /^(\[.*)?$/ {exit}
                inside && failed {printf "%s ", $0}' | cut -c1-300)"
    done
    if ! told "$kind" | grep -q '^\[  PASSED  \]'; then
        echo "scripts/endurance.sh --seed $seed: the $kind runs did not come to their end"
        found="$found end"
    fi
    printf '%-8s %5d runs  %5d findings  dealt: %s\n' "$kind" "$run" "$(wc -w <<< "$found")" \
        "$(told "$kind" | sed -n 's/^\[ DEALT    \] [^:]*: *//p' | tr ' ' '\n' | grep . | sort | uniq -c |
            awk '{printf "%s%s %d", between, $2, $1; between = ", "}')" >> "$logs/table"
    [ -z "$found" ]
}

code=0
while :; do
    echo "seed $seed"
    : > "$logs/table"
    processes=()
    for kind in silent shown twice; do
        [ "${counts[$kind]:-0}" != 0 ] || continue
        (run_kind "$kind") &
        processes+=($!)
    done
    for process in "${processes[@]}"; do wait "$process" || code=1; done
    for kind in silent shown twice; do
        [ "${counts[$kind]:-0}" = 0 ] || report "$kind" || code=1
    done
    cat "$logs/table"
    [ -n "$minutes" ] && [ "$(date +%s)" -lt "$KESTRUNE_ENDURANCE_END" ] || break
    seed=$((seed + 1))
done
exit $code
