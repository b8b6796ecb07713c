#!/usr/bin/env python3
"""Writes the script of the sample's network from the list of its devices.

usage: make_network.py DEVICES OUTPUT

The script is UTF-16 text of one entry a line, its fields divided by tabs, as the scripted libraries read it.
"""
import struct
import sys
import tomllib

TAGS = {"address": "IPADDRESS", "host": "IPNAME", "mac": "MACUAA", "model": "1284STRID", "series": "SERIESSTRID"}
# One byte for ids, types and counts, two for lengths.
LAYOUT = b"P{ID:1,DT:1}P{NE:1,LD:2}P{LD:2}"
TREE_START = 38


def group(ident, *elements):
    content = b"".join(elements)
    return struct.pack(">BBBH", ident, 0, len(elements), len(content)) + content


def number(ident, value):
    return struct.pack(">BBHB", ident, 1, 1, value)


def text(ident, value):
    encoded = value.encode("utf-8")
    return struct.pack(">BBH", ident, 2, len(encoded)) + encoded


def packet(device):
    """What a device answers about itself, in an NPA packet."""
    fax = group(17, number(3, int(device.get("fax", False))))
    tree = group(1, group(1, group(2, text(1, device["model"])), group(3, fax)))
    block = (b"\0\0" + LAYOUT).ljust(TREE_START - 2, b"\0") + tree
    content = bytes(5) + struct.pack(">H", len(block)) + block
    return b"\xa5" + struct.pack(">H", len(content)) + content


def main(devices_path, output_path):
    with open(devices_path, "rb") as source:
        devices = tomllib.load(source)["device"]
    lines = [("discover", "pause", "1500")]
    for device in devices:
        values = [(tag, device[key]) for key, tag in TAGS.items()]
        if device.get("multi_function"):
            values.append(("aioModelName", device["model"]))
        lines.append(("document", "".join(f"<{tag}>{value}</{tag}>" for tag, value in values)))
        lines.append(("device", device["address"], "npa", packet(device).hex().upper()))
    # A device without a colour did not answer the question, and an address of version 6 is no key in a reply
    # that is divided at the colon.
    answers = (f"{device['address']}:{device['colour']};" for device in devices
               if device["colour"] and ":" not in device["address"])
    lines.append(("reply", "".join(answers)))
    with open(output_path, "w", encoding="utf-16-le", newline="\n") as script:
        script.writelines("\t".join(line) + "\n" for line in lines)


if __name__ == "__main__":
    main(*sys.argv[1:])
