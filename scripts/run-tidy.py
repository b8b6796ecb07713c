#!/usr/bin/env python3
"""Runs clang-tidy over the sources that the build compiles, as many batches at a time as there are cores, and only over
those batches that changed, with what they include, since they last passed. A batch is all sources of a part of the tree,
read as one: nearly all of the time goes into the headers, which are read and looked through once for all of them. So what
a source keeps to itself must be the only one of its name in its part.

usage: run-tidy.py BUILD_FOLDER    with the commands of that build

Windows sources are read by clang with the headers of mingw-w64, of the compiler that builds them, and without its
precompiled headers. What is built for this machine alone is read with its own.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

from floors import ROOT, logic_sources
from mingw import SYSTEM_HEADERS

# The newer one passes over the code of the system's headers, and so takes a third of the time.
TIDY = next(filter(shutil.which, ['clang-tidy-22', 'clang-tidy']))
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.M)
ENTRY = re.compile(r'^\w[\w "]*\b(w?main|wWinMain|DllMain|LLVMFuzzerTestOneInput)\(', re.M)

# The parts, of which the first that a source lies in takes it; what only computes is a part of its own.
LOGIC = 'logic'
PARTS = ['src', 'framework', 'standins/discovery', 'standins', 'package', 'tools', 'tests/fakes', 'tests/unit/discovery',
         'tests/unit/packagecheck', 'tests/unit/printerqueue', 'tests/unit/rollout', 'tests/unit', 'tests/windows/standins',
         'tests/windows', 'tests/wizard', 'tests/bench']
SAME_PART = {'framework': 'src', 'package': 'standins'}
NATIVE = ('tests/fuzz', 'tests/threads')

# What the macros of the tests do to every test, what fixtures are, what costs a test nothing, and long texts in lists.
NOT_OF_TESTS = ['bugprone-derived-method-shadowing-base-method', 'bugprone-random-generator-seed',
                'bugprone-suspicious-missing-comma', 'cppcoreguidelines-owning-memory', 'cppcoreguidelines-slicing',
                'cppcoreguidelines-special-member-functions', 'cppcoreguidelines-virtual-class-destructor',
                'performance-inefficient-string-concatenation', 'performance-inefficient-vector-operation']


def part_of(source, logic):
    if source in logic:
        return LOGIC
    part = next((part for part in PARTS if source.startswith(part + '/')), None)
    return SAME_PART.get(part, part)


def options_of(command):
    """Where a command finds its headers, and what it defines."""
    words = shlex.split(command)
    joined = [word for word in words if word.startswith(('-I', '-D'))]
    return joined + [f'-isystem{folder}' for word, folder in zip(words, words[1:]) if word == '-isystem']


def native_sources():
    return [str(source.relative_to(ROOT)) for folder in NATIVE for source in (ROOT / folder).glob('*.cpp')]


def parts_of(build):
    """The sources of each part, with the options of all of them."""
    logic, parts = set(logic_sources()), {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        compiled = pathlib.Path(entry['file'])
        sources = INCLUDE.findall(compiled.read_text()) if compiled.parent.name == 'Unity' else [compiled]
        for source in map(pathlib.Path, sources):
            name = str(source.relative_to(ROOT)) if source.is_relative_to(ROOT) else ''
            part = part_of(name, logic)
            if part is not None and source.suffix == '.cpp':
                known, options = parts.setdefault(part, (set(), {}))
                known.add(name)
                options.update(dict.fromkeys(options_of(entry['command'])))
    for source in native_sources():
        # Each format of records for a fuzzer has the same names.
        part = source if source.endswith('Records.cpp') else os.path.dirname(source)
        parts.setdefault(part, ([], ['-I.', '-Isrc']))[0].append(source)
    return {part: (sorted(sources), list(options)) for part, (sources, options) in parts.items()}


def batch_text(sources):
    """Several programs have an entry each, which get names of their own."""
    text = ''
    for number, name in enumerate(sources):
        entry = ENTRY.search((ROOT / name).read_text(encoding='utf-8'))
        line = f'#include "{ROOT / name}"\n'
        text += f'#define {entry[1]} {entry[1]}{number}\n{line}#undef {entry[1]}\n' if entry else line
    return text


def tidy_command(part, batch, options):
    checks = ['-bugprone-suspicious-include', *(f'-{check}' for check in NOT_OF_TESTS if part.startswith('tests/'))]
    windows = ['--target=x86_64-w64-windows-gnu', *(f'-isystem{folder}' for folder in SYSTEM_HEADERS)]
    return [TIDY, '--quiet', f'--config-file={ROOT}/.clang-tidy', f'--checks={",".join(checks)}',
            f'--header-filter=^{re.escape(str(ROOT))}/(framework|package|src|standins|tests|tools)/', str(batch), '--',
            '-std=c++20', '-O0', *options, *([] if part.startswith(NATIVE) else windows)]


@functools.lru_cache(maxsize=None)
def own_includes(path):
    found = []
    for name in INCLUDE.findall(path.read_text(encoding='utf-8')):
        places = (path.parent / name, pathlib.Path('src') / name, pathlib.Path(name))
        found += [place for place in places if place.is_file()][:1]
    return found


def digest_of(sources):
    """Over what the findings depend on: the rules, this script, the sources, and the project's headers that they reach."""
    seen, waiting = set(), [pathlib.Path(source) for source in sources]
    while waiting:
        path = waiting.pop()
        if path not in seen:
            seen.add(path)
            waiting += own_includes(path)
    digest = hashlib.sha256()
    for path in [pathlib.Path('.clang-tidy'), pathlib.Path(__file__), *sorted(seen)]:
        digest.update(path.read_bytes())
    return digest.hexdigest()


def findings_of(folder, part, sources, options):
    batch = folder / f'{part.replace("/", "_")}.cpp'
    stamp, digest = batch.with_suffix('.passed'), digest_of(sources)
    if stamp.exists() and stamp.read_text() == digest:
        return ''
    batch.write_text(batch_text(sources))
    result = subprocess.run(tidy_command(part, batch, options), capture_output=True, text=True)
    if result.returncode != 0:
        return result.stdout + result.stderr
    stamp.write_text(digest)
    return ''


def main():
    build = pathlib.Path(sys.argv[1])
    folder = build / 'tidy'
    folder.mkdir(exist_ok=True)
    # The longest first, so that no core waits for it at the end.
    parts = sorted(parts_of(build).items(), key=lambda part: -len(part[1][0]))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = ''.join(pool.map(lambda part: findings_of(folder, part[0], *part[1]), parts))
    print(findings)
    sys.exit(1 if findings else 0)


main()
