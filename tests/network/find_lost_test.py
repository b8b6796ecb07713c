#!/usr/bin/env python3
"""What the package's libraries find where every fifth packet is lost. Runs in the network "office" with a loss of 20."""
import unittest

import devices
import finding

OFFICE = devices.read("office")


class FindLostTest(unittest.TestCase):
    def test_finds_all_but_one_device_at_most(self):
        self.assertGreaterEqual(len(finding.search().devices), len(OFFICE) - 1)


if __name__ == "__main__":
    unittest.main()
