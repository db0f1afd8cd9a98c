#!/usr/bin/env python3
"""Mix tables: what `qxmix map` writes, and what `qxmix compare --table` tells of them."""

import csv
import io
import json
import random

import jsonschema

from random_fleet import drawn_dispenser
from tool_runner import run_parts

DISPENSER = "EUR:100x30,50x30,20x2,2x50:coinDispenser"
RANGE = ["--from", "2", "--to", "300", "--step", "2"]
COUNTS = ("same", "notThere", "notPaid", "other", "missing")

# A table is of one currency; what is drawn may have another one.
IN_EURO = ("--currency", "EUR")


def write_table(tool, dispenser, mix, file, words=()):
    status, _, errors = tool.run(["map", dispenser, "--mix", str(mix), "--output", file, *words])
    assert errors == "" and status in (0, 1, 3), errors
    return (tool.folder / file).read_text(encoding="utf-8")


def compare(tool, dispenser, mix, file, words=()):
    status, output, errors = tool.run(
        ["compare", dispenser, "--mix", str(mix), "--table", file, "--json", *words])
    assert errors == "", errors
    return status, json.loads(output)


def paid_rows(tool, dispenser, cassettes, mix):
    """What the map's CSV says is paid exactly, by the worth of the notes."""
    tool.run(["map", dispenser, "--mix", str(mix), "--output", "paid.csv", *IN_EURO])
    rows = {}
    for row in csv.DictReader(io.StringIO((tool.folder / "paid.csv").read_text())):
        if row["outcome"] == "paid":
            notes = {}
            for slot, cassette in enumerate(cassettes):
                if count := int(row[f"v{slot}"]):
                    notes[cassette["value"]] = notes.get(cassette["value"], 0) + count
            rows[int(row["amount"])] = notes
    return rows


def rows_of_table(table):
    return {row["amount"]: {note: count for note, count in zip(table["mixHeader"], row["mixture"])
                            if count} for row in table["mixRows"]}


def check_drawn(tool, checks):
    """Tables of random dispensers hold what the map says, and compare as the same."""
    schema = json.loads((tool.arguments.source / "schema/mixtable.schema.json").read_text())
    answers = json.loads((tool.arguments.source / "schema/answer.schema.json").read_text())
    draw = random.Random(17)
    paid = 0
    for number in range(8):
        dispenser = drawn_dispenser(draw)
        dispenser["cassettes"][0].pop("currency", None)
        dispenser["amounts"] = {"min": 10, "max": 300, "step": 10}
        mix = draw.choice([1, 2, 3, 5, 6, 7, 8, 10])
        file = f"drawn-{number}.json"
        (tool.folder / file).write_text(json.dumps(dispenser))
        table = json.loads(write_table(tool, file, mix, "drawn.mixtable.json", IN_EURO))
        jsonschema.validate(table, schema)
        expected = paid_rows(tool, file, dispenser["cassettes"], mix)
        paid += len(expected)
        checks.equal(f"{file}: rows", rows_of_table(table), expected)
        checks.equal(f"{file}: mix", table["mixNumber"], mix)
        write_table(tool, file, mix, "drawn.mixtable.csv", IN_EURO)
        for form in ("json", "csv"):
            status, answer = compare(tool, file, mix, f"drawn.mixtable.{form}")
            jsonschema.validate(answer, answers)
            result = answer["result"]
            checks.equal(f"{file}: .{form} is the same", [result["same"], result["differences"]],
                         [30, []])
            checks.equal(f"{file}: .{form}, exit status", status, 3 if result["danger"] else 0)
    checks.check("something is paid", paid > 50, str(paid))


def check_changed(tool, checks):
    """Each change of a table is told, with the notes of both sides and why."""
    table = json.loads(write_table(tool, DISPENSER, 1, "own.mixtable.json", RANGE))
    header = table["mixHeader"]
    checks.equal("header", header, [100, 50, 20, 2])
    rows = rows_of_table(table)
    changes = {
        100: ({50: 2}, "other", None),
        102: (None, "missing", None),
        60: ({20: 3}, "notThere", "tooFew"),
        200: ({10: 20}, "notThere", "noNote"),
        90: ({50: 1, 2: 20}, "other", None),
        94: ({2: 47}, "notThere", "overLimit"),
        302: ({100: 3, 2: 1}, "same", None),
    }
    changed = {**rows, **{amount: notes for amount, (notes, _, _) in changes.items()}}
    notes = header + [10]
    (tool.folder / "bank.json").write_text(json.dumps({"mixHeader": notes, "mixRows": [
        {"amount": amount, "mixture": [held.get(note, 0) for note in notes]}
        for amount, held in changed.items() if held]}))
    expected = {amount: change for amount, change in changes.items() if change[1] != "same"}
    status, answer = compare(tool, DISPENSER, 1, "bank.json", RANGE)
    result = answer["result"]
    checks.equal("exit status", status, 1)
    told = [int(note) for note in result["notes"]]
    differences = {one["amount"]: one for one in result["differences"]}
    checks.equal("amounts", sorted(differences), sorted(expected))
    for amount, (held, change, lack) in expected.items():
        one = differences[amount]
        sides = [one[side] and {note: count for note, count in zip(told, one[side]) if count}
                 for side in ("table", "mix")]
        checks.equal(f"{amount}: change", [one["change"], one["lack"]], [change, lack])
        checks.equal(f"{amount}: notes", sides, [held, rows.get(amount)])
    checks.equal("all amounts", sum(result[name] for name in COUNTS), 151)
    order = [(COUNTS.index(one["change"]), one["amount"]) for one in result["differences"]]
    checks.equal("worst first", order, sorted(order))
    status, output, _ = tool.run(["compare", DISPENSER, "--table", "bank.json", "--output",
                                  "told.csv", *RANGE])
    told_rows = list(csv.DictReader(io.StringIO((tool.folder / "told.csv").read_text())))
    checks.equal("CSV", [[row["amount"], row["change"], row["lack"] or None] for row in told_rows],
                 [[str(one["amount"]), one["change"], one["lack"]]
                  for one in result["differences"]])
    checks.check("text tells why", "holds 2x20" in output and "no 10 is there" in output
                 and "over the limit of 40" in output, output)


def check_not_paid(tool, checks):
    """A row for what the mix refuses, though its notes are there; and a dangerous mix."""
    (tool.folder / "sixty.csv").write_text("amount;50;20\n60;0;3\n")
    status, answer = compare(tool, "EUR:50x10,20x10:low", 5, "sixty.csv",
                             ["--from", "60", "--to", "60"])
    one = answer["result"]["differences"][0]
    checks.equal("not paid", [status, one["change"], one["table"], one["mix"]],
                 [1, "notPaid", [3], None])
    status, answer = compare(tool, "examples/three-notes.json", 4, "sixty.csv",
                             ["--from", "110", "--to", "110"])
    checks.equal("dangerous", [status, answer["result"]["danger"] > 0], [3, True])


def check_cents(tool, checks):
    """Under a negative exponent the numbers are units of an amount; a coin is what it is worth."""
    words = ["--currency", "CHF", "--from", "7000", "--to", "7200", "--step", "50"]
    table = json.loads(write_table(tool, "examples/rappen.json", 1, "cents.mixtable.json", words))
    checks.equal("header", table["mixHeader"], [5000, 2000, 50])
    checks.equal("row", rows_of_table(table)[7050], {5000: 1, 2000: 1, 50: 1})
    status, answer = compare(tool, "examples/rappen.json", 1, "cents.mixtable.json", words)
    checks.equal("the same", [status, answer["result"]["differences"]], [0, []])


BAD = {
    "": "bad: no row; expected one of column names",
    "amout,50\n": 'bad:1: unknown column "amout"; did you mean "amount"?',
    "50,20\n": "bad:1: the first column is not amount; expected amount and then what each note is worth",
    "amount,50,\n50,1,\n": "bad:1: a column without a heading, or amount alone; "
                           "expected amount and then what each note is worth",
    "amount,x\n": 'bad:1: "x" is not allowed; expected a whole number, 1 to 4294967295',
    "amount,50,50\n": "bad:1: a note of 50 given twice; expected each note once",
    "amount,50,20\n70,1,1\n80,1,1\n": "bad:3: the notes make 70; expected the amount, 80",
    "amount,50\n50,1\n50,1\n": "bad:3: a second row for 50; expected each amount once",
    "amount,50\n50,one\n": 'bad:2: "one" is not allowed; expected a whole number, 0 to 65535',
    "amount,50,20\n50,1\n": 'bad:2: "" is not allowed; expected a whole number, 0 to 65535',
    "amount,50\n50,1,0\n": "bad:2: 3 columns; expected 2",
    "[]": "bad: a list is not allowed; expected an object",
    '{"mixRows":[]}': "bad: /mixHeader: missing; expected a list of what each note is worth",
    '{"mixHeader":[],"mixRows":[]}': "bad: /mixHeader: no notes; expected what each note is worth",
    '{"mixHeader":[50],"mixRows":7}': "bad: /mixRows: 7 is not allowed; expected a list of rows",
    '{"mixHeader":[50,50],"mixRows":[]}':
        "bad: /mixHeader/1: a note of 50 given twice; expected each note once",
    '{"mixHeader":[50],"mixRows":[{"amount":50,"mixture":[1,0]}]}':
        "bad: /mixRows/0/mixture: 2 numbers; expected 1, one for each note of mixHeader",
    '{"mixHeader":[50],"mixRows":[{"amount":60,"mixture":[1]}]}':
        "bad: /mixRows/0: the notes make 50; expected the amount, 60",
    '{"mixHeader":[50],"mixRows":[{"amount":50,"mixture":[1]},{"amount":50,"mixture":[1]}]}':
        "bad: /mixRows/1: a second row for 50; expected each amount once",
    '{"mixHeader":[0.5],"mixRows":[]}':
        "bad: /mixHeader/0: 0.5 is not allowed; expected a whole number, 1 to 4294967295",
}


def check_bad_input(tool, checks):
    for content, line in BAD.items():
        (tool.folder / "bad").write_text(content)
        status, output, errors = tool.run(["compare", "EUR:50x10", "--table", "bad"])
        checks.equal(f"{content!r}", [status, output, errors], [2, "", f"qxmix: {line}\n"])
    usage = {
        ("map", "EUR:50x10", "--output", "x.mixtable.json"):
            f"--output: {tool.last_mix()} mixes in a mix table; expected one, as with --mix 1",
        ("map", "EUR:5x10", "--exponent", "1", "--mix", "1", "--output", "x.mixtable.csv"):
            "--output: a note of 5 in a mix table; expected multiples of the unit of an amount, 10",
        ("map", "EUR:1x10", "--mix", "1", "--to", "70000", "--output", "x.mixtable.csv"):
            "--output: 70000 amounts in a mix table; expected at most 65535, as with --to or --step",
        ("map", "EUR:USD50x10", "--from", "10", "--to", "20", "--mix", "1", *IN_EURO, "--output",
         "x.mixtable.csv"): "--output: no note of EUR in a mix table; expected one",
        ("compare", "EUR:50x10", "EUR:50x10", "--table", "own.mixtable.json"):
            "B: given beside --table; expected one of them",
        ("compare", "EUR:50x10", "--mix", "all", "--table", "own.mixtable.json"):
            f"--table: {tool.last_mix()} mixes are asked; expected one, as with --mix 1",
    }
    for words, line in usage.items():
        checks.equal(" ".join(words), tool.run(words), (2, "", f"qxmix: {line}\n"))
    checks.check("nothing is written", not list(tool.folder.glob("x.*")))


def check_other_commands(tool, checks):
    """Where no mix table is written the name is that of the plain form."""
    tool.run(["compare", DISPENSER, DISPENSER, "--output", "plain.mixtable.json", *RANGE])
    plain = json.loads((tool.folder / "plain.mixtable.json").read_text())
    checks.equal("plain form", plain["command"], "compare")


if __name__ == "__main__":
    run_parts(check_drawn, check_changed, check_not_paid, check_cents, check_bad_input,
              check_other_commands)
