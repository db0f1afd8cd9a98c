#!/usr/bin/env python3
"""How the tool behaves towards files, pipes, terminals and Ctrl-C."""

import json
import re
import signal
import struct
import subprocess
import time

from at_terminal import shown_at_terminal
from tool_runner import run_parts

HANGING = ["mix", "EUR:50x100,20x100", "--library", "fake.so", "--amount", "1002", "--deadline", "60s"]


def children_of(process):
    path = f"/proc/{process.pid}/task/{process.pid}/children"
    with open(path, encoding="ascii") as children:
        return [int(child) for child in children.read().split()]


def wait_for_child(process):
    for _ in range(500):
        children = children_of(process)
        if children:
            return children[0]
        time.sleep(0.01)
    raise TimeoutError("the tool started no child")


def is_alive(process_id):
    try:
        with open(f"/proc/{process_id}/stat", encoding="ascii") as state:
            return state.read().rsplit(")", 1)[1].split()[0] not in "ZX"
    except FileNotFoundError:
        return False


def check_interrupts(tool, checks):
    process = tool.start(HANGING)
    child = wait_for_child(process)
    time.sleep(0.3)
    process.send_signal(signal.SIGINT)
    output, errors = process.communicate(timeout=20)
    checks.equal("Ctrl-C: exit status", process.returncode, 130)
    checks.equal("Ctrl-C: nothing to show", output, b"")
    checks.equal("Ctrl-C: says so", errors, b"qxmix: interrupted\n")
    checks.check("Ctrl-C: the child is gone", not is_alive(child))

    # No answer to 156 by mix 4, nor to any amount around it: two seconds are spent on asking, since
    # counts of 2^31 leave it to the call to find out.
    status, output, errors = tool.interrupt(
        ["explain", "endless.json", "--amount", "156", "--deadline", "100ms"], 1.2)
    checks.equal("Ctrl-C while explaining: exit status", status, 130)
    checks.equal("Ctrl-C while explaining: nothing said", errors, b"")
    checks.check("Ctrl-C while explaining: what is known", output.startswith(b"NO ANSWER  within 100 ms")
                 and output.endswith(b"interrupted: the explanation is not complete\n"), output)

    process = tool.start(HANGING[:-4] + ["--mixes", "1,2", "--amount", "1002", "--deadline", "60s",
                                         "--json", "--registry-out", "left.reg"])
    wait_for_child(process)
    time.sleep(0.3)
    process.send_signal(signal.SIGINT)
    output, _ = process.communicate(timeout=20)
    answer = json.loads(output)
    checks.equal("Ctrl-C: complete", answer["complete"], False)
    checks.equal("Ctrl-C: exit status in the answer", answer["exitStatus"], 130)
    checks.check("Ctrl-C: output files are written", (tool.folder / "left.reg").exists())


def check_lint_interrupt(tool, checks):
    # 1002 hangs.
    status, output, errors = tool.interrupt(
        ["lint", "EUR:1x40000", "--mix", "1", "--from", "900", "--to", "1005", "--step", "3",
         "--limit", "2000", "--jobs", "1", "--deadline", "60s", "--library", "fake.so"], 1.5)
    checks.equal("Ctrl-C while checking: exit status", status, 130)
    checks.equal("Ctrl-C while checking: nothing said", errors, b"")
    checks.check("Ctrl-C while checking: what is known", re.search(
        rb" asked\n.*interrupted at 1002 EUR, 34 of 36 amounts\n$", output, re.S), output)


def check_end_of_tool(tool, checks):
    process = tool.start(HANGING)
    child = wait_for_child(process)
    process.kill()
    process.wait()
    for _ in range(200):
        if not is_alive(child):
            break
        time.sleep(0.01)
    checks.check("a child ends with the tool", not is_alive(child))


def check_pipes(tool, checks):
    process = tool.start(["types"])
    process.stdout.close()
    errors = process.stderr.read()
    checks.equal("closed pipe: ended by the signal", process.wait(), -signal.SIGPIPE)
    checks.equal("closed pipe: silent", errors, b"")
    with open("/dev/full", "wb") as full:
        process = tool.start(["types"], stdout=full)
        _, errors = process.communicate()
    checks.equal("full disk: exit status", process.returncode, 4)
    checks.equal("full disk: said", errors,
                 b"qxmix: standard output: cannot be written: No space left on device\n")


def check_colors(tool, checks):
    words = ["mix", "examples/euro.json", "--amount", "280"]
    plain = tool.run(words)[1]
    colored = shown_at_terminal(tool, words)
    checks.check("terminal: coloured", "\x1b[38;5;74mPAID\x1b[0m" in colored, colored)
    checks.equal("terminal: the same text", re.sub(r"\x1b\[[0-9;]*m", "", colored), plain)
    checks.equal("NO_COLOR", shown_at_terminal(tool, words, environment={"NO_COLOR": "1"}), plain)
    checks.equal("NO_COLOR empty", shown_at_terminal(tool, words, environment={"NO_COLOR": ""}), colored)
    checks.equal("TERM=dumb", shown_at_terminal(tool, words, environment={"TERM": "dumb"}), plain)
    checks.equal("--color never", shown_at_terminal(tool, words + ["--color", "never"]), plain)
    checks.equal("--color always", tool.run(words + ["--color", "always"],
                                            environment={"NO_COLOR": "1"})[1], colored)
    danger = ["mix", "examples/three-notes.json", "--amount", "110", "--mix", "4", "--color", "always"]
    checks.check("DANGER is bold", "\x1b[1;38;5;166mDANGER\x1b[0m" in tool.run(danger)[1])


def check_widths(tool, checks):
    words = ["mix", "long-labels.json", "--amount", "60", "--mix", "all"]
    narrow = tool.run(words)[1]
    checks.check("80 columns without a terminal", max(map(len, narrow.split("\n"))) <= 80, narrow)
    checks.check("labels are cut to eight", " the uppe   50 EUR" in narrow, narrow)
    wide = shown_at_terminal(tool, words + ["--color", "never"], columns=132)
    checks.check("wide terminals show labels whole", " the uppermost cassette of all   50 EUR" in wide, wide)
    checks.check("no blanks at line ends", not re.search(r" $", narrow, re.M), narrow)


def check_files(tool, checks):
    folder = tool.folder
    target = folder / "target.bin"
    target.write_bytes(b"old")
    target.chmod(0o640)
    (folder / "link.bin").symlink_to("target.bin")
    status, _, _ = tool.run(["mix", "EUR:50x10", "--amount", "50", "--raw-out", "link.bin"])
    checks.equal("output through a link: exit status", status, 0)
    checks.check("output through a link: the link stays", (folder / "link.bin").is_symlink())
    checks.equal("output: size", len(target.read_bytes()), 1084)
    checks.equal("output: mode kept", target.stat().st_mode & 0o777, 0o640)
    checks.equal("output: nothing left beside it", list(folder.glob("*.part*")), [])
    status, output, errors = tool.run(
        ["mix", "EUR:50x10", "--amount", "50", "--raw-out", "target.bin", "--registry-out", "no/such"])
    checks.equal("unwritable: exit status", status, 4)
    checks.equal("unwritable: nothing shown", output, "")
    checks.equal("unwritable: said", errors,
                 "qxmix: no/such: cannot be written: No such file or directory\n")
    checks.equal("unwritable: nothing left", list(folder.glob("*.part*")), [])


def check_one_file_twice(tool, checks):
    ask = ["EUR:50x10", "--amount", "50"]
    words = [
        (["mix", *ask, "--raw-out", "same.bin", "--record", "./same.bin"], "--record", "--raw-out"),
        (["mix", *ask, "--raw-out", "same.bin", "--registry-out", "same.bin"], "--registry-out",
         "--raw-out"),
        (["map", ask[0], "--output", "same.csv", "--registry-out", "same.csv"], "--registry-out",
         "--output"),
        (["compare", ask[0], ask[0], "--output", "same.csv", "--registry-out", "same.csv"],
         "--registry-out", "--output"),
        (["simulate", ask[0], "--demand", "examples/week.json", "--output", "same.csv",
          "--registry-out", "same.csv"], "--registry-out", "--output"),
        (["registry", "examples/device.reg", "--output", "same.reg", "--registry-out", "same.reg"],
         "--registry-out", "--output"),
    ]
    for line, second, first in words:
        checks.equal(" ".join(line), tool.run(line),
                     (2, "", f"qxmix: {second}: {line[-1]} is written by {first} already; "
                             "expected another file\n"))
        checks.equal("nothing is written", list(tool.folder.glob("same.*")), [])
    checks.equal("a device takes both", tool.run(["mix", *ask, "--raw-out", "/dev/null",
                                                  "--registry-out", "/dev/null"])[0], 0)


def check_no_answer(tool, checks):
    started = time.monotonic()
    status, output, errors = tool.run(
        ["mix", "EUR:50x100,20x100", "--library", "fake.so", "--amount", "1002", "--deadline", "300ms",
         "--raw-out", "none.bin"])
    took = time.monotonic() - started
    checks.equal("no answer: exit status", status, 3)
    checks.check("no answer: says for how long",
                 output.startswith("NO ANSWER  within 300 ms for 1002 EUR, mix 1\n"), output)
    checks.equal("no answer: no file", (folder_has(tool, "none.bin"), errors),
                 (False, "qxmix: none.bin: not written: there is no answer\n"))
    # The nine other mixes are asked for a tenth of a second each.
    checks.check("no answer: ends in time", 1.0 < took < 20, f"{took} s")


def check_waiting(tool, checks):
    """Who waits at a terminal for one answer is told what for, whatever standard output is."""
    ask = ["EUR:50x100,20x100", "--library", "fake.so", "--amount", "1002", "--mix", "2", "--deadline",
           "900ms"]
    for command in ("mix", "explain"):
        shown = shown_at_terminal(tool, [command, *ask], "stderr")
        checks.check(f"{command}: says what it waits for", re.match(
            r"\rwaiting for mix 2 to answer 1002 EUR, (0\.[5-9]|[1-9]\d*\.\d) of 0\.9 s\x1b\[K\r", shown), shown)
        checks.check(f"{command}: and takes it away", shown.endswith("\r\x1b[K"), shown)
        checks.check(f"{command}: all of it", "\n" not in shown, shown)
    # Short questions one after the other take their time, too.
    shown = shown_at_terminal(tool, ["mix", *ask[:-1], "100ms"], "stderr")
    checks.check("mix: other mixes are named", re.search(
        r"\rwaiting for mix ([3-9]|10) to answer 1002 EUR, 0(\.1)? of 0\.1 s\x1b", shown), shown)
    quick = ["mix", "EUR:50x1", "--amount", "50"]
    for name, words in (("quick", quick), ("-q", ["mix", *ask, "-q"])):
        checks.equal(f"{name}: nothing", shown_at_terminal(tool, words, "stderr"), "")
    checks.equal("no terminal: nothing", tool.run(["mix", *ask])[2], "")


def check_lines_counted(tool, checks):
    """Streams count what they have answered, where standard error is a terminal."""
    slow = {"dispenser": "EUR:1x40000", "amount": 1002, "maxDispenseItems": 2000}
    lines = "".join(json.dumps(slow) + "\n" for _ in range(8))
    (tool.folder / "slow.ndjson").write_text(lines)
    fake = ["--library", "fake.so", "--deadline", "150ms"]
    with open(tool.folder / "slow.ndjson", "rb") as stream:
        shown = shown_at_terminal(tool, ["batch", "--jobs", "1", *fake], "stderr", stdin=stream)
    checks.check("batch: counts lines", re.search(r"\rbatch  [0-8] lines  [0-9]+/s\x1b\[K\r", shown) and
                 shown.endswith("\r\x1b[K"), shown)
    (tool.folder / "slow-trace.ndjson").write_text("".join(
        json.dumps({"id": number, "request": slow, "answer": {}}) + "\n" for number in range(8)))
    shown = shown_at_terminal(tool, ["replay", "slow-trace.ndjson", *fake], "stderr")
    checks.check("replay: counts lines", re.search(r"\rreplay  [1-8] lines  [0-9]+/s\x1b\[K\r", shown) and
                 shown.endswith("\r\x1b[K"), shown)


def folder_has(tool, name):
    return (tool.folder / name).exists()


def check_raw(tool, checks):
    tool.run(["mix", "examples/euro.json", "--amount", "280", "--raw-out", "both.bin",
              "--record", "trace.ndjson"])
    tool.run(["mix", "EUR:50x1", "--amount", "60", "--record", "trace.ndjson"])
    both = (tool.folder / "both.bin").read_bytes()
    (tool.folder / "request.bin").write_bytes(both[:1060])
    lines = [json.loads(line) for line in (tool.folder / "trace.ndjson").read_text().splitlines()]
    checks.equal("record: ids", [line["id"] for line in lines], [1, 2])
    checks.equal("record: request", bytes.fromhex(lines[0]["request"]), both[:1060])
    checks.equal("record: answers", [line["answer"] for line in lines], [
        {"returned": 0, "values": [2, 1, 1, 0, 1, 0], "remainder": 0, "registry": None},
        {"returned": -306, "values": [0] * 6, "remainder": 0, "registry": "971A2"}])
    checks.equal("raw: result", both[1060:], struct.pack("<6I", 2, 1, 1, 0, 1, 0))
    _, labelled, _ = tool.run(["mix", "--raw-in", "request.bin", "examples/euro.json"])
    _, asked, _ = tool.run(["mix", "examples/euro.json", "--amount", "280"])
    checks.equal("raw: asked again, with labels", labelled, asked)
    _, unlabelled, _ = tool.run(["mix", "--raw-in", "request.bin"])
    checks.check("raw: asked again, without", " 0   100 EUR      300" in unlabelled, unlabelled)


def check_raw_everywhere(tool, checks):
    """What --raw-out wrote is asked again, by each command that asks about a dispenser."""
    euro = "EUR:100x300,50x1200,20x1500,20x900,10x60:low"
    for amount, words in (("285", ["--mix", "2"]), ("280", []), ("3", ["--exponent", "2"]),
                          ("0", ["--exponent", "1"])):
        asking = [euro, "--amount", amount, *words]
        asked = tool.run(["mix", *asking, "--raw-out", "both.bin"])[1]
        checks.equal(f"{asking}: mix", tool.run(["mix", "--raw-in", "both.bin"])[1], asked)
        checks.equal(f"{asking}: explain", tool.run(["explain", "--raw-in", "both.bin"])[1],
                     tool.run(["explain", *asking])[1])
    tool.run(["mix", euro, "--amount", "285", "--limit", "7", "--mix", "3", "--raw-out", "both.bin"])
    for command, words in (("map", ["--to", "100", "--limit", "7"]),
                           ("lint", ["--to", "100", "--limit", "7", "--mix", "3"])):
        taken = [word for word in words if word not in ("--limit", "7", "--mix", "3")]
        checks.equal(command, tool.run([command, "--raw-in", "both.bin", *taken])[:2],
                     tool.run([command, euro, *words])[:2])
    page = ["map", "--raw-in", "both.bin", "--to", "100", "--output", "map.html"]
    tool.run(page)
    checks.check("the page names the file", "qxmix map --raw-in both.bin --mixes 1,2" in
                 (tool.folder / "map.html").read_text())
    labelled = tool.run(["map", "--raw-in", "both.bin", "examples/euro.json", "--to", "100", "--json"])[1]
    checks.equal("labels are lent", json.loads(labelled)["input"]["dispenser"]["cassettes"][0]["label"],
                 "A")
    both = json.loads(tool.run(["explain", "--raw-in", "both.bin", "--json"])[1])
    checks.equal("explain: the request is told", bytes.fromhex(both["input"]["request"]),
                 (tool.folder / "both.bin").read_bytes()[:1060])
    tool.run(["mix", "EUR:50x1,20x1", "--amount", "9", "--exponent", "1", "--partial", "--raw-out", "both.bin"])
    tool.run(["mix", "EUR:55x1", "--amount", "9", "--exponent", "1", "--partial", "--raw-out", "low.bin"])
    checks.equal("an amount that was lowered below the unit",
                 tool.run(["mix", "--raw-in", "low.bin"])[::2],
                 (2, "qxmix: low.bin: the amount came back as 55, lowered; expected the 1060 bytes of "
                     "the request as it was asked\n"))
    for command in ("map", "lint"):
        (tool.folder / "empty.bin").write_bytes(bytes(1060))
        checks.equal(f"{command}: no cassettes", tool.run([command, "--raw-in", "empty.bin"])[::2],
                     (2, "qxmix: --raw-in: empty.bin has no cassettes; expected one at least\n"))
        checks.equal(f"{command}: neither", tool.run([command])[0], 2)


def check_long_numbers(tool, checks):
    """What nobody can read is short for people, and exact for programs."""
    (tool.folder / "garbage.bin").write_bytes(bytes((7 * place + 3) % 251 for place in range(1060)))
    (tool.folder / "ones.bin").write_bytes(b"\xff" * 1060)
    asking = ["EUR:50x10,20x10", "--amount", "60", "--exponent"]
    for words in (["mix", "--raw-in", "garbage.bin"], ["mix", "--raw-in", "ones.bin"],
                  ["mix", *asking, "-32768"], ["mix", *asking, "32767"],
                  ["explain", *asking, "-32768"],
                  ["lint", "EUR:50x10,20x10", "--exponent", "-32768", "--to", "40"],
                  ["map", "EUR:50x10,20x10", "--exponent", "-32768", "--to", "40"],
                  ["compare", "EUR:50x10", "EUR:20x10", "--exponent", "-32768", "--to", "40"]):
        _, shown, errors = tool.run(words)
        checks.check(f"{' '.join(words)}: readable lines", shown + errors and
                     max(map(len, (shown + errors).split("\n"))) <= 200, (shown + errors)[:300])
    _, shown, _ = tool.run(["mix", *asking, "-32768", "--json"])
    checks.equal("--json: exactly", json.loads(shown)["result"]["asked"], "0." + "0" * 32766 + "60")


def check_trace_and_registry(tool, checks):
    words = ["mix", "EUR:50x1", "--amount", "60", "--registry", "examples/device.reg",
             "--registry-out", "left.reg", "--trace"]
    _, _, errors = tool.run(words)
    checks.equal("trace", errors.splitlines(), [
        "CMixAlgorithm::CMixAlgorithm() MixAlgorithm.dll Version = V 06.00.02.",
        "CMixAlgorithm::CMixAlgorithm() CSTMinimum4Mix6 = 0.",
        "CMixAlgorithm::RegWriteError() Error Code is 971A2."])
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("registry: the code is left", '"CDM"=hex(1):39,37,31,41,32' in left, left)
    checks.check("registry: the rest stays", '"TraceLevel"=dword:00000003' in left, left)
    tool.run(["mix", "EUR:50x1", "--amount", "50", "--registry", "examples/device.reg",
              "--registry-out", "left.reg"])
    left = (tool.folder / "left.reg").read_bytes().decode("utf-16")
    checks.check("registry: success clears nothing", '"CDM"=hex(1):39,37,31,41,33' in left, left)
    before = (tool.folder / "examples" / "device.reg").read_bytes()
    tool.run(["registry", "examples/device.reg", "--set", "CSTMinimum4Mix6=250", "--clear-error"])
    checks.equal("registry: an input stays", (tool.folder / "examples/device.reg").read_bytes(), before)
    status, _, _ = tool.run(["registry", "examples/device.reg", "--set", "CSTMinimum4Mix6=250",
                             "--clear-error", "--output", "examples/device.reg"])
    checks.equal("registry: mended", status, 0)
    _, shown, _ = tool.run(["registry", "examples/device.reg"])
    checks.check("registry: written", ' CSTMinimum4Mix6  REG_SZ "250"' in shown, shown)


def check_registry_in_answers(tool, checks):
    for line in ("mix EUR:50x10 --amount 50", "explain EUR:50x10 --amount 50", "lint EUR:50x10",
                 "map EUR:50x10 --to 50",
                 "simulate EUR:50x10 --demand examples/week.json --mixes 1"):
        words = line.split() + ["--registry", "examples/device.reg", "--json"]
        dispenser = json.loads(tool.run(words)[1])["input"]["dispenser"]
        checks.equal(f"{line}: what the module takes", dispenser["registry"], {
            "TraceLevel": {"type": 4, "hex": "03000000"},
            "CSTMinimum4Mix6": {"type": 1, "hex": "6100620063000000"}})


def check_library_order(tool, checks):
    named = tool.run(["--version", "--library", "fake.so"])[1]
    checks.equal("--library", named, "qxmix 1.0.0\nmodule names no version (fake.so)\n")
    configured = tool.run(["--version"], environment={"QXMIX_LIBRARY": "./fake.so"})[1]
    checks.equal("QXMIX_LIBRARY", configured, named)
    found = tool.run(["--version"], environment={"QXMIX_LIBRARY": ""})[1]
    checks.equal("found by itself", found, "qxmix 1.0.0\nmodule V 06.00.02 (libQXMIX.so)\n")
    status, missing, _ = tool.run(["--version", "--library", "missing.so"])
    checks.equal("missing", (status, missing),
                 (0, "qxmix 1.0.0\nmodule not found: missing.so: no such library\n"))


def check_input(tool, checks):
    dispenser = (tool.folder / "examples" / "euro.json").read_bytes()
    _, from_input, _ = tool.run(["mix", "-", "--amount", "280"], stdin=dispenser)
    checks.equal("standard input", from_input, tool.run(["mix", "examples/euro.json", "--amount", "280"])[1])
    status, output, errors = tool.run(["mix", "-", "--amount", "280"], stdin=b"{")
    checks.equal("standard input: wrong", (status, output), (2, ""))
    checks.check("standard input: named", errors.startswith("qxmix: standard input:1:2: "), errors)
    checks.equal("a dispenser larger than any",
                 tool.run(["mix", "-", "--amount", "5"], stdin=b" " * ((16 << 20) + 1)),
                 (2, "", "qxmix: standard input: too large; expected at most 16 MiB\n"))
    # In one line, whatever the input holds: a zero byte, a control of one byte, a name without end.
    for given, expected in ((b'{"a\\u0000b":1}', "standard input: /a?b: unknown field; "),
                            (b"\x9b31m", "standard input:1:1: syntax error"),
                            (b'{"' + b"x" * 100000 + b'":1}', "standard input: /xxx")):
        process = tool.start(["mix", "-", "--amount", "280"], stdin=subprocess.PIPE)
        errors = process.communicate(given)[1]
        checks.check(f"one readable line: {given[:20]}",
                     errors.startswith(f"qxmix: {expected}".encode()) and errors.count(b"\n") == 1
                     and len(errors) < 2100 and all(31 < byte < 127 for byte in errors[:-1]),
                     errors[:300])
    (tool.folder / "\udc9b.json").write_bytes(b"{")
    process = tool.start(["mix", b"\x9b.json", "--amount", "280"])
    errors = process.communicate()[1]
    checks.check("a name that is no UTF-8", errors.startswith(b"qxmix: ?.json:1:2: "), errors)


def check_hostile_names(tool, checks):
    """Names of files, dispensers and cassettes neither move the cursor nor turn a line."""
    hostile = "a\x1b[31mb\u009bc\u202ed\u2028e\x07"
    moving = "\x1b\u009b\u202e\u2028\x07"
    euro = json.loads((tool.folder / "examples/euro.json").read_text())
    euro["name"] = hostile
    for cassette in euro["cassettes"]:
        cassette["label"] = hostile
    name, trace, library = hostile + ".json", hostile + ".ndjson", "./" + hostile + ".so"
    (tool.folder / name).write_text(json.dumps(euro))
    (tool.folder / trace).write_text(
        (tool.folder / "examples/trace.ndjson").read_text().replace('"id":1044', f'"id":{json.dumps(hostile)}'))
    registry = hostile + ".reg"
    (tool.folder / registry).write_bytes((tool.folder / "examples/device.reg").read_bytes())
    (tool.folder / library).symlink_to(tool.arguments.library)
    lines = (["mix", name, "--amount", "280"], ["mix", name, "--amount", "280", "--mix", "all"],
             ["explain", name, "--amount", "285"], ["map", name, "--to", "100"], ["lint", name],
             ["compare", name, "examples/no-tens.json", "--to", "100"], ["replay", trace],
             ["simulate", name, "--demand", "examples/week.json", "--mixes", "1"],
             ["registry", registry], ["--version", "--library", library],
             ["--version", "--library", library + "x"], ["types", "--library", library], [hostile],
             ["mix", name, "--" + hostile], ["mix", name, "--amount", hostile],
             ["mix", "EUR:5x5:" + hostile, "--amount", "5"], ["map", name, "--output", hostile],
             ["mix", name, "--amount", "50", "--record", hostile + "/none"],
             ["registry", registry, "--set", hostile])
    for line in lines:
        _, output, errors = tool.run(line)
        shown = output + errors
        checks.check(f"{line[0]!a} shows no control", shown and not set(shown) & set(moving),
                     repr(line) + repr(shown))


def check_called_alone(tool, checks):
    status, output, errors = tool.run([])
    checks.equal("called alone: exit status", (status, output), (2, ""))
    for command in ("mix", "explain", "map", "lint", "types", "registry"):
        checks.check(f"called alone: lists {command}", f"\n  {command} " in errors, errors)
        status, shown, errors_of_help = tool.run([command, "--help"])
        checks.equal(f"{command} --help", (status, errors_of_help), (0, ""))
        checks.check(f"{command} --help: usage", f"usage\n  qxmix {command}" in shown, shown)


run_parts(check_interrupts, check_lint_interrupt, check_end_of_tool, check_pipes, check_colors,
          check_widths, check_files, check_one_file_twice, check_no_answer,
          check_waiting, check_lines_counted, check_raw, check_raw_everywhere,
          check_registry_in_answers, check_long_numbers, check_trace_and_registry,
          check_library_order, check_input, check_hostile_names, check_called_alone)
