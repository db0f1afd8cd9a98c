#!/usr/bin/env python3
"""The page of `qxmix map` in a real browser, opened from disk without a network.

Skipped (exit status 77) where no browser is installed. With --pictures FOLDER the screenshots stay.
"""

import html
import json
import pathlib
import re
import shutil
import subprocess
import sys

from browser import Browser, find_browser
from tool_runner import Checks, Tool, parse_arguments

HOSTILE = "</script><img src=x onerror=alert(1)>"
DEFICIENCIES = ("protanopia", "deuteranopia", "tritanopia", "achromatopsia")
SKIPPED = 77
DETAILS = "['what', 'items', 'said'].map(id => document.getElementById(id).textContent)"
NAMED = [(10, 1), (60, 1), (500, 1), (280, 3), (30, 4), (50, 4), (10, 9), (30, 9), (40, 9),
         (490, 10)]


def four_notes(tool):
    dispenser = json.loads((tool.folder / "examples/four-notes.json").read_text())
    dispenser["name"] = "Corner " + HOSTILE
    dispenser["cassettes"][0]["label"] = HOSTILE
    (tool.folder / "hostile.json").write_text(json.dumps(dispenser))
    return ["map", "hostile.json", "--to", "600", "--mixes", "1,3,4,9,10"]


def expected_details(tool, amount, mix):
    """What the command line says of one cell, in the words of the page."""
    words = ["mix", "hostile.json", "--amount", str(amount), "--mix", str(mix), "--deadline",
             "100ms", "--json"]
    result = json.loads(tool.run(words)[1])["result"]
    labels = [HOSTILE, "1", "2", "3"]
    said = {"paid": "paid", "nothingPaid": "nothing paid", "notDispensable": "refused",
            "noAnswer": "no answer", "overpaid": f"pays more than asked, {result['paid']} EUR"}
    what = f"{amount} EUR, mix {mix}: {said[result['outcome']]}"
    if result["outcome"] == "noAnswer":
        return what
    items = ", ".join(f"{count} x {value} EUR from {label}" for count, value, label
                      in zip(result["values"], (200, 100, 50, 20), labels) if count)
    code = f"error code {result['registry']}" if result["registry"] else "no error code written"
    return [what, items or "Nothing is taken.",
            f"returned {result['returned']}, remainder {result['remainder']}, {code}"]


def cell(amount, mix):
    return f"document.querySelector('.cell[data-mix=\"{mix}\"][data-amount=\"{amount}\"]')"


def point_at(browser, amount, mix):
    place = browser.run(f"(() => {{ const c = {cell(amount, mix)}; "
                        "c.scrollIntoView({block: 'center', inline: 'center'}); "
                        "const r = c.getBoundingClientRect(); "
                        "return [r.x + r.width / 2, r.y + r.height / 2]; })()")
    browser.point_at(1, 1)
    browser.point_at(*place)


def check_content(tool, browser, checks, words):
    checks.equal("nothing leaves",
                 [url for url in browser.requests() if not url.startswith("file:")], [])
    _, output, _ = tool.run(words + ["--json"])
    embedded = browser.run("document.getElementById('answer').textContent")
    known, expected = json.loads(embedded), json.loads(output)
    for answer in (known, expected):
        for row in answer["result"]["mixes"]:
            # Which misses come first, and so get the whole deadline, is a matter of time.
            row["deadlines"] = sum(length for _, length in row["deadlines"])
    checks.equal("the data is that of --json", known, expected)
    checks.equal("the title is text", browser.run("document.getElementById('title').textContent"),
                 "Corner " + HOSTILE)
    checks.equal("labels make no elements", browser.run("document.images.length"), 0)
    checks.equal("one h1", browser.run("document.querySelectorAll('h1').length"), 1)
    checks.check("every table has a caption and headers", browser.run(
        "[...document.querySelectorAll('table')]"
        ".every(t => t.caption && t.querySelector('th[scope=col]'))"))


def check_cells(tool, browser, checks):
    for amount, mix in NAMED:
        expected = expected_details(tool, amount, mix)
        for way in ("hover", "focus"):
            browser.run("document.activeElement.blur(), "
                        "document.getElementById('what').textContent = 'nothing yet'")
            if way == "hover":
                point_at(browser, amount, mix)
            else:
                browser.run(cell(amount, mix) + ".focus()")
            details = browser.run(DETAILS)
            name = f"{amount}, mix {mix}: {way}"
            if isinstance(expected, str):
                pattern = re.escape(expected) + " within (100|10) ms"
                checks.check(name, re.fullmatch(pattern, details[0]), details)
            else:
                checks.equal(name, details, expected)
    letters = browser.run("[...document.querySelectorAll('.cell[data-mix=\"4\"]')].slice(0, 10)"
                          ".map(c => c.textContent).join('')")
    checks.equal("letters", letters, "X.X..X.X..")


def check_keys(browser, checks):
    where = "[document.activeElement.dataset.mix, document.activeElement.dataset.amount]"
    browser.run(cell(10, 1) + ".focus()")
    for key, expected in (("ArrowRight", ["1", "20"]), ("ArrowDown", ["3", "20"]),
                          ("ArrowLeft", ["3", "10"]), ("ArrowLeft", ["3", "10"]),
                          ("End", ["3", "600"]), ("ArrowUp", ["1", "600"]), ("Home", ["1", "10"])):
        browser.press(key)
        checks.equal(f"{key} moves", browser.run(where), expected)
        announced = browser.run(DETAILS)[0]
        checks.check(f"{key} announces",
                     announced.startswith(f"{expected[1]} EUR, mix {expected[0]}: "), announced)
    checks.equal("one cell is in the tab order",
                 browser.run("document.querySelectorAll('.cell[tabindex=\"0\"]').length"), 1)
    checks.equal("the details are a live region",
                 browser.run("document.getElementById('details').ariaLive"), "polite")


def check_filters(browser, checks):
    count = "document.getElementById('count-noAnswer').textContent"
    shown = "[...document.querySelectorAll('#map [role=rowheader]')].map(h => h.textContent)"
    checks.equal("all rows at first", browser.run(shown), ["1", "3", "4", "9", "10"])
    checks.equal("counts at first", browser.run(count), "24")
    browser.run("document.getElementById('mix-4').click()")
    checks.equal("a mix is hidden", browser.run(shown), ["1", "3", "9", "10"])
    checks.equal("counts follow", browser.run(count), "0")
    browser.run("document.getElementById('mix-4').click()")
    browser.run("document.getElementById('outcome-overpaid').click()")
    checks.equal("an outcome is hidden", browser.run(cell(30, 9) + ".textContent"), "")
    checks.equal("its runs are gone", browser.run("[...document.querySelectorAll('#runs tbody tr')]"
                 ".filter(r => r.textContent.includes('pays more')).length"), 0)
    browser.run("document.getElementById('outcome-overpaid').click()")
    checks.equal("and back", browser.run(cell(30, 9) + ".textContent"), "O")


def check_zoom(browser, checks):
    width = cell(10, 4) + ".getBoundingClientRect().width"
    before = browser.run(width)
    browser.run("document.getElementById('larger').click()")
    checks.check("larger cells", browser.run(width) > before)
    while not browser.run("document.getElementById('smaller').disabled"):
        browser.run("document.getElementById('smaller').click()")
    small = browser.run(f"{{ const c = {cell(10, 4)}; "
                        "[c.textContent, c.classList.contains('hatched')] }")
    checks.equal("small cells have hatching, no letter", small, ["", True])
    for _ in range(3):
        browser.run("document.getElementById('larger').click()")


def check_narrow(browser, checks, path):
    browser.resize(320, 640)
    browser.open(path)
    checks.check("320 px: no sideways scrolling",
                 browser.run("document.scrollingElement.scrollWidth") <= 320)
    wide = browser.run("[...document.querySelectorAll('.wide')]"
                       ".filter(e => e.scrollWidth > e.clientWidth)"
                       ".map(e => e.firstElementChild.id)")
    checks.equal("320 px: the tables fit", wide, [])
    checks.check("320 px: the map scrolls by itself", browser.run(
        "document.getElementById('larger').click(), scroller.scrollWidth > scroller.clientWidth"))


def check_contrast(browser, checks):
    ratios = browser.run("""[...document.querySelectorAll('.key')].map(key => {
        const light = text => { const parts = text.match(/[0-9.]+/g).slice(0, 3).map(part => {
            const share = part / 255;
            return share <= 0.03928 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4; });
            return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2] + 0.05; };
        const style = getComputedStyle(key);
        const pair = [light(style.color), light(style.backgroundColor)];
        return Math.max(...pair) / Math.min(...pair); })""")
    checks.check("letters have a contrast of 4.5", ratios and min(ratios) >= 4.5, ratios)


def check_print(tool, browser, checks):
    pdf = tool.folder / "map.pdf"
    pdf.write_bytes(browser.print_to_pdf())
    checks.check("prints", pdf.read_bytes().startswith(b"%PDF"))
    if shutil.which("pdftotext") is None:
        print("not checked: the text of the print (no pdftotext)")
        return
    text = subprocess.run(["pdftotext", "-layout", str(pdf), "-"], capture_output=True, text=True,
                          check=True).stdout
    first, *_ = text.split("\f")
    checks.check("print: letters", "X.X..X.X.." in text and "O.O......." in text, text)
    checks.check("print: dispenser and command on the first sheet",
                 "1000" in first and "qxmix map hostile.json" in re.sub(r"\s+", " ", first), first)
    checks.check("print: no controls", "Zoom" not in text and "Arrow keys" not in text, text)


def check_pictures(tool, browser, checks, path, pictures):
    browser.resize(1280, 900)
    for scheme in ("light", "dark"):
        browser.call("Emulation.setEmulatedMedia", media="",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])
        browser.open(path)
        check_contrast(browser, checks)
        seen = {}
        for deficiency in ("none", *DEFICIENCIES):
            browser.call("Emulation.setEmulatedVisionDeficiency", type=deficiency)
            seen[deficiency] = browser.screenshot()
            if pictures:
                (pictures / f"map-{scheme}-{deficiency}.png").write_bytes(seen[deficiency])
        checks.equal(f"{scheme}: pictures differ", len(set(seen.values())), len(seen))
        browser.call("Emulation.setEmulatedVisionDeficiency", type="none")


def check_without_script(tool, checks, path):
    page = pathlib.Path(path).read_text()
    head = page.split("<head>", 1)[1].lstrip()
    checks.check("the policy comes first", head.startswith(
        '<meta http-equiv="Content-Security-Policy" content="default-src \'none\'; '
        'style-src \'unsafe-inline\'; '
        'script-src \'unsafe-inline\'; img-src data:">'), head[:200])
    summary = html.unescape(page.split("<noscript>", 1)[1].split("</noscript>", 1)[0])
    checks.check("without scripts: counts", '<th scope="row">4</th><td>24</td>' in summary, summary)
    checks.equal("hostile labels end no script", page.count("</script>"), 3)


def check_large(tool, browser, checks):
    words = ["map", "EUR:100x30000,50x12000,20x15000,10x9000", "--from", "10", "--to", "200000",
             "--mixes", "1,2", "--output", "large.html"]
    tool.run(words)
    browser.open(tool.folder / "large.html")
    checks.equal("large: no complaints", browser.complaints(), [])
    cells = browser.run("document.querySelectorAll('.cell').length")
    checks.check("large: few cells are in the document", 0 < cells < 5000, cells)
    text = browser.run("document.querySelector('.cell').focus(), " + DETAILS)
    checks.check("large: a cell stands for a stretch",
                 re.match(r"10 to [0-9]+ EUR, mix 1: ", text[0]), text)
    browser.press("End")
    last = browser.run(DETAILS)[0]
    checks.check("large: the last cell", " to 200000 EUR, mix 1: " in last, last)


def main():
    program = find_browser()
    if program is None:
        print("skipped: no chromium in the path")
        sys.exit(SKIPPED)
    pictures = None
    if "--pictures" in sys.argv:
        at = sys.argv.index("--pictures")
        pictures = pathlib.Path(sys.argv[at + 1])
        del sys.argv[at:at + 2]
    arguments = parse_arguments()
    checks = Checks()
    with Tool(arguments) as tool, Browser(program) as browser:
        words = four_notes(tool)
        status, _, _ = tool.run(words + ["--output", "map.html"])
        checks.equal("exit status", status, 3)
        path = tool.folder / "map.html"
        check_without_script(tool, checks, path)
        browser.resize(1280, 900)
        browser.open(path)
        check_content(tool, browser, checks, words)
        check_cells(tool, browser, checks)
        check_keys(browser, checks)
        check_filters(browser, checks)
        check_zoom(browser, checks)
        check_print(tool, browser, checks)
        checks.equal("no complaints", browser.complaints(), [])
        check_narrow(browser, checks, path)
        checks.equal("narrow: no complaints", browser.complaints(), [])
        check_pictures(tool, browser, checks, path, pictures)
        check_large(tool, browser, checks)
    checks.finish()


main()
