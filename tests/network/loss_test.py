#!/usr/bin/env python3
"""A network that loses every fifth packet at each of its ends. Runs in the network "few" with a loss of 20."""
import unittest

import asking
import devices
import responders
import snmp
import waiting

QUESTIONS = 1000


class LossTest(unittest.TestCase):
    def test_about_two_thirds_of_the_questions_are_answered(self):
        agent = next(device for device in devices.read("few") if "snmp" in device.answers)
        heard = 0
        with asking.open_socket(agent.address) as asker:
            for _ in range(QUESTIONS // 200):
                for _ in range(200):
                    asker.sendto(snmp.write(snmp.question(waiting.SYSTEM_NAME)), (agent.address, responders.SNMP_PORT))
                heard += len(list(asking.answers(asker, 200, 0.5)))
        self.assertGreater(heard, QUESTIONS * 0.5)
        self.assertLess(heard, QUESTIONS * 0.78)


if __name__ == "__main__":
    unittest.main()
