#!/usr/bin/env python3
"""Names that somebody has made to do harm move, turn, calculate and run nothing, in any output."""

import csv
import html.parser
import io
import json
import re
import xml.etree.ElementTree

from tool_runner import run_parts

# Names that would be a formula, an element, a script's end, a colour, a turned or a broken line.
MOVING = "\x1b\x07\u009b\u202e\u2066\u2028"
LABEL = "=1<img src=x>" + MOVING + "\",;'\n&"
NAME = "=cmd|'/C x'!A0</script><img src=x onerror=alert(1)>" + LABEL
FILE = "=h<img src=x>" + MOVING + "\",;'&%0A\n"
ELEMENT = "<img"


def hostile_dispenser():
    return {"name": NAME, "currency": "EUR", "mix": 1, "lint": {"accept": {"QX205": NAME[:200]}},
            "amounts": {"min": 10, "max": 100, "step": 10, "buttons": [30]},
            "cassettes": [{"label": LABEL, "value": value, "count": 40, "capacity": 100}
                          for value in (50, 20)]}


def write_hostile_files(tool):
    """The files, and the words of command lines over them, each with the forms of its output."""
    folder = tool.folder
    dispenser, other, journal = FILE + ".json", FILE + "o.json", FILE + ".csv"
    (folder / dispenser).write_text(json.dumps(hostile_dispenser()))
    (folder / other).write_text(json.dumps({**hostile_dispenser(), "maxDispenseItems": 1}))
    (folder / journal).write_text(
        f"time,amount,{NAME.replace(',', '').splitlines()[0]!r},dispensed\n"
        f"Mon 09:00,70,\"{NAME}\",1x50 1x20\nMon 10:00,40,x,1x20\nMon 10:01,{LABEL[:8]},x,1x20\n")
    (folder / (FILE + ".table.csv")).write_text("amount;50;20\n70;1;1\n60;0;3\n")
    demand = ["--demand", "examples/week.json", "--mixes", "1,2"]
    rest = ["txt", "json", "csv"]
    return [
        (["map", dispenser], [*rest, "html"]),
        (["map", dispenser, "--mix", "1"], ["mixtable.json", "mixtable.csv"]),
        (["lint", dispenser], [*rest, "html", "sarif", "xml"]),
        (["lint", dispenser, other, FILE + "none", "--all"], [*rest, "html", "sarif", "xml"]),
        (["simulate", dispenser, *demand], [*rest, "html"]),
        (["simulate", dispenser, other, FILE + "none", *demand], [*rest, "html"]),
        (["fill", dispenser, *demand[:2], "--days", "1", "--runs", "2"], [*rest, "html"]),
        (["compare", dispenser, other], rest),
        (["compare", dispenser, "--table", FILE + ".table.csv"], rest),
        (["replay", journal, "--dispenser", dispenser], [*rest, "html"]),
    ]


def is_shown_clean(text):
    return not set(text) & set(MOVING) and all(letter >= " " or letter == "\n" for letter in text)


def check_csv(checks, name, text):
    rows = list(csv.reader(io.StringIO(text), delimiter=";" if ".table" in name else ","))
    checks.check(f"{name}: whole rows", rows and {len(row) for row in rows} == {len(rows[0])}, text)
    cells = [cell for row in rows for cell in row]
    checks.check(f"{name}: no formula", not any(re.match(r"[=@\t\r]|[+-][^0-9]", cell)
                                                for cell in cells), text)
    checks.check(f"{name}: nothing moves", not set(text) & set(MOVING), text)


class Elements(html.parser.HTMLParser):
    """The elements of a page, and what it holds as data."""

    def __init__(self, text):
        super().__init__()
        self.names, self.data, self.place = [], {}, None
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        self.names.append(tag)
        self.place = dict(attrs).get("id") if tag == "script" else None

    def handle_data(self, data):
        if self.place:
            self.data[self.place] = self.data.get(self.place, "") + data


def check_page(checks, name, text):
    page = Elements(text)
    checks.check(f"{name}: no element of a name", "img" not in page.names and ELEMENT not in text)
    checks.check(f"{name}: the data is whole", page.data and all(
        json.loads(data) for data in page.data.values()), page.data.keys())
    checks.check(f"{name}: nothing moves", not set(text) & set(MOVING))


def check_file(checks, name, form, text):
    if form.endswith("csv"):
        check_csv(checks, name, text)
    elif form == "html":
        check_page(checks, name, text)
    elif form == "xml":
        root = xml.etree.ElementTree.fromstring(text)
        checks.check(f"{name}: nothing moves", is_shown_clean(text), text)
        checks.equal(f"{name}: no element of a name", root.findall(".//img"), [])
    elif form == "txt":
        checks.check(f"{name}: nothing moves", is_shown_clean(text), text)
    else:
        # Texts are those of the input; what could end a line or a string is written as JSON has it.
        json.loads(text)
        checks.check(f"{name}: no control stands in it",
                     all(letter >= " " or letter == "\n" for letter in text), text)


def check_names(tool, checks):
    """Names that move, turn, calculate or run, in every form of every command that writes files."""
    for words, forms in write_hostile_files(tool):
        for form in forms:
            name = f"{words[0]} {len(words)} .{form}"
            file = tool.folder / f"out.{form}"
            file.unlink(missing_ok=True)
            status, output, errors = tool.run([*words, "--output", file.name])
            checks.check(f"{name}: written", file.exists() and status != 4, errors)
            checks.check(f"{name}: text", is_shown_clean(output + errors), output + errors)
            if file.exists():
                check_file(checks, name, form, file.read_text(encoding="utf-8"))
    dispenser = FILE + ".json"
    answer = json.loads(tool.run(["mix", dispenser, "--amount", "70", "--json"])[1])
    checks.equal("JSON has the names as they are", [answer["input"]["dispenser"]["name"],
                 answer["input"]["dispenser"]["cassettes"][0]["label"]], [NAME, LABEL])
    annotations = tool.run(["lint", FILE + "o.json", "--format", "github"])[1].split("\n")
    checks.check("annotations: nothing moves", is_shown_clean("".join(annotations)), annotations)
    checks.check("annotations: a command a line", len(annotations) > 1 and annotations.pop() == "" and
                 all(line.startswith(("::error ", "::warning ", "::notice ")) for line in annotations),
                 annotations)
    request = json.dumps({"id": NAME, "dispenser": hostile_dispenser(), "amount": 70})
    output = tool.run(["batch", "--envelope"], stdin=request.encode() + b"\n")[1]
    checks.check("batch: a line", output.count("\n") == 1 and json.loads(output)["id"] == NAME, output)


if __name__ == "__main__":
    run_parts(check_names)
