"""Breaks lines of `src/` one at a time and reports which changes no test notices.

Each mutant is compiled in a copy of the sources and run against the tests that execute its line,
the fastest first, until one fails. End-to-end tests run only where no other test executes the line.
The same seed takes the same mutants while the sources stay the same.

Exits with 1 if a mutant survives or no test executes a mutant's line.
"""

import argparse
import concurrent.futures
import fnmatch
import queue
import random
import signal
import sys
import time
from collections import Counter
from pathlib import Path

import coverage
import operators
import workspace

KILLED, SURVIVED, TIMEOUT = "killed", "survived", "timeout"
UNCOVERED, INVALID = "not covered", "not a mutant"


def arguments(words):
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__.split("\n\n")[0])
    parser.add_argument("--count", type=int, help="how many mutants (200, or all of --lines)")
    parser.add_argument("--seed", type=int, default=1, help="selects other mutants (1)")
    parser.add_argument("--file", default="src/*", metavar="GLOB", help="sources to break (src/*)")
    parser.add_argument("--lines", default="", metavar="FILE:LINE,...", help="lines to break")
    parser.add_argument("--tests", default="", metavar="REGEX", help="use only matching tests")
    parser.add_argument("--jobs", type=int, default=2, help="mutants at a time (2)")
    parser.add_argument("--report", type=Path, metavar="FILE", help="also write the report there")
    options = parser.parse_args(words)
    places = (entry.strip().rsplit(":", 1) for entry in options.lines.split(",") if entry.strip())
    options.lines = {(file, int(line)) for file, line in places}
    return options


def equivalents(path):
    """The mutants that are known to change nothing, as triples of file and lines."""
    found = set()
    for block in path.read_text().split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 4 or not lines[1].startswith("- ") or not lines[2].startswith("+ "):
            raise SystemExit(f"{path}: not a file, two lines and a reason:\n{block}")
        found.add((lines[0].strip(), lines[1][2:], lines[2][2:]))
    return found


def candidates(options, covered, source):
    """The mutants to try, in their order, each with its tests' names."""
    ignored = equivalents(source / "tests/mutation/equivalent.txt")
    found = []
    for path in sorted((source / "src").rglob("*")):
        file = str(path.relative_to(source))
        if path.suffix not in (".cpp", ".h") or not fnmatch.fnmatch(file, options.file):
            continue
        text = path.read_text()
        for mutant in operators.mutants(file, text):
            if (file, mutant.before, mutant.after) in ignored:
                continue
            if options.lines and (file, mutant.line) not in options.lines:
                continue
            tests = covered.tests(file, mutant.line, text)
            if tests is not None:
                found.append((mutant, tests))
    if not options.lines or options.count:
        random.Random(options.seed).shuffle(found)
    return found


def attempt(space, mutant, names, seconds):
    """What becomes of the mutant, and the test that noticed it."""
    tests = space.tests(names)
    if not tests:
        return UNCOVERED, ""
    if any(not test.e2e for test in tests.values()):
        tests = {name: test for name, test in tests.items() if not test.e2e}
    path = space.source / mutant.file
    text = path.read_text()
    path.write_text(mutant.apply(text))
    try:
        if not space.build({test.program for test in tests.values()}):
            return INVALID, ""
        for name in sorted(tests, key=lambda name: (seconds[name], name)):
            result, _ = space.run(tests[name], 10 + 4 * seconds[name])
            if result == workspace.TIMEOUT:
                return TIMEOUT, name
            if result == workspace.FAILED:
                return KILLED, name
        return SURVIVED, f"{len(tests)} tests"
    finally:
        path.write_text(text)


def trial(found, count, seconds, spaces, results):
    """Tries the candidates in their order until `count` of them turned out to be mutants. Appends
    (mutant, result) to `results` in the same order."""
    free = queue.SimpleQueue()
    for space in spaces:
        free.put(space)

    def work(candidate):
        space = free.get()
        try:
            result, noticed = attempt(space, *candidate, seconds)
        finally:
            free.put(space)
        print(f"{candidate[0].file}:{candidate[0].line} {candidate[0].operator}: {result} {noticed}",
              flush=True)
        return candidate[0], result

    remaining = list(found)
    with workspace.pool(spaces) as pool:
        while (missing := count - sum(result != INVALID for _, result in results)) and remaining:
            batch, remaining = remaining[:missing], remaining[missing:]
            for result in pool.map(work, batch):
                results.append(result)


def report(results, broken, untouched, seconds):
    """The text of the report."""
    counted = Counter(result for _, result in results)
    lines = []
    for wanted in (SURVIVED, UNCOVERED):
        for mutant, result in results:
            if result == wanted:
                lines += [f"{wanted}: {mutant.file}:{mutant.line} ({mutant.operator})",
                          f"  - {mutant.before}", f"  + {mutant.after}"]
    lines += [f"nothing to break: {file}:{line}" for file, line in sorted(untouched)]
    lines += [f"left out because it fails unbroken: {name} ({how})" for name, how in broken.items()]
    lines.append(
        f"{len(results) - counted[INVALID]} mutants: {counted[KILLED]} killed, "
        f"{counted[TIMEOUT]} timeouts, {counted[SURVIVED]} survived, {counted[UNCOVERED]} not "
        f"covered; {counted[INVALID]} did not compile; {seconds:.0f} seconds"
    )
    return "\n".join(lines) + "\n"


def main(words, project):
    """Runs the command line `words` for the sources in the folder `project`."""
    options = arguments(words)
    # SIGTERM ends the running tests as Ctrl+C does.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    build = project / "build" / "mutate"
    build.mkdir(parents=True, exist_ok=True)
    counting = workspace.Workspace(project, build / "coverage", options.tests, with_coverage=True)
    counting.synchronize()
    covered = coverage.measured(counting, build, options.tests, options.jobs)

    found = candidates(options, covered, counting.source)
    count = options.count or (len(found) if options.lines else 200)
    spaces = [workspace.Workspace(project, build / f"job{job}", options.tests)
              for job in range(1, min(options.jobs, max(1, len(found))) + 1)]
    for space in spaces:
        space.synchronize()
        space.prepare(options.jobs)

    began = time.monotonic()
    results = []
    try:
        trial(found, count, covered.seconds, spaces, results)
    finally:  # an interrupted run also reports its results
        named = set() if options.count else options.lines
        untouched = named - {(mutant.file, mutant.line) for mutant, _ in found}
        text = report(results, covered.broken, untouched, time.monotonic() - began)
        print(text, end="")
        if options.report:
            options.report.write_text(text)
    return 1 if any(result in (SURVIVED, UNCOVERED) for _, result in results) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:], Path(__file__).resolve().parents[2]))
