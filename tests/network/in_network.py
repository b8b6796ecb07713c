#!/usr/bin/env python3
"""Runs a command in a network of simulated printers that nobody else sees, and that is gone when the command has ended.

usage: in_network.py [--loss PERCENT] [--browser] FORM COMMAND...

FORM is "office" (24 printers in a /24), "few" (four of them), "wide" (200 in a /20 after a router) or "liars" (devices that
break the rules). --loss drops a share of the packets at each host that they reach. --browser starts avahi for the command
as well, as programs need it that ask through avahi.

The command finds the folder of the network in NETWORK_FOLDER: logs, and what was sent to the printers' ports for jobs
in received/HOST-0.prn and so on. The exit code is the command's; 77 where no namespace can be had, 76 where the
network could not be laid out, and nothing is left running in any case.
"""
import argparse
import ctypes
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

import daemons
import devices
import lan
import responders
import waiting

NO_NAMESPACE, NO_NETWORK = 77, 76
DESK = f"{devices.OFFICE[1]}/24"
DESK_V6 = f"{devices.OFFICE_V6[1]}/64"
ROUTER = devices.OFFICE[254]
BROADCAST = str(devices.OFFICE.broadcast_address)


def run_device(folder, device, port):
    """Returns what a device's host runs."""
    def body(ready):
        own = folder / device.host
        own.mkdir()
        lan.mount_tmpfs("/run")
        pathlib.Path("/run/avahi-daemon").mkdir()
        daemons.take_jobs(folder / "received" / device.host)
        if "snmp" in device.answers:
            daemons.start_agent(own, device)
        if "dns-sd" in device.answers:
            daemons.start_announced(own, device, port)
        if device.lie.startswith("dns-"):
            responders.serve_dns(device.lie, device.address, ready)
        if device.lie:
            elsewhere = str(devices.OFFICE[200 + device.index])
            broadcast = BROADCAST if device.lie == "broadcast" else None
            responders.serve_snmp({device.address: device}, broadcast, elsewhere, ready)
        ready()
    return body


def run_far_devices(ready):
    """The host that is the router and all the devices after it."""
    lan.batch([f"route add local {devices.FAR} dev lo"])
    responders.serve_snmp(devices.far_devices(), None, None, ready)


def addresses_of(device):
    own = [f"{device.address_v6}/64"]
    if not device.ipv6:
        own.append(f"{device.address}/24 brd +")
    if device.lie == "elsewhere":
        own.append(f"{devices.OFFICE[200 + device.index]}/24")
    return own


def make_hosts(form, folder):
    if form == "wide":
        return [lan.Host(1, "router", "02:00:5e:00:ff:fe", [f"{ROUTER}/24 brd +"], run_far_devices)]
    return [lan.Host(number, device.host, device.mac, addresses_of(device), run_device(folder, device, f"port{number}"))
            for number, device in enumerate(devices.read(form), 1)]


def lay_out(form, folder, loss):
    """Makes the network around this process, and returns when every device of the form answers."""
    lan.prepare_kernel()
    lan.batch(["link add name lan0 type bridge mcast_snooping 0", f"addr add {DESK} brd + dev lan0",
               f"addr add {DESK_V6} dev lan0", "link set dev lan0 up", "route add 224.0.0.0/4 dev lan0"])
    hosts = make_hosts(form, folder)
    for host in hosts:
        host.wait_for(b"away")
    lan.batch([line for host in hosts for line in host.cable])
    for host in hosts:
        host.start()
    for host in hosts:
        host.wait_for(b"ready")
    if form == "wide":
        lan.batch([f"route add {devices.FAR} via {ROUTER}"])
        waiting.until_all_answer_snmp(list(devices.far_devices()))
    else:
        waiting.until_all_answer(devices.read(form))
    lan.refuse_foreign_interfaces(["lan0"] + [f"cable{host.number}" for host in hosts])
    if loss:
        for process in [None] + [host.process for host in hosts]:
            lan.lose(loss, process)


def run_command(command, folder, browser):
    """Runs the command and returns its code. Whatever it leaves running ends with this process."""
    own = os.environ | {"NETWORK_FOLDER": str(folder)}
    own.pop("LD_LIBRARY_PATH", None)
    if browser:
        desk = folder / "desk"
        desk.mkdir()
        own["DBUS_SYSTEM_BUS_ADDRESS"] = daemons.start_avahi(desk, "desk", "lan0")
    return subprocess.run(command, env=own).returncode


def inside(options):
    """The part that runs in namespaces of its own, as the first process in them."""
    folder = pathlib.Path(options.inside)
    try:
        lan.refuse_namespace(options.away_from)
        lan.refuse_foreign_interfaces()
        lan.mount_tmpfs(folder)
        # Avahi knows one place for its number of the process.
        if options.browser:
            lan.mount_tmpfs("/run")
            pathlib.Path("/run/avahi-daemon").mkdir()
        (folder / "received").mkdir()
        daemons.add_avahi_user()
        lay_out(options.form, folder, options.loss)
    except (OSError, RuntimeError, subprocess.SubprocessError) as failure:
        print(f"in_network: the network could not be laid out: {failure}", file=sys.stderr)
        return NO_NETWORK
    code = run_command(options.command, folder, options.browser)
    return 128 - code if code < 0 else code


def namespace_command():
    """Returns the command that runs another one in namespaces of its own, or None where none can be had."""
    common = ["-n", "-m", "-p", "-f", "--kill-child", "--mount-proc"]
    for command in (["unshare", *common], ["unshare", "-r", *common]):
        result = subprocess.run([*command, "true"], capture_output=True, text=True)
        if result.returncode == 0:
            return command
    print(f"in_network: no network namespace can be had here: {result.stderr.strip()}", file=sys.stderr)
    return None


def end_with_parent(number):
    """Lets this process get a signal when the one that started it ends."""
    set_parent_death_signal = 1
    ctypes.CDLL(None).prctl(set_parent_death_signal, number)


def outside(options):
    command = namespace_command()
    if command is None:
        return NO_NAMESPACE
    folder = tempfile.mkdtemp(prefix="network-")
    own = [sys.executable, __file__, f"--inside={folder}", f"--away-from={lan.namespace()}", *sys.argv[1:]]
    process = subprocess.Popen([*command, *own], preexec_fn=lambda: end_with_parent(signal.SIGKILL))

    def end(number, _):
        process.kill()
        raise SystemExit(128 + number)

    for number in signal.SIGTERM, signal.SIGINT, signal.SIGHUP:
        signal.signal(number, end)
    end_with_parent(signal.SIGTERM)
    try:
        return process.wait()
    finally:
        process.wait()
        shutil.rmtree(folder)


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--inside", help=argparse.SUPPRESS)
    parser.add_argument("--away-from", help=argparse.SUPPRESS)
    parser.add_argument("--loss", type=int, default=0)
    parser.add_argument("--browser", action="store_true")
    parser.add_argument("form", choices=["office", "few", "wide", "liars"])
    parser.add_argument("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    return inside(options) if options.inside else outside(options)


if __name__ == "__main__":
    sys.exit(main())
