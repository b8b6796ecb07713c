"""What the tests of the network ask with: SNMP by their own sockets, and programs that nobody here wrote."""
import socket
import subprocess
import time

import lan
import responders
import snmp

LIMIT_IN_SECONDS = 10


def run(*command):
    """Returns what a program says; its failure is the test's."""
    return subprocess.run(command, env=lan.environment(), text=True, capture_output=True, check=True).stdout


def open_socket(address):
    asker = socket.socket(socket.AF_INET6 if ":" in address else socket.AF_INET, socket.SOCK_DGRAM)
    asker.setsockopt(socket.SOL_SOCKET, socket.SO_BROADCAST, 1)
    return asker


def answers(asker, enough, quiet):
    """Yields (bytes, sender) until `enough` have come, or none has for `quiet` seconds."""
    asker.settimeout(quiet)
    for _ in range(enough):
        try:
            data, sender = asker.recvfrom(65535)
        except TimeoutError:
            return
        yield data, sender[0]


def ask(address, message, enough=1, quiet=LIMIT_IN_SECONDS):
    """Sends one question and returns its answers."""
    with open_socket(address) as asker:
        asker.sendto(snmp.write(message), (address, responders.SNMP_PORT))
        return list(answers(asker, enough, quiet))


def answer(address, *names, kind=snmp.GET, version=1):
    """Returns the answer to a question as a message."""
    return snmp.read(ask(address, snmp.question(*names, kind=kind, version=version))[0][0])


def is_silent(address, *names):
    return not ask(address, snmp.question(*names), quiet=0.5)


def has_no_agent(address):
    """Whether a host says that nobody listens there."""
    with open_socket(address) as asker:
        asker.connect((address, responders.SNMP_PORT))
        asker.settimeout(LIMIT_IN_SECONDS)
        asker.send(snmp.write(snmp.question("1.3")))
        try:
            asker.recv(65535)
        except ConnectionRefusedError:
            return True
        return False


def wait_until(condition, what, limit=LIMIT_IN_SECONDS):
    end = time.monotonic() + limit
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain until {what}")
        time.sleep(0.02)
