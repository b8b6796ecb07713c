#!/usr/bin/env python3
"""What the package's libraries find in the office of 24 devices. Runs in the network "office"."""
import unittest

import devices
import finding

OFFICE = devices.read("office")


def address_of(device):
    """The address as the libraries write it: one of version 6 without colons."""
    return device.address.replace(":", "-") + ".ipv6-literal.net" if device.ipv6 else device.address


def series_of(device, listed):
    """The model, with what tells the device from others of that model that are listed."""
    if [each.model for each in listed].count(device.model) == 1:
        return device.model
    return f"{device.model} ({device.host.lower() if 'dns-sd' in device.answers else address_of(device)})"


BY_ADDRESS = {address_of(device): device for device in OFFICE}


class FindOfficeTest(unittest.TestCase):
    def test_finds_every_device_once_and_knows_it(self):
        found = finding.search().devices
        self.assertEqual(sorted(BY_ADDRESS), sorted(each.address for each in found))
        for each in found:
            device = BY_ADDRESS[each.address]
            announced = "dns-sd" in device.answers
            expected = (series_of(device, OFFICE), f"{device.maker} {device.model}", "color" if device.colour else "mono", device.fax,
                        f"{device.host.lower()}.local" if announced else each.address)
            self.assertEqual(expected, (each.series, each.model, each.colour, each.fax, each.host))
            self.assertEqual(device.fax or (announced and device.scan), each.more)
            # The system's table of neighbours knows devices of version 4 alone.
            if not device.ipv6:
                self.assertEqual(device.mac.replace(":", "").upper(), each.mac)

    def test_asks_a_subnet_by_snmp_alone(self):
        found = finding.search(finding.subnet(devices.OFFICE)).devices
        expected = [device.address for device in OFFICE if "snmp" in device.answers and not device.ipv6]
        self.assertEqual(sorted(expected), sorted(each.address for each in found))

    def test_asks_one_host_by_its_address(self):
        for device in OFFICE[0], OFFICE[8], OFFICE[-1]:
            found = finding.search(finding.host(device.address)).devices
            self.assertEqual([(device.address, device.model, "color" if device.colour else "mono")],
                             [(each.address, each.series, each.colour) for each in found])

    def test_asks_one_host_by_the_name_that_it_announces(self):
        device = next(each for each in OFFICE if each.host == "hvl340c")
        found = finding.search(finding.host("HVL340C.local")).devices
        self.assertEqual([device.address], [each.address for each in found])

    def test_finds_nobody_where_nobody_is(self):
        for name in "198.51.100.200", "nobody.local", "nobody":
            self.assertEqual([], finding.search(finding.host(name)).devices)


if __name__ == "__main__":
    unittest.main()
