#!/usr/bin/env python3
"""Runs clang-tidy over the given sources, two at a time, and only over those that changed since they last passed.

usage: run-tidy.py BUILD_FOLDER SOURCE...

Windows sources are read by clang with the headers of mingw-w64, of the compiler that builds them.
"""
import concurrent.futures
import hashlib
import os
import pathlib
import subprocess
import sys

GCC = '/usr/lib/gcc/x86_64-w64-mingw32/12-posix'
SYSTEM_HEADERS = [f'{GCC}/include/c++', f'{GCC}/include/c++/x86_64-w64-mingw32', '/usr/x86_64-w64-mingw32/include']


def command(build, source):
    extra = ['--extra-arg-before=--target=x86_64-w64-windows-gnu', '--extra-arg=-Wno-unused-command-line-argument']
    for folder in SYSTEM_HEADERS:
        extra += ['--extra-arg=-isystem', f'--extra-arg={folder}']
    return ['clang-tidy', '--quiet', '-p', build, *extra, source]


def common_digest():
    """Over what every source may depend on: the rules and all headers of the project."""
    digest = hashlib.sha256()
    files = [pathlib.Path('.clang-tidy')]
    for folder in ('src', 'framework', 'standins'):
        files += sorted(pathlib.Path(folder).rglob('*.h'))
    for path in files:
        digest.update(path.read_bytes())
    return digest


def main():
    build, sources = sys.argv[1], sys.argv[2:]
    stamps = pathlib.Path(build) / 'tidy'
    stamps.mkdir(exist_ok=True)
    common = common_digest()

    def run(source):
        digest = common.copy()
        digest.update(pathlib.Path(source).read_bytes())
        stamp = stamps / (source.replace('/', '_') + '.passed')
        if stamp.exists() and stamp.read_text() == digest.hexdigest():
            return ''
        result = subprocess.run(command(build, source), capture_output=True, text=True)
        if result.returncode == 0:
            stamp.write_text(digest.hexdigest())
            return ''
        return result.stdout + result.stderr

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = ''.join(pool.map(run, sources))
    print(findings)
    sys.exit(1 if findings else 0)


main()
