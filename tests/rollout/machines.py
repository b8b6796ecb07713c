#!/usr/bin/env python3
"""Rolls packages out to many machines at once and checks what each of them reports, logs and has installed.

usage: machines.py SHARES COLLECTED PREFIX...    started by machines.sh, which makes the shares and the prefixes
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = json.loads((ROOT / 'docs' / 'rollout-report.schema.json').read_text(encoding='utf-8'))
SHARES, COLLECTED = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
PREFIXES = [pathlib.Path(name) for name in sys.argv[3:]]
RECORD = re.compile(r'^.{7}  \d{4}/\d\d/\d\d-\d\d:\d\d:\d\d  (.*)$')
WALK = ['Starting Installer', 'Installing Applications', 'End of silent mode install', 'Installation is Finished']
failures = []


def expect(holds, prefix, what):
    if not holds:
        failures.append(f'{prefix.name}: {what}')


def windows_path(path):
    return 'Z:' + str(path).replace('/', '\\')


def log_folder(prefix):
    return prefix / 'drive_c' / 'ProgramData' / 'Testwerk Install Logs'


def records(path):
    """The messages of a basic log. A line that begins none belongs to the settings, which are written as they are."""
    lines = path.read_bytes().decode('utf-16-le').split('\r\n')
    return [found[1] for line in lines if (found := RECORD.match(line))]


def roll_out(prefix, share, *options):
    """Runs Rollout.exe on a machine. Returns its report and what it printed."""
    report = prefix / 'drive_c' / 'report.json'
    report.unlink(missing_ok=True)
    program = windows_path(SHARES / share / 'Setup' / 'x64' / 'Rollout.exe')
    # Into a file: programs of the system that come up with the first one would keep a pipe open.
    with open(prefix / 'printed.txt', 'w+b') as output:
        done = subprocess.run(['wine', program, '--report', 'C:\\report.json', *options], stdin=subprocess.DEVNULL,
                              env={**os.environ, 'WINEPREFIX': str(prefix)}, cwd=prefix / 'drive_c', stdout=output,
                              stderr=subprocess.DEVNULL, timeout=120, check=False)
        output.seek(0)
        printed = output.read().decode('utf-8', 'replace')
    if not report.exists():
        expect(False, prefix, f'there is no report of {share}: {printed}')
        return {}, printed
    found = json.loads(report.read_text(encoding='utf-8'))
    for error in jsonschema.Draft7Validator(SCHEMA).iter_errors(found):
        expect(False, prefix, f'the report does not fit its schema: {error.message}')
    # Here the system keeps the low eight bits of a code.
    expect(found['code'] % 256 == done.returncode, prefix, f'the code {done.returncode} is not that of the report')
    return found, printed


def check(prefix, share, options, code, outcomes):
    report, printed = roll_out(prefix, share, *options)
    found = {package['file']: package['outcome'] for package in report.get('packages', [])}
    expect((report.get('code'), found) == (code, outcomes), prefix,
           f'{share} {options} ended with {report.get("code")}, {found}, and not with {code}, {outcomes}\n{printed}')
    return report


def payload(prefix, product):
    return prefix / 'drive_c' / 'Program Files' / 'Testwerk' / product / 'payload.txt'


def check_log(prefix, report):
    """No record is lost: neither in the log, nor in the report, nor on the way to the collection."""
    messages = records(log_folder(prefix) / 'Basic.log')
    for message in WALK:
        expect(messages.count(message) == 1, prefix, f'the log holds "{message}" {messages.count(message)} times')
    reported = [record['message'].split('\r\n')[0] for record in report.get('log', [])]
    for message in WALK:
        expect(reported.count(message) == 1, prefix, f'the report holds "{message}" {reported.count(message)} times')


def install_everywhere(prefix):
    report = check(prefix, 'plain', ['--collect', windows_path(COLLECTED / '%COMPUTERNAME%' / prefix.name)], 0,
                   {'minor-1.0.msi': 'installed', 'plain-1.0.msi': 'installed'})
    expect(payload(prefix, 'Plain').exists() and payload(prefix, 'Minor').exists(), prefix, 'a file is missing')
    check_log(prefix, report)
    collected = list(COLLECTED.glob(f'*/{prefix.name}'))
    expect(len(collected) == 1, prefix, f'collected {len(collected)} times')
    for folder in collected:
        for name in ('Basic.log', 'Packages.log'):
            expect((folder / name).read_bytes() == (log_folder(prefix) / name).read_bytes(), prefix, f'{name} differs')
        expect(json.loads((folder / 'report.json').read_text(encoding='utf-8')) == report, prefix, 'the report differs')


def remove_everywhere(prefix):
    check(prefix, 'plain', ['--uninstall'], 0, {'minor-1.0.msi': 'removed', 'plain-1.0.msi': 'removed'})
    expect(not payload(prefix, 'Plain').exists() and not payload(prefix, 'Minor').exists(), prefix, 'a file remains')


def check_codes(prefix):
    """What only one machine needs to show."""
    check(prefix, 'failing', [], 1603, {'failing.msi': 'missing', 'minor-1.0.msi': 'missing'})
    expect(not payload(prefix, 'Failing').exists() and not payload(prefix, 'Minor').exists(), prefix, 'not rolled back')
    check(prefix, 'restart', [], 3010, {'restart.msi': 'installed'})
    check(prefix, 'plain', [], 0, {'minor-1.0.msi': 'installed', 'plain-1.0.msi': 'installed'})
    check(prefix, 'plain', [], 0, {'minor-1.0.msi': 'unchanged', 'plain-1.0.msi': 'unchanged'})
    check(prefix, 'newer', [], 0, {'plain-2.0.msi': 'updated'})
    check(prefix, 'plain', [], 1638, {'minor-1.0.msi': 'unchanged', 'plain-1.0.msi': 'newer'})
    check(prefix, 'plain', ['--uninstall'], 1638, {'minor-1.0.msi': 'removed', 'plain-1.0.msi': 'newer'})
    expect(payload(prefix, 'Plain').exists(), prefix, 'the newer product was removed')


def everywhere(step):
    with concurrent.futures.ThreadPoolExecutor(len(PREFIXES)) as pool:
        list(pool.map(step, PREFIXES))


def files_in_shares():
    return {path: path.stat().st_mtime_ns for path in SHARES.rglob('*')}


def main():
    shutil.rmtree(COLLECTED, ignore_errors=True)
    COLLECTED.mkdir(parents=True)
    before = files_in_shares()
    everywhere(install_everywhere)
    everywhere(remove_everywhere)
    check_codes(PREFIXES[0])
    if files_in_shares() != before:
        failures.append('something was written into a share')
    print('\n'.join(failures) or f'{len(PREFIXES)} machines: all as it should be')
    sys.exit(1 if failures else 0)


main()
