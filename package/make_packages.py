#!/usr/bin/env python3
"""Builds .msi packages from a list of them.

The list names the packages and what they hold; docs/package-builders.md describes its fields. A package is built anew only
when its description or one of its files has changed. Prints the name of each package that it built.
"""
import argparse
import os
import pathlib
import re
import shutil
import string
import subprocess
import sys
import tomllib
import uuid
from xml.sax.saxutils import quoteattr

NAMESPACE = uuid.UUID("5b0a1d52-3f4e-4c0e-9a5c-6f0f4f2b7d11")
MAJOR_UPGRADE = '    <MajorUpgrade DowngradeErrorMessage="A newer version is installed."/>'
TEMPLATE = pathlib.Path(__file__).with_name("package.wxs.in")
PRINTER_ACTIONS = pathlib.Path(__file__).parent.parent / "standins/PrinterQueue/PrinterQueue.wxi"
PRINTER_LIBRARY = "PrinterQueue.dll"
# Tells msibuild in which code page a package keeps its text: in UTF-8.
CODE_PAGE = "\r\n\r\n65001\t_ForceCodepage\r\n"


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


def further_elements(package):
    """The text of further elements; a package that makes printers has the actions for them as well."""
    actions = ""
    if package.get("printers"):
        actions = re.search("<Include[^>]*>(.*)</Include>", PRINTER_ACTIONS.read_text(encoding="utf-8"), re.S).group(1)
    return package.get("extra", "") + actions


def read_names(folder):
    """The translated properties of each package, by its id, from one file for each language."""
    names = {}
    for path in sorted(folder.glob("*.toml")):
        data = tomllib.loads(path.read_text(encoding="utf-8"))
        language = data.pop("language")
        for package, values in data.items():
            names.setdefault(package, {}).update({f"{name}.{language}": value for name, value in values.items()})
    return names


def name_statements(package):
    """wixl loses text beyond Latin-1, so what is not ASCII goes in afterwards."""
    statements = []
    for name, value in package.get("properties", {}).items():
        if value.isascii():
            continue
        if "'" in value:
            sys.exit(f"make_packages.py: {package['id']}: {name} holds ', which a statement cannot; write \u2019")
        statements += ["-q", f"INSERT INTO `Property` (`Property`, `Value`) VALUES ('{name}', '{value}')"]
    return statements


def describe(package, manufacturer, payload):
    components = [file_component(index, package, target, source)
                  for index, (target, source) in enumerate(payload.items())]
    components.append(record_component(package, manufacturer))
    ids = [f"File{index}" for index in range(len(payload))] + ["Record"]
    properties = "".join(f"    <Property {attributes(Id=name, Value=value)}/>\n"
                         for name, value in package.get("properties", {}).items() if value.isascii())
    family = package.get("family", package["id"])
    return string.Template(TEMPLATE.read_text(encoding="utf-8")).substitute(
        product_code=code("product", package.get("product", package["id"] + package["version"])),
        upgrade_code=code("upgrade", family),
        name=package["name"], version=package["version"], manufacturer=manufacturer,
        directories=directories(package, manufacturer, "".join(components)),
        component_refs="".join(f"      <ComponentRef {attributes(Id=name)}/>\n" for name in ids),
        properties=properties, upgrade=MAJOR_UPGRADE if package.get("upgrades") else "",
        extra=further_elements(package))


def secure_statement(package):
    """On Windows a property reaches the part of the installer that has the rights only if the package lists it. wixl
    writes the list itself where a package upgrades others, and cannot be given more."""
    printers = ["PRINTER_INFO"] if package.get("printers") else []
    names = ";".join(dict.fromkeys(["TARGET_DIR", *package.get("records", []), *package.get("secure", []), *printers]))
    if package.get("upgrades"):
        names = "WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED;" + names
        return f"UPDATE `Property` SET `Value`='{names}' WHERE `Property`='SecureCustomProperties'"
    return f"INSERT INTO `Property` (`Property`, `Value`) VALUES ('SecureCustomProperties', '{names}')"


# How the installer writes what a CustomAction element says of a function in a library.
EXECUTE_FLAGS = {"immediate": 0, "deferred": 0x400, "rollback": 0x400 + 0x100, "commit": 0x400 + 0x200}
RETURN_FLAGS = {"check": 0, "ignore": 0x40}


def action_type(execute, impersonate, result):
    as_system = 0x800 if impersonate == "no" and execute != "immediate" else 0
    return 1 + EXECUTE_FLAGS[execute] + as_system + RETURN_FLAGS[result]


def action_statements(package):
    """wixl knows no actions for a roll-back or a commit, and none that run as the user, so their types are set here."""
    if not package.get("printers"):
        return []
    elements = re.findall("<CustomAction [^>]*/>", further_elements(package))
    statements = []
    for fields in (dict(re.findall(r'(\w+)="([^"]*)"', element)) for element in elements):
        kind = action_type(fields.get("Execute", "immediate"), fields.get("Impersonate", "yes"), fields.get("Return", "check"))
        statements += ["-q", f"UPDATE `CustomAction` SET `Type`={kind} WHERE `Action`='{fields['Id']}'"]
    return statements


def write_if_changed(path, text):
    if not path.is_file() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8", newline="")
    return path


def is_current(msi, sources):
    return msi.is_file() and all(source.stat().st_mtime <= msi.stat().st_mtime for source in sources)


def build(package, manufacturer, output, folders):
    payload = {target: find_payload(source, folders) for target, source in package["files"].items()}
    libraries = package.get("binaries", []) + ([PRINTER_LIBRARY] if package.get("printers") else [])
    binaries = [find_payload(name, folders) for name in libraries]
    # wixl finds a file by a path relative to where it runs, and by no other.
    text = describe(package, manufacturer, {target: os.path.relpath(path, output) for target, path in payload.items()})
    for binary in binaries:
        text = text.replace(f'SourceFile="{binary.name}"', f"SourceFile={quoteattr(os.path.relpath(binary, output))}")
    statements = ["-q", secure_statement(package), *action_statements(package), *name_statements(package)]
    msi = output / package["file"]
    wxs = write_if_changed(output / (package["file"] + ".wxs"), text)
    sql = write_if_changed(output / (package["file"] + ".sql"), "\n".join(statements))
    if is_current(msi, [pathlib.Path(__file__), PRINTER_ACTIONS, wxs, sql, *payload.values(), *binaries]):
        return
    code_page = write_if_changed(output / "code-page.idt", CODE_PAGE)
    unfinished = msi.with_suffix(".unfinished")
    subprocess.run(["wixl", "-a", "x64", "-o", unfinished.name, wxs.name], cwd=output, check=True)
    subprocess.run(["msibuild", unfinished.name, "-i", code_page.name, *statements], cwd=output, check=True)
    unfinished.replace(msi)
    print(f"built {msi.name}")


def lay(package, output, tree):
    for folder in package["folders"]:
        (tree / folder).mkdir(parents=True, exist_ok=True)
        shutil.copy2(output / package["file"], tree / folder)


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("list", type=pathlib.Path, help="the .toml file that names the packages")
    parser.add_argument("output", type=pathlib.Path, help="folder for the packages")
    parser.add_argument("payload", type=pathlib.Path, nargs="*", help="folder with payload, besides that of the list")
    parser.add_argument("--tree", type=pathlib.Path, help="package tree into whose folders the packages are copied")
    return parser.parse_args()


def main():
    arguments = parse_arguments()
    output = arguments.output.resolve()
    output.mkdir(parents=True, exist_ok=True)
    folders = [folder.resolve() for folder in [arguments.list.parent, *arguments.payload]]
    data = tomllib.loads(arguments.list.read_text(encoding="utf-8"))
    names = read_names(arguments.list.parent / "names")
    unknown = names.keys() - {package["id"] for package in data["package"]}
    if unknown:
        sys.exit(f"make_packages.py: names for {', '.join(sorted(unknown))}, which no package has as its id")
    for package in data["package"]:
        package["properties"] = package.get("properties", {}) | names.get(package["id"], {})
        build(package, data["manufacturer"], output, folders)
        if arguments.tree:
            lay(package, output, arguments.tree)


if __name__ == "__main__":
    main()
