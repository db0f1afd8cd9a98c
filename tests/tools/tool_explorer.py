#!/usr/bin/env python3
"""The page with the tool inside, in a real browser, opened from disk without a network: it answers as
the command line does, to the byte.

  tool_explorer.py --page FILE ... -- TOOL    the rest as for the other scripts

QXMIX_PAGE_RANDOM: how many random dispensers, 200 without it; QXMIX_PAGE_SEED: with which seed.
"""

import json
import os
import pathlib
import random
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from page_checks import run_page_checks

SIDE_BY_SIDE = 4
MOST_AMOUNTS = 60
STATUSES = ["ok"] * 8 + ["full", "high", "low", "empty", "inoperative", "missing", "manipulated"]
TYPES = ["billCassette"] * 8 + ["coinDispenser", "coinCylinder", "coupon", "recycling", "retractCassette"]
VALUES = [5, 10, 20, 50, 100, 200, 500]


def random_cassette(dice):
    cassette = {"value": dice.choice(VALUES + [dice.randrange(1, 1000)]),
                "count": dice.choice([0, dice.randrange(1, 60), dice.randrange(1, 3000)]),
                "status": dice.choice(STATUSES), "type": dice.choice(TYPES)}
    if dice.random() < 0.1:
        cassette["currency"] = "CHF"
    if dice.random() < 0.2:
        cassette["label"] = dice.choice(["A", "voucher", "Z\u00fcrich <b>", "</script>"])
    return cassette


def random_dispenser(dice):
    dispenser = {"currency": "EUR", "maxDispenseItems": dice.choice([5, 20, 40, 60]),
                 "partial": dice.random() < 0.3, "mix": dice.randrange(1, 11),
                 "cassettes": [random_cassette(dice) for _ in range(dice.randrange(1, 7))]}
    if dice.random() < 0.2:
        dispenser["exponent"] = dice.choice([-2, -1, 1])
    step = dice.choice([5, 7, 10, 20]) * 10 ** max(0, -dispenser.get("exponent", 0))
    dispenser["amounts"] = {"min": step, "max": MOST_AMOUNTS * step, "step": step}
    if dice.random() < 0.2:
        dispenser["registry"] = {"CSTMinimum4Mix6": str(dice.randrange(0, 200))}
    return dispenser


def amount_of(dice, dispenser):
    values = [cassette["value"] for cassette in dispenser["cassettes"]]
    amount = sum(dice.choice(values) * dice.randrange(0, 4) for _ in range(3)) + dice.choice([0, 0, 5])
    return max(1, amount * 10 ** max(0, -dispenser.get("exponent", 0)))


def random_lines(count, seed):
    """Command lines with the files that they read: for each dispenser two short ones and a long one."""
    dice = random.Random(seed)
    demand = {"perDay": 20, "days": 2, "amounts": [{"amount": 50, "weight": 2}, {"amount": 120, "weight": 1}]}
    for number in range(count):
        dispenser = random_dispenser(dice)
        files = {"d.json": json.dumps(dispenser), "w.json": json.dumps(demand)}
        amount = amount_of(dice, dispenser)
        yield ["mix", "d.json", "--amount", amount, "--mix", "all", "--json"], files
        yield ["explain", "d.json", "--amount", amount, "--json"], files
        yield [["map", "d.json", "--mixes", "all", "--json"],
               ["lint", "d.json", "--mixes", "all", "--slow", "60s", "--json"],
               ["simulate", "d.json", "--demand", "w.json", "--mixes", "all", "--json"]][number % 3], files


def example_lines(tool):
    """Every command of the page on every example that is a dispenser, as JSON and as text, and what is
    refused."""
    week = (tool.folder / "examples/week.json").read_text()
    for path in sorted((tool.folder / "examples").glob("*.json")):
        files = {"d.json": path.read_text(), "examples/week.json": week}
        if "cassettes" not in json.loads(files["d.json"]):
            continue
        for words in (["mix", "--amount", 280, "--mix", "all"], ["mix", "--amount", 110, "--mix", 4],
                      ["explain", "--amount", 110], ["map"], ["lint", "--mixes", "all", "--slow", "60s"], ["lint", "--slow", "60s"],
                      ["simulate", "--demand", "examples/week.json"], ["mix", "--amount", "seven"],
                      ["map", "--output", "map.html"], ["map", "--output", "map.csv"],
                      ["simulate", "--demand", "examples/week.json", "--output", "week.html"]):
            line = [words[0], "d.json", *words[1:]]
            yield line, files
            if "--output" not in line:
                yield line + ["--json"], files
    huge = "EUR:" + ",".join(f"{value}x4000000000" for value in (7, 5, 3, 2, 1))
    yield ["mix", huge, "--amount", 4000000000, "--limit", 65535, "--mix", 9, "--deadline", "500ms"], {}
    for line in (["types"], ["types", "--json"], ["mix", "EUR:50x10,20x10", "--amount", 60, "--json"],
                 ["mix"], ["map", "missing.json"], ["mix", "-", "--amount", 60], ["--version"],
                 ["explain", "EUR:100x10", "--amonut", 10], ["mix", "--help"],
                 ["mix", "EUR:50x10", "--amount", 60, "--trace"]):
        yield line, {"-": '{"currency": "EUR", "cassettes": [{"value": 20, "count": 4}]}'}


class CommandLine:
    """The tool of this system, several command lines side by side, each in a folder of its own."""

    def __init__(self, tool):
        self.tool = tool

    def answer(self, numbered):
        number, (words, files) = numbered
        folder = self.tool.folder / f"line-{number}"
        folder.mkdir()
        for name, text in files.items():
            if name != "-":
                (folder / name).parent.mkdir(exist_ok=True)
                (folder / name).write_text(text)
        process = self.tool.start([str(word) for word in words], cwd=folder,
                                  stdin=subprocess.PIPE)
        out, error = process.communicate(files.get("-", "").encode(), timeout=120)
        written = {path.name: path.read_text() for path in folder.iterdir()
                   if path.is_file() and path.name not in files}
        return {"exitStatus": process.returncode, "out": out.decode(), "error": error.decode(),
                "files": written}

    def answers(self, lines):
        with ThreadPoolExecutor(SIDE_BY_SIDE) as workers:
            return list(workers.map(self.answer, enumerate(lines)))


def page_answers(browser, lines):
    script = ("Promise.all(%s.map(([words, files]) => qxmix.run(words, files)))"
              % json.dumps(lines))
    return browser.run(script)


def check_answers(tool, browser, checks, name, lines):
    """The page answers all lines as the command line does."""
    expected = CommandLine(tool).answers(lines)
    for first in range(0, len(lines), 20):
        for line, mine, other in zip(lines[first:first + 20], page_answers(browser, lines[first:first + 20]),
                                     expected[first:]):
            checks.equal(f"{name}: {' '.join(map(str, line[0]))} of {line[1].get('d.json', '')}", mine, other)
    for number in range(len(lines)):
        for path in sorted((tool.folder / f"line-{number}").rglob("*"), reverse=True):
            path.rmdir() if path.is_dir() else path.unlink()
        (tool.folder / f"line-{number}").rmdir()


def check_page(tool, browser, checks, _):
    browser.open(PAGE)
    check_answers(tool, browser, checks, "example", list(example_lines(tool)))
    count = int(os.environ.get("QXMIX_PAGE_RANDOM", "200"))
    seed = int(os.environ.get("QXMIX_PAGE_SEED", "20261122"))
    print(f"{count} random dispensers, seed {seed}")
    check_answers(tool, browser, checks, "random", list(random_lines(count, seed)))
    checks.equal("nothing leaves", [url for url in browser.requests() if url != f"file://{PAGE}" and
                                    not url.startswith("blob:")], [])
    checks.equal("no complaints", browser.complaints(), [])


at = sys.argv.index("--page")
PAGE = pathlib.Path(sys.argv[at + 1]).resolve()
del sys.argv[at:at + 2]
run_page_checks(check_page)
