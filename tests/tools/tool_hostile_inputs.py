#!/usr/bin/env python3
"""Inputs that are too large, too deep, without an end or still growing: each costs one clear line and
little memory."""

import json
import os
import signal
import threading
import time

from tool_runner import run_parts

EURO = "EUR:100x300,50x1200,20x2400,10x60:low"


class Measured:
    """The tool until it ends by itself: exit status, both streams, and the most memory in MiB that it
    or a worker ever had."""

    def __init__(self, tool, words, **options):
        with open(tool.folder / "shown", "w+b") as shown, open(tool.folder / "said", "w+b") as said:
            process = tool.start(words, stdout=shown, stderr=said, **options)
            watchdog = threading.Timer(60, process.kill)
            watchdog.start()
            _, status, used = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            watchdog.cancel()
            shown.seek(0)
            said.seek(0)
            self.status, self.output = process.returncode, shown.read().decode()
            self.errors = said.read().decode()
        self.memory = used.ru_maxrss // 1024


def least_memory(tool):
    """What the tool takes for next to nothing; a sanitizer takes what it likes."""
    if not tool.is_plain():
        return 1 << 20
    return Measured(tool, ["mix", "EUR:50x10", "--amount", "50"]).memory


def one_line(measured):
    return (measured.status == 2 and measured.output == "" and measured.errors.count("\n") == 1
            and measured.errors.startswith("qxmix: ") and len(measured.errors) < 2100)


def readers(file):
    """Command lines that read a file whole: what, and how many MiB it may hold."""
    return [(["mix", file, "--amount", "50"], 16), (["explain", file, "--amount", "50"], 16),
            (["map", file], 16), (["lint", file], 16), (["compare", "EUR:50x9", file], 16),
            (["fill", file, "--demand", "examples/week.json"], 16),
            (["simulate", "EUR:50x9", "--demand", file], 256),
            (["replay", "examples/dispensed.csv", "--dispenser", file], 16),
            (["replay", file, "--dispenser", "EUR:50x9"], 256),
            (["compare", "EUR:50x9", "--table", file], 256),
            (["lint", "EUR:50x9", "--baseline", file], 256),
            (["lint", "EUR:50x9", "@" + file], 256),
            (["mix", "--raw-in", file], 256), (["registry", file], 256),
            (["mix", "EUR:50x9", "--amount", "50", "--registry", file], 256)]


# Of what is read by the same function one stands for the others, but in a campaign.
TAKES_ALL = os.environ.get("QXMIX_HOSTILE") == "all"
OF_MANY_ALIKE = ("--table", "--baseline", "@large.csv", "--registry", "--dispenser")


def check_large_files(tool, checks):
    """Files of 500 MB, of which nobody reads more than is allowed."""
    large = tool.folder / "large.csv"
    with open(large, "wb") as file:
        file.write(b'{"currency":"EUR",')
        file.truncate(500 * 1000 * 1000)
    least = least_memory(tool)
    for words, most in readers(large.name):
        if most > 16 and not TAKES_ALL and set(words) & set(OF_MANY_ALIKE):
            continue
        measured = Measured(tool, words)
        name = f"500 MB: {' '.join(words)}"
        checks.check(f"{name}: one line", one_line(measured), (measured.status, measured.errors[:300]))
        checks.check(f"{name}: memory", measured.memory < least + 2 * most + 32, measured.memory)


def check_deep(tool, checks):
    """JSON that is nested a million deep."""
    deep = tool.folder / "deep.mixtable.json"
    least = least_memory(tool)
    for opening in (b"[", b'{"a":'):
        deep.write_bytes(opening * 1000000)
        for words, _ in readers(deep.name):
            if {"--raw-in", "--registry", "registry", "@" + deep.name} & set(words):
                continue  # no JSON
            measured = Measured(tool, words)
            name = f"a million {opening.decode()}: {' '.join(words)}"
            checks.check(f"{name}: one line", one_line(measured),
                         (measured.status, measured.errors[:300]))
            checks.check(f"{name}: memory", measured.memory < least + 64, measured.memory)


class Endless:
    """A pipe into which somebody writes for ever."""

    def __init__(self, place, beginning, block):
        self.place, self.beginning, self.block = place, beginning, block
        os.mkfifo(place)
        self.writer = threading.Thread(target=self.write)

    def write(self):
        with open(self.place, "wb", buffering=0) as pipe:
            try:
                pipe.write(self.beginning)
                while True:
                    pipe.write(self.block)
            except BrokenPipeError:
                pass

    def __enter__(self):
        self.writer.start()
        return self

    def __exit__(self, *_):
        self.writer.join(20)
        self.place.unlink()


def check_endless_pipes(tool, checks):
    least = least_memory(tool)
    pipe = tool.folder / "pipe.csv"
    for words, most in readers(pipe.name):
        if most > 16 and words[0] != "simulate" and not TAKES_ALL:
            continue
        with Endless(pipe, b'{"currency":"EUR",', b" " * 65536):
            measured = Measured(tool, words)
        name = f"a pipe without end: {' '.join(words)}"
        checks.check(f"{name}: one line", one_line(measured), (measured.status, measured.errors[:300]))
        checks.check(f"{name}: memory", measured.memory < least + 2 * most + 32, measured.memory)
    with Endless(tool.folder / "pipe.ndjson", b"{", b"x" * 65536):
        measured = Measured(tool, ["replay", "pipe.ndjson"])
    checks.check("a trace without a line end", measured.status == 2 and measured.errors.count("\n") <= 2
                 and measured.memory < least + 32, (measured.errors[:300], measured.memory))


def check_endless_line(tool, checks):
    """A line of 200 MB costs itself, and one without an end no more than time."""
    least = least_memory(tool)
    good = json.dumps({"id": 2, "dispenser": EURO, "amount": 50}).encode() + b"\n"
    read, write = os.pipe()

    def feed():
        with os.fdopen(write, "wb") as stream:
            for _ in range(200):
                stream.write(b"x" * 1000000)
            stream.write(b"\n" + good)

    feeder = threading.Thread(target=feed)
    feeder.start()
    measured = Measured(tool, ["batch", "--jobs", "1"], stdin=read)
    os.close(read)
    feeder.join()
    answers = [json.loads(line) for line in measured.output.splitlines()]
    checks.equal("200 MB: answers", [a.get("outcome") or a["error"]["message"] for a in answers],
                 ["more than 1048576 bytes; expected a shorter line", "paid"])
    checks.check("200 MB: memory", measured.status == 2 and measured.memory < least + 32,
                 (measured.status, measured.memory))
    with Endless(tool.folder / "line", b"", b"x" * 65536):
        with open(tool.folder / "line", "rb", buffering=0) as line:
            process = tool.start(["batch"], stdin=line)
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=20)
    checks.equal("a line without an end: Ctrl-C", (process.returncode, output), (130, b""))
    checks.check("a line without an end: at most a line is said", errors.count(b"\n") <= 1, errors)


def check_growing(tool, checks):
    """Files to which somebody appends meanwhile are read as they are at some moment."""
    growing = tool.folder / "growing.json"
    trace = tool.folder / "growing.ndjson"
    growing.write_text((tool.folder / "examples/euro.json").read_text())
    line = (tool.folder / "examples/trace.ndjson").read_bytes().splitlines(True)[0]
    trace.write_bytes(line)
    is_over = threading.Event()

    def grow():
        # No more than a dispenser's file may hold.
        with open(growing, "ab", buffering=0) as file, open(trace, "ab", buffering=0) as lines:
            while not is_over.wait(0.0005) and file.tell() < 15 * 1000000:
                file.write(b" " * 1024)
                lines.write(20 * line)

    grower = threading.Thread(target=grow)
    grower.start()
    asked = tool.run(["mix", "examples/euro.json", "--amount", "280"])
    for _ in range(20):
        checks.equal("a dispenser that grows", tool.run(["mix", "growing.json", "--amount", "280"]),
                     asked)
    status, output, errors = tool.run(["replay", "growing.ndjson", "--json"])
    is_over.set()
    grower.join()
    result = json.loads(output)["result"]
    checks.check("a trace that grows", (status, errors) == (0, "") and result["same"] ==
                 result["requests"] > 0 and not result["badLines"], (status, errors, result))


if __name__ == "__main__":
    run_parts(check_large_files, check_deep, check_endless_pipes, check_endless_line, check_growing)
