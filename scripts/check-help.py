#!/usr/bin/env python3
"""Looks into the compiled helps of a package: each number of a dialog must lead to the page that the sources name, by the
name that the page has in the help.

usage: check-help.py PACKAGE SOURCES    as in check-help.py out/package package/help
"""
import pathlib
import re
import struct
import subprocess
import sys
import tempfile


def files_of(help_file):
    listed = subprocess.run(['chmls', '--no-page', '--name-only', 'list', str(help_file)], check=True, capture_output=True)
    return set(re.findall(rb'/\S+', listed.stdout))


def extract(help_file, name):
    with tempfile.TemporaryDirectory() as folder:
        taken = pathlib.Path(folder) / 'taken'
        subprocess.run(['chmls', 'extract', str(help_file), name, str(taken)], check=True, capture_output=True)
        return taken.read_bytes()


def topics_in(help_file):
    """The pages by the numbers, as the viewer reads them."""
    numbers, strings = extract(help_file, '/#IVB')[4:], extract(help_file, '/#STRINGS')
    return {number: strings[place:strings.index(b'\0', place)] for number, place in struct.iter_unpack('<II', numbers)}


def topics_named(project):
    text = project.read_text(encoding='utf-8')
    pages = dict(re.findall(r'^(\w+)=(\S+\.html)\s*$', text.split('[ALIAS]')[1], re.M))
    return {int(number): pages[name].encode() for name, number in re.findall(r'^#define (\w+) (\d+)', text, re.M)}


def main():
    package, sources = map(pathlib.Path, sys.argv[1:3])
    mistakes = []
    for project in sorted(sources.glob('*/install.hhp')):
        help_file = package / 'Setup' / project.parent.name / 'install.chm'
        topics, files = topics_in(help_file), files_of(help_file)
        for number, page in topics_named(project).items():
            found = topics.get(number, b'nowhere')
            if found != page or b'/' + page not in files:
                mistakes.append(f'{help_file}: {number} leads to {found.decode()} and not to the page {page.decode()}')
    print('\n'.join(mistakes) if mistakes else 'Each number of a dialog leads to its page of the help.')
    return 1 if mistakes else 0


if __name__ == '__main__':
    sys.exit(main())
