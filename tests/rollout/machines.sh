#!/usr/bin/env bash
# Rolls one package out to many machines at the same time, each of them a Windows of its own, from one share that nobody
# may write to. The packages are real and go through the stand-in library; what came of it is checked by machines.py.
#
# usage: tests/rollout/machines.sh BUILD_FOLDER [COUNT]
set -uo pipefail
source "$(dirname "$0")/../../scripts/common.sh"
source scripts/wine.sh

build_folder=$(cd "$1" && pwd)
count=${2:-4}
home=$root/build/rollout
shares=$home/shares

# lay_out SHARE PACKAGE...: a package tree with these packages in the order of their names.
lay_out() {
    local tree=$shares/$1
    shift
    mkdir -p "$tree/Setup/x64" "$tree/Setup/res" "$tree/Applications"
    cp "$build_folder"/{Kestrune,Rollout}.exe "$build_folder/standins/Brevanto.dll" "$tree/Setup/x64/"
    echo '<OEM>Testwerk</OEM><SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>' \
        > "$tree/Setup/defaultInstallSettings.xml"
    printf '<LANGUAGE_ID>1033</LANGUAGE_ID>\n<ERROR_TITLE>Error</ERROR_TITLE>\n<ERROR_TEXT>It failed.</ERROR_TEXT>\n' \
        > "$tree/Setup/res/en_strings.xml"
    local package
    for package in "$@"; do cp "$build_folder/tests/windows/standins/packages/$package.msi" "$tree/Applications/"; done
}

# Root may write to files whatever their mode, so what is read-only is the mount, in a namespace of this script's own.
if [ -z "${KESTRUNE_READ_ONLY:-}" ]; then
    rm -rf "$home"
    lay_out plain minor-1.0 plain-1.0
    lay_out newer plain-2.0
    lay_out restart restart
    lay_out failing failing minor-1.0
    options=-m
    [ "$(id -u)" = 0 ] || options=-rm
    if unshare $options true 2> /dev/null; then
        KESTRUNE_READ_ONLY=yes exec unshare $options "$0" "$build_folder" "$count"
    fi
    echo "The shares can be written to here: no namespace is to be had."
    export KESTRUNE_READ_ONLY=no
fi
if [ "$KESTRUNE_READ_ONLY" = yes ]; then
    mount --bind "$shares" "$shares" && mount -o remount,bind,ro "$shares" || exit 1
    ! touch "$shares/written" 2> /dev/null || exit 1
fi

start_display
prefixes=()
for ((index = 1; index <= count; ++index)); do
    prefixes+=("$home/desk-$index")
    wine_new_prefix "$home/desk-$index"
done
timeout 900 python3 tests/rollout/machines.py "$shares" "$home/collected" "${prefixes[@]}"
code=$?
for prefix in "${prefixes[@]}"; do wine_stop "$prefix"; done
exit $code
