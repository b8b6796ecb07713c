#!/usr/bin/env python3
"""What each lying device sends. Runs in the network "liars"."""
import struct
import unittest

import asking
import devices
import in_network
import responders
import snmp
import waiting

LIARS = {device.host: device for device in devices.read("liars")}


def ask(host, *names, **more):
    return asking.ask(LIARS[host].address, snmp.question(*names or [waiting.SYSTEM_NAME]), **more)


def name_in(answers):
    return snmp.read(answers[0][0]).bindings[0][1][2:].decode()


class LiarsTest(unittest.TestCase):
    def test_the_honest_device_answers(self):
        self.assertEqual("honest", name_in(ask("honest")))

    def test_one_device_answers_a_broadcast(self):
        answers = asking.ask(in_network.BROADCAST, snmp.question(waiting.SYSTEM_NAME), enough=9, quiet=1)
        self.assertEqual([LIARS["broadcast"].address], [sender for _, sender in answers])

    def test_the_slow_device_is_late_and_right(self):
        self.assertEqual([], ask("slow", quiet=responders.SLOW_IN_SECONDS / 4))
        self.assertEqual("slow", name_in(ask("slow")))

    def test_the_failing_device_answers_with_an_error(self):
        self.assertEqual(snmp.GENERAL_ERROR, snmp.read(ask("error")[0][0]).first)

    def test_an_answer_carries_the_number_of_another_question(self):
        question = snmp.question(waiting.SYSTEM_NAME)
        answers = asking.ask(LIARS["wrong-id"].address, question)
        self.assertNotEqual(question.request, snmp.read(answers[0][0]).request)

    def test_an_answer_comes_from_another_address(self):
        self.assertNotEqual(LIARS["elsewhere"].address, ask("elsewhere")[0][1])

    def test_a_walk_goes_in_a_circle(self):
        name, seen = "1.3", set()
        for _ in range(20):
            found = asking.answer(LIARS["circle"].address, name, kind=snmp.GET_NEXT).bindings[0][0]
            seen.add(found)
            name = ".".join(map(str, found))
        self.assertEqual(2, len(seen))

    def test_an_answer_is_cut_off(self):
        for host in "truncated", "length":
            with self.assertRaisesRegex(ValueError, "cut off"):
                snmp.read(ask(host)[0][0])

    def test_an_answer_comes_again_and_again(self):
        self.assertGreater(len(ask("flood", enough=200, quiet=1)), 100)

    def test_a_device_vanishes_at_the_question_for_its_colour(self):
        self.assertEqual("vanishing", name_in(ask("vanishing")))
        address = LIARS["vanishing"].address
        self.assertTrue(asking.is_silent(address, f"{devices.COLORANTS}.4.1.1"))
        self.assertTrue(asking.is_silent(address, waiting.SYSTEM_NAME))

    def lies_of(self, host):
        with asking.open_socket("0.0.0.0") as asker:
            # Asked by itself, so that no answers of others fill the socket while the tests have to wait for a processor.
            asker.sendto(responders.dns_question("_ipp._tcp.local"), (LIARS[host].address, responders.DNS_PORT))
            return [data for data, _ in asking.answers(asker, 1000, 1)]

    def test_names_point_in_loops(self):
        itself, pair = self.lies_of("dns-loop")
        self.assertEqual(len(itself) - 2, struct.unpack(">H", itself[-2:])[0] & 0x3FFF)
        first, second = struct.unpack(">HH", pair[-4:])
        self.assertEqual((len(pair) - 2, len(pair) - 4), (first & 0x3FFF, second & 0x3FFF))

    def test_records_are_cut_at_each_byte(self):
        lengths = [len(data) for data in self.lies_of("dns-cut")]
        self.assertEqual(list(range(12, 12 + len(lengths))), lengths)
        self.assertGreater(len(lengths), 20)

    def test_announcements_come_again_and_again(self):
        self.assertGreater(len(self.lies_of("dns-flood")), 50)


if __name__ == "__main__":
    unittest.main()
