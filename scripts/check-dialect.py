#!/usr/bin/env python3
"""Checks what the formatter and clang-tidy leave open: how a header begins and how constants and sizes are named."""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEAD = re.compile(r'(//[^\n]*\n)+#pragma once\n')
CODE = re.compile(r'//[^\n]*|"(?:\\.|[^"\\\n])*"')
RULES = {
    'a constant has no prefix': re.compile(r'(?<!::)\bk[A-Z]\w*'),
    'it is std::size_t': re.compile(r'(?<![\w:])size_t\b'),
}


def findings_of(name):
    text = (ROOT / name).read_text(encoding='utf-8')
    if name.endswith('.h') and not HEAD.match(text):
        yield f'{name}:1: a header begins with a comment that says what it is, then #pragma once'
    for number, line in enumerate(text.split('\n'), 1):
        code = CODE.sub('', line)
        yield from (f'{name}:{number}: {rule}: {line.strip()}' for rule, form in RULES.items() if form.search(code))


def main():
    sources = subprocess.run(['git', 'ls-files', '*.cpp', '*.h'], cwd=ROOT, check=True, capture_output=True,
                             text=True).stdout.split()
    findings = [finding for name in sources for finding in findings_of(name)]
    print('\n'.join(findings))
    sys.exit(1 if findings else 0)


main()
