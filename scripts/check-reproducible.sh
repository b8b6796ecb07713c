#!/usr/bin/env bash
# Builds the programs twice, in folders of other names and at another time, and compares them. Nothing is taken from the
# compiler cache, so it takes as long as two first builds, and is no part of ./test.
# usage: scripts/check-reproducible.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"

build_packages
programs=(Kestrune Rollout PackageCheck)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export CCACHE_DISABLE=1

# lay_out FOLDER: copies the sources as they stand, committed or not.
lay_out() {
    mkdir -p "$1"
    git ls-files -z --cached --others --exclude-standard | while IFS= read -rd '' file; do
        [ ! -e "$file" ] || printf '%s\0' "$file"
    done | xargs -0 cp --parents -t "$1"
}

build_in() {
    (
        cd "$1"
        cmake --preset windows -DKESTRUNE_TESTS=OFF > "$work/log" &&
            cmake --build build/windows --target "${programs[@]}" -- --quiet >> "$work/log" 2>&1
    ) || {
        tail -n 40 "$work/log"
        exit 1
    }
}

# hashes FOLDER: the hash of each program, with its name.
hashes() { (cd "$1/build/windows" && sha256sum "${programs[@]/%/.exe}"); }

first=$work/first
second=$work/second/in/a/folder/further/down
lay_out "$first"
lay_out "$second"
build_in "$first"
TZ=Asia/Tokyo build_in "$second"
if [ "$(hashes "$first")" != "$(hashes "$second")" ]; then
    echo 'The two builds differ:'
    diff <(hashes "$first") <(hashes "$second") || true
    for program in "${programs[@]/%/.exe}"; do
        echo "$program: $(cmp -l "$first/build/windows/$program" "$second/build/windows/$program" | wc -l) bytes differ"
    done
    exit 1
fi
hashes "$first"
echo 'Two builds, one hash for each program.'
