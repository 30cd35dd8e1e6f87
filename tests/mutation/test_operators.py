"""The mutants of sample texts."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import mutate
import operators


def changes(code):
    """What each mutant makes of a function's body, a line of code."""
    text = f"void f()\n{{\n    {code}\n}}\n"
    return [mutant.after for mutant in operators.mutants("f.cpp", text)]


class Operators(unittest.TestCase):
    def test_conditions_are_negated(self):
        self.assertEqual(changes("if (ready) {"), ["if (!(ready)) {"])
        self.assertIn("while (!(a && b)) {", changes("while (a && b) {"))
        self.assertIn("if (const int n = f(); !(n)) {", changes("if (const int n = f(); n) {"))

    def test_a_declaration_is_no_condition(self):
        self.assertEqual(changes("if (auto *found = find()) {"), [])

    def test_comparisons_are_swapped(self):
        self.assertEqual(changes("bool a = b == c;"), ["bool a = b != c;"])
        self.assertEqual(changes("bool a = b != c;"), ["bool a = b == c;"])
        self.assertEqual(changes("bool a = b < c;"), ["bool a = b <= c;", "bool a = b >= c;"])
        self.assertEqual(changes("bool a = b >= c;"), ["bool a = b < c;", "bool a = b > c;"])

    def test_template_brackets_are_no_comparison(self):
        self.assertEqual(changes("QList<QPair<int, int>> list;"), [])

    def test_logic_is_swapped_and_dropped(self):
        self.assertEqual(changes("bool a = b && c;"), ["bool a = b || c;"])
        self.assertEqual(changes("bool a = b || c;"), ["bool a = b && c;"])
        self.assertEqual(changes("if (!ready) {"), ["if (ready) {"])

    def test_arithmetic_and_steps_are_swapped(self):
        self.assertEqual(changes("int a = b + c;"), ["int a = b - c;"])
        self.assertEqual(changes("int a = b - c;"), ["int a = b + c;"])
        self.assertEqual(changes("++row;"), ["--row;"])
        self.assertIn("row -= rows;", changes("row += rows;"))

    def test_joined_texts_stay(self):
        self.assertEqual(changes('auto text = "a" + name;'), [])

    def test_constants_change(self):
        self.assertEqual(changes("bool a = true;"), ["bool a = false;"])
        self.assertEqual(changes("int a = 1'000;"), ["int a = 1001;"])
        self.assertEqual(changes("auto a = 15s;"), ["auto a = 16s;"])
        self.assertEqual(changes("double a = 1.5 * x2;"), [])

    def test_bounds_are_swapped(self):
        self.assertEqual(changes("int a = std::min(b, c);"), ["int a = std::max(b, c);"])
        self.assertEqual(changes("int a = qMax(b, c);"), ["int a = qMin(b, c);"])

    def test_calls_and_assignments_are_dropped(self):
        self.assertEqual(changes("list->clear();"), [";"])
        self.assertEqual(changes("Q_EMIT changed();"), [";"])
        self.assertEqual(changes("member = value;"), [";"])
        self.assertEqual(changes("QLabel label(parent);"), [])
        self.assertEqual(changes("const int a = b;"), [])

    def test_a_call_over_several_lines_is_dropped_whole(self):
        text = "void f()\n{\n    connect(a,\n            b);\n    int c;\n}\n"
        (mutant,) = operators.mutants("f.cpp", text)
        self.assertEqual(mutant.apply(text), "void f()\n{\n    ;\n    int c;\n}\n")
        self.assertEqual(mutant.line, 3)

    def test_returned_values_become_the_default(self):
        self.assertEqual(changes("return name;"), ["return {};"])
        self.assertEqual(changes("return {};"), [])
        self.assertEqual(changes("return true;"), ["return false;"])

    def test_what_is_no_code_stays(self):
        self.assertEqual(changes("// if (a == b)"), [])
        self.assertEqual(changes('label = tr("1 && 2 == 3");'), [";"])
        self.assertEqual(changes("auto a = R\"(b == c)\";"), [])
        self.assertEqual(operators.mutants("f.cpp", "#include <a>\n#if A == 1\n#endif\n"), [])
        self.assertEqual(changes("Q_ASSERT(a == b);"), [])
        self.assertEqual(changes("list.reserve(10);"), [])


class Equivalents(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "equivalent.txt"
            path.write_text(text)
            return mutate.equivalents(path)

    def test_entries_are_read(self):
        text = "# About it.\n\nsrc/a.cpp\n- a();\n+ ;\nNothing sees it,\nnor ever will.\n"
        text += "\nsrc/b.cpp\n- b\n+ c\nx\n"
        self.assertEqual(self.read(text), {("src/a.cpp", "a();", ";"), ("src/b.cpp", "b", "c")})

    def test_an_entry_without_a_reason_is_refused(self):
        with self.assertRaises(SystemExit):
            self.read("src/a.cpp\n- a();\n+ ;\n")

    def test_entries_of_the_project_fit_its_sources(self):
        project = pathlib.Path(__file__).parents[2]
        for file, before, after in mutate.equivalents(project / "tests/mutation/equivalent.txt"):
            found = operators.mutants(file, (project / file).read_text())
            self.assertIn((before, after), [(each.before, each.after) for each in found], file)


if __name__ == "__main__":
    unittest.main()
