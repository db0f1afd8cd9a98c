#!/usr/bin/env python3
"""What `qxmix map` writes, how it is interrupted, and that it says what `qxmix mix` says."""

import json

from at_terminal import shown_at_terminal
from tool_runner import run_parts
from written_answers import rows_of, steps_of

MAP = ["map", "examples/three-notes.json", "--to", "150", "--mixes", "1,4,9"]
FAKE = ["map", "EUR:1x2000", "--library", "fake.so", "--limit", "2000", "--mixes", "1",
        "--jobs", "1"]
COLUMNS = "amount,mix,outcome,paid,remainder,returned,registry,v0,v1,v2,v3,v4,v5"


def cells_of(row):
    """The letter and the answer of each amount in one row of the JSON."""
    letters = "".join(letter * length for letter, length in row["runs"])
    known = [0] * 7
    for letter, step in zip(letters, steps_of(row["answers"])):
        if step is not None:
            known = [(before + more) % 2**32 for before, more in zip(known, step)]
        yield letter, step and {"values": known[:6], "remainder": known[6], "returned": step[7],
                                "registry": step[8]}


def check_against_mix(tool, checks):
    status, shown, _ = tool.run(MAP + ["--output", "map.csv"])
    text = (tool.folder / "map.csv").read_text()
    rows = rows_of(tool, "map.csv")
    checks.equal("columns", text.split("\n", 1)[0], COLUMNS)
    checks.equal("exit status", status, 3)
    checks.check("the text is shown beside the file", shown.startswith("DANGER  "), shown)
    checks.equal("a line for each amount and mix", [(int(r["amount"]), int(r["mix"])) for r in rows],
                 [(amount, mix) for amount in range(10, 151, 10) for mix in (1, 4, 9)])
    _, output, _ = tool.run(MAP + ["--json"])
    answer = json.loads(output)
    cells = {row["mix"]: list(cells_of(row)) for row in answer["result"]["mixes"]}
    for row in rows:
        words = ["mix", "examples/three-notes.json", "--amount", row["amount"], "--mix", row["mix"],
                 "--deadline", "500ms", "--json"]
        result = json.loads(tool.run(words)[1])["result"]
        name = f"{row['amount']}, mix {row['mix']}"
        text_of = {key: "" if result[key] is None else str(result[key])
                   for key in ("outcome", "paid", "remainder", "returned", "registry")}
        checks.equal(f"{name}: as mix says", {key: row[key] for key in text_of}, text_of)
        checks.equal(f"{name}: items", [row[f"v{slot}"] for slot in range(6)],
                     ["" if items is None else str(items) for items in result["values"]])
        known = cells[int(row["mix"])][int(row["amount"]) // 10 - 1][1]
        expected = None if result["returned"] is None else {
            key: result[key] for key in ("values", "remainder", "returned", "registry")}
        checks.equal(f"{name}: in the path", known, expected)


def check_counts(tool, checks):
    answer = json.loads(tool.run(MAP + ["--json"])[1])
    for row in answer["result"]["mixes"]:
        letters = "".join(letter * length for letter, length in row["runs"])
        checks.equal(f"mix {row['mix']}: counts", sum(row["counts"].values()), len(letters))
        checks.equal(f"mix {row['mix']}: every X has a deadline",
                     sum(length for _, length in row["deadlines"]), letters.count("X"))
        checks.equal(f"mix {row['mix']}: dangers", len(row["dangers"]),
                     letters.count("O") + letters.count("D"))


def check_deadlines(tool, checks):
    def deadlines_of(*words):
        output = tool.run(["map", *words, "--mixes", "4", "--jobs", "1", "--json"])[1]
        return json.loads(output)["result"]["mixes"][0]["deadlines"]

    # With counts of 2^31 nobody knows without a call that none of these is ever answered.
    checks.equal("three misses at the whole deadline, the others at a tenth",
                 deadlines_of("endless.json", "--from", "6", "--to", "46", "--step", "4"),
                 [["100ms", 3], ["10ms", 8]])
    checks.equal("what is known takes no time",
                 deadlines_of("examples/four-notes.json", "--to", "600"), [["0s", 24]])


def check_forms(tool, checks):
    text = tool.run(MAP)[1]
    tool.run(MAP + ["--output", "map.txt", "--color", "always"])
    checks.equal(".txt", (tool.folder / "map.txt").read_text(), text)
    output = tool.run(MAP + ["--output", "map.json", "--json"])[1]
    checks.equal(".json", (tool.folder / "map.json").read_text(), output)
    checks.equal("nothing is left beside", list(tool.folder.glob("*.part*")), [])
    for jobs in ("1", "3"):
        checks.equal(f"--jobs {jobs}", tool.run(MAP + ["--jobs", jobs])[1], text)


def check_registry(tool, checks):
    words = ["map", "EUR:50x1", "--mix", "1", "--from", "50", "--step", "10",
             "--registry-out", "left.reg"]
    tool.run(words + ["--to", "60"])
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("the last code is left", '"CDM"=hex(1):39,37,31,41,32' in left, left)
    tool.run(words + ["--to", "50"])
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("none is left when all is paid", '"CDM"=' not in left, left)


def check_trace(tool, checks):
    words = ["map", "EUR:50x9,20x9,10x4", "--to", "400", "--trace"]
    checks.equal("--trace: the lines of several workers are not mixed up",
                 tool.run(words + ["--jobs", "3"])[2], tool.run(words + ["--jobs", "1"])[2])


def check_interrupt(tool, checks):
    # 1002 hangs; the amounts before it are done.
    words = FAKE + ["--from", "990", "--to", "1020", "--step", "1", "--deadline", "60s"]
    for form, extra in (("text", []), ("JSON", ["--json", "--output", "cut.csv"])):
        status, output, _ = tool.interrupt(words + extra, 1)
        checks.equal(f"Ctrl-C, {form}: exit status", status, 130)
        if form == "text":
            checks.equal("Ctrl-C: last line", output.decode().split("\n")[-2],
                         "interrupted at 1002 EUR, 12 of 31 amounts")
        else:
            answer = json.loads(output)
            checks.equal("Ctrl-C: complete", answer["complete"], False)
            checks.equal("Ctrl-C: kept", answer["result"]["mixes"][0]["runs"], [[".", 11], ["C", 1]])
            checks.equal("Ctrl-C: the file", len(rows_of(tool, "cut.csv")), 12)
    words = FAKE + ["--from", "1002", "--to", "1002", "--deadline", "60s"]
    checks.equal("Ctrl-C before the first answer", tool.interrupt(words, 0.5),
                 (130, b"", b"qxmix: interrupted\n"))


def check_progress(tool, checks):
    # The amount that hangs takes long enough for the line to appear.
    words = FAKE + ["--from", "1002", "--to", "1008", "--step", "6", "--deadline", "100ms"]
    shown = shown_at_terminal(tool, words, "stderr")
    checks.check("progress at a terminal", "\rmap  50%  1/2  " in shown and "(X 1)" in shown, shown)
    checks.check("progress is wiped", shown.endswith("\r\x1b[K"), repr(shown))
    narrow = shown_at_terminal(tool, words, "stderr", columns=12)
    checks.check("progress stays within a narrow line", "\rmap  50%  1" in narrow and
                 all(len(line) < 12 for line in narrow.replace("\x1b[K", "").split("\r")), repr(narrow))
    checks.equal("no progress at a terminal that cannot write over a line",
                 shown_at_terminal(tool, words, "stderr", environment={"TERM": "dumb"}), "")
    checks.equal("no progress with -q", shown_at_terminal(tool, words + ["-q"], "stderr"), "")
    checks.equal("no progress in a pipe", tool.run(words)[2], "")


run_parts(check_against_mix, check_counts, check_deadlines, check_forms, check_registry, check_trace,
          check_interrupt, check_progress)
