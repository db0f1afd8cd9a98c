#!/usr/bin/env python3
"""The list of survivors that are known: how it is read, and when one of it is out of date."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "mutate"))
import explained  # noqa: E402


def read(text):
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "survivors.txt"
        path.write_text(text)
        return explained.read(path)


class Survivors(unittest.TestCase):
    def test_each_mutant_has_the_reason_above_it(self):
        known = read("# list\nwork: It looks twice.\n  a.h: x {<|<=} y\n\nanswer: Never there.\n"
                     "  a.h: {1|0}\n  b.h: {1|0}\n")
        self.assertEqual([(one.kind, one.reason) for one in known.values()],
                         [("work", "It looks twice."), ("answer", "Never there."),
                          ("answer", "Never there.")])
        self.assertEqual(list(known), ["a.h: x {<|<=} y", "a.h: {1|0}", "b.h: {1|0}"])

    def test_what_has_no_reason_is_refused(self):
        for text in ("  a.h: {1|0}\n", "why: not\n", "work:\n", "work: a\n  m\n  m\n"):
            with self.assertRaises(ValueError):
                read(text)

    def test_killed_and_vanished_mutants_are_out_of_date(self):
        known = read("work: Slower.\n  gone\n  killed\n  lives\n  open\n  counted\n")
        self.assertEqual(explained.out_of_date(known, {"killed", "lives", "open", "counted"},
                                               {"killed": "killed", "lives": "survived",
                                                "counted": "work"}),
                         ["gone", "killed"])

    def test_work_has_to_be_seen(self):
        known = read("work: Slower.\n  slower\nanswer: Never read.\n  same\n")
        self.assertEqual(explained.reason_for(known["slower"], "work", False), "work")
        self.assertEqual(explained.reason_for(known["slower"], "survived", True), "misjudged")
        self.assertEqual(explained.reason_for(known["same"], "survived", False), "answer")
        self.assertEqual(explained.reason_for(known["same"], "work", False), "answer")  # by another way
        self.assertEqual(explained.reason_for(None, "work", True), "work")
        self.assertEqual(explained.reason_for(None, "work", False), "unexplained")
        self.assertEqual(explained.reason_for(None, "survived", False), "unexplained")


if __name__ == "__main__":
    unittest.main()
