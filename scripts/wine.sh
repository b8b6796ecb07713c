# Windows for the tests and the demo: Wine prefixes below the build folder. Sourced, after common.sh.
#
# A prefix takes ten seconds to make, so one template is made per build folder, and each suite runs in a copy of
# it whose system files are hard links.

wine_home=$root/build/wine
wine_template=$wine_home/template

export WINEDEBUG=-all LANG=C.UTF-8 HOME=$wine_home/home
unset LC_ALL

# Ends the prefix's server and all its programs.
wine_stop() {
    WINEPREFIX=$1 wineserver -k 2> /dev/null || true
    WINEPREFIX=$1 wineserver -w 2> /dev/null || true
}

wine_make_template() { [ -f "$wine_template/ready" ] || alone "$wine_home/template.lock" make_template; }

make_template() {
    [ ! -f "$wine_template/ready" ] || return 0
    say "Making a Wine prefix"
    rm -rf "$wine_template"
    mkdir -p "$wine_template" "$HOME"
    export WINEPREFIX=$wine_template
    WINEDLLOVERRIDES='winemenubuilder.exe=d;mscoree=d;mshtml=d' wineboot -i > /dev/null 2>&1
    wine winecfg -v win10 > /dev/null 2>&1
    # A crash is to be an exit code and not a dialog that waits, and keys are to reach every window.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f > /dev/null
    wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d kestrune /f > /dev/null
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v kestrune /d 1400x1400 /f > /dev/null
    wineserver -k || true
    wineserver -w || true
    # The user's folders are links into the real home at first.
    local link
    find "$wine_template/drive_c/users" -type l | while read -r link; do
        rm "$link"
        mkdir "$link"
    done
    touch "$wine_template/ready"
}

# wine_new_prefix DIR: a fresh prefix from the template; its server stays up until wine_stop.
wine_new_prefix() {
    wine_make_template
    [ ! -d "$1" ] || wine_stop "$1"
    rm -rf "$1"
    mkdir -p "$1/drive_c"
    local entry
    for entry in "$wine_template"/drive_c/*; do
        case $entry in
            */windows) cp -al "$entry" "$1/drive_c/" ;;
            *) cp -a "$entry" "$1/drive_c/" ;;
        esac
    done
    # The server writes into its registry files in place, so they are real copies.
    cp -a "$wine_template"/dosdevices "$wine_template"/*.reg "$wine_template"/.update-timestamp "$1/"
    export WINEPREFIX=$1
    # The server outlives this shell and must not hold its output open.
    wineserver -p > /dev/null 2>&1 < /dev/null
}

# The processors that this script may use.
mapfile -t processors < <(taskset -cp $$ | sed 's/.*: //' | tr , '\n' |
    while IFS=- read -r first last; do seq "$first" "${last:-$first}"; done)

# stay_on_processor INDEX: keeps this shell, and what it starts from now on, to one of them, counted from the one that
# FIRST_PROCESSOR names where suites run beside each other. A program and the server of its prefix take turns thousands of
# times a second: on two processors each has to wake the other's up first, which costs a virtual machine more than all the
# rest.
stay_on_processor() {
    local index=$((($1 + ${FIRST_PROCESSOR:-0}) % ${#processors[@]}))
    taskset -cp "${processors[index]}" "$BASHPID" > /dev/null
}

# Brings the fonts that a Windows has and Wine lacks. Installed, they and what comes with them would change the size of
# every dialog, so they are unpacked.
prepare_fonts() { unpack_packages "$wine_home/fonts" fonts-dejavu-core fonts-droid-fallback fonts-lexi-gulim fonts-wine; }

# add_letters PREFIX: gives the prefix the letters of Chinese, Japanese and Korean for the pages, whose own font leaves
# them to the system. Before its first program that draws.
add_letters() {
    local fonts=$wine_home/fonts/usr/share/fonts/truetype
    [ -d "$fonts" ] || return 0
    cp "$fonts/droid/DroidSansFallbackFull.ttf" "$fonts/lexi/LexiGulim.ttf" "$1/drive_c/windows/Fonts/"
    wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink' /v Velmora /t REG_MULTI_SZ \
        /d 'DroidSansFallbackFull.ttf,Droid Sans Fallback\0LexiGulim.ttf,LexiGulim' /f > /dev/null
}

# add_title_fonts PREFIX: gives the title bars of a prefix their signs, and letters of every script.
add_title_fonts() {
    local fonts=$wine_home/fonts/usr/share
    [ -d "$fonts" ] || return 0
    cp "$fonts/wine/fonts/marlett.ttf" "$fonts/fonts/truetype/dejavu/DejaVuSans-Bold.ttf" "$1/drive_c/windows/Fonts/"
    # The structure that the system keeps a font in: eleven pixels high, bold, and its name in 32 characters.
    local face structure
    face=$(printf 'DejaVu Sans' | iconv -t UTF-16LE | od -An -tx1 | tr -d ' \n')
    structure=f5ffffff$(printf '0%.0s' {1..24})bc0200000000000000000000
    printf -v structure '%s%-128s' "$structure" "$face"
    wine reg add 'HKCU\Control Panel\Desktop\WindowMetrics' /v CaptionFont /t REG_BINARY /d "${structure// /0}" /f > /dev/null
}

# wine_add_printing: gives the prefix what printers are made of and Wine lacks, a driver of Windows and a monitor for TCP/IP
# ports. The program that does so is built already.
wine_add_printing() { timeout 60 wine "${BUILD_DIR:-build/windows}/tests/fakes/PrintSystem.exe" prepare < /dev/null; }

# Starts a virtual display for this shell and ends it with the shell. Windows has a desktop in every session, and
# without a display Wine creates no window at all.
start_display() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1400x1400x24 -nolisten tcp 3> "$number_file" > /dev/null 2>&1 < /dev/null &
    display_process=$!
    trap 'kill $display_process 2> /dev/null || true' EXIT
    until [ -s "$number_file" ]; do sleep 0.05; done
    export DISPLAY=:$(cat "$number_file")
    rm -f "$number_file"
}

# wine_tell_calls: prints the calls in which the threads of the prefix's programs are, without Wine's own services.
wine_tell_calls() {
    local services='(explorer|plugplay|rpcss|services|start|svchost|winedbg|winedevice)\.exe' process
    process=$(timeout 20 winedbg --command 'info process' < /dev/null 2>&1 | tr -d '\r' | grep -vE "$services" |
        sed -nE 's/^[ =>]([0-9a-f]{8}) .*/0x\1/p' | head -1)
    # The debugger tells of all programs once it is bound to one.
    printf 'bt all\nquit\n' | timeout 60 winedbg "$process" 2>&1 | tr -d '\r' |
        awk -v services="$services" '/^Backtracing/ {is_told = $0 !~ services} is_told'
}

# run_within SECONDS COMMAND...: runs a command of the prefix. One that takes longer is ended, and the calls in which the
# threads of the prefix's programs are then stand in what it printed.
run_within() {
    local limit=$1 process
    shift
    "$@" &
    process=$!
    if ! timeout "$limit" tail --pid="$process" --sleep-interval=0.2 -f /dev/null; then
        echo "After $limit s the programs of the prefix are here:"
        wine_tell_calls
        kill "$process"
    fi
    wait "$process"
}

# run_to_its_end SECONDS COMMAND...: runs a GoogleTest program within that time and prints what it says. Fails also where the
# program did not come to its end: one that crashed under the debugger ends with the code 0.
run_to_its_end() {
    local log code
    log=$(mktemp "${SUITE_LOG:-/tmp/tests}.XXXXXX")
    run_within "$@" < /dev/null > "$log" 2>&1
    code=$?
    cat "$log"
    if ! grep -aq '^\[  PASSED  \]' "$log"; then
        echo "The tests did not come to their end."
        code=1
    fi
    rm -f "$log"
    return "$code"
}

# failed_tests LOG...: the tests that failed in runs of GoogleTest, divided by colons as a filter takes them. Nothing if
# one of the runs did not come to its end, for it has named no test.
failed_tests() {
    [ -z "$(grep -aL '^\[  PASSED  \]' "$@")" ] || return 0
    cat "$@" | tr -d '\r' | sed -n 's/^\[  FAILED  \] \([^ ,]*\).*ms)$/\1/p' | sort -u | paste -sd:
}
