"""A copy of the sources with its own build, in which tests run. The working tree stays unchanged.

The libraries of `src/` are shared here: a mutant is compiled and linked into one of them, and no
test program is linked again.
"""

import concurrent.futures
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
_MEMORY_LIMIT = 8 << 30  # bytes of address space, for endless loops that allocate


@dataclass
class Test:
    """A test program, or one function of it, as CTest would run it."""

    program: str
    command: list
    environment: dict
    directory: str
    seconds: float  # the time limit
    e2e: bool

    def alone(self, function):
        return replace(self, command=[*self.command, function])

    def functions(self):
        """The names of its test functions, or none if the program does not list them."""
        listed = subprocess.run(
            [*self.command, "-functions"], env={**os.environ, **self.environment},
            cwd=self.directory, stdin=subprocess.DEVNULL, capture_output=True, text=True,
        ).stdout
        return re.findall(r"^(\w+)\(\)$", listed, re.MULTILINE)


class Workspace:
    def __init__(self, project, folder, wanted, with_coverage=False):
        """`wanted` is a regular expression that selects tests."""
        self.project = Path(project)
        self.source = Path(folder) / "source"
        self.build_dir = Path(folder) / "build"
        self._wanted = re.compile(wanted)
        self._with_coverage = with_coverage
        self._running = set()
        self._stopped = False

    def synchronize(self):
        """Updates the copy from the working tree. Equal files keep their time stamp."""
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

    def prepare(self, jobs):
        """Configures and builds, without optimisation and warnings."""
        linker = "-fuse-ld=lld" if shutil.which("ld.lld") else ""
        if self._with_coverage:
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
        }
        command = ["cmake", "-S", self.source, "-B", self.build_dir, "-G", "Ninja"]
        command += [f"-D{name}={value}" for name, value in options.items()]
        done = subprocess.run(command, env=self._environment(), capture_output=True, text=True)
        if done.returncode != 0:
            raise SystemExit(f"scripts/mutate: cmake failed\n{done.stdout}{done.stderr}")
        if not self.build(jobs=jobs, quiet=False):
            raise SystemExit("scripts/mutate: the build fails without any mutant")

    def _launcher(self):
        """The compiler launcher. The coverage build instruments only src/, so that the tests' objects
        equal those of the other builds and come from ccache."""
        ccache = shutil.which("ccache") or ""
        if not self._with_coverage:
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
        """Builds the named tests, or all selected ones. False if that fails."""
        output = subprocess.DEVNULL if quiet else None
        targets = targets or [test["name"] for test in self._listed()]
        command = ["ninja", "-C", self.build_dir, f"-j{jobs}", *targets]
        return subprocess.run(
            command, env=self._environment(), stdout=output, stderr=output
        ).returncode == 0

    def _listed(self):
        """The selected tests, as CTest lists them. Other programs test nothing of `src/`."""
        shown = subprocess.run(
            ["ctest", "--show-only=json-v1"],
            cwd=self.build_dir, check=True, capture_output=True, text=True,
        ).stdout
        tests = json.loads(shown)["tests"]
        return [
            test for test in tests
            if test["name"].startswith("tst_") and self._wanted.search(test["name"])
        ]

    def programs(self):
        """The selected tests by name. They must have been built."""
        found = {}
        for test in self._listed():
            properties = {entry["name"]: entry["value"] for entry in test["properties"]}
            environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
            found[test["name"]] = Test(
                test["name"], test["command"], environment, properties["WORKING_DIRECTORY"],
                properties.get("TIMEOUT", 300), "e2e" in properties.get("LABELS", []),
            )
        return found

    def tests(self, names):
        """The tests of these names: of a program, or of a program and one of its functions."""
        programs, found = self.programs(), {}
        for name in names:
            program, _, function = name.partition(" ")
            found[name] = programs[program].alone(function) if function else programs[program]
        return found

    def run(self, test, seconds, environment=None):
        """Runs the test until it ends, reports its first failure, or takes longer than `seconds`.
        Returns its result and the seconds it took."""
        if self._stopped:
            raise KeyboardInterrupt
        began = time.monotonic()
        process = subprocess.Popen(
            ["prlimit", f"--as={_MEMORY_LIMIT}", *test.command],
            cwd=test.directory, env={**os.environ, **test.environment, **(environment or {})},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            text=True, errors="replace", start_new_session=True,
        )
        self._running.add(process)
        late = threading.Event()
        timer = threading.Timer(seconds, lambda: (late.set(), _end(process)))
        timer.start()
        failed = any(line.startswith(("FAIL!", "XPASS")) for line in process.stdout)
        if failed:
            _end(process)
        status = process.wait()
        timer.cancel()
        process.stdout.close()
        self._running.discard(process)
        result = PASSED if status == 0 else SKIPPED if status == _SKIP_STATUS else FAILED
        if failed or late.is_set():
            result = FAILED if failed else TIMEOUT
        return result, time.monotonic() - began

    def stop(self):
        """Ends the running tests and starts no more, from another thread."""
        self._stopped = True
        for process in list(self._running):
            _end(process)


@contextlib.contextmanager
def pool(spaces, jobs=None):
    """A pool of threads that run tests in the workspaces. An exception ends these tests."""
    with concurrent.futures.ThreadPoolExecutor(jobs or len(spaces)) as threads:
        try:
            yield threads
        except BaseException:
            threads.shutdown(wait=False, cancel_futures=True)
            for space in spaces:
                space.stop()
            raise


def _end(process):
    """Ends the test and its child processes. They get a moment to end by themselves, so that the
    script of a virtual screen can stop it."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        with contextlib.suppress(ProcessLookupError, subprocess.TimeoutExpired):
            os.killpg(process.pid, number)
            process.wait(5)
            return
