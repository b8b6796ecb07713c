#!/usr/bin/env python3
"""What the demo does before it enters the network of the machine. Runs in the network "few", so that nobody is searched."""
import os
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Everything that the demo starts to build, to install or to open the wizard.
PROGRAMS = ["cmake", "wine", "wineserver", "apt-get", "sudo", "unshare"]


class DemoTest(unittest.TestCase):
    def demo(self, answer, display=":99"):
        """Returns the code of `demo --here`, what it says, and the programs that it started."""
        with tempfile.TemporaryDirectory() as folder:
            for name in PROGRAMS:
                program = pathlib.Path(folder, name)
                program.write_text(f"#!/bin/sh\necho {name} >> {folder}/started\nexit 1\n")
                program.chmod(0o755)
            result = subprocess.run([ROOT / "demo", "--here"], input=answer, capture_output=True, text=True, check=False,
                                    env=os.environ | {"PATH": f"{folder}:{os.environ['PATH']}", "DISPLAY": display})
            started = pathlib.Path(folder, "started")
            return result.returncode, result.stdout + result.stderr, started.read_text().split() if started.exists() else []

    def test_asks_before_it_looks_at_the_network_of_the_machine(self):
        for answer in "n\n", "\n", "", "later\n":
            code, said, started = self.demo(answer)
            self.assertEqual((1, []), (code, started), answer)
            self.assertIn("the network that this machine is in", said)
            self.assertIn("Nothing was sent.", said)

    def test_goes_on_only_where_the_answer_is_yes(self):
        code, said, started = self.demo("y\n")
        self.assertNotEqual(0, code)
        self.assertNotIn("Nothing was sent.", said)
        self.assertTrue(started)

    def test_asks_nothing_where_there_is_no_display(self):
        code, said, started = self.demo("y\n", display="")
        self.assertEqual((2, []), (code, started))
        self.assertIn("display", said)


if __name__ == "__main__":
    unittest.main()
