#!/usr/bin/env bash
# Checks the sample package in both variants by PackageCheck, what PackageCheck writes by its schema or by parsers, that the
# dialogs of the sample find their pages in its help, what the programs' own files say of their safety and what
# is linked into them, and that they can be signed.
# usage: scripts/check-packages.sh
set -euo pipefail
source "$(dirname "$0")/common.sh"

need_packages clang libclang-rt-14-dev llvm python3 python3-jsonschema python3-yaml
build native PackageCheck
build windows Kestrune Rollout PackageCheck
scripts/check-binary.py build/windows
scripts/make-sbom.py build/windows build/windows/Kestrune.spdx.json
scripts/make-sbom.py --check build/windows build/windows/Kestrune.spdx.json
scripts/build-package.sh build/windows
scripts/build-package.sh --silent build/windows

# expect CODE FOLDER: the check must end with that code, and write what the schema describes.
expect() {
    local code=0 report
    report=$(mktemp)
    build/native/PackageCheck --json "$2" > "$report" || code=$?
    if [ "$code" != "$1" ]; then
        echo "PackageCheck ended with $code instead of $1:"
        build/native/PackageCheck "$2" || true
        rm -f "$report"
        return 1
    fi
    python3 - "$report" docs/package-check.schema.json <<'PYTHON'
import json
import sys
import jsonschema

report, schema = (json.load(open(path, encoding='utf-8')) for path in sys.argv[1:])
jsonschema.Draft202012Validator.check_schema(schema)
jsonschema.Draft202012Validator(schema).validate(report)
print(f"{report['package']}: {report['errors']} errors, {report['warnings']} warnings")
PYTHON
    rm -f "$report"
}

# plan FOLDER [ARGUMENT...]: what is written as the plan must be what the schema describes.
plan() {
    local report
    report=$(mktemp)
    build/native/PackageCheck --plan --json "$@" > "$report"
    python3 - "$report" docs/package-plan.schema.json <<'PYTHON'
import json
import sys
import jsonschema

report, schema = (json.load(open(path, encoding='utf-8')) for path in sys.argv[1:])
jsonschema.Draft202012Validator.check_schema(schema)
jsonschema.Draft202012Validator(schema).validate(report)
assert report['packages'], 'the plan of the sample has packages'
print(f"{report['package']}: {len(report['packages'])} packages are planned")
PYTHON
    rm -f "$report"
}

scripts/check-signing.sh build/windows/{Kestrune,Rollout,PackageCheck}.exe out/package/Applications/x64/*.msi
scripts/check-help.py out/package package/help
expect 0 out/package
expect 0 out/package-silent
plan out/package
plan out/package-silent -ip=192.0.2.7 --os=7

broken=$(mktemp -d)
trap 'rm -rf "$broken"' EXIT
cp -r out/package-silent/. "$broken"
sed -i 's/HIDE_DISCOVERY>true/HIDE_DISCOVERY>yes/; s/HVMONOV4/HVMONO5/' "$broken/Setup/PackageUserSettings.xml"
echo broken > "$broken/Applications/x64/Broken.msi"
expect 2 "$broken"

# manifests FOLDER VENDOR: every kind of manifest is made, and read again.
manifests() {
    local made
    made=$(mktemp -d)
    for kind in winget chocolatey intune; do
        build/native/PackageCheck --manifest "$kind" --out "$made/$kind" "$1" > /dev/null
    done
    scripts/check-manifests.py "$made" "$2"
    rm -rf "$made"
}

# A browser is much to install for one page, so it is taken where there is one.
if command -v chromium > /dev/null; then
    scripts/check-plan-page.sh
else
    echo 'The page of a plan was not opened: there is no chromium; scripts/check-plan-page.sh installs it.'
fi

manifests out/package-silent Halvenny
vendor='O'"'"'Neill "&" <b> $(calc): #{x}`'
sed -i '/<OEM>/d' "$broken/Setup/defaultInstallSettings.xml"
printf '<OEM>%s</OEM>\n' "$vendor" >> "$broken/Setup/defaultInstallSettings.xml"
manifests "$broken" "$vendor"
