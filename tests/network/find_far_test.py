#!/usr/bin/env python3
"""What the package's libraries find in a subnet of 4,094 addresses. Runs in the network "wide"."""
import unittest

import devices
import finding

FAR = devices.far_devices()
# 4,094 questions and 200 devices; what is kept of each is some kilobytes at most.
MOST_KILOBYTES = 4096


class FindFarTest(unittest.TestCase):
    def test_finds_every_device_with_its_colour(self):
        found = finding.search(finding.subnet(devices.FAR))
        self.assertEqual({address: "color" if device.colour else "mono" for address, device in FAR.items()},
                         {each.address: each.colour for each in found.devices})
        self.assertLess(0, found.kilobytes)
        self.assertLessEqual(found.kilobytes, MOST_KILOBYTES)
        print(f"{len(found.devices)} devices of a /20 in {found.milliseconds} ms and {found.kilobytes} kB")


if __name__ == "__main__":
    unittest.main()
