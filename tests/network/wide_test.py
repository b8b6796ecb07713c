#!/usr/bin/env python3
"""The far subnet, with its devices in one process. Runs in the network "wide"."""
import unittest

import asking
import devices
import responders
import snmp
import waiting

FAR = devices.far_devices()


class WideTest(unittest.TestCase):
    def test_the_devices_answer_by_their_names_and_nobody_else_does(self):
        others = [str(devices.FAR[place]) for place in (1, 2, 6, 100, 2048, 4094)]
        with asking.open_socket("") as asker:
            for address in [*FAR, *others]:
                asker.sendto(snmp.write(snmp.question(waiting.SYSTEM_NAME)), (address, responders.SNMP_PORT))
            told = [(sender, snmp.read(data).bindings[0][1][2:].decode()) for data, sender in asking.answers(asker, 999, 1)]
        self.assertEqual(sorted((address, device.host) for address, device in FAR.items()), sorted(told))

    def test_the_devices_lie_in_all_of_the_subnet(self):
        self.assertEqual(200, len(FAR))
        self.assertEqual(16, len({address.split(".")[2] for address in FAR}))

    def test_a_walk_by_another_program_reads_every_row(self):
        address, device = list(FAR.items())[1]
        walks = [asking.run(program, version, "-c", "public", "-On", "-Oqv", address, devices.PORT_MONITOR).splitlines()
                 for program, version in (("snmpwalk", "-v1"), ("snmpwalk", "-v2c"), ("snmpbulkwalk", "-v2c"))]
        expected = [f'"{device.maker} {device.model}"', f'"{devices.identity(device)}"']
        self.assertEqual([expected] * 3, [[line for line in walk if line.startswith('"')] for walk in walks])


if __name__ == "__main__":
    unittest.main()
