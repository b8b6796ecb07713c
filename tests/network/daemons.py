"""The programs that play a printer: those that announce it and answer IPP, the agent of its MIBs, and its port for jobs."""
import pathlib
import shutil
import socket
import subprocess
import threading

import devices
import lan

IPP_PORT, RAW_PORT = 8631, 9100

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>system</type><listen>unix:path={path}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow user="*"/><allow own="*"/><allow send_type="method_call"/><allow send_type="signal"/>
<allow send_requested_reply="true"/><allow receive_type="method_call"/><allow receive_type="signal"/>
<allow receive_requested_reply="true"/></policy></busconfig>
"""
AVAHI = """[server]
host-name={host}
use-ipv4=yes
use-ipv6=yes
allow-interfaces={port}
ratelimit-interval-usec=0
[publish]
publish-workstation=no
publish-hinfo=no
"""
# What an agent offers beside the values that it is given; the rest would tell of the machine that this runs on.
AGENT_MODULES = "vacm_conf,usmConf,snmpEngine,override,system_mib,ifTable,snmp_mib,setSerialNo"


def start(log, *command, **more):
    """Starts a program that runs as long as its host; what it says goes to a log."""
    with open(log, "ab") as output:
        return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output, env=lan.environment(**more))


def start_and_read(log, word, *command, **more):
    """Starts a program, and returns once it has said a word."""
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               env=lan.environment(**more))
    said = []
    for line in process.stdout:
        said.append(line)
        if word in line:
            break
    else:
        raise RuntimeError(f"{command[0]} ended: {b''.join(said).decode(errors='replace')}")
    log.write_bytes(b"".join(said))
    threading.Thread(target=shutil.copyfileobj, args=(process.stdout, open(log, "ab")), daemon=True).start()


def add_avahi_user():
    """Lets avahi find the user that it asks for, who comes with its installation: here it is whoever runs this."""
    for path, entry in ("/etc/passwd", "avahi:x:0:0::/:/bin/false"), ("/etc/group", "avahi:x:0:"):
        with open(path) as known:
            others = [line for line in known if not line.startswith("avahi:")]
        lan.replace_file(path, "".join(others) + entry + "\n")


def start_avahi(folder, host, port):
    """Starts a message bus and avahi on it. Returns the address of the bus once the host's name is announced."""
    path = folder / "bus"
    (folder / "bus.conf").write_text(BUS.format(path=path))
    start_and_read(folder / "bus.log", b"unix:path", "dbus-daemon", "--nofork", "--nopidfile", "--print-address",
                   f"--config-file={folder / 'bus.conf'}")
    bus = f"unix:path={path}"
    (folder / "avahi.conf").write_text(AVAHI.format(host=host, port=port))
    start_and_read(folder / "avahi.log", b"Server startup complete", "avahi-daemon", "--no-drop-root", "--no-chroot",
                   "--no-rlimits", f"--file={folder / 'avahi.conf'}", DBUS_SYSTEM_BUS_ADDRESS=bus)
    return bus


def text_record(device):
    """What the announcement of the port for jobs says of the device, as makers write it."""
    flag = {True: "T", False: "F"}
    return ["txtvers=1", "qtotal=1", f"ty={device.maker} {device.model}", f"product=({device.maker} {device.model})",
            "priority=40", "pdl=application/postscript,application/vnd.hp-PCL", f"usb_MFG={device.maker}",
            f"usb_MDL={device.model}", f"Color={flag[device.colour]}", "Duplex=T", f"Fax={flag[device.fax]}",
            f"Scan={flag[device.scan]}", "note="]


def start_announced(folder, device, port):
    """Starts a printer that announces itself and answers IPP."""
    bus = start_avahi(folder, device.host.lower(), port)
    own = {"DBUS_SYSTEM_BUS_ADDRESS": bus, "HOME": str(folder)}
    speed = "20,10" if device.colour else "20"
    (folder / "jobs").mkdir()
    start(folder / "ipp.log", "ippeveprinter", "-M", device.maker, "-m", device.model, "-s", speed, "-p", str(IPP_PORT),
          "-d", str(folder / "jobs"), "-k", "-K", str(folder), device.instance, **own)
    start(folder / "announce.log", "avahi-publish-service", device.instance, "_pdl-datastream._tcp", str(RAW_PORT),
          *text_record(device), **own)


def agent_configuration(device):
    host = f"udp6:[{device.address}]:161" if device.ipv6 else f"udp:{device.address}:161"
    lines = ["rocommunity public", "rocommunity6 public", f"agentAddress {host}", f"sysname {device.host}",
             "syslocation Second floor", f"sysdescr {device.maker} {device.model}; System 2.31", "dontLogTCPWrappersConnects yes"]
    quote = {"octet_str": '"{}"', "integer": "{}", "object_id": "{}"}
    lines += [f"override {name} {kind} {quote[kind].format(value)}" for name, kind, value in devices.printer_mib(device)]
    return "\n".join(lines) + "\n"


def start_agent(folder, device):
    configuration = folder / "snmpd.conf"
    configuration.write_text(agent_configuration(device))
    start(folder / "snmpd.log", "snmpd", "-f", "-r", "-Lo", "-C", "-c", str(configuration), "-I", AGENT_MODULES,
          SNMP_PERSISTENT_DIR=str(folder))


def take_jobs(received):
    """Takes what is sent to the port for jobs and keeps it, one file per connection, until the host ends."""
    listener = socket.create_server(("", RAW_PORT), family=socket.AF_INET6, dualstack_ipv6=True)

    def take_all():
        for number in range(1 << 16):
            connection, _ = listener.accept()
            # The name is given last, so that a file that is seen is whole.
            part = pathlib.Path(f"{received}-{number}.part")
            with connection, connection.makefile("rb") as source, open(part, "wb") as target:
                shutil.copyfileobj(source, target)
            part.rename(part.with_suffix(".prn"))

    threading.Thread(target=take_all, daemon=True).start()
