#!/usr/bin/env python3
"""Checks who may include whom.

A folder includes what stands below it and nothing above, the platform-free sources include no header of Windows or of
the window framework, not even through another header of this project, and a page includes no other page: they know
the Controller alone.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]', re.M)
STANDARD = re.compile(r'[a-z_0-9]+')


def includes_of(path):
    return INCLUDE.findall(path.read_text(encoding='utf-8'))


def resolve(name):
    for base in (ROOT / 'src', ROOT):
        if (base / name).is_file():
            return base / name
    return None


def foreign_includes(source):
    """The headers that a source reaches and that are neither the standard library's nor platform-free."""
    seen, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path in seen:
            continue
        seen.add(path)
        for kind, name in includes_of(path):
            target = resolve(name) if kind == '"' else None
            if target and 'framework' not in target.parts:
                waiting.append(target)
            elif kind == '"' or not STANDARD.fullmatch(name):
                yield f'{path.relative_to(ROOT)} includes {name}'


def floors():
    """The folders of docs/folders.txt by floor, from the lowest up; those of one floor do not include each other."""
    text = (ROOT / 'docs' / 'folders.txt').read_text(encoding='utf-8')
    blocks = [[line.split()[0] for line in block.splitlines() if line and not line.startswith('#')]
              for block in text.split('\n\n')]
    return [block for block in reversed(blocks) if block]


FLOORS = floors()
HEIGHT = {folder: height for height, folders in enumerate(FLOORS) for folder in folders}


def folder_of(path):
    return path.relative_to(ROOT).parent.as_posix()


def folders_on_no_floor():
    sources = (path for path in (ROOT / 'src').rglob('*') if path.suffix in ('.cpp', '.h'))
    for folder in sorted({folder_of(path) for path in sources} - HEIGHT.keys()):
        yield f'{folder} stands on no floor: name it in docs/folders.txt'


def upward_includes():
    for folder in HEIGHT:
        for source in sorted((ROOT / folder).glob('*.[ch]*')):
            for kind, name in includes_of(source):
                target = resolve(name) if kind == '"' else None
                other = folder_of(target) if target else folder
                if other != folder and HEIGHT.get(other, -1) >= HEIGHT[folder]:
                    yield (f'{source.relative_to(ROOT)} includes {name}, which does not stand below {folder}: hand it '
                           'in from above, as an argument, an interface or a callback')


def logic_sources():
    listing = (ROOT / 'src' / 'floors.cmake').read_text(encoding='utf-8')
    for floor, names in re.findall(r'^floor\((\w+)\s+LOGIC([^)]*?)(?:SYSTEM[^)]*)?\)', listing, re.M):
        for name in names.split():
            yield ROOT / 'src' / floor / f'{name}.cpp'


# Dialogs that a page opens over itself.
SUB_DIALOGS = {'CDisplayAppsListDlg.h', 'DriverConfigDlg.h', 'ModifySearchDlg.h', 'FileInUseDlg.h', 'RMFileInUseDlg.h'}


def page_to_page():
    pages = {path.name for folder in ('pages', 'discovery', 'ports', 'install') for path in
             (ROOT / 'src' / folder).glob('*Dlg.h')} - SUB_DIALOGS
    for source in sorted((ROOT / 'src').rglob('*Dlg.*')):
        for _, name in includes_of(source):
            included = pathlib.PurePath(name).name
            if included in pages and pathlib.PurePath(included).stem != source.stem:
                yield f'{source.relative_to(ROOT)} includes the page {included}'


def main():
    findings = sorted(set(f for source in logic_sources() for f in foreign_includes(source)))
    findings += list(folders_on_no_floor()) + list(upward_includes()) + list(page_to_page())
    print('\n'.join(findings))
    sys.exit(1 if findings else 0)


main()
