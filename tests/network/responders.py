"""Answers to SNMP and multicast DNS for devices that no real program plays: many in one process, and those that lie."""
import bisect
import dataclasses
import socket
import struct
import time

import devices
import snmp

SNMP_PORT = 161
DNS_PORT = 5353
DNS_GROUP = "224.0.0.251"
# Longer than anybody has patience for one answer, shorter than a search.
SLOW_IN_SECONDS = 1.2
FLOOD = 2000
REPETITIONS = 50
# Linux's number; Python learns it in a later version.
IP_PKTINFO = 8


class Agent:
    """The MIBs of one device, and its answers."""

    def __init__(self, device):
        rows = devices.printer_mib(device) + devices.host_mib(device)
        self.values = {snmp.numbers(name): snmp.value(kind, content) for name, kind, content in rows}
        self.names = sorted(self.values)

    def next(self, name):
        place = bisect.bisect_right(self.names, name)
        return self.names[place] if place < len(self.names) else None

    def row(self, message, name):
        """Returns the row that answers for a name, without a value where there is none."""
        found = name if message.kind == snmp.GET else self.next(name)
        if found in self.values:
            return found, self.values[found]
        return name, b""

    def missing(self, message):
        return snmp.element(snmp.NO_SUCH_OBJECT if message.kind == snmp.GET else snmp.END_OF_VIEW, b"")

    def rows(self, message):
        names = [name for name, _ in message.bindings]
        if message.kind != snmp.GET_BULK:
            return [self.row(message, name) for name in names]
        result = [self.row(message, name) for name in names[:message.first]]
        rest = names[message.first:]
        for _ in range(min(message.second, REPETITIONS)):
            found = [self.row(message, name) for name in rest]
            result += found
            rest = [name for name, _ in found]
        return result

    def answer(self, message):
        reply = dataclasses.replace(message, kind=snmp.RESPONSE, first=0, second=0)
        rows = self.rows(message)
        absent = [place for place, (_, content) in enumerate(rows, 1) if not content]
        if absent and message.version == 0:
            return dataclasses.replace(reply, first=snmp.NO_SUCH_NAME, second=absent[0])
        reply.bindings = [(name, content or self.missing(message)) for name, content in rows]
        return reply


def circle(agent, message):
    """Every next object is one of two, for ever."""
    first, second = agent.names[0], agent.names[1]
    found = [first if name == second else second for name, _ in message.bindings]
    return dataclasses.replace(message, kind=snmp.RESPONSE, first=0, second=0,
                               bindings=[(name, agent.values[name]) for name in found])


def asks_for_colour(message):
    colorants = snmp.numbers(devices.COLORANTS)
    return any(name[:len(colorants)] == colorants for name, _ in message.bindings)


class Responder:
    """Answers for one device. A lie changes what it sends, when, or from where."""

    def __init__(self, device):
        self.agent = Agent(device)
        self.lie = device.lie
        self.gone = False

    def packets(self, message):
        """Returns what is sent in answer to a question: (delay in seconds, from elsewhere, bytes) each."""
        honest = self.agent.answer(message)
        packet = snmp.write(honest)
        if self.lie == "vanishing":
            self.gone = self.gone or asks_for_colour(message)
            return [] if self.gone else [(0, False, packet)]
        if self.lie == "slow":
            return [(SLOW_IN_SECONDS, False, packet)]
        if self.lie == "error":
            failed = dataclasses.replace(honest, first=snmp.GENERAL_ERROR, second=1, bindings=message.bindings)
            return [(0, False, snmp.write(failed))]
        if self.lie == "wrong-id":
            return [(0, False, snmp.write(dataclasses.replace(honest, request=(message.request + 1) & 0x7FFFFFFF)))]
        if self.lie == "elsewhere":
            return [(0, True, packet)]
        if self.lie == "circle" and message.kind != snmp.GET:
            return [(0, False, snmp.write(circle(self.agent, message)))]
        if self.lie == "truncated":
            return [(0, False, packet[:len(packet) * 2 // 3])]
        if self.lie == "length":
            return [(0, False, bytes([packet[0], 0x84, 0xFF, 0xFF, 0xFF, 0xFF]) + packet[2:])]
        if self.lie == "flood":
            return [(0, False, packet)] * FLOOD
        return [(0, False, packet)]


def read_question(data):
    """Returns a question as a message, or None for what is none."""
    try:
        message = snmp.read(data)
    except (ValueError, IndexError):
        return None
    return message if message.community == b"public" and message.kind in (snmp.GET, snmp.GET_NEXT, snmp.GET_BULK) else None


def receive(listener):
    """Returns a datagram, its sender and the address that it was sent to."""
    data, ancillary, _, sender = listener.recvmsg(65535, socket.CMSG_SPACE(12))
    for level, kind, content in ancillary:
        if level == socket.IPPROTO_IP and kind == IP_PKTINFO:
            return data, sender, socket.inet_ntoa(content[8:12])
    return data, sender, ""


def send_from(listener, address, packet, receiver):
    source = struct.pack("=I4s4s", 0, socket.inet_aton(address), bytes(4))
    try:
        listener.sendmsg([packet], [(socket.IPPROTO_IP, IP_PKTINFO, source)], 0, receiver)
    except OSError:
        # Whoever asked may have gone.
        pass


def serve_snmp(by_address, broadcast, elsewhere, ready):
    """Answers for devices by their addresses, for all of them where the question was sent to everybody; does not return."""
    responders = {address: Responder(device) for address, device in by_address.items()}
    listener = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    listener.setsockopt(socket.IPPROTO_IP, IP_PKTINFO, 1)
    listener.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4 << 20)
    listener.bind(("", SNMP_PORT))
    ready()
    late = []
    while True:
        listener.settimeout(max(0.001, late[0][0] - time.monotonic()) if late else None)
        try:
            data, sender, address = receive(listener)
            message = read_question(data)
        except TimeoutError:
            message = None
        if message is not None:
            asked = list(responders) if address == broadcast else [address] if address in responders else []
            for own in asked:
                for delay, other, packet in responders[own].packets(message):
                    late.append((time.monotonic() + delay, elsewhere if other else own, packet, sender))
            late.sort(key=lambda entry: entry[0])
        while late and late[0][0] <= time.monotonic():
            _, source, packet, receiver = late.pop(0)
            send_from(listener, source, packet, receiver)


def dns_name(text):
    return b"".join(bytes([len(label)]) + label.encode() for label in text.split(".")) + b"\0"


def dns_question(service):
    """Asks for the instances of a service."""
    return struct.pack(">HHHHHH", 1, 0, 1, 0, 0, 0) + dns_name(service) + struct.pack(">HH", 12, 1)


def dns_answer(data, records, count):
    """An answer to the question in a datagram, with records that are taken as they come."""
    return data[:2] + struct.pack(">HHHHH", 0x8400, 0, count, 0, 0) + records


def dns_lie(lie, data):
    """Returns the datagrams that a lying device sends in answer to a question."""
    service = dns_name("_ipp._tcp.local")
    head = struct.pack(">HHI", 12, 1, 120)
    if lie == "dns-loop":
        # The name of the instance points at itself, and then two names at one another.
        place = 0xC000 | 12 + len(service) + len(head) + 2
        itself = service + head + struct.pack(">HH", 2, place)
        pair = service + head + struct.pack(">HHH", 4, place + 2, place)
        return [dns_answer(data, itself, 1), dns_answer(data, pair, 1)]
    if lie == "dns-cut":
        whole = service + head + struct.pack(">H", 200) + b"\x3fcut"
        return [dns_answer(data, whole[:size], 40) for size in range(len(whole) + 1)]
    flood = b"".join(service + head + struct.pack(">H", 8 + len(service)) + b"\x07" + f"x{number:06d}".encode() + service
                     for number in range(20))
    return [dns_answer(data, flood, 20)] * (FLOOD // 20)


def serve_dns(lie, address, ready):
    """Answers questions of multicast DNS with lies; does not return."""
    listener = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    listener.bind(("", DNS_PORT))
    group = socket.inet_aton(DNS_GROUP) + socket.inet_aton(address)
    listener.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP, group)
    ready()
    while True:
        data, sender = listener.recvfrom(9000)
        if len(data) < 12 or data[2] & 0x80:
            continue
        for packet in dns_lie(lie, data):
            try:
                listener.sendto(packet, sender)
            except OSError:
                # Whoever asked may have gone.
                pass
