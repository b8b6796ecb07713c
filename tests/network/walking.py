"""Moves the wizard of the sample package as its user does, and says what the system holds afterwards."""
import dataclasses
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

import asking

ROOT = pathlib.Path(__file__).resolve().parents[2]
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
SETUP = PREFIX / "drive_c/Package/Setup"
PRINT_SYSTEM = os.environ["PRINT_SYSTEM"]
PACKAGES = pathlib.Path(os.environ["WALK_PACKAGES"])
SAMPLE = ROOT / "out/package"
SETTINGS, USER_SETTINGS = "defaultInstallSettings.xml", "PackageUserSettings.xml"
LIMIT_IN_SECONDS = 90
VENDOR = "Halvenny"
LOGS = PREFIX / f"drive_c/ProgramData/{VENDOR} Install Logs"
SPOOLER_KEY = r"HKCU\Software\Wine\Printing\Spooler"

CONTROLS = {"IDOK": 1, "IDCANCEL": 2, "IDYES": 6} | {
    name: int(number) for name, number in
    re.findall(r"^#define (IDC_\w+) (\d+)$", (ROOT / "resources/resource.h").read_text(), re.M)}


def wine(*command):
    """Runs a program of Windows and returns its code and what it said."""
    # A file, since what Windows starts beside a program would keep a pipe open.
    with tempfile.TemporaryFile() as output:
        code = subprocess.run(["wine", *command], cwd=SETUP / "x64", stdin=subprocess.DEVNULL, stdout=output,
                              stderr=subprocess.STDOUT, timeout=LIMIT_IN_SECONDS, check=False).returncode
        output.seek(0)
        return code, output.read().decode().splitlines()


def wait_until(condition, what):
    asking.wait_until(condition, what, LIMIT_IN_SECONDS)


def must(*command):
    code, said = wine(*command)
    if code:
        raise AssertionError(f"{command} ended with {code}: {said}")
    return said


class Wizard:
    """The wizard while it runs; it is ended with the block that it was started for."""

    def __enter__(self):
        self.process = subprocess.Popen(["wine", "Kestrune.exe", "-lang=en"], cwd=SETUP / "x64", stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def remote(self, verb, control, *arguments):
        return must("WizardRemote.exe", verb, str(CONTROLS[control]), *arguments)

    def click(self, control):
        self.remote("click", control)

    def wait_for(self, control):
        self.remote("wait", control)

    def rows(self):
        """Returns the rows of the list of devices as (model, address)."""
        return [tuple(line.split("\t")[:2]) for line in self.remote("list", "IDC_DISCOVERY_LIST")]

    def wait_for_rows(self, expected):
        self.wait_for("IDC_DISCOVERY_LIST")
        shown = []

        def is_shown():
            shown[:] = sorted(self.rows())
            return shown == sorted(expected)

        try:
            wait_until(is_shown, "the devices are shown")
        except AssertionError:
            raise AssertionError(f"the list shows {shown} instead of {sorted(expected)}") from None

    def agree(self):
        """Goes over the pages before the devices, as long as they are shown."""
        self.click("IDOK")
        self.wait_for("IDC_LICENCE_TEXT")
        self.remote("scroll", "IDC_LICENCE_TEXT")
        self.click("IDOK")
        self.wait_for("IDC_DISCOVERY_LIST")

    def reinstall(self):
        self.click("IDC_BYPASS_REINSTALL")
        self.click("IDOK")

    def search_host(self, name):
        self.click("IDC_DISCOVERY_MODIFY_SEARCH")
        self.click("IDC_MODIFY_SEARCH_BY_HOST")
        self.remote("type", "IDC_MODIFY_SEARCH_HOST", name)
        self.confirm_search()

    def search_subnet(self, address, mask):
        self.click("IDC_DISCOVERY_MODIFY_SEARCH")
        self.click("IDC_MODIFY_SEARCH_BY_SUBNET")
        self.remote("type", "IDC_MODIFY_SEARCH_ADDRESS", address)
        self.remote("type", "IDC_MODIFY_SEARCH_MASK", mask)
        self.confirm_search()

    def confirm_search(self):
        self.click("IDOK")

    def pick(self, model):
        self.remote("pick", "IDC_DISCOVERY_LIST", model)

    def install(self):
        self.click("IDOK")
        self.finish()

    def finish(self):
        self.click("IDC_FINISH")
        self.wait_for_end()

    def wait_for_end(self):
        self.process.wait(LIMIT_IN_SECONDS)


@dataclasses.dataclass(frozen=True)
class Printer:
    port: str
    driver: str
    is_default: bool


def printing():
    """Returns the printers that the system lists by their names, and the hosts of its network ports by theirs."""
    printers, ports = {}, {}
    for line in must(PRINT_SYSTEM, "show"):
        name, *fields = line.split(" | ")
        if fields[0].startswith("host "):
            ports[name.removeprefix("port ")] = fields[0].removeprefix("host ")
        else:
            port, driver, *default = fields
            printers[name] = Printer(port.removeprefix("port "), driver.removeprefix("driver "), bool(default))
    return printers, ports


def print_text(printer, text):
    """Prints a text. Wine hands a job for a port of the network to no monitor, so a program sends it to the port's host, as
    the system's monitor would."""
    printers, ports = printing()
    port = printers[printer].port
    command = f"|exec {ROOT}/tests/network/send_job.py {ports[port]}"
    must("reg", "add", SPOOLER_KEY, "/v", port, "/d", command, "/f")
    must(PRINT_SYSTEM, "print", printer, text)


def received(host):
    """Returns what has arrived at a device's port for jobs, by now, job by job."""
    folder = pathlib.Path(os.environ["NETWORK_FOLDER"], "received")
    return [job.read_bytes().decode() for job in sorted(folder.glob(f"{host}-*.prn"))]


def products():
    """Returns the products of the maker that the system lists, with their codes by their names."""
    lines = [line.split("|||") for line in must("uninstaller", "--list")]
    return {name: code for code, name in lines if name.startswith(VENDOR)}


def uninstall(code):
    must("uninstaller", "--remove", code)


def log():
    """Returns the log of the program."""
    return (LOGS / "Basic.log").read_bytes().decode("utf-16-le") if LOGS.exists() else ""


def set_windows_version(name):
    must("reg", "add", r"HKCU\Software\Wine", "/v", "Version", "/d", name, "/f")


def add_printer(name):
    must(PRINT_SYSTEM, "add", name)


def remove_printer(name):
    must(PRINT_SYSTEM, "remove", name)


def replace_driver(name):
    """Lays a driver of the tests in the place of the sample's."""
    shutil.copy(PACKAGES / name, SETUP.parent / "Drivers/x64" / name)


def is_ticking():
    """Whether the driver that ticks until it is cancelled is on its way."""
    return (PREFIX / "drive_c/Program Files/Halvenny/Scan/Ticking.txt").exists()


def predefine(settings):
    """Gives the package settings of the user, as for a run from a list of printers."""
    (SETUP / USER_SETTINGS).write_text(settings)


def run_silently():
    return wine("Kestrune.exe")[0]


def show_first_pages():
    """Leaves the settings as they are in the sample."""
    shutil.copy(SAMPLE / "Setup" / SETTINGS, SETUP)


def restore_package():
    """Makes the package the sample's again, but for the welcome and the licence, which are hidden."""
    (SETUP / USER_SETTINGS).unlink(missing_ok=True)
    shutil.copytree(SAMPLE / "Drivers", SETUP.parent / "Drivers", dirs_exist_ok=True)
    settings = (SAMPLE / "Setup" / SETTINGS).read_text()
    hidden = "".join(f"<{tag}>true</{tag}>\n" for tag in ("HIDE_START", "HIDE_EULA"))
    (SETUP / SETTINGS).write_text(settings.replace("</SETTINGS>", f"{hidden}</SETTINGS>"))


def installer_log():
    """Returns the log of Windows Installer, which Wine writes anew for each package."""
    return (LOGS / "Packages.log").read_bytes().decode("latin-1")
