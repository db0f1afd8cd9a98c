#!/usr/bin/env python3
"""Prints how often each fuzz target has run in all recorded runs.

  executions.py                  the table tests/fuzz/executions.csv, added up
  executions.py --add RUNS       adds the runs of a file of the same columns to the table, and empties it
  executions.py --check DOCUMENT fails unless the document quotes the sum

A run is a line "date,commit,target,seconds,executions,findings"; those of one day, commit and target
become one.
"""

import argparse
import csv
import os
import re
import sys

TABLE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "executions.csv")
COLUMNS = ["date", "commit", "target", "seconds", "executions", "findings"]
COUNTS = COLUMNS[3:]
FORMS = {"date": r"\d{4}-\d\d-\d\d", "commit": r"[0-9a-f]{7,40}", "target": r"[a-z_]+",
         **{count: r"\d+" for count in COUNTS}}


def read_runs(path):
    """The runs of a table, each with what a whole number is as one."""
    with open(path, encoding="ascii", newline="") as file:
        lines = list(csv.reader(file))
    if not lines or lines[0] != COLUMNS:
        sys.exit(f"{path}: line 1: expected {','.join(COLUMNS)}")
    runs = []
    for number, fields in enumerate(lines[1:], 2):
        if len(fields) != len(COLUMNS):
            sys.exit(f"{path}: line {number}: {len(fields)} fields, expected {len(COLUMNS)}")
        run = dict(zip(COLUMNS, fields))
        for column, form in FORMS.items():
            if not re.fullmatch(form, run[column]):
                sys.exit(f"{path}: line {number}: {column}: {run[column]!r} is not like {form}")
        runs.append({**run, **{count: int(run[count]) for count in COUNTS}})
    return runs


def join(runs):
    """One run for each day, commit and target, in that order."""
    joined = {}
    for run in runs:
        key = (run["date"], run["commit"], run["target"])
        if key in joined:
            for count in COUNTS:
                joined[key][count] += run[count]
        else:
            joined[key] = dict(run)
    return sorted(joined.values(), key=lambda run: (run["date"], run["commit"], run["target"]))


def write_runs(path, runs):
    with open(path, "w", encoding="ascii", newline="") as file:
        writer = csv.DictWriter(file, COLUMNS, lineterminator="\n")
        writer.writeheader()
        writer.writerows(runs)


def print_sums(runs):
    total = dict.fromkeys(COUNTS, 0)
    sums = {}
    for run in runs:
        for sum_ in (total, sums.setdefault(run["target"], dict.fromkeys(COUNTS, 0))):
            for count in COUNTS:
                sum_[count] += run[count]
    print(f"{'target':16}{'executions':>16}{'hours':>8}{'findings':>10}")
    for target, sum_ in [*sorted(sums.items()), ("all", total)]:
        print(f"{target:16}{sum_['executions']:16,}{sum_['seconds'] / 3600:8.1f}{sum_['findings']:10}")
    return total


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--add", metavar="RUNS")
    parser.add_argument("--check", metavar="DOCUMENT")
    options = parser.parse_args()
    runs = read_runs(TABLE)
    if options.add:
        runs = join(runs + read_runs(options.add))
        write_runs(TABLE, runs)
        write_runs(options.add, [])
    total = print_sums(runs)
    if runs != join(runs):
        sys.exit(f"{TABLE}: not sorted, or two lines for one day, commit and target")
    if options.check:
        quoted = f"{total['executions']:,} executions"
        with open(options.check, encoding="utf-8") as document:
            if quoted not in document.read():
                sys.exit(f"{options.check}: does not say: {quoted}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
