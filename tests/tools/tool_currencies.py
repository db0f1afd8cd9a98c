#!/usr/bin/env python3
"""`qxmix lint` and `map` over all currencies of a dispenser say what they say of each alone."""

import csv
import io
import json
import random
import xml.etree.ElementTree

from random_fleet import drawn_dispenser
from tool_runner import run_parts
from written_answers import rows_of

BORDER = "examples/border.json"
# What is the same whatever currency is asked is told once, of no currency.
OF_DISPENSER = {"QX101", "QX102", "QX301", "QX303", "QX304", "QX305", "QX306", "QX601", "QX602",
                "QX605", "QX801"}


def drawn_files(tool, count):
    """Files with cassettes of two currencies, and amounts of none, of one or of both."""
    draw = random.Random(11)
    names = []
    for number in range(count):
        dispenser = drawn_dispenser(draw)
        dispenser.pop("amounts", None)
        for cassette in dispenser["cassettes"]:
            cassette["currency"] = draw.choice(("EUR", "USD"))
        dispenser["cassettes"][0]["currency"] = draw.choice(("EUR", "USD"))
        amounts = {"min": 10, "max": 300, "step": 10, "buttons": [20, 50]}
        form = draw.choice((None, amounts, {"USD": amounts}, {"EUR": {"max": 200}, "USD": amounts}))
        if form is not None:
            dispenser["amounts"] = form
        name = f"drawn{number}.json"
        (tool.folder / name).write_text(json.dumps(dispenser))
        names.append(name)
    return [BORDER, *names]


def answer_of(tool, *words):
    status, output, errors = tool.run([*words, "--json"])
    answer = json.loads(output)
    assert status == answer["exitStatus"] and errors == "", (words, status, errors)
    return answer


def alone(tool, words, currency):
    return answer_of(tool, *words, "--currency", currency)


def without_deadlines(rows):
    return [{key: value for key, value in row.items() if key != "deadlines"} for row in rows]


def check_map(tool, checks):
    for name in drawn_files(tool, 3):
        words = ["map", name, "--mixes", "1,3,9", "--deadline", "2s"]
        answer = answer_of(tool, *words, "--output", "all.csv")
        if "currencies" not in answer["result"]:
            checks.equal(f"{name}: the form of one currency", answer["format"], "qxmix/answer/1")
            continue
        checks.equal(f"{name}: the form of several", answer["format"], "qxmix/answer/2")
        lines, warnings, statuses = [], [], []
        for asked, told in zip(answer["input"]["currencies"], answer["result"]["currencies"]):
            currency = told["currency"]
            one = alone(tool, [*words, "--output", "one.csv"], currency)
            checks.equal(f"{name}, {currency}: asked", asked, {"currency": currency, **{
                key: one["input"][key] for key in ("from", "to", "step")}})
            checks.equal(f"{name}, {currency}: amounts", told["amounts"], one["result"]["amounts"])
            checks.equal(f"{name}, {currency}: the same map", without_deadlines(told["mixes"]),
                         without_deadlines(one["result"]["mixes"]))
            lines += [{**row, "currency": currency} for row in rows_of(tool, "one.csv")]
            warnings += [{**warning, "message": f"{currency}: {warning['message']}",
                          "currency": currency} for warning in one["warnings"]]
            statuses.append(one["exitStatus"])
        checks.equal(f"{name}: CSV", rows_of(tool, "all.csv"), lines)
        checks.equal(f"{name}: warnings", answer["warnings"], warnings)
        checks.equal(f"{name}: the worst exit status", answer["exitStatus"], max(statuses))
    text = tool.run(["map", BORDER])[1].split("\n\n")
    for part, currency in ((0, "EUR"), (2, "CHF")):
        verdict, *rest = "\n\n".join(text[part:part + 2]).rstrip("\n").split("\n")
        own = tool.run(["map", BORDER, "--currency", currency])[1].rstrip("\n").split("\n")
        checks.check(f"text: the verdict on {currency}", f"  {currency}: " in verdict, verdict)
        checks.equal(f"text: the map of {currency}", rest[-12:], own[-12:])


def findings_alone(answer):
    return [{key: value for key, value in finding.items() if key not in ("message", "currency")}
            for finding in answer["result"]["findings"] if finding["id"] != "QX104"]


def check_lint(tool, checks):
    for name in drawn_files(tool, 5):
        words = ["lint", name, "--slow", "60s", "--deadline", "2s", "--mixes", "1,2,8"]
        answer = answer_of(tool, *words)
        findings = answer["result"]["findings"]
        for finding in findings:
            currency = finding.get("currency")
            checks.equal(f"{name} {finding['id']}: of a currency", currency is None,
                         finding["id"] in OF_DISPENSER or answer["format"] == "qxmix/answer/1")
            checks.check(f"{name} {finding['id']}: the message tells it",
                         currency is None or finding["message"].startswith(currency + ": "))
        cassettes = json.loads((tool.folder / name).read_text())["cassettes"]
        for number, asked in enumerate(answer["input"].get("currencies", [])):
            currency = asked["currency"]
            told = [finding for finding in findings
                    if finding.get("currency", currency if number == 0 else None) == currency]
            one = alone(tool, words, currency)["result"]["findings"]
            expected = {(f["id"], f["mix"], f["pointer"]) for f in one
                        if f["id"] != "QX104" and (number == 0 or f["id"] not in OF_DISPENSER)
                        and not is_of_other(f, cassettes, currency)}
            checks.equal(f"{name}, {currency}: the same findings",
                         {(f["id"], f["mix"], f["pointer"]) for f in told if f["id"] != "QX104"},
                         expected)


def is_of_other(finding, cassettes, currency):
    """Whether a finding is about a cassette of another currency, which is asked as well."""
    steps = (finding["pointer"] or "").split("/")
    return (steps[1:2] == ["cassettes"] and len(steps) > 2 and finding["id"] not in OF_DISPENSER
            and cassettes[int(steps[2])].get("currency", "EUR") != currency)


def check_lint_forms(tool, checks):
    def shown(form):
        return tool.run(["lint", BORDER, "--format", form])[1]

    findings = answer_of(tool, "lint", BORDER)["result"]["findings"]
    messages = [finding["message"] for finding in findings]
    checks.equal("there is something to tell", [m[:5] for m in messages], ["CHF: "] * 2)
    rows = list(csv.DictReader(io.StringIO(shown("csv"))))
    checks.equal("CSV", [row["message"] for row in rows], messages)
    lines = (tool.folder / BORDER).read_text().split("\n")
    checks.check("the field of the currency is found",
                 '"CHF"' in lines[int(rows[0]["line"]) - 1] and
                 lines[int(rows[0]["line"]) - 1][int(rows[0]["column"]) - 1:].startswith("30"), rows)
    results = json.loads(shown("sarif"))["runs"][0]["results"]
    checks.equal("SARIF", [r["message"]["text"].split("; do: ")[0] for r in results], messages)
    checks.equal("SARIF: property", [r["properties"].get("currency") for r in results], ["CHF"] * 2)
    case = xml.etree.ElementTree.fromstring(shown("junit")).find(".//testcase/failure")
    checks.check("JUnit", all(message in case.text for message in messages), case.text)
    checks.check("annotations", all(message in shown("github") for message in messages))
    checks.check("page", all(message in shown("html") for message in messages))
    fleet = answer_of(tool, "lint", BORDER, "examples/euro.json")
    checks.equal("a fleet has the form of one", fleet["format"], "qxmix/answer/1")
    checks.equal("a fleet: findings", fleet["result"]["dispensers"][0]["findings"], findings)
    row = tool.run(["lint", BORDER, "examples/euro.json"])[1].split("\n")[3]
    checks.check("a fleet: the row", "QX503 CHF: dead button" in row, row)


def accepted(tool, *words):
    findings = answer_of(tool, "lint", *words)["result"]["findings"]
    return [finding.get("currency") for finding in findings if "accepted" in finding]


def check_baseline(tool, checks):
    (tool.folder / "dead.json").write_text(json.dumps({
        "currency": "EUR", "mix": 1, "cassettes": [{"value": 50, "count": 9},
                                                   {"value": 50, "count": 9, "currency": "USD"}],
        "amounts": {"EUR": {"buttons": [30]}, "USD": {"buttons": [30]}}}))
    def keep(file, *words):
        (tool.folder / file).write_text(tool.run(["lint", "dead.json", "--json", *words])[1])

    keep("all.base")
    keep("own.base", "--currency", "EUR")
    both = ["EUR", "USD"]
    checks.equal("of all currencies", sorted(set(accepted(tool, "dead.json", "--baseline", "all.base"))),
                 both)
    checks.equal("of the own currency only",
                 set(accepted(tool, "dead.json", "--baseline", "own.base")), {"EUR"})
    checks.equal("of all, asked in the own",
                 set(accepted(tool, "dead.json", "--baseline", "all.base", "--currency", "EUR")),
                 {None})
    (tool.folder / "fleet.base").write_text(
        tool.run(["lint", "dead.json", BORDER, "--json"])[1])
    checks.equal("of a fleet", sorted(set(accepted(tool, "dead.json", "--baseline", "fleet.base"))),
                 both)


def check_table(tool, checks):
    words = ["map", BORDER, "--mix", "1", "--output", "border.mixtable.json"]
    checks.equal("a table of several currencies", tool.run(words), (
        2, "", "qxmix: --output: a mix table is of one currency; expected --currency with one of "
               "EUR, CHF\n"))
    status, _, _ = tool.run([*words, "--currency", "CHF"])
    table = json.loads((tool.folder / "border.mixtable.json").read_text())
    checks.equal("a table of one", [status, table["mixHeader"]], [1, [100, 50, 20]])


def check_interrupt(tool, checks):
    # 1002 hangs, in the first currency; nothing is asked in the second.
    (tool.folder / "hangs.json").write_text(json.dumps({
        "currency": "EUR", "maxDispenseItems": 2000,
        "cassettes": [{"value": 1, "count": 2000}, {"value": 1, "count": 2000, "currency": "USD"}],
        "amounts": {"EUR": {"min": 990, "max": 1020}}}))
    words = ["hangs.json", "--library", "fake.so", "--mixes", "1", "--jobs", "1", "--deadline", "60s"]
    for command in ("map", "lint"):
        status, output, _ = tool.interrupt([command, *words], 1)
        checks.equal(f"Ctrl-C, {command}", [status, output.decode().split("\n")[-3:-1]],
                     [130, ["interrupted at 1002 EUR, 12 of 31 amounts", "nothing asked in USD"]])
        answer = json.loads(tool.interrupt([command, *words, "--json"], 1)[1])
        checks.equal(f"Ctrl-C, {command}: JSON", [answer["complete"], [
            one["currency"] for one in answer["input"]["currencies"]]], [False, ["EUR"]])


def check_others(tool, checks):
    """Commands that ask in one currency take the amounts of that, and write all of them."""
    dispenser = answer_of(tool, "mix", BORDER, "--amount", "100")["input"]["dispenser"]
    checks.equal("input", dispenser["amounts"],
                 json.loads((tool.folder / BORDER).read_text())["amounts"])
    tool.run(["mix", BORDER, "--amount", "100", "--currency", "CHF", "--raw-out", "asked.bin"])
    for command in ("map", "lint"):
        answer = answer_of(tool, command, "--raw-in", "asked.bin", "--to", "300")
        checks.equal(f"{command} of a captured request", [
            answer["format"], answer["input"]["dispenser"]["currency"]], ["qxmix/answer/1", "CHF"])
    answer = answer_of(tool, "compare", BORDER, BORDER, "--currency", "CHF")
    checks.equal("compare", [answer["input"][key] for key in ("from", "to", "step")], [20, 500, 10])
    tool.run(["fill", BORDER, "--demand", "examples/week.json", "--days", "1", "--runs", "2",
              "--service", "90", "--save", "saved.json"])
    saved = json.loads((tool.folder / "saved.json").read_text())
    checks.equal("fill --save", saved["amounts"], dispenser["amounts"])


if __name__ == "__main__":
    run_parts(check_map, check_lint, check_lint_forms, check_baseline, check_table, check_interrupt,
              check_others)
