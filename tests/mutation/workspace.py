"""A copy of the sources with a build of its own, in which tests run. The working tree stays as it
is.

The libraries of `src/` are shared ones here, so that a mutant is compiled and linked into one of
them, and no test program is linked again.
"""

import contextlib
import json
import os
import re
import shutil
import signal
import subprocess
import threading
import time
from dataclasses import dataclass, replace
from pathlib import Path

PASSED, FAILED, TIMEOUT, SKIPPED = "passed", "failed", "timeout", "skipped"
_SKIP_STATUS = 77
_MEMORY_LIMIT = 8 << 30  # bytes of address space; a loop that has lost its end takes all there is


@dataclass
class Test:
    """A test program, or one function of it, as CTest would run it."""

    program: str
    command: list
    environment: dict
    directory: str
    seconds: float  # the time limit
    e2e: bool
    locks: list  # what it must have for itself

    def alone(self, function):
        return replace(self, command=[*self.command, function])

    def functions(self):
        """The names of its functions, or none if the program does not tell."""
        told = subprocess.run(
            [*self.command, "-functions"], env={**os.environ, **self.environment},
            cwd=self.directory, stdin=subprocess.DEVNULL, capture_output=True, text=True,
        ).stdout
        return re.findall(r"^(\w+)\(\)$", told, re.MULTILINE)


class Workspace:
    def __init__(self, project, folder, port, wanted, with_coverage=False):
        """`wanted` is a regular expression for the tests that are used."""
        self.project = Path(project)
        self.source = Path(folder) / "source"
        self.build_dir = Path(folder) / "build"
        self.port = port
        self._wanted = re.compile(wanted)
        self.with_coverage = with_coverage
        self._running = set()

    def synchronize(self):
        """Makes the copy hold what the working tree holds; what is equal keeps its time."""
        listed = subprocess.run(
            ["git", "ls-files", "-z", "-co", "--exclude-standard"],
            cwd=self.project, check=True, capture_output=True, text=True,
        ).stdout.split("\0")
        wanted = {name for name in listed if name and (self.project / name).is_file()}
        for name in wanted:
            source, target = self.project / name, self.source / name
            if target.is_file() and target.read_bytes() == source.read_bytes():
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
            shutil.copymode(source, target)
        for path in [path for path in self.source.rglob("*") if path.is_file()]:
            if str(path.relative_to(self.source)) not in wanted:
                path.unlink()

    def configure(self):
        """Configures the build: nothing is optimised, nothing is warned of."""
        linker = "-fuse-ld=lld" if shutil.which("ld.lld") else ""
        if self.with_coverage:
            linker += " --coverage"
        options = {
            "CMAKE_BUILD_TYPE": "Debug",
            "CMAKE_CXX_FLAGS_DEBUG": "-O0 -w",
            "CMAKE_CXX_COMPILER_LAUNCHER": self._launcher(),
            "BUILD_SHARED_LIBS": "ON",
            "CMAKE_POSITION_INDEPENDENT_CODE": "ON",
            "CMAKE_LINK_DEPENDS_NO_SHARED": "ON",
            "CMAKE_EXE_LINKER_FLAGS": linker,
            "CMAKE_SHARED_LINKER_FLAGS": linker,
            "VANTIRO_BUILD_TESTS": "ON",
            "VANTIRO_BUILD_BENCHMARKS": "OFF",
            "VANTIRO_TEST_SUBSCRIPTION_PORT": str(self.port),
        }
        command = ["cmake", "-S", self.source, "-B", self.build_dir, "-G", "Ninja"]
        command += [f"-D{name}={value}" for name, value in options.items()]
        done = subprocess.run(command, env=self._environment(), capture_output=True, text=True)
        if done.returncode != 0:
            raise SystemExit(f"scripts/mutate: cmake failed\n{done.stdout}{done.stderr}")

    def _launcher(self):
        """What the compiler is started through. The coverage build counts lines of src/ only, so
        that the tests' objects are those of the other builds and come from ccache."""
        ccache = shutil.which("ccache") or ""
        if not self.with_coverage:
            return ccache
        launcher = self.build_dir.parent / "compile"
        launcher.write_text(
            "#!/bin/sh\n"
            f'case "$*" in *" -c {self.source}/src/"*) set -- "$@" --coverage ;; esac\n'
            f'exec {ccache} "$@"\n'
        )
        launcher.chmod(0o755)
        return str(launcher)

    def _environment(self):
        return {**os.environ, "CCACHE_BASEDIR": str(self.source.parent), "CCACHE_NOHASHDIR": "1"}

    def build(self, targets=(), jobs=1, quiet=True):
        """Whether the tests that are named, or all that are used, could be built."""
        output = subprocess.DEVNULL if quiet else None
        targets = targets or [test["name"] for test in self._listed()]
        command = ["ninja", "-C", self.build_dir, f"-j{jobs}", *targets]
        return subprocess.run(
            command, env=self._environment(), stdout=output, stderr=output
        ).returncode == 0

    def _listed(self):
        """The tests that are used, as CTest lists them. What else it runs tests no `src/`."""
        shown = subprocess.run(
            ["ctest", "--show-only=json-v1"],
            cwd=self.build_dir, check=True, capture_output=True, text=True,
        ).stdout
        tests = json.loads(shown)["tests"]
        return [
            test for test in tests
            if test["name"].startswith("tst_") and self._wanted.search(test["name"])
        ]

    def tests(self):
        """The tests that are used, by name. They must have been built."""
        found = {}
        for test in self._listed():
            name = test["name"]
            properties = {entry["name"]: entry["value"] for entry in test["properties"]}
            environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
            found[name] = Test(
                name, test["command"], environment, properties["WORKING_DIRECTORY"],
                properties.get("TIMEOUT", 300), "e2e" in properties.get("LABELS", []),
                properties.get("RESOURCE_LOCK", []),
            )
        return found

    def run(self, test, seconds, environment=None):
        """Runs the test until it ends, reports its first failure, or `seconds` are over. Returns
        how it ended and the seconds it took."""
        began = time.monotonic()
        process = subprocess.Popen(
            ["prlimit", f"--as={_MEMORY_LIMIT}", *test.command],
            cwd=test.directory, env={**os.environ, **test.environment, **(environment or {})},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            text=True, errors="replace", start_new_session=True,
        )
        self._running.add(process)
        late = threading.Event()

        def give_up():
            late.set()
            _end(process)

        timer = threading.Timer(seconds, give_up)
        timer.start()
        failed = False
        for line in process.stdout:
            if line.startswith(("FAIL!", "XPASS")):
                failed = True
                _end(process)
                break
        status = process.wait()
        timer.cancel()
        process.stdout.close()
        self._running.discard(process)
        if late.is_set() and not failed:
            result = TIMEOUT
        elif failed or status not in (0, _SKIP_STATUS):
            result = FAILED
        else:
            result = PASSED if status == 0 else SKIPPED
        return result, time.monotonic() - began

    def interrupt(self):
        """Ends the tests that run, from another thread."""
        for process in list(self._running):
            _end(process)

    @contextlib.contextmanager
    def interrupted(self, pool):
        """Leaves no test behind that a thread of `pool` runs when an exception passes."""
        try:
            yield
        except BaseException:
            pool.shutdown(wait=False, cancel_futures=True)
            self.interrupt()
            raise


def _end(process):
    """Ends the test and what it started, which gets a moment to end by itself: a virtual screen
    goes with the script that started it."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, number)
            process.wait(5)
        except ProcessLookupError:
            return
        except subprocess.TimeoutExpired:
            continue
