#!/usr/bin/env python3
"""Lists what the built programs do against misuse, as their own files say it, and fails where something promised is missing.

usage: check-binary.py BUILD_FOLDER    the folder with Kestrune.exe, Rollout.exe and PackageCheck.exe

Each promise is also held against a copy of the program that breaks it, in memory, so that a check which sees nothing fails.

What cannot be had: the compiler writes no tables for control flow guard and marks nothing for shadow stacks, so both are
reported and not promised. Without a stack protector the programs have no canary; they keep foreign bytes in containers
that know their length.
"""
import dataclasses
import pathlib
import re
import struct
import sys

PROGRAMS = {'Kestrune.exe': 'requireAdministrator', 'Rollout.exe': 'asInvoker', 'PackageCheck.exe': 'asInvoker'}

RELOCATIONS_STRIPPED = 0x0001
HIGH_ENTROPY_VA, DYNAMIC_BASE, NX_COMPAT, GUARD_CF = 0x0020, 0x0040, 0x0100, 0x4000
IMPORT, RESOURCE, RELOCATION, LOAD_CONFIGURATION, DELAY_IMPORT = 1, 2, 5, 10, 13
EXECUTABLE, WRITABLE = 0x20000000, 0x80000000
MANIFEST = 24
MESSAGE_FILTER = b'ChangeWindowMessageFilter'
SEARCH_SYSTEM_FOLDER = 0x0800
# Where the record of the load configuration has the flags of the search.
SEARCH_FLAGS = 0x4E

# What Windows has mapped beforehand and takes from nowhere else, and the controls, which the manifest binds to the
# system's own copy.
KNOWN = {'advapi32.dll', 'comctl32.dll', 'comdlg32.dll', 'gdi32.dll', 'kernel32.dll', 'msvcrt.dll', 'ntdll.dll', 'ole32.dll',
         'oleaut32.dll', 'shell32.dll', 'shlwapi.dll', 'user32.dll'}
# The tools read packages themselves. This library could lie beside them, and the search of the load configuration alone
# keeps such a copy out.
IMPORTS = {'Kestrune.exe': KNOWN, 'Rollout.exe': KNOWN | {'msi.dll'}, 'PackageCheck.exe': KNOWN | {'msi.dll'}}


@dataclasses.dataclass
class Section:
    header: int
    size: int
    address: int
    place: int
    flags: int


class Image:
    """A program's file. Places are offsets in it, addresses are those of the program in memory, relative to its base."""

    def __init__(self, data):
        self.data = bytearray(data)
        self.headers = self.number('I', 0x3C)
        if self.data[:2] != b'MZ' or self.data[self.headers:self.headers + 4] != b'PE\0\0':
            raise ValueError('this is no program')
        self.optional = self.headers + 24
        first = self.optional + self.number('H', self.headers + 20)
        self.sections = []
        for header in range(first, first + 40 * self.number('H', self.headers + 6), 40):
            size, address, stored, place = struct.unpack_from('<4I', self.data, header + 8)
            self.sections.append(Section(header, max(size, stored), address, place, self.number('I', header + 36)))

    def number(self, form, place):
        return struct.unpack_from('<' + form, self.data, place)[0]

    def put(self, form, place, number):
        struct.pack_into('<' + form, self.data, place, number)

    def place(self, address):
        for section in self.sections:
            if section.address <= address < section.address + section.size:
                return section.place + address - section.address
        raise ValueError(f'{address:#x} is in no section')

    def flags_place(self):
        return self.optional + 70

    def has(self, flag):
        return bool(self.number('H', self.flags_place()) & flag)

    def directory_place(self, kind):
        return self.optional + 112 + 8 * kind

    def directory(self, kind):
        """The place and the size of a directory, or None."""
        address, size = struct.unpack_from('<2I', self.data, self.directory_place(kind))
        return (self.place(address), size) if address and size else None

    def text(self, address):
        place = self.place(address)
        return self.data[place:self.data.index(0, place)].decode('ascii').lower()

    def libraries(self, kind, length, name):
        """The names in a table of imports whose entries have that length, and their names' addresses at that offset."""
        names = []
        place = (self.directory(kind) or (None,))[0]
        while place is not None and self.number('I', place + name):
            names.append(self.text(self.number('I', place + name)))
            place += length
        return names

    def imports(self):
        return self.libraries(IMPORT, 20, 12)

    def late_imports(self):
        return self.libraries(DELAY_IMPORT, 32, 4)

    def relocations(self):
        """How many places of the program the system can move."""
        place, size = self.directory(RELOCATION) or (0, 0)
        count, end = 0, place + size
        while place < end:
            length = self.number('I', place + 4)
            if length < 8:
                break
            count += (length - 8) // 2
            place += length
        return count

    def search_flags(self):
        place = (self.directory(LOAD_CONFIGURATION) or (None,))[0]
        return 0 if place is None or self.number('I', place) < SEARCH_FLAGS + 2 else self.number('H', place + SEARCH_FLAGS)

    def manifest(self):
        """The text of the program's manifest; empty if it has none."""
        root = (self.directory(RESOURCE) or (None,))[0]
        if root is None:
            return ''
        place, wanted = root, MANIFEST
        while True:
            count = self.number('H', place + 12) + self.number('H', place + 14)
            entries = [struct.unpack_from('<2I', self.data, place + 16 + 8 * i) for i in range(count)]
            offset = next((offset for identifier, offset in entries if wanted in (None, identifier)), None)
            if offset is None:
                return ''
            place, wanted = root + (offset & 0x7FFFFFFF), None
            if not offset & 0x80000000:
                start, size = self.place(self.number('I', place)), self.number('I', place + 4)
                return self.data[start:start + size].decode('utf-8')

    def level(self):
        found = re.search(r'requestedExecutionLevel\s+level="(\w+)"\s+uiAccess="false"', self.manifest())
        return found.group(1) if found else 'none'

    def open_sections(self):
        return [section for section in self.sections if section.flags & EXECUTABLE and section.flags & WRITABLE]


@dataclasses.dataclass
class Promise:
    """What holds of a program, and how a copy is spoilt so that it holds no more."""
    text: str
    holds: object
    spoil: object


def without(flag):
    return lambda image, _: image.put('H', image.flags_place(), image.number('H', image.flags_place()) & ~flag)


def without_directory(kind):
    return lambda image, _: image.put('Q', image.directory_place(kind), 0)


def with_stripped_mark(image, _):
    image.put('H', image.headers + 22, image.number('H', image.headers + 22) | RELOCATIONS_STRIPPED)


def with_open_section(image, _):
    image.put('I', image.sections[0].header + 36, image.sections[0].flags | EXECUTABLE | WRITABLE)


def with_other_import(image, _):
    place = image.place(image.number('I', image.directory(IMPORT)[0] + 12))
    image.data[place:place + 4] = b'evil'


def with_late_import(image, _):
    """The table of imports taken for one of late imports: its entries name libraries at another place."""
    image.put('Q', image.directory_place(DELAY_IMPORT), image.number('Q', image.directory_place(IMPORT)))
    table = image.directory(IMPORT)[0]
    image.put('I', table + 4, image.number('I', table + 12))
    image.put('I', table + 32 + 4, 0)


def with_searched_folder(image, _):
    image.put('H', image.directory(LOAD_CONFIGURATION)[0] + SEARCH_FLAGS, 0)


def with_open_messages(image, _):
    image.data += MESSAGE_FILTER


def with_other_level(image, name):
    place = image.data.find(f'level="{PROGRAMS[name]}"'.encode())
    image.data[place + 7:place + 9] = b'XX'


PROMISES = [
    Promise('data is not executed (NX_COMPAT)', lambda image, _: image.has(NX_COMPAT), without(NX_COMPAT)),
    Promise('its place in memory is not known (DYNAMIC_BASE)', lambda image, _: image.has(DYNAMIC_BASE),
            without(DYNAMIC_BASE)),
    Promise('nor in a large memory (HIGH_ENTROPY_VA)', lambda image, _: image.has(HIGH_ENTROPY_VA), without(HIGH_ENTROPY_VA)),
    Promise('it can be moved: relocations are there', lambda image, _: image.relocations() > 100,
            without_directory(RELOCATION)),
    Promise('relocations are not marked as stripped',
            lambda image, _: not image.number('H', image.headers + 22) & RELOCATIONS_STRIPPED, with_stripped_mark),
    Promise('no section is writable and executable', lambda image, _: not image.open_sections(), with_open_section),
    Promise('imports nothing that is not expected', lambda image, name: image.imports() and set(image.imports()) <= IMPORTS[name],
            with_other_import),
    Promise('imports nothing late', lambda image, _: not image.late_imports(), with_late_import),
    Promise("imports come from the system's folder alone (load configuration)",
            lambda image, _: image.search_flags() == SEARCH_SYSTEM_FOLDER, with_searched_folder),
    Promise('lets no message through from programs of fewer rights', lambda image, _: MESSAGE_FILTER not in image.data,
            with_open_messages),
    Promise('the manifest names the execution level', lambda image, name: image.level() == PROGRAMS[name], with_other_level),
]


def report(name, image):
    print(f'{name}: {", ".join(image.imports())}')
    print(f'    late imports: {", ".join(image.late_imports()) or "none"}; relocations: {image.relocations()}; '
          f'search: {image.search_flags():#06x}; level: {image.level()}')
    print(f'    control flow guard: {"yes" if image.has(GUARD_CF) else "no, the compiler has none"}; '
          f'stack protector: {"yes" if b"stack smashing detected" in image.data else "no"}')


def findings(name, data):
    image = Image(data)
    report(name, image)
    broken = [promise for promise in PROMISES if not promise.holds(image, name)]
    for promise in broken:
        yield f'{name} does not keep: {promise.text}'
    for promise in PROMISES:
        spoilt = Image(data)
        if promise in broken:
            continue
        promise.spoil(spoilt, name)
        if promise.holds(Image(spoilt.data), name):
            yield f'{name}: nobody would see that this does not hold: {promise.text}'


def main():
    folder = pathlib.Path(sys.argv[1])
    lines = [line for name in PROGRAMS for line in findings(name, (folder / name).read_bytes())]
    print('\n'.join(lines) or f'{len(PROGRAMS)} programs keep {len(PROMISES)} promises')
    sys.exit(1 if lines else 0)


main()
