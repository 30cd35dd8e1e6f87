"""Which test executes which lines of `src/`: measured once and kept until the sources change."""

import hashlib
import json
import re
import subprocess
import tempfile
from pathlib import Path

import workspace

_INCLUDE = re.compile(r'^#include "([^"]+\.h)"', re.MULTILINE)
_CONSTANT = re.compile(r"\b(?:constexpr|const|constinit)\b[^=(){}]*?\b(\w+)\s*(?:=|\{)")


# A program that takes longer (in seconds) is measured function by function, so that a mutant runs
# only the functions that execute its line.
SLOW = 4


class Coverage:
    """Tests by line, and how long each takes. A test's name is that of its program, followed by the
    function's if that is run alone."""

    def __init__(self, data):
        self._lines = data["lines"]
        self.seconds = data["seconds"]
        self.broken = data["broken"]

    def tests(self, file, line, text):
        """The names of the tests that execute a line of `file`, which holds `text`. None if the line
        has no code: a declaration, or code for another system."""
        lines = self._lines.get(file, {})
        found = lines.get(str(line))
        if found is not None:
            return set(found)
        constant = _CONSTANT.search(text.splitlines()[line - 1])
        if not constant:
            return None
        # A constant has no code, but its users have.
        name = re.compile(rf"\b{constant.group(1)}\b")
        users = [number for number, used in enumerate(text.splitlines(), 1) if name.search(used)]
        return set().union(*(lines.get(str(number), ()) for number in users)) or None


def sources_key(source, tests):
    """A key for the contents of the sources and the selected tests."""
    digest = hashlib.sha256(tests.encode())
    for path in sorted(source.rglob("*")):
        relative = str(path.relative_to(source))
        if relative.startswith("tests/mutation/") or not path.is_file():
            continue
        if relative.startswith(("src/", "tests/", "fakeprovider/", "cmake/", "CMake")):
            digest.update(f"{relative}\n{hashlib.sha256(path.read_bytes()).hexdigest()}\n".encode())
    return digest.hexdigest()[:16]


def measured(space, folder, tests, jobs):
    """The coverage of the sources in `space`, from `folder` if it was measured before. `tests` is the
    expression that selects the tests."""
    kept = folder / f"coverage-{sources_key(space.source, tests)}.json"
    if not kept.is_file():
        print("Measuring which test executes which lines ...", flush=True)
        space.prepare(jobs)
        kept.write_text(json.dumps(_measure(space, jobs)))
    return Coverage(json.loads(kept.read_text()))


def _measure(space, jobs):
    lines, seconds, broken = {}, {}, {}

    def measure(test):
        return test.program, *_measure_program(space, test)

    with workspace.pool([space], jobs) as pool:
        for program, result, runs in pool.map(measure, space.programs().values()):
            print(f"  {program}: {result}, {sum(run[1] for run in runs):.1f} s", flush=True)
            if result != workspace.PASSED:
                broken[program] = result
                continue
            for name, taken, counts in runs:
                seconds[name] = taken
                _add(lines, name, counts)
    for name in seconds:
        for header in _headers_of(space.source, name.split()[0]):
            # Inline code is compiled into the test, which is not instrumented.
            counts = dict.fromkeys(lines.get(f"src/{header}", {}), 1)
            _add(lines, name, {f"src/{header}": counts})
    return {"lines": lines, "seconds": seconds, "broken": broken}


def _add(lines, name, counts):
    for file, numbers in counts.items():
        known = lines.setdefault(file, {})
        for number, count in numbers.items():
            users = known.setdefault(number, [])
            if count and name not in users:
                users.append(name)


def _measure_program(space, test):
    """The program's result, and names, seconds and counts of its runs: one, or one per function."""
    result, *whole = _measure_run(space, test)
    if result != workspace.PASSED or whole[0] < SLOW:
        return result, [(test.program, *whole)]
    runs = []
    for function in test.functions():
        alone, *run = _measure_run(space, test.alone(function))
        if alone != workspace.PASSED:
            return result, [(test.program, *whole)]  # its functions depend on each other
        runs.append((f"{test.program} {function}", *run))
    return result, runs or [(test.program, *whole)]


def _measure_run(space, test):
    with tempfile.TemporaryDirectory() as counts:
        environment = {
            "GCOV_PREFIX": counts,
            "GCOV_PREFIX_STRIP": str(len(space.build_dir.parts) - 1),
        }
        result, seconds = space.run(test, test.seconds, environment)
        return result, seconds, _counted(space, Path(counts))


def _headers_of(source, test):
    for path in (source / "tests").rglob(f"{test}.cpp"):
        yield from _INCLUDE.findall(path.read_text())


def _counted(space, counts):
    """How often each line of `src/` was executed, from gcov."""
    found = {}
    data = list(counts.rglob("*.gcda"))
    for path in data:
        notes = path.relative_to(counts).with_suffix(".gcno")
        path.with_suffix(".gcno").symlink_to(space.build_dir / notes)
    if not data:
        return found
    output = subprocess.run(
        ["gcov", "--json-format", "--stdout", "--relative-only",
         "--source-prefix", str(space.source), *map(str, data)],
        cwd=counts, check=True, capture_output=True, text=True,
    ).stdout
    for report in output.splitlines():
        if not report.startswith("{"):
            continue
        report = json.loads(report)
        for entry in report["files"]:
            file = _project_path(entry["file"])
            if not file:
                continue
            numbers = found.setdefault(file, {})
            for line in entry["lines"]:
                number = str(line["line_number"])
                numbers[number] = numbers.get(number, 0) + line["count"]
    return found


def _project_path(file):
    """The path in the project of a file in gcov's output, whose form depends on ccache."""
    match = re.search(r"(?:^|/)(src/.*)$", str(Path(file)))
    return match.group(1) if match else None
