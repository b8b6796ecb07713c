#!/usr/bin/env python3
"""What the package's libraries make of devices that break the rules. Runs in the network "liars"."""
import unittest

import devices
import finding

LIARS = {device.host: device for device in devices.read("liars")}
# What they say holds no device: other numbers, other senders, packets cut off, names in loops.
NOBODY = ["error", "wrong-id", "elsewhere", "truncated", "length", "dns-loop"]


class FindLiarsTest(unittest.TestCase):
    def test_finds_the_honest_ones_and_ends(self):
        found = {each.address: each for each in finding.search().devices}
        for host in "honest", "broadcast", "flood":
            device = LIARS[host]
            self.assertIn(device.address, found, host)
            self.assertEqual(f"{device.maker} {device.model}", found[device.address].model)
        for host in NOBODY:
            self.assertNotIn(LIARS[host].address, found, host)
        self.assertEqual(len(found), len({each.address for each in found.values()}))

    def test_lists_a_device_that_vanishes_before_it_tells_its_colour(self):
        found = finding.search(finding.host(LIARS["vanishing"].address)).devices
        self.assertLessEqual(len(found), 1)

    def test_waits_for_a_slow_device_that_is_asked_by_itself(self):
        found = finding.search(finding.host(LIARS["slow"].address)).devices
        self.assertEqual([LIARS["slow"].address], [each.address for each in found])


if __name__ == "__main__":
    unittest.main()
