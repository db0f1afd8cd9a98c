#!/usr/bin/env python3
"""Adds a made-up eleventh mix to a copy of the project: maximum notes, spread round robin.

  add_mix.py FOLDER    the copy, which is changed

The edits are those of "To add a mix" in CONTRIBUTING.md, by its numbers; each has to fit exactly
once, and each file has to be named there.
"""

import pathlib
import re
import sys

EDITS = {
    1: [("src/mix/MixPlans.h", "CalcMaximumNotes,     SpreadInOrder},     // 10\n",
         "CalcMaximumNotes,     SpreadInOrder},     // 10\n"
         "    {&Mix::SortLCUByDenomination, SmallestNote::FirstUnit, Mix::CalcMaximumNotes, "
         "SpreadRoundRobin},  // 11\n")],
    2: [("src/interface/MixTypes.cpp", '"Varnholt Maximum Notes"},                // 10\n',
         '"Varnholt Maximum Notes"},                // 10\n'
         '    {kMaximumCashUnits, "Example Maximum Notes"},  // 11\n')],
    3: [("src/cashunits/Ordering.cpp", "request.usMixNumber == kAscendingMix",
         "(request.usMixNumber == kAscendingMix || request.usMixNumber == 11)"),
        ("tests/unit/OrderingSort_test.cpp", "1U, 9U, 11U, 266U", "1U, 9U, 12U, 266U")],
    5: [("tests/reference/Reference.h", "kLastMix = 10;", "kLastMix = 11;"),
        ("tests/reference/Driver.cpp", "    case 10:\n", "    case 10:\n    case 11:\n"),
        ("tests/reference/Driver.cpp", "mix == 10 ?", "mix == 10 || mix == 11 ?"),
        ("tests/reference/Driver.cpp", "if (mix == 3 || mix == 8)",
         "if (mix == 3 || mix == 8 || mix == 11)"),
        ("tests/reference/UnitOrdering.cpp", "ReadU16(request) == 10",
         "(ReadU16(request) == 10 || ReadU16(request) == 11)")],
    6: [("tests/unit/MixTypes_test.cpp", '    {3, "Varnholt Maximum Notes"},\n',
         '    {3, "Varnholt Maximum Notes"},\n    {3, "Example Maximum Notes"},\n'),
        ("tests/contract/Contract.h", "kMixes = 10", "kMixes = 11"),
        ("tests/contract/Contract.h", "2, 2, 3};", "2, 2, 3, 3};"),
        ("tests/contract/Contract.h", "Varnholt Maximum Notes", "Example Maximum Notes"),
        ("tests/host/Hosts.h", "#define MIXES 10", "#define MIXES 11"),
        ("tests/image/Catalogue_test.cpp", '    {3, "Varnholt Maximum Notes"},\n',
         '    {3, "Varnholt Maximum Notes"},\n    {3, "Example Maximum Notes"},\n')],
    7: [("tests/vectors/VectorFile.cpp", "next.lastMix = 10;", "next.lastMix = 11;"),
        ("tests/vectors/maximum_notes.txt", "case ten tens under a limit of ten\n",
         "case of the eleventh mix: in turn from two cassettes\n"
         "mix 11\namount 30\nbill 50 x 100\nbill 10 x 100\nbill 10 x 50\npays 0 2 1\n\n"
         "case ten tens under a limit of ten\n"),
        ("tests/vectors/driver.txt", "case mix 11 is none\nmix 11\n",
         "case mix 12 is none\nmix 12\n")],
    8: [("tools/qxmix/dispenser/Dispenser.h", "kLastMix = 10;", "kLastMix = 11;"),
        ("schema/dispenser.schema.json", '"maximum": 10,', '"maximum": 11,'),
        ("schema/answer.schema.json", '"minimum": 1, "maximum": 10 }',
         '"minimum": 1, "maximum": 11 }')],
}


def recipe_of(folder):
    text = (folder / "CONTRIBUTING.md").read_text(encoding="utf-8")
    section = re.search(r"^## To add a mix\n(.*?)^## ", text, re.MULTILINE | re.DOTALL).group(1)
    return {int(number): step for number, step in
            re.findall(r"^(\d+)\. (.*?)(?=^\d+\. |\Z)", section, re.MULTILINE | re.DOTALL)}


def main():
    folder = pathlib.Path(sys.argv[1])
    recipe = recipe_of(folder)
    for step, edits in EDITS.items():
        for name, before, after in edits:
            file = pathlib.PurePosixPath(name)
            told = name in recipe[step] or (str(file.parent) in recipe[step] and (
                file.name in recipe[step] or file.suffix == ".txt"))
            if not told:
                sys.exit(f"CONTRIBUTING.md, step {step}: does not name {name}")
            text = (folder / name).read_text(encoding="utf-8")
            if text.count(before) != 1:
                sys.exit(f"{name}: {text.count(before)} times {before!r}; expected once")
            (folder / name).write_text(text.replace(before, after), encoding="utf-8")


main()
