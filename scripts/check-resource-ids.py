#!/usr/bin/env python3
"""Checks that resources/resource.h is the one place of the numbers of dialogs, controls and other resources."""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADER = 'resources/resource.h'
# The framework's own tests invent ids, and the sample programs have dialogs of their own.
ELSEWHERE = ('tests/windows/framework/', 'tests/windows/resource.h', 'package/')

NUMBER = r'\d+\b'
PATTERNS = {
    '.cpp': [
        re.compile(r'constexpr (?:int|UINT|WORD|DWORD|INT_PTR) \w*(?:[iI]d|[tT]emplate|[tT]opic)s?(?:\[\])? = '
                   r'\{?\d{3,}\b'),
        re.compile(r'\b(?:GetDlgItem|GetDlgItemTextW|SetDlgItemTextW|SubclassDlgItem|FindControl|WaitForControl|'
                   r'IsDlgButtonChecked|CheckDlgButton|MAKEINTRESOURCEW)\((?:[^()]|\(\))*\b' + NUMBER + r'(?=[,)])'),
        re.compile(r'\bOn::(?:Click|Control|Notify)\(' + NUMBER),
        re.compile(r'(?:\bCreate|InstallDialogEx|CDialogEx)\(' + NUMBER),
        re.compile(r'#define ID[CDIR]_\w+'),
    ],
    '.rc': [
        re.compile(r'^\s*CONTROL "[^"]*", ' + NUMBER),
        re.compile(r'^\s*(?:COMBOBOX|EDITTEXT|LISTBOX) ' + NUMBER),
        re.compile(r'^\s*(?:LTEXT|RTEXT|CTEXT|PUSHBUTTON|DEFPUSHBUTTON|GROUPBOX|AUTO\w+) "[^"]*", ' + NUMBER),
        re.compile(r'^' + NUMBER),
    ],
    '.sh': [re.compile(r'\bremote (?:wait|click|scroll|rows|answer) ' + NUMBER)],
}
PATTERNS['.h'] = PATTERNS['.cpp']


def bare_ids(name):
    text = (ROOT / name).read_text(encoding='utf-8')
    for number, line in enumerate(text.split('\n'), 1):
        if any(pattern.search(line) for pattern in PATTERNS[pathlib.PurePath(name).suffix]):
            yield f'{name}:{number}: an id without a name of {HEADER}: {line.strip()}'


def definitions():
    return re.findall(r'^#define (\w+) (\d+)$', (ROOT / HEADER).read_text(encoding='utf-8'), re.M)


def repeated_names():
    names = [name for name, _ in definitions()]
    return [f'{HEADER}: {name} is defined twice' for name in sorted(set(names)) if names.count(name) > 1]


def unused_names(sources):
    text = '\n'.join((ROOT / name).read_text(encoding='utf-8') for name in sources)
    used = set(re.findall(r'\w+', text))
    return [f'{HEADER}: nothing uses {name}' for name, _ in definitions() if name not in used]


def main():
    tracked = subprocess.run(['git', 'ls-files', *('*' + suffix for suffix in PATTERNS)], cwd=ROOT, check=True,
                             capture_output=True, text=True).stdout.split()
    sources = [name for name in tracked if name != HEADER]
    findings = [finding for name in sources if not name.startswith(ELSEWHERE) for finding in bare_ids(name)]
    findings += repeated_names() + unused_names(sources)
    print('\n'.join(findings))
    sys.exit(1 if findings else 0)


main()
