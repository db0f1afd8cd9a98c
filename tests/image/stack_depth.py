#!/usr/bin/env python3
"""Adds up the stack of the device's library along its deepest path of calls.

Reads what the compiler writes with -fcallgraph-info=su: the frame of each function and whom it
calls. A call through a table is taken for the most expensive function of that table. What the
system's functions take is theirs; a helper of the compiler's own counts as HELPER bytes.

    stack_depth.py FOLDER MOST
"""

import functools
import pathlib
import re
import sys

HELPER = 64  # division and floating point: they keep some registers, no more
NODE = re.compile(r'node: \{ title: "([^"]*)" label: "(.*?)\\n.*?(\d+) bytes \((\w+[^)]*)\)')
EDGE = re.compile(r'edge: \{ sourcename: "([^"]*)" targetname: "([^"]*)"')

# Who calls through a table, and what stands in it.
TABLES = [
    ("17MixAlgorithmProxy11GetMixTypes", "13CMixAlgorithm11GetMixTypes"),
    ("17MixAlgorithmProxy12MixCalculate", "13CMixAlgorithm12MixCalculate"),
    ("13CMixAlgorithm12MixCalculate", r"13CMixAlgorithm\d+(Calc|SortLCU)|Spread(InOrder|RoundRobin)"),
    ("DeleteMixAlgorithm", "17MixAlgorithmProxy7Destroy"),
]


def read(folder):
    frames, names, calls = {}, {}, {}
    for path in sorted(pathlib.Path(folder).rglob("*.ci")):
        text = path.read_text(encoding="utf-8")
        for symbol, name, size, kind in NODE.findall(text):
            if kind != "static" and "bounded" not in kind:
                sys.exit(f"{name}: the size of its frame is not known: {kind}")
            frames[symbol] = max(int(size), frames.get(symbol, 0))
            names[symbol] = name
        for caller, callee in EDGE.findall(text):
            # A constructor is compiled once for its two names.
            calls.setdefault(caller, set()).add(re.sub(r"(\d\D+)C1E", r"\1C2E", callee))
    return frames, names, calls


def main():
    frames, names, calls = read(sys.argv[1])
    most = int(sys.argv[2])
    under_way = []

    def targets(caller, callee):
        if callee != "__indirect_call":
            return [callee]
        for part, table in TABLES:
            if part in caller:
                return [symbol for symbol in frames if re.search(table, symbol)]
        return []  # the host's own operation

    @functools.lru_cache(maxsize=None)
    def deepest(symbol):
        """(bytes, path) from this function down."""
        if symbol in under_way:
            sys.exit("calls itself: " + names.get(symbol, symbol))
        if symbol not in frames:
            return (HELPER if symbol.startswith("__") else 0, (symbol,))
        under_way.append(symbol)
        below = [deepest(target) for callee in calls.get(symbol, ())
                 for target in targets(symbol, callee)]
        under_way.pop()
        size, path = max(below, default=(0, ()))
        return (frames[symbol] + size, (symbol, *path))

    roots = {"MixCalculate": "_ZN17MixAlgorithmProxy12MixCalculate",
             "GetMixTypes": "_ZN17MixAlgorithmProxy11GetMixTypes",
             "CreateMixAlgorithm": "CreateMixAlgorithm", "DeleteMixAlgorithm": "DeleteMixAlgorithm"}
    largest = 0
    for root, symbol in roots.items():
        found = [frame for frame in frames if frame.startswith(symbol)]
        if len(found) != 1:
            sys.exit(f"{root}: {len(found)} functions of this name")
        size, path = deepest(found[0])
        largest = max(largest, size)
        print(f"{root}: {size} bytes")
        for step in path:
            print(f"    {frames.get(step, HELPER if step.startswith('__') else 0):6}  "
                  f"{names.get(step, step)}")
    print(f"deepest: {largest} bytes of {most}")
    return 0 if largest <= most else 1


if __name__ == "__main__":
    sys.exit(main())
