#!/usr/bin/env python3
"""What mutants.py finds in a line, and that each row of explained.tsv is a change that it still makes."""

import pathlib
import random
import tempfile
import unittest

import explained
import mutants
import mutate
import report
import workspace

PROJECT = pathlib.Path(__file__).resolve().parents[2]


def changes(text):
    """The changed last line of the text, for each mutant of it."""
    number = text.count("\n") + 1
    return [one.applied(text).split("\n")[-1].strip() for one in mutants.mutants_of("x.cpp", text) if one.line == number]


class Mutants(unittest.TestCase):
    def test_comparisons_are_swapped_with_their_neighbours(self):
        self.assertEqual(changes("a = b < c;"), ["a = b <= c;"])
        self.assertEqual(changes("a = b != c;"), ["a = b == c;"])

    def test_brackets_of_templates_and_shifts_are_no_comparisons(self):
        self.assertEqual(changes("template <typename T>"), [])
        self.assertEqual(changes("std::vector<int> a(b << c, x->y);"), [])

    def test_references_are_no_conjunctions(self):
        self.assertEqual(changes("void f(T&& t, U&& u)"), [])
        self.assertEqual(changes("a = b && c;"), ["a = b || c;"])

    def test_joined_texts_are_no_sums(self):
        self.assertEqual(changes('a = b + "x" + c;'), [])
        self.assertEqual(changes("a = b + c;"), ["a = b - c;"])

    def test_numbers_are_changed_by_one(self):
        self.assertEqual(changes("int a = 7;"), ["int a = 8;", "int a = 6;"])
        self.assertEqual(changes("int a = 0;"), ["int a = 1;"])
        self.assertEqual(changes("int a = -1;"), ["int a = -2;"])
        self.assertEqual(changes("double a = 0.5; int a1 = 0x1f;"), [])
        self.assertEqual(changes("virtual void f() = 0;"), [])

    def test_words_that_are_constants_are_swapped(self):
        self.assertEqual(changes("int a = std::min(b, c);"), ["int a = std::max(b, c);"])
        self.assertEqual(changes("bool a = true;"), ["bool a = false;"])

    def test_conditions_are_negated_with_their_texts(self):
        self.assertEqual(changes('if (f("(", g())) {'), ['if (!(f("(", g()))) {'])
        self.assertEqual(changes("if (const auto* a = f()) {"), [])
        self.assertEqual(changes("if (f(a,"), [])

    def test_calls_assignments_and_jumps_are_dropped(self):
        for statement in ("m_a->f(b, c);", "m_a = b;", "m_a += b;", "return;", "continue;", "a[b].c = d;"):
            self.assertIn(";", changes(f"a();\n{statement}"), statement)
        self.assertIn(";", changes("if (a)\nf(b);"))

    def test_declarations_results_and_parts_of_lines_are_not_dropped(self):
        for statement in ("int a = b;", "A a(b);", "return b;", "throw a(b);", "delete a;", "b);"):
            self.assertNotIn(";", changes(f"a();\n{statement}"), statement)
        self.assertNotIn(";", changes("a(b,\nf(c));"))

    def test_comments_texts_and_preprocessor_lines_are_left_alone(self):
        for text in ('// a < b', '/* a\n < b */', 'f("a < 1");', "f('<', '1');", "#if a < 1", 'f(R"(\n a < 1)");'):
            self.assertEqual([new for new in changes(text) if new != ";"], [], text)

    def test_the_other_lines_stay(self):
        text = "a();\nif (b < c)\n    d();\n"
        for one in mutants.mutants_of("x.cpp", text):
            changed = one.applied(text)
            differing = [i for i, (old, new) in enumerate(zip(text.split("\n"), changed.split("\n"))) if old != new]
            self.assertEqual(differing, [one.line - 1])
            self.assertEqual(changed.count("\n"), text.count("\n"))


class Choice(unittest.TestCase):
    def test_has_as_many_of_each_kind_as_there_are(self):
        possible = mutants.mutants_of("x.cpp", "a = b < c;\n" * 9 + "if (a)\n" * 2 + "int b = 0;\n" * 9)
        chosen = mutate.sample(possible, 12, random.Random(1))
        kinds = [one.kind for one in chosen]
        self.assertEqual(len(set(chosen)), 12)
        self.assertEqual(kinds.count("negated condition"), 2)
        self.assertLessEqual(max(map(kinds.count, kinds)), 4)

    def test_is_the_same_for_the_same_seed(self):
        possible = mutants.mutants_of("x.cpp", "a = b < c;\n" * 50)
        self.assertEqual(mutate.sample(possible, 9, random.Random(7)), mutate.sample(possible, 9, random.Random(7)))
        self.assertNotEqual(mutate.sample(possible, 9, random.Random(7)), mutate.sample(possible, 9, random.Random(8)))


class Copy(unittest.TestCase):
    def test_is_changed_and_restored_and_the_project_never(self):
        with tempfile.TemporaryDirectory() as folder:
            project, copy = pathlib.Path(folder, "project"), pathlib.Path(folder, "w", "copy")
            for parent in (project, copy):
                parent.mkdir(parents=True)
                (parent / "x.cpp").write_text("a = b < c;\n")
            tree = workspace.Workspace(project, pathlib.Path(folder, "w"), 1)
            tree.change(mutants.mutants_of("x.cpp", "a = b < c;\n")[0])
            self.assertEqual((copy / "x.cpp").read_text(), "a = b <= c;\n")
            self.assertEqual((project / "x.cpp").read_text(), "a = b < c;\n")
            tree.restore()
            self.assertEqual((copy / "x.cpp").read_text(), "a = b < c;\n")


class Report(unittest.TestCase):
    def test_counts_what_a_test_could_notice(self):
        def tried(result, by=None):
            return {"file": "src/base/x.cpp", "text": "a", "changed": "b", "result": result, "by": by}

        outcomes = [tried("killed", "t"), tried("killed", "t"), tried("survived"), tried("not compilable"),
                    tried("equivalent", "same code"), tried("equivalent", "explained")]
        section = report.section({"base": {"possible": 9, "tried": outcomes}}, {("src/base/x.cpp", "a", "b"): "why"})
        self.assertIn("| `base` | 9 | 6 | 1 | 2 | 1 | 2 of 3, 67 % |\n", section)
        self.assertEqual(section.count("- `base/x.cpp`: `a` → `b`"), 2)
        self.assertIn("`b`: why\n", section)


class Explained(unittest.TestCase):
    def test_each_row_is_a_change_of_a_line_that_exists(self):
        for (file, text, changed), why in explained.table().items():
            source = (PROJECT / file).read_text()
            found = {(source.split("\n")[one.line - 1].strip(), one.applied(source).split("\n")[one.line - 1].strip())
                     for one in mutants.mutants_of(file, source)}
            self.assertIn((text, changed), found, file)
            self.assertTrue(why)


if __name__ == "__main__":
    unittest.main()
