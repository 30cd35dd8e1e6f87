"""Which test runs which lines of `src/`: measured once and kept until the sources change."""

import hashlib
import json
import re
import shutil
import subprocess
from pathlib import Path

import workspace

_INCLUDE = re.compile(r'^#include "((?:app|model|player|providers|ui)/[^"]+\.h)"', re.MULTILINE)
_CONSTANT = re.compile(r"\b(?:constexpr|const|constinit)\b[^=(){}]*?\b(\w+)\s*(?:=|\{)")


class Coverage:
    """Tests by line, and how long each takes."""

    def __init__(self, data):
        self._lines = data["lines"]
        self.seconds = data["seconds"]
        self.broken = data["broken"]

    def tests(self, file, line, text):
        """The names of the tests that run a line of `file`, whose text is `text`. None if nothing
        is ever run there: a declaration, or code for another system."""
        lines = self._lines.get(file, {})
        found = lines.get(str(line))
        if found is not None:
            return set(found)
        constant = _CONSTANT.search(text.splitlines()[line - 1])
        if not constant:
            return None
        # A constant has no code of its own. Its users have.
        name = re.compile(rf"\b{constant.group(1)}\b")
        users = [number for number, used in enumerate(text.splitlines(), 1) if name.search(used)]
        return set().union(*(lines.get(str(number), ()) for number in users)) or None


def sources_key(source, tests):
    """A name for what the sources hold and the tests that are used."""
    digest = hashlib.sha256(tests.encode())
    for path in sorted(source.rglob("*")):
        relative = str(path.relative_to(source))
        if relative.startswith("tests/mutation/") or not path.is_file():
            continue
        if relative.startswith(("src/", "tests/", "demo/", "cmake/", "CMake")):
            digest.update(f"{relative}\n{hashlib.sha256(path.read_bytes()).hexdigest()}\n".encode())
    return digest.hexdigest()[:16]


def measured(space, folder, tests, jobs):
    """The coverage of the sources in `space`, from `folder` if it was measured before.
    `tests` is the expression that chose the tests."""
    kept = folder / f"coverage-{sources_key(space.source, tests)}.json"
    if not kept.is_file():
        print("Measuring which test runs which lines ...", flush=True)
        space.configure()
        if not space.build(jobs=jobs, quiet=False):
            raise SystemExit("scripts/mutate: the build fails without any mutant")
        data = _measure(space, folder)
        kept.write_text(json.dumps(data))
    return Coverage(json.loads(kept.read_text()))


def _measure(space, folder):
    lines, seconds, broken = {}, {}, {}
    for name, test in space.tests().items():
        counts = folder / "counts"
        shutil.rmtree(counts, ignore_errors=True)
        environment = {
            "GCOV_PREFIX": str(counts),
            "GCOV_PREFIX_STRIP": str(len(space.build_dir.parts) - 1),
        }
        result, seconds[name] = space.run(test, test.seconds, environment)
        print(f"  {name}: {result}, {seconds[name]:.1f} s", flush=True)
        if result != workspace.PASSED:
            broken[name] = result
            continue
        for file, numbers in _counted(space, counts).items():
            known = lines.setdefault(file, {})
            for number, count in numbers.items():
                users = known.setdefault(number, [])
                if count:
                    users.append(name)
        for header in _headers_of(space.source, name):
            # What is inline is compiled into the test itself, where nothing counts it.
            for users in lines.get(f"src/{header}", {}).values():
                if name not in users:
                    users.append(name)
    return {"lines": lines, "seconds": seconds, "broken": broken}


def _headers_of(source, test):
    for path in (source / "tests").rglob(f"{test}.cpp"):
        yield from _INCLUDE.findall(path.read_text())


def _counted(space, counts):
    """How often each line of `src/` was run, as gcov tells it."""
    found = {}
    data = [path for path in counts.rglob("*.gcda")]
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
    """The path below the project of what gcov names, with ccache's way of writing it or without."""
    match = re.search(r"(?:^|/)(src/.*)$", str(Path(file)))
    return match.group(1) if match else None
