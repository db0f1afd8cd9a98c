#!/usr/bin/env python3
"""The forms of `qxmix lint` for other programs, against its JSON, and findings that are accepted."""

import csv
import io
import json
import re
import urllib.parse
import xml.etree.ElementTree

import jsonschema

from random_fleet import write_fleet
from tool_runner import HERE, run_parts

ODD_NAME = "odd/a b,c%20&<\u00e4>:\"'.json"
CARELESS = ("{\n"
            '  "name": "\u00e4, \\"q\\" {", "currency": "EUR", "exponent": -1,\n'
            '\t"x-notes": [{"mix": 1}, "]", 1e5],\n'
            '  "cassettes": [ {"value": 50, "count": 400}, {"value": 20, "status": "full", \n'
            '    "count": 30}, {"value":10,"count":5,"type":"coinDispenser"} ],  "mix"  :  9 }')


def names_of(tool):
    """A fleet with good and bad files, and one whose name is as odd as its content."""
    names = write_fleet(tool.folder / "fleet", 12, 7)
    (tool.folder / "odd").mkdir()
    (tool.folder / ODD_NAME).write_text(CARELESS, encoding="utf-8")
    return [*names, ODD_NAME, "bad.json", "nowhere.json", "examples/trouble.json",
            "EUR:50x10:full,20x10"]


def answer_of(tool, names, *words):
    return json.loads(tool.run(["lint", *names, *words, "--json"])[1])


def findings_of(answer):
    """Pairs of a file and a finding, in their order."""
    return [(element["file"], finding) for element in answer["result"]["dispensers"]
            for finding in element.get("findings", [])]


def place_of(text, pointer):
    """Line and column of a field, or of the nearest that is around it."""
    decoder, at = json.JSONDecoder(), re.search(r"\S", text).start()
    for step in [s.replace("~1", "/").replace("~0", "~") for s in (pointer or "").split("/")[1:]]:
        inner = at + 1
        for index in range(1000):
            inner = re.compile(r"[\s,]*").match(text, inner).end()
            if text[inner] in "]}":
                break
            key = str(index)
            if text[at] == "{":
                key, inner = decoder.raw_decode(text, inner)
                inner = re.compile(r"\s*:\s*").match(text, inner).end()
            if key == step:
                break
            inner = decoder.raw_decode(text, inner)[1]
        if text[inner] in "]}":
            break
        at = inner
    before = text[:at].split("\n")
    return [len(before), len(before[-1]) + 1]


def place_in_file(tool, name, pointer):
    file = tool.folder / name
    return place_of(file.read_text(encoding="utf-8"), pointer) if file.is_file() else None


def message_of(finding):
    return finding["message"] + (f"; do: {finding['advice']}" if finding["advice"] else "")


def check_sarif(tool, checks):
    names = names_of(tool)
    answer = answer_of(tool, names)
    status, _, errors = tool.run(["lint", *names, "--output", "fleet.sarif"])
    checks.equal("written", [status, errors], [answer["exitStatus"], ""])
    text = (tool.folder / "fleet.sarif").read_text(encoding="utf-8")
    checks.equal("--format", tool.run(["lint", *names, "--format", "sarif"])[1], text)
    log = json.loads(text)
    schema = json.loads((HERE / "sarif.schema.json").read_text())
    problems = [f"{list(e.absolute_path)}: {e.message}"
                for e in jsonschema.Draft202012Validator(schema).iter_errors(log)]
    checks.equal("has the published structure", problems, [])
    run = log["runs"][0]
    rules = run["tool"]["driver"]["rules"]
    told = []
    for result in run["results"]:
        rule = rules[result["ruleIndex"]]
        checks.equal("a result's rule", rule["id"], result["ruleId"])
        location = result["locations"][0]
        place = location.get("physicalLocation")
        name = location.get("logicalLocations", [{}])[0].get("fullyQualifiedName", "")
        told.append([urllib.parse.unquote(place["artifactLocation"]["uri"]) if place else None,
                     [place["region"]["startLine"], place["region"]["startColumn"]] if place else
                     None, name, result["ruleId"], result["level"], result["message"]["text"],
                     result.get("properties", {}).get("mix")])
    expected = []
    for file, finding in findings_of(answer):
        place = place_in_file(tool, file, finding["pointer"])
        expected.append([file if place else None, place,
                         ("" if place else file) + (finding["pointer"] or ""), finding["id"],
                         finding["severity"], message_of(finding), finding["mix"]])
    checks.equal("a result a finding, at its place", told, expected)
    checks.check("of the odd file, too", any(entry[0] == ODD_NAME for entry in told), told)
    failures = run["invocations"][0]["toolExecutionNotifications"]
    checks.equal("files that cannot be read", [f["message"]["text"].split(":")[0] for f in failures],
                 ["bad.json", "nowhere.json"])
    region = failures[0]["locations"][0]["physicalLocation"]["region"]
    checks.equal("and where", [region["startLine"], region["startColumn"]],
                 place_in_file(tool, "bad.json", "/cassettes/2/curency"))
    checks.equal("the run failed", run["invocations"][0]["executionSuccessful"], False)
    documented = dict(re.findall(r"^\| (QX\d{3}) \| \w+ \| (.*) \|$", (
        tool.arguments.source / "docs" / "qxmix.md").read_text(), re.MULTILINE))
    for rule in rules:
        checks.equal(f"{rule['id']}: as the documentation has it",
                     rule["shortDescription"]["text"], documented[rule["id"]].replace("`", ""))
        checks.check(f"{rule['id']}: help begins with it", rule["help"]["text"].startswith(
            rule["shortDescription"]["text"]), rule)
    tool.run(["lint", "examples/euro.json", "--output", "clean.sarif"])
    clean = json.loads((tool.folder / "clean.sarif").read_text())["runs"][0]
    checks.equal("of one that is clean", [clean["results"], clean["invocations"][0]], [
        [], {"executionSuccessful": True, "exitCode": 0, "toolExecutionNotifications": []}])


def check_junit(tool, checks):
    names = [*sorted(str(f.relative_to(tool.folder)) for f in (tool.folder / "fleet").iterdir()),
             ODD_NAME, "bad.json"]
    answer = answer_of(tool, names)
    text = tool.run(["lint", *names, "--format", "junit"])[1]
    tool.run(["lint", *names, "--output", "fleet.xml"])
    checks.equal("JUnit: a file", (tool.folder / "fleet.xml").read_text(encoding="utf-8"), text)
    root = xml.etree.ElementTree.fromstring(text.encode())
    cases = root.findall("testsuite/testcase")
    checks.equal("a case a dispenser", [case.get("name") for case in cases], names)
    for case, element in zip(cases, answer["result"]["dispensers"]):
        failing = [f for f in element.get("findings", []) if f["severity"] != "note"]
        notes = [f for f in element.get("findings", []) if f["severity"] == "note"]
        kind = "error" if "error" in element else "failure" if element["exitStatus"] else None
        checks.equal(f"{element['file']}: ends as lint does",
                     [child.tag for child in case if child.tag != "system-out"],
                     [kind] if kind else [])
        lines = (case.findtext("failure") or "").splitlines()
        checks.equal(f"{element['file']}: what fails", [line.split()[:2] for line in lines],
                     [[f["severity"], f["id"]] for f in failing])
        for line, finding in zip(lines, failing):
            checks.check("whole", message_of(finding) in line, f"{line}\n{finding}")
        lines = (case.findtext("system-out") or "").splitlines()
        checks.equal(f"{element['file']}: what does not", [line.split()[:2] for line in lines],
                     [[f["severity"], f["id"]] for f in notes])
    counts = {tag: sum(case.find(tag) is not None for case in cases) for tag in ("failure", "error")}
    for suite in (root, root.find("testsuite")):
        checks.equal("counts", [suite.get("tests"), suite.get("failures"), suite.get("errors")],
                     [str(len(cases)), str(counts["failure"]), str(counts["error"])])


def check_github(tool, checks):
    names = [ODD_NAME, "examples/trouble.json", "bad.json", "EUR:50x10:full,20x10"]
    answer = answer_of(tool, names)
    status, output, _ = tool.run(["lint", *names, "--format", "github"])
    checks.equal("github: exit status", status, answer["exitStatus"])
    told = []
    for line in output.splitlines():
        command, properties, message = re.fullmatch(r"::(\w+) ([^\n]*?)::(.*)", line).groups()
        fields = {key: urllib.parse.unquote(value) for key, value in
                  (field.split("=", 1) for field in properties.split(","))}
        told.append([command, fields["file"], fields.get("title"),
                     [int(fields["line"]), int(fields["col"])] if "line" in fields else None,
                     urllib.parse.unquote(message)])
    expected = []
    for element in answer["result"]["dispensers"]:
        file = element["file"]
        for finding in element.get("findings", [element.get("error")]):
            pointer = finding["pointer"]
            message = message_of({"advice": None, **finding})
            expected.append([{"note": "notice"}.get(finding.get("severity"),
                                                    finding.get("severity", "error")), file,
                             finding.get("id"), place_in_file(tool, file, pointer),
                             (f"{pointer}  " if pointer else "") + message])
    checks.equal("github: a command a finding", told, expected)


def check_csv(tool, checks):
    names = [ODD_NAME, "examples/trouble.json", "bad.json"]
    text = tool.run(["lint", *names, "--format", "csv"])[1]
    tool.run(["lint", *names, "--output", "fleet.csv"])
    checks.equal("CSV: a file", (tool.folder / "fleet.csv").read_text(encoding="utf-8"), text)
    told = list(csv.DictReader(io.StringIO(text)))
    findings = findings_of(answer_of(tool, names))
    checks.equal("CSV: a line a finding, and an error", len(told), len(findings) + 1)
    for line, (file, finding) in zip(told, findings):
        checks.equal("CSV: fields", [line["file"], line["id"], line["severity"], line["mix"],
                                     line["pointer"], line["message"], line["advice"]],
                     [file, finding["id"], finding["severity"], str(finding["mix"] or ""),
                      finding["pointer"] or "", finding["message"], finding["advice"] or ""])
    checks.equal("CSV: the error", [told[-1]["file"], told[-1]["severity"], told[-1]["pointer"]],
                 ["bad.json", "notAsked", "/cassettes/2/curency"])


def check_one(tool, checks):
    """One dispenser is written in the same forms as many."""
    for form, ending in (("sarif", "sarif"), ("junit", "xml"), ("csv", "csv")):
        one = tool.run(["lint", "examples/trouble.json", "--format", form])
        (tool.folder / "one").write_text("examples/trouble.json")
        checks.equal(f"{form}: of one", one, tool.run(["lint", "@one", "--format", form]))
        tool.run(["lint", "examples/trouble.json", "--output", f"one.{ending}"])
        checks.equal(f"{form}: a file", (tool.folder / f"one.{ending}").read_text(), one[1])
    plain = tool.run(["lint", "examples/trouble.json"])[1]
    checks.equal("--output .txt", tool.run(["lint", "examples/trouble.json", "--output", "o.txt"])[1],
                 plain)
    checks.equal("has the text", (tool.folder / "o.txt").read_text(), plain)
    for words, complaint in (
            (["--format", "xml"], "--format: xml is not allowed; expected one of text, json, csv, html, "
                                  "sarif, junit, github"),
            (["--format", "csv", "--json"], "--format: given beside --json; expected one of them"),
            (["--output", "F.pdf"], "--output: F.pdf is not allowed; expected a name that ends in "
                                     ".txt, .json, .csv, .html, .sarif or .xml")):
        checks.equal(str(words), tool.run(["lint", "examples/euro.json", *words]),
                     (2, "", f"qxmix: {complaint}\n"))


def check_accepted(tool, checks):
    trouble = json.loads((tool.folder / "examples" / "trouble.json").read_text())
    reason = "drawn from <later> & \"again\""
    trouble["lint"] = {"accept": {"QX201": reason, "QX203": "known", "QX502": "gone"}}
    (tool.folder / "accepting.json").write_text(json.dumps(trouble))
    status, output, _ = tool.run(["lint", "accepting.json"])
    checks.equal("accepted: the others decide", status, 3)
    checks.check("accepted: are counted", output.startswith(
        "2 errors, 1 note, 2 accepted for mix 4,"), output)
    checks.check("accepted: are not told", "QX201  /" not in output, output)
    checks.check("accepted: what is gone is a note", "note  QX801  /lint/accept/QX502  QX502 is "
                 "accepted, and no longer found: gone\n" in output, output)
    told = tool.run(["lint", "accepting.json", "--all"])[1]
    checks.check("accepted: --all has the reason", f"      ok     {reason}\n" in told, told)
    checks.check("accepted: and what it is about",
                 "error QX201  /cassettes/1/status  50 EUR is full" in told, told)
    for ids, expected in ((["QX201", "QX203", "QX401", "QX501"], 0), (["QX201", "QX401"], 3)):
        trouble["lint"] = {"accept": {id: "wanted" for id in ids}}
        (tool.folder / "all.json").write_text(json.dumps(trouble))
        status, output, _ = tool.run(["lint", "all.json"])
        checks.equal(f"{ids}: exit status", status, expected)
        answer = json.loads(tool.run(["lint", "all.json", "--json"])[1])
        checks.equal(f"{ids}: in JSON", {f["id"] for f in answer["result"]["findings"]
                                         if f.get("accepted") == "wanted"}, set(ids))
        checks.equal(f"{ids}: in the input", answer["input"]["dispenser"]["lint"], trouble["lint"])
    told = tool.run(["lint", "all.json", "accepting.json"])[1]
    checks.check("accepted: over many", told.startswith("Of 2 dispensers 2 have errors; 4 findings "
                                                        "accepted\n"), told)
    log = json.loads(tool.run(["lint", "accepting.json", "--format", "sarif"])[1])
    checks.equal("accepted: are suppressed in SARIF",
                 [result["suppressions"] for result in log["runs"][0]["results"]
                  if "suppressions" in result],
                 [[{"kind": "external", "justification": text}] for text in (reason, "known")])
    annotations = tool.run(["lint", "accepting.json", "--format", "github"])[1]
    checks.check("accepted: no command of a workflow", "QX201::" not in annotations, annotations)


def check_baseline(tool, checks):
    names = ["examples/trouble.json", "examples/no-tens.json"]
    (tool.folder / "many.before").write_text(tool.run(["lint", *names, "--json"])[1])
    (tool.folder / "one.before").write_text(tool.run(["lint", names[0], "--json"])[1])
    for words in ([*names, "--baseline", "many.before"], [names[0], "--baseline", "many.before"],
                  [names[0], "--baseline", "one.before"]):
        status, output, _ = tool.run(["lint", *words])
        checks.equal(f"{words}: nothing new", status, 0)
        checks.check(f"{words}: all are accepted", "accepted" in output.splitlines()[0], output)
    checks.equal("another dispenser has no baseline",
                 tool.run(["lint", names[1], "--baseline", "many.before"])[0], 0)
    (tool.folder / "other.json").write_text((tool.folder / names[0]).read_text())
    checks.equal("one that was not in it", tool.run(
        ["lint", "other.json", "--baseline", "many.before"])[0], 3)
    more = json.loads((tool.folder / names[0]).read_text())
    more["exponent"] = -1
    (tool.folder / names[0]).write_text(json.dumps(more))
    answer = json.loads(tool.run(["lint", names[0], "--baseline", "one.before", "--json"])[1])
    fresh = [f["id"] for f in answer["result"]["findings"] if "accepted" not in f]
    checks.check("what is new is not accepted", "QX601" in fresh and "QX201" not in fresh, fresh)
    (tool.folder / "types.before").write_text(tool.run(["types", "--json"])[1])
    for words, complaint in (
            ([names[0], "--baseline", "types.before"],
             "--baseline: types.before is no answer of lint; expected what --json gave"),
            ([*names, "--baseline", "one.before"],
             "--baseline: one.before is of one dispenser; expected the answer of a run over many"),
            ([*names, "--baseline", "nowhere"], "nowhere: cannot be opened: No such file or "
                                                "directory")):
        checks.equal(str(words), tool.run(["lint", *words]), (2, "", f"qxmix: {complaint}\n"))


if __name__ == "__main__":
    run_parts(check_sarif, check_junit, check_github, check_csv, check_one, check_accepted,
              check_baseline)
