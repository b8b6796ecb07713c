#!/usr/bin/env python3
"""Changes the logic at random places, one change at a time, and counts how many of the changes the unit tests see.

usage: mutate.py [--seed N] [--count N] [--suite unit] [--copy NAME] [--list] [PATH]...

A mutant is a source of the logic (src/floors.cmake) with one operator, constant or condition changed. It is killed where a
test fails, crashes or does not end; a survivor is either a gap in the tests or makes no difference. A mutant that does not
compile is not counted. Without a path, a source or a folder, the mutants are of all sources.

--seed N     the same mutants again: the seed is printed at the end; without it another one each time
--count N    how many mutants are tried, 50 by default; 0 for all
--suite S    the suite whose tests are to see it: the one of the logic alone can
--copy NAME  works on the copy build/breaks/NAME; without it on one of its own
--list       prints the mutants and builds nothing

The copy is built without sanitizers, so that a mutant takes seconds. Tables of what is broken on purpose are in tests/breaks.
"""
import argparse
import dataclasses
import os
import pathlib
import random
import re
import sys
import time

import breaks

PLAIN = ('-DKESTRUNE_SANITIZE=OFF', '-DKESTRUNE_FUZZ=OFF', '-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w')
UNIT = breaks.SUITES['unit']

OPERATORS = {'==': '!=', '!=': '==', '<': '<=', '<=': '<', '>': '>=', '>=': '>', '&&': '||', '||': '&&', '+': '-', '-': '+',
             '*': '/', '/': '*', '%': '*', '+=': '-=', '-=': '+=', '<<': '>>', '>>': '<<', '&': '|', '|': '&'}
STEPS = {'++': '--', '--': '++'}
WORDS = {'true': 'false', 'false': 'true'}

# What is no code, but for the characters, which are constants of their own.
TEXTS = re.compile(r'//[^\n]*|/\*.*?\*/|^[ ]*#[^\n]*|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|'
                   r'(?P<character>(?<![\da-fA-F])\'(?:\\.|[^\'\\\n])+\')', re.M | re.S)


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    place: int
    line: int
    old: str
    new: str

    def __str__(self):
        return ' '.join(f'{self.file}:{self.line}: {self.old} -> {self.new or "nothing"}'.split())


def sources(wanted):
    """The sources of the logic in the order of the floors; with paths those that are one of them or below one."""
    floors = (breaks.ROOT / 'src/floors.cmake').read_text(encoding='utf-8')
    logic = re.findall(r'^floor\((\w+)\s+LOGIC\s([\w\s]*?)\sSYSTEM', floors, re.M)
    listed = [f'src/{folder}/{name}.cpp' for folder, names in logic for name in names.split()]
    paths = [os.path.relpath(path, breaks.ROOT) for path in wanted]
    for path in paths:
        if not any(name == path or name.startswith(path + '/') for name in listed):
            sys.exit(f'no source of the logic: {path}')
    return [name for name in listed if not paths or any(name == path or name.startswith(path + '/') for path in paths)]


def end_of_parenthesis(code, start):
    depth = 0
    for place in range(start, len(code)):
        depth += {'(': 1, ')': -1}.get(code[place], 0)
        if depth == 0:
            return place
    return None


def changes_of(text):
    """Every change of a source: where it is, what stands there and what takes its place."""
    for found in TEXTS.finditer(text):
        if found['character']:
            yield found.start(), found[0], r"'\x7f'"
    code = TEXTS.sub(lambda found: re.sub(r'[^\n]', ' ', found[0]), text)
    for found in re.finditer(r'(?<= )[=!<>&|+*/%-]{1,2}(?=\s)', code):
        if found[0] in OPERATORS:
            yield found.start(), found[0], OPERATORS[found[0]]
    for found in re.finditer(r'\+\+|--', code):
        yield found.start(), found[0], STEPS[found[0]]
    for found in re.finditer(r'\b(true|false)\b', code):
        yield found.start(), found[0], WORDS[found[0]]
    for found in re.finditer(r'!(?=[\w(:])', code):
        yield found.start(), found[0], ''
    for found in re.finditer(r"(?<![\w.'])(?:0x[\da-fA-F']+|\d[\d']*)(?=[uUlLzZ]*\b)(?!\.)", code):
        yield found.start(), found[0], str(int(found[0].replace("'", ''), 0) + 1)
    for found in re.finditer(r'\bif (?=\()', code):
        end = end_of_parenthesis(code, found.end())
        if end is not None:
            condition = text[found.end():end + 1]
            yield found.end(), condition, f'(!{condition})'


def mutants_of(file):
    text = (breaks.ROOT / file).read_text(encoding='utf-8')
    return [Mutant(file, place, text.count('\n', 0, place) + 1, old, new) for place, old, new in changes_of(text)]


def own_tests(mutant):
    """A filter for the tests that bear the source's name: they see most of its mutants, and soon. Empty if there are none."""
    path = breaks.ROOT / 'tests/unit' / f'{pathlib.Path(mutant.file).stem}Test.cpp'
    if not path.is_file():
        return ''
    suites = set(re.findall(r'^TEST(?:_[FP])?\((\w+),', path.read_text(encoding='utf-8'), re.M))
    return ':'.join(f'{suite}.*:*/{suite}.*' for suite in sorted(suites))


def verdict_of(mutant, bound):
    path = breaks.TREE / mutant.file
    whole = path.read_text(encoding='utf-8')
    path.write_text(whole[:mutant.place] + mutant.new + whole[mutant.place + len(mutant.old):], encoding='utf-8')
    try:
        if not breaks.build(UNIT)[0]:
            return 'does not compile', ''
        for tests in filter(None, (own_tests(mutant), '*')):
            outcome = breaks.run(UNIT, tests, bound)
            if not outcome.in_time:
                return 'killed by time', ''
            if not outcome.ended:
                return 'killed by a crash', ''
            if outcome.failed:
                return 'killed', outcome.failed[0]
        return 'SURVIVED', ''
    finally:
        path.write_text(whole, encoding='utf-8')


def unbroken_seconds():
    """Builds and runs the tests as they are; returns how long they take."""
    breaks.configure(UNIT.preset, *PLAIN)
    is_built, text = breaks.build(UNIT)
    if not is_built:
        sys.exit(breaks.last_lines(text))
    began = time.monotonic()
    outcome = breaks.run(UNIT, '*', 20 * UNIT.bound)
    if outcome.failed or not outcome.ended:
        sys.exit(breaks.last_lines(outcome.text))
    return time.monotonic() - began


def try_all(mutants, seed):
    breaks.write_tree()
    # The first failure says enough.
    os.environ['GTEST_FAIL_FAST'] = '1'
    bound = 10 + 3 * unbroken_seconds()
    verdicts = []
    for mutant in mutants:
        began = time.monotonic()
        verdict, test = verdict_of(mutant, bound)
        verdicts.append(verdict)
        print(f'{verdict:17} {time.monotonic() - began:3.0f} s  {mutant}{"  by " + test if test else ""}', flush=True)
    survived = verdicts.count('SURVIVED')
    killed = sum(verdict.startswith('killed') for verdict in verdicts)
    others = len(verdicts) - killed - survived
    share = 100 * killed / max(killed + survived, 1)
    print(f'mutate: {killed} killed, {survived} survived, {others} do not compile; {share:.0f} % killed, seed {seed}')


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('paths', nargs='*', metavar='PATH')
    parser.add_argument('--seed', type=int, default=random.randrange(10000), metavar='N', help='which mutants')
    parser.add_argument('--count', type=int, default=50, metavar='N', help='how many mutants')
    parser.add_argument('--suite', choices=['unit'], default='unit', help='whose tests are run')
    parser.add_argument('--copy', default='mutants', metavar='NAME', help='where the sources are copied to')
    parser.add_argument('--list', action='store_true', help='print the mutants')
    options = parser.parse_args()
    breaks.TREE = breaks.COPIES / options.copy
    mutants = [mutant for file in sources(options.paths) for mutant in mutants_of(file)]
    if 0 < options.count < len(mutants):
        mutants = random.Random(options.seed).sample(mutants, options.count)
    if options.list:
        print('\n'.join(map(str, mutants)))
    else:
        try_all(mutants, options.seed)
    return 0


if __name__ == '__main__':
    sys.exit(main())
