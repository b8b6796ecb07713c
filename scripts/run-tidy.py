#!/usr/bin/env python3
"""Runs clang-tidy over the program, as many batches at a time as there are cores, and only over those batches that
changed, with what they include, since they last passed. A batch is what the build compiles at a time: most of the time
goes into the headers, which are read once for all its sources.

usage: run-tidy.py BUILD_FOLDER FOLDER...    the batches that hold sources of these folders

Windows sources are read by clang with the headers of mingw-w64, of the compiler that builds them, and without its
precompiled headers.
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
    """Writes the commands of the build without the precompiled headers, and returns their sources."""
    commands = json.loads((build / 'compile_commands.json').read_text())
    for entry in commands:
        entry['command'] = PRECOMPILED.sub('', entry['command'])
    (folder / 'compile_commands.json').write_text(json.dumps(commands))
    return [pathlib.Path(entry['file']) for entry in commands]


def batches_of(sources, folders):
    """Those of the sources that the build made of sources in the folders."""
    roots = [pathlib.Path(folder).resolve() for folder in folders]

    def concerns(batch):
        return any(pathlib.Path(name).is_relative_to(root) for name in INCLUDE.findall(batch.read_text()) for root in roots)

    return sorted(str(source) for source in sources if source.parent.name == 'Unity' and concerns(source))


def tidy_command(commands, source):
    extra = ['--extra-arg-before=--target=x86_64-w64-windows-gnu', '--extra-arg=-Wno-unused-command-line-argument',
             '--extra-arg=-Wno-unknown-warning-option']
    for folder in SYSTEM_HEADERS:
        extra += ['--extra-arg=-isystem', f'--extra-arg={folder}']
    # That a batch includes its sources is no mistake.
    extra += ['--checks=-bugprone-suspicious-include']
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
    build, folders = pathlib.Path(sys.argv[1]), sys.argv[2:]
    stamps = build / 'tidy'
    stamps.mkdir(exist_ok=True)
    sources = batches_of(write_commands(build, stamps), folders)

    def run(source):
        digest = digest_of(source)
        stamp = stamps / (source.removeprefix(str(build.resolve())).replace('/', '_') + '.passed')
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
