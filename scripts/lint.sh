#!/usr/bin/env bash
# Checks layout, includes and code, and prints the command that repairs a failure where there is one.
# usage: scripts/lint.sh [format|includes|tidy|cppcheck]...
set -uo pipefail
source "$(dirname "$0")/common.sh"

need_packages clang-format cppcheck python3
# Debian brings the newer one by its updates, which a machine may be without.
need_packages clang-tidy-22 || need_packages clang-tidy
mapfile -t sources < <(git ls-files '*.cpp' '*.h')
passed=0
failed=0

# check NAME REPAIR COMMAND...: runs the command and counts it.
check() {
    local name=$1 repair=$2 log
    shift 2
    log=$(mktemp)
    if "$@" > "$log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        head -c 6000 "$log"
        echo "lint: $name failed; to repair: $repair"
    fi
    rm -f "$log"
}

format() { clang-format --dry-run -Werror "${sources[@]}"; }

# Who includes whom, the names of ids, the heads of headers, what headers say of tags, the picture of the folders, the texts
# of the languages, what is broken on purpose, and the tests that documents name.
includes() {
    python3 scripts/check-includes.py && python3 scripts/check-resource-ids.py && python3 scripts/check-dialect.py &&
        python3 scripts/check-tags.py && python3 scripts/draw-folders.py --check && python3 scripts/check-languages.py &&
        python3 scripts/breaks.py --check && python3 scripts/check-test-names.py
}

tidy() { python3 scripts/run-tidy.py build/windows; }

# Of the tests it takes a view into a parameter for one into a temporary, and a lambda that its test ends in time for one
# that outlives it; the small windows of the benchmarks end with their parents.
# The name of a tag or a text is as small as a view, and goes by value like one. What it found in a source stays in the build
# folder until the source or a header of it changes.
static_analysis() {
    mkdir -p build/cppcheck
    cppcheck --quiet --error-exitcode=1 --std=c++20 --language=c++ --inline-suppr -j "$(nproc)" \
        --cppcheck-build-dir=build/cppcheck \
        --enable=warning,performance,portability --suppress=passedByValue --suppress=missingIncludeSystem --suppress=unknownMacro \
        --suppress=danglingTemporaryLifetime:tests/fakes/NpaPacket.cpp \
        --suppress=danglingLifetime:tests/windows/ports/DriverConfigFileTest.cpp --suppress=ignoredReturnValue:tests/bench/* \
        --library=windows --library=googletest -I . -I src src framework standins tests tools package/programs
}

wanted=("$@")
[ ${#wanted[@]} -gt 0 ] || wanted=(format includes tidy cppcheck)
for name in "${wanted[@]}"; do
    case $name in
        format) check format 'git ls-files "*.cpp" "*.h" | xargs clang-format -i' format ;;
        includes) check includes 'fix what it names; the picture of the folders is drawn again by scripts/draw-folders.py' includes ;;
        tidy)
            configure windows
            check clang-tidy 'fix what it names' tidy
            ;;
        cppcheck) check cppcheck 'fix what it names' static_analysis ;;
    esac
done
echo "lint: $passed passed, $failed failed"
[ "$failed" = 0 ]
