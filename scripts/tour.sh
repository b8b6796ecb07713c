#!/usr/bin/env bash
# Walks the shown wizard on the sample package by itself, page by page, and leaves a picture of each.
#
# usage: scripts/tour.sh PICTURES [LANGUAGE [DPI]]
#
# Run from demo, on a display and in the network of its choice; the program and the interactive package are built already.
# The settings are those of the sample, with several brands, the page for the connection and a restart switched on.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source scripts/wine.sh
source scripts/network.sh
stay_on_processor 0

pictures=$(mkdir -p "$1" && cd "$1" && pwd)
language=${2:-en}
dpi=${3:-96}
prefix=$(network_prefix tour)
package=$prefix/drive_c/Package
settings=$package/Setup/defaultInstallSettings.xml

# id NAME: the number of a control, as the program's resources define it.
id() {
    case $1 in
        IDOK) echo 1 ;;
        IDCANCEL) echo 2 ;;
        *) sed -n "s/^#define $1 //p" resources/resource.h | grep . ;;
    esac
}

# remote VERB [CONTROL [ARGUMENT]]: lets WizardRemote do it; a control is named as in the program's resources.
remote() {
    local verb=$1 control=()
    shift
    [ $# = 0 ] || control=("$(id "$1")") || return 1
    timeout 90 wine "$package/Setup/x64/WizardRemote.exe" "$verb" "${control[@]}" "${@:2}" < /dev/null
}

# page NAME WORDS: takes the picture of the wizard's windows, and says what was done there.
page() {
    sleep "${3:-0.5}"
    remote place > "$prefix/place"
    import -window root -crop "$(tr -d '\r' < "$prefix/place")" +repage "$pictures/$1.png"
    echo "$1: $2"
}

add_setting() { sed -i "s#</SETTINGS>#  <$1>$2</$1>\n</SETTINGS>#" "$settings"; }

start_wizard() {
    (cd "$package/Setup/x64" && timeout 300 wine Kestrune.exe "-lang=$language" < /dev/null > /dev/null 2>&1) &
    wizard=$!
}

first_walk() {
    start_wizard
    remote wait IDC_START_TITLE && page 01-start 'read the welcome, press Install'
    remote click IDOK
    remote wait IDC_LICENCE_TEXT && page 02-licence 'Agree waits for the end of the text'
    remote scroll IDC_LICENCE_TEXT
    remote wait IDC_LICENCE_SCROLL_HINT && page 03-licence-end 'scrolled to the end, press Agree'
    remote click IDOK
    remote wait IDC_MANUFACTURER_LIST && page 04-manufacturer 'a brand is proposed, press Next'
    remote click IDOK
    remote wait IDC_CONNECTIVITY_NETWORK && page 05-connectivity 'choose USB, press Next'
    remote click IDC_CONNECTIVITY_USB
    remote click IDOK
    remote wait IDC_PROGRESS_BAR && page 06-progress 'the packages are being installed' 0.1
    remote wait IDC_FINISH && page 07-finish 'see how it went, open the list'
    remote click IDC_FINISH_SOFTWARE_LIST_LINK
    remote wait IDC_STATUS_LIST && page 08-software-list 'each package with its outcome, press OK'
    remote click IDOK
    remote click IDC_FINISH
    remote wait IDC_REBOOT_NOW && page 09-restart 'restart later'
    remote click IDC_REBOOT_LATER
    remote click IDOK
    remote quit
    wait "$wizard"
}

second_walk() {
    sed -i 's#<REBOOT>true#<REBOOT>false#' "$settings"
    start_wizard
    remote click IDOK
    remote wait IDC_LICENCE_TEXT
    remote scroll IDC_LICENCE_TEXT
    remote click IDOK
    remote wait IDC_MANUFACTURER_LIST
    remote click IDOK
    remote wait IDC_BYPASS_REINSTALL && page 10-up-to-date 'a second run finds the drivers up to date'
    remote click IDC_BYPASS_SKIP
    remote wait IDC_FINISH && page 11-way-out 'skip, press Finish'
    remote click IDC_FINISH
    remote quit
    wait "$wizard"
}

# The package as it comes: the devices of the network, the search, the driver.
network_walk() {
    cp out/package/Setup/defaultInstallSettings.xml "$settings"
    start_wizard
    remote click IDOK
    remote wait IDC_LICENCE_TEXT
    remote scroll IDC_LICENCE_TEXT
    remote click IDOK
    remote click IDC_BYPASS_REINSTALL
    remote click IDOK
    remote wait IDC_DISCOVERY_LIST && page 12-searching 'the network is searched' 0.3
    remote rows IDC_DISCOVERY_LIST 4
    remote pick IDC_DISCOVERY_LIST 'Loom 3' && page 13-devices 'devices are found; one is picked, and a driver is proposed'
    remote click IDC_DISCOVERY_MODIFY_SEARCH
    remote wait IDC_MODIFY_SEARCH_LOCAL
    remote click IDC_MODIFY_SEARCH_BY_HOST && page 14-change-search 'the search can be changed'
    remote click IDCANCEL
    remote click IDOK
    remote wait IDC_FINISH && page 15-printer-installed 'the printer is installed, press Finish'
    remote click IDC_FINISH
    remote quit
    wait "$wizard"
}

# The printer of the last walk in the system's list, and a page printed to it. Wine hands a job for a port of the network to
# no monitor, so a program sends it to the device as the system's monitor would. The scripted devices take no jobs.
print_page() {
    local system=build/windows/tests/fakes/PrintSystem.exe line name port kept
    wine "$system" show < /dev/null > "$prefix/printers"
    sed -i 's/\r$//' "$prefix/printers"
    say 'Printers that Windows now lists'
    cat "$prefix/printers"
    line=$(grep -m1 -F ' | port ' "$prefix/printers") || return 1
    name=${line%% | port *}
    port=${line##* | port }
    port=${port%% | *}
    [ -n "${NETWORK_FOLDER:-}" ] || return 0
    wine reg add 'HKCU\Software\Wine\Printing\Spooler' /v "$port" /d "|exec bash -c 'cat > /dev/tcp/$port/9100'" /f > /dev/null
    wine "$system" print "$name" "A page for $name" < /dev/null
    say "What arrived at $port"
    for _ in {1..100}; do
        kept=$(find "$NETWORK_FOLDER/received" -name '*.prn' -print -quit)
        [ -z "$kept" ] || break
        sleep 0.1
    done
    echo "${kept##*/}: $(stat -c %s "$kept") bytes"
    head -c 200 "$kept"
    echo
}

wine_new_prefix "$prefix"
trap 'wine_stop "$prefix"' EXIT
add_title_fonts "$prefix"
add_letters "$prefix"
wine_add_printing
cp -r out/package "$package"
cp build/windows/WizardRemote.exe "$package/Setup/x64/"
add_setting MANUFACTURERS 'Halvenny:72|Norrlund:73|Veldt Office:74'
add_setting DEFAULT_MANUFACTURER Halvenny
add_setting AMAZON_SUPPORTED TRUE
add_setting REBOOT true
[ "$dpi" = 96 ] || wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f > /dev/null
first_walk
second_walk
network_walk
print_page
