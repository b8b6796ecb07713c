#!/usr/bin/env python3
"""Holds every report that Rollout.exe has left in a folder against the schema of such reports.

usage: check-reports.py FOLDER    fails where a report does not fit, and where there is none
"""
import json
import pathlib
import sys

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parent.parent


def main():
    schema = json.loads((ROOT / 'docs' / 'rollout-report.schema.json').read_text(encoding='utf-8'))
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    reports = sorted(pathlib.Path(sys.argv[1]).rglob('*.json'))
    findings = [] if reports else ['there is no report']
    for report in reports:
        for error in validator.iter_errors(json.loads(report.read_text(encoding='utf-8'))):
            findings.append(f'{report.name}: {"/".join(map(str, error.absolute_path))}: {error.message}')
    print('\n'.join(findings) or f'{len(reports)} reports fit their schema')
    sys.exit(1 if findings else 0)


main()
