"""Every language of the window is complete, and no translation breaks what its text needs.

    check_translations.py LUPDATE SOURCES TRANSLATIONS

Prints what is wrong with the files vantiro_*.ts in the folder TRANSLATIONS.
"""

import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

HOW_TO_REFRESH = """
"cmake --build build/release --target refresh_translations" takes out the texts that are gone and adds
the new ones to each file, marked as unfinished. Translate those, by hand or with Qt Linguist."""

PLACEHOLDER = re.compile(r"%L?(?:[0-9]{1,2}|n)")
PERCENT_SIGN = re.compile(r"%(?!L?(?:[0-9]|n))")
ACCELERATOR = re.compile(r"&([^&\s])")
TAG = re.compile(r"</?[a-zA-Z]")
FILTER = re.compile(r"\(\*[^)]*\)")

Message = collections.namedtuple("Message", "context source comment forms finished")


def messages_of(file):
    """The messages of a .ts file, keyed by context, text and comment."""
    found = {}
    for context in ElementTree.parse(file).getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            source, comment = message.findtext("source"), message.findtext("comment")
            translation = message.find("translation")
            forms = [form.text or "" for form in translation.iter("numerusform")]
            found[name, source, comment] = Message(
                name, source, comment, forms or [translation.text or ""],
                translation.get("type") is None)
    return found


def ends_of(text):
    """What stands before and after the words: blanks, line breaks and an ellipsis."""
    words = text.strip(" \n\t")
    return (text[:len(text) - len(text.lstrip(" \n\t"))], words.endswith("..."),
            text[len(text.rstrip(" \n\t")):])


def faults_of_form(source, form):
    """What is wrong with one form of a translation."""
    if not form.strip():
        yield "is empty"
        return
    count = collections.Counter
    if count(PLACEHOLDER.findall(form)) != count(PLACEHOLDER.findall(source)):
        yield "has other placeholders"
    if len(PERCENT_SIGN.findall(form)) != len(PERCENT_SIGN.findall(source)):
        yield "has other percent signs, or digits of another script after one"
    if len(ACCELERATOR.findall(form)) != len(ACCELERATOR.findall(source)):
        yield "loses or adds an accelerator"
    if TAG.search(form):
        yield "contains HTML"
    if ends_of(form) != ends_of(source):
        yield "begins or ends with other blanks, or another ellipsis"
    if "\u2026" in form:
        yield "has an ellipsis of one character"
    if form.count("\n") != source.count("\n"):
        yield "has another number of lines"
    if FILTER.findall(form) != FILTER.findall(source) or form.count(";;") != source.count(";;"):
        yield "changes the patterns of a file dialog"


def shared_accelerators(messages):
    """Pairs of texts of one context that share an accelerator only in the translation."""
    first = {}
    for message in messages:
        english = ACCELERATOR.search(message.source)
        translated = ACCELERATOR.search(message.forms[0])
        if english is None or translated is None:
            continue
        key = message.context, translated[1].casefold()
        other_english, other = first.setdefault(key, (english[1].casefold(), message))
        if other_english != english[1].casefold():
            yield other, message


def faults_of_file(file, refreshed):
    """What is wrong with a file. `refreshed` has the messages that lupdate would make of it."""
    present = messages_of(file)
    language = ElementTree.parse(file).getroot().get("language")
    if file.stem != f"vantiro_{language}":
        yield f"says that its language is {language}"
    for key in present.keys() - refreshed.keys():
        yield f"{key[0]}: the program no longer has: {key[1]!r}"
    for key, expected in refreshed.items():
        message = present.get(key)
        if message is None or not message.finished:
            yield f"{key[0]}: not translated: {key[1]!r}"
        elif len(message.forms) != len(expected.forms):
            yield (f"{key[0]}: has {len(message.forms)} plural forms where the language has "
                   f"{len(expected.forms)}: {key[1]!r}")
        else:
            for form in message.forms:
                for fault in faults_of_form(message.source, form):
                    yield f"{key[0]}: {fault}: {message.source!r}: {form!r}"
    for one, other in shared_accelerators(present.values()):
        yield f"{one.context}: one accelerator for {one.forms[0]!r} and {other.forms[0]!r}"


def main(lupdate, sources, folder):
    files = sorted(pathlib.Path(folder).glob("vantiro_*.ts"))
    if not files:
        sys.exit(f"no translations in {folder}")
    failed = False
    with tempfile.TemporaryDirectory() as scratch:
        copies = [pathlib.Path(shutil.copy(file, scratch)) for file in files]
        subprocess.run([lupdate, "-silent", "-locations", "none", "-no-obsolete", sources,
                        "-ts", *copies], check=True)
        for file, copy in zip(files, copies):
            for fault in faults_of_file(file, messages_of(copy)):
                print(f"{file.name}: {fault}")
                failed = True
    if failed:
        print(HOW_TO_REFRESH)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
