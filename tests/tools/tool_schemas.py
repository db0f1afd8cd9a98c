#!/usr/bin/env python3
"""Holds the schemas to what the tool accepts and prints.

Each file in dispensers/good is accepted by the tool and by the dispenser schema; each in
dispensers/bad is refused by both, but for those that only the tool can refuse. Every answer that is
printed as JSON is valid under the answer schema.
"""

import json
import shlex

import jsonschema

from tool_runner import HERE, run_parts

# What a schema cannot say: names of constants, keys given twice, numbers written as 1.0, what another
# field allows.
ONLY_THE_TOOL = {"status-constant.json", "key-twice.json", "type-constant.json", "count-float.json",
                 "capacity-below-count.json"}

ANSWERS = [
    "mix examples/euro.json --amount 280",
    "mix examples/euro.json --amount 280 --mix all",
    "mix examples/euro.json --amount 285",
    "mix examples/euro.json --amount 5",
    "mix examples/euro.json --amount 280 --mixes 3",
    "mix examples/kiosk.json --amount 38 --registry examples/device.reg",
    "mix examples/rappen.json --amount 7050",
    "mix examples/three-notes.json --amount 110 --mix 4",
    "mix examples/three-notes.json --amount 110 --mix all",
    "mix examples/four-notes.json --amount 60 --mix 4 --deadline 100ms",
    "mix EUR:50x100,20x100 --amount 1001 --library fake.so",
    "mix EUR:50x100,20x100 --amount 1005 --library fake.so",
    "mix --raw-in request.bin",
    "mix --raw-in request.bin examples/euro.json",
    "mix examples/four-notes.json --amount 60 --mixes 1,4 --library fake.so",
    "map examples/four-notes.json --from 50 --to 60 --mixes 4 --library fake.so",
    "lint examples/four-notes.json --mixes 4 --from 50 --to 60 --library fake.so",
    "explain examples/euro.json --amount 280",
    "explain examples/euro.json --amount 285",
    "explain examples/three-notes.json --amount 110 --mix 4",
    "explain examples/four-notes.json --amount 60 --mix 4 --deadline 100ms",
    "explain EUR:100x2,50x4,20x0:empty,20x1:manipulated,0x5,USD50x5 --amount 80 --limit 1",
    "explain EUR:50x100,20x100 --amount 1001 --library fake.so",
    "map examples/four-notes.json --to 600 --mixes 1,4,9",
    "map examples/rappen.json --from 5 --to 10000 --step 115",
    "map examples/border.json",
    "map examples/border.json --currency CHF",
    "map EUR:1x2000 --from 1001 --to 1005 --step 4 --library fake.so",
    "simulate examples/euro.json --demand examples/week.json --mixes 1-4,8",
    "simulate examples/euro.json --demand examples/week.json --mixes 1,4 --runs 2",
    "simulate examples/euro.json --demand recorded.csv --partial --mixes 2",
    "simulate examples/four-notes.json --demand examples/week.json --mixes 4 --deadline 10ms",
    "simulate EUR:1x40000 --demand fake.csv --mixes 1 --library fake.so",
    "fill examples/euro.json --demand examples/week.json --runs 2 --days 2 --service 95",
    "fill examples/euro.json --demand examples/week.json --runs 2 --days 1 --mixes 1,4,10",
    "fill EUR:50x10 --demand examples/week.json --runs 2 --days 1",
    "fill examples/branch.json --demand examples/week.json --runs 2 --days 1-2",
    "fill EUR:1x40000 --demand fake.csv --mixes 1 --library fake.so",
    "lint examples/trouble.json",
    "lint examples/border.json",
    "lint examples/border.json examples/trouble.json",
    "lint examples/four-notes.json --mixes 1,4,9 --to 200",
    "lint examples/rappen.json --from 5 --to 2500 --step 115 --slow 1ms",
    "lint EUR:1x2000 --from 1001 --to 1001 --step 1 --library fake.so --registry examples/device.reg",
    "compare examples/euro.json examples/no-tens.json --to 100",
    "compare examples/three-notes.json examples/four-notes.json --mixes 1,4 --to 150",
    "compare examples/rappen.json --library fake.so --library examples/../fake.so --to 300",
    "compare examples/euro.json --table examples/bank.mixtable.csv",
    "replay examples/trace.ndjson",
    "replay examples/trace.ndjson --stop",
    "replay short-request.ndjson",
    "replay examples/dispensed.csv --dispenser examples/euro.json",
    "replay examples/dispensed.csv --dispenser EUR:100x3,50x1,20x1 --stop",
    "mix --raw-in both.bin",
    "explain --raw-in both.bin",
    "map --raw-in both.bin --mixes 1,2",
    "lint --raw-in both.bin",
    "lint examples/trouble.json examples/kiosk.json bad.json nowhere.json",
    "simulate examples/euro.json bad.json --demand examples/week.json --mixes 1,4",
    "simulate examples/euro.json EUR:50x9 --demand examples/week.json --mixes 1,4 --runs 2",
    "mix EUR:5x40,500x3,25x1,200x200 --amount 675",
    "replay examples/trace.ndjson --library fake.so --library examples/../fake.so",
    "types",
    "registry examples/device.reg",
    "registry empty.reg --set TraceLevel=5 --clear-error",
    "completions bash",
    "--version",
    "--version --library missing.so",
    "--version --library fake.so",
]


def is_valid(validator, document):
    return next(validator.iter_errors(document), None) is None


def validator_of(tool, name):
    schema = json.loads((tool.arguments.source / "schema" / name).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


def check_dispensers(tool, checks):
    validator = validator_of(tool, "dispenser.schema.json")
    for path in sorted((HERE / "dispensers").glob("*/*.json")):
        is_good = path.parent.name == "good"
        status, output, errors = tool.run(["mix", str(path), "--amount", "10", "--deadline", "100ms"])
        checks.equal(f"{path.name}: the tool accepts it", status != 2, is_good)
        checks.check(f"{path.name}: one line or none", errors.count("\n") == (0 if is_good else 1),
                     errors)
        checks.equal(f"{path.name}: prints an answer", bool(output), is_good)
        expected = is_good or path.name in ONLY_THE_TOOL
        checks.equal(f"{path.name}: the schema accepts it",
                     is_valid(validator, json.loads(path.read_text())), expected)
    for path in sorted((tool.arguments.source / "examples").glob("*.json")):
        if path.name == "week.json":
            checks.check("examples/week.json is valid", is_valid(
                validator_of(tool, "demand.schema.json"), json.loads(path.read_text())))
        else:
            checks.check(f"examples/{path.name} is valid",
                         is_valid(validator, json.loads(path.read_text())))


def check_mixes(tool, checks):
    """The schemas know as many mixes as the module offers."""
    last = max(row["mix"] for row in
               json.loads(tool.run(["types", "--json"])[1])["result"]["types"])
    folder = tool.arguments.source / "schema"
    mix = json.loads((folder / "dispenser.schema.json").read_text())["properties"]["mix"]
    checks.equal("mixes of a dispenser", [mix["minimum"], mix["maximum"]], [1, last])
    cure = json.loads((folder / "answer.schema.json").read_text())["$defs"]["lintCure"]
    mix = cure["properties"]["mixes"]["items"]
    checks.equal("mixes of a cure", [mix["minimum"], mix["maximum"]], [1, last])
    for number, is_one in ((1, True), (last, True), (0, False), (last + 1, False)):
        status, _, errors = tool.run(["mix", "EUR:50x200", "--amount", "50", "--mix", str(number)])
        checks.equal(f"--mix {number}", status != 2, is_one)
        checks.equal(f"--mix {number}: the range is told", f"expected 1 to {last}" in errors,
                     not is_one)


def check_answers(tool, checks):
    validator = validator_of(tool, "answer.schema.json")
    dispenser = validator_of(tool, "dispenser.schema.json")
    tool.run(["mix", "EUR:50x10,20x10", "--amount", "60", "--raw-out", "both.bin"])
    (tool.folder / "request.bin").write_bytes((tool.folder / "both.bin").read_bytes()[:1060])
    for line in ANSWERS:
        status, output, errors = tool.run(shlex.split(line) + ["--json"])
        checks.equal(f"{line}: nothing on standard error", errors, "")
        answer = json.loads(output)
        problems = [f"{list(e.absolute_path)}: {e.message}" for e in validator.iter_errors(answer)]
        checks.equal(f"{line}: valid", problems, [])
        checks.equal(f"{line}: exit status", answer["exitStatus"], status)
        checks.equal(f"{line}: one line", output.count("\n"), 1)
        if "dispenser" in answer["input"]:
            checks.check(f"{line}: the dispenser is one", is_valid(dispenser, answer["input"]["dispenser"]))


def check_batch(tool, checks):
    schema = json.loads((tool.arguments.source / "schema" / "answer.schema.json").read_text())
    line_schema = {"$defs": schema["$defs"], "$ref": "#/$defs/batchLine"}
    requests = (tool.folder / "examples" / "two.ndjson").read_bytes() + b"{\n" + json.dumps(
        {"id": "x", "dispenser": "EUR:50x100,20x100", "amount": 1002}).encode()
    for words, validators in (
            ([], [jsonschema.Draft202012Validator(line_schema)] * 4),
            (["--envelope"], [jsonschema.Draft202012Validator(s) for s in
                              (schema, line_schema, line_schema, schema)])):
        _, output, _ = tool.run(["batch", "--library", "fake.so", "--deadline", "50ms"] + words,
                                stdin=requests)
        for line, validator in zip(output.splitlines(), validators, strict=True):
            problems = [error.message for error in validator.iter_errors(json.loads(line))]
            checks.equal(f"batch {words}: {line[:40]}", problems, [])


run_parts(check_dispensers, check_mixes, check_answers, check_batch)
