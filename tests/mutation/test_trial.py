"""A whole run on a small project, whose mutants are killed, survive, never end or are not covered."""

import contextlib
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import coverage
import mutate
import workspace

FILES = {
    "CMakeLists.txt": """
cmake_minimum_required(VERSION 3.22)
project(Sample LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
add_library(sample src/app/Sample.cpp)
add_executable(tst_Sample tests/tst_Sample.cpp)
target_link_libraries(tst_Sample PRIVATE sample)
enable_testing()
add_test(NAME tst_Sample COMMAND tst_Sample)
add_test(NAME tst_Broken COMMAND false)
add_custom_target(tst_Broken)
""",
    "src/app/Sample.cpp": """\
int sum(int a, int b)
{
    return a + b;
}
int sumWithoutTest(int a, int b)
{
    return a + b;
}
int notAsked(int a)
{
    return a + 2;
}
int counted(int end)
{
    long long count = 0;
    while (count != end) {
        ++count;
    }
    return static_cast<int>(count);
}
bool isSmall(int a)
{
    return a < 3;
}
""",
    "tests/tst_Sample.cpp": """\
#include <cstdio>
#include <string>
int sum(int, int);
int counted(int);
bool isSmall(int);
int notAsked(int);
bool fails(const std::string &function)
{
    notAsked(1);
    return function == "numbers" ? sum(2, 1) != 3 || counted(4) != 4 : !isSmall(1);
}
int main(int argc, char **argv)
{
    const std::string asked = argc > 1 ? argv[1] : "";
    if (asked == "-functions") {
        std::puts("numbers()");
        std::puts("sizes()");
        return 0;
    }
    for (const char *function : {"numbers", "sizes"}) {
        if ((asked.empty() || asked == function) && fails(function)) {
            std::puts("FAIL!  : wrong");
            return 1;
        }
    }
}
""",
    "tests/mutation/equivalent.txt": """\
src/app/Sample.cpp
- return a < 3;
+ return a < 4;
Nobody is asked whether three is small.
""",
    ".gitignore": "/build/\n",
}


class Trial(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.project = pathlib.Path(folder.name)
        for name, text in FILES.items():
            path = cls.project / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        subprocess.run(["git", "init", "-q"], cwd=cls.project, check=True)

    def mutate(self, *words):
        """The exit status, the report and the progress lines of a run."""
        printed = io.StringIO()
        report = self.project / "build" / "report.txt"
        with contextlib.redirect_stdout(printed):
            status = mutate.main(["--jobs", "2", "--report", str(report), *words], self.project)
        return status, report.read_text(), printed.getvalue()

    def lines(self, *numbers):
        return ["--lines", ",".join(f"src/app/Sample.cpp:{number}" for number in numbers)]

    def test_results(self):
        survivor = "survived: src/app/Sample.cpp:11 (arithmetic)\n  - return a + 2;\n  + return a - 2;"
        for line, wanted_status, *expected in [
            (3, 0, "2 mutants: 2 killed, 0 timeouts, 0 survived, 0 not covered"),
            (11, 1, "3 mutants: 0 killed, 0 timeouts, 3 survived", survivor),
            (7, 1, "not covered: src/app/Sample.cpp:7 (arithmetic)"),
            (17, 0, "1 timeouts, 0 survived"),
            (23, 1, "\n  - return a < 3;\n  + return a <= 3;\n"),
            (1, 0, "left out because it fails unbroken: tst_Broken (failed)",
             "nothing to break: src/app/Sample.cpp:1\n"),
        ]:
            with self.subTest(line):
                status, report, _ = self.mutate(*self.lines(line))
                for text in expected:
                    self.assertIn(text, report)
                self.assertEqual(status, wanted_status)
                self.assertNotIn("return a < 4;", report)  # the known equivalent
        for folder in (self.project, self.project / "build/mutate/job1/source"):
            sources = folder / "src/app/Sample.cpp"
            self.assertEqual(sources.read_text(), FILES["src/app/Sample.cpp"])

    def test_a_slow_program_runs_only_the_functions_that_execute_the_line(self):
        with unittest.mock.patch.object(coverage, "SLOW", 0):
            _, _, printed = self.mutate("--tests", "Sample", *self.lines(3, 11))
        self.assertRegex(printed, r"Sample.cpp:3 \w+: killed tst_Sample numbers\n")
        self.assertRegex(printed, r"Sample.cpp:11 \w+: survived 2 tests\n")

    def test_a_seed_selects_the_same_mutants(self):
        def tried(seed):
            _, report, printed = self.mutate("--count", "4", "--seed", seed)
            self.assertIn("4 mutants: ", report)
            return {line for line in printed.splitlines() if line.startswith("src/")}

        self.assertEqual(tried("1"), tried("1"))
        self.assertNotEqual(tried("1"), tried("2"))

    def test_an_interrupted_run_reports_its_results(self):
        self.mutate(*self.lines(3))
        run, ended = workspace.Workspace.run, []

        def interrupt(*words):
            if ended:
                raise KeyboardInterrupt
            ended.append(run(*words))
            return ended[0]

        with unittest.mock.patch.object(workspace.Workspace, "run", interrupt):
            with self.assertRaises(KeyboardInterrupt):
                self.mutate("--jobs", "1", *self.lines(3))
        report = (self.project / "build" / "report.txt").read_text()
        self.assertIn("1 mutants: 1 killed", report)


if __name__ == "__main__":
    unittest.main()
