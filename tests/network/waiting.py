"""Waits until the devices answer, by asking them."""
import select
import socket
import time

import devices
import responders
import snmp

LIMIT_IN_SECONDS = 60
ROUND_IN_SECONDS = 0.2
SYSTEM_NAME = f"{devices.SYSTEM}.5.0"
SERVICES = ["_ipp._tcp.local", "_pdl-datastream._tcp.local"]
DNS_GROUP_V6 = "ff02::fb"


def sockets():
    """One socket for each version of the protocol, for multicast from the desk."""
    four, six = (socket.socket(family, socket.SOCK_DGRAM) for family in (socket.AF_INET, socket.AF_INET6))
    desk = socket.if_nametoindex("lan0")
    six.setsockopt(socket.IPPROTO_IPV6, socket.IPV6_MULTICAST_IF, desk)
    return four, six


def bare(address):
    return address.split("%")[0]


class Rounds:
    """Asks until nobody is missing."""

    def __init__(self):
        self.four, self.six = sockets()

    def repeat(self, ask, take, missing):
        """Calls `ask` each round and `take` for each answer until `missing` returns nothing."""
        end = time.monotonic() + LIMIT_IN_SECONDS
        while left := missing():
            if time.monotonic() > end:
                raise RuntimeError(f"no answer from {', '.join(map(str, left))}")
            ask()
            round_end = time.monotonic() + ROUND_IN_SECONDS
            while (rest := round_end - time.monotonic()) > 0 and missing():
                for ready in select.select([self.four, self.six], [], [], rest)[0]:
                    data, sender = ready.recvfrom(65535)
                    take(data, bare(sender[0]))

    def send(self, packet, address, port):
        try:
            (self.six if ":" in address else self.four).sendto(packet, (address, port))
        except OSError:
            # The agent has not opened its port yet.
            pass


def until_all_answer_snmp(addresses):
    rounds, silent = Rounds(), set(addresses)
    packet = snmp.write(snmp.question(SYSTEM_NAME))

    def ask():
        for address in silent:
            rounds.send(packet, address, responders.SNMP_PORT)

    rounds.repeat(ask, lambda _, sender: silent.discard(sender), lambda: silent)


def until_all_announce(announced):
    """Waits until each device is heard with the name of its instance for each service."""
    rounds = Rounds()
    by_address = {address: device for device in announced for address in
                  (device.address, str(device.address_v6), device.link_local)}
    silent = {(device.host, service) for device in announced for service in SERVICES}

    def ask():
        for service in sorted({service for _, service in silent}):
            for group in responders.DNS_GROUP, DNS_GROUP_V6:
                rounds.send(responders.dns_question(service), group, responders.DNS_PORT)

    def take(data, sender):
        device = by_address.get(sender)
        for service in SERVICES:
            if device and device.instance.encode() in data and responders.dns_name(service)[:-7] in data:
                silent.discard((device.host, service))

    rounds.repeat(ask, take, lambda: silent)


def until_all_answer(wanted):
    until_all_answer_snmp([device.address for device in wanted if "snmp" in device.answers])
    until_all_announce([device for device in wanted if "dns-sd" in device.answers])
