"""SNMP of versions 1 and 2c, as far as the tests' responders and the waiting for devices need it."""
import dataclasses
import random

GET, GET_NEXT, RESPONSE, GET_BULK = 0xA0, 0xA1, 0xA2, 0xA5
INTEGER, OCTETS, NULL, OBJECT, SEQUENCE = 2, 4, 5, 6, 0x30
NO_SUCH_OBJECT, END_OF_VIEW = 0x80, 0x82
NO_SUCH_NAME, GENERAL_ERROR = 2, 5


def element(tag, content):
    size = len(content)
    if size < 128:
        return bytes([tag, size]) + content
    encoded = size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag, 128 + len(encoded)]) + encoded + content


def integer(value):
    return element(INTEGER, value.to_bytes(value.bit_length() // 8 + 1, "big", signed=True))


def object_id(numbers):
    content = bytearray([numbers[0] * 40 + numbers[1]])
    for number in numbers[2:]:
        digits = [number & 127]
        while number := number >> 7:
            digits.append(128 | number & 127)
        content += bytes(reversed(digits))
    return element(OBJECT, bytes(content))


def numbers(text):
    return tuple(int(number) for number in text.split("."))


def value(kind, content):
    """Encodes a value of the lists in devices.py."""
    if kind == "integer":
        return integer(content)
    if kind == "object_id":
        return object_id(numbers(content))
    return element(OCTETS, content if isinstance(content, bytes) else content.encode())


class Reader:
    """Reads elements one after another; raises ValueError at what is none."""

    def __init__(self, data):
        self.data = data

    def take(self, tag=None):
        if len(self.data) < 2 or (tag is not None and self.data[0] != tag):
            raise ValueError("another element")
        found, size, start = self.data[0], self.data[1], 2
        if size > 127:
            start += size - 128
            size = int.from_bytes(self.data[2:start], "big")
        if start + size > len(self.data):
            raise ValueError("cut off")
        content, self.data = self.data[start:start + size], self.data[start + size:]
        return found, content

    def integer(self):
        return int.from_bytes(self.take(INTEGER)[1], "big", signed=True)


def read_object_id(content):
    if not content:
        raise ValueError("no object")
    result, number = [content[0] // 40, content[0] % 40], 0
    for byte in content[1:]:
        number = number << 7 | byte & 127
        if byte < 128:
            result.append(number)
            number = 0
    return tuple(result)


@dataclasses.dataclass
class Message:
    version: int
    community: bytes
    kind: int
    request: int
    # The status and the index of an error; in a question for many rows the rows that are not repeated, and repetitions.
    first: int
    second: int
    # (object, encoded value) each.
    bindings: list


def read(data):
    outer = Reader(Reader(data).take(SEQUENCE)[1])
    version, community = outer.integer(), outer.take(OCTETS)[1]
    kind, content = outer.take()
    inner = Reader(content)
    request, first, second = inner.integer(), inner.integer(), inner.integer()
    rows, bindings = Reader(inner.take(SEQUENCE)[1]), []
    while rows.data:
        row = Reader(rows.take(SEQUENCE)[1])
        bindings.append((read_object_id(row.take(OBJECT)[1]), row.data))
    return Message(version, community, kind, request, first, second, bindings)


def write(message):
    rows = b"".join(element(SEQUENCE, object_id(name) + content) for name, content in message.bindings)
    body = integer(message.request) + integer(message.first) + integer(message.second) + element(SEQUENCE, rows)
    return element(SEQUENCE, integer(message.version) + element(OCTETS, message.community) + element(message.kind, body))


def question(*names, kind=GET, version=0):
    bindings = [(numbers(name), element(NULL, b"")) for name in names]
    return Message(version, b"public", kind, random.randrange(1, 1 << 31), 0, 0, bindings)
