#!/usr/bin/env python3
"""Gives the topics of a compiled help their names within it.

usage: relative-topics.py HELP.chm

Which page belongs to which number of a dialog stands in the file "/#STRINGS" of the help, where the compiler writes the
full paths of the pages on this machine. The viewer of Windows looks for a page of that name in the help and finds none.
The file is compressed together with the pages, so a new one is put at the end of the help, uncompressed, and the entry of
the directory leads there.

The form is that of the "ITSF" container: https://www.nongnu.org/chmspec/latest/
"""
import pathlib
import struct
import subprocess
import sys
import tempfile

STRINGS = '/#STRINGS'
# In the head of the container: its two sections, and where the content begins. The first section repeats the whole's size.
SECTIONS, CONTENT_OFFSET, SIZE_IN_SECTION = 0x38, 0x58, 0x08
# In the head of the directory: its length, and the size of a chunk.
HEAD_LENGTH, CHUNK_SIZE = 0x08, 0x10
# In a chunk with names: how many bytes at its end are none, and where they begin.
CHUNK_FREE, CHUNK_HEAD = 0x04, 0x14


def read_number(data, place):
    """A number of seven bits a byte, the highest first; returns it and the place after it."""
    value = 0
    while True:
        byte = data[place]
        value = value << 7 | byte & 0x7F
        place += 1
        if not byte & 0x80:
            return value, place


def write_numbers(data, place, end, numbers):
    """Fills the place up to the end with the numbers. The first may have zeros in front, which count for nothing."""
    written = bytearray()
    for number in numbers:
        digits = [number & 0x7F]
        while number := number >> 7:
            digits.append(number & 0x7F | 0x80)
        written += bytes(reversed(digits))
    if len(written) > end - place:
        sys.exit('the entry of the directory has no room for the numbers')
    data[place:end] = written.rjust(end - place, b'\x80')


def find_entry(data, name):
    """Where the numbers of the directory's entry of that name are: their section, offset and length."""
    _, _, directory, length = struct.unpack_from('<4Q', data, SECTIONS)
    head, = struct.unpack_from('<I', data, directory + HEAD_LENGTH)
    size, = struct.unpack_from('<I', data, directory + CHUNK_SIZE)
    for chunk in range(directory + head, directory + length, size):
        if data[chunk:chunk + 4] != b'PMGL':
            continue
        free, = struct.unpack_from('<I', data, chunk + CHUNK_FREE)
        place = chunk + CHUNK_HEAD
        while place < chunk + size - free:
            count, place = read_number(data, place)
            found, place = data[place:place + count], place + count
            start = place
            for _ in range(3):
                _, place = read_number(data, place)
            if found == name.encode():
                return start, place
    sys.exit(f'the help has no file {name}')


def put(help_file, name, content):
    """Puts the content at the end of the help as the file of that name, which the directory has already."""
    data = bytearray(help_file.read_bytes())
    first_section, = struct.unpack_from('<Q', data, SECTIONS)
    content_offset, = struct.unpack_from('<Q', data, CONTENT_OFFSET)
    start, end = find_entry(data, name)
    write_numbers(data, start, end, (0, len(data) - content_offset, len(content)))
    data += content
    struct.pack_into('<Q', data, first_section + SIZE_IN_SECTION, len(data))
    help_file.write_bytes(data)


def main():
    help_file = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        taken = pathlib.Path(folder) / 'strings'
        subprocess.run(['chmls', 'extract', str(help_file), STRINGS, str(taken)], check=True, capture_output=True)
        strings = taken.read_bytes()
    # Each keeps its place, which the numbers of the dialogs refer to.
    names = [path.rpartition(b'/')[2].ljust(len(path), b'\0') for path in strings.split(b'\0')]
    put(help_file, STRINGS, b'\0'.join(names))


if __name__ == '__main__':
    main()
