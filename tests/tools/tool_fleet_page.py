#!/usr/bin/env python3
"""The pages of a fleet, of lint and of simulate, in a real browser, opened from disk."""

import json

from page_checks import (HOSTILE, POLICY, check_contrast, check_pictures, check_skeleton,
                         printed_sheets, run_page_checks)

ROWS = ("[...document.querySelectorAll('#dispensers > tbody > tr:not(.opened)')]"
        ".map(r => [...r.cells].map(c => c.textContent))")
NAMES = ("[...document.querySelectorAll('#dispensers button.opener')].map(b => b.textContent)")
SHOWN = "document.getElementById('shown').textContent"
OPENED = ("[...document.querySelectorAll('#dispensers tr.opened tbody tr')]"
          ".map(r => [...r.cells].map(c => c.textContent))")


def opener(name):
    return f"[...document.querySelectorAll('button.opener')].find(b => b.textContent === {name!r})"


def heading(column):
    return f"document.querySelectorAll('#dispensers > thead button')[{column}]"


def search(words):
    return (f"document.getElementById('search').value = {words!r};"
            "document.getElementById('search').dispatchEvent(new Event('input'))")


def write_files(tool):
    trouble = json.loads((tool.folder / "examples" / "trouble.json").read_text())
    trouble["lint"] = {"accept": {"QX203": HOSTILE}}
    (tool.folder / "accepting.json").write_text(json.dumps(trouble))
    (tool.folder / "hostile<img src=x onerror=alert(1)>.json").write_text(
        json.dumps({**trouble, "name": HOSTILE}))
    return ["accepting.json", "hostile<img src=x onerror=alert(1)>.json", "bad.json",
            "examples/euro.json", "examples/no-tens.json", "examples/kiosk.json"]


def check_lint_page(tool, browser, checks, pictures):
    names = write_files(tool)
    status, _, errors = tool.run(["lint", *names, "--output", "lint.html"])
    checks.equal("lint: written", (status, errors), (3, ""))
    answer = json.loads(tool.run(["lint", *names, "--json"])[1])["result"]
    text = tool.run(["lint", *names])[1]
    path = tool.folder / "lint.html"
    source = path.read_text()
    checks.check("lint: the policy comes first",
                 source.split("<head>", 1)[1].lstrip().startswith(POLICY), source[:300])
    checks.equal("lint: hostile texts end no script", source.count("</script>"), 3)
    browser.open(path)
    check_skeleton(browser, checks, "What is wrong with these dispensers")
    checks.equal("lint: the verdict is that of the text",
                 browser.run("document.getElementById('verdict').textContent"),
                 text.split("\n")[0])
    rows = browser.run(ROWS)
    order = [line.split("  ")[0].strip() for line in text.split("\n\n")[1].split("\n")[1:] if line]
    checks.equal("lint: the worst first, as in the text", [row[0][1:] for row in rows], order)
    totals = browser.run("JSON.parse(document.getElementById('answer').textContent).result.totals")
    checks.equal("lint: totals are embedded", totals, answer["totals"])
    for name, element in zip(names, answer["dispensers"]):
        browser.run(f"{opener(name)}.click()")
        lines = browser.run(OPENED)
        expected = [[("accepted" if "accepted" in f else f["severity"]), f["id"],
                     str(f["mix"] or ""), f["pointer"] or "", f["message"],
                     f.get("accepted", f["advice"] or "")] for f in element.get("findings", [])]
        if "error" in element:
            expected = [["not asked", "", "", element["error"]["pointer"] or "",
                         element["error"]["message"], ""]]
        checks.equal(f"lint: {name}: opens what JSON tells", lines, expected)
        checks.equal(f"lint: {name}: says that it is open", browser.run(
            f"{opener(name)}.getAttribute('aria-expanded')"), "true")
        browser.run(f"{opener(name)}.click()")
        checks.equal(f"lint: {name}: closes", browser.run(OPENED), [])
    check_table(browser, checks, names)
    check_keys(browser, checks)
    check_contrast(browser, checks)
    browser.run(f"{opener(names[0])}.click()")
    sheets = printed_sheets(tool, browser, checks)
    if sheets is not None:
        checks.check("lint: prints the verdict, rows and what is open, and no controls",
                     "have errors" in sheets[0] and "QX201" in " ".join(sheets) and
                     "Search" not in " ".join(sheets), sheets)
    check_pictures(browser, checks, path, pictures)
    checks.equal("lint: no complaints", browser.complaints(), [])
    check_narrow_and_plain(browser, checks, path, text.split("\n")[0])


def check_table(browser, checks, names):
    browser.run(f"{heading(0)}.click()")
    checks.equal("sorts by name", browser.run(NAMES), sorted(names))
    checks.equal("says so", browser.run(
        "document.querySelector('#dispensers th[aria-sort]').getAttribute('aria-sort')"),
        "ascending")
    browser.run(f"{heading(0)}.click()")
    checks.equal("and backwards", browser.run(NAMES), sorted(names, reverse=True))
    browser.run(f"{heading(1)}.click()")
    numbers = [{"?": -1, "-": 0}.get(row[1], int(row[1]) if row[1].isdigit() else 0)
               for row in browser.run(ROWS)]
    checks.equal("sorts numbers by size", numbers, sorted(numbers))
    browser.run(search("QX203"))
    checks.equal("searches what was found, too", sorted(browser.run(NAMES)), sorted(names[:2]))
    checks.equal("says how many", browser.run(SHOWN), "2 dispensers.")
    browser.run(search("no such thing"))
    checks.equal("finds nothing", [browser.run(NAMES), browser.run(SHOWN)], [[], "0 dispensers."])
    browser.run(search(""))
    before = browser.run(NAMES)
    browser.run("document.getElementById('kind-0').click()")
    checks.equal("leaves a kind out", browser.run(NAMES), [n for n in before if n != "bad.json"])
    browser.run("document.getElementById('kind-0').click()")
    checks.equal("and takes it in again", browser.run(NAMES), before)


def check_keys(browser, checks):
    browser.run("document.querySelector('button.opener').focus()")
    places = []
    for key in ("ArrowDown", "ArrowDown", "ArrowUp", "ArrowUp", "ArrowUp"):
        browser.press(key)
        places.append(browser.run("[...document.querySelectorAll('button.opener')]"
                                  ".indexOf(document.activeElement)"))
    checks.equal("arrows go from one to the next", places, [1, 2, 1, 0, 0])


def check_narrow_and_plain(browser, checks, path, verdict):
    browser.resize(320, 700)
    checks.check("narrow: no sideways scrolling of the page", browser.run(
        "document.documentElement.scrollWidth <= 320"))
    browser.resize(1280, 900)
    browser.call("Emulation.setScriptExecutionDisabled", value=True)
    browser.open(path)
    text = browser.shown_text()
    checks.check("scripts off: verdict, rows and command",
                 verdict in text and "euro.json" in text and "qxmix " in text, text)
    dead = browser.run("[...document.querySelectorAll('button, input')]"
                       ".filter(e => e.checkVisibility()).length")
    checks.equal("scripts off: no dead control", dead, 0)
    browser.call("Emulation.setScriptExecutionDisabled", value=False)


def check_simulation_page(tool, browser, checks):
    names = ["examples/euro.json", "examples/four-notes.json", "bad.json"]
    words = ["simulate", *names, "--demand", "examples/week.json"]
    status, _, errors = tool.run([*words, "--output", "sim.html"])
    checks.equal("simulate: written", (status, errors), (3, ""))
    answer = json.loads(tool.run([*words, "--json"])[1])["result"]
    text = tool.run(words)[1]
    path = tool.folder / "sim.html"
    browser.open(path)
    check_skeleton(browser, checks, "How these dispensers empty")
    verdict = browser.run("[...document.querySelectorAll('header p')].map(p => p.textContent)")
    checks.equal("simulate: the verdict is that of the text", verdict,
                 text.split("\n\n")[0].split("\n"))
    best = answer["fleet"]["mix"]
    rows = {row[0][1:]: row[1:] for row in browser.run(ROWS)}
    for element in answer["dispensers"]:
        name = element["file"]
        if "error" in element:
            checks.equal(f"{name}: is not asked", rows[name][0], "?")
            continue
        served = {mix["mix"]: mix["counts"].get("paid", 0) for mix in element["mixes"]}
        first = element["mixes"][0]["mix"]
        checks.equal(f"simulate: {name}", [rows[name][i] for i in (0, 1, 3, 4)],
                     [str(first), str(served[first]), str(served[best]),
                      str(element["lost"] or "-")])
        browser.run(f"{opener(name)}.click()")
        checks.equal(f"simulate: {name}: opens its mixes",
                     [line[1:3] for line in browser.run(OPENED)],
                     [[str(mix["mix"]), str(served[mix["mix"]])] for mix in element["mixes"]])
        browser.run(f"{opener(name)}.click()")
    check_contrast(browser, checks)
    checks.equal("simulate: no complaints", browser.complaints(), [])
    check_narrow_and_plain(browser, checks, path, text.split("\n")[0])


def check_pages(tool, browser, checks, pictures):
    check_lint_page(tool, browser, checks, pictures)
    check_simulation_page(tool, browser, checks)


run_page_checks(check_pages)
