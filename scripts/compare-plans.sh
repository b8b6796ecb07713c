#!/usr/bin/env bash
# Holds plans against runs: for so many generated packages, the plan of PackageCheck against the silent and the shown run
# of the program. The suite does so for the first 20.
#
# usage: scripts/compare-plans.sh [COUNT]    200 without a count
set -uo pipefail
source "$(dirname "$0")/common.sh"

count=${1:-200}
[[ $count =~ ^[1-9][0-9]*$ ]] || {
    sed -n 's/^# \(usage: .*\)/\1/p' "$0" >&2
    exit 2
}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
KESTRUNE_PLAN_SEEDS=$count scripts/run-wizard-tests.sh --gtest_filter='Seeds/Planned*' > "$log" 2>&1
code=$?

# differ TEST: how many packages had a plan that differed from the run of that kind. What failed is run a second time.
differ() { tr -d '\r' < "$log" | sed -n "s:^\[  FAILED  \] Seeds/$1\..*GetParam() = \([0-9]*\) .*ms)$:\1:p" | sort -u | wc -l; }

# A comparison that was not made is no comparison without a difference.
made=$(tr -d '\r' < "$log" | grep -ac '^\[\( *OK\|  FAILED \) \] Seeds/.*ms)$')
if [ "$made" -lt $((2 * count)) ]; then
    cat "$log"
    echo "Only $made of $((2 * count)) runs were compared."
    exit 1
fi
tr -d '\r' < "$log" | grep -aA 12 ': Failure$' | cut -c1-400
echo "$count packages: $(differ PlannedRunTest) silent runs and $(differ PlannedWalkTest) shown runs differ from their plans"
exit $code
