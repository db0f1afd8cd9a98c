#!/usr/bin/env python3
"""What `qxmix simulate` draws, asks and writes, against a second drawing and against `qxmix mix`."""

import json
import re

import jsonschema

from drawing import draw, resample
from tool_runner import run_parts
from written_answers import rows_of, steps_of

DAYS = ("Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun")
WEEK = ["simulate", "examples/euro.json", "--demand", "examples/week.json"]
SMALL = {"days": 2, "perDay": 25, "hours": [0] * 8 + [3, 1] + [0] * 13 + [2],
         "amounts": [{"amount": 30, "weight": 3}, {"amount": 80, "weight": 2},
                     {"amount": 190, "weight": 0}, {"amount": 170, "weight": 4}]}
CASSETTES = {"currency": "EUR", "cassettes": [
    {"value": 50, "count": 60, "lowThreshold": 45, "emptyThreshold": 3},
    {"value": 20, "count": 70, "lowThreshold": 20}, {"value": 10, "count": 8, "status": "low"},
    {"value": 20, "count": 500, "status": "inoperative"}]}
FAKE = ["simulate", "EUR:1x40000", "--demand", "hang.csv", "--library", "fake.so", "--limit", "2000"]


def time_text(seconds):
    return f"{DAYS[seconds // 86400]} {seconds // 3600 % 24:02}:{seconds // 60 % 60:02}"


def result_of(tool, words):
    return json.loads(tool.run(words + ["--json"])[1])["result"]


def check_drawing(tool, checks):
    demand = result_of(tool, WEEK + ["--mixes", "1"])["demand"]
    week = json.loads((tool.folder / "examples/week.json").read_text())
    checks.equal("the week is drawn", (demand["times"], demand["amounts"]), draw(week, 1))
    (tool.folder / "small.json").write_text(json.dumps(SMALL))
    for seed in ("0", "7", "4294967295"):
        words = ["simulate", "EUR:10x9", "--demand", "small.json", "--seed", seed, "--mixes", "1"]
        demand = result_of(tool, words)["demand"]
        checks.equal(f"seed {seed}", (demand["times"], demand["amounts"]), draw(SMALL, int(seed)))


def month(tool):
    """The recorded month: days since a Monday, seconds and amounts."""
    rows = [line.split(",") for line in (tool.folder / "examples/month.csv").read_text().split("\n")[1:-1]]
    assert rows[0][0].startswith("2026-11-02"), "that is a Monday"
    return [(int(time[8:10]) - 2, int(time[11:13]) * 3600 + int(time[14:16]) * 60, int(amount))
            for time, amount in rows]


def check_resampling(tool, checks):
    """Whole days of a recorded month, each of its day of the week, as the manual says."""
    record = month(tool)
    words = ["simulate", "examples/euro.json", "--demand", "examples/month.csv", "--mixes", "1,3", "--resample"]
    sizes = []
    for seed, days in ((1, 7), (2, 7), (3, 7), (0, 3), (4294967295, 15)):
        result = json.loads(tool.run(words + [str(days), "--seed", str(seed), "--json"])[1])
        demand = result["result"]["demand"]
        wanted = resample(record, days, seed)
        checks.equal(f"{days} days, seed {seed}", (demand["times"], demand["amounts"]), wanted)
        checks.equal(f"{days} days, seed {seed}: said", (demand["seed"], demand["firstDay"], result["input"]["resampled"],
                                                        result["input"]["demand"]), (seed, None, days, None))
        sizes.append(len(wanted[0]))
    later = record[9:-20]  # from within a day to within another one
    lines = [f"w{day // 7 + 1} {DAYS[day % 7]} {second // 3600:02}:{second // 60 % 60:02},{amount}"
             for day, second, amount in later]
    (tool.folder / "weeks.csv").write_text("\n".join(["time,amount"] + lines[::-1]) + "\n")
    demand = result_of(tool, ["simulate", "EUR:10x9", "--demand", "weeks.csv", "--mixes", "1", "--resample", "9"])["demand"]
    # Rows of the same minute are in the order of the list, which was turned round.
    wanted = resample(sorted(later[::-1], key=lambda row: row[:2]), 9, 1)
    checks.equal("days of weeks", (demand["times"], demand["amounts"]), wanted)
    status, output, _ = tool.run(words + ["7", "--runs", "3", "--json"])
    mixes = json.loads(output)["result"]["mixes"]
    checks.equal("runs of different sizes", (status, [[run["asked"] for run in mix["runs"]] for mix in mixes]),
                 (1, [sizes[:3]] * 2))
    checks.check("they differ", len(set(sizes[:3])) == 3, sizes)
    shown = tool.run(words + ["7", "--runs", "3"])[1]
    checks.check("the middle one is told", f" of {sorted(sizes[:3])[1]} withdrawals, median of 3 runs" in shown, shown)


def follow(tool, mix, amounts):
    """Asks `qxmix mix` for one withdrawal after the other and drains the cassettes by hand."""
    dispenser = json.loads(json.dumps(CASSETTES))
    for amount in amounts:
        (tool.folder / "now.json").write_text(json.dumps(dispenser))
        words = ["mix", "now.json", "--amount", str(amount), "--mix", str(mix), "--deadline", "100ms"]
        result = json.loads(tool.run(words + ["--json"])[1])["result"]
        if result["outcome"] in ("paid", "paidInPart"):
            for cassette, items in zip(dispenser["cassettes"], result["values"]):
                cassette["count"] -= items
                if items and cassette.get("status", "ok") in ("ok", "low"):
                    cassette["status"] = (
                        "empty" if cassette["count"] <= cassette.get("emptyThreshold", 0) else
                        "low" if cassette["count"] <= cassette.get("lowThreshold", 0) else "ok")
        yield result, [cassette["count"] for cassette in dispenser["cassettes"]]


def check_against_mix(tool, checks):
    (tool.folder / "few.json").write_text(json.dumps(CASSETTES))
    (tool.folder / "small.json").write_text(json.dumps(SMALL))
    words = ["simulate", "few.json", "--demand", "small.json", "--seed", "3", "--mixes", "1,3,4"]
    status, shown, _ = tool.run(words + ["--output", "few.csv"])
    checks.equal("the text is shown beside the file", shown, tool.run(words)[1])
    text = (tool.folder / "few.csv").read_text()
    checks.equal("columns", text.split("\n", 1)[0],
                 "mix,time,amount,outcome,paid,c0,c1,c2,c3,c4,c5")
    rows, result = rows_of(tool, "few.csv"), result_of(tool, words)
    times, amounts = draw(SMALL, 3)
    letters = {".": "paid", "r": "notDispensable", "O": "overpaid", "n": "nothingPaid"}
    worst = 0
    for mix in (1, 3, 4):
        mine = [row for row in rows if row["mix"] == str(mix)]
        known = next(m for m in result["mixes"] if m["mix"] == mix)
        checks.equal(f"mix {mix}: times", [row["time"] for row in mine], list(map(time_text, times)))
        checks.equal(f"mix {mix}: amounts", [row["amount"] for row in mine], list(map(str, amounts)))
        counts, refusal = {}, None
        left = 60 * 50 + 570 * 20 + 8 * 10
        for index, (answer, held) in enumerate(follow(tool, mix, amounts)):
            name = f"mix {mix}, withdrawal {index}"
            outcome = answer["outcome"]
            counts[outcome] = counts.get(outcome, 0) + 1
            if refusal is None and outcome != "paid":
                refusal = {"time": time_text(times[index]), "withdrawal": index,
                           "amount": amounts[index], "outcome": outcome, "left": str(left)}
            left = sum(count * value for count, value in zip(held, (50, 20, 10, 20)))
            worst = max(worst, {"paid": 0, "overpaid": 3}.get(outcome, 1))
            row = mine[index]
            checks.equal(f"{name}: as mix says", (row["outcome"], row["paid"]),
                         (outcome, answer["paid"]))
            checks.equal(f"{name}: what is left", [row[f"c{c}"] for c in range(6)],
                         [str(count) for count in held] + ["", ""])
        steps = list(steps_of(known["answers"]))
        checks.equal(f"mix {mix}: steps", [letters[letter] for letter, _ in steps],
                     [row["outcome"] for row in mine])
        checks.equal(f"mix {mix}: counts", known["counts"], counts)
        checks.equal(f"mix {mix}: end", known["end"], held)
        checks.equal(f"mix {mix}: left", known["left"], str(left))
        checks.equal(f"mix {mix}: first refusal", known["firstRefusal"], refusal)
        taken = [items for letter, items in steps if letter == "."]
        checks.equal(f"mix {mix}: items", known["items"],
                     {"notes": sum(map(sum, taken)), "coins": 0})
        checks.equal(f"mix {mix}: paid", known["paid"],
                     str(sum(count * value for items in taken
                             for count, value in zip(items, (50, 20, 10, 20)))))
        shares = [left * 1000 // first for left, first in zip(held, (60, 70, 8, 500))]
        checks.equal(f"mix {mix}: spread", known["spread"], max(shares) - min(shares))
    checks.check("the example has refusals, dangers and empty cassettes",
                 worst == 3 and any(m["emptied"] for m in result["mixes"]), result["mixes"])
    checks.equal("exit status", status, worst)


def check_runs(tool, checks):
    words = WEEK + ["--mixes", "1,3,4", "--runs", "4", "--seed", "11"]
    result = result_of(tool, words)
    for mix in result["mixes"]:
        served = []
        for index, run in enumerate(mix["runs"]):
            alone = result_of(tool, WEEK + ["--mixes", str(mix["mix"]), "--seed", str(11 + index)])
            one = alone["mixes"][0]
            checks.equal(f"mix {mix['mix']}, seed {11 + index}", run,
                         {"seed": 11 + index, **{key: one[key] for key in run if key != "seed"}})
            served.append(one["counts"]["paid"])
            if index == 0:
                checks.equal(f"mix {mix['mix']}: the first run step by step", mix["answers"],
                             one["answers"])
        served.sort()
        checks.equal(f"mix {mix['mix']}: range", mix["ranges"]["served"],
                     {"median": served[1], "least": served[0], "most": served[3]})
    checks.equal("ranks", [(m["mix"], m["rank"]) for m in result["mixes"]],
                 [(1, 1), (3, 2), (4, None)])
    tool.run(words + ["--output", "runs.csv"])
    rows = rows_of(tool, "runs.csv")
    checks.equal("a line for each run and mix", [(int(r["seed"]), int(r["mix"])) for r in rows],
                 [(seed, mix) for seed in range(11, 15) for mix in (1, 3, 4)])
    checks.equal("what they serve", sorted(int(r["served"]) for r in rows if r["mix"] == "1"),
                 sorted(run["counts"]["paid"] for run in result["mixes"][0]["runs"]))


def check_forms(tool, checks):
    words = WEEK + ["--mixes", "1-4,8"]
    text = tool.run(words)[1]
    tool.run(words + ["--output", "week.txt", "--color", "always"])
    checks.equal(".txt", (tool.folder / "week.txt").read_text(), text)
    output = tool.run(words + ["--output", "week.out.json", "--json"])[1]
    checks.equal(".json", (tool.folder / "week.out.json").read_text(), output)
    checks.equal("nothing is left beside", list(tool.folder.glob("*.part*")), [])
    for jobs in ("1", "3", "20"):
        checks.equal(f"--jobs {jobs}", tool.run(words + ["--jobs", jobs])[1], text)
    week = (tool.folder / "examples/week.json").read_bytes()
    piped = tool.run(words[:2] + ["--demand", "-"] + words[4:], week)[1]
    checks.equal("from standard input", piped, text)


def check_registry(tool, checks):
    words = ["simulate", "EUR:50x4", "--demand", "one.csv", "--mixes", "1", "--registry-out", "l.reg"]
    for amount, isRefused in ((60, True), (50, False)):
        (tool.folder / "one.csv").write_text(f"time,amount\n2026-01-01 10:00,{amount}\n")
        tool.run(words)
        left = (tool.folder / "l.reg").read_bytes().decode("utf-16")
        checks.equal(f"{amount}: the code that is left", '"CDM"=hex(1):39,37,31,41,32' in left,
                     isRefused)


def check_give_up(tool, checks):
    # 1002 hangs.
    lines = [f"2026-01-01 10:{minute:02},1002" for minute in range(25)]
    (tool.folder / "hang.csv").write_text("\n".join(["time,amount"] + lines) + "\n")
    mix = result_of(tool, FAKE + ["--mixes", "1", "--deadline", "5ms"])["mixes"][0]
    checks.equal("given up after twenty misses",
                 (mix["counts"], mix["asked"], mix["givenUp"], mix["rank"]),
                 ({"noAnswer": 20}, 20, True, None))


def check_interrupt(tool, checks):
    lines = [f"2026-01-01 10:{minute:02},{900 + minute}" for minute in range(12)]
    lines.append("2026-01-01 11:00,1002")
    (tool.folder / "hang.csv").write_text("\n".join(["time,amount"] + lines) + "\n")
    words = FAKE + ["--mixes", "1,2", "--deadline", "60s", "--jobs", "1"]
    for form, extra in (("text", []), ("JSON", ["--json", "--output", "cut.csv"])):
        status, output, _ = tool.interrupt(words + extra, 1)
        checks.equal(f"Ctrl-C, {form}: exit status", status, 130)
        if form == "text":
            checks.equal("Ctrl-C: last line", output.decode().split("\n")[-2],
                         "interrupted at 2026-01-01 10:11, 12 of 13 withdrawals")
        else:
            answer = json.loads(output)
            checks.equal("Ctrl-C: complete", answer["complete"], False)
            checks.equal("Ctrl-C: kept", [m["asked"] for m in answer["result"]["mixes"]], [12, 12])
            checks.equal("Ctrl-C: the file", len(rows_of(tool, "cut.csv")), 24)
    # 1002 hangs in the first run: no run is whole.
    pattern = {**SMALL, "amounts": [{"amount": 901, "weight": 9}, {"amount": 1002, "weight": 1}]}
    (tool.folder / "endless.json").write_text(json.dumps(pattern))
    words = FAKE[:3] + ["endless.json"] + FAKE[4:] + ["--mixes", "1", "--runs", "3", "--seed", "7",
                                                      "--deadline", "60s", "--jobs", "1"]
    _, output, _ = tool.interrupt(words, 1)
    text = output.decode()
    checks.check("Ctrl-C: an unfinished run is no run",
                 "of a run that did not end" in text and "no run of 3 at its end" in text and
                 "median" not in text.split("\n")[0], text)
    runs = json.loads(tool.interrupt(words + ["--json"], 1)[1])["result"]
    checks.equal("Ctrl-C: runs that are whole", (runs["demand"]["runs"], runs["mixes"][0]["runs"]),
                 (0, []))
    words = WEEK + ["--runs", "10000", "--mixes", "1,2", "--jobs", "1", "--json"]
    status, output, _ = tool.interrupt(words, 20 if tool.is_counted() else 1.5)
    answer = json.loads(output)
    runs = answer["result"]["demand"]["runs"]
    checks.check("Ctrl-C: whole runs", status == 130 and 0 < runs < 10000 and
                 all(len(m["runs"]) == runs and all(r["asked"] == 840 for r in m["runs"])
                     for m in answer["result"]["mixes"]), runs)


def demand_with(**changes):
    return {**json.loads(json.dumps(SMALL)), **changes}


def check_demand_files(tool, checks):
    schema = json.loads((tool.arguments.source / "schema/demand.schema.json").read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    amount = {"amount": 50, "weight": 1}
    good = [SMALL, demand_with(**{"x-note": [1], "$schema": "demand.schema.json"}),
            demand_with(amounts=[{**amount, "x-of": "cards"}])]
    bad = [demand_with(days=0), demand_with(days=3661), demand_with(days="7"), demand_with(perDay=0),
           demand_with(perDay=1000001), demand_with(hours=[1] * 23), demand_with(hours=[1] * 25),
           demand_with(hours=[0] * 24), demand_with(hours=[1] * 23 + [-1]),
           demand_with(hours=[1] * 23 + [2**32]), demand_with(hours=24), demand_with(amounts=[]),
           demand_with(amounts={}), demand_with(amounts=[{**amount, "weight": 0}]),
           demand_with(amounts=[{"amount": 50}]), demand_with(amounts=[{"weight": 1}]),
           demand_with(amounts=[{**amount, "amount": 0}]), demand_with(amounts=[50]),
           demand_with(amounts=[{**amount, "weigth": 1}]), demand_with(day=7),
           demand_with(**{"$schema": 1}), [SMALL],
           {key: value for key, value in SMALL.items() if key != "hours"}]
    for is_good, demands in ((True, good), (False, bad)):
        for index, demand in enumerate(demands):
            (tool.folder / "demand.json").write_text(json.dumps(demand))
            status, output, errors = tool.run(
                ["simulate", "EUR:10x2000", "--demand", "demand.json", "--mixes", "1"])
            name = f"{'good' if is_good else 'bad'} demand {index}"
            checks.equal(f"{name}: the tool", status != 2, is_good)
            checks.equal(f"{name}: prints an answer", bool(output), is_good)
            checks.check(f"{name}: one line or none", errors == "" if is_good else
                         re.fullmatch(r"qxmix: demand\.json: (/[^\n]*: )?[^\n]*expected [^\n]*\n|"
                                      r"qxmix: demand\.json: /[^\n]*did you mean [^\n]*\n", errors), errors)
            checks.equal(f"{name}: the schema", validator.is_valid(demand), is_good)


run_parts(check_drawing, check_resampling, check_against_mix, check_runs, check_forms, check_registry, check_give_up,
          check_interrupt, check_demand_files)
