#!/usr/bin/env python3
"""Holds the includes of the tool's sources to the rules in tools/qxmix/README.md.

  tool_folders.py FOLDER    the folder of the tool's sources
"""

import pathlib
import re
import sys

SYSTEMS = ("linux", "windows", "web")
COMMANDS = "commands/"
# What a system supplies lies in its folder and nowhere else.
OF_A_SYSTEM = re.compile(r"^#include <((?:sys/|emscripten).*|(?:dlfcn|fcntl|poll|pthread|unistd|windows)\.h)>",
                         re.MULTILINE)


def rows_of(readme):
    """The folders of the table, in its order."""
    return re.findall(r"^\| `([a-z/]+)` \|", readme.read_text(encoding="utf-8"), re.MULTILINE)


def wrong_include(tool, rows, source, header):
    """What is wrong with a file that includes a header, or None."""
    own = source.parent.relative_to(tool).as_posix()
    if "/" not in header:
        theirs = next((row for row in rows if (tool / row / header).exists()), own)
        return None if theirs == own else f"belongs to {theirs}, which is to be named"
    theirs = header.rpartition("/")[0]
    if theirs not in rows or not (tool / header).exists():
        return "is not there"
    if theirs == own:
        return "is beside it, so the name alone is enough"
    if own.startswith(COMMANDS) and theirs.startswith(COMMANDS):
        return f"{own} has to do without another command"
    if own in rows and rows.index(theirs) > rows.index(own):
        return f"{own} stands above {theirs} in the table"
    return None


def main():
    tool = pathlib.Path(sys.argv[1])
    rows = rows_of(tool / "README.md")
    sources = sorted([*tool.rglob("*.h"), *tool.rglob("*.cpp")])
    complaints = [f"{source.parent}: is not in the table" for source in sources
                  if source.parent.relative_to(tool).as_posix() not in (".", *SYSTEMS, *rows)]
    includes = 0
    for source in sources:
        if source.parent.name not in SYSTEMS:
            complaints += [f"{source}: {header}: belongs to one of the folders {', '.join(SYSTEMS)}"
                           for header in OF_A_SYSTEM.findall(source.read_text(encoding="utf-8"))]
        for header in re.findall(r'^#include "([^"]+)"', source.read_text(encoding="utf-8"),
                                 re.MULTILINE):
            includes += "/" in header
            wrong = wrong_include(tool, rows, source, header)
            if wrong:
                complaints.append(f"{source}: {header}: {wrong}")
    print("\n".join(sorted(set(complaints))) or
          f"{len(rows)} folders, {len(sources)} files, {includes} includes of other folders")
    return 1 if complaints or includes == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
