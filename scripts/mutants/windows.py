"""The tests of what needs Windows, in a Wine prefix that stays up from mutant to mutant."""
import subprocess

import breaks
from mingw import SYSTEM_HEADERS
from mutants import suites


class WindowsSuite(suites.Suite):
    preset, target, listed_in = 'windows', 'kestrune_windows_tests', 'tests/windows/CMakeLists.txt'
    mutated = tuple(f'kestrune_{folder}' for folder in ('catalogue', 'printer', 'settings', 'install', 'discovery', 'ports',
                                                         'pages', 'wizard', 'app'))
    options = ()
    parser_options = ('--target=x86_64-w64-windows-gnu', *(f'-isystem{folder}' for folder in SYSTEM_HEADERS))
    compile_options = '-w'
    program = ('wine', 'build/windows/tests/windows/tree/Setup/x64/kestrune_windows_tests.exe')
    # These look at whole pages, each on screens of several kinds.
    all_tests = '-*FittingTextsTest*:*PagePicturesTest*'
    # There are pages in many languages and colours, and a look at one of them takes a second.
    most_instances = 4

    def start(self):
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

    def run(self, tests, bound, **environment):
        return super().run(tests, bound, **self.environment, **environment)

    def kill(self, number, tests, bound):
        """A kill counts where it is seen twice, and the tests pass without the mutant in between: a desktop, or what an
        earlier mutant left, can disturb a test as well."""
        first = super().kill(number, tests, bound)
        if first is None:
            return None
        seen = [first[1]] if first[1] else tests
        if super().kill(0, seen, bound):
            self.clean()
            if super().kill(0, seen, bound):
                return None
        return super().kill(number, seen, bound)
