#!/usr/bin/env python3
"""Which mutants are put aside when what holds all of them does not compile."""

import sys
import tempfile
import time
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "tools" / "mutate"))
from operators import mutants_of  # noqa: E402
from subjects import MODULE, TOOL, Test  # noqa: E402
from switchboard import EXAMPLES_TOGETHER, Switchboard, examples_in  # noqa: E402
from tree import Tree  # noqa: E402

FILE = "src/mix/Verdict.h"
TEXT = "{\n    a = 1;\n    b = 0;\n\n\n\n\n\n    c = 0;\n}\n"


class PutAside(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.board = Switchboard(PROJECT, Path(self.folder.name) / "tree", MODULE, mutants_of(FILE, TEXT))

    def tearDown(self):
        self.folder.cleanup()

    def wrong_in(self, output):
        return {self.board.mutants[number].describe().partition(": ")[2]
                for number in self.board._wrong_in(output)}

    def test_those_that_the_compiler_names(self):
        self.assertEqual(self.wrong_in("mutant-1:1:5: error: x\nsrc/mix/Verdict.h:3:1: error: y\n"),
                         {"1 -> 0"})

    def test_those_of_a_line_that_it_names_or_of_its_neighbours(self):
        self.assertEqual(self.wrong_in("/a/src/mix/Verdict.h:3:1: error: y\n"),
                         {"0 -> 1", "b = 0 -> (removed)"})
        self.assertEqual(self.wrong_in("/a/src/mix/Verdict.h:6:1: error: y\n"),
                         {"0 -> 1", "b = 0 -> (removed)", "c = 0 -> (removed)"})

    def test_those_where_a_macro_is_used_that_does_not_compile(self):
        self.assertEqual(self.wrong_in("/a/Macro.h:9:1: error: y\n"
                                       "src/mix/Verdict.h:3:18: note: in expansion of macro 'TEXT'\n"),
                         {"0 -> 1", "b = 0 -> (removed)"})

    def test_none_where_another_file_is_wrong(self):
        self.assertEqual(self.wrong_in("/a/src/mix/Other.h:3:1: error: y\n"), set())

    def test_counts_tell_of_other_places_alone(self):
        text = "{\n    a = b + F(c - 1);\n    d = c;\n}\n"
        mutants = mutants_of(FILE, text)
        board = Switchboard(PROJECT, Path(self.folder.name) / "other", MODULE, mutants)
        board.texts[FILE] = text
        board._sources()
        number = {mutant.describe().partition(": ")[2]: place for place, mutant in enumerate(mutants)}
        outer, inner, other = (number[name] for name in ("+ -> -", "- -> +", "d = c -> (removed)"))
        self.assertTrue(board._is_within(inner, outer))
        self.assertFalse(board._is_within(outer, inner))
        self.assertFalse(board._is_within(other, outer))
        self.assertLessEqual({outer, other}, set(board._first_of_regions()))

    def test_the_next_run_knows_them(self):
        self.board._put_aside({1})
        again = Switchboard(PROJECT, Path(self.folder.name) / "tree", MODULE, mutants_of(FILE, TEXT))
        self.assertEqual(set(range(again.count)) - set(again.mutants), {1})


class Examples(unittest.TestCase):
    def test_are_called_by_their_file_and_line(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "b.txt").write_text("# $ qxmix\n\n$ qxmix types   [exit 0]\nx\n$ qxmix mix \\\n")
            (Path(folder) / "a.txt").write_text("$ qxmix mix   [exit 2]\n")
            self.assertEqual(examples_in(Path(folder)), ["a.txt:1", "b.txt:3", "b.txt:5"])


class Runs(unittest.TestCase):
    def test_leave_nothing_behind(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = Tree(PROJECT, folder, MODULE)
            command = "sleep 600 >/dev/null 2>&1 & echo $!; exit 3"
            status, output = tree.run(["sh", "-c", command])
            self.assertEqual(status, 3)
            for _ in range(100):
                state = Path(f"/proc/{int(output)}/stat")
                if not state.exists() or state.read_text().rpartition(") ")[2].startswith("Z"):
                    return
                time.sleep(0.05)
            self.fail("it goes on")

    def test_wait_for_a_processor_but_for_nothing_else(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = Tree(PROJECT, folder, MODULE)
            works = "import time\nwhile time.process_time() < 1: pass"
            self.assertEqual(tree.run(["python3", "-c", works], seconds=0.3, processor_seconds=60)[0], 0)
            self.assertEqual(tree.run(["sleep", "600"], seconds=0.3, processor_seconds=60), (-1, ""))
            self.assertEqual(tree.run(["python3", "-c", works], seconds=0.3), (-1, ""))


class SeveralExamples(unittest.TestCase):
    def test_are_one_run_in_their_order(self):
        with tempfile.TemporaryDirectory() as folder:
            board = Switchboard(PROJECT, Path(folder) / "tree", TOOL, [])
            tests = [Test(name, ("x",), {"QXMIX_EXAMPLE": name}, suites="examples")
                     for name in map(str, range(EXAMPLES_TOGETHER + 2))]
            board.tree.seconds = {test: 2 for test in tests}
            other = Test("other", ("y",))
            joined = board._together([other, *tests])
            self.assertEqual([test.name for test in joined], [
                "other", ",".join(test.name for test in tests[:-2]), f"{tests[-2].name},{tests[-1].name}"])
            self.assertEqual(joined[2].settings["QXMIX_EXAMPLE"], joined[2].name)
            self.assertEqual([board.tree.seconds[test] for test in joined[1:]],
                             [2 * EXAMPLES_TOGETHER, 4])


if __name__ == "__main__":
    unittest.main()
