"""Reports the lines and conditions of `src/` that no test reached, from the counts in a build folder.

The counts are those of Clang, which knows each condition of an expression and the instances of a
template. Lines in `unreached.txt` are named with a reason there, and so are conditions in `oneway.txt`;
they are not listed again, nor are conditions in a line that is named. Left out is the way of a switch
that meets none of its cases: the compiler demands a case for each value.
Headers are left out: of an inline function the linker may take a test's copy, which does not count.

Exits with 1 if a line or a way of a condition is neither reached nor named.
"""

import json
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
NAMED_LINES = Path(__file__).with_suffix(".txt")
NAMED_WAYS = Path(__file__).with_name("oneway.txt")


class Reached:
    """How often each line, and each way of a condition, was taken.

    `lines[file][number]` is a count. `conditions[file][place]` is the counts for true and for false,
    where a place is the line and column of the begin, and of the end, of the condition's text.
    """

    def __init__(self):
        self.lines = {}
        self.conditions = {}
        self._texts = {}

    def add(self, report):
        """Adds one file of what `llvm-cov export` prints."""
        path = Path(report["filename"]).resolve()
        if PROJECT / "src" not in path.parents or path.suffix != ".cpp":
            return
        file = str(path.relative_to(PROJECT))
        self.lines[file] = line_counts(report["segments"])
        conditions = defaultdict(lambda: (0, 0))
        for *place, true, false, _file, _expanded, _kind in report["branches"]:
            if self._before(file, place).endswith("switch ("):
                continue
            counts = conditions[tuple(place)]  # each instance of a template has its own
            conditions[tuple(place)] = (counts[0] + true, counts[1] + false)
        self.conditions[file] = conditions

    def texts(self, file):
        """The lines of a file, with single spaces."""
        return [" ".join(line.split()) for line in self._source(file)]

    def text_at(self, file, place):
        """The text of a condition, with single spaces."""
        line, column, end_line, end_column = place
        text = self._source(file)[line - 1:end_line]
        text[-1] = text[-1][:end_column - 1]
        text[0] = text[0][column - 1:]
        return " ".join(" ".join(text).split())

    def _before(self, file, place):
        """What stands in the line before a condition."""
        return self._source(file)[place[0] - 1][:place[1] - 1]

    def _source(self, file):
        if file not in self._texts:
            self._texts[file] = (PROJECT / file).read_text().splitlines()
        return self._texts[file]


def line_counts(segments):
    """The count of each line with code.

    A segment is [line, column, count, has a count, begins a region, is a gap] and holds up to the
    next one. A line counts as often as the most frequent region that begins in it or goes on there.
    """
    starting = defaultdict(list)
    for segment in segments:
        starting[segment[0]].append(segment)
    counts = {}
    before = None
    for number in range(min(starting, default=1), max(starting, default=0) + 1):
        here = starting[number]
        found = [count for _, _, count, counted, begins, gap in here if counted and begins and not gap]
        skipped = here and not here[0][3] and here[0][4]
        if before and before[3] and not skipped:
            found.append(before[2])
        if found:
            counts[number] = max(found)
        before = here[-1] if here else before
    return counts


def counted(build):
    """What the tests' programs in a build folder counted."""
    raw = [str(path) for path in (build / "counts").glob("*.profraw")]
    if not raw:
        raise SystemExit("no test has run; run scripts/coverage")
    profile = build / "counts" / "all.profdata"
    subprocess.run(["llvm-profdata", "merge", "--sparse", "-o", profile, *raw], check=True)
    programs = [path for path in [*build.glob("tests/bin/*"), *build.glob("bin/*")] if is_program(path)]
    objects = [argument for path in programs[1:] for argument in ("--object", path)]
    output = subprocess.run(
        ["llvm-cov", "export", "--skip-functions", "--skip-expansions", "--instr-profile", profile,
         programs[0], *objects],
        check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
    ).stdout
    reached = Reached()
    for report in json.loads(output)["data"][0]["files"]:
        reached.add(report)
    return reached


def is_program(path):
    with path.open("rb") as file:
        return file.read(4) == b"\x7fELF"


def named_lines(texts):
    """The lines that are named with a reason, as pairs of file and number. `texts` gives a file's."""
    found = set()
    for block in blocks(NAMED_LINES):
        end = next((n for n, line in enumerate(block) if line.startswith("Reason:")), 0)
        if end < 2:
            raise SystemExit(f"{NAMED_LINES}: not a file, lines and a reason: {block}")
        file, wanted = block[0], block[1:end]
        there = texts(file)
        places = [n for n in range(len(there)) if there[n:n + len(wanted)] == wanted]
        if not places:
            raise SystemExit(f"{NAMED_LINES}: {file} has no such lines: {wanted}")
        found.update((file, place + n) for place in places for n in range(1, len(wanted) + 1))
    return found


def named_ways():
    """The ways of conditions that are named with a reason, as the report prints them, without line."""
    found = set()
    for block in blocks(NAMED_WAYS):
        begin = next((n for n, line in enumerate(block) if line.startswith("src/")), 0)
        if not begin or not block[0].startswith("Reason:"):
            raise SystemExit(f"{NAMED_WAYS}: not a reason and conditions: {block}")
        found.update(block[begin:])
    return found


def blocks(path):
    """The blocks of a file that empty lines separate: lists of lines, without comments."""
    for block in path.read_text().split("\n\n"):
        lines = [" ".join(line.split()) for line in block.splitlines() if not line.startswith("#")]
        if any(lines):
            yield [line for line in lines if line]


def share(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "-"


def print_table(reached):
    row = "{:40} {:>6} {:>8}   {:>8} {:>8}".format
    print(row("", "lines", "reached", "ways", "taken"))
    sums = [0, 0, 0, 0]
    for file in sorted(reached.lines):
        lines = reached.lines[file].values()
        ways = [count for counts in reached.conditions[file].values() for count in counts]
        numbers = [len(lines), sum(map(bool, lines)), len(ways), sum(map(bool, ways))]
        sums = [a + b for a, b in zip(sums, numbers)]
        print_row(row, file, numbers)
    print_row(row, "all", sums)


def print_row(row, name, numbers):
    lines, reached, ways, taken = numbers
    print(row(name, lines, share(reached, lines), ways, share(taken, ways)))


def missing_lines(reached, known):
    """The lines that are neither reached nor named."""
    for file in sorted(reached.lines):
        for number, count in sorted(reached.lines[file].items()):
            text = reached.texts(file)[number - 1]
            if not count and any(map(str.isalpha, text)) and (file, number) not in known:
                yield f"{file}:{number}: {text}"


def missing_ways(reached, known_lines, known_ways):
    """The conditions that went one way only and are not named. What never ran is among the lines."""
    existing = set()
    for file in sorted(reached.conditions):
        for place, (true, false) in sorted(reached.conditions[file].items()):
            text = reached.text_at(file, place)
            existing.update(f"{file}: never {way}: {text}" for way in ("true", "false"))
            way = "false" if true else "true"
            if bool(true) == bool(false) or (file, place[0]) in known_lines:
                continue
            if f"{file}: never {way}: {text}" not in known_ways:
                yield f"{file}:{place[0]}: never {way}: {text}"
    if known_ways - existing:
        raise SystemExit(f"{NAMED_WAYS}: no such conditions: {sorted(known_ways - existing)}")


def main(build):
    reached = counted(build)
    print_table(reached)
    known = named_lines(reached.texts)
    lines = list(missing_lines(reached, known))
    ways = list(missing_ways(reached, known, named_ways()))
    print(f"\nNeither reached nor named: {len(lines)} lines", *lines or "-", sep="\n")
    print(f"\n... and {len(ways)} ways of conditions", *ways or "-", sep="\n")
    return 1 if lines or ways else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve()))
