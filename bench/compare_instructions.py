"""Sums what callgrind dumped for each named request, and compares it with the stored counts.

compare_instructions.py FOLDER STORED [--store]
compare_instructions.py FOLDER --amounts

FOLDER holds the dumps: whole.N of whole calls, search.N of what happened inside the searches.
With --amounts the requests are named MIX/AMOUNT, and each mix gets one line.
Only costs of functions of libQXMIX.so are summed. A call of that library that allocates is an
error, whatever it costs.
"""

import collections
import pathlib
import re
import sys

LIBRARY = "libQXMIX.so"
ALLOCATING = {"malloc", "calloc", "realloc", "operator new(unsigned long)"}
TOLERANCE = 0.03
GOAL = 5000  # instructions of a whole call with a small amount
TRIGGER = "desc: Trigger: Client Request: "
NAME = re.compile(r"\((\d+)\)(?: (.*))?$")
COST = re.compile(r"[+*\-\d]")


class Dump:
    """One dump: the request it belongs to, the library's instructions, whom the library calls."""

    def __init__(self, path):
        self.request = None
        self.instructions = 0
        self.called = set()
        self._names = {"ob": {}, "fn": {}}
        self._object = ""
        self._is_call = False
        for line in path.read_text().splitlines():
            self._read(line)

    def _read(self, line):
        key, separator, value = line.partition("=")
        if line.startswith(TRIGGER):
            self.request = line[len(TRIGGER):]
        elif separator and key == "ob":
            self._object = self._name("ob", value)
        elif separator and key == "cob":
            self._name("ob", value)
        elif separator and key == "fn":
            self._name("fn", value)
        elif separator and key == "cfn":
            called = self._name("fn", value)
            if self._is_ours():
                self.called.add(called)
        elif separator and key == "calls":
            self._is_call = True  # the next line has what the called function cost in all
        elif COST.match(line):
            if not self._is_call and self._is_ours():
                self.instructions += int(line.split()[-1])
            self._is_call = False

    def _is_ours(self):
        return self._object.endswith("/" + LIBRARY)

    def _name(self, kind, value):
        number, name = NAME.match(value).groups()
        if name is not None:
            self._names[kind][number] = name
        return self._names[kind][number]


def count(folder, part):
    """Instructions by request, in the order of the calls. The first call of each is left out."""
    paths = sorted(folder.glob(part + ".*"), key=lambda path: int(path.suffix[1:]))
    counts = {}
    for path in paths:
        dump = Dump(path)
        if dump.request is None:
            continue
        if dump.called & ALLOCATING:
            sys.exit(f"{dump.request}: the library allocates")
        counts[dump.request] = dump.instructions  # the later dump replaces that of the first call
    return counts


def read_stored(path):
    stored = collections.OrderedDict()
    for line in path.read_text().splitlines() if path.exists() else []:
        if line and not line.startswith("#"):
            name, whole, search = line.split()
            stored[name] = (int(whole), int(search))
    return stored


def store(path, counts):
    lines = ["# Instructions inside libQXMIX.so: of the whole call, and of the search in it.",
             "# Written by scripts/lib/count-instructions --store."]
    lines += [f"{name:<28} {whole:>7} {search:>7}" for name, (whole, search) in counts.items()]
    path.write_text("\n".join(lines) + "\n")


def is_off(now, before):
    return abs(now - before) > TOLERANCE * before


def compare(counts, stored):
    """Prints each request; returns how many are off."""
    off = 0
    for name in list(counts) + [name for name in stored if name not in counts]:
        if name not in counts or name not in stored:
            print(f"OFF  {name}: {'not counted' if name in stored else 'not stored'}")
            off += 1
            continue
        wrong = any(is_off(now, before) for now, before in zip(counts[name], stored[name]))
        off += wrong
        (whole, search), (old_whole, old_search) = counts[name], stored[name]
        print(f"{'OFF ' if wrong else 'ok  '} {name:<28} call {whole:>7} (stored {old_whole}), "
              f"search {search:>7} (stored {old_search})")
    return off


def print_amounts(counts):
    by_mix = collections.defaultdict(list)
    for name, instructions in counts.items():
        by_mix[name.partition("/")[0]].append(instructions)
    for mix, numbers in by_mix.items():
        numbers.sort()
        within = sum(number <= GOAL for number in numbers)
        print(f"{mix:<7} median {numbers[len(numbers) // 2]:>6}, largest {numbers[-1]:>6}, "
              f"{within} of {len(numbers)} within {GOAL}")


def main(folder, stored_file, option=None):
    if stored_file == "--amounts":
        print_amounts(count(pathlib.Path(folder), "whole"))
        return 0
    whole = count(pathlib.Path(folder), "whole")
    search = count(pathlib.Path(folder), "search")
    counts = {name: (whole[name], search.get(name, 0)) for name in whole}
    path = pathlib.Path(stored_file)
    if option == "--store":
        store(path, counts)
        print(f"stored {len(counts)} requests in {path}")
        return 0
    off = compare(counts, read_stored(path))
    if off:
        print(f"{off} of {len(counts)} requests differ by more than {TOLERANCE:.0%}")
    return 1 if off or not counts else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
