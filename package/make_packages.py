#!/usr/bin/env python3
"""Builds .msi packages from a list of them.

usage: make_packages.py LIST.toml OUTPUT_FOLDER PAYLOAD_FOLDER...

The list names the packages and what they hold; docs/package-builders.md tells its fields. Payload files are looked for
in the folder of the list and then in the payload folders. A package is built anew only when its description or one of
its files has changed. Prints the name of each package that it built.
"""
import os
import pathlib
import string
import subprocess
import sys
import tomllib
import uuid
from xml.sax.saxutils import quoteattr

NAMESPACE = uuid.UUID("5b0a1d52-3f4e-4c0e-9a5c-6f0f4f2b7d11")
TEMPLATE = pathlib.Path(__file__).with_name("package.wxs.in")


def code(*parts):
    """A GUID that is the same in every build, so that a package built anew is still the same product."""
    return "{" + str(uuid.uuid5(NAMESPACE, "/".join(parts))).upper() + "}"


def attributes(**values):
    return " ".join(f"{name}={quoteattr(str(value))}" for name, value in values.items())


def find_payload(name, folders):
    for folder in folders:
        if (folder / name).is_file():
            return folder / name
    sys.exit(f"make_packages.py: no payload file {name} in {', '.join(map(str, folders))}")


def file_component(index, package, target, source):
    guid = code("component", package["id"], target)
    return (f"<Component {attributes(Id=f'File{index}', Guid=guid, Win64='yes')}>"
            f"<File {attributes(Id=f'Payload{index}', Name=target, Source=source, KeyPath='yes')}/></Component>")


def record_component(package, manufacturer):
    """What the command line brought is kept in the registry, where one can see what a package was told."""
    key = f"Software\\{manufacturer}\\Packages\\{package['id']}"
    values = {"Version": package["version"], "TargetFolder": "[TARGET_DIR]"}
    values |= {name: f"[{name}]" for name in package.get("records", [])}
    rows = "".join(f"<RegistryValue {attributes(Root='HKLM', Key=key, Name=name, Type='string', Value=value)}/>"
                   for name, value in values.items())
    guid = code("component", package["id"], "record")
    return f"<Component {attributes(Id='Record', Guid=guid, Win64='yes')}>{rows}</Component>"


def directories(package, manufacturer, components):
    """The folders from the outermost to the one that holds the files. A kit is made for unpacking, not installing: its
    folders stand straight below the root, where an administrative installation puts them."""
    inner = f"<Directory {attributes(Id='PRODUCTDIR', Name=package['folder'])}>{components}</Directory>"
    vendor = f"<Directory {attributes(Id='TARGET_DIR', Name=manufacturer)}>{inner}</Directory>"
    return vendor if package.get("kit") else f'<Directory Id="ProgramFiles64Folder">{vendor}</Directory>'


def describe(package, manufacturer, payload):
    components = [file_component(index, package, target, source)
                  for index, (target, source) in enumerate(payload.items())]
    components.append(record_component(package, manufacturer))
    ids = [f"File{index}" for index in range(len(payload))] + ["Record"]
    properties = "".join(f"    <Property {attributes(Id=name, Value=value)}/>\n"
                         for name, value in package.get("properties", {}).items())
    family = package.get("family", package["id"])
    return string.Template(TEMPLATE.read_text(encoding="utf-8")).substitute(
        product_code=code("product", package.get("product", package["id"] + package["version"])),
        upgrade_code=code("upgrade", family),
        name=package["name"], version=package["version"], manufacturer=manufacturer,
        directories=directories(package, manufacturer, "".join(components)),
        component_refs="".join(f"      <ComponentRef {attributes(Id=name)}/>\n" for name in ids),
        properties=properties, extra=package.get("extra", ""))


def is_current(msi, sources):
    return msi.is_file() and all(source.stat().st_mtime <= msi.stat().st_mtime for source in sources)


def build(package, manufacturer, output, folders):
    payload = {target: find_payload(source, folders) for target, source in package["files"].items()}
    binaries = [find_payload(name, folders) for name in package.get("binaries", [])]
    # wixl finds a file by a path relative to where it runs, and by no other.
    text = describe(package, manufacturer, {target: os.path.relpath(path, output) for target, path in payload.items()})
    for binary in binaries:
        text = text.replace(f'SourceFile="{binary.name}"', f"SourceFile={quoteattr(os.path.relpath(binary, output))}")
    wxs = output / (package["file"] + ".wxs")
    msi = output / package["file"]
    if not wxs.is_file() or wxs.read_text(encoding="utf-8") != text:
        wxs.write_text(text, encoding="utf-8")
    if is_current(msi, [wxs, *payload.values(), *binaries]):
        return
    subprocess.run(["wixl", "-a", "x64", "-o", msi.name, wxs.name], cwd=output, check=True)
    for statement in package.get("sql", []):
        subprocess.run(["msibuild", str(msi), "-q", statement], check=True)
    print(f"built {msi.name}")


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    listing, output = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    folders = [listing.parent, *(pathlib.Path(folder).resolve() for folder in sys.argv[3:])]
    output.mkdir(parents=True, exist_ok=True)
    with listing.open("rb") as stream:
        data = tomllib.load(stream)
    for package in data["package"]:
        build(package, data["manufacturer"], output, folders)


if __name__ == "__main__":
    main()
