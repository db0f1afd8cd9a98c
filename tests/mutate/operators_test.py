#!/usr/bin/env python3
"""The places at which the mutation tool changes a source, and those that it leaves alone."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "mutate"))
from operators import mutants_of  # noqa: E402


def changes(text):
    return {(mutant.before, mutant.after) for mutant in mutants_of("file.cpp", text)}


class Operators(unittest.TestCase):
    def test_comparisons_move_their_border_and_turn_round(self):
        self.assertEqual(changes("x = a < b;"), {("<", "<="), ("<", ">=")})

    def test_numbers_grow_by_one_and_become_zero(self):
        self.assertEqual(changes("return 7U;"), {("7U", "8U"), ("7U", "0U")})
        self.assertEqual(changes("return 0;"), {("0", "1")})

    def test_texts_change_their_last_character(self):
        self.assertEqual(changes('Record("971A2");'.strip()), {('"971A2"', '"971Ax"')})

    def test_whole_statements_are_left_out(self):
        self.assertIn(("Remember(combination)", ""), changes("{\n    Remember(combination);\n}"))
        self.assertIn(("++width", ""), changes("{\n    ++width;\n}"))
        self.assertIn(("total += count", ""), changes("{\n    total += count;\n}"))

    def test_declarations_and_returns_stay(self):
        removed = {before for before, after in
                   changes("{\n    int a = b;\n    return Call(a);\n}") if not after}
        self.assertEqual(removed, set())

    def test_conditions_are_turned_round(self):
        self.assertIn(("isFound", "!(isFound)"), changes("    if (isFound) {\n"))

    def test_comments_directives_and_compile_time_checks_stay(self):
        text = '// a < b\n/* 7 */\n#define X 7\n#include "x.h"\nstatic_assert(sizeof(A) == 4, "4");\n' \
            'EXPECT_FIELD(Record, usCount, 0, 2);\n'
        self.assertEqual(changes(text), set())

    def test_brackets_of_templates_and_marks_of_types_stay(self):
        self.assertEqual(changes("std::array<T>& a; T* b; T&& c;"), set())

    def test_a_mutant_changes_just_its_place(self):
        text = "a = b + c + d;"
        mutants = mutants_of("file.cpp", text)
        self.assertEqual([mutant.apply(text) for mutant in mutants],
                         ["a = b - c + d;", "a = b + c - d;"])

    def test_a_mark_shows_the_change_in_its_line(self):
        mutants = mutants_of("file.cpp", "{\n    a = b + c;\n}")
        self.assertEqual([mutant.mark for mutant in mutants],
                         ["file.cpp: {a = b + c|};", "file.cpp: a = b {+|-} c;"])

    def test_marks_of_equal_lines_are_numbered(self):
        mutants = mutants_of("file.cpp", "return 0;\nreturn 0;\n")
        self.assertEqual([mutant.mark for mutant in mutants],
                         ["file.cpp: return {0|1};", "file.cpp: return {0|1}; #2"])


if __name__ == "__main__":
    unittest.main()
