#!/usr/bin/env python3
"""Breaks the program on purpose, one break at a time, and holds the tests to seeing it.

usage: breaks.py [--changed] [--from N] [--suite SUITE] [--copy NAME] [--list | --check] [TABLE]...

A table is a file of tests/breaks, named with or without its folder and ending; without a name all of them are run. Each
row says what holds, which text of which file is replaced to break it, and which test must fail then. A test that does
not end when something is broken is ended after a while and has failed.

--changed    only the rows whose file differs from the upstream branch, committed or not
--from N     begins with that row, as the lines are numbered
--suite S    only the rows whose test is in that suite
--copy NAME  works on the copy build/breaks/NAME and not on build/breaks/tree: two runs at a time need two copies
--list       prints the rows and runs nothing
--check      holds the tables against the sources and runs nothing, as lint does

The sources are copied to build/breaks/tree, with changes that are not committed, and are built there.
"""
import argparse
import dataclasses
import fnmatch
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time
import tomllib

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLES = ROOT / 'tests/breaks'
COPIES = ROOT / 'build/breaks'
TREE = COPIES / 'tree'
LAST_LINES = 15


@dataclasses.dataclass(frozen=True)
class Suite:
    preset: str
    targets: tuple
    command: tuple
    sources: tuple      # where its tests are
    bound: int          # seconds for a row
    prefix: str = ''    # the Wine prefix that its script uses


SUITES = {
    'unit': Suite('native', ('kestrune_unit_tests',), ('build/native/tests/unit/kestrune_unit_tests',), ('tests/unit',), 60),
    'windows': Suite('windows', ('kestrune_windows_tests',), ('scripts/run-windows-tests.sh',), ('tests/windows',), 300,
                     'windows-tests'),
    'standins': Suite('windows', ('standins_tests', 'standins_world', 'Kestrune', 'Rollout'),
                      ('scripts/run-standin-tests.sh',), ('tests/windows/standins',), 300, 'standins'),
    'wizard': Suite('windows', ('kestrune_wizard_tests',), ('scripts/run-wizard-tests.sh', 'build/windows'),
                    ('tests/wizard',), 300, 'wizard-tests-0'),
}


@dataclasses.dataclass(frozen=True)
class Row:
    table: str
    number: int
    behaviour: str
    file: str
    old: str
    new: str
    suite: str
    test: str

    def __str__(self):
        return f'{self.table} {self.number}: {self.behaviour}'


FIELDS = {field.name for field in dataclasses.fields(Row)} - {'table', 'number'}


def read_table(path):
    """The rows of a table. What stands in front of the first row holds for each that does not say otherwise."""
    try:
        table = tomllib.loads(path.read_text(encoding='utf-8'))
    except tomllib.TOMLDecodeError as mistake:
        raise ValueError(f'{path.relative_to(ROOT)}: {mistake}') from mistake
    rows = table.pop('break', [])
    made = []
    for number, row in enumerate(rows, 1):
        fields = {**table, **row}
        if fields.keys() != FIELDS:
            wrong = ', '.join(sorted(fields.keys() ^ FIELDS))
            raise ValueError(f'{path.relative_to(ROOT)}: row {number} lacks or does not know {wrong}')
        made.append(Row(path.stem, number, **fields))
    return made


def read_tables(names):
    known = {path.stem: path for path in sorted(TABLES.glob('*.toml'))}
    wanted = [pathlib.PurePath(name).name.removesuffix('.toml') for name in names] or known
    for name in wanted:
        if name not in known:
            sys.exit(f'no such table: {name}')
    return [row for name in wanted for row in read_table(known[name])]


def fits(name, filters):
    """Whether a test of that name is in a filter of GoogleTest without a minus."""
    return any(fnmatch.fnmatchcase(name, pattern.replace('[', '[[]')) for pattern in filters.split(':'))


# --- the form of the tables

def test_names(suite):
    """The tests of a suite as their sources spell them: of a test with parameters Suite.Name alone."""
    names = []
    for folder in SUITES[suite].sources:
        for path in sorted((ROOT / folder).rglob('*.cpp')):
            found = re.findall(r'\bTEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\s*\)', path.read_text(encoding='utf-8'))
            names += ['.'.join(name) for name in found]
    return names


def spelt_in_source(pattern):
    """The part of a pattern that a source spells, without the name of an instance in front and of a parameter behind."""
    suite, point, test = pattern.partition('.')
    return suite.rpartition('/')[2] + point + test.partition('/')[0]


def count_of(row):
    path = ROOT / row.file
    return path.read_text(encoding='utf-8').count(row.old) if path.is_file() else None


def mistakes_of(row, tests):
    count = count_of(row)
    if count is None:
        yield f'there is no file {row.file}'
    elif count != 1:
        yield f'{row.file} holds what is replaced {count} times and not once'
    if row.old == row.new:
        yield 'nothing is replaced'
    if not row.behaviour.endswith('.'):
        yield 'what holds is a sentence and ends in a point'
    if row.suite not in SUITES:
        yield f'there is no suite {row.suite}'
        return
    for pattern in row.test.split(':'):
        if not fnmatch.filter(tests[row.suite], spelt_in_source(pattern)):
            yield f'no test of the suite {row.suite} fits {pattern}'


def check_form(rows):
    tests = {suite: test_names(suite) for suite in SUITES}
    findings = [f'tests/breaks/{row}: {mistake}' for row in rows for mistake in mistakes_of(row, tests)]
    for before, row in zip(rows, rows[1:]):
        if before.table == row.table and before.file > row.file:
            findings.append(f'tests/breaks/{row}: the rows are not in the order of their files')
    print('\n'.join(findings))
    return 1 if findings else 0


# --- the copy of the sources

def of_shell(command, *arguments):
    """What a function of the scripts prints."""
    return subprocess.run(['bash', '-c', f'source scripts/common.sh; {command} "$@"', 'breaks', *arguments], cwd=ROOT,
                          check=True, capture_output=True, text=True).stdout


def write_tree():
    """Makes the copy the same as the sources. What is the same already keeps its time, so that it is not built again."""
    listed = subprocess.run(['git', 'ls-files', '-z', '--cached', '--others', '--exclude-standard'], cwd=ROOT, check=True,
                            capture_output=True, text=True).stdout.split('\0')
    names = {name for name in listed if (ROOT / name).is_file()}
    for name in names:
        source, copy = ROOT / name, TREE / name
        if not copy.is_file() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)
    for folder, folders, files in os.walk(TREE):
        here = pathlib.Path(folder)
        if here == TREE and 'build' in folders:
            folders.remove('build')
        for file in files:
            if str((here / file).relative_to(TREE)) not in names:
                (here / file).unlink()


# What is broken is compiled again for each row, so it is compiled by itself and without being optimised. What the tests of
# Windows need else is compiled as ever, so that the compiler cache knows most of it.
OPTIONS = {
    'native': ('-DKESTRUNE_ALONE=ON', '-DCMAKE_CXX_FLAGS_DEBUG=-O0 -gline-tables-only',
               '-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld'),
    'windows': ('-DKESTRUNE_ALONE=ON',),
}


def configure(preset, *more):
    if not (TREE / 'build' / preset / 'build.ninja').exists():
        subprocess.run(['cmake', '--preset', preset, *OPTIONS[preset], *more], cwd=TREE, check=True, stdout=subprocess.DEVNULL)


def build(suite):
    """Whether the suite builds, and what the compiler says."""
    result = subprocess.run(['bash', '-c', 'source scripts/common.sh; build "$@"', 'build', suite.preset, *suite.targets],
                            cwd=TREE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors='replace')
    return result.returncode == 0, result.stdout


# --- runs

@dataclasses.dataclass
class Outcome:
    """What a run of GoogleTest says. A run that crashed or hung has not come to its end."""
    ended: bool
    in_time: bool
    passed: list
    failed: list
    text: str


def run(suite, filters, bound):
    """Runs the tests of a filter. The output goes to a file: a pipe would be held open by what a test leaves behind."""
    log = TREE / 'build/breaks.log'
    command = [str(TREE / suite.command[0]), *suite.command[1:], f'--gtest_filter={filters}']
    with log.open('w') as output:
        process = subprocess.Popen(command, cwd=TREE, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                                   start_new_session=True, env={**os.environ, 'KESTRUNE_TRIES': '1'})
        try:
            process.wait(bound)
            in_time = True
        except subprocess.TimeoutExpired:
            in_time = False
            end(suite, process)
    text = log.read_text(errors='replace').replace('\r', '')
    return Outcome(ended=bool(re.search(r'^\[  PASSED  \]', text, re.M)), in_time=in_time, text=text,
                   passed=re.findall(r'^\[       OK \] ([^ ,]+).*ms\)$', text, re.M),
                   failed=re.findall(r'^\[  FAILED  \] ([^ ,]+).*ms\)$', text, re.M))


def end(suite, process):
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()
    if suite.prefix:
        subprocess.run(['bash', '-c', 'source scripts/common.sh; source scripts/wine.sh; wine_stop "$wine_home/$1"', 'end',
                        suite.prefix], cwd=TREE, check=True)


def unbroken(rows):
    """Builds and runs each suite as it is; returns its outcome, or None where it does not build."""
    outcomes = {}
    for name in sorted({row.suite for row in rows}):
        suite = SUITES[name]
        configure(suite.preset)
        is_built, text = build(suite)
        if not is_built:
            print(last_lines(text))
            outcomes[name] = None
            continue
        filters = sorted({row.test for row in rows if row.suite == name})
        outcomes[name] = run(suite, ':'.join(filters), suite.bound * len(filters))
    return outcomes


def fault_unbroken(row, outcome):
    """Why a row cannot be tried, by the run without any break; empty where it can."""
    if outcome is None:
        return 'DOES NOT BUILD UNBROKEN'
    if any(fits(name, row.test) for name in outcome.failed):
        return 'NOT GREEN UNBROKEN'
    if any(fits(name, row.test) for name in outcome.passed):
        return ''
    return 'NO SUCH TEST' if outcome.ended else 'NOT GREEN UNBROKEN'


def verdict_of(row):
    """Breaks, builds, runs and restores; returns the verdict and what was said."""
    suite, path = SUITES[row.suite], TREE / row.file
    if not path.is_file():
        return 'NO SUCH FILE', ''
    whole = path.read_text(encoding='utf-8')
    count = whole.count(row.old)
    if count != 1:
        return ('NOT UNIQUE' if count else 'NOT FOUND'), ''
    path.write_text(whole.replace(row.old, row.new), encoding='utf-8')
    try:
        is_built, text = build(suite)
        if not is_built:
            return 'DOES NOT BUILD', text
        outcome = run(suite, row.test, suite.bound)
    finally:
        path.write_text(whole, encoding='utf-8')
    if not outcome.in_time:
        return 'red by time', outcome.text
    if not outcome.ended:
        return 'red by a crash', outcome.text
    return ('red' if outcome.failed else 'STAYED GREEN'), outcome.text


def last_lines(text):
    return '\n'.join('    ' + line for line in text.rstrip().split('\n')[-LAST_LINES:])


def run_rows(rows):
    started = time.monotonic()
    write_tree()
    outcomes = unbroken(rows)
    reds = 0
    for row in rows:
        began = time.monotonic()
        verdict, text = fault_unbroken(row, outcomes[row.suite]), ''
        if not verdict:
            verdict, text = verdict_of(row)
        print(f'{verdict:14} {time.monotonic() - began:3.0f} s  {row}', flush=True)
        if verdict.startswith('red'):
            reds += 1
        elif verdict == 'DOES NOT BUILD':
            print(last_lines(text), flush=True)
    minutes = (time.monotonic() - started) / 60
    print(f'breaks: {reds} red, {len(rows) - reds} not, in {minutes:.0f} minutes')
    return 0 if reds == len(rows) else 1


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('tables', nargs='*', metavar='TABLE')
    parser.add_argument('--changed', action='store_true', help='only rows whose file has changed')
    parser.add_argument('--from', dest='first', type=int, default=1, metavar='N', help='the first row')
    parser.add_argument('--suite', choices=SUITES, help='only rows of that suite')
    parser.add_argument('--copy', default='tree', metavar='NAME', help='where the sources are copied to')
    parser.add_argument('--list', action='store_true', help='print the rows')
    parser.add_argument('--check', action='store_true', help='check the form of the tables')
    options = parser.parse_args()
    global TREE
    TREE = COPIES / options.copy
    try:
        rows = read_tables(options.tables)
    except ValueError as mistake:
        sys.exit(str(mistake))
    if options.changed:
        changed = set(of_shell('changed_files').split('\n'))
        rows = [row for row in rows if row.file in changed]
    rows = [row for row in rows if row.number >= options.first and options.suite in (None, row.suite)]
    if options.list:
        print('\n'.join(f'{row}  {row.file}, {row.suite}: {row.test}' for row in rows))
        return 0
    return check_form(rows) if options.check else run_rows(rows)


if __name__ == '__main__':
    sys.exit(main())
