#!/usr/bin/env python3
"""Draws the picture of the folders in docs/architecture.md from docs/folders.txt.

usage: scripts/draw-folders.py [--check]      --check draws nothing and fails if the picture is another
"""
import pathlib
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = ROOT / 'docs' / 'architecture.md'
BEGIN, END = '<!-- folders -->\n', '<!-- end of folders -->'
WIDTH = 62


def floors():
    """The floors from the top down: lists of a folder and what it answers for."""
    blocks = (ROOT / 'docs' / 'folders.txt').read_text(encoding='utf-8').split('\n\n')
    lines = ([line for line in block.splitlines() if line and not line.startswith('#')] for block in blocks)
    return [[tuple(line.split(maxsplit=1)) for line in block] for block in lines if block]


def picture():
    drawn = ['```']
    all_floors = floors()
    for height, folders in zip(range(len(all_floors), 0, -1), all_floors):
        name_width = 14
        drawn.append('   +' + '-' * (name_width + WIDTH + 2) + '+')
        for index, (folder, purpose) in enumerate(folders):
            for line, text in enumerate(textwrap.wrap(purpose, WIDTH)):
                floor = f'{height:2} ' if index == 0 and line == 0 else '   '
                name = folder if line == 0 else ''
                drawn.append(f'{floor}| {name:{name_width}} {text:{WIDTH}}|')
    drawn.append('   +' + '-' * (name_width + WIDTH + 2) + '+')
    return '\n'.join([*drawn, '```', ''])


def main():
    page = PAGE.read_text(encoding='utf-8')
    start = page.index(BEGIN) + len(BEGIN)
    redrawn = page[:start] + picture() + page[page.index(END):]
    if sys.argv[1:] != ['--check']:
        PAGE.write_text(redrawn, encoding='utf-8')
    elif redrawn != page:
        sys.exit('docs/architecture.md does not show the folders of docs/folders.txt')


if __name__ == '__main__':
    main()
