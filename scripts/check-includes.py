#!/usr/bin/env python3
"""Checks who may include whom.

A folder includes what stands below it and nothing above, the platform-free sources include no header of Windows or of
the window framework, not even through another header of this project, and a page includes no other page: they know
the Controller alone. Names in quotes begin at the root or in src. A source that names something of the standard library includes its header, itself or through a
header of this project: the compiler would not miss it, since it reads many sources at once.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]', re.M)
STANDARD = re.compile(r'[a-z_0-9]+')


def sources_in(*folders):
    for folder in folders:
        yield from sorted(path for path in (ROOT / folder).rglob('*') if path.suffix in ('.cpp', '.h'))


PRODUCT = ('src', 'framework', 'standins', 'tools', 'package')


def includes_of(path):
    return INCLUDE.findall(path.read_text(encoding='utf-8'))


def resolve(name):
    for base in (ROOT / 'src', ROOT):
        if (base / name).is_file():
            return base / name
    return None


def reached_includes(source, enters=lambda header: True):
    """Every include, as file, kind and name, that a source reaches through those headers of this project it enters."""
    seen, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path in seen:
            continue
        seen.add(path)
        for kind, name in includes_of(path):
            target = resolve(name) if kind == '"' else None
            if target and enters(target):
                waiting.append(target)
            else:
                yield path, kind, name


def foreign_includes(source):
    """The headers that a source reaches and that are neither the standard library's nor platform-free."""
    for path, kind, name in reached_includes(source, lambda header: 'framework' not in header.parts):
        if kind == '"' or not STANDARD.fullmatch(name):
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
    for folder in sorted({folder_of(path) for path in sources_in('src')} - HEIGHT.keys()):
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


# What is used, as a pattern, by the header that declares it.
STANDARD_NAMES = {
    'algorithm': r'(ranges::)?(sort|stable_sort|find|find_if|all_of|any_of|none_of|count|count_if|copy|equal|min|max|clamp|'
                 r'search|transform|replace|reverse|lower_bound|unique)\(',
    'array': r'array<', 'atomic': r'atomic\b', 'chrono': r'chrono::', 'exception': r'(exception|current_exception)\b',
    'filesystem': r'filesystem::', 'fstream': r'[io]?fstream\b', 'functional': r'function<', 'limits': r'numeric_limits\b',
    'list': r'list<', 'map': r'(multi)?map<', 'memory': r'(unique_ptr|shared_ptr|make_unique|make_shared)\b',
    'mutex': r'(mutex|lock_guard|unique_lock)\b', 'optional': r'(optional|nullopt)\b', 'set': r'set<',
    'string': r'w?string\b|to_w?string\b', 'string_view': r'w?string_view\b', 'thread': r'(thread|this_thread)\b',
    'unordered_map': r'unordered_(multi)?map<', 'utility': r'(move|exchange|pair)\b', 'variant': r'variant<',
    'vector': r'vector<',
}
USES = {header: re.compile(r'\bstd::(?:' + names + ')') for header, names in STANDARD_NAMES.items()}
COMMENT = re.compile(r'//.*')


def missing_standard_headers():
    for source in sources_in(*PRODUCT):
        text = COMMENT.sub('', source.read_text(encoding='utf-8'))
        reached = {name for _, kind, name in reached_includes(source) if kind == '<'}
        for header, use in USES.items():
            if header not in reached and use.search(text):
                yield f'{source.relative_to(ROOT)} does not include <{header}>'


def lost_includes():
    for source in sources_in(*PRODUCT, 'tests'):
        for kind, name in includes_of(source):
            if kind == '"' and resolve(name) is None:
                yield f'{source.relative_to(ROOT)} includes {name}, which lies neither at the root nor in src'


def main():
    findings = sorted(set(f for source in logic_sources() for f in foreign_includes(source)))
    findings += list(folders_on_no_floor()) + list(upward_includes()) + list(page_to_page())
    findings += list(missing_standard_headers()) + list(lost_includes())
    print('\n'.join(findings))
    sys.exit(1 if findings else 0)


main()
