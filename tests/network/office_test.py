#!/usr/bin/env python3
"""The office's devices as programs see them that nobody here wrote. Runs in the network "office", with a browser."""
import os
import pathlib
import re
import socket
import subprocess
import unittest

import asking
import daemons
import devices
import waiting

OFFICE = devices.read("office")
ANNOUNCED = [device for device in OFFICE if "dns-sd" in device.answers]
AGENTS = [device for device in OFFICE if "snmp" in device.answers]


def browse(service):
    """Returns the text records that avahi finds for a service, by host."""
    found = {}
    for line in asking.run("avahi-browse", "-prt", service).splitlines():
        fields = line.split(";")
        if fields[0] == "=":
            found[fields[6].removesuffix(".local")] = dict(re.findall(r'"([^"=]+)=([^"]*)"', ";".join(fields[9:])))
    return found


def ask_agent(program, device, name):
    """Returns what net-snmp says of the values of a name, without quotes."""
    address = f"udp6:[{device.address}]" if device.ipv6 else device.address
    text = asking.run(program, "-v2c", "-c", "public", "-On", "-Oqv", address, name)
    return [line.strip().strip('"') for line in text.splitlines()]


class OfficeTest(unittest.TestCase):
    def test_holds_eight_devices_of_each_kind_and_two_without_version_4(self):
        kinds = [tuple(device.answers) for device in OFFICE]
        self.assertEqual([8, 8, 8], [kinds.count(kind) for kind in (("dns-sd",), ("snmp",), ("dns-sd", "snmp"))])
        self.assertEqual(2, sum(device.ipv6 for device in OFFICE))

    def test_avahi_finds_those_that_announce_themselves_and_no_others(self):
        for service in "_ipp._tcp", "_pdl-datastream._tcp":
            self.assertEqual({device.host.lower() for device in ANNOUNCED}, set(browse(service)))

    def test_announcements_tell_model_colour_fax_and_scan(self):
        found = browse("_pdl-datastream._tcp")
        flag = {"T": True, "F": False}
        for device in ANNOUNCED:
            record = found[device.host.lower()]
            told = (record["usb_MFG"], record["usb_MDL"], flag[record["Color"]], flag[record["Fax"]], flag[record["Scan"]])
            self.assertEqual((device.maker, device.model, device.colour, device.fax, device.scan), told)

    def test_the_printers_own_announcements_tell_model_and_colour(self):
        found = browse("_ipp._tcp")
        for device in ANNOUNCED:
            record = found[device.host.lower()]
            self.assertEqual((f"{device.maker} {device.model}", device.colour), (record["ty"], record["Color"] == "T"))

    def test_agents_tell_their_names_and_identities(self):
        for device in AGENTS:
            told = [ask_agent("snmpget", device, name)[0] for name in
                    (waiting.SYSTEM_NAME, f"{devices.DEVICES}.2.1.3.1", f"{devices.PORT_MONITOR}.3.1")]
            self.assertEqual([device.host, f"{device.maker} {device.model}", devices.identity(device)], told)

    def test_agents_list_a_colorant_for_each_colour(self):
        for device in AGENTS:
            expected = ["black", "cyan", "magenta", "yellow"] if device.colour else ["black"]
            self.assertEqual(expected, ask_agent("snmpwalk", device, f"{devices.COLORANTS}.4"))

    def test_agents_with_a_fax_list_its_modem(self):
        for device in AGENTS:
            kinds = ask_agent("snmpwalk", device, f"{devices.DEVICES}.2.1.2")
            self.assertEqual(device.fax, f".{devices.DEVICES}.1.14" in kinds)

    def test_agents_tell_the_hardware_address_of_the_cable(self):
        for device in AGENTS:
            told = ask_agent("snmpwalk", device, f"{devices.INTERFACE}.6")[-1]
            self.assertEqual(device.mac, told.strip().lower().replace(" ", ":"))

    def test_devices_that_only_announce_themselves_have_no_agent(self):
        self.assertEqual(AGENTS, [device for device in OFFICE if not asking.has_no_agent(device.address)])

    def test_a_device_keeps_the_bytes_that_are_sent_to_its_port_for_jobs(self):
        job = bytes(range(256)) * 300
        with socket.create_connection((OFFICE[0].address, daemons.RAW_PORT)) as connection:
            connection.sendall(job)
        kept = pathlib.Path(os.environ["NETWORK_FOLDER"], "received", f"{OFFICE[0].host}-0.prn")
        asking.wait_until(kept.exists, "the job is kept")
        self.assertEqual(job, kept.read_bytes())

    def test_there_is_no_way_out(self):
        self.assertEqual(set(), {name for _, name in socket.if_nameindex() if not re.fullmatch(r"lo|lan0|cable\d+", name)})
        for address in "192.0.2.1", "2001:db8:1::1":
            way = subprocess.run(["ip", "route", "get", address], capture_output=True, text=True, check=False)
            self.assertIn("unreachable", way.stderr)


if __name__ == "__main__":
    unittest.main()
