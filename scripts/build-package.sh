#!/usr/bin/env bash
# Lays the sample package out: the program, its library, settings, texts, and real packages built from their list.
#
# usage: scripts/build-package.sh [--silent] [--scripted] BUILD_FOLDER
#
# With --scripted the devices of the network are played from a list; without it the package searches the real network.
# The interactive package goes to out/package, the silent one, which installs a predefined list of printers, to
# out/package-silent. What has not changed is not built again. The program itself is copied if it is built.
set -euo pipefail
source "$(dirname "$0")/common.sh"

variant=interactive
target=$root/out/package
network=real
while [[ ${1:-} = --* ]]; do
    case $1 in
        --silent)
            variant=silent
            target=$root/out/package-silent
            ;;
        --scripted) network=scripted ;;
        *) break ;;
    esac
    shift
done
if [ $# -ne 1 ] || [ ! -f "$1/CMakeCache.txt" ]; then
    sed -n 's/^# \(usage: .*\)/\1/p' "$0" >&2
    exit 2
fi
build=$(cd "$1" && pwd)
sources=$root/package
tree=$target.new

# Suites that run beside each other lay the same package out.
exec 8> "$build/sample-package.lock"
flock 8

programs=(Brevanto PrinterQueue Sondrix Quelmar ScriptedSondrix ScriptedQuelmar sample_programs)
alone "$build.lock" cmake --build "$build" --target "${programs[@]}" > "$build/sample-package.log" || {
    cat "$build/sample-package.log" >&2
    exit 1
}

rm -rf "$tree"
for folder in Applications{,/x86_x64,/x64} {Common,Optional,Dependents,Drivers}/{x86_x64,x64} \
              DotNet Install Notices/EULA Setup/x64 Setup/res; do
    mkdir -p "$tree/$folder"
done

"$sources/make_packages.py" "$sources/packages/packages.toml" "$build/package/packages" "$build/package" \
    "$build/standins/PrinterQueue" --tree "$tree"

# code_page LANGUAGE: the one that the language file of the language names.
code_page() { sed -n 's:.*<CODE_PAGE>\(.*\)</CODE_PAGE>.*:\1:p' "$sources/strings/$1_strings.xml"; }

# The licence texts are kept in UTF-8 and shipped in the code page that the language file of their language names.
for text in "$sources"/eula/EULA_*.txt; do
    language=$(basename "$text" .txt)
    language=${language#EULA_}
    sed 's/$/\r/' "$text" | iconv -f UTF-8 -t "CP$(code_page "$language")" >"$tree/Notices/EULA/EULA_$language.txt"
done

cp -p "$sources"/settings/interactive/*.xml "$tree/Setup/"
if [ "$variant" = silent ]; then cp -p "$sources"/settings/silent/*.xml "$tree/Setup/"; fi
cp -p "$sources"/strings/*_strings.xml "$tree/Setup/res/"
"$root/scripts/make-pictures.sh" "$build/package/images"
cp -rp "$build/package/images" "$tree/Setup/res/"
# The licence of the font that the program holds.
cp -p /usr/share/doc/fonts-noto-core/copyright "$tree/Notices/Velmora.txt"

# The help of each language, compiled where its sources have changed. The pages say that they are in UTF-8; the viewer takes
# the contents and the title to be in the code page of the language, so they are kept in UTF-8 and converted.
for help in "$sources"/help/*/; do
    language=$(basename "$help")
    compiled=$build/package/help/$language
    if [ ! -f "$compiled/install.chm" ] || [ -n "$(find "$help" "$sources/help/style.css" -newer "$compiled/install.chm")" ] ||
        [ "$root/scripts/relative-topics.py" -nt "$compiled/install.chm" ]; then
        mkdir -p "$compiled"
        cp "$sources/help/style.css" "$help"*.html "$compiled/"
        for text in install.hhc install.hhp; do
            iconv -f UTF-8 -t "CP$(code_page "$language")" "$help$text" > "$compiled/$text"
        done
        (cd "$compiled" && chmcmd install.hhp) > "$build/help.log" 2>&1 || { cat "$build/help.log" >&2; exit 1; }
        "$root/scripts/relative-topics.py" "$compiled/install.chm"
    fi
    mkdir -p "$tree/Setup/$language"
    cp -p "$compiled/install.chm" "$tree/Setup/$language/"
done
cp -p "$build/package/StartRecorder.exe" "$tree/DotNet/RuntimeSetup.exe"
cp -p "$build/standins/Brevanto.dll" "$tree/Setup/x64/"
if [ "$network" = scripted ]; then
    cp -p "$build"/tests/fakes/complete/{Sondrix,Quelmar}.dll "$tree/Setup/x64/"
    "$sources/network/make_network.py" "$sources/network/devices.toml" "$tree/Setup/x64/Network.script"
else
    cp -p "$build"/standins/{Sondrix,Quelmar}.dll "$sources/network/OemBytes.txt" "$tree/Setup/x64/"
fi
program=$(find "$build" -maxdepth 2 -name Kestrune.exe -print -quit)
if [ -n "$program" ]; then
    cp -p "$program" "$tree/Setup/x64/"
else
    echo "build-package.sh: $build holds no Kestrune.exe; the package is laid out without it" >&2
fi
if [ -f "$build/Rollout.exe" ]; then cp -p "$build/Rollout.exe" "$tree/Setup/x64/"; fi

# Others may be reading it.
if diff -rq "$tree" "$target" > /dev/null 2>&1; then
    rm -rf "$tree"
else
    rm -rf "$target"
    mv "$tree" "$target"
fi
echo "$variant package, $network network: ${target#"$root"/}"
