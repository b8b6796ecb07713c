"""What src/floors.cmake says of the folders of the program."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent


def logic_sources():
    """The sources that only compute, from the root of the tree, in the order of the floors."""
    floors = (ROOT / 'src/floors.cmake').read_text(encoding='utf-8')
    listed = re.findall(r'^floor\((\w+)\s+LOGIC\s([\w\s]*?)\sSYSTEM', floors, re.M)
    return [f'src/{folder}/{name}.cpp' for folder, names in listed for name in names.split()]
