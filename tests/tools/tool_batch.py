#!/usr/bin/env python3
"""What `qxmix batch` makes of a stream: each kind of line, order, speed, memory, and its end."""

import json
import os
import select
import signal
import subprocess
import threading
import time

from tool_runner import run_parts

EURO = "EUR:100x300,50x1200,20x2400,10x60:low"
FAKE = ["batch", "--library", "fake.so", "--limit", "2000"]

# Amounts at which the fake module does what its name says.
CRASH, HANG, ODD_CODE = 1001, 1002, 1005


def stream(*requests):
    return "".join((request if isinstance(request, str) else json.dumps(request)) + "\n"
                   for request in requests).encode()


def answers_of(output):
    return [json.loads(line) for line in output.splitlines()]


def ask(tool, words, *requests):
    status, output, errors = tool.run(words, stdin=stream(*requests))
    return status, answers_of(output), errors


def check_against_mix(tool, checks):
    requests = [{"id": f"{mix}/{amount}", "dispenser": "examples/euro.json", "amount": amount,
                 "mix": mix} for mix in (1, 2, 3, 10) for amount in range(0, 700, 35)]
    status, answers, errors = ask(tool, ["batch"], *requests)
    checks.equal("the outcomes leave the exit status alone", (status, errors), (0, ""))
    checks.equal("ids come back in order", [a["id"] for a in answers], [r["id"] for r in requests])
    for request, answer in list(zip(requests, answers))[::7]:
        output = tool.run(["mix", request["dispenser"], "--amount", str(request["amount"]),
                           "--mix", str(request["mix"]), "--json"])[1]
        del answer["id"]
        # What mix says beside a refusal is not the answer's.
        expected = {key: value for key, value in json.loads(output)["result"].items()
                    if key not in ("nearest", "otherMixes")}
        checks.equal(f"{request['id']}: as mix says", answer, expected)


def check_forms(tool, checks):
    inline = tool.run(["mix", EURO, "--amount", "280", "--json"])[1]
    result = json.loads(inline)["result"]
    dispenser = json.loads(inline)["input"]["dispenser"]
    _, answers, _ = ask(tool, ["batch"],
                        {"dispenser": EURO, "amount": 280},
                        {"dispenser": dispenser, "amount": 280},
                        {**dispenser, "amount": 280},
                        "  " + json.dumps({"dispenser": EURO, "amount": 280}) + "\r")
    checks.equal("inline, object, fields, blanks around", answers, [result] * 4)

    own = {"currency": "CHF", "exponent": -2, "partial": True, "maxDispenseItems": 2, "mix": 2,
           "registry": {"CSTMinimum4Mix6": "25"}, "cassettes": [{"value": 50, "count": 9}]}
    _, answers, _ = ask(tool, ["batch", "--envelope"], {"dispenser": EURO, "amount": 10000, **own})
    shown = answers[0]["input"]["dispenser"]
    checks.equal("the request's fields win over its dispenser",
                 {key: shown[key] for key in own if key not in ("registry", "cassettes")},
                 {key: own[key] for key in own if key not in ("registry", "cassettes")})
    checks.equal("cassettes win, too", [(c["currency"], c["value"]) for c in shown["cassettes"]],
                 [("CHF", 50)])
    checks.equal("and are asked", answers[0]["result"]["values"], [2, 0, 0, 0, 0, 0])

    _, answers, _ = ask(tool, ["batch", "--envelope", "--currency", "EUR", "--exponent", "0",
                               "--limit", "3", "--no-partial", "--mix", "1"],
                        {"dispenser": EURO, "amount": 280, **own, "currency": "EUR"})
    shown = answers[0]["input"]
    checks.equal("options win over all",
                 (shown["dispenser"]["exponent"], shown["dispenser"]["maxDispenseItems"],
                  shown["dispenser"]["partial"], shown["mix"]), (0, 3, False, 1))


BAD_LINES = [
    ("{", None, "column 2: syntax error"),
    ("", None, "empty; expected a request"),
    ("[1]", None, "a list is not allowed; expected an object"),
    ({"dispenser": EURO}, "/amount", "missing; expected 0 to 4294967295"),
    ({"amount": 5}, "/currency", "missing; expected three capital letters such as EUR"),
    ({"dispenser": EURO, "amount": 70.5}, "/amount",
     "70.5 is not allowed; expected a whole number, 0 to 4294967295"),
    ({"dispenser": EURO, "amount": -1}, "/amount", "-1 is not allowed; expected 0 to 4294967295"),
    ({"dispenser": EURO, "amount": 5, "mix": 4711}, "/mix", "4711 is not allowed; expected 1 to"),
    ({"dispenser": "EUR:5x1:emty", "amount": 5}, "/dispenser",
     "EUR:5x1:emty: /cassettes/0: unknown status or type \"emty\"; did you mean \"empty\"?"),
    ({"dispenser": "missing.json", "amount": 5}, "/dispenser",
     "missing.json: cannot be opened: No such file or directory"),
    ({"dispenser": "bad.json", "amount": 5}, "/dispenser",
     "bad.json: /cassettes/2/curency: unknown field; did you mean \"currency\"?"),
    ({"dispenser": "-", "amount": 5}, "/dispenser", "\"-\" is not allowed; expected an object"),
    ({"dispenser": {"currency": "EUR", "cassettes": [{"value": 5}]}, "amount": 5},
     "/dispenser/cassettes/0/count", "missing; expected 0 to 4294967295"),
    ({"id": 1.5, "dispenser": EURO, "amount": 5}, "/id",
     "1.5 is not allowed; expected text or a whole number"),
    ('{"amount":5,"amount":6}', "/amount", "given twice; expected once"),
]


def check_bad_lines(tool, checks):
    good = {"id": 7, "dispenser": EURO, "amount": 50}
    lines = [line for bad, _, _ in BAD_LINES for line in (bad, good)]
    status, answers, errors = ask(tool, ["batch"], *lines)
    checks.equal("bad lines: exit status", (status, errors), (2, ""))
    checks.equal("bad lines: an answer a line", len(answers), len(lines))
    for index, (bad, pointer, message) in enumerate(BAD_LINES):
        error = answers[2 * index].get("error", {})
        checks.equal(f"{bad}: line and pointer", (error.get("line"), error.get("pointer")),
                     (2 * index + 1, pointer))
        checks.check(f"{bad}: message", error.get("message", "").startswith(message), str(error))
    checks.equal("bad lines: the stream goes on",
                 {answer["outcome"] for answer in answers[1::2]}, {"paid"})
    _, answers, _ = ask(tool, ["batch"], {"id": "a", "dispenser": EURO})
    checks.equal("bad lines: the id comes back", answers[0]["id"], "a")
    long = json.dumps({"dispenser": EURO, "amount": 50, "x-note": "n" * (1 << 20)})
    status, answers, _ = ask(tool, ["batch"], good, long, good)
    checks.equal("a line too long", [a.get("outcome") or a["error"]["message"] for a in answers],
                 ["paid", "more than 1048576 bytes; expected a shorter line", "paid"])


def check_named_files(tool, checks):
    """A line names a file; whatever that is, the stream goes on."""
    os.mkfifo(tool.folder / "pipe")
    euro = (tool.folder / "examples/euro.json").read_text()
    (tool.folder / "large.json").write_text(euro + " " * ((1 << 20) - len(euro)))
    (tool.folder / "larger.json").write_text(euro + " " * ((1 << 20) - len(euro) + 1))
    (tool.folder / "nested.json").write_text("[" * (1 << 20))
    names = [("pipe", "pipe: no regular file; expected one"),
             ("/dev/zero", "/dev/zero: no regular file; expected one"),
             ("examples", "examples: no regular file; expected one"),
             ("larger.json", "larger.json: more than 1048576 bytes; expected a smaller file"),
             ("nested.json", "nested.json: /0/0/"),
             ("examples/euro.json\0.txt", '"examples/euro.json\\u0000.txt" is not allowed; expected')]
    good = {"dispenser": "large.json", "amount": 50}
    lines = [line for name, _ in names for line in ({"dispenser": name, "amount": 50}, good)]
    status, answers, errors = ask(tool, ["batch", "--jobs", "1"], *lines)
    checks.equal("named files: exit status", (status, errors), (2, ""))
    for (name, message), answer in zip(names, answers[::2]):
        error = answer.get("error", {})
        checks.check(f"named files: {name}", error.get("pointer") == "/dispenser"
                     and error.get("message", "").startswith(message), str(answer)[:300])
    checks.equal("named files: the stream goes on", [a.get("outcome") for a in answers[1::2]],
                 ["paid"] * len(names))

    _, answers, _ = ask(tool, ["batch", "--no-files"], good, {"dispenser": EURO, "amount": 50},
                        {"dispenser": "pipe", "amount": 50})
    refused = ("is not allowed; expected an object or a dispenser such as \"EUR:50x10,20x10\"")
    checks.equal("--no-files", [a.get("outcome") or a["error"]["message"] for a in answers],
                 [f'"large.json" {refused}', "paid", f'"pipe" {refused}'])


def check_odd_lines(tool, checks):
    good = {"dispenser": EURO, "amount": 50}
    status, answers, _ = ask(tool, ["batch"], "[" * 1000000, good, "{\"x-a\":" * 100000, good,
                             json.dumps(good) + "\0 rubbish", good, {**good, "\0": 1}, good)
    checks.equal("odd lines: exit status", status, 2)
    checks.equal("odd lines: what is wrong",
                 [a["error"]["message"][:40] for a in answers[::2]],
                 ["nested too deep; expected at most 64 lis"] * 2
                 + ["column %d: a zero byte; expected JSON in" % (len(json.dumps(good)) + 1),
                    "unknown field; expected one of: id, amou"])
    checks.equal("odd lines: a name with a zero byte", answers[6]["error"]["pointer"], "/\0")
    checks.equal("odd lines: the stream goes on", [a.get("outcome") for a in answers[1::2]],
                 ["paid"] * 4)


def check_ends(tool, checks):
    request = json.dumps({"dispenser": EURO, "amount": 50})
    for given, count in ((b"", 0), (request.encode(), 1), (f"{request}\n{request}".encode(), 2)):
        status, output, _ = tool.run(["batch"], stdin=given)
        checks.equal(f"{count} lines", (status, output.count("\n")), (0, count))
    folder = os.open(tool.folder / "examples", os.O_RDONLY)
    process = tool.start(["batch"], stdin=folder)
    output, errors = process.communicate(timeout=20)
    os.close(folder)
    checks.equal("a folder as input", (process.returncode, output, errors),
                 (2, b"", b"qxmix: standard input: cannot be read: Is a directory\n"))


def check_deadlines(tool, checks):
    amounts = [50, HANG, 51, CRASH, 52, ODD_CODE, HANG, 53]
    requests = [{"id": a, "dispenser": "EUR:1x2000", "amount": a} for a in amounts]
    started = time.monotonic()
    status, answers, _ = ask(tool, FAKE + ["--deadline", "50ms"], *requests)
    checks.equal("misses and crashes: exit status", status, 0)
    checks.equal("misses and crashes stay with their lines",
                 [(a["id"], a["outcome"]) for a in answers],
                 [(50, "paid"), (HANG, "noAnswer"), (51, "paid"), (CRASH, "crashed"), (52, "paid"),
                  (ODD_CODE, "failed"), (HANG, "noAnswer"), (53, "paid")])
    checks.equal("what is unknown is null", (answers[1]["paid"], answers[1]["values"]),
                 (None, [None] * 6))
    checks.check("misses: in time", 1 < time.monotonic() - started < 30)

    # The real search that does not end is stopped after its share of processor time.
    _, answers, _ = ask(tool, ["batch", "--deadline", "100ms", "--envelope"],
                        {"dispenser": "examples/four-notes.json", "amount": 60, "mix": 4},
                        {"dispenser": "examples/three-notes.json", "amount": 110, "mix": 4})
    checks.equal("dangers", [[w["id"] for w in a["warnings"]] for a in answers],
                 [["QX402"], ["QX401"]])
    checks.equal("dangers: exit status of the answer", [a["exitStatus"] for a in answers], [3, 3])


def check_registry(tool, checks):
    requests = [{"dispenser": "EUR:50x200,20x90", "amount": 60, "mix": 6,
                 "registry": {"CSTMinimum4Mix6": str(minimum)}} for minimum in (10, 95, 10, 250)]
    _, answers, _ = ask(tool, ["batch"], *requests)
    checks.equal("each request has its own registry", [a["outcome"] for a in answers],
                 ["paid", "notDispensable", "paid", "notDispensable"])
    _, answers, _ = ask(tool, ["batch", "--registry", "mended.reg", "--registry-out", "left.reg"],
                        *requests)
    checks.equal("--registry stands before it", {a["outcome"] for a in answers}, {"notDispensable"})
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("--registry-out: the last code", '"CDM"=hex(1):39,37,31,41,32' in left, left)
    many = [{**requests[0], "registry": {"CSTMinimum4Mix6": str(i % 90)}, "id": i}
            for i in range(600)]
    many += [{**requests[0], "registry": {"CSTMinimum4Mix6": f"0{i}"}, "id": i} for i in range(300)]
    _, answers, _ = ask(tool, ["batch"], *many)
    checks.equal("more registries than a worker keeps",
                 [a["outcome"] == "paid" for a in answers],
                 [True] * 600 + [i < 90 for i in range(300)])


def check_trace(tool, checks):
    _, answers, errors = ask(tool, ["batch", "--trace"], {"dispenser": "EUR:50x1", "amount": 60},
                             {"dispenser": "EUR:50x1", "amount": 50})
    checks.equal("--trace: outcomes", [a["outcome"] for a in answers], ["notDispensable", "paid"])
    checks.check("--trace: lines", "CMixAlgorithm::RegWriteError() Error Code is 971A2.\n" in errors,
                 errors)


def check_slow_input(tool, checks):
    process = tool.start(["batch"], stdin=subprocess.PIPE)
    for number in range(3):
        process.stdin.write(stream({"id": number, "dispenser": EURO, "amount": 50}))
        process.stdin.flush()
        is_there = select.select([process.stdout], [], [], 20)[0]
        line = os.read(process.stdout.fileno(), 4096) if is_there else b"{}"
        checks.equal(f"slow input: answer {number} is there at once",
                     json.loads(line).get("id"), number)
    process.stdin.close()
    checks.equal("slow input: end", process.wait(timeout=20), 0)
    process.stdout.close()
    process.stderr.close()


def check_growing(tool, checks):
    """What somebody appends meanwhile is no part of it; a line that was begun is read whole."""
    # So long that they are not all read while the first one hangs.
    lines = [json.dumps({"id": number, "dispenser": "EUR:1x2000", "amount": 5 if number else HANG})
             + " " * 100000 + "\n" for number in range(30)]
    path = tool.folder / "growing.ndjson"
    for cut in (0, 50, 100):
        whole = "".join(lines)
        path.write_text(whole[:len(whole) - cut])
        with open(path, "a", encoding="ascii") as stream, open(path, "rb") as read:
            process = tool.start_reading(FAKE + ["--deadline", "500ms", "--jobs", "1"], path.name,
                                         stdin=read)
            stream.write(whole[len(whole) - cut:] + 9 * lines[1])
        output, errors = process.communicate(timeout=60)
        checks.equal(f"a file that grows, {cut} bytes of a line came later",
                     ([answer.get("id") for answer in answers_of(output)], errors),
                     (list(range(30)), b""))


def check_interrupt(tool, checks):
    process = tool.start(FAKE + ["--deadline", "60s", "--jobs", "1"], stdin=subprocess.PIPE)
    process.stdin.write(stream({"id": 1, "dispenser": "EUR:1x9", "amount": 5}))
    process.stdin.flush()
    first = process.stdout.readline()
    process.stdin.write(stream({"id": 2, "dispenser": "EUR:1x2000", "amount": HANG}))
    process.stdin.flush()
    time.sleep(0.3)
    process.send_signal(signal.SIGINT)
    output, errors = process.communicate(timeout=20)
    checks.equal("Ctrl-C: exit status", process.returncode, 130)
    checks.equal("Ctrl-C: what is complete", (json.loads(first)["id"], output), (1, b""))
    checks.equal("Ctrl-C: says so", errors, b"qxmix: interrupted after 1 line\n")


def interrupt(tool, words, lines, first_answers):
    """Sends all lines, waits for some answers, then presses Ctrl-C; standard input stays open."""
    process = tool.start(words, stdin=subprocess.PIPE)
    process.stdin.write(stream(*lines))
    process.stdin.flush()
    output = b"".join(process.stdout.readline() for _ in range(first_answers))
    time.sleep(0.0 if first_answers else 0.5)
    process.send_signal(signal.SIGINT)
    output += process.stdout.read()
    errors = process.stderr.read()
    process.stdin.close()
    process.stdout.close()
    process.stderr.close()
    return process.wait(timeout=20), [answer["id"] for answer in answers_of(output)], errors


def interrupt_for(tool, words, lines, first_answers, expected):
    """As interrupt; again where a busy machine was not done within the second that lines still have."""
    for _ in range(3):
        came = interrupt(tool, words, lines, first_answers)
        if came == expected:
            break
    return expected if tool.is_counted() and is_beginning(came, expected) else came


def is_beginning(came, expected):
    """Whether the first lines are answered, and as many are said to be."""
    status, ids, errors = came
    return (status == 130 and ids == expected[1][:len(ids)] and
            errors.startswith(b"qxmix: interrupted after %d line" % len(ids)))


def check_interrupted_blocks(tool, checks):
    """What was read is answered, up to the first line that takes too long, in order."""
    quick = [{"id": number, "dispenser": "EUR:1x9", "amount": 5} for number in range(900)]
    endless = {"id": "X", "dispenser": "EUR:1x2000", "amount": HANG}
    for jobs in ("1", "3"):
        words = FAKE + ["--deadline", "60s", "--jobs", jobs]
        for before in (0, 1, 600):
            expected = (130, list(range(before)),
                        f"qxmix: interrupted after {before} line{'s' * (before != 1)}\n".encode())
            checks.equal(f"Ctrl-C, {jobs} jobs, {before} lines and one that hangs",
                         interrupt_for(tool, words, quick[:before] + [endless] + quick[before:], 0,
                                       expected), expected)
        expected = (130, list(range(900)), b"qxmix: interrupted after 900 lines\n")
        checks.equal(f"Ctrl-C, {jobs} jobs, all lines are quick",
                     interrupt_for(tool, words, quick, 1, expected), expected)

    # The plain loops of an amount above 2^31: many milliseconds for each of these lines.
    slow = [{"id": number, "dispenser": "EUR:20x200000000,64x33000000", "amount": 2147483750,
             "mix": 2} for number in range(256)]
    status, ids, errors = interrupt(tool, ["batch", "--jobs", "1", "--deadline", "20s"], slow, 1)
    checks.check("Ctrl-C: slow lines are written before their block is done",
                 status == 130 and 0 < len(ids) < len(slow) and ids == list(range(len(ids))),
                 f"{status} {ids} {errors}")


def most_memory(process):
    """The most memory that the tool and its workers ever had, in KiB each."""
    with open(f"/proc/{process.pid}/task/{process.pid}/children", encoding="ascii") as children:
        processes = [str(process.pid)] + children.read().split()
    memory = []
    for number in processes:
        with open(f"/proc/{number}/status", encoding="ascii") as status:
            memory += [int(line.split()[1]) for line in status if line.startswith("VmHWM:")]
    return max(memory)


def check_many(tool, checks):
    """Order over several workers, and memory that does not grow with the stream."""
    memory = {}
    for count in (2000, 60000):
        lines = b"".join(b'{"id":%d,"dispenser":"%s","amount":280}\n' % (n, EURO.encode())
                         for n in range(count))
        process = tool.start(["batch", "--jobs", "3"], stdin=subprocess.PIPE)
        writer = threading.Thread(target=lambda: (process.stdin.write(lines), process.stdin.flush()))
        writer.start()
        ids = [json.loads(process.stdout.readline())["id"] for _ in range(count)]
        writer.join()
        memory[count] = most_memory(process)
        process.communicate()
        checks.check(f"{count} lines in order", ids == list(range(count)))
    checks.check("constant memory", memory[60000] < memory[2000] + 2048, f"{memory} KiB")


run_parts(check_against_mix, check_forms, check_bad_lines, check_named_files, check_odd_lines,
          check_ends, check_deadlines, check_registry, check_trace, check_slow_input,
          check_growing, check_interrupt, check_interrupted_blocks, check_many)
