#!/usr/bin/env bash
# Opens the page of PackageCheck --plan --html in a headless browser, for the sample package in both variants and for one
# whose names are long and hold code. The browser is Debian's chromium, in a network of its own that leads nowhere.
#
# usage: scripts/check-plan-page.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_packages chromium fonts-liberation python3
build native PackageCheck
for variant in '' --silent; do
    [ -d "out/package${variant/--/-}" ] || scripts/build-package.sh $variant build/windows
done

pages=$(mktemp -d)
trap 'rm -rf "$pages"' EXIT
hostile=$pages/package
cp -r out/package "$hostile"
# A page is written to the letter, whatever a name holds.
name='x<img src=http://192.0.2.9/a.png onerror=alert(1)><script>document.title=1</script>&amp;'
sed -i "s#<OEM>.*</OEM>#<OEM>${name//&/\\&}$(printf 'y%.0s' {1..200})</OEM>#" "$hostile/Setup/defaultInstallSettings.xml"
echo broken > "$hostile/Applications/x64/$(printf 'z%.0s' {1..200}).msi"
printf '<SETTINGS>\n<DEVICE><DRIVER_ID>HVMONO</DRIVER_ID><PRINTER_NAME>%s</PRINTER_NAME></DEVICE>\n</SETTINGS>\n' "$name" \
    > "$hostile/Setup/PackageUserSettings.xml"

build/native/PackageCheck --plan --html "$pages/sample.html" out/package > /dev/null
build/native/PackageCheck --plan --html "$pages/silent.html" -ip=192.0.2.7 out/package-silent > /dev/null
build/native/PackageCheck --plan --html "$pages/hostile.html" "$hostile" > /dev/null
alone=()
! unshare -rn true 2> /dev/null || alone=(unshare -rn)
"${alone[@]}" scripts/check-plan-page.py "$pages"/*.html
