#!/usr/bin/env python3
"""Reads the manifests in a folder with the parsers of YAML, XML and JSON, and holds them against what their engines ask.

usage: check-manifests.py FOLDER VENDOR    VENDOR must come back from each of them, character for character
"""
import json
import pathlib
import re
import sys
import xml.etree.ElementTree

import yaml

GUID = r'\{[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\}'
WEB = r'https?://\S+'
VERSION = r'[0-9]+(\.[0-9]+)*'
COMMON = {'PackageIdentifier': r'[^\s.\\/:*?"<>|]{1,32}(\.[^\s.\\/:*?"<>|]{1,32})+', 'PackageVersion': VERSION,
          'ManifestVersion': r'1\.6\.0'}
LOCALE = {'PackageLocale': r'[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*', 'PackageName': r'.{2,256}', 'Publisher': r'.{2,256}',
          'ShortDescription': r'.{3,256}'}
WINGET = {'version': {'DefaultLocale': LOCALE['PackageLocale']}, 'installer': {'InstallerType': 'zip'},
          'defaultLocale': {**LOCALE, 'License': r'.{3,512}', 'LicenseUrl': WEB}, 'locale': LOCALE}
NUSPEC = {'id': r'[a-z0-9][a-z0-9.-]*', 'version': VERSION, 'title': r'.+', 'authors': r'.+', 'projectUrl': WEB,
          'licenseUrl': WEB, 'description': r'.+'}
FINDINGS = []


def hold(file, values, forms):
    for key, form in forms.items():
        if not re.fullmatch(form, str(values.get(key, ''))):
            FINDINGS.append(f'{file}: {key} is {values.get(key)!r}')


def same(file, value, expected):
    if value != expected:
        FINDINGS.append(f'{file}: {value!r} is not {expected!r}')


def check_winget(folder, vendor):
    kinds = []
    for path in sorted(folder.glob('*.yaml')):
        manifest = yaml.safe_load(path.read_text(encoding='utf-8'))
        kind = manifest['ManifestType']
        kinds.append(kind)
        hold(path, manifest, {**COMMON, **WINGET[kind]})
        if kind in ('defaultLocale', 'locale'):
            same(path, manifest['Publisher'], vendor)
        if kind == 'installer':
            hold(path, manifest['Installers'][0],
                 {'Architecture': 'x64', 'InstallerUrl': WEB, 'InstallerSha256': r'[0-9A-Fa-f]{64}'})
            for entry in manifest['AppsAndFeaturesEntries']:
                hold(path, entry, {'ProductCode': GUID, 'UpgradeCode': GUID, 'DisplayVersion': VERSION})
                same(path, entry['Publisher'], vendor)
    for kind in WINGET:
        if kind not in kinds:
            FINDINGS.append(f'{folder}: there is no {kind} manifest')


def check_chocolatey(folder, vendor):
    path, = folder.glob('*.nuspec')
    metadata = xml.etree.ElementTree.parse(path).getroot()[0]
    values = {element.tag.rpartition('}')[2]: element.text for element in metadata}
    hold(path, values, NUSPEC)
    same(path, values['authors'], vendor)
    literal = "'" + vendor.replace("'", "''")
    if literal not in (folder / 'tools/chocolateyInstall.ps1').read_text(encoding='utf-8-sig'):
        FINDINGS.append(f'{folder}: the script does not hold {literal}')


def check_intune(folder, vendor):
    path, = folder.glob('*.json')
    app = json.loads(path.read_text(encoding='utf-8'))
    hold(path, app, {'displayName': r'.+', 'installCommandLine': r'Setup\\x64\\Rollout\.exe .+',
                     'uninstallCommandLine': r'Setup\\x64\\Rollout\.exe --uninstall'})
    same(path, app['publisher'], vendor)
    same(path, {code['returnCode'] for code in app['returnCodes']}, {0, 1707, 3010, 1641, 1618, 1602})
    for rule in app['detectionRules']:
        hold(path, rule, {'productCode': GUID, 'productVersion': VERSION})
    if not app['detectionRules']:
        FINDINGS.append(f'{path}: nothing is detected')


def main():
    folder, vendor = pathlib.Path(sys.argv[1]), sys.argv[2]
    check_winget(folder / 'winget', vendor)
    check_chocolatey(folder / 'chocolatey', vendor)
    check_intune(folder / 'intune', vendor)
    print('\n'.join(FINDINGS) or f'the manifests of {vendor} can be read')
    sys.exit(1 if FINDINGS else 0)


main()
