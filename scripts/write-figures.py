#!/usr/bin/env python3
"""Writes what scripts/figures.sh has measured as a page with a drawing of how the work grows.

usage: write-figures.py FOLDER PAGE DRAWING    FOLDER holds figures.tsv, growth.tsv and processor.txt

How the work grows with the size of what it is done on is fitted as a power: an exponent of 1 is work in proportion. What a
program does whatever the size makes it less.
"""
import collections
import csv
import datetime
import math
import os
import pathlib
import platform
import subprocess
import sys

COLOURS = ['#1b6ca8', '#c0392b', '#2e8b57', '#8e44ad', '#b9770e', '#34495e']
WIDTH, HEIGHT, MARGIN = 640, 420, 60


def rows(path):
    with path.open(encoding='utf-8', newline='') as lines:
        return list(csv.reader(lines, delimiter='\t'))


def with_commas(text):
    number = float(text)
    return f'{number:,.0f}' if number >= 100 or number == int(number) else f'{number:g}'


def verdict(value, limit, peer_value):
    """The limit in words, and whether it is kept."""
    if not limit:
        return '', ''
    number, _, unit = limit.partition(' ')
    if unit:
        return f'{with_commas(number)} {unit}', 'yes' if float(value) <= float(number) else '**no**'
    return f'{number} times', 'yes' if float(value) <= float(number) * float(peer_value) else '**no**'


def figure_lines(figures):
    yield '| what | measured | beside | times | limit | kept |'
    yield '|---|--:|---|--:|--:|---|'
    for name, value, unit, limit, *peer in figures:
        beside = f'{peer[0]}: {with_commas(peer[1])} {unit}' if peer else ''
        times = f'{float(value) / float(peer[1]):.2f}' if peer else ''
        bound, kept = verdict(value, limit, peer[1] if peer else None)
        yield f'| {name} | {with_commas(value)} {unit} | {beside} | {times} | {bound} | {kept} |'


def lines_of_growth(points):
    """The name and unit of each line, with its points as (size, value)."""
    lines = collections.OrderedDict()
    for name, unit, size, value in points:
        lines.setdefault((name, unit), []).append((float(size), float(value)))
    return lines


def exponent(points):
    """The slope of the line through the logarithms that has the least squares."""
    places = [(math.log(size), math.log(value)) for size, value in points]
    middle_x = sum(x for x, _ in places) / len(places)
    middle_y = sum(y for _, y in places) / len(places)
    return sum((x - middle_x) * (y - middle_y) for x, y in places) / sum((x - middle_x) ** 2 for x, _ in places)


def growth_lines(lines):
    yield '| with | exponent | ' + ' | '.join(f'size {number}' for number in (1, 2, 3, 4)) + ' |'
    yield '|---|--:|' + '--:|' * 4
    for (name, unit), points in lines.items():
        cells = ' | '.join(f'{with_commas(size)}: {with_commas(value)} {unit}' for size, value in points)
        yield f'| {name} | {exponent(points):.2f} | {cells} |'


def drawing(lines):
    """Both axes are logarithmic and begin where each line does, so that work in proportion rises by half a right angle."""
    reach = max(math.log10(points[-1][0] / points[0][0]) for points in lines.values())
    top = max(reach, *(math.log10(max(value for _, value in points) / points[0][1]) for points in lines.values()))
    scale = min((WIDTH - 3 * MARGIN) / reach, (HEIGHT - 2 * MARGIN) / top)

    def place(first, point):
        return (f'{MARGIN + scale * math.log10(point[0] / first[0]):.1f},'
                f'{HEIGHT - MARGIN - scale * math.log10(point[1] / first[1]):.1f}')

    yield f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" font-family="sans-serif" font-size="12">'
    yield f'<title>How the work grows</title><rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>'
    end = (10 ** reach, 10 ** reach)
    yield (f'<polyline points="{place((1, 1), (1, 1))} {place((1, 1), end)}" fill="none" stroke="#999" '
           'stroke-dasharray="4 4"/>')
    yield f'<text x="{MARGIN}" y="{HEIGHT - MARGIN / 3:.0f}">how many times the size (each step of ten as wide as high)</text>'
    for number, ((name, _), points) in enumerate(lines.items()):
        colour = COLOURS[number % len(COLOURS)]
        yield (f'<polyline points="{" ".join(place(points[0], point) for point in points)}" fill="none" stroke="{colour}" '
               'stroke-width="2"/>')
        yield (f'<text x="{MARGIN}" y="{MARGIN / 2 + 16 * number:.0f}" fill="{colour}">{name}, '
               f'to the power of {exponent(points):.2f}</text>')
    yield '</svg>'


def said_by(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def stolen(path):
    """How much of the processors' time went to other machines of the same host, in percent."""
    before, after = ([int(number) for number in line.split()] for line in path.read_text().splitlines())
    return 100 * (after[0] - before[0]) / (after[1] - before[1])


def page(figures, lines, taken, picture):
    date = datetime.date.today().isoformat()
    commit = said_by('git', 'rev-parse', '--short', 'HEAD')
    changed = ', with changes' if said_by('git', 'status', '--porcelain', '--untracked-files=no') else ''
    yield '# Figures'
    yield ''
    yield f'Written by `scripts/figures.sh` on {date} at commit {commit}{changed}, on one of {os.cpu_count()} cores under'
    yield f'{said_by("wine", "--version")} on Linux {platform.release()}.'
    yield 'Times are medians of five and hold for that machine; what they are held against was measured in the same run. Wine is'
    yield f'not Windows: the ratios say more than the times. The host gave {taken:.0f} % of the processors to others meanwhile.'
    yield ''
    yield from figure_lines(figures)
    yield ''
    yield '## Growth'
    yield ''
    yield f'![How the work grows]({picture})'
    yield ''
    yield 'The dashed line is work in proportion.'
    yield ''
    yield from growth_lines(lines)


def main():
    folder, target, picture = map(pathlib.Path, sys.argv[1:])
    lines = lines_of_growth(rows(folder / 'growth.tsv'))
    taken = stolen(folder / 'processor.txt')
    text = '\n'.join(page(rows(folder / 'figures.tsv'), lines, taken, os.path.relpath(picture, target.parent)))
    target.write_text(text + '\n', encoding='utf-8')
    picture.write_text('\n'.join(drawing(lines)) + '\n', encoding='utf-8')


main()
