#!/usr/bin/env python3
"""Holds the texts of the sample's languages against the English ones and against the glossary of each language.

Where an English text has a term, the translation has one of the forms that its language uses for it. A text that is the
same in both is one that the glossary names. A language has its texts in the order of the English file, an access key
wherever English has one, a licence text that its code page holds, and translated names that go to its own LANGUAGE_ID.
Where a language has help of its own, that has the pages of the English one.

usage: scripts/check-languages.py [FOLDER]
The folder is that of the sample, unless another one is named.
"""
import pathlib
import re
import sys
import tomllib
import unicodedata

TEXT = re.compile(r"<([A-Z_0-9]+)>(.*)</\1>")
# What the head of a file says of its language is no text.
HEAD = {"LANGUAGE_ID", "READING_ORDER", "CODE_PAGE"}
# Code pages that have another name here.
CODECS = {"936": "gbk"}

findings = []


def report(path, line, message):
    findings.append(f"{path}:{line}: {message}")


class Language:
    def __init__(self, folder, code):
        self.code = code
        self.path = folder / "strings" / f"{code}_strings.xml"
        self.texts, self.lines = {}, {}
        for number, line in enumerate(self.path.read_text(encoding="utf-8").splitlines(), 1):
            if found := TEXT.search(line):
                self.texts[found[1]], self.lines[found[1]] = found[2], number
        self.glossary_path = folder / "glossary" / f"{code}.toml"
        self.glossary = tomllib.loads(self.glossary_path.read_text(encoding="utf-8")) if self.glossary_path.is_file() else None

    def report(self, key, message):
        report(self.path, self.lines.get(key, 1), f"{key}: {message}")


def plain(text):
    """The words alone: without access keys, and in one case."""
    text = re.sub(r"\(&amp;\w\)", "", text).replace("&amp;", "").replace("\u0130", "i")
    return unicodedata.normalize("NFC", text).casefold()


def terms_of(text, english_forms):
    """The terms in an English text. A longer term hides the shorter ones in it, as a subnet mask does a subnet."""
    rest = plain(text)
    found = []
    for term in sorted(english_forms, key=len, reverse=True):
        pattern = r"\b(?:" + "|".join(map(re.escape, english_forms[term])) + r")\b"
        if re.search(pattern, rest):
            found.append(term)
            rest = re.sub(pattern, " ", rest)
    return found


def check_keys(language, english):
    for number, (own, expected) in enumerate(zip(language.texts, english.texts)):
        if own != expected:
            language.report(own, f"is where the English file has {expected}")
            return
    for key in [*english.texts][len(language.texts):]:
        language.report(key, "is missing at the end of the file")
    for key in [*language.texts][len(english.texts):]:
        language.report(key, "is a text that the English file does not have")


def check_texts(language, english):
    forms, same = language.glossary["forms"], language.glossary["same"]
    for key, text in language.texts.items():
        if key in HEAD or key not in english.texts:
            continue
        if (text == english.texts[key]) != (key in same):
            language.report(key, "is the English text, and the glossary's list \"same\" does not name it" if key not in same
                            else "is named by the glossary's list \"same\", and is not the English text")
        for term in terms_of(english.texts[key], english.glossary["forms"]):
            if not any(plain(form) in plain(text) for form in forms.get(term, [])):
                language.report(key, f"has none of the forms of \"{term}\" ({', '.join(forms.get(term, []))}): {text}")
        if text.count("&amp;") != english.texts[key].count("&amp;"):
            language.report(key, "has an access key where English has none, or none where English has one")
        if text != unicodedata.normalize("NFC", text):
            language.report(key, "has letters and accents apart")


def check_glossary(language, english):
    for term in english.glossary["forms"].keys() ^ language.glossary["forms"].keys():
        report(language.glossary_path, 1, f"\"{term}\" is a term of one of English and this language")
    for key in language.glossary["same"]:
        if key not in english.texts:
            report(language.glossary_path, 1, f"\"same\" names {key}, which is no text")


def check_licence(language, folder):
    path = folder / "eula" / f"EULA_{language.code}.txt"
    if not path.is_file():
        report(path, 1, "is missing")
        return
    check_code_page(language, path)


def check_code_page(language, path):
    page = language.texts["CODE_PAGE"]
    codec = CODECS.get(page, f"cp{page}")
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        # Vietnamese is written with its tone marks apart, which is how its page has most of them.
        letters = line if page != "1258" else "".join(map(tone_apart, line))
        for letter in letters:
            try:
                letter.encode(codec)
            except UnicodeEncodeError:
                report(path, number, f"\"{letter}\" (U+{ord(letter):04X}) is not in the code page {page}")


def check_help(language, folder):
    """The help of a language has the pages of the English one, and what the viewer asks of their encodings."""
    own, model = folder / "help" / language.code, folder / "help/en"
    if not own.is_dir():
        return
    for name in sorted({path.name for path in own.iterdir()} ^ {path.name for path in model.iterdir()}):
        report(own / name, 1, "is in the help of one of English and this language")
    project, contents = own / "install.hhp", own / "install.hhc"
    head, lists = (project.read_text(encoding="utf-8").partition("[FILES]")[part] for part in (0, 2))
    if lists != (model / "install.hhp").read_text(encoding="utf-8").partition("[FILES]")[2]:
        report(project, 1, "has other files or topics than the English help")
    number = re.search("^Language=(0x[0-9a-f]+)", head, re.MULTILINE)
    if number is None or str(int(number[1], 16)) != language.texts["LANGUAGE_ID"]:
        report(project, 1, "has another language than LANGUAGE_ID")
    for path in (project, contents):
        check_code_page(language, path)
    names = dict(re.findall(r'value="([^"]*)"><param name="Local" value="([^"]*)"', contents.read_text(encoding="utf-8")))
    root = f'<html lang="{language.code}"' + (' dir="rtl">' if language.texts["READING_ORDER"] == "RTL" else ">")
    for title, name in names.items():
        page = (own / name).read_text(encoding="utf-8") if (own / name).is_file() else ""
        wanted = (root, '<meta charset="utf-8">', f"<title>{title}</title>", f"<h1>{title}</h1>")
        for part in wanted:
            if part not in page:
                report(own / name, 1, f"has no {part}")


def tone_apart(letter):
    try:
        letter.encode("cp1258")
        return letter
    except UnicodeEncodeError:
        whole = unicodedata.normalize("NFD", letter)
        tones = [mark for mark in whole if mark in "\u0300\u0301\u0303\u0309\u0323"]
        base = unicodedata.normalize("NFC", "".join(mark for mark in whole if mark not in tones))
        return base + "".join(tones)


def check_names(language, folder):
    path = folder / "packages" / "names" / f"{language.code}.toml"
    if not path.is_file():
        report(path, 1, "is missing")
        return
    names = tomllib.loads(path.read_text(encoding="utf-8"))
    if str(names["language"]) != language.texts["LANGUAGE_ID"]:
        report(path, 1, f"is for the language {names['language']}, and the texts have {language.texts['LANGUAGE_ID']}")


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "package"
    english = Language(folder, "en")
    for code in re.findall(r'L"(\w+)"', (root / "src/settings/LanguageTable.cpp").read_text(encoding="utf-8")):
        if not (folder / "strings" / f"{code}_strings.xml").is_file():
            report(folder / "strings" / f"{code}_strings.xml", 1, "is missing, and the wizard looks for it")
    for path in sorted((folder / "strings").glob("*_strings.xml")):
        language = Language(folder, path.name.removesuffix("_strings.xml"))
        check_licence(language, folder)
        check_help(language, folder)
        if language.code == "en":
            continue
        check_keys(language, english)
        check_names(language, folder)
        if language.glossary is None:
            report(language.glossary_path, 1, "is missing")
            continue
        check_texts(language, english)
        check_glossary(language, english)
    print("\n".join(findings))
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
