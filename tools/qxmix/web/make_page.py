#!/usr/bin/env python3
"""Puts the page together: the tool as WebAssembly, the scripts and the styles in one file.

  make_page.py PARTS OUTPUT    PARTS: folder with qxmix.js and qxmix.wasm
"""

import base64
import gzip
import json
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).parent
PAGES = HERE.parent / "pages"
ROOT = HERE.parents[2]
MOST_BYTES = 2000000


def text_of(*paths):
    return "".join(path.read_text(encoding="utf-8") for path in paths)


def script(text):
    """A text that may stand in a script element."""
    if re.search(r"</script|<!--", text, re.IGNORECASE):
        sys.exit("make_page.py: a script would end its element")
    return text


def packed(path):
    # Without a time, so that the same parts give the same page.
    return base64.b64encode(gzip.compress(path.read_bytes(), 9, mtime=0)).decode()


def views():
    """views.js with the scripts of the tool's pages in it."""
    parts = {"mapScripts": ("parts", "map-model", "map-grid", "map-tables", "map-start"),
             "simulationScripts": ("parts", "plots", "sim-model", "sim-curves", "sim-panels", "sim-tables",
                                   "sim-start"),
             "partsScripts": ("parts",)}
    return fill(text_of(HERE / "views.js"), {
        name: text_of(*(PAGES / f"{part}.js" for part in scripts)) for name, scripts in parts.items()})


def fill(text, filling):
    return re.sub(r"\{\{(\w+)\}\}", lambda part: filling[part[1]], text)


def known():
    """What the page knows beside the tool: examples, the schema of a dispenser, the mixes."""
    examples = {path.stem: path.read_text(encoding="utf-8")
                for path in sorted((ROOT / "examples").glob("*.json"))}
    week = examples.pop("week")
    schema = json.loads((ROOT / "schema/dispenser.schema.json").read_text(encoding="utf-8"))
    mix = schema["properties"]["mix"]
    title = re.search("<title>(.*)</title>", text_of(HERE / "explorer.html"))[1]
    return json.dumps({"examples": examples, "week": week, "schema": schema, "title": title,
                       "mixes": list(range(mix["minimum"], mix["maximum"] + 1))}).replace("<", "\\u003c")


def main():
    parts, output = map(pathlib.Path, sys.argv[1:])
    filling = {
        "style": text_of(PAGES / "parts.css", HERE / "explorer.css"),
        "worker": script(text_of(parts / "qxmix.js", HERE / "worker.js")),
        "module": packed(parts / "qxmix.wasm"),
        "known": known(),
        "script": script(text_of(HERE / "tool.js") + views() +
                         text_of(HERE / "editor.js", HERE / "explorer.js", HERE / "start.js")),
    }
    page = fill(text_of(HERE / "explorer.html"), filling)
    if len(page.encode()) > MOST_BYTES:
        sys.exit(f"make_page.py: a page of {len(page.encode())} bytes; expected at most {MOST_BYTES}")
    output.write_text(page, encoding="utf-8")


if __name__ == "__main__":
    main()
