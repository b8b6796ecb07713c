"""Asks the network as the wizard does, through the libraries of the package."""
import dataclasses
import os
import subprocess
import tempfile

LIMIT_IN_SECONDS = 90


@dataclasses.dataclass
class Found:
    """One device, as the program would show it."""
    address: str
    host: str
    model: str
    series: str
    mac: str
    colour: str
    fax: bool
    more: bool


@dataclasses.dataclass
class Search:
    """What came of a search, and what it added to the memory of the program."""
    code: int
    milliseconds: int
    kilobytes: int
    devices: list


def search(document=""):
    """Returns what AskNetwork.exe found for a search document."""
    # A file, since what Windows starts beside a program would keep a pipe open.
    with tempfile.TemporaryFile() as output:
        subprocess.run(["wine", os.environ["ASK_NETWORK"], document], stdin=subprocess.DEVNULL, stdout=output,
                       stderr=subprocess.DEVNULL, timeout=LIMIT_IN_SECONDS, check=False)
        output.seek(0)
        lines = [line.split("\t") for line in output.read().decode().splitlines()]
    head = next(fields for fields in lines if fields[0] == "search")
    before, after = next((fields[1:] for fields in lines if fields[0] == "memory"), (0, 0))
    devices = [Found(*fields[1:7], fields[7] == "fax", fields[8] == "multi-function")
               for fields in ([*line, "", ""] for line in lines if line[0] == "device")]
    return Search(int(head[1]), int(head[2]), int(after) - int(before), devices)


def subnet(network):
    return f"<RemoteSubnets>{network.network_address}:{network.netmask};</RemoteSubnets>"


def host(name):
    return f"<UnicastAddress>{name}</UnicastAddress>"
