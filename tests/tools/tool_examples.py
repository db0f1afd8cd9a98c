#!/usr/bin/env python3
"""Runs the command lines in examples/*.txt and compares what they print, letter by letter.

An example begins with a line "$ qxmix ... [exit N]", which may go on after a backslash at its end.
What follows, up to the next example, is the text it prints: lines that begin with "qxmix: " on
standard error, all others on standard output. Lines that begin with "#" are remarks. "< FILE" at the
end of a command is its standard input; in a line of JSON "..." stands for any text.
QXMIX_EXAMPLE=lint.txt:12 runs that one alone; several have commas between them.
"""

import os
import pathlib
import re
import shlex

from tool_runner import HERE, Checks, Tool, parse_arguments


def read_examples(path):
    """The examples of a file: line number, words, exit status, lines printed."""
    examples = []
    lines = path.read_text().split("\n")
    index = 0
    while index < len(lines):
        line = lines[index]
        number = index + 1
        index += 1
        if not line.startswith("$ "):
            if examples and not line.startswith("#"):
                examples[-1][3].append(line)
            continue
        while "[exit " not in line:
            line = line.rstrip("\\") + lines[index]
            index += 1
        command, status = re.fullmatch(r"\$ qxmix(.*)\[exit (\d+)\]", line).groups()
        examples.append((number, shlex.split(command), int(status), []))
    return examples


def strip_end(lines):
    """The lines without the blank ones that set off the next example."""
    while lines and not lines[-1]:
        lines = lines[:-1]
    return lines


def fill_in(expected, output):
    """The expected lines, their "..." replaced by what was printed in its place."""
    for index, printed in enumerate(output.split("\n")[:len(expected)]):
        pattern = ".*".join(map(re.escape, expected[index].split("...")))
        if expected[index].startswith("{") and re.fullmatch(pattern, printed):
            expected[index] = printed
    return expected


def main():
    arguments = parse_arguments()
    checks = Checks()
    chosen = os.environ.get("QXMIX_EXAMPLE", "").split(",")
    for path in sorted(pathlib.Path(HERE / "examples").glob("*.txt")):
        for number, words, expected_status, lines in read_examples(path):
            if chosen != [""] and f"{path.name}:{number}" not in chosen:
                continue
            name = f"{path.name}:{number}: qxmix {' '.join(words)}"
            with Tool(arguments) as tool:
                status, output, errors = tool.run_redirected(words)
            lines = fill_in(strip_end(lines), output)
            is_error = [line.startswith("qxmix: ") for line in lines]
            checks.equal(name + " [exit status]", status, expected_status)
            checks.equal(name + " [standard output]", output,
                         "".join(l + "\n" for l, e in zip(lines, is_error) if not e))
            checks.equal(name + " [standard error]", errors,
                         "".join(l + "\n" for l, e in zip(lines, is_error) if e))
    checks.finish()


main()
