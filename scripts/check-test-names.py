#!/usr/bin/env python3
"""Holds what documents say of tests against the sources: each test and each file that they name must be there.

usage: check-test-names.py
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENTS = ['docs/security.md', 'docs/decisions.md']
DEFINED = re.compile(r'\bTEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\s*\)')
NAMED = re.compile(r'`(\w+Test)\.(\w+)`')
FILE = re.compile(r'`((?:tests|scripts)/[\w/.-]+\.\w+)`')


def tests():
    sources = [path for path in (ROOT / 'tests').rglob('*.cpp')]
    return {found for path in sources for found in DEFINED.findall(path.read_text(encoding='utf-8'))}


def findings():
    known = tests()
    for document in DOCUMENTS:
        text = (ROOT / document).read_text(encoding='utf-8')
        for suite, name in NAMED.findall(text):
            if (suite, name) not in known and name not in ('cpp', 'h', 'py'):
                yield f'{document}: there is no test {suite}.{name}'
        for file in FILE.findall(text):
            if not (ROOT / file).is_file():
                yield f'{document}: there is no file {file}'


def main():
    lines = list(findings())
    print('\n'.join(lines))
    sys.exit(1 if lines else 0)


main()
