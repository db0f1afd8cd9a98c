#!/usr/bin/env python3
"""What `qxmix replay` compares, with what `qxmix mix --record` wrote and between two libraries."""

import fcntl
import json
import os
import time

from tool_runner import run_parts

EURO = "EUR:100x300,50x1200,20x1500,20x900,10x60:low"
ONES = "EUR:1x2000"
CRASH, HANG = 1001, 1002


def write(tool, *lines):
    text = "".join((line if isinstance(line, str) else json.dumps(line)) + "\n" for line in lines)
    (tool.folder / "trace.ndjson").write_text(text)


def bad_line(line, pointer, message, **ids):
    return {**ids, "error": {"line": line, "pointer": pointer, "message": message}}


def replay(tool, *words):
    status, output, errors = tool.run(["replay", "trace.ndjson", "--json", *words])
    return status, json.loads(output)["result"] if output else None, errors


def request(amount, dispenser=EURO, **fields):
    return {"dispenser": dispenser, "amount": amount, **fields}


def check_recorded(tool, checks):
    for amount in (280, 285, 5):
        tool.run(["mix", "examples/euro.json", "--amount", str(amount), "--mix", "all", "--record",
                  "recorded.ndjson"])
    mixes = len(json.loads(tool.run(["types", "--json"])[1])["result"]["types"])
    status, output, _ = tool.run(["replay", "recorded.ndjson"])
    checks.equal("what was recorded just now", (status, output),
                 (0, f"{3 * mixes} requests are answered as recorded\n"))
    tool.run(["mix", ONES, "--amount", str(HANG), "--library", "fake.so", "--deadline", "100ms",
              "--record", "hanging.ndjson"])
    words = ["replay", "hanging.ndjson", "--deadline", "100ms"]
    checks.equal("no answer is an answer", tool.run(words + ["--library", "fake.so"])[:2],
                 (0, "1 request is answered as recorded\n"))
    status, output, _ = tool.run(words)
    checks.equal("another one is a difference", (status, output.split("\n")[3:]),
                 (1, [" outcome     noAnswer             tooManyItems", ""]))


def check_record_behind_an_open_line(tool, checks):
    path = tool.folder / "recorded.ndjson"
    path.write_text(json.dumps({"request": request(280), "answer": {"outcome": "paid"}}))
    tool.run(["mix", EURO, "--amount", "280", "--mixes", "1,2", "--record", "recorded.ndjson"])
    lines = [json.loads(line) for line in path.read_text().splitlines()]
    checks.equal("a line that nothing ends stays whole", [line.get("id") for line in lines],
                 [None, 2, 3])
    checks.equal("all lines can be asked again", tool.run(["replay", "recorded.ndjson"])[1],
                 "3 requests are answered as recorded\n")


def check_recorded_side_by_side(tool, checks):
    recorders = [tool.start(["mix", EURO, "--amount", "280", "--mixes", "1-4", "--record",
                             "side.ndjson"]) for _ in range(24)]
    for recorder in recorders:
        recorder.communicate(timeout=120)
    lines = (tool.folder / "side.ndjson").read_text().splitlines()
    checks.equal("recorded side by side: no id is given twice",
                 [json.loads(line)["id"] for line in lines], list(range(1, 97)))


def check_recorded_behind_another(tool, checks):
    """Who counts the lines first appends first."""
    with open(tool.folder / "locked.ndjson", "a", encoding="utf-8") as locked:
        fcntl.flock(locked, fcntl.LOCK_EX)
        recorder = tool.start(["mix", EURO, "--amount", "280", "--record", "locked.ndjson"])
        time.sleep(1)
        locked.write('{"id":1}\n')
    recorder.communicate(timeout=60)
    lines = (tool.folder / "locked.ndjson").read_text().splitlines()
    checks.equal("recorded behind another", [json.loads(line)["id"] for line in lines], [1, 2])


def check_named_files(tool, checks):
    os.mkfifo(tool.folder / "pipe")
    (tool.folder / "request.json").write_text(json.dumps({"currency": "EUR", "cassettes": [
        {"value": 50, "count": 9}]}))
    write(tool, {"request": request(50, "request.json"), "answer": {"outcome": "paid"}})
    checks.equal("a line that names a file", replay(tool)[1]["same"], 1)
    checks.equal("--no-files", replay(tool, "--no-files")[1]["badLines"],
                 [bad_line(1, "/request/dispenser", "\"request.json\" is not allowed; expected an "
                           "object or a dispenser such as \"EUR:50x10,20x10\"")])
    good = {"request": request(280), "answer": {"outcome": "paid"}}
    write(tool, {"request": request(50, "pipe"), "answer": {"outcome": "paid"}}, good,
          {"request": request(50, "missing.json"), "answer": {"outcome": "paid"}}, good)
    checks.equal("a pipe is not waited for, nor a file that is not there", replay(tool)[:2],
                 (2, {"requests": 2, "same": 2, "differences": [], "badLines": [
                     bad_line(1, "/request/dispenser", "pipe: no regular file; expected one"),
                     bad_line(3, "/request/dispenser",
                              "missing.json: cannot be opened: No such file or directory")]}))


def check_fields(tool, checks):
    now = json.loads(tool.run(["mix", EURO, "--amount", "280", "--json"])[1])["result"]
    write(tool, {"request": request(280), "answer": now})
    checks.equal("a whole result", replay(tool)[:2],
                 (0, {"requests": 1, "same": 1, "differences": [], "badLines": []}))
    others = {"outcome": "overpaid", "asked": "281", "paid": "0", "values": [1, 2, 3, 4, 5, 6],
              "items": {"notes": 1, "coins": 0}, "returned": -14, "errorCode": "failed",
              "registry": "971A2", "remainder": 7, "amountAfter": 3}
    for field, other in others.items():
        write(tool, {"id": field, "request": request(280), "answer": {field: other}},
              {"id": field, "request": request(280), "answer": {field: now[field]}})
        status, result, _ = replay(tool)
        checks.equal(f"{field}: compared alone", (status, result["differences"]),
                     (1, [{"line": 1, "id": field, "recorded": {field: other},
                           "now": {field: now[field]}}]))
    write(tool, {"request": request(280), "answer": {}})
    checks.equal("nothing is compared that is left out", replay(tool)[0], 0)


BAD = [
    ('{"request":', "1:12: syntax error"),
    ({"answer": {}}, "1: /request: missing; expected 2120 hex digits or a request"),
    ({"request": request(5)}, "1: /answer: missing; expected what was answered, or two libraries"),
    ({"request": request(5), "answer": {"paied": "5"}}, '1: /answer/paied: unknown field; did you mean "paid"?'),
    ({"request": request(5), "answer": {"values": [1]}}, "1: /answer/values: a list of 1 is not allowed; expected a list of 6 numbers"),
    ({"request": request(5), "answer": {"values": [1, 2, 3, 4, 5, "6"]}}, "1: /answer/values/5: "),
    ({"request": request(5), "answer": {"returned": 2**31}}, "1: /answer/returned: "),
    ({"request": request(5), "answer": {"registry": 5}}, "1: /answer/registry: 5 is not allowed; expected text or null"),
    ({"request": request(5), "answer": {"outcome": "payed"}}, '1: /answer/outcome: unknown outcome "payed"; expected one of: '),
    ({"request": {"amount": 5}, "answer": {}}, "1: /request/currency: missing"),
    ({"request": "xy" * 1060, "answer": {}}, "1: /request: other characters than hex digits; expected 2120"),
    ({"request": request(5), "answer": {}, "anser": 1}, '1: /anser: unknown field; did you mean "answer"?'),
]


def check_bad_lines(tool, checks):
    good = {"request": request(280), "answer": {"outcome": "paid"}}
    for line, message in BAD:
        write(tool, line, good)
        status, output, errors = tool.run(["replay", "trace.ndjson"])
        checks.equal(f"{line}: passed over", (status, output),
                     (2, "1 request is answered as recorded\n1 bad line was passed over\n"))
        checks.check(f"{line}: said", errors.startswith(f"qxmix: trace.ndjson:{message}") and
                     errors.count("\n") == 1, errors)
    write(tool, *[line for line, _ in BAD])
    status, result, errors = replay(tool)
    checks.equal("all bad: all are counted, and nothing is said twice",
                 (status, result["requests"], errors), (2, 0, ""))
    checks.equal("all bad: each in its place", [bad["error"]["line"] for bad in result["badLines"]],
                 list(range(1, len(BAD) + 1)))


def check_bad_among_good(tool, checks):
    other = {"id": "other", "request": request(280), "answer": {"paid": "0"}}
    write(tool, {"id": 1, "request": request(280), "answer": {"outcome": "paid"}},
          {"id": "bad", "request": {"amount": 5}, "answer": {}}, '{"request":', other, "[", other)
    answers = tool.run(["batch"], stdin=b'{"id":"bad","amount":5}\n{"request":\n[\n')[1].splitlines()
    messages = [json.loads(answer)["error"]["message"] for answer in answers]
    bad = [bad_line(2, "/request/currency", messages[0], id="bad"), bad_line(3, None, messages[1]),
           bad_line(5, None, messages[2])]
    status, result, _ = replay(tool)
    checks.equal("bad among good: totals", (status, result["requests"], result["same"]), (2, 3, 1))
    checks.equal("bad among good: as batch says it", result["badLines"], bad)
    status, result, _ = replay(tool, "--stop")
    checks.equal("--stop: stops at a difference, not at a bad line",
                 (status, result["requests"], result["badLines"]), (2, 2, bad[:2]))
    status, output, errors = tool.run(["replay", "trace.ndjson"])
    checks.equal("bad among good: for people", (output.splitlines()[:2], errors.count("\n")),
                 (["2 of 3 requests are answered differently", "3 bad lines were passed over"], 3))


def check_odd_files(tool, checks):
    """What is no list of requests must not look like one that is answered as recorded."""
    path = tool.folder / "trace.ndjson"
    for content in (b"", b"\n \r\n"):
        path.write_bytes(content)
        checks.equal(f"{content}: no request", replay(tool),
                     (2, None, "qxmix: trace.ndjson: no requests; expected a recorded one a line\n"))
    good = json.dumps({"request": request(280), "answer": {"outcome": "paid"}}).encode()
    path.write_bytes(good)
    checks.equal("no line end at the end", replay(tool)[1]["requests"], 1)
    path.write_bytes(good + b"\n\n" + b" " * ((1 << 20) - len(good)) + good + b"\r\n")
    too_long = "more than 1048576 bytes; expected a shorter line"
    checks.equal("a line too long", replay(tool)[1]["badLines"], [bad_line(3, None, too_long)])
    for more in (1, 2, 100000):
        path.write_bytes(good + b"\n" + b" " * ((1 << 20) + more) + b"\n" + good + b"\n{")
        result = replay(tool)[1]
        checks.equal(f"a line {more} too long, the next one is whole",
                     (result["same"], [bad["error"]["line"] for bad in result["badLines"]]), (2, [2, 4]))
        path.write_bytes(good + b"\n" + b" " * ((1 << 20) + more))
        checks.equal(f"a line {more} too long at the end",
                     [bad["error"]["line"] for bad in replay(tool)[1]["badLines"]], [2])
    path.write_bytes(good + b"\n\n" + b" " * ((1 << 20) - len(good)) + good + b"\n")
    checks.equal("a line as long as can be", replay(tool)[1]["requests"], 2)
    status, _, errors = tool.run(["replay", "/dev/zero"])
    checks.equal("a line without end", (status, errors),
                 (2, "qxmix: /dev/zero:1: more than 268435456 bytes; expected a line end\n"))


def check_growing(tool, checks):
    """What somebody appends meanwhile is left for the next time; a line that was begun is read whole."""
    hanging = json.dumps({"request": request(HANG, ONES), "answer": {"outcome": "noAnswer"}}) + "\n"
    good = json.dumps({"request": request(5, ONES), "answer": {"paid": "5"}}) + "\n"
    words = ["replay", "--library", "fake.so", "--deadline", "500ms", "--json"]
    path = tool.folder / "trace.ndjson"
    for name, place in (("a trace", "trace.ndjson"), ("standard input", "-")):
        for beginning, rest in ((hanging + good, ""), (hanging + good[:20], good[20:])):
            path.write_text(beginning)
            with open(path, "a", encoding="utf-8") as trace, open(path, "rb") as read:
                process = tool.start_reading(words + [place], path.name, stdin=read)
                trace.write(rest + 9 * good)
            output, errors = process.communicate(timeout=60)
            result = json.loads(output)["result"]
            checks.equal(f"{name} that grows behind {beginning[-8:]}",
                         (result["requests"], result["same"], result["badLines"], errors),
                         (2, 2, [], b""))


def check_libraries(tool, checks):
    write(tool, {"id": 1, "request": request(50, ONES, maxDispenseItems=100)},
          {"id": 2, "request": request(CRASH, ONES, maxDispenseItems=2000)})
    (tool.folder / "real.so").symlink_to(tool.environment["QXMIX_LIBRARY"])
    words = ["replay", "trace.ndjson", "--library", "real.so", "--library", "fake.so"]
    status, output, _ = tool.run(words)
    checks.equal("two libraries", (status, output),
                 (1, "1 of 2 requests is answered differently\n"
                     "line 2, id 2: 1001 EUR, mix 1\n"
                     "             real.so                  fake.so\n"
                     " outcome     paid                     crashed\n"
                     " paid        1001                     ?\n"
                     " items       {\"notes\":1001,\"coins\":0} {\"notes\":null,\"coins\":null}\n"
                     " values      1001 0 0 0 0 0           ? ? ? ? ? ?\n"
                     " returned    0                        ?\n"
                     " remainder   0                        ?\n"
                     " amountAfter 1001                     ?\n"))
    result = json.loads(tool.run(words + ["--json"])[1])["result"]
    checks.equal("two libraries: a and b",
                 [(d["a"]["outcome"], d["b"]["outcome"]) for d in result["differences"]],
                 [("paid", "crashed")])
    status, output, _ = tool.run(["replay", "trace.ndjson", "--library", "real.so", "--library",
                                  tool.environment["QXMIX_LIBRARY"]])
    checks.equal("alike", (status, output), (0, "2 requests are answered alike\n"))


def check_registry(tool, checks):
    refused = request(60, "EUR:50x200,20x90", mix=6)
    write(tool, *[{"request": {**refused, "registry": {"CSTMinimum4Mix6": str(minimum)}},
                   "answer": {"outcome": "paid" if minimum < 90 else "notDispensable"}}
                  for minimum in list(range(1, 30)) + [95, 5, 250]])
    checks.equal("requests bring their registry", replay(tool)[0], 0)
    status, result, _ = replay(tool, "--registry", "mended.reg", "--registry-out", "left.reg")
    checks.equal("--registry stands before it", (status, len(result["differences"])), (1, 30))
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("--registry-out", '"CDM"=hex(1):39,37,31,41,32' in left, left)


def check_many(tool, checks):
    write(tool, *[{"id": n, "request": request(50), "answer": {"paid": "0"}} for n in range(25)])
    lines = tool.run(["replay", "trace.ndjson"])[1].splitlines()
    checks.equal("the first twenty are shown", (lines[0], len(lines), lines[-1]),
                 ("25 of 25 requests are answered differently", 62, "and 5 more; --json has them all"))


def check_interrupt(tool, checks):
    write(tool, {"request": request(5, ONES), "answer": {"paid": "5"}},
          {"request": request(HANG, ONES), "answer": {}})
    for words, complete in (([], None), (["--json"], False)):
        status, output, errors = tool.interrupt(
            ["replay", "trace.ndjson", "--library", "fake.so", "--deadline", "60s"] + words, 0.6)
        checks.equal("Ctrl-C: exit status", (status, errors), (130, b""))
        if complete is None:
            checks.equal("Ctrl-C: what is complete", output,
                         b"1 request is answered as recorded\n"
                         b"interrupted at line 2, 1 requests asked\n")
        else:
            checks.equal("Ctrl-C: complete", json.loads(output)["complete"], complete)


run_parts(check_recorded, check_recorded_side_by_side, check_recorded_behind_another,
          check_named_files, check_record_behind_an_open_line, check_fields, check_bad_lines, check_bad_among_good,
          check_odd_files, check_growing, check_libraries, check_registry, check_many, check_interrupt)
