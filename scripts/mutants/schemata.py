"""All mutants of the sources in one program: each changed expression stands behind a switch."""
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import re
import shlex

import breaks
from mutants import syntax

SWITCH = '#include "scripts/mutants/MutantSwitch.h"\n#line 1\n'


@dataclasses.dataclass(frozen=True)
class Mutant:
    """A change of a source; old and new are the lines without it and with it, and function the line that the function
    around it begins with."""
    number: int
    file: str
    line: int
    last_line: int
    change: syntax.Change
    function: str
    old: str
    new: str

    def __str__(self):
        return f'{self.file}:{self.line}: {self.old}  =>  {self.new}'


# --- the sources and what can be changed in them

def sources_of(suite):
    """The sources of the suite with what the parser is told of them, by the batches of the build."""
    found = {}
    for entry in json.loads((suite.folder / 'compile_commands.json').read_text()):
        batch = re.search(r'/CMakeFiles/(\w+)\.dir/Unity/unity_', entry['file'])
        if batch and batch[1] in suite.mutated:
            arguments = [*arguments_of(shlex.split(entry['command'])), *suite.parser_options]
            for name in re.findall(r'^#include "(.*)"', pathlib.Path(entry['file']).read_text(), re.M):
                found[str(pathlib.Path(name).relative_to(breaks.TREE))] = arguments
    return dict(sorted(found.items()))


def arguments_of(words):
    kept = []
    for place, word in enumerate(words):
        if word.startswith(('-D', '-I', '-std')):
            kept.append(word)
        elif word == '-isystem':
            kept += words[place:place + 2]
    return kept


def one_line(text):
    return ' '.join(text.split())


def mutants_of(found):
    """All mutants of the sources, numbered from 1. What a source is without them is in the tree."""
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        paths = [breaks.ROOT / file for file in found]
        changes = list(pool.map(syntax.changes_of, paths, found.values()))
    mutants = []
    for file, of_file in zip(found, changes):
        text = (breaks.ROOT / file).read_text(encoding='latin-1')
        mutants += [mutant_of(len(mutants) + count, file, text, change) for count, change in enumerate(of_file, 1)]
    return mutants


def mutant_of(number, file, text, change):
    first = text.rfind('\n', 0, change.start) + 1
    last = text.find('\n', change.end)
    shown = text[first:change.start], text[change.start:change.end], text[change.end:last]
    line = text.count('\n', 0, change.start) + 1
    return Mutant(number, file, line, line + shown[1].count('\n'), change, function=function_around(text, change.start),
                  old=one_line(''.join(shown)), new=one_line(shown[0] + change.new + shown[2]))


def function_around(text, place):
    """The last line up to a place that begins with a word."""
    lines = re.findall(r'^\w.*', text[:place], re.M)
    return one_line(lines[-1]) if lines else ''


# --- the rewritten sources

class Place:
    """An expression with all its changes, and the changed expressions within."""

    def __init__(self, start, end):
        self.start, self.end = start, end
        self.mutants, self.within = [], []

    def written(self, text):
        inside = written(text, self.start, self.end, self.within)
        is_truth = any(mutant.change.is_truth for mutant in self.mutants)
        choices = ''.join(f'IsMutant({mutant.number}) ? ({mutant.change.new}) : ' for mutant in self.mutants)
        return f'({choices}{"!!" if is_truth else ""}({inside}))' if choices else inside


def written(text, start, end, places):
    parts = []
    for place in places:
        parts += [text[start:place.start], place.written(text)]
        start = place.end
    return ''.join([*parts, text[start:end]])


def places_of(mutants):
    """The outermost places. One that overlaps another and is not within it cannot be switched."""
    whole = Place(0, 1 << 30)
    open_places = [whole]
    for mutant in sorted(mutants, key=lambda mutant: (mutant.change.start, -mutant.change.end)):
        start, end = mutant.change.start, mutant.change.end
        while open_places[-1].end <= start:
            open_places.pop()
        if (start, end) != (open_places[-1].start, open_places[-1].end):
            if end > open_places[-1].end:
                continue
            place = Place(start, end)
            open_places[-1].within.append(place)
            open_places.append(place)
        open_places[-1].mutants.append(mutant)
    return whole.within


def write_switched(mutants):
    """Writes the sources with their switches into the copy, where they differ from what is there."""
    for file in sorted({mutant.file for mutant in mutants}):
        text = (breaks.ROOT / file).read_text(encoding='latin-1')
        own = [mutant for mutant in mutants if mutant.file == file]
        new = SWITCH + written(text, 0, len(text), places_of(own))
        path = breaks.TREE / file
        if path.read_text(encoding='latin-1') != new:
            path.write_text(new, encoding='latin-1')


def named_lines(said, folder):
    """The lines of the copy's sources that the compiler finds fault with or came to a fault from."""
    named = re.findall(r'([\w./-]+\.cpp):(\d+):\d+: (?:error|.*required from|note: in instantiation)', said)
    return {(os.path.relpath(folder / path, breaks.TREE), int(line)) for path, line in named}


def is_wrong(mutant, lines):
    return any((mutant.file, line) in lines for line in range(mutant.line, mutant.last_line + 1))


def build_switched(mutants, suite):
    """Builds the program of all mutants and returns those that are in it: a line that does not compile has none."""
    while True:
        write_switched(mutants)
        is_built, said = suite.build()
        if is_built:
            return mutants
        lines = named_lines(said, suite.folder)
        kept = [mutant for mutant in mutants if not is_wrong(mutant, lines)]
        if len(kept) == len(mutants):
            raise RuntimeError(said[-6000:])
        mutants = kept
