"""The simulated devices: what the lists say of them, and what each holds in its MIBs."""
import dataclasses
import ipaddress
import pathlib
import tomllib

FOLDER = pathlib.Path(__file__).resolve().parent

OFFICE = ipaddress.ip_network("198.51.100.0/24")
OFFICE_V6 = ipaddress.ip_network("2001:db8:77::/64")
FIRST_HOST = 11
# A subnet that lies after a router, as it does where somebody names it. Its addresses are reserved for measuring.
FAR = ipaddress.ip_network("198.18.0.0/20")
FAR_COUNT = 200

PRINTER = "1.3.6.1.2.1.43"
DEVICES = "1.3.6.1.2.1.25.3"
INTERFACE = "1.3.6.1.2.1.2.2.1"
PORT_MONITOR = "1.3.6.1.4.1.2699.1.2.1.2.1.1"
COLORANTS = f"{PRINTER}.12.1.1"
SYSTEM = "1.3.6.1.2.1.1"


@dataclasses.dataclass
class Device:
    host: str
    maker: str
    model: str
    index: int
    answers: list = dataclasses.field(default_factory=list)
    colour: bool = False
    fax: bool = False
    scan: bool = False
    ipv6: bool = False
    service: str = ""
    few: bool = False
    lie: str = ""

    @property
    def instance(self):
        """The name under which it announces itself."""
        return self.service or f"{self.maker} {self.model} ({self.host})"

    @property
    def mac(self):
        return f"02:00:5e:00:{self.index >> 8:02x}:{self.index & 255:02x}"

    @property
    def address(self):
        """The address that is asked: of version 4 where it has one."""
        return str(self.address_v6 if self.ipv6 else OFFICE[FIRST_HOST + self.index])

    @property
    def address_v6(self):
        return OFFICE_V6[FIRST_HOST + self.index]

    @property
    def link_local(self):
        """The address that the system makes of the hardware's."""
        mac = bytes.fromhex(self.mac.replace(":", ""))
        return str(ipaddress.ip_address(b"\xfe\x80" + bytes(6) + bytes([mac[0] ^ 2]) + mac[1:3] + b"\xff\xfe" + mac[3:]))


def read(form):
    """Returns the devices of a form of the network: "office", "few" or "liars"."""
    name = "liars.toml" if form == "liars" else "devices.toml"
    with open(FOLDER / name, "rb") as source:
        devices = [Device(index=index, **entry) for index, entry in enumerate(tomllib.load(source)["device"])]
    return [device for device in devices if form != "few" or device.few]


def far_devices():
    """Returns the devices of the far subnet by their addresses, spread over all of it."""
    step = FAR.num_addresses // FAR_COUNT
    return {str(FAR[5 + number * step]): Device(host=f"far-{number}", maker="Halvenny", index=256 + number,
                                                model="Loom 340c" if number % 2 else "Loom 240", colour=number % 2 == 1)
            for number in range(FAR_COUNT)}


def identity(device):
    """The device's IEEE 1284 id."""
    kind = "PCL,PS" if device.colour else "PCL"
    return (f"MFG:{device.maker};CMD:{kind};MDL:{device.model};CLS:PRINTER;"
            f"DES:{device.maker} {device.model};SN:{device.host.upper()};")


def printer_mib(device):
    """What a printer adds to the MIBs of any host, as (object, type, value)."""
    rows = [(f"{DEVICES}.2.1.1.1", "integer", 1),
            (f"{DEVICES}.2.1.2.1", "object_id", f"{DEVICES}.1.5"),
            (f"{DEVICES}.2.1.3.1", "octet_str", f"{device.maker} {device.model}"),
            (f"{DEVICES}.2.1.5.1", "integer", 2),
            (f"{DEVICES}.5.1.1.1", "integer", 3),
            (f"{PRINTER}.5.1.1.1.1", "integer", 4),
            (f"{PRINTER}.5.1.1.16.1", "octet_str", device.host),
            (f"{PRINTER}.5.1.1.17.1", "octet_str", f"SN{device.index:06d}"),
            (f"{PORT_MONITOR}.2.1", "octet_str", f"{device.maker} {device.model}"),
            (f"{PORT_MONITOR}.3.1", "octet_str", identity(device))]
    if device.fax:
        rows += [(f"{DEVICES}.2.1.1.2", "integer", 2),
                 (f"{DEVICES}.2.1.2.2", "object_id", f"{DEVICES}.1.14"),
                 (f"{DEVICES}.2.1.3.2", "octet_str", "Fax modem"),
                 (f"{DEVICES}.2.1.5.2", "integer", 2)]
    for number, name in enumerate(["black"] + (["cyan", "magenta", "yellow"] if device.colour else []), 1):
        rows += [(f"{COLORANTS}.2.1.{number}", "integer", 1), (f"{COLORANTS}.3.1.{number}", "integer", 3),
                 (f"{COLORANTS}.4.1.{number}", "octet_str", name),
                 (f"{PRINTER}.11.1.1.6.1.{number}", "octet_str", f"{name} toner"),
                 (f"{PRINTER}.11.1.1.8.1.{number}", "integer", 2500), (f"{PRINTER}.11.1.1.9.1.{number}", "integer", 1800)]
    return rows


def host_mib(device):
    """What any host holds; a responder of the tests has no system of its own to read it from."""
    return [(f"{SYSTEM}.1.0", "octet_str", f"{device.maker} {device.model}; System 2.31"),
            (f"{SYSTEM}.2.0", "object_id", "1.3.6.1.4.1.8072.3.2.10"),
            (f"{SYSTEM}.5.0", "octet_str", device.host),
            (f"{INTERFACE}.2.1", "octet_str", "eth0"),
            (f"{INTERFACE}.3.1", "integer", 6),
            (f"{INTERFACE}.6.1", "octet_str", bytes.fromhex(device.mac.replace(":", "")))]
