#!/usr/bin/env python3
"""Writes down what is linked into the programs, as an SPDX 2.3 document, and holds such a document against the build.

usage: make-sbom.py BUILD_FOLDER OUTPUT           writes the document
       make-sbom.py --check BUILD_FOLDER INPUT    fails where it lacks a field that the form demands, a library that the
                                                  linker takes from, or the present hash of a program

What is linked in comes from the linker, which is run once more for each program and says what it loads; names, versions
and licences come from Debian's packages.
"""
import datetime
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

PROGRAMS = ['Kestrune.exe', 'Rollout.exe', 'PackageCheck.exe']
FONT = '/usr/share/fonts/truetype/noto/NotoSans-Regular.ttf'
JSON = '/usr/include/nlohmann/json.hpp'
THREADS = {'libpthread.a', 'libwinpthread.a'}
LOADED = re.compile(r'\b(lib[\w+]+\.a)\(')
OBJECT = re.compile(r'Reading (/\S+\.o)$', re.M)

# The words of Debian's copyright files for licences that SPDX names otherwise.
NAMES = {'expat': 'MIT', 'Expat': 'MIT', 'BSD-3-clause-Lockless': 'BSD-3-Clause', 'BSD-3-clause': 'BSD-3-Clause'}
GCC_EXCEPTION = 'GCC RUNTIME LIBRARY EXCEPTION'
GCC_LICENCE = 'GPL-3.0-or-later WITH GCC-exception-3.1'

# What the form demands of the document and of each package.
DOCUMENT_FIELDS = ['spdxVersion', 'dataLicense', 'SPDXID', 'name', 'documentNamespace', 'creationInfo', 'packages',
                   'relationships', 'documentDescribes']
PACKAGE_FIELDS = ['SPDXID', 'name', 'downloadLocation', 'versionInfo', 'licenseDeclared', 'licenseConcluded',
                  'copyrightText', 'filesAnalyzed']


def run(*command, folder=None):
    done = subprocess.run(command, capture_output=True, text=True, cwd=folder, check=False)
    if done.returncode:
        sys.exit(f'{command[0]} has failed: {done.stderr[-2000:]}')
    return done.stdout + done.stderr


@functools.cache
def linked(build, program):
    """The files outside the build that the linker takes something from, by their full paths."""
    command = run('ninja', '-t', 'commands', program, folder=build).splitlines()[-1]
    with tempfile.TemporaryDirectory() as folder:
        command = command.replace(f' -o {program}', f' -Wl,--verbose -o {folder}/{program}')
        command = re.sub(r'-Wl,--out-implib,\S+', '', command)
        said = run('sh', '-c', command, folder=build)
    paths = {os.path.basename(path): path for path in re.findall(r'(?<!\S)/\S+\.a\b', said)}
    archives = {paths[name] for name in LOADED.findall(said) if name in paths}
    return sorted(os.path.realpath(path) for path in archives | set(OBJECT.findall(said)))


@functools.cache
def debian_package(path):
    return run('dpkg', '-S', path).split(':')[0]


@functools.cache
def version_of(package):
    return run('dpkg-query', '-W', '-f=${Version}', package)


def licence_of(package, files='*'):
    """The licence that the package's copyright file gives those files, in the words of SPDX."""
    text = pathlib.Path('/usr/share/doc', package, 'copyright').read_text(encoding='utf-8')
    if GCC_EXCEPTION in text:
        return GCC_LICENCE
    for paragraph in text.split('\n\n'):
        found = re.search(r'^Files:\s+(\S+)', paragraph, re.M)
        licence = re.search(r'^License:\s*(\S+)', paragraph, re.M)
        if found and licence and found.group(1) == files:
            return NAMES.get(licence.group(1), licence.group(1))
    return 'NOASSERTION'


def identifier(name):
    return 'SPDXRef-' + re.sub(r'[^A-Za-z0-9.-]', '-', name)


def component(name, package, licence, comment):
    """A part of a program, as a package of the document."""
    return {'SPDXID': identifier(name), 'name': name, 'versionInfo': version_of(package), 'licenseDeclared': licence,
            'licenseConcluded': 'NOASSERTION', 'copyrightText': 'NOASSERTION', 'filesAnalyzed': False,
            'downloadLocation': 'NOASSERTION', 'supplier': 'Organization: Debian', 'comment': comment,
            'externalRefs': [{'referenceCategory': 'PACKAGE-MANAGER', 'referenceType': 'purl',
                              'referenceLocator': f'pkg:deb/debian/{package}@{version_of(package)}'}]}


def library(path):
    """What the file of a library belongs to: the name, Debian's package, and its files in the copyright file."""
    package = debian_package(path)
    if os.path.basename(path) in THREADS:
        return 'winpthreads', package, 'mingw-w64-libraries/winpthreads/*'
    if package.startswith('g++'):
        return 'libstdc++', package, '*'
    return ('libgcc' if package.startswith('gcc') else 'mingw-w64 runtime'), package, '*'


def libraries_of(build):
    """What the programs are linked with: for each library its files, and the programs."""
    files, users = {}, {}
    for program in PROGRAMS:
        for path in linked(build, program):
            files.setdefault(library(path), set()).add(os.path.basename(path))
            users.setdefault(library(path), set()).add(program)
    for (name, package, licensed), names in files.items():
        comment = 'linked in from ' + ', '.join(sorted(names))
        yield component(name, package, licence_of(package, licensed), comment), 'STATIC_LINK', users[name, package, licensed]


def compiled_in():
    for name, path, comment, users in (
            ('Noto Sans', FONT, 'the font "Velmora" in the program is made from it', {'Kestrune.exe'}),
            ('JSON for Modern C++', JSON, 'a header, compiled in', {'Rollout.exe', 'PackageCheck.exe'})):
        package = debian_package(path)
        yield component(name, package, licence_of(package), comment), 'CONTAINS', users


def own_version():
    return re.search(r'project\(Kestrune VERSION (\S+)', pathlib.Path('CMakeLists.txt').read_text(encoding='utf-8')).group(1)


def hash_of(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def program_package(build, program):
    comment = 'the icon is drawn in this project, from resources/images/icon.svg' if program == 'Kestrune.exe' else ''
    return {'SPDXID': identifier(program), 'name': program, 'versionInfo': own_version(), 'packageFileName': program,
            'downloadLocation': 'NOASSERTION', 'filesAnalyzed': False, 'licenseDeclared': 'NOASSERTION',
            'licenseConcluded': 'NOASSERTION', 'copyrightText': 'NOASSERTION', 'primaryPackagePurpose': 'APPLICATION',
            'comment': comment,
            'checksums': [{'algorithm': 'SHA256', 'checksumValue': hash_of(build / program)}]}


def relationship(first, kind, second):
    return {'spdxElementId': first, 'relationshipType': kind, 'relatedSpdxElement': second}


def document(build):
    programs = [program_package(build, program) for program in PROGRAMS]
    relationships = [relationship('SPDXRef-DOCUMENT', 'DESCRIBES', package['SPDXID']) for package in programs]
    parts = []
    for part, kind, users in (*libraries_of(build), *compiled_in()):
        parts.append(part)
        relationships += [relationship(identifier(program), kind, part['SPDXID']) for program in sorted(users)]
    hashes = ''.join(package['checksums'][0]['checksumValue'] for package in programs)
    time = datetime.datetime.fromtimestamp(int(os.environ.get('SOURCE_DATE_EPOCH', datetime.datetime.now().timestamp())),
                                           datetime.timezone.utc)
    return {'spdxVersion': 'SPDX-2.3', 'dataLicense': 'CC0-1.0', 'SPDXID': 'SPDXRef-DOCUMENT', 'name': f'Kestrune {own_version()}',
            'documentNamespace': 'https://kestrune.invalid/spdx/' + hashlib.sha256(hashes.encode()).hexdigest(),
            'creationInfo': {'created': time.strftime('%Y-%m-%dT%H:%M:%SZ'), 'creators': ['Tool: make-sbom.py']},
            'documentDescribes': [package['SPDXID'] for package in programs],
            'packages': programs + sorted(parts, key=lambda part: part['name']), 'relationships': relationships}


def form_findings(sbom):
    for field in DOCUMENT_FIELDS:
        if not sbom.get(field):
            yield f'the document has no {field}'
    identifiers = [package.get('SPDXID') for package in sbom['packages']]
    if len(set(identifiers)) != len(identifiers):
        yield 'an identifier stands twice'
    for package in sbom['packages']:
        for field in PACKAGE_FIELDS:
            if package.get(field) in (None, ''):
                yield f'{package.get("name")} has no {field}'
        if not re.fullmatch(r'SPDXRef-[A-Za-z0-9.-]+', package.get('SPDXID', '')):
            yield f'{package.get("SPDXID")} is no identifier'
    for each in sbom['relationships']:
        for side in ('spdxElementId', 'relatedSpdxElement'):
            if each[side] not in identifiers + ['SPDXRef-DOCUMENT']:
                yield f'a relationship names {each[side]}, which is not there'


def build_findings(sbom, build):
    packages = {package['SPDXID']: package for package in sbom['packages']}
    for program in PROGRAMS:
        own = identifier(program)
        if packages.get(own, {}).get('checksums', [{}])[0].get('checksumValue') != hash_of(build / program):
            yield f'{program} has another hash'
        parts = [packages[each['relatedSpdxElement']] for each in sbom['relationships']
                 if each['spdxElementId'] == own and each['relatedSpdxElement'] in packages]
        for path in linked(build, program):
            name, package, _ = library(path)
            locator = f'pkg:deb/debian/{package}@{version_of(package)}'
            if not any(part['name'] == name and os.path.basename(path) in part['comment'] and
                       part['externalRefs'][0]['referenceLocator'] == locator for part in parts):
                yield f'{program} is linked with {path}, of which the document says nothing'
    for package in sbom['packages']:
        if package['SPDXID'] not in map(identifier, PROGRAMS) and package['licenseDeclared'] == 'NOASSERTION':
            yield f'the licence of {package["name"]} is not known'


def main():
    os.chdir(pathlib.Path(__file__).resolve().parent.parent)
    if sys.argv[1] != '--check':
        build, output = map(pathlib.Path, sys.argv[1:])
        output.write_text(json.dumps(document(build), indent=2) + '\n', encoding='utf-8')
        return
    build, source = map(pathlib.Path, sys.argv[2:])
    sbom = json.loads(source.read_text(encoding='utf-8'))
    findings = [*form_findings(sbom), *build_findings(sbom, build)]
    print('\n'.join(findings) or f'{source}: {len(sbom["packages"])} packages')
    sys.exit(1 if findings else 0)


main()
