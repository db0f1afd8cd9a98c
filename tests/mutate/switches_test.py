#!/usr/bin/env python3
"""The switches with which a source holds all its mutants: where they stand, and that each one makes the
program that its mutant makes alone."""

import os
import subprocess
import sys
import tempfile
import unittest
from array import array
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "mutate"))
from operators import mutants_of  # noqa: E402
from switches import HEADER, REACHED, SWITCH, Places, with_switches  # noqa: E402

PROGRAM = """#include <cstdio>
#include <optional>
// a < b
struct Sum {
    explicit Sum(int start) : total_(start - 1) {}
    void Add(int count) {
        total_ += count * 2;
    }
    int total_;
    int calls_ = 3;
};
int Twice(int a, int b) {
    switch (a) {
    case 4:
        return b + 1;
    default:
        b *= 2;
    }
    return a < b ? a : b;
}
int main() {
    Sum sum(Twice(4, 7));
    int values[] = {5, 9};
    for (int value : values) {
        if (value == 5 && sum.calls_ > 2) {
            sum.Add(value);
            continue;
        }
        sum.Add(Twice(value, unsigned{6} + 1));
        const std::optional<int> none = value == 9 ? std::optional<int>() : std::optional<int>(value);
        if (!none) {
            sum.Add(5);
        }
    }
    std::printf("%d %s\\n", sum.total_, "end");
    return sum.total_ > 40;
}
"""


def region(text, before, after):
    """The text that is there once for the program and once for this mutant."""
    mutant = next(mutant for mutant in mutants_of("file.cpp", text)
                  if (mutant.before, mutant.after) == (before, after))
    found = Places(text).region_of(mutant)
    return text[found.start:found.end] if found else None


def compile_and_run(folder, text, flags=(), settings=None):
    """What the program prints and returns, or None where it does not compile."""
    source = Path(folder) / "program.cpp"
    source.write_text(text)
    program = Path(folder) / "program"
    if subprocess.run(["c++", "-std=c++17", "-w", *flags, str(source), "-o", str(program)],
                      check=False, capture_output=True).returncode != 0:
        return None
    return run(program, settings)


def run(program, settings=None):
    ended = subprocess.run([str(program)], env={**os.environ, **(settings or {})}, check=False,
                           capture_output=True, timeout=20)
    return ended.stdout, ended.returncode


class Switches(unittest.TestCase):
    def test_an_expression_ends_at_brackets_commas_and_assignments(self):
        self.assertEqual(region("{\n    x = f(a, b + c * d);\n}", "+", "-"), "b + c * d")
        self.assertEqual(region("{\n    x = a < b;\n}", "<", ">="), "a < b")
        self.assertEqual(region("{\n    const int x = a[n] + T{u} - c;\n}", "+", "-"),
                         "a[n] + T{u} - c")
        self.assertEqual(region("{\n    return a[n] + b;\n}", "+", "-"), "a[n] + b")
        self.assertEqual(region("{\n    case A::kB:\n        f(1);\n}", "f(1)", ""), "f(1)")
        self.assertEqual(region("{\n    if (a) {\n    }\n    x += b;\n}", "+=", "-="), "x += b")

    def test_a_statement_and_what_is_in_the_head_of_a_loop_are_told_apart(self):
        text = "{\n    for (int a = 1; a < b; ++a) {\n        ++c;\n    }\n}"
        places = Places(text)
        self.assertEqual([places.region_of(mutant).is_statement
                          for mutant in mutants_of("file.cpp", text) if mutant.before in ("<", "++")],
                         [False, False, False, True])

    def test_what_the_compiler_calculates_has_no_switch(self):
        for text in ("constexpr int kSize = 4 + n;", "constexpr T kTable[] = {{a + b}, c};",
                     "{\n    if constexpr (a + b > c) {\n    }\n}"):
            self.assertIsNone(region(text, "+", "-"))
        self.assertEqual(region("constexpr int F(int a) {\n    return a + 1;\n}", "+", "-"), "a + 1")

    def test_a_switch_makes_the_program_that_its_mutant_makes_alone(self):
        mutants = dict(enumerate(mutants_of("program.cpp", PROGRAM)))
        written, numbers = with_switches("program.cpp", PROGRAM, mutants)
        self.assertEqual({mutants[number].mark for number in set(mutants) - set(numbers)},
                         {"program.cpp: case {4|0}:", "program.cpp: case {4|5}:"})
        with tempfile.TemporaryDirectory() as folder:
            alone = {number: compile_and_run(folder, mutants[number].apply(PROGRAM))
                     for number in list(numbers)[::4]}
            flags = ("-include", str(HEADER))
            self.assertEqual(compile_and_run(folder, written, flags), compile_and_run(folder, PROGRAM))
            compile_and_run(folder, written, flags)
            program = Path(folder) / "program"
            for number, expected in alone.items():
                self.assertEqual(run(program, {SWITCH: str(number)}), expected,
                                 mutants[number].describe())
            reached = Path(folder) / "reached"
            reached.write_bytes(bytes(8 * len(mutants)))
            run(program, {REACHED: str(reached)})
            self.assertEqual({number for number, count in enumerate(array("Q", reached.read_bytes()))
                              if count}, set(numbers))

    def test_the_compiler_names_the_mutant_that_is_wrong(self):
        text = "int F(int* a, int* b) {\n    return a - b;\n}\n"
        written, _ = with_switches("file.cpp", text, dict(enumerate(mutants_of("file.cpp", text))))
        ended = subprocess.run(["c++", "-x", "c++", "-fsyntax-only", "-"], check=False, text=True,
                               input="constexpr bool MutantIs(int) { return false; }\n" + written,
                               capture_output=True)
        self.assertIn("mutant-0:1:", ended.stderr)


if __name__ == "__main__":
    unittest.main()
