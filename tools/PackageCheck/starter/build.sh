#!/usr/bin/env bash
# Builds the .msi files of this package and lays it out, ready to be copied to a Windows machine.
#
# usage: ./build.sh [--silent] PROGRAM
#
# PROGRAM is the folder of a package that has the wizard already: its Setup/x64 and its pictures are taken. With --silent
# the package goes to "package-silent", and installs without a page.
set -euo pipefail

silent=
if [ "${1:-}" = --silent ]; then
    silent=yes
    shift
fi
if [ $# != 1 ] || [ ! -f "$1/Setup/x64/Kestrune.exe" ]; then
    sed -n 's/^# \(usage: .*\)/\1/p' "$0" >&2
    echo "PROGRAM must hold Setup/x64/Kestrune.exe." >&2
    exit 2
fi
program=$(cd "$1" && pwd)
cd "$(dirname "$0")"

# build SOURCE: makes the .msi file of a .wxs file. Its first comment says where in the package it goes.
build() {
    local name target secure
    name=$(basename "$1" .wxs)
    target=$(sed -n 's/^ *<!-- goes to: \(.*\) -->$/\1/p' "$1" | head -n 1)
    if [ -z "$target" ]; then
        echo "$1 has no line <!-- goes to: FOLDER -->." >&2
        exit 1
    fi
    # wixl knows no secure properties, so their lines are taken out and their names are written into the file.
    secure=$(sed -n 's/.*<Property Id="\([^"]*\)" Secure="yes".*/;\1/p' "$1" | tr -d '\n')
    grep -v 'Secure="yes"' "$1" > "sources/$name.unfinished.wxs"
    mkdir -p "package/$target"
    (cd sources && wixl -a x64 -o "../package/$target/$name.msi" "$name.unfinished.wxs")
    rm "sources/$name.unfinished.wxs"
    msibuild "package/$target/$name.msi" -q "UPDATE \`Property\` SET \`Value\`='WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED$secure' WHERE \`Property\`='SecureCustomProperties'"
    echo "package/$target/$name.msi"
}

for source in sources/*.wxs; do build "$source"; done
mkdir -p package/Setup/x64 package/Setup/res/images
cp -r "$program/Setup/x64/." package/Setup/x64/
cp -r "$program/Setup/res/images/." package/Setup/res/images/
if [ -n "$silent" ]; then
    rm -rf package-silent
    cp -r package package-silent
    cp silent/PackageUserSettings.xml package-silent/Setup/
fi
