#!/usr/bin/env python3
"""What `qxmix replay` finds in a CSV journal of what was dispensed."""

import csv
import io
import json

from tool_runner import run_parts

# Mix 1 pays 70 with 50 and 20, and 60 with 3 x 20 once there are no tens and no fifties.
PLAIN = "EUR:50x10,20x10,20x5,10x2"
HANG = 1002


def write(tool, *lines, name="journal.csv"):
    (tool.folder / name).write_text("".join(line + "\n" for line in lines), newline="")


def replay(tool, *words, dispenser=PLAIN):
    status, output, errors = tool.run(["replay", "journal.csv", "--dispenser", dispenser, "--json",
                                       *words])
    return status, json.loads(output) if output else None, errors


def changes(result):
    return [(line["line"], line["change"]) for line in result["differences"]]


def check_ways(tool, checks):
    """The three ways to tell what was dispensed come to the same."""
    ways = {"per note in one text": ["amount,dispensed", "70,1x50 1x20", "80,1x50 1x20 1x10", "30,3x10",
                                     "40,2x20"],
            "per note in columns": ["50,20,10,amount", "1,1,,70", "1,1,1,80", ",,3,30", "0,2,-,40"],
            "per cassette": ["amount;c0;c1;c2;c3", "70;1;1;0;0", "80;1;1;0;1", "30;0;0;0;3",
                             "40;0;2;0;0"]}
    for name, lines in ways.items():
        write(tool, *lines)
        status, answer, errors = replay(tool)
        result = answer["result"]
        checks.equal(f"{name}: status", (status, errors), (1, ""))
        checks.equal(f"{name}: what has changed", changes(result), [(4, "otherNotes")])
        checks.equal(f"{name}: counts", [result[key] for key in ("requests", "same", "otherNotes")],
                     [4, 3, 1])
        checks.equal(f"{name}: the counts follow the journal", result["end"], [8, 6, 5, 0])
    write(tool, "amount,c1,c2", "20,1,", "20,,1")
    checks.equal("per cassette: another cassette is a difference", changes(replay(tool)[1]["result"]),
                 [(3, "otherNotes")])
    write(tool, "amount,20", "20,1", "20,1")
    checks.equal("per note: another cassette is none", changes(replay(tool)[1]["result"]), [])


def check_changes(tool, checks):
    write(tool, "amount,dispensed,code", "70,1x50 1x20,", "70,,", "70,7x10,", "30,1x20 1x10,0",
          "5,,971A2", "5,,-306", "5,,971A3", "5,,", "1000,20x50,")
    status, answer, _ = replay(tool, dispenser="EUR:50x30,20x10,10x20")
    result = answer["result"]
    checks.equal("changes", (status, changes(result)),
                 (1, [(3, "refusedThoughPaid"), (4, "otherNotes"), (6, "otherEnd"), (7, "otherEnd"),
                      (8, "otherEnd")]))
    write(tool, "amount,dispensed,code", "30,,971A2", "30,,-306", "30,,971A3", "30,3x20,")
    result = replay(tool, dispenser="EUR:50x30,20x10")[1]["result"]
    checks.equal("a code is that of the registry or of the call", changes(result),
                 [(4, "otherEnd"), (5, "paidThoughRefused")])
    checks.equal("what is said of a line", result["differences"][1],
                 {"line": 5, "time": None, "amount": 30, "currency": "EUR", "mix": 1,
                  "change": "paidThoughRefused",
                  "recorded": {"notes": "3x20", "items": None, "code": None},
                  "now": {"outcome": "notDispensable", "notes": "refused 971A2", "items": [0, 0],
                          "paid": "0", "returned": -306, "code": "971A2"}})
    totals = {key: result[key] for key in ("requests", "same", "otherNotes", "paidThoughRefused",
                                           "refusedThoughPaid", "otherEnd")}
    checks.equal("totals", totals, {"requests": 4, "same": 2, "otherNotes": 0, "paidThoughRefused": 1,
                                    "refusedThoughPaid": 0, "otherEnd": 1})
    write(tool, "amount,dispensed", f"{HANG},", "5,1x5")
    status, answer, _ = replay(tool, "--library", "fake.so", "--deadline", "100ms",
                               dispenser="EUR:5x100")
    checks.equal("no answer now", changes(answer["result"]), [(2, "otherEnd"), (3, "otherNotes")])


def check_columns(tool, checks):
    write(tool, "Datum;Betrag;W;Algo;Fünfziger;Zwanziger;Filiale", "17.11.2026 10:00;70,00;EUR;3;1;1;x",
          "16.11.2026 09:00;50,00;;;1;0;x")
    status, answer, _ = replay(
        tool, "--columns", "time=Datum,amount=Betrag,currency=W,mix=Algo,50=Fünfziger,20=Zwanziger")
    checks.equal("columns of other names", (status, answer["result"]["same"]), (0, 2))
    checks.equal("what was made of it", [note["id"] for note in answer["warnings"]], ["QX702", "QX701"])
    for words, message in (
            (["--columns", "7=Fünfziger"],
             "--columns: 7 is no note of the dispenser; expected 50, 20, 10"),
            (["--columns", "tiem=Datum"], '--columns: unknown column "tiem"; did you mean "time"?'),
            ([], 'journal.csv:1: no column "amount"')):
        status, output, errors = tool.run(["replay", "journal.csv", "--dispenser", PLAIN,
                                           *words] + (["--columns", "amount=Betrag"] if "7=" in
                                                      "".join(words) else []))
        checks.check(f"{words}: refused", status == 2 and output == "", errors)
    write(tool, "amount,code", "70,")
    checks.equal("nothing tells what was dispensed",
                 tool.run(["replay", "journal.csv", "--dispenser", PLAIN])[::2],
                 (2, "qxmix: journal.csv: no column tells what was dispensed; expected dispensed, c0 "
                     "to c3, or one for each note: 50, 20, 10\n"))
    write(tool, "amount,c4", "70,1")
    checks.equal("a cassette that is not there",
                 tool.run(["replay", "journal.csv", "--dispenser", PLAIN])[::2],
                 (2, "qxmix: journal.csv:1: column c4: no such cassette; expected c0 to c3\n"))


BAD = [
    ("x,70,EUR,1,1x50 1x20", "time: x is not allowed; expected a time such as 2026-11-16 09:46"),
    ("Tue 10:00,seventy,EUR,1,", "amount: seventy is not allowed; expected "),
    ("Tue 10:00,70.50,EUR,1,", "amount: 70.50 cannot be paid; expected a multiple of 1 EUR"),
    ("Tue 10:00,70,euro,1,", "currency: euro is not allowed; expected three capital letters such as EUR"),
    ("Tue 10:00,70,EUR,one,", "mix: one is not allowed; expected "),
    ("Tue 10:00,70,EUR,1,1x7", "dispensed: 1x7 is not allowed; expected items such as 2x50 of the notes 50, 20, 10"),
    ("Tue 10:00,70,EUR,1,50", "dispensed: 50 is not allowed; expected items such as 2x50 "),
    ("Tue 10:00,70,EUR,1,5000000000x50", "dispensed: 5000000000x50 is not allowed; "),
    ("Tue 10:00,70", "2 columns; expected 5"),
    ("Tue 10:00,70,EUR,1,,more", "6 columns; expected 5"),
    ('Tue 10:00,"70"x,EUR,1,', "column 15: text behind a closing quote; expected two quotes"),
]


def check_bad_lines(tool, checks):
    head, good = "time,amount,currency,mix,dispensed", "Wed 10:00,70,EUR,1,1x50 1x20"
    for line, message in BAD:
        write(tool, head, good, line, good)
        status, output, errors = tool.run(["replay", "journal.csv", "--dispenser", PLAIN])
        checks.equal(f"{line}: passed over", (status, output),
                     (2, "2 lines are answered as the journal says\n1 bad line was passed over\n"))
        place = "qxmix: journal.csv:3:" + message.replace("column 15: ", "15: ").join(
            ["", ""] if message.startswith("column") else [" ", ""])
        checks.check(f"{line}: said", errors.startswith(place) and errors.count("\n") == 1, errors)
        status, answer, errors = replay(tool)
        bad = answer["result"]["badLines"]
        checks.equal(f"{line}: in JSON", (status, errors, len(bad), bad[0]["error"]["line"]),
                     (2, "", 1, 3))
        checks.check(f"{line}: its message", bad[0]["error"]["message"].startswith(message), bad)
    write(tool, head, *[line for line, _ in BAD])
    result = replay(tool)[1]["result"]
    checks.equal("all bad", (result["requests"], [bad["error"]["line"] for bad in result["badLines"]]),
                 (0, list(range(2, 2 + len(BAD)))))
    write(tool, head, good, 'Wed 11:00,"70', good, good)
    result = replay(tool)[1]["result"]
    checks.equal("a quote that is never closed", (result["requests"], result["badLines"][0]["error"]["line"]),
                 (1, 3))


def check_counts(tool, checks):
    write(tool, "amount,dispensed", "50,1x50", "50,1x50", "50,1x50", "40,2x20")
    status, answer, _ = replay(tool, dispenser="EUR:50x2,20x1,20x1")
    checks.equal("more than there was", (status, changes(answer["result"]), answer["result"]["end"]),
                 (1, [(4, "paidThoughRefused")], [0, 0, 0]))
    checks.equal("is told", [(note["id"], note["message"]) for note in answer["warnings"]],
                 [("QX704", "1 line takes more from a cassette than is left there, first line 4")])
    write(tool, "amount,dispensed", "20,1x20", "20,1x20", "20,1x20")
    result = replay(tool, dispenser='EUR:20x1,20x5')[1]["result"]
    checks.equal("the cassettes of the answer give", result["end"], [1, 2])
    (tool.folder / "low.json").write_text(json.dumps({"currency": "EUR", "mix": 5, "cassettes": [
        {"value": 50, "count": 4, "lowThreshold": 3}, {"value": 10, "count": 90}]}))
    write(tool, "amount,dispensed", "50,1x50", "50,5x10")
    checks.equal("a cassette gets low, and mix 5 does without it",
                 changes(replay(tool, dispenser="low.json")[1]["result"]), [])


def check_forms(tool, checks):
    write(tool, "time,amount,dispensed,code", 'Mon 10:00,70,7x10,"=1,2"', "Mon 11:00,70,1x50 1x20,",
          "Mon 12:00,5,,971A2")
    base = ["replay", "journal.csv", "--dispenser", "EUR:50x10,20x10,10x20"]
    text = tool.run(base + ["--output", "out.txt"])[1]
    checks.equal("text", ((tool.folder / "out.txt").read_text(), text.splitlines()[0]),
                 (text, "2 of 3 lines are answered otherwise than the journal says"))
    answer = json.loads(tool.run(base + ["--output", "out.json", "--json"])[1])
    checks.equal("JSON", json.loads((tool.folder / "out.json").read_text()), answer)
    tool.run(base + ["--output", "out.csv"])
    rows = list(csv.DictReader(io.StringIO((tool.folder / "out.csv").read_text())))
    checks.equal("CSV", [(row["line"], row["time"], row["change"], row["journal"], row["code"],
                          row["now"], row["returned"]) for row in rows],
                 [("2", "Mon 10:00", "otherNotes", "7x10", "'=1,2", "1x50 1x20", "0"),
                  ("4", "Mon 12:00", "otherEnd", "", "971A2", "", "0")])
    tool.run(base + ["--output", "out.html"])
    page = (tool.folder / "out.html").read_text()
    embedded = page.split('<script type="application/json" id="answer">')[1].split("</script>")[0]
    checks.equal("the page has the whole answer", json.loads(embedded)["result"], answer["result"])
    checks.check("the page has a summary without scripts",
                 '<th scope="row">other notes</th><td class="number">1</td>' in page, page[:9000])
    checks.check("the page names its command", "qxmix replay journal.csv --dispenser" in page)
    status, output, _ = tool.run(base + ["--stop"])
    checks.equal("--stop", (status, output.splitlines()[0]),
                 (1, "1 of 1 line is answered otherwise than the journal says; the rest was not asked"))
    tool.run(base + ["--registry-out", "left.reg"])
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("--registry-out", '"TraceLevel"' in left or "ErrorCode" in left, left)


def check_arguments(tool, checks):
    write(tool, "amount,dispensed", "70,1x50 1x20")
    for words, message in (
            (["journal.csv"], "--dispenser: missing beside journal.csv; expected the dispenser before "
                              "the first line of the journal"),
            (["examples/trace.ndjson", "--columns", "amount=x"], "--dispenser: missing beside --columns; "),
            (["examples/trace.ndjson", "--output", "x.html"], "--dispenser: missing beside --output; "),
            (["-", "--dispenser", "-"], "--dispenser: - is taken by the journal; expected a file"),
            (["journal.csv", "--dispenser", PLAIN, "--output", "x.pdf"], "--output: "),
            (["journal.csv", "--dispenser", PLAIN, "--library", "a", "--library", "b"], "--library: "),
            (["missing.csv", "--dispenser", PLAIN], "missing.csv: cannot be opened"),
            (["empty.reg", "--dispenser", PLAIN], "empty.reg:1: no column amount ")):
        status, output, errors = tool.run(["replay"] + words)
        checks.check(f"{words}", status in (2, 4) and output == "" and errors.count("\n") == 1 and
                     errors.startswith("qxmix: " + message), errors)
    write(tool, "amount,dispensed")
    checks.equal("no line", tool.run(["replay", "journal.csv", "--dispenser", PLAIN])[::2],
                 (2, "qxmix: journal.csv: no withdrawals; expected a line for each\n"))


def check_interrupt(tool, checks):
    write(tool, "amount,dispensed", "5,5x1", f"{HANG},", "5,5x1")
    status, output, errors = tool.interrupt(
        ["replay", "journal.csv", "--dispenser", "EUR:1x2000", "--library", "fake.so", "--deadline",
         "60s"], 0.8)
    checks.equal("Ctrl-C", (status, output.decode(), errors),
                 (130, "1 line is answered as the journal says\ninterrupted at line 3, 1 line asked\n",
                  b""))


run_parts(check_ways, check_changes, check_columns, check_bad_lines, check_counts, check_forms,
          check_arguments, check_interrupt)
