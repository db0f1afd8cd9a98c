#!/usr/bin/env python3
"""The page of `qxmix simulate` in a real browser, opened from disk without a network."""

import json

from page_checks import (HOSTILE, check_narrow, check_pictures, check_scripts_off, check_skeleton,
                         check_without_script, height_of_details, printed_sheets, run_page_checks,
                         sheets_with)
from written_answers import rows_of

DETAILS = "['what', 'items', 'held'].map(id => document.getElementById(id).textContent)"
CASSETTES = [
    {"label": HOSTILE, "value": 100, "count": 12, "lowThreshold": 6, "emptyThreshold": 1},
    {"value": 50, "count": 40, "lowThreshold": 10}, {"label": "C", "value": 20, "count": 40}]
LABELS = (HOSTILE, "1", "C")
NAMES = (HOSTILE, "50 EUR (1)", "C")
MIXES = (1, 2, 4)
WORDS = {"paid": "paid", "notDispensable": "not dispensable", "nothingPaid": "nothing paid",
         "noAnswer": "never answers"}
LETTERS = {"paid": ".", "notDispensable": "r", "nothingPaid": "n", "overpaid": "O", "noAnswer": "X"}


def make_demand(tool):
    """Withdrawals three hours apart: each has pixels of its own."""
    amounts = [120, 200, 50, 130, 20, 180, 110, 90]
    lines = ["time,amount"]
    for index in range(56):
        day, hour = divmod(index * 3, 24)
        lines.append(f"2026-11-{16 + day} {hour:02}:30,{amounts[index % len(amounts)]}")
    (tool.folder / "week.csv").write_text("\n".join(lines) + "\n")
    dispenser = {"name": "Corner " + HOSTILE, "currency": "EUR", "cassettes": CASSETTES}
    (tool.folder / "hostile.json").write_text(json.dumps(dispenser))
    return ["simulate", "hostile.json", "--demand", "week.csv", "--mixes", "1,2,4"]


def expected_details(answer, rows):
    """What the page has to say of each withdrawal and mix, from the CSV and the items in the JSON."""
    expected = {}
    for mix in answer["result"]["mixes"]:
        steps, path = mix["answers"]["steps"], mix["answers"]["path"]
        statuses = ["ok"] * 3
        for index, row in enumerate(row for row in rows if int(row["mix"]) == mix["mix"]):
            _, items = steps["ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnop".index(path[index])]
            outcome, held = row["outcome"], [int(row[f"c{c}"]) for c in range(3)]
            said = WORDS.get(outcome) or f"pays more than asked, {row['paid']} EUR"
            what = f"{row['time']}, {row['amount']} EUR, mix {mix['mix']}: {said}"
            taken = ", ".join(f"{count} x {c['value']} EUR from {label}" for count, c, label
                              in zip(items, CASSETTES, LABELS) if count) or "Nothing is taken."
            if outcome == "overpaid":
                taken = "Not carried out: " + taken
            elif outcome == "paid":
                for at, count in enumerate(items):
                    if count:
                        cassette = CASSETTES[at]
                        statuses[at] = (
                            "empty" if held[at] <= cassette.get("emptyThreshold", 0) else
                            "low" if held[at] <= cassette.get("lowThreshold", 0) else "ok")
            then = ", ".join(f"{label} {count} {status}" for label, count, status
                             in zip(LABELS, held, statuses))
            expected[mix["mix"], index] = [what, taken, "Then " + then]
    return expected


def plot(mix):
    return f"document.querySelector('.plot[data-mix=\"{mix}\"]')"


def point_at(browser, mix, index):
    place = browser.run(f"(() => {{ const p = {plot(mix)}; p.scrollIntoView({{block: 'end'}}); "
                        "const r = p.getBoundingClientRect(); "
                        f"return [r.x + xOf(demand.times[{index}]), r.y + 60]; }})()")
    browser.point_at(1, 1)
    browser.point_at(*place)


def check_content(browser, checks, output, shown):
    check_skeleton(browser, checks, "Corner " + HOSTILE)
    embedded = browser.run("document.getElementById('answer').textContent")
    checks.equal("the data is that of --json", json.loads(embedded), json.loads(output))
    checks.equal("the verdict is that of the text",
                 browser.run("[document.getElementById('verdict').textContent, "
                             "document.getElementById('danger').textContent]"),
                 [shown.split("\n")[0], "DANGER " + shown.split("\n")[1]])
    ranking = browser.run("[...document.querySelectorAll('#ranking tbody tr')]"
                          ".map(row => [...row.cells].slice(0, 8).map(cell => cell.textContent))")
    lines = [line.split() for line in shown.split("\n")[4:4 + len(MIXES)]]
    checks.equal("the ranking is that of the text",
                 [row[:4] + row[5:] for row in ranking], [line[:7] for line in lines])
    labels = [label if len(label) <= 12 else label[:11] + "\u2026" for label in NAMES]
    for mix in MIXES:
        checks.equal(f"mix {mix}: labels at the ends", sorted(browser.run(
            f"[...{plot(mix)}.querySelectorAll('.curve text')].map(t => t.textContent)")),
            sorted(labels))
        dashes = browser.run(f"[...{plot(mix)}.querySelectorAll('.line:not(.end)')]"
                             ".map(l => l.getAttribute('stroke-dasharray'))")
        checks.equal(f"mix {mix}: each curve has its dash", len(set(dashes)), len(LABELS))


def check_details(browser, checks, expected):
    kinds = {}
    for (mix, index), lines in expected.items():
        kinds.setdefault((mix, lines[0].split(": ")[1].split(",")[0], lines[2].count("low"),
                          lines[2].count("empty")), (mix, index))
    checks.check("ten kinds of withdrawals and more", len(kinds) >= 10, kinds)
    for mix, index in kinds.values():
        browser.run("document.activeElement.blur(), "
                    "document.getElementById('what').textContent = 'nothing yet'")
        point_at(browser, mix, index)
        checks.equal(f"{index}, mix {mix}: hover", browser.run(DETAILS), expected[mix, index])
        browser.run("document.getElementById('what').textContent = 'nothing yet'")
        browser.run(plot(mix) + ".focus()")
        checks.equal(f"{index}, mix {mix}: focus", browser.run(DETAILS), expected[mix, index])
        places = browser.run("[...document.querySelectorAll('.cursor')]"
                             ".map(c => c.getAttribute('transform') + c.getAttribute('visibility'))")
        checks.equal("one time cursor in all panels", (len(places), len(set(places))), (3, 1))


def check_keys(browser, checks, expected, order):
    browser.run(plot(order[0]) + ".focus()")
    last = len(expected) // len(MIXES) - 1
    for key, place in (("Home", (0, 0)), ("ArrowLeft", (0, 0)), ("ArrowRight", (0, 1)),
                       ("PageDown", (0, 9)), ("ArrowDown", (1, 9)), ("PageUp", (1, 1)),
                       ("End", (1, last)), ("ArrowRight", (1, last)), ("ArrowUp", (0, last))):
        browser.press(key)
        row, index = place
        checks.equal(f"{key} moves and announces", browser.run(DETAILS),
                     expected[order[row], index])
        checks.equal(f"{key}: the slider's value", browser.run(
            "[document.activeElement.dataset.mix, document.activeElement.ariaValueNow, "
            "document.activeElement.ariaValueText]"),
            [str(order[row]), str(index + 1), expected[order[row], index][0].split(", mix")[0]])
    checks.equal("the details are a live region",
                 browser.run("document.getElementById('details').ariaLive"), "polite")
    browser.press("Home")
    first = next(index for index in range(last)
                 if "Nothing" in expected[order[0], index][1] and index > 0)
    browser.run("document.getElementById('next').click()")
    checks.equal("to the next refusal", browser.run(DETAILS), expected[order[0], first])
    browser.run("document.getElementById('next').click(), document.getElementById('before').click()")
    checks.equal("and back", browser.run(DETAILS), expected[order[0], first])


def check_filters(browser, checks, order):
    shown = "[...document.querySelectorAll('.plot')].map(p => Number(p.dataset.mix))"
    checks.equal("all mixes, best first", browser.run(shown), order)
    browser.run("document.getElementById('mix-2').click()")
    checks.equal("a mix is hidden", browser.run(shown), [mix for mix in order if mix != 2])
    browser.run("document.getElementById('mix-2').click()")
    checks.equal("and back", browser.run(shown), order)


def check_letters(browser, checks, rows):
    for mix in MIXES:
        shown = browser.run(f"[...{plot(mix)}.querySelectorAll('.letters span')]"
                            ".map(s => [parseFloat(s.style.left), s.textContent, s.className])")
        shown.sort()
        outcomes = [row["outcome"] for row in rows if int(row["mix"]) == mix]
        checks.equal(f"mix {mix}: letters below", [cell[1:] for cell in shown],
                     [[LETTERS[outcome], "o-" + outcome] for outcome in outcomes])


def check_height(browser, checks, path):
    """The panel has the same height whatever it tells, and nothing below it moves."""
    for width in (1280, 320):
        browser.resize(width, 900)
        browser.open(path)
        before = height_of_details(browser)
        heights = {before}
        for mix in MIXES:
            for index in range(0, 56, 5):
                browser.run(f"show(rows.findIndex(row => row.mix === {mix}), {index})")
                heights.add(height_of_details(browser))
        checks.equal(f"{width} px: the panel keeps its height", heights, {before})


def check_print(tool, browser, checks):
    sheets = printed_sheets(tool, browser, checks)
    if sheets is None:
        return
    text = " ".join(sheets)
    checks.check("print: dispenser and command on the first sheet",
                 "Cassettes in EUR" in sheets[0] and "qxmix simulate hostile.json" in sheets[0],
                 sheets[0])
    checks.check("print: letters", ".......r" in text.replace(" ", ""), text)
    checks.equal("print: the dispenser on one sheet", sheets_with(sheets, ["holds", "Deadline"]), [0])
    checks.check("print: curves on further sheets", "Mix 4" in " ".join(sheets[1:]), text)
    checks.check("print: no controls", "next refusal" not in text and "Left and right" not in text,
                 text)
    checks.equal("after printing the page is as before", browser.run(
        "document.querySelector('main').lastElementChild.id"), "about")


def check_runs(tool, browser, checks):
    words = ["simulate", "examples/plain-euro.json", "--demand", "examples/week.json", "--mixes",
             "1,3", "--runs", "3", "--output", "runs.html", "--json"]
    mixes = json.loads(tool.run(words)[1])["result"]["mixes"]
    browser.open(tool.folder / "runs.html")
    checks.equal("runs: no complaints", browser.complaints(), [])
    cells = browser.run("[...document.querySelectorAll('#ranges tbody tr')]"
                        ".map(row => row.cells[1].textContent)")
    served = [mix["ranges"]["served"] for mix in mixes]
    expected = [str(s["median"]) if s["least"] == s["most"] else
                "{median} ({least} to {most})".format(**s) for s in served]
    checks.check("runs: both kinds of ranges", any("to" in text for text in expected) and
                 not all("to" in text for text in expected), expected)
    checks.equal("runs: ranges", cells, expected)


def check_large(tool, browser, checks):
    pattern = json.loads((tool.folder / "examples/week.json").read_text())
    pattern.update(days=20, perDay=1000)
    (tool.folder / "large.json").write_text(json.dumps(pattern))
    cassettes = [{"value": value, "count": count, "lowThreshold": count * 3 // 5,
                  "emptyThreshold": count // 5}
                 for value, count in ((100, 9000), (50, 9000), (20, 9000))]
    (tool.folder / "thousands.json").write_text(
        json.dumps({"currency": "EUR", "cassettes": cassettes}))
    tool.run(["simulate", "thousands.json", "--demand", "large.json", "--mixes", "2", "--output",
              "large.html"])
    browser.open(tool.folder / "large.html")
    checks.equal("large: no complaints", browser.complaints(), [])
    points = browser.run("[...document.querySelectorAll('.line:not(.end)')]"
                         ".map(l => l.getAttribute('d').split('H').length - 1)")
    checks.check("large: at most 2000 points a curve", 1000 < max(points) <= 2002, points)
    missing = browser.run("""rows[0].changes.map((changes, cassette) => {
        const kept = new Set(changes);
        return rows[0].statuses.filter((now, index) => index > 0 &&
            now[cassette] !== rows[0].statuses[index - 1][cassette] && !kept.has(index)).length; })""")
    checks.equal("large: every change of status is kept", missing, [0, 0, 0])
    changes = browser.run("rows[0].statuses[rows[0].size - 1]")
    checks.equal("large: all statuses have changed", changes, ["empty"] * 3)


def check_days_of_weeks(tool, browser, checks):
    (tool.folder / "days.csv").write_text("time,amount\nw1 Tue 09:46,50\nw2 Mon 09:47,50\n")
    tool.run(["simulate", "EUR:50x9", "--demand", "days.csv", "--mixes", "1", "--output", "days.html"])
    browser.open(tool.folder / "days.html")
    checks.equal("days of weeks: no complaints", browser.complaints(), [])
    browser.run(plot(1) + ".focus()")
    browser.press("End")
    checks.equal("days of weeks: no date is needed", browser.run(DETAILS)[0],
                 "w2 Mon 09:47, 50 EUR, mix 1: paid")
    checks.check("days of weeks: recorded", "; recorded" in
                 browser.run("document.getElementById('asked').textContent"))


def check_worst_letters(tool, browser, checks):
    words = ["simulate", "examples/euro.json", "--demand", "examples/week.json", "--mixes", "2"]
    tool.run(words + ["--output", "week.html"])
    tool.run(words + ["--output", "week.csv"])
    rows = rows_of(tool, "week.csv")
    browser.open(tool.folder / "week.html")
    columns = browser.run("Math.floor(plotWidth() / LETTER_WIDTH)")
    times = browser.run("demand.times")
    worst = {}
    for row, time in zip(rows, times):
        column = time * columns // (7 * 86400)
        worst[column] = max(worst.get(column, ""), LETTERS[row["outcome"]])  # r is above .
    shown = browser.run("[...document.querySelectorAll('.letters span')]"
                        ".map(s => [parseFloat(s.style.left), s.textContent])")
    checks.equal("a letter is the worst of its stretch", [letter for _, letter in sorted(shown)],
                 [worst[column] for column in sorted(worst)])


def check_page(tool, browser, checks, pictures):
    words = make_demand(tool)
    status, shown, _ = tool.run(words + ["--output", "simulate.html"])
    checks.equal("exit status", status, 3)
    tool.run(words + ["--output", "steps.csv"])
    output = tool.run(words + ["--json"])[1]
    rows = rows_of(tool, "steps.csv")
    answer = json.loads(output)
    order = [mix["mix"] for mix in answer["result"]["mixes"]]
    counts = answer["result"]["mixes"][-1]["counts"]
    checks.check("mix 4 overpays and gives no answer", order[-1] == 4 and
                 counts.get("overpaid", 0) > 0 and 0 < counts.get("noAnswer", 0) < 20, counts)
    expected = expected_details(answer, rows)
    path = tool.folder / "simulate.html"
    check_without_script(checks, path, f'<th scope="row">{order[0]}</th><td class="number">0</td>')
    browser.resize(1280, 900)
    check_scripts_off(browser, checks, path, shown.split("\n")[1])
    browser.open(path)
    check_content(browser, checks, output, shown)
    check_details(browser, checks, expected)
    check_keys(browser, checks, expected, order)
    check_filters(browser, checks, order)
    check_letters(browser, checks, rows)
    check_print(tool, browser, checks)
    checks.equal("no complaints", browser.complaints(), [])
    check_narrow(browser, checks, path)
    check_height(browser, checks, path)
    checks.equal("narrow: no complaints", browser.complaints(), [])
    check_pictures(browser, checks, path, pictures)
    check_runs(tool, browser, checks)
    check_large(tool, browser, checks)
    check_days_of_weeks(tool, browser, checks)
    check_worst_letters(tool, browser, checks)


run_page_checks(check_page)
