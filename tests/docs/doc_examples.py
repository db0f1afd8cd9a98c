#!/usr/bin/env python3
"""Runs every `$ qxmix ...` in the documents and compares what it prints with what stands there.

doc_examples.py TOOL PROJECT DOCUMENT...

In a fenced block a command is followed by its standard output; a last line `...` stands for more
lines, and `...` in a line of JSON for any text. `< FILE` at the end of a command is its standard
input. `[exit N]` at the end of the command's line is its exit status, 0 to 3 where there is none.
A command may go on in the next line after a backslash.
"""
import os
import re
import shlex
import subprocess
import sys


def examples(path):
    """The (line number, command, exit status or None, expected lines) of one document."""
    found, inside, current = [], False, None
    for number, line in enumerate(open(path, encoding="utf-8").read().split("\n"), 1):
        if line.startswith("```"):
            inside, current = not inside, None
        elif inside and line.startswith("$ qxmix"):
            current = [number, line[2:], None, []]
            found.append(current)
        elif inside and line.startswith("$ "):
            current = None
        elif current and current[1].endswith("\\"):
            current[1] = current[1][:-1] + line.strip()
        elif current:
            current[3].append(line)
    for example in found:
        marked = re.match(r"(.*?)\s+\[exit (\d+)\]$", example[1])
        if marked:
            example[1], example[2] = marked.group(1), int(marked.group(2))
        while example[3] and not example[3][-1]:
            example[3].pop()
    return found


def difference(expected, printed):
    """What is wrong in one line, or None."""
    if expected and expected[-1] == "...":
        expected, printed = expected[:-1], printed[: len(expected) - 1]
    for wanted, got in zip(expected, printed):
        pattern = ".*".join(map(re.escape, wanted.split("...")))
        if wanted != got and not (wanted.startswith("{") and re.fullmatch(pattern, got)):
            return f"expected {wanted!r}, got {got!r}"
    if len(expected) != len(printed):
        return f"expected {len(expected)} lines, got {len(printed)}"
    return None


def main():
    tool, project, documents = os.path.abspath(sys.argv[1]), sys.argv[2], sys.argv[3:]
    os.chdir(project)
    environment = {**os.environ, "NO_COLOR": "1", "COLUMNS": "80"}
    passed = failed = 0
    for document in documents:
        for number, command, status, expected in examples(document):
            words, given = shlex.split(command)[1:], os.devnull
            if words[-2:-1] == ["<"]:
                words, given = words[:-2], words[-1]
            with open(given, encoding="utf-8") as stdin:
                run = subprocess.run([tool] + words, capture_output=True, text=True, stdin=stdin,
                                     env=environment, timeout=60, check=False)
            printed = (run.stdout or run.stderr).rstrip("\n").split("\n")
            wrong = difference(expected, printed)
            if not expected:
                wrong = "no output stands below it"
            elif run.returncode not in ([status] if status is not None else [0, 1, 2, 3]):
                wrong = f"exit status {run.returncode}"
            passed, failed = passed + (wrong is None), failed + (wrong is not None)
            if wrong:
                print(f"{document}:{number}: {command}: {wrong}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
