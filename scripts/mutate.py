#!/usr/bin/env python3
"""Changes the program at random places, one change at a time, and counts how many of the changes the tests see.

usage: mutate.py [--seed N] [--count N] [--suite unit|windows] [--every-test] [--copy NAME] [--list] [PATH]...

A mutant is a source with one operator, constant or condition changed. It is killed where a test fails, crashes or does not
end; a survivor is either a gap in the tests or makes no difference. Without a path, a source or a folder, the mutants are of
all sources that the suite is for: unit for what only computes, windows for what needs Windows.

--seed N     the same mutants again: the seed is printed at the end; without it another one each time
--count N    how many mutants are tried, 50 by default; 0 for all
--suite S    the suite whose tests are to see it: unit, as without it, or windows; with windows also the stories
--every-test shows a mutant to each test that comes to it; without it to no more than four instances of a test with
             parameters and to twenty seconds of stories under Wine, so that some survive whose test is there
--copy NAME  works on the copy build/breaks/NAME; without it on one of the suite's own
--list       prints the mutants and builds nothing

All mutants are built into one program, each behind a switch that the environment turns, in a copy of the sources. A mutant
then costs a run of the tests that come to it. tests/breaks/survivors.toml has the mutants that make no difference: they are
not tried. Tables of what is broken on purpose are in tests/breaks.
"""
import argparse
import os
import random
import sys
import time

import breaks
from mutants import schemata, suites, survivors, windows

SUITES = {'unit': suites.Suite, 'windows': windows.WindowsSuite}


def chosen_sources(suite, wanted):
    """The sources of the suite; with paths those that are one of them or below one."""
    found = schemata.sources_of(suite)
    paths = [os.path.relpath(path, breaks.ROOT) for path in wanted]
    for path in paths:
        if not any(is_below(file, path) for file in found):
            sys.exit(f'no source that the suite is for: {path}')
    return {file: arguments for file, arguments in found.items() if not paths or any(is_below(file, path) for path in paths)}


def is_below(file, path):
    return file == path or file.startswith(path + '/')


def sample(mutants, options):
    if not 0 < options.count < len(mutants):
        return mutants
    return random.Random(options.seed).sample(mutants, options.count)


def try_all(suite, mutants, reaches):
    """The verdict on each mutant, printed as soon as it is known."""
    verdicts = []
    for mutant in mutants:
        began = time.monotonic()
        verdict, test = suite.verdict(mutant, reaches)
        verdicts.append(verdict)
        print(f'{verdict:17} {time.monotonic() - began:3.0f} s  {mutant}{"  by " + test if test else ""}', flush=True)
    return verdicts


def report(verdicts, seed):
    killed = sum(verdict.startswith('killed') for verdict in verdicts)
    share = 100 * killed / max(len(verdicts), 1)
    print(f'mutate: {killed} killed, {len(verdicts) - killed} survived, {verdicts.count("NOT REACHED")} of them not reached; '
          f'{share:.1f} % killed, seed {seed}')


def mutate(suite, options):
    if options.every_test:
        suite.take_every_test()
    suite.configure()
    mutants = schemata.mutants_of(chosen_sources(suite, options.paths))
    mutants = survivors.without(mutants)
    if options.list:
        print('\n'.join(map(str, sample(mutants, options))))
        return
    built = schemata.build_switched(mutants, suite)
    suite.start()
    try:
        began = time.monotonic()
        reaches = suite.reaches(built)
        print(f'{len(built)} mutants, {len(mutants) - len(built)} that do not compile are left out; '
              f'{sum(len(reach.milliseconds) for reach in reaches)} tests in {time.monotonic() - began:.0f} s', flush=True)
        report(try_all(suite, sample(built, options), reaches), options.seed)
    finally:
        suite.stop()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('paths', nargs='*', metavar='PATH')
    parser.add_argument('--seed', type=int, default=random.randrange(10000), metavar='N', help='which mutants')
    parser.add_argument('--count', type=int, default=50, metavar='N', help='how many mutants')
    parser.add_argument('--suite', choices=SUITES, default='unit', help='whose tests are run')
    parser.add_argument('--every-test', action='store_true', help='however long they take')
    parser.add_argument('--copy', metavar='NAME', help='where the sources are copied to')
    parser.add_argument('--list', action='store_true', help='print the mutants')
    options = parser.parse_args()
    breaks.TREE = breaks.COPIES / (options.copy or f'mutants-{options.suite}')
    mutate(SUITES[options.suite](), options)
    return 0


if __name__ == '__main__':
    sys.exit(main())
