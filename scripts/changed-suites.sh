#!/usr/bin/env bash
# Names the suites that the changes since the upstream branch touch, one in a line.
# usage: scripts/changed-suites.sh
set -uo pipefail
source "$(dirname "$0")/common.sh"

# is_logic SOURCE: whether a source is one of those that only compute.
is_logic() {
    local folder=${1#src/}
    sed -n "/^floor(${folder%%/*}\$/,/)/p" src/floors.cmake | tr '\n' ' ' | sed 's/.*LOGIC/LOGIC/; s/SYSTEM.*//' |
        grep -q "^LOGIC.*\b$(basename "$1" .cpp)\b"
}

# of_source FILE: the suites of a source of the program. A header without a source may be anybody's.
of_source() {
    local unit=${1%.*}.cpp
    if is_logic "$unit" || [ ! -f "$unit" ]; then echo unit fuzz standins; fi
    echo windows wizard lint
}

suites_of() {
    case $1 in
        docs/folders.txt | docs/architecture.md) echo lint ;;
        docs/rollout-report.schema.json) echo standins wizard ;;
        *.md | docs/*) ;;
        demo | tests/network/* | scripts/network.sh | scripts/in-network.sh | scripts/run-network-tests.sh) echo network ;;
        tests/breaks/* | scripts/breaks.py) echo lint ;;
        tests/unit/ReferenceForms.*) echo unit fuzz lint ;;
        tests/unit/*.cpp | tests/unit/*.h) echo unit lint ;;
        tests/threads/*) echo unit lint ;;
        tests/fuzz/*) echo fuzz lint ;;
        tests/windows/standins/*) echo standins lint ;;
        tests/windows/*) echo windows lint ;;
        tests/wizard/BitmapFile.* | tests/wizard/LibraryCalls.* | tests/wizard/Logs.*) echo windows wizard lint ;;
        tests/wizard/*) echo wizard lint ;;
        tests/fakes/Spooler/*) echo standins network lint ;;
        tests/fakes/NpaPacket.*) echo unit windows wizard lint ;;
        tests/fakes/*) echo windows wizard lint ;;
        src/*.cpp | src/*.h) of_source "$1" ;;
        standins/PrinterQueue/*) echo unit fuzz standins network wizard lint ;;
        standins/discovery/*) echo unit fuzz standins network lint ;;
        standins/*) echo standins lint ;;
        framework/LoadConfiguration.cpp | resources/*.manifest) echo packages windows wizard lint ;;
        framework/* | resources/*) echo windows wizard lint ;;
        package/*) echo standins wizard packages lint ;;
        tools/WizardRemote.cpp) echo network lint ;;
        tools/Rollout/* | tools/Intention.*) echo unit standins wizard lint ;;
        tests/rollout/* | scripts/check-reports.py) echo standins wizard ;;
        tools/PackageCheck/starter/* | tools/PackageCheck/NewPackage.*) echo unit standins lint ;;
        tools/PackageCheck/*) echo unit fuzz packages wizard lint ;;
        scripts/check-packages.sh | scripts/check-plan-page.* | scripts/check-manifests.py | scripts/check-binary.py | scripts/check-signing.sh | scripts/sign.sh | scripts/make-sbom.py | docs/package-check.*) echo unit packages ;;
        tools/* | tests/bench/*) echo lint ;;
        scripts/run-windows-tests.sh) echo windows ;;
        scripts/run-standin-tests.sh) echo standins ;;
        scripts/run-wizard-tests.sh) echo wizard ;;
        scripts/wine.sh) echo unit windows standins wizard ;;
        scripts/coverage* | scripts/fuzz.sh | scripts/mutate.py | scripts/mutants/*) echo lint ;;
        scripts/lint.sh | scripts/run-tidy.py | scripts/floors.py | scripts/mingw.py | scripts/check-* | scripts/draw-folders.py | .clang-*) echo lint ;;
        *) echo unit fuzz windows standins network wizard lint ;;
    esac
}

changed_files | while read -r file; do suites_of "$file"; done | tr -s ' ' '\n' | sort -u
