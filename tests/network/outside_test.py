#!/usr/bin/env python3
"""What the machine sees of a network that runs on it: its end, and nothing else."""
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

import asking
import in_network

PROGRAM = str(pathlib.Path(in_network.__file__))


def processes_with(word):
    """The processes of the machine whose command line holds a word; those of namespaces are among them."""
    found = []
    for entry in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
        try:
            if word.encode() in entry.read_bytes():
                found.append(int(entry.parent.name))
        except OSError:
            # It has ended meanwhile.
            pass
    return found


class OutsideTest(unittest.TestCase):
    def run_in(self, *arguments, **more):
        return subprocess.run([sys.executable, PROGRAM, *arguments], capture_output=True, text=True, check=False, **more)

    def test_the_code_is_the_commands(self):
        self.assertEqual(23, self.run_in("few", "sh", "-c", "exit 23").returncode)

    def run_inside(self, prepare, away_from):
        """Runs the part that lays out the network in a namespace of the test's, so that a check that fails harms nobody."""
        with tempfile.TemporaryDirectory() as folder:
            inner = f"{sys.executable} {PROGRAM} --inside={folder} {away_from} few touch {folder}/ran"
            command = [*in_network.namespace_command(), "sh", "-c", f"{prepare}; {inner}; code=$?; ls {folder}; exit $code"]
            result = subprocess.run(command, capture_output=True, text=True, check=False)
        self.assertEqual((in_network.NO_NETWORK, ""), (result.returncode, result.stdout))
        return result.stderr

    def test_refuses_a_network_with_a_foreign_interface(self):
        said = self.run_inside("ip link add name foreign0 type bridge", "--away-from=elsewhere")
        self.assertIn("foreign0", said)

    def test_refuses_the_namespace_that_it_was_started_in(self):
        for away_from in "", "--away-from=$(readlink /proc/self/ns/net)":
            self.assertIn("the network of the machine", self.run_inside(":", away_from))

    def test_has_a_code_of_its_own_where_no_namespace_can_be_had(self):
        with tempfile.TemporaryDirectory() as folder:
            refusing = pathlib.Path(folder, "unshare")
            refusing.write_text("#!/bin/sh\necho 'unshare failed' >&2\nexit 1\n")
            refusing.chmod(0o755)
            result = self.run_in("few", "true", env=os.environ | {"PATH": f"{folder}:{os.environ['PATH']}"})
        self.assertEqual(in_network.NO_NAMESPACE, result.returncode)
        self.assertIn("unshare failed", result.stderr)

    def test_nothing_is_left_of_a_network_that_is_ended(self):
        own = [sys.executable, PROGRAM, "few", "sh", "-c", "echo $NETWORK_FOLDER && sleep 600"]
        # A shell that waits for the network stands for the demo.
        shell = ["sh", "-c", '"$@" & wait', "sh"]
        for number, command in (signal.SIGTERM, own), (signal.SIGKILL, own), (signal.SIGKILL, shell + own):
            started = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
            mark = started.stdout.readline().strip()
            self.assertTrue(processes_with(mark))
            os.kill(started.pid, number)
            started.wait()
            started.stdout.close()
            asking.wait_until(lambda: not processes_with(mark), "its processes are gone")
            if command == own and number == signal.SIGKILL:
                os.rmdir(mark)
            asking.wait_until(lambda: not os.path.exists(mark), "its folder is gone")


if __name__ == "__main__":
    unittest.main()
