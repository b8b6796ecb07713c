"""The tests of what needs Windows, and then the stories, in a Wine prefix that stays up from mutant to mutant."""
import ctypes
import os
import subprocess

import breaks
from mingw import SYSTEM_HEADERS
from mutants import suites


class WindowsSuite(suites.Suite):
    preset = 'windows'
    programs = (
        suites.Program(
            'kestrune_windows_tests', 'tests/windows/CMakeLists.txt',
            ('wine', 'build/windows/tests/windows/tree/Setup/x64/kestrune_windows_tests.exe'),
            # These look at whole pages, each on screens of several kinds.
            all_tests='-*FittingTextsTest*:*PagePicturesTest*',
            # There are pages in many languages and colours, and a look at one of them takes a second.
            most_instances=4),
        suites.Program(
            'kestrune_wizard_tests', 'tests/wizard/CMakeLists.txt',
            ('wine', 'build/windows/tests/wizard/kestrune_wizard_tests.exe'),
            all_tests='-Endurance/*',
            # A story starts the program, and most stories come to most of what a page does before it is shown.
            most_instances=4, most_milliseconds=20000))
    mutated = tuple(f'kestrune_{folder}' for folder in ('catalogue', 'printer', 'settings', 'install', 'discovery', 'ports',
                                                         'pages', 'wizard', 'app'))
    options = ()
    parser_options = ('--target=x86_64-w64-windows-gnu', *(f'-isystem{folder}' for folder in SYSTEM_HEADERS))
    compile_options = '-w'

    def start(self):
        # As scripts/common.sh does, and says why.
        ctypes.CDLL(None).personality(0x40000)
        # A prefix is quickest on one processor.
        os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})
        self.shell = subprocess.Popen(['bash', 'scripts/mutants/windows.sh'], cwd=breaks.TREE, stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, text=True)
        self.clean()

    def stop(self):
        self.shell.stdin.close()
        self.shell.wait()

    def clean(self):
        """Takes a fresh prefix."""
        print('fresh', file=self.shell.stdin, flush=True)
        self.environment = dict(entry.split('=', 1) for entry in self.shell.stdout.readline().rstrip('\n').split('\t'))

    def run(self, program, tests, bound, **environment):
        return super().run(program, tests, bound, **self.environment, **environment)

    def kill(self, number, program, tests, bound):
        """A kill counts where it is seen twice, and the tests pass without the mutant in between: a desktop, or what an
        earlier mutant left, can disturb a test as well."""
        first = super().kill(number, program, tests, bound)
        if first is None:
            return None
        seen = [first[1]] if first[1] else tests
        if super().kill(0, program, seen, bound):
            self.clean()
            if super().kill(0, program, seen, bound):
                return None
        return super().kill(number, program, seen, bound)
