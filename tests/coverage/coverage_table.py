#!/usr/bin/env python3
"""Prints what the tests execute, held to its reach; see docs/testing.md.

Reads the JSON of gcovr (lines and branches) and of llvm-cov (conditions that were shown to decide
on their own, MC/DC). The exclusions are lines "file | text in the line | what | reason"; one that
excuses nothing any more is an error, so that the list stays as short as it can be.
"""

import argparse
import json
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


class Exclusion:
    def __init__(self, text, number):
        self.number = number
        parts = [part.strip() for part in text.split(" | ")]
        if len(parts) != 4 or parts[2] not in ("line", "branch", "condition"):
            sys.exit(f"exclusions: line {number} is not: file | text | what | reason")
        self.file, self.text, self.what, self.reason = parts
        self.is_used = False

    def covers(self, file, source, what):
        return self.what == what and self.file == file and self.text in source


class Sources:
    """The lines of the files, and what of them is excused."""

    def __init__(self, exclusions):
        self.exclusions = exclusions
        self.files = {}

    def line(self, file, number):
        if file not in self.files:
            with open(os.path.join(ROOT, file), encoding="utf-8") as source:
                self.files[file] = source.read().split("\n")
        return self.files[file][number - 1].strip()

    def is_excused(self, file, number, what):
        source = self.line(file, number)
        found = [e for e in self.exclusions if e.covers(file, source, what)]
        for exclusion in found:
            exclusion.is_used = True
        return bool(found)


class Count:
    """One row of the table: what there is, what of it is covered, what is missing."""

    def __init__(self, name, what, reach, sources):
        self.name, self.what, self.reach, self.sources = name, what, reach, sources
        self.total = self.covered = self.excused = 0
        self.missing = []

    def add(self, file, number, is_covered):
        if is_covered:
            self.total += 1
            self.covered += 1
        elif self.sources.is_excused(file, number, self.what):
            self.excused += 1
        else:
            self.total += 1
            self.missing.append((file, number))

    @property
    def share(self):
        return 100.0 * self.covered / self.total if self.total else 0.0

    @property
    def is_reached(self):
        return self.total > 0 and 100 * self.covered >= self.reach * self.total


def count_lines(path, lines, branches):
    with open(path, encoding="utf-8") as report:
        files = json.load(report)["files"]
    for file in files:
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            number = line["line_number"]
            lines.add(file["file"], number, line["count"] > 0)
            if branches:
                for branch in line.get("branches", []):
                    branches.add(file["file"], number, branch["count"] > 0)


def count_conditions(path, conditions):
    """A condition of a template counts once, whichever of its instances showed that it decides."""
    with open(path, encoding="utf-8") as report:
        files = json.load(report)["data"][0]["files"]
    decided = {}
    for file in files:
        name = os.path.relpath(file["filename"], ROOT)
        for record in file.get("mcdc_records", []):
            place = (name, *record[:4])
            before = decided.get(place, [False] * len(record[-1]))
            decided[place] = [old or new for old, new in zip(before, record[-1])]
    for (name, number, *_), shown in sorted(decided.items()):
        for is_shown in shown:
            conditions.add(name, number, is_shown)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for option in ("exclusions", "module", "platform", "conditions"):
        parser.add_argument("--" + option, required=True)
    parser.add_argument("--tool")
    options = parser.parse_args()
    with open(options.exclusions, encoding="utf-8") as text:
        exclusions = [Exclusion(line, number) for number, line in enumerate(text, 1)
                      if line.strip() and not line.startswith("#")]
    sources = Sources(exclusions)

    def row(name, what, reach):
        return Count(name, what, reach, sources)

    rows = [row("module", "line", 100), row("module", "branch", 100),
            row("module", "condition", 100), row("Linux stand-in", "line", 100),
            row("Linux stand-in", "branch", 100)]
    count_lines(options.module, rows[0], rows[1])
    count_conditions(options.conditions, rows[2])
    count_lines(options.platform, rows[3], rows[4])
    if options.tool:
        rows.append(row("tool", "line", 97))
        count_lines(options.tool, rows[-1], None)

    for count in rows:
        if not count.is_reached or count.reach == 100:
            for file, number in sorted(set(count.missing)):
                print(f"{file}:{number}: {count.what} not covered: {sources.line(file, number)}")
    unused = [e for e in exclusions if not e.is_used]
    for exclusion in unused:
        print(f"exclusions, line {exclusion.number}: excuses nothing: {exclusion.text}")
    print(f"\n{'':16}{'':12}{'covered':>9}{'of':>7}{'excluded':>10}{'measured':>10}{'reach':>8}")
    for count in rows:
        verdict = "" if count.is_reached else "  MISSED"
        print(f"{count.name:16}{count.what + 's' if count.what != 'branch' else 'branches':12}"
              f"{count.covered:9}{count.total:7}{count.excused:10}{count.share:9.1f}%"
              f"{count.reach:7}%{verdict}")
    return 1 if unused or not all(count.is_reached for count in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
