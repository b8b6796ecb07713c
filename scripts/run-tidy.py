#!/usr/bin/env python3
"""Runs clang-tidy over the given sources, as many at a time as there are cores, and only over those that changed, with
what they include, since they last passed.

usage: run-tidy.py BUILD_FOLDER SOURCE...

Windows sources are read by clang with the headers of mingw-w64, of the compiler that builds them, and without its
precompiled headers: a source that does not include what it uses is not read to its end.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

GCC = '/usr/lib/gcc/x86_64-w64-mingw32/12-posix'
SYSTEM_HEADERS = [f'{GCC}/include/c++', f'{GCC}/include/c++/x86_64-w64-mingw32', '/usr/x86_64-w64-mingw32/include']
PRECOMPILED = re.compile(r' (-Winvalid-pch|-fpch-preprocess|-include \S*cmake_pch\.hxx)(?= )')
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.M)


def write_commands(build, folder):
    """The commands of the build without the precompiled headers."""
    commands = json.loads((build / 'compile_commands.json').read_text())
    for entry in commands:
        entry['command'] = PRECOMPILED.sub('', entry['command'])
    (folder / 'compile_commands.json').write_text(json.dumps(commands))


def tidy_command(commands, source):
    extra = ['--extra-arg-before=--target=x86_64-w64-windows-gnu', '--extra-arg=-Wno-unused-command-line-argument',
             '--extra-arg=-Wno-unknown-warning-option']
    for folder in SYSTEM_HEADERS:
        extra += ['--extra-arg=-isystem', f'--extra-arg={folder}']
    return ['clang-tidy', '--quiet', '-p', str(commands), *extra, source]


@functools.lru_cache(maxsize=None)
def own_includes(path):
    found = []
    for name in INCLUDE.findall(path.read_text(encoding='utf-8')):
        places = (path.parent / name, pathlib.Path('src') / name, pathlib.Path(name))
        found += [place for place in places if place.is_file()][:1]
    return found


def digest_of(source):
    """Over what the findings depend on: the rules, the source, and the project's headers that it reaches."""
    seen, waiting = set(), [pathlib.Path(source)]
    while waiting:
        path = waiting.pop()
        if path not in seen:
            seen.add(path)
            waiting += own_includes(path)
    digest = hashlib.sha256()
    for path in [*pathlib.Path().glob('.clang-tidy'), *sorted(seen)]:
        digest.update(path.read_bytes())
    return digest.hexdigest()


def main():
    build, sources = pathlib.Path(sys.argv[1]), sys.argv[2:]
    stamps = build / 'tidy'
    stamps.mkdir(exist_ok=True)
    write_commands(build, stamps)

    def run(source):
        digest = digest_of(source)
        stamp = stamps / (source.replace('/', '_') + '.passed')
        if stamp.exists() and stamp.read_text() == digest:
            return ''
        result = subprocess.run(tidy_command(stamps, source), capture_output=True, text=True)
        if result.returncode == 0:
            stamp.write_text(digest)
            return ''
        return result.stdout + result.stderr

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = ''.join(pool.map(run, sources))
    print(findings)
    sys.exit(1 if findings else 0)


main()
