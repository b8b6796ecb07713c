#!/usr/bin/env python3
"""Asks the simulated office by every program at hand, and prints side by side what each finds, as a table in Markdown.

usage: compare.py CUPS_BACKENDS [PROGRAM...]

Runs in the network "office", with a browser. PROGRAM is the command of AskNetwork.exe; it is asked last, three times: the
local subnet, the subnet by its address, and one host by its name.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import urllib.parse

import devices
import lan

LIMIT_IN_SECONDS = 60
OFFICE = devices.read("office")


def names(device):
    """The words by which a program may name a device in what it prints; each belongs to one device alone."""
    v6 = [str(device.address_v6), device.link_local]
    own = [f"{device.host.lower()}.local", device.instance, *v6]
    # A host's name for an address of version 6, as Windows writes it.
    own += [address.replace(":", "-") + ".ipv6-literal.net" for address in v6]
    return own if device.ipv6 else [*own, device.address]


def mentions(text, word):
    """Whether the text holds a word that does not go on, so that no address stands for a longer one."""
    place = text.find(word)
    while place >= 0:
        after = text[place + len(word):place + len(word) + 1]
        if not after.isalnum():
            return True
        place = text.find(word, place + 1)
    return False


def settings_of_cups(*addresses):
    """A folder of settings in which the SNMP backend finds where to ask."""
    folder = tempfile.mkdtemp(dir=os.environ["NETWORK_FOLDER"])
    pathlib.Path(folder, "snmp.conf").write_text("".join(f"Address {address}\n" for address in addresses) + "Community public\n")
    return {"CUPS_SERVERROOT": folder}


def run(command, settings=None):
    """Returns the lines that a program printed, without the escapes of its addresses, and the seconds that it took."""
    # A file, since what Windows starts beside a program would keep a pipe open.
    with tempfile.TemporaryFile() as output:
        start = time.monotonic()
        subprocess.run(command, env=lan.environment(**settings or {}), stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.DEVNULL,
                       timeout=LIMIT_IN_SECONDS, check=False)
        seconds = time.monotonic() - start
        output.seek(0)
        return [urllib.parse.unquote(line.decode(errors="replace")) for line in output.read().splitlines()], seconds


def found_by(lines):
    text = "\n".join(lines)
    return [device for device in OFFICE if any(mentions(text, name) for name in names(device))]


def count(found, *answers):
    return sum(device.answers == list(answers) for device in found)


def row(name, found, seconds, *more):
    cells = [name, count(found, "dns-sd"), count(found, "snmp"), count(found, "dns-sd", "snmp"),
             sum(device.ipv6 for device in found), f"{seconds:.2f} s", *more]
    return "| " + " | ".join(map(str, cells)) + " |"


def answers_of(lines):
    """What AskNetwork.exe says of each device: (device, colour, fax)."""
    result = []
    for fields in (line.split("\t") for line in lines):
        if fields[0] == "device":
            owner = next((device for device in OFFICE if fields[1] in names(device)), None)
            result.append((owner, fields[6], fields[7] == "fax"))
    return result


def own_row(name, command):
    lines, seconds = run(command)
    told = [entry for entry in answers_of(lines) if entry[0]]
    colours = sum(colour == ("color" if device.colour else "mono") for device, colour, _ in told)
    faxes = sum(fax == device.fax for device, _, fax in told)
    search = next((line.split("\t")[2] for line in lines if line.startswith("search")), "-")
    strange = len(answers_of(lines)) - len({entry[0].host for entry in told})
    own = f"{name} (search {search} ms)" + (f", {strange} entries too many" if strange else "")
    return row(own, [entry[0] for entry in told], seconds, f"{colours} of {len(told)}", f"{faxes} of {len(told)}")


def main(backends, program):
    print("| asked by | DNS-SD only (8) | SNMP only (8) | both (8) | of these by IPv6 alone (2) | time | colour right | fax right |")
    print("|---|---|---|---|---|---|---|---|")
    named = [device.address for device in OFFICE if not device.ipv6]
    others = [("ippfind", ["ippfind", "-T", "3"], None),
              ("avahi-browse", ["avahi-browse", "-prt", "_ipp._tcp"], None),
              ("CUPS, dnssd", [f"{backends}/dnssd"], None),
              ("CUPS, snmp by broadcast", [f"{backends}/snmp"], settings_of_cups("@LOCAL")),
              ("CUPS, snmp with all addresses named", [f"{backends}/snmp"], settings_of_cups(*named))]
    for name, command, settings in others:
        lines, seconds = run(command, settings)
        print(row(name, found_by(lines), seconds, "", ""), flush=True)
    if program:
        subnet = f"<RemoteSubnets>{devices.OFFICE.network_address}:{devices.OFFICE.netmask};</RemoteSubnets>"
        host = f"<UnicastAddress>{OFFICE[-1].host.lower()}.local</UnicastAddress>"
        for name, search in ("ours, local", ""), ("ours, subnet", subnet), ("ours, one host", host):
            print(own_row(name, [*program, search]), flush=True)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
