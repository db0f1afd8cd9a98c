#!/usr/bin/env python3
"""`qxmix compare` against two calls of `qxmix mix`, between libraries, and when it is interrupted."""

import json

from tool_runner import run_parts

SIDES = ("examples/euro.json", "EUR:100x300,50x1200:low,20x2400,10x0:empty")
ONES = "EUR:1x2000"
CRASH, HANG = 1001, 1002


def compare(tool, *words):
    status, output, _ = tool.run(["compare", *words, "--json"])
    return status, json.loads(output)["result"]


def result_of_mix(tool, dispenser, amount, mix):
    words = ["mix", dispenser, "--amount", str(amount), "--mix", str(mix), "--deadline", "500ms"]
    return json.loads(tool.run(words + ["--json"])[1])["result"]


def check_against_mix(tool, checks):
    status, result = compare(tool, *SIDES, "--mixes", "2,5,10", "--to", "200")
    checks.equal("exit status", status, 1)
    checks.equal("every answer is counted",
                 sum(result[key] for key in ("same", "lost", "gained", "other", "danger")), 60)
    counts = {key: 0 for key in ("danger", "lost", "other", "gained")}
    for difference in result["differences"]:
        counts[difference["change"]] += 1
        name = f"{difference['amount']}, mix {difference['mix']}"
        for side, dispenser in zip("ab", SIDES):
            shown = dict(difference[side])
            checks.equal(f"{name}: mix of {side}", shown.pop("mix"), difference["mix"])
            expected = result_of_mix(tool, dispenser, difference["amount"], difference["mix"])
            # What mix says beside a refusal is not the answer's.
            expected = {key: value for key, value in expected.items()
                        if key not in ("nearest", "otherMixes")}
            checks.equal(f"{name}: as mix says of {side}", shown, {**expected, "amountAfter": None})
        paid = [difference[side]["outcome"] == "paid" for side in "ab"]
        checks.equal(f"{name}: change", difference["change"],
                     {(True, False): "lost", (False, True): "gained"}.get(tuple(paid), "other"))
    checks.equal("counts", {key: result[key] for key in counts}, counts)
    order = ["danger", "lost", "other", "gained"]
    keys = [(order.index(d["change"]), d["mix"], d["amount"]) for d in result["differences"]]
    checks.equal("worst first, then by mix and amount", keys, sorted(keys))
    checks.check("the comparison finds something", all(counts[key] for key in ("lost", "other")),
                 str(counts))


def check_settings(tool, checks):
    euro = json.loads((tool.folder / "examples" / "euro.json").read_text())
    (tool.folder / "three.json").write_text(json.dumps({**euro, "mix": 3}))
    _, result = compare(tool, "examples/euro.json", "three.json", "--from", "280", "--to", "280")
    difference = result["differences"][0]
    checks.equal("each file's own mix", [difference[side]["mix"] for side in "ab"], [1, 3])
    checks.equal("is asked", [difference[side]["values"] for side in "ab"],
                 [[2, 1, 1, 0, 1, 0], [0, 2, 2, 2, 10, 0]])
    tool.run(["compare", "examples/euro.json", "three.json", "--from", "280", "--to", "280",
              "--output", "mixes.csv"])
    checks.equal("in each file's own columns",
                 (tool.folder / "mixes.csv").read_text().splitlines()[1:],
                 ["280,other,1,paid,2,1,1,0,1,0,3,paid,0,2,2,2,10,0"])
    output = json.loads(tool.run(["compare", "EUR:50x9,20x9", "EUR:100x9,5x9", "--json"])[1])
    checks.equal("amounts of either", [output["input"][key] for key in ("from", "to", "step")],
                 [5, 1000, 5])
    (tool.folder / "low.json").write_text(
        '{"currency":"EUR","mix":6,"registry":{"CSTMinimum4Mix6":"5"},"cassettes":[{"value":50,"count":90}]}')
    _, result = compare(tool, "EUR:50x90", "low.json", "--mix", "6", "--from", "50", "--to", "50")
    checks.equal("each file's own registry", result["gained"], 1)
    _, result = compare(tool, "EUR:50x90", "low.json", "--mix", "6", "--from", "50", "--to", "50",
                        "--registry", "mended.reg")
    checks.equal("--registry stands before it", result["same"], 1)


def check_libraries(tool, checks):
    (tool.folder / "real.so").symlink_to(tool.environment["QXMIX_LIBRARY"])
    words = ["compare", ONES, "--limit", "2000", "--from", "999", "--to", "1003", "--step", "1",
             "--deadline", "50ms", "--library", "real.so"]
    status, output, errors = tool.run(words + ["--library", "fake.so"])
    checks.equal("two libraries: exit status", (status, errors), (4, ""))
    lines = output.splitlines()
    checks.check("two libraries: headings", lines[2].split() == ["amount", "real.so", "fake.so"], output)
    checks.check("two libraries: a crash is a danger", lines[3].split()[0] == "1001" and
                 lines[3].endswith("crashed"), output)
    checks.check("two libraries: so is no answer", lines[4].endswith("no answer"), output)
    status, output, _ = tool.run(words + ["--library", tool.environment["QXMIX_LIBRARY"]])
    checks.equal("the same library", (status, output), (0, "All 5 amounts are the same\n"))
    status, output, _ = tool.run(["compare", "EUR:20x100,20x50", "--library", "fake.so", "--library",
                                  "real.so", "--from", "40", "--to", "40"])
    checks.check("which cassette it is counts", "0:" in output or status == 1, output)


def check_rows(tool, checks):
    output = tool.run(["compare", "EUR:50x100,20x100,10x100", "EUR:20x500,10x500",
                       "--to", "1000"])[1]
    checks.equal("neighbours share a row", [line.split() for line in output.splitlines()[3:]],
                 [["810-1000", "paid", "16x50", "1x10", "...", "too", "many", "items"],
                  ["50-800", "paid", "1x50", "...", "paid", "2x20", "1x10", "..."]])
    checks.check("80 columns", max(map(len, output.splitlines()[1:])) <= 80, output)
    left = tool.run(["compare", "EUR:50x1", "EUR:50x2", "--to", "100", "--registry-out", "left.reg"])
    checks.equal("--registry-out", (left[0], (tool.folder / "left.reg").exists()), (1, True))


def check_output(tool, checks):
    words = ["compare", "examples/euro.json", "examples/no-tens.json", "--to", "100"]
    for ending, expected in ((".txt", tool.run(words)[1]), (".json", tool.run(words + ["--json"])[1])):
        shown = tool.run(words + ["--output", "out" + ending, "--color", "never"])
        checks.equal(f"{ending}: written", (tool.folder / ("out" + ending)).read_text(), expected)
        checks.equal(f"{ending}: shown, too", shown[:2], (1, tool.run(words)[1]))
    tool.run(words + ["--output", "out.csv"])
    lines = (tool.folder / "out.csv").read_text().splitlines()
    checks.equal(".csv", (lines[0], lines[1], len(lines)),
                 ("amount,change,a_mix,a_outcome,a_v0,a_v1,a_v2,a_v3,a_v4,a_v5,"
                  "b_mix,b_outcome,b_v0,b_v1,b_v2,b_v3,b_v4,b_v5",
                  "10,lost,1,paid,0,0,0,0,1,0,1,nothingPaid,0,0,0,0,0,0", 5))
    tool.run(["compare", ONES, "--limit", "2000", "--from", "1001", "--to", "1001", "--library",
              tool.environment["QXMIX_LIBRARY"], "--library", "fake.so", "--output", "out.csv"])
    checks.equal(".csv: unknown is empty", (tool.folder / "out.csv").read_text().splitlines()[1:],
                 ["1001,danger,1,paid,1001,0,0,0,0,0,1,crashed,,,,,,"])
    checks.equal("another form", tool.run(words + ["--output", "out.html"]),
                 (2, "", "qxmix: --output: out.html is not allowed; expected a name that ends in "
                         ".txt, .json or .csv\n"))


def check_interrupt(tool, checks):
    (tool.folder / "real.so").unlink(missing_ok=True)
    (tool.folder / "real.so").symlink_to(tool.environment["QXMIX_LIBRARY"])
    words = ["compare", ONES, "--limit", "2000", "--from", "1000", "--to", "1010", "--step", "2",
             "--deadline", "60s", "--jobs", "1", "--library", "real.so", "--library", "fake.so"]
    for extra in ([], ["--json"]):
        status, output, _ = tool.interrupt(words + extra, 1)
        checks.equal("Ctrl-C: exit status", status, 130)
        if extra:
            checks.equal("Ctrl-C: complete", json.loads(output)["complete"], False)
        else:
            checks.equal("Ctrl-C: last line", output.decode().splitlines()[-1],
                         "interrupted at 1002 EUR, 1 of 6 amounts")


run_parts(check_against_mix, check_settings, check_libraries, check_rows, check_output,
          check_interrupt)
