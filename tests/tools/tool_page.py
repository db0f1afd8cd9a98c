#!/usr/bin/env python3
"""The page of `qxmix map` in a real browser, opened from disk without a network."""

import json
import re

from page_checks import (HOSTILE, check_narrow, check_pictures, check_scripts_off, check_skeleton,
                         check_without_script, height_of_details, printed_sheets, run_page_checks,
                         sheets_with)

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
            "noAnswer": "never answers", "overpaid": f"pays more than asked, {result['paid']} EUR"}
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
    check_skeleton(browser, checks, "Corner " + HOSTILE)
    _, output, _ = tool.run(words + ["--json"])
    embedded = browser.run("document.getElementById('answer').textContent")
    known, expected = json.loads(embedded), json.loads(output)
    for answer in (known, expected):
        for row in answer["result"]["mixes"]:
            # Which misses come first, and so get the whole deadline, is a matter of time.
            row["deadlines"] = sum(length for _, length in row["deadlines"])
    checks.equal("the data is that of --json", known, expected)
    shown = browser.shown_text()
    checks.check("what is proved is called so in the legend too",
                 "never answers" in shown and "no answer" not in shown)


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
                checks.equal(name, details[0], expected)
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


def check_narrow_map(browser, checks, path):
    check_narrow(browser, checks, path)
    checks.check("320 px: the map scrolls by itself", browser.run(
        "document.getElementById('larger').click(), scroller.scrollWidth > scroller.clientWidth"))


def check_print(tool, browser, checks):
    sheets = printed_sheets(tool, browser, checks)
    if sheets is None:
        return
    text = " ".join(sheets)
    checks.check("print: letters", "X.X..X.X.." in text and "O.O......." in text, text)
    checks.check("print: dispenser and command on the first sheet",
                 "1000" in sheets[0] and "qxmix map hostile.json" in sheets[0], sheets[0])
    checks.check("print: no controls", "Zoom" not in text and "Arrow keys" not in text, text)


def check_forced_colors(browser, checks, path):
    """The reader's own colours: letters and borders tell cells apart, and small dangers stand out."""
    browser.call("Emulation.setEmulatedMedia", media="",
                 features=[{"name": "forced-colors", "value": "active"}])
    browser.open(path)
    checks.check("forced colours: active", browser.run("matchMedia('(forced-colors: active)').matches"))
    look = "const s = getComputedStyle(c); "
    danger, paid = (browser.run(f"{{ const c = {cell(amount, 9)}; {look}"
                                "[c.textContent, s.borderTopWidth, s.color !== s.backgroundColor] }")
                    for amount in (10, 20))
    checks.equal("forced colours: letters in a border", (danger, paid),
                 (["O", "1px", True], [".", "1px", True]))
    while not browser.run("document.getElementById('smaller').disabled"):
        browser.run("document.getElementById('smaller').click()")
    danger, paid = (browser.run(f"{{ const c = {cell(amount, 4)}; {look}"
                                "[c.textContent, s.borderTopWidth, s.backgroundColor] }")
                    for amount in (10, 20))
    checks.equal("forced colours: small cells have no border", (danger[:2], paid[:2]),
                 (["", "0px"], ["", "0px"]))
    checks.check("forced colours: small dangers stand out", danger[2] != paid[2], (danger, paid))
    browser.call("Emulation.setEmulatedMedia", media="", features=[])


def in_sight(browser, amount, mix):
    """Whether a cell stands in the document and in the sight of who looks at the map."""
    return browser.run(f"(() => {{ const c = {cell(amount, mix)}; if (c === null) return false; "
                       "const r = c.getBoundingClientRect(), s = scroller.getBoundingClientRect(); "
                       "return r.left >= s.left + leftWidth() && r.right <= s.right; })()")


def first_danger(tool, words):
    """Amount and mix of the first danger, or None."""
    result = json.loads(tool.run(["map", *words, "--json"])[1])["result"]
    places = []
    for row in result["mixes"]:
        letters = "".join(letter * length for letter, length in row["runs"])
        found = re.search("[ODX]", letters)
        if found:
            places.append((found.start(), row["mix"]))
    if not places:
        return None
    place, mix = min(places)
    return result["amounts"]["min"] + place * result["amounts"]["step"], mix


def check_first_sight(tool, browser, checks):
    """What is shown first has letters, and the first danger, however many amounts there are."""
    for name, words in (
            ("few", ["examples/three-notes.json", "--to", "300", "--mixes", "1,4"]),
            ("none", ["EUR:50x400,20x400", "--from", "20", "--to", "6000", "--step", "10", "--mixes", "1"]),
            ("late", ["EUR:100x40,50x20,20x20", "--from", "20", "--to", "6000", "--step", "20",
                      "--mixes", "1,4"])):
        tool.run(["map", *words, "--output", "sight.html"])
        danger = first_danger(tool, words)
        checks.equal(f"{name}: a danger", danger is not None, name != "none")
        checks.check(f"{name}: where", name != "late" or danger[0] > 3000, danger)
        for width in (1280, 320):
            browser.resize(width, 900)
            browser.open(tool.folder / "sight.html")
            checks.check(f"{name}, {width} px: letters show", browser.run(
                "[...document.querySelectorAll('.cell')].every(c => c.textContent !== '')"))
            for button in (None, "larger", "larger", "smaller", "smaller") if danger else ():
                if button is not None:
                    browser.run(f"document.getElementById('{button}').click()")
                checks.check(f"{name}, {width} px, {button or 'at first'}: the first danger is in sight",
                             in_sight(browser, *danger), danger)
    browser.resize(1280, 900)


def check_height(tool, browser, checks):
    """The panel has the same height whatever it tells, and nothing below it moves."""
    dispenser = {"currency": "EUR", "cassettes": [
        {"label": f"cassette number {n} of the machine", "value": value, "count": 4000} for n, value
        in enumerate((500, 200, 100, 50, 20))]}
    (tool.folder / "wordy.json").write_text(json.dumps(dispenser))
    tool.run(["map", "wordy.json", "--from", "30", "--to", "1000", "--step", "10", "--mixes", "1,2,4",
              "--output", "wordy.html"])
    for width in (1280, 600, 320):
        browser.resize(width, 900)
        browser.open(tool.folder / "wordy.html")
        before = height_of_details(browser)
        heights = {before}
        for amount, mix in ((30, 1), (30, 4), (880, 2), (1000, 2), (980, 4)):
            browser.run(f"moveTo(shownRows().findIndex(row => row.mix === {mix}), "
                        f"({amount} - 30) / 10)")
            heights.add(height_of_details(browser))
        checks.equal(f"{width} px: the panel keeps its height", heights, {before})
        checks.check(f"{width} px: and shows all of it", browser.run(
            "details.scrollHeight <= details.clientHeight || details.clientHeight > 400"), before)
    browser.resize(1280, 900)


def check_whole_tables(tool, browser, checks):
    """A table that fits one sheet is printed on one."""
    tool.run(["map", "EUR:100x300,50x1200,20x1500", "--from", "20", "--to", "3000", "--step", "10",
              "--mixes", "1,2,3", "--output", "tables.html"])
    browser.open(tool.folder / "tables.html")
    sheets = printed_sheets(tool, browser, checks)
    if sheets is None:
        return
    rows = [str(amount) for amount in range(20, 3000, 100)]
    checks.equal("print: the map fits one sheet and is on one", len(sheets_with(sheets, rows[3:])), 1)


def check_large(tool, browser, checks):
    words = ["map", "EUR:100x30000,50x12000,20x15000,10x9000", "--from", "10", "--to", "200000",
             "--mixes", "1,2", "--output", "large.html"]
    tool.run(words)
    browser.open(tool.folder / "large.html")
    checks.equal("large: no complaints", browser.complaints(), [])
    cells = browser.run("document.querySelectorAll('.cell').length")
    checks.check("large: few cells are in the document", 0 < cells < 5000, cells)
    browser.run("zoomTo(0)")
    text = browser.run("document.querySelector('.cell').focus(), " + DETAILS)
    checks.check("large: a cell stands for a stretch",
                 re.match(r"10 to [0-9]+ EUR, mix 1: ", text[0]), text)
    browser.press("End")
    last = browser.run(DETAILS)[0]
    checks.check("large: the last cell", " to 200000 EUR, mix 1: " in last, last)


def check_currencies(tool, browser, checks):
    """A map for each currency: the own first, the others at choice, and all of them on paper."""
    words = ["map", "examples/border.json", "--mixes", "1,9"]
    tool.run([*words, "--output", "border.html"])
    known = {one["currency"]: one for one in
             json.loads(tool.run([*words, "--json"])[1])["result"]["currencies"]}
    path = tool.folder / "border.html"
    check_without_script(checks, path, "Amounts of each outcome in CHF")
    browser.open(path)
    shown = ("[[...document.querySelectorAll('.cell[data-mix=\"9\"]')].map(c => c.textContent).join(''), "
             "document.querySelector('.cell').dataset.amount, "
             "document.querySelector('#summary tbody tr').textContent]")
    for currency in ("EUR", "CHF", "EUR"):
        browser.run(f"document.getElementById('currency-{currency}').click()")
        row = known[currency]["mixes"][1]
        letters = "".join(letter * length for letter, length in row["runs"])
        text, first, summary = browser.run(shown)
        checks.check(f"{currency}: letters", len(text) > 20 and letters.startswith(text), text)
        checks.equal(f"{currency}: the first amount", first, str(known[currency]["amounts"]["min"]))
        checks.check(f"{currency}: counts", summary.startswith(
            "1" + str(known[currency]["mixes"][0]["counts"]["paid"])), summary)
        browser.run("document.querySelector('.cell').focus()")
        checks.check(f"{currency}: the details tell it", browser.run(DETAILS)[0].startswith(
            f"{first} {currency}, mix 1: "), browser.run(DETAILS))
        checks.equal(f"{currency}: one is chosen", browser.run(
            "[...document.querySelectorAll('#currencies input')].filter(b => b.checked).map(b => b.id)"),
            [f"currency-{currency}"])
    browser.run("document.getElementById('currency-CHF').click()")
    outcomes = "[...document.querySelectorAll('#outcomes input')].map(b => b.id)"
    checks.equal("the outcomes of the other currency", sorted(browser.run(outcomes)),
                 ["outcome-notDispensable", "outcome-overpaid", "outcome-paid"])
    sheets = printed_sheets(tool, browser, checks)
    if sheets is not None:
        paper = " ".join(sheets)
        checks.check("both are printed", "Map, EUR" in paper and "Map, CHF" in paper, paper)
    checks.equal("and the chosen one stays", browser.run("currency"), "CHF")
    checks.equal("currencies: no complaints", browser.complaints(), [])
    browser.open(tool.folder / "map.html")
    checks.equal("nothing to choose with one", browser.run(
        "document.getElementById('currencies')"), None)


def check_page(tool, browser, checks, pictures):
    words = four_notes(tool)
    status, _, _ = tool.run(words + ["--output", "map.html"])
    checks.equal("exit status", status, 3)
    path = tool.folder / "map.html"
    check_without_script(checks, path, '<th scope="row">4</th><td class="number">24</td>')
    browser.resize(1280, 900)
    check_scripts_off(browser, checks, path, "DANGER mix 4 never answers on 24 of 60 amounts")
    browser.open(path)
    check_content(tool, browser, checks, words)
    check_cells(tool, browser, checks)
    check_keys(browser, checks)
    check_filters(browser, checks)
    check_zoom(browser, checks)
    check_print(tool, browser, checks)
    checks.equal("no complaints", browser.complaints(), [])
    check_narrow_map(browser, checks, path)
    checks.equal("narrow: no complaints", browser.complaints(), [])
    check_pictures(browser, checks, path, pictures)
    check_forced_colors(browser, checks, path)
    check_first_sight(tool, browser, checks)
    check_height(tool, browser, checks)
    check_whole_tables(tool, browser, checks)
    check_large(tool, browser, checks)
    check_currencies(tool, browser, checks)


run_page_checks(check_page)
