#!/usr/bin/env python3
"""What `qxmix lint` says of many dispensers, recomputed from single runs."""

import collections
import json
import re

from random_fleet import write_fleet
from tool_runner import run_parts

ONES = "EUR:1x2000"
TOTALS = ("notAsked", "clean", "withNotes", "withWarnings", "withErrors")
SEVERITIES = ("note", "warning", "error")


def lint_json(tool, *words):
    status, output, errors = tool.run(["lint", *words, "--json"])
    return status, json.loads(output) if output else None, errors


def headline_counts(text):
    """Errors, warnings and notes that the first line of a single run tells."""
    heading = text.split(" for ")[0]
    counts = {name: int(number) for number, name in
              re.findall(r"(\d+) (error|warning|note)s?\b", heading)}
    return [str(counts.get(name, "-")) for name in reversed(SEVERITIES)]


def rows_of(text):
    """The rows of the table: name, three numbers, first finding."""
    lines = text.split("\n\n")[1].split("\n")[1:]
    return [re.split(r" +", line.strip(), maxsplit=4) for line in lines if line.strip()]


def worst_of(findings):
    return max((SEVERITIES.index(finding["severity"]) for finding in findings), default=-1)


def check_against_single_runs(tool, checks):
    names = write_fleet(tool.folder / "drawn", 20, 20261122)
    status, fleet, errors = lint_json(tool, *names)
    checks.equal("nothing on standard error", errors, "")
    totals = collections.Counter({name: 0 for name in TOTALS})
    singles, texts = {}, {}
    for name, element in zip(names, fleet["result"]["dispensers"]):
        single_status, single, _ = lint_json(tool, name)
        texts[name] = tool.run(["lint", name])[1]
        singles[name] = single_status
        checks.equal(f"{name}: as a single run", element,
                     {"file": name, "exitStatus": single_status, **single["result"]})
        totals[TOTALS[1 + 1 + worst_of(single["result"]["findings"])]] += 1
    checks.equal("exit status", [status, fleet["exitStatus"]], [max(singles.values())] * 2)
    checks.equal("totals", fleet["result"]["totals"], {"dispensers": len(names), **totals})
    checks.check("all kinds were drawn", min(totals["withErrors"], totals["withWarnings"],
                                             totals["clean"] + totals["withNotes"]) > 0, totals)
    text = tool.run(["lint", *names])[1]
    rows = rows_of(text)
    for row in rows:
        checks.equal(f"{row[0]}: numbers", row[1:4], headline_counts(texts[row[0]]))
        first = row[4].rstrip(".") if len(row) > 4 else ""
        single = re.sub(r"\s+", " ", texts[row[0]])
        checks.check(f"{row[0]}: first finding", all(word in single for word in first.split()[:4]),
                     first)
    order = [(singles[row[0]], *(int(n) if n != "-" else 0 for n in row[1:4])) for row in rows]
    checks.equal("worst first", order, sorted(order, reverse=True))
    checks.equal("a row each", sorted(row[0] for row in rows), sorted(names))
    told = tool.run(["lint", *names, "--all"])[1]
    checks.equal("--all has them whole", told, text + "".join(
        f"\n{row[0]}\n{texts[row[0]]}" for row in rows))
    checks.equal("one worker or several", tool.run(["lint", *names, "--jobs", "1"])[1], text)


def check_lists(tool, checks):
    names = ["examples/euro.json", "examples/no-tens.json", "EUR:100x5,50x5"]
    (tool.folder / "names").write_text(f"{names[0]}\r\n\n  {names[1]}\n")
    expected = tool.run(["lint", *names])
    checks.equal("a list and a name", tool.run(["lint", "@names", names[2]]), expected)
    checks.equal("a list on standard input",
                 tool.run(["lint", "@-", names[2]], stdin="\n".join(names[:2]).encode()), expected)
    (tool.folder / "one").write_text(names[0])
    checks.check("a list of one is a fleet", tool.run(["lint", "@one"])[1].startswith(
        "nothing found in 1 dispenser\n"))
    (tool.folder / "empty").write_text("\n \n")
    for words, complaint in (
            (["@empty"], "empty: no names; expected the name of a dispenser file a line"),
            (["@nowhere"], "nowhere: cannot be opened: No such file or directory"),
            (["-", names[0]], "DISPENSER: - is not allowed; expected files: "
                              "standard input is one dispenser alone"),
            ([*names, "--raw-in", "F"], "--raw-in: given for many dispensers; expected one"),
            ([*names, "--registry-out", "F"],
             "--registry-out: given for many dispensers; expected one"),
            ([*names, "--trace"], "--trace: given for many dispensers; expected one"),
            # What no dispenser can mend is said once, and is no row of each.
            (["@one", "--mixes", "1", "--mix", "2"],
             "--mixes: given beside --mix; expected one of them"),
            ([*names, "--mixes", "99"], "--mixes: 99 is not allowed; expected mixes from 1 to "
                                        f"{tool.last_mix()} such as 1,3-5, or all"),
            ([*names, "--from", "x"], "--from: x is not allowed; expected 0 to 4294967295"),
            ([*names, "--to", "1.5"], "--to: 1.5 is not allowed; expected 0 to 4294967295"),
            ([*names, "--slow", "soon", "--json"],
             "--slow: soon is not allowed; expected a time from 1ms to 86400s such as 2s or 100ms")):
        status, output, errors = tool.run(["lint", *words])
        checks.equal(f"{words}: refused", [status, output, errors],
                     [2, "", f"qxmix: {complaint}\n"])


def check_input(tool, checks):
    """A fleet's answer tells what was asked of all of them."""
    names = ["EUR:50x10,20x10", "EUR:50x10"]
    plain = {"dispensers": 2, "mixes": None, "from": None, "to": None, "step": None, "slow": "20ms"}
    deadline = lint_json(tool, *names)[1]["input"]["deadline"]
    for words, told in (
            ([], {}), (["--mix", "3"], {"mixes": "3"}), (["--mixes", "1,3"], {"mixes": "1,3"}),
            (["--from", "50"], {"from": "50"}), (["--to", "60"], {"to": "60"}),
            (["--step", "50"], {"step": 50}), (["--slow", "1s"], {"slow": "1s"}),
            (["--deadline", "90ms"], {"deadline": "90ms"})):
        checks.equal(f"{words}: in the input", lint_json(tool, *names, *words)[1]["input"],
                     {**plain, "deadline": deadline, **told})


def check_bad_files(tool, checks):
    names = ["bad.json", "examples/trouble.json", "syntax.json", "nowhere.json"]
    status, fleet, errors = lint_json(tool, *names)
    checks.equal("the worst dispenser decides", [status, errors], [3, ""])
    elements = {element["file"]: element for element in fleet["result"]["dispensers"]}
    for name in names:
        single_status, output, complaint = tool.run(["lint", name])
        if output:
            continue
        error = elements[name]["error"]
        place = f": {error['pointer']}" if error["pointer"] else ""
        said = {f"qxmix: {name}{place}{between}{error['message']}\n" for between in (": ", ":")}
        checks.check(f"{name}: costs itself, and says the same", complaint in said,
                     f"{complaint}{error}")
        checks.equal(f"{name}: exit status", elements[name]["exitStatus"], single_status)
    checks.equal("not asked", fleet["result"]["totals"]["notAsked"], 3)
    checks.equal("without a worse one", lint_json(tool, "bad.json", "examples/euro.json")[0], 2)


def check_broken_module(tool, checks):
    """Calls that crash or never return cost a worker; the dispenser is then asked as a single one."""
    fake = ["--library", "fake.so", "--mixes", "1", "--step", "1"]
    for amount in (1001, 1002, 1003, 1004):
        words = ["--from", str(amount), "--to", str(amount), "--deadline", "50ms", *fake]
        status, single, _ = lint_json(tool, ONES, *words)
        several = lint_json(tool, "EUR:1x100", ONES, "EUR:1x100", *words)
        checks.equal(f"{amount}: as a single run",
                     [several[0], several[1]["result"]["dispensers"][1]],
                     [status, {"file": ONES, "exitStatus": status, **single["result"]}])
    words = ["--from", "1001", "--to", "1001", *fake]
    text = tool.run(["lint", ONES, "EUR:1x100", *words])[1]
    checks.check("a crash is the first thing told", "mix 1 crashes on 1 amount" in text, text)


def check_interruption(tool, checks):
    names = ["EUR:1x100", "EUR:1x2000"] * 200
    words = ["lint", *names, "--from", "1002", "--to", "1004", "--step", "2", "--library",
             "fake.so", "--jobs", "2"]
    status, output, _ = tool.interrupt(words, 2)
    checks.equal("Ctrl-C: exit status", status, 130)
    checks.check("Ctrl-C: what is complete is told", re.search(
        rb"\ninterrupted after \d+ of 400 dispensers\n$", output), output)


if __name__ == "__main__":
    run_parts(check_against_single_runs, check_lists, check_input, check_bad_files, check_broken_module,
              check_interruption)
