#!/usr/bin/env python3
"""What the options of `qxmix lint` change, and where an answer tells them."""

import html
import json
import re

from tool_runner import run_parts


def check_command_line(tool, checks):
    """A page tells the command that makes it again, of one dispenser and of many."""
    asking = ["--currency", "EUR", "--exponent", "0", "--limit", "30", "--partial", "--deadline",
              "90ms", "--registry", "examples/device.reg"]
    (tool.folder / "no.before").write_text(json.dumps({"command": "lint", "result": {
        "findings": [], "dispensers": []}}))
    for words in (["examples/euro.json"], ["EUR:50x10", "EUR:20x10", "--mix", "4"],
                  ["EUR:50x10", "--mix", "4", "--from", "50"],
                  ["EUR:50x10", "--mixes", "1,4", "--from", "50", "--to", "200", "--step", "50",
                   "--slow", "30ms", "--baseline", "no.before", *asking],
                  ["EUR:50x10", "--raw-in", "captured.bin", "--to", "200"]):
        if "--raw-in" in words:
            tool.run(["mix", "EUR:50x10", "--amount", "50", "--raw-out", "captured.bin"])
        for form in (["--output", "page.html"], ["--format", "html"]):
            _, output, errors = tool.run(["lint", *words, *form])
            page = (tool.folder / "page.html").read_text() if form[0] == "--output" else output
            checks.equal(f"{words}: no error", errors, "")
            told = html.unescape(page)
            line = " ".join(["qxmix", "lint", *words])
            checks.check(f"{words}: the page has its command", re.search(
                rf"(?<![\w-]){re.escape(line)}(?! --)", told),
                re.findall(r"qxmix lint [^<\n]*", told))


def check_one_and_many(tool, checks):
    """What the envelope says of one dispenser, of its currencies, and of many."""
    one = json.loads(tool.run(["lint", "EUR:50x10", "--json"])[1])
    several = json.loads(tool.run(["lint", "EUR:50x10,USD50x10", "--json"])[1])
    asked = json.loads(tool.run(["lint", "EUR:50x10,USD50x10", "--currency", "EUR", "--json"])[1])
    many = json.loads(tool.run(["lint", "EUR:50x10", "EUR:50x20", "--json"])[1])
    checks.equal("one and in one currency: the version", one["format"],
                 asked["format"])
    checks.check("several currencies have another", several["format"] !=
                 one["format"], several["format"])
    findings = json.loads(tool.run(["lint", "EUR:50x1,20x1,USD50x1,USD20x1", "--from", "30",
                                    "--to", "30", "--mix", "1", "--json"])[1])["result"]["findings"]
    checks.equal("and what is found is told of each", [
        finding["currency"] for finding in findings if finding["id"] == "QX512"], ["EUR", "USD"])
    checks.equal("complete", [answer["complete"] for answer in (one, several, asked, many)],
                 [True] * 4)
    checks.equal("the exit status is told", [answer["exitStatus"] for answer in (one, many)], [
        tool.run(["lint", *words])[0] for words in (["EUR:50x10"], ["EUR:50x10", "EUR:50x20"])])


def check_range(tool, checks):
    """Refusals of amounts that somebody named are warnings, those of any others notes."""
    plain = {"currency": "EUR", "cassettes": [{"value": 50, "count": 10}, {"value": 20, "count": 9}]}
    for amounts, words, severity in (
            ({}, [], "note"), ({"buttons": [30]}, [], "note"), ({"min": 10}, [], "warning"),
            ({"max": 100}, [], "warning"), ({"step": 10}, [], "warning"),
            ({}, ["--from", "10"], "warning"), ({}, ["--to", "100"], "warning"),
            ({}, ["--step", "10"], "warning")):
        (tool.folder / "range.json").write_text(json.dumps({**plain, "amounts": amounts}))
        answer = json.loads(tool.run(["lint", "range.json", "--mix", "1", *words, "--json"])[1])
        checks.equal(f"{amounts} {words}: a refusal is a", [
            finding["severity"] for finding in answer["result"]["findings"]
            if finding["id"] == "QX512"], [severity])


if __name__ == "__main__":
    run_parts(check_command_line, check_one_and_many, check_range)
