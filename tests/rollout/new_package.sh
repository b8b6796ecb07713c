#!/usr/bin/env bash
# The package that PackageCheck lays out: it is made, built and checked, and its silent variant is installed on a fresh
# Windows, as Rollout judges and as the system lists it, and removed again.
#
# usage: tests/rollout/new_package.sh BUILD_FOLDER
set -euo pipefail
source "$(dirname "$0")/../../scripts/common.sh"
source scripts/wine.sh

need_packages clang libclang-rt-14-dev llvm wixl msitools
build native PackageCheck
scripts/build-package.sh "$1" > /dev/null

new=$root/build/new-package
prefix=$wine_home/new-package
package=$prefix/drive_c/Package
vendor='Your Company'
rm -rf "$new"
build/native/PackageCheck --new "$new"
"$new/build.sh" --silent out/package
for variant in package package-silent; do
    build/native/PackageCheck "$new/$variant" || { echo "$variant is not clean."; exit 1; }
done

# expect WHAT COMMAND...: the command must succeed.
expect() {
    local what=$1
    shift
    "$@" || {
        echo "The new package: $what"
        exit 1
    }
}
products() { wine uninstaller --list < /dev/null | tr -d '\r'; }
has_product() { products | grep -qF "$1"; }
rollout() { (cd "$package/Setup/x64" && timeout 300 wine Rollout.exe "$@" < /dev/null); }
is_logged() { iconv -f UTF-16LE "$prefix/drive_c/ProgramData/$vendor Install Logs/Basic.log" | grep -qF "$1"; }

wine_new_prefix "$prefix"
start_display
trap 'wine_stop "$prefix"; kill $display_process 2> /dev/null || true' EXIT
cp -r "$new/package-silent" "$package"
files="$prefix/drive_c/Program Files/$vendor"
expect 'the roll-out does not end with 0' rollout
for product in 'Your Application' 'Your Printer Driver'; do expect "$product is not installed" has_product "$product"; done
expect 'the application is not where it belongs' test -f "$files/Application/application.txt"
expect 'the driver is not where it belongs' test -f "$files/Driver/driver.txt"
expect 'the log has no end' is_logged 'Installation is Finished'
expect 'the removal does not end with 0' rollout --uninstall
for product in 'Your Application' 'Your Printer Driver'; do
    ! has_product "$product" || { echo "The new package: $product is still installed"; exit 1; }
done
echo 'The new package is built, clean, installed and removed.'
