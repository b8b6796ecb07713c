#!/usr/bin/python3
"""Makes the wizard's font, of the family "Velmora", from openly licensed fonts.

usage: make-font.py OUTPUT FONT...

The first font gives Latin, Greek and Cyrillic and the measures of a line, the others the scripts that it lacks. Run by
Debian's own python3, whose fontTools it needs.
"""
import sys

from fontTools import merge, subset
from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._g_l_y_f import Glyph

FAMILY = 'Velmora'
SCRIPTS = [
    [(0x20, 0x17F), (0x18F, 0x18F), (0x192, 0x192), (0x1A0, 0x1B0), (0x218, 0x21B), (0x2C6, 0x2DD), (0x300, 0x323),
     (0x370, 0x3FF), (0x400, 0x45F), (0x490, 0x491), (0x1EA0, 0x1EF9), (0x200B, 0x203A), (0x20AB, 0x20AC),
     (0x2116, 0x2122)],
    [(0x600, 0x6FF), (0xFB50, 0xFDFF), (0xFE70, 0xFEFF)],
    [(0x590, 0x5FF), (0xFB1D, 0xFB4F)],
    [(0xE00, 0xE7F)],
]
# The marks that order mixed text. Some of the fonts draw them, and some lack them, which draws a box.
ORDERING_MARKS = [0x200E, 0x200F, *range(0x202A, 0x202F), *range(0x2066, 0x206A)]
FEATURES = ['kern', 'liga', 'mark', 'mkmk', 'init', 'medi', 'fina', 'isol', 'rlig', 'ccmp', 'locl']


def script_of(path, ranges, work):
    options = subset.Options()
    options.layout_features = FEATURES
    options.name_IDs = ['*']
    options.hinting = False
    options.notdef_outline = True
    font = subset.load_font(path, options)
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=[code for first, last in ranges for code in range(first, last + 1)])
    subsetter.subset(font)
    font.save(work)
    return work


def hide_ordering_marks(font):
    for code in ORDERING_MARKS:
        name = f'hidden{code:04X}'
        font.setGlyphOrder(font.getGlyphOrder() + [name])
        font['glyf'][name] = Glyph()
        font['hmtx'][name] = (0, 0)
        for table in font['cmap'].tables:
            if table.isUnicode():
                table.cmap[code] = name


def rename(font):
    names = {1: FAMILY, 2: 'Regular', 3: f'{FAMILY} 1.0', 4: FAMILY, 6: FAMILY, 16: FAMILY, 17: 'Regular'}
    for record in list(font['name'].names):
        if record.nameID in (16, 17, 21, 22):
            font['name'].removeNames(nameID=record.nameID)
    for name_id, text in names.items():
        if name_id in (16, 17):
            continue
        font['name'].setName(text, name_id, 3, 1, 0x409)
        font['name'].setName(text, name_id, 1, 0, 0)
    font['name'].setName('Made from Noto Sans, which is under the SIL Open Font License 1.1, and under that licence too.',
                         13, 3, 1, 0x409)


def main():
    output, sources = sys.argv[1], sys.argv[2:]
    parts = [script_of(path, ranges, f'{output}.{index}') for index, (path, ranges) in enumerate(zip(sources, SCRIPTS))]
    measures = TTFont(parts[0])
    font = merge.Merger().merge(parts)
    for table, fields in (('hhea', ('ascent', 'descent', 'lineGap')),
                          ('OS/2', ('usWinAscent', 'usWinDescent', 'sTypoAscender', 'sTypoDescender', 'sTypoLineGap'))):
        for field in fields:
            setattr(font[table], field, getattr(measures[table], field))
    hide_ordering_marks(font)
    rename(font)
    # The time of the making would be another one in every build.
    font.recalcTimestamp = False
    font['head'].created = font['head'].modified = measures['head'].modified
    font.save(output)


main()
