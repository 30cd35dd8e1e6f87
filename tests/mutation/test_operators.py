"""The mutants of sample texts."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import mutate
import operators

# A function's body of one line, and what its mutants make of it.
CHANGES = {
    # Conditions are negated, declarations are not.
    "if (ready) {": ["if (!(ready)) {"],
    "if (!ready) {": ["if (ready) {"],
    "if (auto *found = find()) {": [],
    # Operators are swapped; template brackets are no comparison, and joined strings stay.
    "bool a = b == c;": ["bool a = b != c;"],
    "bool a = b != c;": ["bool a = b == c;"],
    "bool a = b < c;": ["bool a = b <= c;", "bool a = b >= c;"],
    "bool a = b >= c;": ["bool a = b < c;", "bool a = b > c;"],
    "QList<QPair<int, int>> list;": [],
    "bool a = b && c;": ["bool a = b || c;"],
    "bool a = b || c;": ["bool a = b && c;"],
    "int a = b + c;": ["int a = b - c;"],
    "int a = b - c;": ["int a = b + c;"],
    "++row;": ["--row;"],
    'auto text = "a" + name;': [],
    # Constants and bounds change.
    "bool a = true;": ["bool a = false;"],
    "int a = 1'000;": ["int a = 1001;"],
    "auto a = 15s;": ["auto a = 16s;"],
    "double a = 1.5 * x2;": [],
    "int a = std::min(b, c);": ["int a = std::max(b, c);"],
    "int a = qMax(b, c);": ["int a = qMin(b, c);"],
    # Calls and assignments are dropped, declarations are not.
    "list->clear();": [";"],
    "Q_EMIT changed();": [";"],
    "member = value;": [";"],
    "QLabel label(parent);": [],
    "const int a = b;": [],
    # Returned values become the default.
    "return name;": ["return {};"],
    "return {};": [],
    "return true;": ["return false;"],
    # Comments, literals, invariants and reserved memory stay.
    "// if (a == b)": [],
    'label = tr("1 && 2 == 3");': [";"],
    'auto a = R"(b == c)";': [],
    "Q_ASSERT(a == b);": [],
    "list.reserve(10);": [],
}


def changes(code):
    text = f"void f()\n{{\n    {code}\n}}\n"
    return [mutant.after for mutant in operators.mutants("f.cpp", text)]


class Operators(unittest.TestCase):
    def test_changes(self):
        for code, expected in CHANGES.items():
            with self.subTest(code):
                self.assertEqual(changes(code), expected)

    def test_changes_among_others(self):
        for code, expected in {
            "while (a && b) {": "while (!(a && b)) {",
            "if (const int n = f(); n) {": "if (const int n = f(); !(n)) {",
            "row += rows;": "row -= rows;",
        }.items():
            with self.subTest(code):
                self.assertIn(expected, changes(code))

    def test_a_call_over_several_lines_is_dropped_whole(self):
        text = "void f()\n{\n    connect(a,\n            b);\n    int c;\n}\n"
        (mutant,) = operators.mutants("f.cpp", text)
        self.assertEqual(mutant.apply(text), "void f()\n{\n    ;\n    int c;\n}\n")
        self.assertEqual(mutant.line, 3)

    def test_preprocessor_lines_stay(self):
        self.assertEqual(operators.mutants("f.cpp", "#include <a>\n#if A == 1\n#endif\n"), [])


class Equivalents(unittest.TestCase):
    def test_entries_are_read(self):
        entries = "# About it.\n\nsrc/a.cpp\n- a();\n+ ;\nNothing depends on it,\nas a rule.\n"
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "equivalent.txt"
            path.write_text(entries + "\nsrc/b.cpp\n- b\n+ c\nx\n")
            wanted = {("src/a.cpp", "a();", ";"), ("src/b.cpp", "b", "c")}
            self.assertEqual(mutate.equivalents(path), wanted)
            path.write_text("src/a.cpp\n- a();\n+ ;\n")  # without a reason
            with self.assertRaises(SystemExit):
                mutate.equivalents(path)

    def test_entries_of_the_project_match_its_sources(self):
        project = pathlib.Path(__file__).parents[2]
        for file, before, after in mutate.equivalents(project / "tests/mutation/equivalent.txt"):
            found = operators.mutants(file, (project / file).read_text())
            self.assertIn((before, after), [(each.before, each.after) for each in found], file)


if __name__ == "__main__":
    unittest.main()
