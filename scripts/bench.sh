#!/usr/bin/env bash
# Measures the program: the logic natively by Google Benchmark, and what touches the system under Wine, each beside
# the limit it can be compared with. Never part of the tests.
# usage: scripts/bench.sh [logic|system]...
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh

logic() {
    need_packages libbenchmark-dev
    build bench kestrune_bench
    build/bench/tests/bench/kestrune_bench
}

# make_tree FOLDER COUNT: a package tree with that many packages, answered by the scripted library.
make_tree() {
    local tree=$1 count=$2 number script
    rm -rf "$tree"
    mkdir -p "$tree"/Setup/{x64,res} "$tree"/Applications/x64 "$tree"/Drivers/x64
    cp build/windows/tests/bench/SystemBench.exe build/windows/Kestrune.exe "$tree/Setup/x64/"
    cp build/windows/tests/fakes/complete/Brevanto.dll "$tree/Setup/x64/"
    cp package/strings/en_strings.xml "$tree/Setup/res/"
    printf '<OEM>Bench</OEM>\n<WIN8_DRVTYPES>BENCH</WIN8_DRVTYPES>\n<SILENT_INSTALL>true</SILENT_INSTALL>\n<HIDE_DISCOVERY>true</HIDE_DISCOVERY>\n' \
        > "$tree/Setup/defaultInstallSettings.xml"
    script=$tree/Setup/x64/Brevanto.script
    for ((number = 1; number <= count; number++)); do
        touch "$tree/Applications/x64/Package$number.msi"
        printf 'package\tPackage%d.msi\nproperties\t<ProductName>Package %d</ProductName><ProductVersion>1.0.0</ProductVersion><DEVICETYPE>PRINTER</DEVICETYPE><INSTALLSIZE>12 MB</INSTALLSIZE><STARTAPP></STARTAPP><APPTYPE></APPTYPE><SecureCustomProperties>TARGET_DIR</SecureCustomProperties>\nstate\t0\t0\t0\t0\n' \
            "$number" "$number"
    done | iconv -f UTF-8 -t UTF-16LE > "$script"
}

# median COMMAND...: of the numbers that five runs print.
median() { for _ in 1 2 3 4 5; do "$@" < /dev/null 2> /dev/null | tr -d '\r'; done | sort -n | sed -n 3p; }

system() {
    need_packages time
    build windows Kestrune SystemBench EmptyDialog ScriptedBrevanto
    start_display
    local count library catalogue
    prefix=$wine_home/bench
    wine_new_prefix "$prefix"
    trap 'wine_stop "$prefix"; kill $display_process 2> /dev/null || true' EXIT
    for count in 10 100 1000; do
        make_tree "$prefix/drive_c/Tree" "$count"
        cd "$prefix/drive_c/Tree/Setup/x64"
        library=$(median wine SystemBench.exe library)
        catalogue=$(median wine SystemBench.exe catalogue)
        cd "$root"
        echo "$count packages: the library's calls and the listing $library us, the catalogue build $catalogue us"
    done
    # The same over real packages, which the stand-in library opens by Windows Installer.
    scripts/build-package.sh build/windows > /dev/null
    cp -r out/package "$prefix/drive_c/Package"
    cp build/windows/tests/bench/SystemBench.exe "$prefix/drive_c/Package/Setup/x64/"
    cd "$prefix/drive_c/Package/Setup/x64"
    echo "the sample package: the library's calls and the listing $(median wine SystemBench.exe library) us," \
        "the catalogue build $(median wine SystemBench.exe catalogue) us"
    cd "$root"
    make_tree "$prefix/drive_c/Tree" 100
    cd "$prefix/drive_c/Tree/Setup/x64"
    for count in 10 1000 10000; do
        echo "the list of $count devices, microseconds: $(wine SystemBench.exe list $count < /dev/null | tr -d '\r')"
    done
    echo "one log record, microseconds: $(wine SystemBench.exe log < /dev/null | tr -d '\r')"
    command time -f 'a silent run on 100 packages: %e s, peak memory %M KB' timeout 60 wine Kestrune.exe < /dev/null
    cd "$root"
    sed -i 's#<SILENT_INSTALL>true#<SILENT_INSTALL>false#' "$prefix/drive_c/Tree/Setup/defaultInstallSettings.xml"
    cp build/windows/tests/bench/EmptyDialog.exe "$prefix/drive_c/Tree/Setup/x64/"
    rm "$prefix/drive_c/Tree/Applications/x64/"*
    cd "$prefix/drive_c/Tree/Setup/x64"
    echo "start to the first page, no packages: $(median timeout 60 wine SystemBench.exe start Kestrune.exe) us," \
        "an empty dialog: $(median timeout 60 wine SystemBench.exe start EmptyDialog.exe) us"
    cd "$root"
    echo "the program: $(stat -c %s build/windows/Kestrune.exe) bytes"
}

for what in "${@:-logic system}"; do
    for name in $what; do "$name"; done
done
