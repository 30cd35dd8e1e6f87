"""Breaks lines of `src/` one at a time and tells which changes no test notices.

Each mutant is compiled in a copy of the sources and tested by the tests that run its line, the
fastest first, until one fails. End-to-end tests are asked only where no other test runs the line.
The same seed takes the same mutants while the sources stay the same.

Exits with 1 if a mutant survives or a mutant's line is run by no test.
"""

import argparse
import concurrent.futures
import fnmatch
import random
import signal
import sys
import threading
import time
from collections import Counter
from pathlib import Path

import coverage
import operators
import workspace

KILLED, SURVIVED, TIMEOUT = "killed", "survived", "timeout"
UNCOVERED, INVALID, STOPPED = "not covered", "not a mutant", "stopped"
_FIRST_PORT = 18500  # of the tests' subscription service; each job has one of its own


def arguments(words):
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__.split("\n\n")[0])
    parser.add_argument("--count", type=int, help="how many mutants (200, or all of --lines)")
    parser.add_argument("--seed", type=int, default=1, help="takes other mutants (1)")
    parser.add_argument("--file", default="src/*", metavar="GLOB", help="sources to break (src/*)")
    parser.add_argument("--lines", default="", metavar="FILE:LINE,...", help="lines to break")
    parser.add_argument("--list", type=Path, metavar="FILE", help="a file with such lines")
    parser.add_argument("--tests", default="", metavar="REGEX", help="use only the tests it finds")
    parser.add_argument("--jobs", type=int, default=2, help="mutants at a time (2)")
    parser.add_argument("--report", type=Path, metavar="FILE", help="writes the report there, too")
    return parser.parse_args(words)


def chosen_lines(options):
    """The lines that --lines and --list name, as pairs; empty if neither is given."""
    named = [entry.strip() for entry in options.lines.split(",")]
    if options.list:
        named += [line.split("#")[0].strip() for line in options.list.read_text().splitlines()]
    places = (entry.rsplit(":", 1) for entry in named if entry)
    return {(file, int(line)) for file, line in places}


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


def candidates(options, map_of_tests, source):
    """The mutants to try, in the order in which they are, each with its tests' names."""
    ignored = equivalents(source / "tests/mutation/equivalent.txt")
    places = chosen_lines(options)
    found = []
    for path in sorted((source / "src").rglob("*")):
        file = str(path.relative_to(source))
        if path.suffix not in (".cpp", ".h") or not fnmatch.fnmatch(file, options.file):
            continue
        text = path.read_text()
        for mutant in operators.mutants(file, text):
            if (file, mutant.before, mutant.after) in ignored:
                continue
            if places and (file, mutant.line) not in places:
                continue
            tests = map_of_tests.tests(file, mutant.line, text)
            if tests is not None:
                found.append((mutant, tests))
    if not places or options.count:
        random.Random(options.seed).shuffle(found)
    return found


def _named(programs, names):
    """The tests of these names, which are those of programs or of their functions."""
    found = {}
    for name in names:
        program, _, function = name.partition(" ")
        found[name] = programs[program].alone(function) if function else programs[program]
    return found


class Trial:
    """Tries the candidates in their order until enough of them turned out to be mutants."""

    def __init__(self, found, count, map_of_tests, spaces):
        self.results = []  # (place in the order, mutant, result), in the order in which they end
        self._candidates = iter(enumerate(found))
        self._count = count
        self._coverage = map_of_tests
        self._spaces = spaces
        self._valid = 0
        self._under_way = 0
        self._changed = threading.Condition()
        self._stopped = False

    def run(self):
        with concurrent.futures.ThreadPoolExecutor(len(self._spaces)) as pool:
            workers = [pool.submit(self._work, space) for space in self._spaces]
            try:
                for worker in workers:
                    worker.result()
            except BaseException:
                self._stopped = True
                with self._changed:
                    self._changed.notify_all()
                for space in self._spaces:
                    space.interrupt()
                raise

    def _next(self):
        with self._changed:
            # What is under way may still turn out not to be a mutant.
            self._changed.wait_for(
                lambda: self._stopped
                or self._valid >= self._count
                or self._valid + self._under_way < self._count
            )
            if self._stopped or self._valid >= self._count:
                return None
            candidate = next(self._candidates, None)
            self._under_way += candidate is not None
            return candidate

    def _work(self, space):
        programs = space.tests()
        while (candidate := self._next()) is not None:
            place, (mutant, covering) = candidate
            result, noticed = STOPPED, ""
            try:
                result, noticed = self._try(space, mutant, _named(programs, covering))
            finally:
                with self._changed:
                    self._under_way -= 1
                    if result != STOPPED:
                        self._valid += result != INVALID
                        self.results.append((place, mutant, result))
                    self._changed.notify_all()
            what = f"{mutant.file}:{mutant.line} {mutant.operator}"
            print(f"{self._valid:4} {what}: {result} {noticed}", flush=True)

    def _try(self, space, mutant, tests):
        if not tests:
            return UNCOVERED, ""
        if any(not test.e2e for test in tests.values()):
            tests = {name: test for name, test in tests.items() if not test.e2e}
        seconds = self._coverage.seconds
        path = space.source / mutant.file
        text = path.read_text()
        path.write_text(mutant.apply(text))
        try:
            if not space.build({test.program for test in tests.values()}):
                return STOPPED if self._stopped else INVALID, ""
            for name in sorted(tests, key=lambda name: (seconds[name], name)):
                if self._stopped:
                    return STOPPED, ""
                result, _ = space.run(tests[name], 10 + 4 * seconds[name])
                if result == workspace.TIMEOUT:
                    return TIMEOUT, name
                if result == workspace.FAILED:
                    return KILLED, name
            return SURVIVED, f"{len(tests)} tests"
        finally:
            path.write_text(text)


def report(trial, broken, untouched, seconds):
    """The text of the report, and how many mutants went unnoticed."""
    counted = Counter(result for _, _, result in trial.results)
    lines = []
    for wanted in (SURVIVED, UNCOVERED):
        for _, mutant, result in sorted(trial.results, key=lambda entry: entry[0]):
            if result == wanted:
                lines += [f"{wanted}: {mutant.file}:{mutant.line} ({mutant.operator})",
                          f"  - {mutant.before}", f"  + {mutant.after}"]
    lines += [f"nothing to break: {file}:{line}" for file, line in sorted(untouched)]
    for name, how in broken.items():
        lines.append(f"left out, since it does not pass unbroken: {name} ({how})")
    tried = sum(counted.values()) - counted[INVALID]
    lines.append(
        f"{tried} mutants: {counted[KILLED]} killed, {counted[TIMEOUT]} timeouts, "
        f"{counted[SURVIVED]} survived, {counted[UNCOVERED]} not covered; "
        f"{counted[INVALID]} did not compile; {seconds:.0f} seconds"
    )
    return "\n".join(lines) + "\n", counted[SURVIVED] + counted[UNCOVERED]


def end_once(*_):
    signal.signal(signal.SIGTERM, signal.SIG_IGN)
    sys.exit(143)


def main(words, project):
    """Does what `words`, the command line, asks for with the sources in the folder `project`."""
    options = arguments(words)
    # Ended by the system it ends as by a person: the tests that run go as well.
    signal.signal(signal.SIGTERM, end_once)
    build = project / "build" / "mutate"
    build.mkdir(parents=True, exist_ok=True)
    counting = workspace.Workspace(
        project, build / "coverage", _FIRST_PORT, options.tests, with_coverage=True
    )
    counting.synchronize()
    map_of_tests = coverage.measured(counting, build, options.tests, options.jobs)

    found = candidates(options, map_of_tests, counting.source)
    count = options.count or (len(found) if options.lines or options.list else 200)
    spaces = []
    for job in range(1, min(options.jobs, max(1, len(found))) + 1):
        space = workspace.Workspace(project, build / f"job{job}", _FIRST_PORT + job, options.tests)
        space.synchronize()
        space.configure()
        if not space.build(jobs=options.jobs, quiet=False):
            raise SystemExit("scripts/mutate: the build fails without any mutant")
        spaces.append(space)

    began = time.monotonic()
    trial = Trial(found, count, map_of_tests, spaces)
    try:
        trial.run()
    finally:  # what is known is told when it is interrupted, too
        named = set() if options.count else chosen_lines(options)
        untouched = named - {(mutant.file, mutant.line) for mutant, _ in found}
        text, unnoticed = report(trial, map_of_tests.broken, untouched, time.monotonic() - began)
        print(text, end="")
        if options.report:
            options.report.write_text(text)
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:], Path(__file__).resolve().parents[2]))
