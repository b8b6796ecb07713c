"""The suites that see mutants: how they are built and run, and which test comes to which mutant."""
import collections
import dataclasses
import math
import os
import pathlib
import re
import resource
import signal
import subprocess

import breaks

# On a machine that has other work, what waits may take that much longer than the processor does.
PATIENCE = 5
# The tests of a mutant are run in batches, the shortest first; the milliseconds that all batches up to one may take.
BATCHES = (300, 3000, float('inf'))


@dataclasses.dataclass(frozen=True)
class Program:
    """A program of tests: its target and the list of its sources, how it is started, and which of its tests are run."""
    target: str
    listed_in: str
    command: tuple
    all_tests: str = '*'
    # How many instances of a test with parameters a mutant is shown to, and to how many milliseconds of tests in all.
    most_instances: float = math.inf
    most_milliseconds: float = math.inf


@dataclasses.dataclass
class Reach:
    """The tests of a program that come to each mutant, and how long each test takes."""
    program: Program
    tests: dict
    milliseconds: dict

    def batches(self, mutant):
        """The tests that come to a mutant: first those that bear the name of its source, for they see most of it. Of a test
        with parameters the shortest instances."""
        name = pathlib.PurePath(mutant.file).stem
        batches = collections.defaultdict(list)
        taken = 0
        instances = collections.Counter()
        for test in sorted(self.tests[mutant.number], key=lambda test: (self.milliseconds[test], test)):
            instances[without_parameter(test)] += 1
            if instances[without_parameter(test)] > self.program.most_instances:
                continue
            if name in test.partition('.')[0]:
                batches[0].append(test)
                continue
            taken += self.milliseconds[test]
            if taken <= self.program.most_milliseconds:
                batches[next(bound for bound in BATCHES if taken <= bound)].append(test)
        return [batches[bound] for bound in sorted(batches)]

    def bound(self, tests):
        """The seconds after which the tests do not end any more."""
        return 5 + 3 * math.ceil(sum(self.milliseconds[test] for test in tests) / 1000)


def without_parameter(test):
    suite, point, name = test.partition('.')
    return suite + point + name.partition('/')[0]


def read_reach(program, path, mutants):
    """The lines of ReachListener. What its first line has, every test comes to. What is worked out once in a program the
    first test comes to alone, but each that comes to its file may see it."""
    tests, milliseconds = collections.defaultdict(set), {}
    always = []
    for line in path.read_text(encoding='utf-8').splitlines():
        test, time_of_test, numbers = line.split('\t')
        if test:
            milliseconds[test] = int(time_of_test)
            for number in numbers.split():
                tests[int(number)].add(test)
        else:
            always = [int(number) for number in numbers.split()]
    for number in always:
        tests[number] |= milliseconds.keys()
    by_file = collections.defaultdict(set)
    for mutant in mutants:
        by_file[mutant.file] |= tests[mutant.number]
    return Reach(program, {mutant.number: by_file[mutant.file] if mutant.change.is_once else tests[mutant.number]
                           for mutant in mutants}, milliseconds)


@dataclasses.dataclass
class Run:
    """A run of GoogleTest: whether it came to its end, in time, and the first test that failed."""
    ended: bool
    in_time: bool
    failed: str
    text: str


def is_in_time(process, bound):
    """Waits for a process, and ends it where it takes too long."""
    try:
        return process.wait(bound) not in (-signal.SIGXCPU, -signal.SIGKILL)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return False


class Suite:
    """The tests of the logic, on this machine."""
    preset = 'native'
    programs = (Program('kestrune_unit_tests', 'tests/unit/CMakeLists.txt',
                        ('build/native/tests/unit/kestrune_unit_tests',)),)
    # What the tests are of.
    mutated = ('kestrune_logic', 'discovery_engine', 'intention', 'rollout_logic', 'shown_text', 'packagecheck',
               'printerqueue_logic')
    options = ('-DKESTRUNE_SANITIZE=OFF', '-DKESTRUNE_FUZZ=OFF', '-DCMAKE_CXX_FLAGS_DEBUG=-O1 -w',
               '-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld')
    # A number that is no longer known when it is compiled is no mistake, and all faults are wanted at once.
    compile_options = '-w -Wno-c++11-narrowing -ferror-limit=0'
    # What the parser is told beyond what the compiler is.
    parser_options = ()

    def take_every_test(self):
        """Shows a mutant to all tests that come to it, and not only to as many as the programs say."""
        self.programs = tuple(dataclasses.replace(program, most_instances=math.inf, most_milliseconds=math.inf)
                              for program in self.programs)

    @property
    def folder(self):
        return breaks.TREE / 'build' / self.preset

    def configure(self):
        """Makes the copy the same as the sources, with the listener among the tests."""
        breaks.write_tree()
        for program in self.programs:
            with (breaks.TREE / program.listed_in).open('a') as lists:
                print(f'target_sources({program.target} PRIVATE ${{CMAKE_SOURCE_DIR}}/scripts/mutants/ReachListener.cpp)',
                      file=lists)
        with (breaks.TREE / 'CMakeLists.txt').open('a') as lists:
            for target in self.mutated:
                print(f'target_compile_options({target} PRIVATE {self.compile_options})', file=lists)
        subprocess.run(['cmake', '--preset', self.preset, *self.options], cwd=breaks.TREE, check=True,
                       stdout=subprocess.DEVNULL)

    def build(self):
        """Whether the tests build, and everything that the compiler says."""
        targets = [program.target for program in self.programs]
        result = subprocess.run(['cmake', '--build', self.folder, '-j', str(os.cpu_count()), '--target', *targets, '--', '-k',
                                 '0'], cwd=breaks.TREE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                errors='replace')
        return result.returncode == 0, result.stdout

    def start(self):
        """Gets ready for runs."""

    def stop(self):
        """Ends what start began."""

    def run(self, program, tests, bound, **environment):
        """Runs the tests of a program, or all without any, for so many seconds of the processor. The output goes to a file:
        a pipe could be held open by what a test leaves."""
        flags, log = self.folder / 'mutants.flags', self.folder / 'mutants.log'
        flags.write_text(f'--gtest_filter={":".join(tests) or program.all_tests}\n')
        command = [*program.command, f'--gtest_flagfile={flags.relative_to(breaks.TREE)}']
        with log.open('w') as output:
            process = subprocess.Popen(command, cwd=breaks.TREE, stdin=subprocess.DEVNULL, stdout=output,
                                       stderr=subprocess.STDOUT, start_new_session=True, env={**os.environ, **environment},
                                       preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (bound, bound + 1)))
            in_time = is_in_time(process, PATIENCE * bound)
        text = log.read_text(errors='replace').replace('\r', '')
        failed = re.search(r'^\[  FAILED  \] ([^ ,]+).*ms\)$', text, re.M)
        return Run(bool(re.search(r'^\[  PASSED  \]', text, re.M)), in_time, failed[1] if failed else '', text)

    def clean(self):
        """Ends what a run that did not come to its end left behind."""

    def reaches(self, mutants):
        """Runs all tests with no mutant switched on, and returns which come to which mutant, program by program."""
        return [self.reach(program, mutants) for program in self.programs]

    def reach(self, program, mutants):
        run = self.run(program, [], 1800, KESTRUNE_REACHED='build/reached')
        if not run.ended:
            raise RuntimeError(breaks.last_lines(run.text))
        return read_reach(program, breaks.TREE / 'build/reached', mutants)

    def verdict(self, mutant, reaches):
        """What the tests make of a mutant, and the first test that failed."""
        if not any(reach.tests[mutant.number] for reach in reaches):
            return 'NOT REACHED', ''
        kills = (self.kill(mutant.number, reach.program, batch, reach.bound(batch))
                 for reach in reaches for batch in reach.batches(mutant))
        return next(filter(None, kills), ('SURVIVED', ''))

    def kill(self, number, program, tests, bound):
        """How the tests kill a mutant, or no mutant with the number 0, and the first that failed; nothing if they pass."""
        run = self.run(program, tests, bound, KESTRUNE_MUTANT=str(number), GTEST_FAIL_FAST='1')
        if not run.ended:
            self.clean()
        elif not run.failed:
            return None
        if not run.in_time:
            return 'killed by time', ''
        return ('killed', run.failed) if run.failed else ('killed by a crash', '')
