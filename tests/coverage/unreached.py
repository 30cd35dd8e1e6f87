"""Reports the lines and branches of `src/` that no test reached, from the counts in a build folder.

A branch is a way out of a condition. Left out are the ways that only an exception takes, those of a
line without a condition, which the compiler made, and lines without a word. Lines in `unreached.txt`
are named with a reason there and are not listed again.
Headers are left out: of an inline function the linker may take a test's copy, which does not count.

Exits with 1 if a line is neither reached nor named.
"""

import json
import os
import re
import subprocess
import sys
import tempfile
from collections import defaultdict
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
NAMED = Path(__file__).with_suffix(".txt")
CONDITION = re.compile(r"\b(if|while|for|switch|case|default)\b|\?|&&|\|\|")


class Reached:
    """How often each line, and each way out of its conditions, was taken; by file and line."""

    def __init__(self):
        self.lines = defaultdict(lambda: defaultdict(int))
        self.branches = defaultdict(dict)
        self._texts = {}

    def add(self, report):
        for entry in report["files"]:
            file = project_path(entry["file"])
            if not file:
                continue
            texts = self.texts(file)
            for line in entry["lines"]:
                number = line["line_number"]
                if number > len(texts):
                    raise SystemExit(f"{file} has changed since the build; run scripts/coverage")
                if not re.search(r"\w", texts[number - 1]):
                    continue  # the end of a block, which destroys what an exception leaves
                self.lines[file][number] += line["count"]
                if has_condition(texts, number):
                    self._add_branches(file, number, line)

    def texts(self, file):
        """The lines of a file, with single spaces."""
        if file not in self._texts:
            lines = (PROJECT / file).read_text().splitlines()
            self._texts[file] = [" ".join(line.split()) for line in lines]
        return self._texts[file]

    def _add_branches(self, file, number, line):
        taken = [way["count"] for way in line["branches"] if not way["throw"]]
        known = self.branches[file].get(number, [])
        if len(known) == len(taken):
            taken = [a + b for a, b in zip(known, taken)]
        # Instances of a template differ in their branches: those of one that ran count.
        if line["count"] or not known:
            self.branches[file][number] = taken


def has_condition(texts, number):
    """Whether a line has a condition, or goes on with the one before."""
    before = texts[number - 2] if number > 1 else ""
    return bool(CONDITION.search(texts[number - 1])) or before.endswith(("&&", "||"))


def project_path(file):
    """The path in the project of a file in gcov's output, which is relative to the build folder."""
    match = re.search(r"(?:^|/)(src/.*\.cpp)$", file)
    return match.group(1) if match and (PROJECT / match.group(1)).is_file() else None


def counted(build):
    """What gcov makes of the counts, and of objects that no test has loaded."""
    reached = Reached()
    notes = sorted(path for path in (build / "src").rglob("*.gcno") if "autogen" not in str(path))
    for note in notes:
        counts = note.with_suffix(".gcda")
        if counts.exists() and counts.stat().st_mtime < note.stat().st_mtime:
            counts.unlink()  # of another version of the source, which gcov refuses
    with tempfile.TemporaryDirectory() as folder:
        output = subprocess.run(
            ["gcov", "--json-format", "--stdout", "--branch-probabilities", *map(str, notes)],
            cwd=folder, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            env={**os.environ, "LC_ALL": "C"},
        ).stdout
    for report in output.splitlines():
        if report.startswith("{"):
            reached.add(json.loads(report))
    return reached


def named(texts):
    """The lines that are named with a reason, as pairs of file and number. `texts` gives a file's."""
    found = set()
    for block in NAMED.read_text().split("\n\n"):
        lines = [" ".join(line.split()) for line in block.splitlines() if not line.startswith("#")]
        if not any(lines):
            continue
        end = next((n for n, line in enumerate(lines) if line.startswith("Reason:")), 0)
        if end < 2:
            raise SystemExit(f"{NAMED}: not a file, lines and a reason:\n{block}")
        file, wanted = lines[0], lines[1:end]
        there = texts(file)
        places = [n for n in range(len(there)) if there[n:n + len(wanted)] == wanted]
        if not places:
            raise SystemExit(f"{NAMED}: {file} has no such lines:\n{block}")
        found.update((file, place + n) for place in places for n in range(1, len(wanted) + 1))
    return found


def share(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "-"


def print_table(reached):
    row = "{:40} {:>6} {:>8}   {:>8} {:>8}".format
    print(row("", "lines", "reached", "branches", "taken"))
    sums = [0, 0, 0, 0]
    for file in sorted(reached.lines):
        lines = reached.lines[file].values()
        ways = [count for counts in reached.branches[file].values() for count in counts]
        numbers = [len(lines), sum(map(bool, lines)), len(ways), sum(map(bool, ways))]
        sums = [a + b for a, b in zip(sums, numbers)]
        print_row(row, file, numbers)
    print_row(row, "all", sums)


def print_row(row, name, numbers):
    lines, reached, branches, taken = numbers
    print(row(name, lines, share(reached, lines), branches, share(taken, branches)))


def print_missing(reached, known):
    """Prints the lines that are neither reached nor named, and returns how many these are."""
    missing, one_way = [], []
    for file in sorted(reached.lines):
        for number, count in sorted(reached.lines[file].items()):
            if (file, number) in known:
                continue
            text = reached.texts(file)[number - 1]
            if not count:
                missing.append(f"{file}:{number}: {text}")
            elif not all(reached.branches[file].get(number, [])):
                one_way.append(f"{file}:{number}: {text}")
    print(f"\nNo test reaches, and no reason is given for, {len(missing)} lines:")
    print("\n".join(missing) or "-")
    print(f"\nConditions that never go one of their ways: {len(one_way)} lines:")
    print("\n".join(one_way) or "-")
    return len(missing)


def main(build):
    reached = counted(build)
    print_table(reached)
    return 1 if print_missing(reached, named(reached.texts)) else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve()))
