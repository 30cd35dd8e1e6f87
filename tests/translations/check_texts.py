"""lupdate finds all texts of the window, and understands each class that has some.

    check_texts.py LUPDATE SOURCES [--update]

texts.txt lists them, one per line, with line breaks as "\\n". A text that lupdate no longer finds cannot
be translated. --update writes the list again, for a text that was added or reworded on purpose.
"""

import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

LIST = pathlib.Path(__file__).with_name("texts.txt")


def found_texts(lupdate, sources):
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "texts.ts"
        run = subprocess.run([lupdate, "-locations", "none", sources, "-ts", file],
                             capture_output=True, text=True)
        # "Class X lacks Q_OBJECT macro", "tr() cannot be called without context" and the like
        if run.returncode != 0 or run.stderr:
            sys.exit(f"lupdate reports:\n{run.stderr}")
        root = xml.etree.ElementTree.parse(file)
    return {source.text.replace("\n", "\\n") for source in root.iter("source")}


def main(lupdate, sources, *options):
    found = found_texts(lupdate, sources)
    if "--update" in options:
        LIST.write_text("\n".join(sorted(found)) + "\n")
        return 0
    listed = set(LIST.read_text().splitlines())
    for text in sorted(listed - found):
        print(f"lupdate does not find: {text}")
    for text in sorted(found - listed):
        print(f"not in {LIST.name}: {text}")
    return 0 if found == listed else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
