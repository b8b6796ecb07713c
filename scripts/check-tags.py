#!/usr/bin/env python3
"""Holds the tags that a header says its class reads and writes against what the code does.

Every service says so, in sentences such as "Reads OEM and UPD; reads and writes DISCOVER_PARAMS.", and whatever else
says so is held to it as well. What a class has done by another one stands at that one.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OPERATION = re.compile(r'(?:settings\.|\b(?=CopyToCurrentDevice))(\w+)\(')
TAG = re.compile(r'Tag::(\w+)')
NAME = re.compile(r'\b[A-Z][A-Z0-9_]{2,}\b')
# Operations of the settings that stand for a tag.
NAMED = {'IsAmazonSupported': ('AMAZON_SUPPORTED', 'reads'), 'GetStartApp': ('STARTAPP', 'reads'),
         'AppendStartApp': ('STARTAPP', 'writes')}


def arguments(text, start):
    depth = 1
    for end in range(start, len(text)):
        depth += {'(': 1, ')': -1}.get(text[end], 0)
        if depth == 0:
            return text[start:end]
    return ''


def used(sources):
    found = {'reads': set(), 'writes': set()}
    for source in sources:
        text = source.read_text(encoding='utf-8')
        for match in OPERATION.finditer(text):
            name = match.group(1)
            if name in NAMED:
                tag, kind = NAMED[name]
                found[kind].add(tag)
            elif not name.startswith(('GetDevice', 'SetDevice')):
                kind = 'writes' if name.startswith('Set') else 'reads'
                found[kind].update(TAG.findall(arguments(text, match.end())))
    return found


def tags():
    return set(NAME.findall((ROOT / 'src/settings/TagNames.h').read_text(encoding='utf-8')))


def told(header):
    found = {'reads': set(), 'writes': set()}
    words = ' '.join(re.findall(r'^\s*//(.*)', header, re.M))
    for clause in re.findall(r'\b([Rr]eads and writes|[Rr]eads|[Ww]rites)\b([^;.]*)', words):
        for kind in found:
            if kind in clause[0].lower():
                found[kind].update(tags() & set(NAME.findall(clause[1])))
    return found


def sources_of(path, header):
    names = re.findall(r'^class (\w+)', header, re.M)
    own = path.with_suffix('.cpp')
    members = re.compile(rf'^\S.*\b(?:{"|".join(names) or "-"})::\w+\(', re.M)
    others = [p for p in sorted(path.parent.glob('*.cpp')) if p != own and
              members.search(p.read_text(encoding='utf-8'))]
    return [p for p in [own, *others] if p.is_file()]


def findings():
    for path in sorted((ROOT / 'src').rglob('*.h')):
        header = path.read_text(encoding='utf-8')
        claims = told(header)
        if ': public Service' not in header and not (claims['reads'] or claims['writes']):
            continue
        facts = used(sources_of(path, header))
        for kind in ('reads', 'writes'):
            for tag in sorted(facts[kind] - claims[kind]):
                yield f'{path.relative_to(ROOT)} does not say that the code {kind} {tag}'
            for tag in sorted(claims[kind] - facts[kind]):
                yield f'{path.relative_to(ROOT)} says that the code {kind} {tag}, which it does not'


def main():
    lines = list(findings())
    print('\n'.join(lines))
    sys.exit(1 if lines else 0)


main()
