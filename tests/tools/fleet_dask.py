"""fleet_dask.py SOURCE TOOL

A cluster of this machine alone: a real scheduler and two worker processes answer what the document
about fleets shows, with its own lines. One worker is killed in the middle, and nothing is lost.
"""

import contextlib
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

REQUESTS = 400
PART = 4000  # bytes: about a dozen parts

source, tool = map(pathlib.Path, sys.argv[1:3])
try:
    import distributed  # noqa: F401
except ImportError:
    print("skipped: needs the package python3-distributed")
    sys.exit(77)


def expect(truth, said):
    if not truth:
        sys.exit(f"fleet_dask: {said}")


def shown_commands():
    """The lines of the document, each with what it does in the background left to the caller."""
    text = (source / "docs/fleet.md").read_text(encoding="utf-8")
    block = re.search(r"```sh\n(dask-scheduler.*?)```", text, re.S)
    expect(block, "docs/fleet.md shows no dask-scheduler")
    lines = block[1].splitlines()
    expect(len(lines) == 3, f"{len(lines)} lines in docs/fleet.md; expected 3")
    return lines


def until(happens, said, seconds=120):
    deadline = time.monotonic() + seconds
    while not happens():
        expect(time.monotonic() < deadline, said)
        time.sleep(0.05)


@contextlib.contextmanager
def running(command, work, name):
    """A process of its own group, ended at the latest with the test."""
    log = (work / f"{name}.log").open("wb")
    process = subprocess.Popen(command, shell=True, cwd=work, stdout=log, stderr=log,
                               start_new_session=True)
    try:
        yield process
    finally:
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        log.close()


def make_requests(work):
    lines = [f'{{"id":{number},"dispenser":"EUR:100x300,50x1200,20x2400,10x60:low",'
             f'"amount":{number * 5}}}\n' for number in range(1, REQUESTS + 1)]
    lines[100] = "no request\n"
    (work / "requests.ndjson").write_text("".join(lines), encoding="utf-8")


def expected_answers(work):
    """As one process gives them; of a bad line the number is that within its part."""
    done = subprocess.run([tool, "batch"], input=(work / "requests.ndjson").read_bytes(),
                          capture_output=True, check=False)
    expect(len(done.stdout.splitlines()) == REQUESTS, "qxmix batch leaves lines out")
    return without_line_numbers(done.stdout)


def without_line_numbers(answers):
    return [re.sub(rb"line \d+|:\d+:\d+|\"line\":\d+", b"", line) for line in answers.splitlines()]


def put_tool(work):
    """A qxmix that tells which worker it runs for, and takes its time."""
    (work / "bin").mkdir()
    script = work / "bin/qxmix"
    script.write_text(f'#!/bin/sh\necho "$WORKER" >>"{work}/asked"\nsleep 0.3\nexec "{tool}" "$@"\n',
                      encoding="utf-8")
    script.chmod(0o755)


def main(work):
    os.environ["PATH"] = f"{work}/bin:/usr/bin:/bin"
    os.environ["HOME"] = str(work)
    put_tool(work)
    make_requests(work)
    scheduler, worker, ask = shown_commands()
    # Ports and files of this test's own; no page of the scheduler's.
    scheduler = scheduler.rstrip(" &") + " --host 127.0.0.1 --port 0 --no-dashboard --scheduler-file at"
    worker = worker.rstrip(" &").replace("tcp://atm-lab-1:8786", "--scheduler-file at") + " --no-dashboard"
    ask = ask.replace("tcp://atm-lab-1:8786", "at").replace(
        "requests.ndjson", f"requests.ndjson {PART}").replace("examples/fleet/answer_requests.py",
                                                      f"'{source}/examples/fleet/answer_requests.py'")
    asked = work / "asked"
    with contextlib.ExitStack() as cluster:
        cluster.enter_context(running(scheduler, work, "scheduler"))
        until((work / "at").exists, f"no scheduler: {(work / 'scheduler.log').read_text()}")
        workers = {name: cluster.enter_context(running(f"WORKER={name} {worker}", work, name))
                   for name in ("one", "two")}
        question = cluster.enter_context(running(ask, work, "ask"))
        until(lambda: asked.exists() and "one" in asked.read_text().split(),
              f"worker one is never asked: {(work / 'one.log').read_text()}")
        os.killpg(workers["one"].pid, signal.SIGKILL)
        asked_before = len(asked.read_text().split())
        until(lambda: question.poll() is not None, "no end after a worker was killed")
    expect(question.returncode == 2, f"ends with {question.returncode}: "
                                     f"{(work / 'ask.log').read_text()[-500:]}")
    answers = without_line_numbers((work / "answers.ndjson").read_bytes())
    expect(answers == expected_answers(work), "answers are lost, or in another order")
    parts = asked.read_text().split()
    expect(asked_before < len(parts) and parts[asked_before:].count("two") > 0,
           "the worker was killed when all was done")
    print(f"{len(answers)} answers in their order, {len(parts)} parts begun, worker one killed "
          f"after {asked_before}")


with tempfile.TemporaryDirectory() as folder:
    main(pathlib.Path(folder).resolve())
