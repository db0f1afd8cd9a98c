#!/usr/bin/env python3
"""What the mutation tool changes and runs is there."""

import re
import sys
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "tools" / "mutate"))
from subjects import SUBJECTS, TOOL  # noqa: E402


class Subjects(unittest.TestCase):
    def test_every_folder_holds_sources(self):
        for subject in SUBJECTS:
            for folder in subject.folders:
                names = [str(path) for path in (PROJECT / folder).glob("*.h")]
                self.assertTrue([name for name in names if not re.search(subject.left_out, name)],
                                folder)

    def test_forms_and_rules_are_told_apart(self):
        def is_left_out(name):
            return re.search(TOOL.left_out, "tools/qxmix/" + name) is not None

        for name in ("commands/lint/LintFleetText.cpp", "commands/lint/LintSarif.cpp",
                     "dispenser/DispenserJson.h", "findings/RuleTexts.cpp"):
            self.assertTrue(is_left_out(name), name)
        for name in ("commands/lint/LintMoneyRules.cpp", "dispenser/NotesText.cpp",
                     "commands/lint/LintReport.cpp", "findings/Findings.cpp"):
            self.assertFalse(is_left_out(name), name)

    def test_every_program_is_built_by_the_project(self):
        built = "".join(path.read_text() for path in [*(PROJECT / "src").rglob("CMakeLists.txt"),
                                                      *(PROJECT / "tools").rglob("CMakeLists.txt"),
                                                      *(PROJECT / "tests").rglob("CMakeLists.txt")])
        for subject in SUBJECTS:
            for target in subject.targets(subject.tests):
                self.assertRegex(built, rf"\(\s*{target}\b")


if __name__ == "__main__":
    unittest.main()
