"""Hosts in network namespaces of their own, and the cables that join them."""
import ctypes
import os
import signal
import socket
import subprocess
import sys
import tempfile

NEW_MOUNTS, NEW_NAME, NEW_NETWORK = 0x00020000, 0x04000000, 0x40000000

libc = ctypes.CDLL(None, use_errno=True)


def check(result):
    if result != 0:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def mount_tmpfs(folder):
    """Lays an empty folder over one; only this mount namespace sees it."""
    check(libc.mount(b"none", os.fsencode(folder), b"tmpfs", 0, None))


def replace_file(path, text):
    """Shows another text in the place of a file of the system; only this mount namespace sees it."""
    with tempfile.NamedTemporaryFile("w") as own:
        own.write(text)
        own.flush()
        os.chmod(own.name, 0o644)
        bind = 4096
        check(libc.mount(os.fsencode(own.name), os.fsencode(path), None, bind, None))


def environment(**more):
    """The environment of a program that was unpacked and not installed."""
    return os.environ | {"LD_LIBRARY_PATH": os.environ.get("NETWORK_LIBRARIES", ""), "MIBS": ""} | more


def batch(lines):
    """Runs commands of `ip`."""
    subprocess.run(["ip", "-batch", "-"], input="\n".join(lines) + "\n", text=True, check=True, env=environment())


def set_kernel(name, value):
    with open(f"/proc/sys/net/{name}", "w") as target:
        target.write(value)


def namespace():
    return os.readlink("/proc/self/ns/net")


def refuse_namespace(name):
    """Raises RuntimeError where this process is still in the network namespace of that name, or was not told one."""
    if name in (None, namespace()):
        raise RuntimeError("this is the network of the machine")


def refuse_foreign_interfaces(own=()):
    """Raises RuntimeError where this process sees an interface that is neither the loopback nor one of its own."""
    foreign = [name for _, name in socket.if_nameindex() if name != "lo" and name not in own]
    if foreign:
        raise RuntimeError(f"this is no network of its own: it has {', '.join(foreign)}")


def prepare_kernel():
    """What every host needs before it has an address: a loopback, and no waiting for addresses that are taken."""
    for scope in "all", "default":
        set_kernel(f"ipv6/conf/{scope}/accept_dad", "0")
        set_kernel(f"ipv6/conf/{scope}/accept_ra", "0")
    batch(["link set dev lo up"])


def lose(percent, process=None):
    """Drops that share of what reaches this host, or the host of a process."""
    rules = ["add table inet loss", "add chain inet loss input { type filter hook input priority 0; }",
             f"add rule inet loss input iif != lo numgen random mod 100 < {percent} drop"]
    there = ["nsenter", "-n", "-t", str(process)] if process else []
    subprocess.run([*there, "nft", "-f", "-"], input="\n".join(rules) + "\n", text=True, check=True, env=environment())


class Host:
    """A process with a network of its own, joined to the bridge by one cable. `body` starts what the host runs.

    The steps follow one another: the process leaves for its namespace, the cable is laid to it, it takes its addresses
    and starts what it runs.
    """

    def __init__(self, number, name, mac, addresses, body):
        self.number, self.name, self.mac, self.addresses, self.body = number, name, mac, addresses, body
        self.told, tell = os.pipe()
        wait, self.go = os.pipe()
        self.process = os.fork()
        if self.process == 0:
            os.close(self.told)
            os.close(self.go)
            self.run(tell, wait)
        os.close(tell)
        os.close(wait)

    def run(self, tell, wait):
        try:
            check(libc.unshare(NEW_NETWORK | NEW_MOUNTS | NEW_NAME))
            socket.sethostname(self.name)
            prepare_kernel()
            os.write(tell, b"away")
            os.read(wait, 1)
            self.take_addresses()
            self.body(lambda: os.write(tell, b"ready"))
            while True:
                signal.pause()
        except Exception as failure:
            os.write(sys.stderr.fileno(), f"{self.name}: {failure!r}\n".encode())
        finally:
            os._exit(1)

    def take_addresses(self):
        refuse_foreign_interfaces([self.port])
        batch([f"addr add {address} dev {self.port}" for address in self.addresses] +
              [f"link set dev {self.port} up", f"route add 224.0.0.0/4 dev {self.port}"])

    @property
    def port(self):
        return f"port{self.number}"

    @property
    def cable(self):
        """The commands that lay the cable from the bridge."""
        end = f"cable{self.number}"
        return [f"link add name {end} type veth peer name {self.port} address {self.mac} netns {self.process}",
                f"link set dev {end} addrgenmode none master lan0", f"link set dev {end} up"]

    def wait_for(self, word):
        """Waits until the host has said a word; RuntimeError where it ended instead."""
        if os.read(self.told, len(word)) != word:
            raise RuntimeError(f"the host {self.name} did not start")

    def start(self):
        os.write(self.go, b"!")
