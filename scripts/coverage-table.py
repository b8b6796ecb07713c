#!/usr/bin/env python3
"""Prints how many lines of the logic and of the readers of foreign bytes were run, and each line that was not.

usage: coverage-table.py FILE

The file is what llvm-cov exports in the form of lcov. The exit code is 1 where a part is below its limit.
"""
import collections
import os
import sys

import floors

# Whatever comes from a network, a package, a device or another program is read here, and every line of it is to be run.
READERS = {
    'addresses': ['src/CommonLib/AddressText'],
    'device documents': ['src/discovery/DeviceDocuments', 'src/settings/DeviceDocument'],
    'device texts': ['standins/discovery/Documents', 'standins/discovery/KeyedTexts', 'standins/discovery/OemTable',
                     'standins/discovery/PlainText'],
    'DNS': ['standins/discovery/DnsMessage'],
    'element names': ['src/settings/ElementNames'],
    'HTTP and IPP': ['standins/discovery/HttpResponse', 'standins/discovery/IppMessage'],
    'languages': ['src/settings/LanguageTable', 'src/settings/Localizer'],
    'NPA': ['src/discovery/NpaReply', 'standins/discovery/FaxPacket'],
    'packages': [f'tools/PackageCheck/{name}' for name in (
        'CodePages', 'FolderTree', 'MsiContents', 'Package', 'PeExports', 'SourceText', 'TagFile', 'TagScan')],
    'printer devices': [f'standins/PrinterQueue/{name}' for name in ('Deed', 'FieldText', 'Orders', 'PrinterDevice')],
    'records of a run': ['tools/Rollout/Inquiry', 'tools/Rollout/RunLog'],
    'settings merge': ['src/settings/SettingsMerge'],
    'SNMP': ['standins/discovery/Ber', 'standins/discovery/SnmpMessage', 'standins/discovery/Bytes'],
    'tag documents': ['src/settings/IndexedDocument', 'src/settings/TagDocument', 'src/settings/TagSearch'],
    'text expansion': ['src/settings/TextExpansion', 'src/settings/KeyedValues'],
    'UTF-8': ['src/CommonLib/Utf8'],
}
# Lines that only Windows runs, where a unit of wide text has 16 bits; the unit tests run there too.
WINDOWS_ALONE = {
    'src/CommonLib/Utf8.cpp': ['    const std::uint32_t second = static_cast<std::uint32_t>(text[1]) & 0x3FFU;',
                               '    return {.code = firstPair + ((unit & 0x3FFU) << 10U) + second, .length = 2};',
                               '        text += static_cast<wchar_t>(0xD800U + ((code - firstPair) >> 10U));',
                               '        text += static_cast<wchar_t>(0xDC00U + (code & 0x3FFU));'],
}
LEAST_OF_READERS = 100
LEAST_OF_LOGIC = 95


def read_counts(path):
    """How often each line of each file was run."""
    counts = collections.defaultdict(dict)
    with open(path, encoding='utf-8') as exported:
        for line in exported:
            kind, _, rest = line.rstrip('\n').partition(':')
            if kind == 'SF':
                file = os.path.relpath(rest, floors.ROOT)
            elif kind == 'DA':
                number, count = rest.split(',')[:2]
                counts[file][int(number)] = int(count)
    return counts


def parts_of(counts):
    """The parts of the table: name, files and limit. A folder of the logic has none; all of it together has."""
    logic = floors.logic_sources()
    folders = sorted({os.path.dirname(name) for name in logic})
    parts = [(folder, [name for name in logic if os.path.dirname(name) == folder], 0) for folder in folders]
    parts.append(('kestrune_logic', logic, LEAST_OF_LOGIC))
    for reader, stems in READERS.items():
        names = [f'{stem}{end}' for stem in stems for end in ('.h', '.cpp')]
        files = [name for name in names if name in counts or name.endswith('.cpp') and (floors.ROOT / name).exists()]
        parts.append((f'reader: {reader}', files, LEAST_OF_READERS))
    return parts


def uncounted(counts, parts):
    """Sources of which no program has a line, so that nobody knows which of them are run."""
    return sorted({file for _, files, _ in parts for file in files if file not in counts})


def leave_out_windows(counts):
    """Takes the lines away that only Windows runs."""
    for file, texts in WINDOWS_ALONE.items():
        lines = (floors.ROOT / file).read_text(encoding='utf-8').splitlines()
        for text in texts:
            if text not in lines:
                sys.exit(f'coverage: {file} has no line any more: {text.strip()}')
            counts[file].pop(lines.index(text) + 1, None)


def missed_lines(counts, files):
    return [f'{file}:{line}' for file in files for line, count in sorted(counts[file].items()) if count == 0]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    counts = read_counts(sys.argv[1])
    leave_out_windows(counts)
    missed = {}
    failed = []
    print(f'{"part":28}{"lines":>8}{"run":>8}{"":>9}{"limit":>8}')
    parts = parts_of(counts)
    for file in uncounted(counts, parts):
        failed.append(file)
    for name, files, least in parts:
        lines = sum(len(counts[file]) for file in files)
        left = missed_lines(counts, files)
        share = 100 * (lines - len(left)) / lines if lines else 0
        print(f'{name:28}{lines:8}{lines - len(left):8}{share:8.2f}%{f"{least}%" if least else "":>8}')
        missed.update(dict.fromkeys(left))
        if share < least:
            failed.append(name)
    for line in missed:
        print(f'not run: {line}')
    print('coverage: ' + (f'below the limit: {", ".join(failed)}' if failed else 'all parts reach their limits'))
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
