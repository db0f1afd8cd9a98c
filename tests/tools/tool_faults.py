#!/usr/bin/env python3
"""Disks that fill at every write, and workers that are killed at every message: one clear line or an
answer that says so, and nothing half-written."""

import json
import pathlib
import resource
import subprocess
import tempfile

from tool_runner import run_parts

EURO = "EUR:50x10,20x30"
THREE = ["--demand", "three.csv", "--mixes", "1"]

# What writes a file, with the name of the file at the end.
WRITERS = [
    ["mix", EURO, "--amount", "50", "--record", "out.ndjson"],
    ["mix", EURO, "--amount", "50", "--raw-out", "out.bin"],
    ["map", EURO, "--output", "out.html"],
    ["map", EURO, "--mix", "1", "--output", "out.mixtable.json"],
    ["lint", EURO, "--output", "out.sarif"],
    ["lint", EURO, "EUR:50x10", "--output", "out.xml"],
    ["lint", EURO, "EUR:50x10", "--output", "out.html"],
    ["compare", EURO, "EUR:50x10,20x31", "--output", "out.csv"],
    ["replay", "examples/dispensed.csv", "--dispenser", "examples/euro.json", "--output", "out.html"],
    ["simulate", EURO, *THREE, "--output", "out.html"],
    ["simulate", EURO, "EUR:50x10", *THREE, "--output", "out.json"],
    ["fill", EURO, "--demand", "examples/week.json", "--days", "1", "--runs", "1", "--save", "out.json"],
    ["registry", "examples/device.reg", "--set", "CSTMinimum4Mix6=7", "--output", "out.reg"],
]

# What has workers answer; each of it little, so that every message can be met.
BATCH = "".join(json.dumps({"id": number, "dispenser": EURO, "amount": 50 + 20 * number}) + "\n"
                for number in range(4)).encode()
WORKERS = [
    (["mix", EURO, "--amount", "70", "--mixes", "1,2", "--json"], b""),
    (["explain", EURO, "--amount", "70", "--json"], b""),
    (["map", EURO, "--mixes", "1,2", "--to", "30", "--jobs", "2", "--json"], b""),
    (["lint", EURO, "--mix", "1", "--to", "20", "--jobs", "1", "--json"], b""),
    (["lint", EURO, "EUR:50x10", "--mix", "1", "--to", "50", "--jobs", "2", "--json"], b""),
    (["simulate", EURO, *THREE, "--jobs", "2", "--json"], b""),
    (["simulate", EURO, "EUR:50x9", *THREE, "--jobs", "2", "--json"], b""),
    (["compare", EURO, "EUR:50x10,20x31", "--to", "20", "--jobs", "1", "--json"], b""),
    (["replay", "examples/trace.ndjson", "--json"], b""),
    (["types", "--json"], b""),
    (["batch", "--jobs", "2"], BATCH),
]
MOST_MESSAGES = 40


class Faults:
    """Runs of the tool in each of which the next call of a kind goes wrong."""

    def __init__(self, tool, kind):
        self.tool, self.kind = tool, kind
        self.library = pathlib.Path(tool.arguments.fake).with_name("libfault_calls.so")
        self.happened = tool.folder / "happened"

    def run(self, words, call, stdin=b""):
        """What run gives, or None when there is no such call any more."""
        self.happened.unlink(missing_ok=True)
        sanitizers = self.tool.environment.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
        result = self.tool.run(words, stdin=stdin, environment={
            "LD_PRELOAD": str(self.library), "QXMIX_FAULT": self.kind, "QXMIX_FAULT_AT": str(call),
            "QXMIX_FAULT_FILE": str(self.happened), "ASAN_OPTIONS": sanitizers})
        return result if self.happened.exists() else None


def write_three(tool, _):
    (tool.folder / "three.csv").write_text("time,amount\nMon 09:00,50\nMon 10:00,70\nMon 11:00,30\n")


def check_full_at_every_write(tool, checks):
    if not tool.is_plain():
        checks.skip("single calls: a sanitizer or an emulator stands before them")
        return
    faults = Faults(tool, "full")
    for words in WRITERS:
        with tempfile.TemporaryDirectory() as name:
            place = pathlib.Path(name) / words[-1]
            title = " ".join(words[:1] + words[-2:])
            met = 0
            for call in range(1, 200):
                place.write_bytes(b"old\n")
                result = faults.run([*words[:-1], str(place)], call)
                if result is None:
                    break
                met += 1
                checks.equal(f"{title}, write {call}: one line", result, (
                    4, "", f"qxmix: {place}: cannot be written: No space left on device\n"))
                checks.equal(f"{title}, write {call}: nothing changes",
                             {path.name: path.read_bytes() for path in place.parent.iterdir()},
                             {place.name: b"old\n"})
            checks.check(f"{title}: something is written", 0 < met < 199, met)
            checks.check(f"{title}: the last run is whole", place.read_bytes() != b"old\n")


def check_full_meanwhile(tool, checks):
    """What is known of many dispensers is put away in a file that has no room."""
    def allow_little():
        resource.setrlimit(resource.RLIMIT_FSIZE, (64, 64))

    for words in (["lint", EURO, "EUR:50x10"], ["simulate", EURO, "EUR:50x10", *THREE]):
        process = tool.start(words, preexec_fn=allow_little)
        output, errors = process.communicate(timeout=60)
        checks.equal(f"{words[0]} of many, 64 bytes allowed", (process.returncode, output, errors),
                     (4, b"", b"qxmix: temporary file: File too large\n"))


def check_full_standard_output(tool, checks):
    for words, stdin in WORKERS:
        with open("/dev/full", "wb") as full:
            process = tool.start(words, stdin=subprocess.PIPE, stdout=full)
            _, errors = process.communicate(stdin, timeout=60)
        checks.equal(f"{' '.join(words[:3])}: nowhere to answer", (process.returncode, errors), (
            4, b"qxmix: standard output: cannot be written: No space left on device\n"))


def answers_of(words, output):
    """Every answer is whole JSON: a line for each request, or one."""
    return [json.loads(line) for line in output.splitlines()] if words[0] == "batch" else [
        json.loads(output)]


def check_killed_workers(tool, checks):
    if not tool.is_plain():
        return
    for words, stdin in WORKERS:
        usual_status, usual, _ = tool.run(words, stdin=stdin)
        name = " ".join(words[:3])
        for kind in ("killSend", "killReceive"):
            faults = Faults(tool, kind)
            met = 0
            for call in range(1, MOST_MESSAGES):
                result = faults.run(words, call, stdin)
                if result is None:
                    break
                met += 1
                status, output, errors = result
                title = f"{name}, {kind} {call}"
                checks.check(f"{title}: exit status", status in (usual_status, 4), result)
                if output == "":
                    checks.check(f"{title}: one line", status == 4 and errors.count("\n") == 1
                                 and errors.startswith("qxmix: "), result)
                    continue
                checks.equal(f"{title}: nothing said beside the answer", errors, "")
                answers = answers_of(words, output)
                if words[0] == "batch":
                    others = [a for a, b in zip(answers, usual.splitlines()) if a != json.loads(b)]
                    checks.check(f"{title}: one line is lost", len(others) <= 1 and [
                        a["id"] for a in answers] == list(range(4)), output)
                else:
                    checks.equal(f"{title}: the status is told", answers[0]["exitStatus"], status)
            checks.check(f"{name}, {kind}: messages are met", met > 0, met)


if __name__ == "__main__":
    run_parts(write_three, check_full_at_every_write, check_full_meanwhile,
              check_full_standard_output, check_killed_workers)
