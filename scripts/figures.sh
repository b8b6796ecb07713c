#!/usr/bin/env bash
# Measures speed, size, memory and growth of the program, each beside its limit and beside a peer of the same run, and writes
# them into docs/figures.md with date and commit. On an idle machine: whatever runs beside it is measured too.
#
# usage: scripts/figures.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

# What it costs to wake the other processor up is no figure of the program.
stay_on_processor 0

work=$root/build/figures
prefix=$wine_home/figures
tree=$prefix/drive_c/Tree

# figure NAME VALUE UNIT LIMIT [PEER VALUE]: keeps a figure. The limit of one with a peer is how many times the peer's.
figure() {
    (IFS=$'\t' && echo "$*") >> "$work/figures.tsv"
    echo "$1: $2 $3${6:+, $5 $6 $3}"
}

# grows NAME UNIT SIZE VALUE: keeps a point of a line of growth.
grows() {
    (IFS=$'\t' && echo "$*") >> "$work/growth.tsv"
    echo "$1 of $3: $4 $2"
}

# make_tree COUNT: a package with that many packages in it, answered by the scripted library.
make_tree() {
    local number
    rm -rf "$tree"
    mkdir -p "$tree"/Setup/{x64,res} "$tree"/{Applications,Drivers}/x64
    cp build/windows/tests/bench/{SystemBench,EmptyDialog,EmptyConsole}.exe build/windows/Kestrune.exe \
        build/windows/tests/fakes/complete/Brevanto.dll "$tree/Setup/x64/"
    cp package/strings/en_strings.xml "$tree/Setup/res/"
    printf '<%s>%s</%s>\n' OEM Bench OEM WIN8_DRVTYPES BENCH WIN8_DRVTYPES SILENT_INSTALL true SILENT_INSTALL \
        HIDE_DISCOVERY true HIDE_DISCOVERY > "$tree/Setup/defaultInstallSettings.xml"
    for ((number = 1; number <= $1; number++)); do
        touch "$tree/Applications/x64/Package$number.msi"
        printf 'package\tPackage%d.msi\nproperties\t' "$number"
        printf '<%s>%s</%s>' ProductName "Package $number" ProductName ProductVersion 1.0.0 ProductVersion \
            DEVICETYPE PRINTER DEVICETYPE INSTALLSIZE '12 MB' INSTALLSIZE STARTAPP '' STARTAPP APPTYPE '' APPTYPE \
            SecureCustomProperties TARGET_DIR SecureCustomProperties
        printf '\nstate\t0\t0\t0\t0\n'
    done | iconv -f UTF-8 -t UTF-16LE > "$tree/Setup/x64/Brevanto.script"
}

show_pages() { sed -i 's#<SILENT_INSTALL>true#<SILENT_INSTALL>false#' "$tree/Setup/defaultInstallSettings.xml"; }

# take_sample: the sample package in place of the tree.
take_sample() {
    rm -rf "$tree"
    cp -r out/package "$tree"
    cp build/windows/tests/bench/{SystemBench,EmptyDialog,EmptyConsole}.exe build/windows/Kestrune.exe "$tree/Setup/x64/"
}

# in_tree COMMAND...: runs it beside the program.
in_tree() { (cd "$tree/Setup/x64" && "$@" < /dev/null 2> /dev/null | tr -d '\r'); }

# word NUMBER COMMAND...: that word of what is printed, the median of five runs.
word() {
    local number=$1
    shift
    for _ in 1 2 3 4 5; do in_tree "$@" | awk -v n="$number" '{print $n}'; done | sort -n | sed -n 3p
}

# median COMMAND...: of the numbers that five runs print.
median() { word 1 "$@"; }

start_of() { median timeout 60 wine SystemBench.exe start "$1"; }

starts() {
    local peer
    make_tree 0
    show_pages
    peer=$(start_of EmptyDialog.exe)
    figure 'start to the first page, no packages' "$(start_of Kestrune.exe)" us 2.0 'an empty dialog' "$peer"
    take_sample
    figure 'start to the first page, sample package' "$(start_of Kestrune.exe)" us 2.2 'an empty dialog' "$peer"
}

# requests PROGRAM: starts it in a prefix whose server writes down what it is asked, and prints how many lines that makes until
# the first window of its own is shown, and in eight seconds in all.
requests() {
    local log=$work/server.log asked=$wine_home/requests server
    wine_new_prefix "$asked" > /dev/null
    cp -r "$tree" "$asked/drive_c/"
    WINEPREFIX=$asked wineserver -k || true
    WINEPREFIX=$asked wineserver -w || true
    WINEPREFIX=$asked wineserver -d1 -f -p > "$log" 2>&1 &
    server=$!
    # A program that came first would start a server of its own.
    until WINEPREFIX=$asked wineserver -k0; do sleep 0.1; done
    # The desktop comes with the first program.
    WINEPREFIX=$asked wine explorer /desktop=kestrune,1400x1400 cmd /c ver > /dev/null 2>&1 < /dev/null
    sleep 2
    local before
    before=$(wc -l < "$log")
    (cd "$asked/drive_c/Tree/Setup/x64" && WINEPREFIX=$asked timeout 8 wine "./$1" < /dev/null > /dev/null 2>&1) || true
    WINEPREFIX=$asked wineserver -k
    wait $server 2> /dev/null || true
    # A window is shown by the flag 0x40, the desktop's own among them.
    tail -n "+$((before + 1))" "$log" | awk '
        /^[0-9a-f]+: [a-z_0-9]+\(/ { ++all }
        /: set_window_pos\( swp_flags=/ {
            flags = $0
            sub(/.*swp_flags=/, "", flags)
            if (substr(flags, 3, 1) ~ /[4567c-f]/ && !shown && !/window={0,0;1400,1400}/) shown = all
        }
        END { print shown + 0, all + 0 }'
}

asked() {
    local empty without sample
    make_tree 0
    show_pages
    empty=$(requests EmptyDialog.exe)
    without=$(requests Kestrune.exe)
    take_sample
    sample=$(requests Kestrune.exe)
    figure 'requests until the first page, no packages' "${without% *}" lines '18000 lines' 'an empty dialog' "${empty% *}"
    figure 'requests until the first page, sample package' "${sample% *}" lines '18000 lines' 'an empty dialog' "${empty% *}"
    figure 'requests in eight seconds, sample package' "${sample#* }" lines '' 'an empty dialog' "${empty#* }"
}

beside_the_library() {
    figure "$1" "$(median wine SystemBench.exe catalogue)" us 1.1 "the library's calls and the listing" \
        "$(median wine SystemBench.exe library)"
}

catalogues() {
    local count
    for count in 10 50 250 1000; do
        make_tree "$count"
        grows packages us "$count" "$(median wine SystemBench.exe catalogue)"
        [ "$count" != 250 ] || beside_the_library 'catalogue of 250 packages'
    done
    take_sample
    beside_the_library 'catalogue of the sample package'
}

# memory COMMAND...: the peak of its working set in kilobytes.
memory() {
    (cd "$tree/Setup/x64" && { command time -f %M "$@" < /dev/null > /dev/null; } 2>&1 | tail -n 1)
}

memories() {
    make_tree 100
    figure 'memory of a silent run on 100 packages' "$(memory timeout 60 wine Kestrune.exe)" KB '25600 KB' \
        'an empty program' "$(memory timeout 8 wine EmptyConsole.exe)"
    take_sample
    figure 'memory of the first page, sample package' "$(memory timeout 8 wine Kestrune.exe)" KB '30720 KB' \
        'an empty dialog' "$(memory timeout 8 wine EmptyDialog.exe)"
}

lists() {
    local count
    make_tree 0
    for count in 10 100 1000 10000; do
        grows devices us "$count" "$(word 2 wine SystemBench.exe list "$count")"
    done
    figure '10,000 devices shown' "$(word 2 wine SystemBench.exe list 10000)" us '60000 us'
    figure '10,000 devices sorted' "$(word 4 wine SystemBench.exe list 10000)" us '30000 us'
}

logs() {
    local count
    make_tree 0
    for count in 125 500 2000 8000; do
        rm -rf "$prefix/drive_c/ProgramData/Bench Install Logs"
        grows records us "$count" "$(in_tree wine SystemBench.exe log "$count" | awk '{print $2}')"
    done
    figure '500 log records' "$(word 2 wine SystemBench.exe log 500)" us 1.2 'the bare calls' \
        "$(word 4 wine SystemBench.exe log 500)"
}

# tags: the settings of the user merged into the defaults, natively.
tags() {
    local name value
    build/bench/tests/bench/kestrune_bench --benchmark_filter=MergesManySettings --benchmark_format=csv 2> /dev/null |
        sed -n 's:^"MergesManySettings/\([0-9]*\)",[0-9]*,[0-9.e+]*,\([0-9.e+]*\),.*:\1 \2:p' |
        while read -r name value; do grows settings ms "$name" "$value"; done
}

# check_ten_times: in seconds of the processor.
check_ten_times() {
    (command time -f %U bash -c 'for _ in {1..10}; do "$0" "$1" > /dev/null || true; done' build/native/PackageCheck "$tree") 2>&1 |
        tail -n 1
}

# languages: ten runs of PackageCheck over the sample with so many of them, natively and with sanitizers.
languages() {
    local count
    for count in 4 8 15 30; do
        take_sample
        # English is one of them.
        find "$tree/Setup/res" -name '*_strings.xml' ! -name 'en_*' | sort | tail -n "+$count" | xargs -d '\n' -r rm
        grows languages s "$count" "$(check_ten_times)"
    done
}

# processor_time: what the host has taken from this machine so far, and all there was.
processor_time() { awk '/^cpu / { for (i = 2; i <= 9; ++i) all += $i; print $9, all }' /proc/stat; }

need_packages time libbenchmark-dev
build windows Kestrune SystemBench EmptyDialog EmptyConsole ScriptedBrevanto
build native PackageCheck
build bench kestrune_bench
scripts/build-package.sh build/windows > /dev/null
mkdir -p "$work"
rm -f "$work"/*.tsv
start_display
wine_new_prefix "$prefix"
trap 'wine_stop "$prefix"; wine_stop "$wine_home/requests"; kill $display_process 2> /dev/null || true' EXIT
export WINEPREFIX=$prefix
processor_time > "$work/processor.txt"
starts
catalogues
memories
lists
logs
tags
languages
asked
figure 'the program' "$(stat -c %s build/windows/Kestrune.exe)" bytes '1500000 bytes'
processor_time >> "$work/processor.txt"
scripts/write-figures.py "$work" docs/figures.md docs/pictures/growth.svg
