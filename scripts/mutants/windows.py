"""The tests of what needs Windows, in a Wine prefix that stays up from mutant to mutant."""
import dataclasses
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

    def verdict(self, mutant, reach):
        """A kill counts where it is seen twice: a desktop can disturb a test as well."""
        verdict, test = super().verdict(mutant, reach)
        if not verdict.startswith('killed'):
            return verdict, test
        again = dataclasses.replace(reach, tests={mutant.number: {test} if test else reach.tests[mutant.number]})
        return super().verdict(mutant, again)
