#!/usr/bin/env python3
"""The page of a journal that was asked again, in a real browser, opened from disk without a network."""

import json

from page_checks import HOSTILE, POLICY, check_skeleton, run_page_checks

ROWS = "[...document.querySelectorAll('#differences tbody tr')].map(r => r.textContent)"
CELLS = "[...document.querySelectorAll('#differences tbody tr:first-child > *')].map(c => c.textContent)"
SUMMARY = "[...document.querySelectorAll('#summary tbody tr')].map(r => r.textContent)"


def make_page(tool):
    lines = ["time,amount,dispensed,code", "Mon 10:00,70,7x10,", "Mon 11:00,70,1x50 1x20,",
             f'Mon 12:00,5,,"{HOSTILE}"', "Mon 13:00,70,,971A2", "Mon 14:00,x,,"]
    (tool.folder / "journal.csv").write_text("\n".join(lines) + "\n")
    (tool.folder / "hostile.json").write_text(json.dumps({
        "name": "Corner " + HOSTILE, "currency": "EUR", "cassettes": [
            {"label": HOSTILE, "value": 50, "count": 9}, {"value": 20, "count": 9},
            {"value": 10, "count": 90}]}))
    return tool.run(["replay", "journal.csv", "--dispenser", "hostile.json", "--output", "page.html"])


def check_page(tool, browser, checks, pictures):
    status, _, errors = make_page(tool)
    checks.equal("written", (status, errors.count("\n")), (2, 1))
    path = tool.folder / "page.html"
    page = path.read_text()
    head = page.split("<head>", 1)[1].lstrip()
    checks.check("the policy comes first", head.startswith(POLICY), head[:200])
    checks.equal("hostile texts end no script", page.count("</script>"), 3)
    browser.open(path)
    check_skeleton(browser, checks, "Corner " + HOSTILE)
    checks.equal("totals", browser.run(SUMMARY), [
        "the same1", "other notes1", "paid then, not paid now0", "not paid then, paid now1",
        "not paid, for another reason1"])
    checks.equal("the first line", browser.run(CELLS), [
        "2", "Mon 10:00", "70 EUR", "1", "other notes", "7x10", "1x50 1x20"])
    checks.equal("the lines that differ", len(browser.run(ROWS)), 3)
    browser.run("document.getElementById('change-otherNotes').click()")
    rows = browser.run(ROWS)
    checks.check("a change is left out", len(rows) == 2 and rows[0].startswith("4Mon 12:00"), rows)
    checks.equal("how many are shown", browser.run("document.getElementById('shown').textContent"),
                 "2 lines.")
    checks.check("bad lines are named", "amount: x is not allowed" in browser.run(
        "document.getElementById('badLines').textContent"))
    browser.resize(320, 700)
    checks.check("narrow: no sideways scrolling of the page", browser.run(
        "document.documentElement.scrollWidth <= 320"))
    checks.equal("no complaints", browser.complaints(), [])
    browser.call("Emulation.setScriptExecutionDisabled", value=True)
    browser.open(path)
    text = browser.shown_text()
    checks.check("scripts off: counts and dispenser",
                 "3 of 4 lines are answered otherwise" in text and "other notes" in text and
                 HOSTILE in text, text)
    browser.call("Emulation.setScriptExecutionDisabled", value=False)


run_page_checks(check_page)
