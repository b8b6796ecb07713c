#!/usr/bin/env python3
"""Whole walks of the wizard on the sample package with its own libraries, from a device that is found to a job that has
arrived. Runs in the network "few", with a browser."""
import unittest

import devices
import walking

FEW = {device.host: device for device in devices.read("few")}
ANNOUNCED, AGENT, BOTH, IPV6 = FEW["hvl210"], FEW["HVL520-0077"], FEW["hvl340c-lab"], FEW["hvspin-1"]
PRINTER, FAX = "Halvenny Loom V4", "Halvenny Loom Fax"
# Printers that were there before; the last one is the default.
EARLIER = ["Another", "Earlier"]
LITERAL = f"{IPV6.address.replace(':', '-')}.ipv6-literal.net"
DRIVERS = ["Loom Mono V4", "Loom Color V4", "Fax"]
# Of every start: no other copy was running.
ORDINARY_ERROR = "Exception in CKestruneApp::InitInstance error code = 2"
CLASS_DRIVER = "Generic / Text Only"


def local_name(device):
    return f"{device.host}.local"


def row(device):
    return device.model, LITERAL if device.ipv6 else device.address


def queue(port, is_default=False):
    return walking.Printer(port, CLASS_DRIVER, is_default)


def device_element(driver, name, port, host):
    fields = {"DRIVER_ID": driver, "PRINTER_NAME": name, "PORT_NAME": port, "PORT_TYPE": "Standard TCP/IP Port", "HOST_NAME": host}
    return f"<DEVICE>{''.join(f'<{tag}>{value}</{tag}>' for tag, value in fields.items())}</DEVICE>"


class WalkTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        walking.restore_package()

    def tearDown(self):
        self.remove_drivers()
        self.assertEqual(({}, {}), walking.printing())

    def remove_drivers(self):
        listed = walking.products()
        for name in [f"Halvenny {driver} Driver" for driver in DRIVERS]:
            if name in listed:
                walking.uninstall(listed[name])

    def check_printers(self, printer_port, host, fax_port=None):
        expected = {PRINTER: queue(printer_port, True), FAX: queue(fax_port or printer_port)}
        printers, ports = walking.printing()
        self.assertEqual((expected, host), (printers, ports[printer_port]))

    def check_job(self, device):
        before = walking.received(device.host)
        text = f"Zwei Seiten für {device.host}\r\n\f\x1b"
        walking.print_text(PRINTER, text)
        walking.wait_until(lambda: walking.received(device.host) != before, "the job arrives")
        self.assertEqual([*before, text], walking.received(device.host))

    def walk(self, device, search=None, reinstall=False):
        with walking.Wizard() as wizard:
            if reinstall:
                wizard.reinstall()
            wizard.wait_for_rows([row(each) for each in FEW.values()])
            if search:
                search(wizard)
                wizard.wait_for_rows([row(device)])
            wizard.pick(device.model)
            wizard.install()

    def test_a_device_of_the_local_search_is_a_printer_until_its_driver_goes(self):
        walking.show_first_pages()
        with walking.Wizard() as wizard:
            wizard.agree()
            wizard.wait_for_rows([row(each) for each in FEW.values()])
            wizard.pick(ANNOUNCED.model)
            wizard.install()
        walking.restore_package()
        self.check_printers(local_name(ANNOUNCED), local_name(ANNOUNCED))
        self.check_job(ANNOUNCED)
        with self.subTest("the same version changes nothing, and doubles nothing"):
            self.walk(AGENT, reinstall=True)
            self.check_printers(local_name(ANNOUNCED), local_name(ANNOUNCED))
        with self.subTest("a newer one changes the printer, and doubles nothing"):
            walking.replace_driver("HalvennyLoomMonoV4.msi")
            self.walk(AGENT)
            self.check_printers(AGENT.address, AGENT.address, local_name(ANNOUNCED))
            self.check_job(AGENT)

    def test_a_device_of_a_subnet_is_shown_alone_and_becomes_a_printer(self):
        self.walk(AGENT, lambda wizard: wizard.search_subnet("198.51.100.22", "255.255.255.254"))
        self.check_printers(AGENT.address, AGENT.address)
        self.check_job(AGENT)

    def test_a_device_that_is_named_is_shown_alone_and_becomes_a_printer(self):
        self.walk(BOTH, lambda wizard: wizard.search_host(local_name(BOTH)))
        self.check_printers(local_name(BOTH), local_name(BOTH))
        self.check_job(BOTH)

    def test_a_device_of_ipv6_alone_is_shown_alone_and_becomes_a_printer(self):
        self.walk(IPV6, lambda wizard: wizard.search_host(local_name(IPV6)))
        self.check_printers(local_name(IPV6), local_name(IPV6))
        self.check_job(IPV6)

    def test_a_device_of_ipv6_alone_is_a_printer_where_nobody_resolves_its_name(self):
        walking.set_windows_version("win81")
        self.addCleanup(walking.set_windows_version, "win10")
        self.walk(IPV6, lambda wizard: wizard.search_host(IPV6.address))
        self.check_printers(LITERAL, IPV6.address)
        self.check_job(IPV6)

    def test_a_cancel_while_a_later_package_installs_takes_the_printer_away(self):
        for name in EARLIER:
            walking.add_printer(name)
        try:
            earlier = walking.printing()
            walking.replace_driver("HalvennyScanDriver.msi")
            self.cancel_late()
            self.assertEqual(earlier, walking.printing())
        finally:
            for name in EARLIER:
                walking.remove_printer(name)

    def cancel_late(self):
        with walking.Wizard() as wizard:
            wizard.wait_for_rows([row(each) for each in FEW.values()])
            wizard.pick(BOTH.model)
            wizard.click("IDOK")
            walking.wait_until(walking.is_ticking, "the last package is on its way")
            self.assertEqual(queue(local_name(BOTH), True), walking.printing()[0][PRINTER])
            wizard.click("IDCANCEL")
            wizard.remote("answer", "IDYES")
            wizard.finish()

    def test_a_silent_run_makes_its_two_printers_and_the_fax(self):
        walking.predefine((walking.ROOT / "package/settings/silent/PackageUserSettings.xml").read_text())
        self.assertEqual(0, walking.run_silently())
        desk = queue("192.0.2.21")
        expected = {"Front desk": desk, "Front desk fax": desk, "Studio": queue("192.0.2.34")}
        self.assertEqual((expected, {"192.0.2.21": "192.0.2.21", "192.0.2.34": "loom-studio"}), walking.printing())

    def test_a_silent_run_uses_a_port_that_exists_and_makes_one_whose_host_nobody_knows(self):
        walking.predefine(f"""<SETTINGS>
<SILENT_INSTALL>true</SILENT_INSTALL><HIDE_DISCOVERY>true</HIDE_DISCOVERY>
{device_element("HVCOLORV4", "Studio", "desk", "192.0.2.34")}
{device_element("HVMONOV4", "Twin", "desk", "nobody.invalid")}
{device_element("Fax", "Nowhere", "nowhere", "nobody.invalid")}
</SETTINGS>""")
        before = len(walking.log())
        self.assertEqual(0, walking.run_silently())
        expected = {"Studio": queue("desk"), "Twin": queue("desk"), "Nowhere": queue("nowhere")}
        self.assertEqual((expected, {"desk": "192.0.2.34", "nowhere": "nobody.invalid"}), walking.printing())
        records = walking.log()[before:].splitlines()
        errors = [record for record in records if record.startswith("ERROR") and not record.endswith(ORDINARY_ERROR)]
        self.assertEqual([], errors)
        self.assertTrue(any(record.endswith("End of silent mode install") for record in records))
        # The driver that comes last is the one that finds the port.
        self.assertTrue('The port "desk" exists and is used.' in walking.installer_log())


if __name__ == "__main__":
    unittest.main()
