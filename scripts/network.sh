# shellcheck shell=bash disable=SC2034,SC2154
# The simulated network of the tests and the demo. Sourced, after common.sh.

network_tools=$root/build/network/tools
network_packages=(avahi-daemon avahi-utils cups-ipp-utils dbus-daemon iproute2 nftables snmp snmpd)

# The codes of in_network.py where there is no network to run in.
network_no_namespace=77
network_not_laid_out=76

# Brings the programs that play the devices. They are unpacked and not installed, since these daemons must never run on
# the machine itself. Fails where Debian's packages cannot be reached.
prepare_network() {
    local lacking
    if [ ! -f "$network_tools/unpacked" ]; then
        lacking=$(lacking_packages "${network_packages[@]}" | sort) || {
            alone "$root/build/apt.lock" update_package_lists
            lacking=$(lacking_packages "${network_packages[@]}" | sort) || return 1
        }
        # shellcheck disable=SC2086
        [ -z "$lacking" ] || unpack_packages "$network_tools" $lacking || return 1
    fi
    NETWORK_LIBRARIES=$network_tools/usr/lib/x86_64-linux-gnu:$network_tools/lib/x86_64-linux-gnu
    export NETWORK_LIBRARIES PYTHONDONTWRITEBYTECODE=1
    export PATH=$network_tools/usr/sbin:$network_tools/usr/bin:$network_tools/sbin:$network_tools/bin:$PATH
}

# in_network [--loss PERCENT] [--browser] FORM COMMAND...: runs a command in a simulated network, after prepare_network.
in_network() { python3 tests/network/in_network.py "$@"; }

# network_prefix NAME: the Wine prefix of that name in this network. One that a server outside of it serves must not be used
# inside, since a prefix's server holds all its sockets.
network_prefix() { echo "$wine_home/${NETWORK_FOLDER:+simulated-}$1"; }

# network_windows NAME: a new Windows in this network, in $prefix, which stops with the script.
network_windows() {
    prefix=$(network_prefix "$1")
    wine_new_prefix "$prefix"
    trap 'wine_stop "$prefix"' EXIT
}

# network_tool PROGRAM ARGUMENTS...: runs one of the unpacked programs.
network_tool() { LD_LIBRARY_PATH=$NETWORK_LIBRARIES MIBS='' "$@"; }
