#!/usr/bin/env python3
"""What `qxmix simulate` says of many dispensers, recomputed from single runs."""

import csv
import io
import json
import re

from random_fleet import write_fleet
from tool_runner import run_parts

DEMAND = ["--demand", "demand.json"]
ONES = "EUR:1x40000"


def write_demand(tool):
    (tool.folder / "demand.json").write_text(json.dumps({
        "days": 2, "perDay": 40, "hours": [1] * 24,
        "amounts": [{"amount": amount, "weight": 1} for amount in (20, 30, 50, 100, 150, 300)]}))


def simulate(tool, *words):
    status, output, errors = tool.run(["simulate", *words, "--json"])
    return status, json.loads(output) if output else None, errors


def served_by(mix):
    """Withdrawals that a mix serves; of several runs the median."""
    if "ranges" in mix:
        return mix["ranges"]["served"]["median"]
    return mix["counts"].get("paid", 0)


def without_answers(mixes):
    return [{key: value for key, value in mix.items() if key != "answers"} for mix in mixes]


def fleet_of(singles):
    """What the whole fleet is to tell, from what single runs say."""
    numbers = sorted(mix["mix"] for mix in next(iter(singles.values()))["mixes"])
    served = {number: 0 for number in numbers}
    dangerous = {number: 0 for number in numbers}
    best = 0
    for result in singles.values():
        ranked = [mix for mix in result["mixes"] if mix["rank"] is not None]
        best += max((served_by(mix) for mix in ranked), default=0)
        for mix in result["mixes"]:
            served[mix["mix"]] += served_by(mix)
            dangerous[mix["mix"]] += mix["rank"] is None
    order = sorted(numbers, key=lambda n: (dangerous[n] > 0, 0 if dangerous[n] else -served[n], n))
    return {"mix": None if dangerous[order[0]] else order[0],
            "withdrawals": sum(r["demand"]["withdrawals"] for r in singles.values()),
            "servedByBest": best,
            "mixes": [{"mix": n, "served": served[n], "dangerousOn": dangerous[n]} for n in order]}


def check_against_single_runs(tool, checks):
    write_demand(tool)
    names = write_fleet(tool.folder / "fleet", 12, 5)
    for words in ([], ["--mixes", "1-3"], ["--mixes", "4,9"], ["--runs", "3", "--mixes", "1,2,4"]):
        status, answer, errors = simulate(tool, *names, "nowhere.json", *DEMAND, *words)
        singles, statuses = {}, [2]
        for name in names:
            single_status, single, _ = simulate(tool, name, *DEMAND, *words)
            singles[name] = single["result"]
            statuses.append(single_status)
        result = answer["result"]
        checks.equal(f"{words}: the highest exit status", [status, errors], [max(statuses), ""])
        checks.equal(f"{words}: the fleet", result["fleet"], fleet_of(singles))
        checks.equal(f"{words}: totals", result["totals"],
                     {"dispensers": len(names) + 1, "notAsked": 1})
        best = result["fleet"]["mix"]
        for name, element in zip(names, result["dispensers"]):
            mixes = singles[name]["mixes"]
            served = {mix["mix"]: served_by(mix) for mix in mixes}
            lost = None if best is None or mixes[0]["rank"] is None else \
                served[mixes[0]["mix"]] - served[best]
            checks.equal(f"{words}: {name}: as a single run", element, {
                "file": name, "exitStatus": statuses[1 + names.index(name)],
                "withdrawals": singles[name]["demand"]["withdrawals"],
                "mixes": without_answers(mixes), "lost": lost})
        checks.equal(f"{words}: what cannot be read", result["dispensers"][-1], {
            "file": "nowhere.json", "exitStatus": 2, "error": {
                "pointer": None, "message": "cannot be opened: No such file or directory"}})


def check_text(tool, checks):
    names = [str(f.relative_to(tool.folder)) for f in sorted((tool.folder / "fleet").iterdir())]
    words = [*DEMAND, "--mixes", "1-3,5"]
    text = tool.run(["simulate", *names, *words])[1]
    answer = simulate(tool, *names, *words)[1]["result"]
    elements = {element["file"]: element for element in answer["dispensers"]}
    fleet = answer["fleet"]
    checks.check("verdict", text.startswith(
        f"Mix {fleet['mix']} serves most over {len(names)} dispensers: {fleet['mixes'][0]['served']} "
        f"of {fleet['withdrawals']} withdrawals\n"), text)
    rows = [re.split(r" +", line.strip(), maxsplit=6) for line in
            text.split("\n\n")[1].split("\n")[1:] if line.startswith(" fleet/")]
    checks.equal("a row each", sorted(row[0] for row in rows), sorted(names))
    shares = []
    for name, best, served, percent, by_mix, lost, refusal in rows:
        mixes = elements[name]["mixes"]
        counts = {mix["mix"]: served_by(mix) for mix in mixes}
        checks.equal(f"{name}: numbers", [best, served, by_mix, lost], [
            str(mixes[0]["mix"]), str(counts[mixes[0]["mix"]]), str(counts[fleet["mix"]]),
            str(elements[name]["lost"] or "-")])
        single = tool.run(["simulate", name, *words])[1]
        checks.check(f"{name}: share and first refusal", re.search(
            rf"^ +1 +{best} +{served} +{re.escape(percent)} .*{re.escape(refusal)}", single,
            re.MULTILINE), single)
        shares.append(int(served) / elements[name]["withdrawals"])
    checks.equal("worst first", shares, sorted(shares))
    told = tool.run(["simulate", *names, *words, "--all"])[1]
    checks.equal("--all has them whole", told, text + "".join(
        f"\n{row[0]}\n{tool.run(['simulate', row[0], *words])[1]}" for row in rows))
    tool.run(["simulate", *names, *words, "--output", "fleet.csv"])
    lines = list(csv.DictReader(io.StringIO((tool.folder / "fleet.csv").read_text())))
    checks.equal("CSV", [[line["file"], line["mix"], line["rank"], line["served"]] for line in lines],
                 [[name, str(mix["mix"]), str(mix["rank"] or ""), str(served_by(mix))]
                  for name in names for mix in elements[name]["mixes"]])
    for words, complaint in (
            (["--demand", "-"], "--demand -: given for many dispensers; expected one"),
            # What no dispenser can mend is said once, and is no row of each.
            ([], "--demand: missing; expected a file of withdrawals such as examples/week.json"),
            (["--demand", "nowhere"], "nowhere: cannot be opened: No such file or directory"),
            (["--demand", "examples/journal.csv", "--seed", "3"],
             "--seed: given for recorded withdrawals; expected a JSON file to draw them from, or --resample"),
            ([*DEMAND, "--mixes", "0"], "--mixes: 0 is not allowed; expected mixes from 1 to "
                                        f"{tool.last_mix()} such as 1,3-5, or all"),
            ([*DEMAND, "--seed", "4294967295", "--runs", "2"],
             "--seed: 4294967295 is too large; expected at most 4294967294 for so many --runs"),
            ([*DEMAND, "--registry-out", "F"],
             "--registry-out: given for many dispensers; expected one")):
        checks.equal(str(words), tool.run(["simulate", *names, *words]),
                     (2, "", f"qxmix: {complaint}\n"))


def check_broken_module(tool, checks):
    """Calls that crash or never return cost a worker; the dispenser is then asked as a single one."""
    words = ["--demand", "fake.csv", "--mixes", "1", "--library", "fake.so", "--deadline", "50ms"]
    status, answer, _ = simulate(tool, "EUR:1x100", ONES, *words)
    single_status, single, _ = simulate(tool, ONES, *words)
    element = answer["result"]["dispensers"][1]
    checks.equal("as a single run", [status, element["mixes"]],
                 [single_status, without_answers(single["result"]["mixes"])])
    checks.equal("which crashes", single_status, 4)


if __name__ == "__main__":
    run_parts(check_against_single_runs, check_text, check_broken_module)
