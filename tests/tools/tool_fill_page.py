#!/usr/bin/env python3
"""The page of `qxmix fill` in a real browser, opened from disk without a network."""

import json
import re

from page_checks import (HOSTILE, check_narrow, check_pictures, check_scripts_off, check_skeleton,
                         check_without_script, height_of_details, printed_sheets, run_page_checks,
                         sheets_with)

DETAILS = "['what', 'items', 'held'].map(id => document.getElementById(id).textContent)"
CASSETTES = [
    {"label": HOSTILE, "value": 100, "count": 12, "capacity": 300, "bundle": 10, "lowThreshold": 6},
    {"value": 50, "count": 40, "capacity": 300, "bundle": 20, "lowThreshold": 10},
    {"label": "C", "value": 20, "count": 100, "capacity": 300, "bundle": 10},
    {"label": "old", "value": 20, "count": 3, "status": "inoperative"}]
NAMES = (HOSTILE, "50 EUR (1)", "C")
LABELS = (HOSTILE, "1", "C")
RUNS = 3
DAYS = ("Mon", "Tue", "Wed")
MIXES = (1, 3)
TABLE = "[...document.querySelectorAll('#{} tbody tr')].map(row => [...row.cells].map(c => c.textContent))"


def make_files(tool):
    (tool.folder / "hostile.json").write_text(json.dumps({
        "name": "Corner " + HOSTILE, "currency": "EUR", "cassettes": CASSETTES,
        "costs": {"interestPerYear": "3.5", "refill": "80", "bundle": "0.50"}}))
    week = json.loads((tool.folder / "examples/week.json").read_text())
    (tool.folder / "few.json").write_text(json.dumps({**week, "days": 3, "perDay": 20}))
    return ["fill", "hostile.json", "--demand", "few.json", "--mixes", "1,3", "--service", "88", "--runs",
            str(RUNS)]


def items_text(texts):
    return ", ".join(f"{name} {text}" for name, text in zip(NAMES, texts))


def point_details(mix, index):
    point = mix["curve"][index]
    is_proposed = point["load"] == [cassette["load"] for cassette in mix["cassettes"]]
    return [f"{point['money']} EUR, mix {mix['mix']}: {point['promised']} % or more served in 3 of 3 runs",
            "Load " + items_text(point["load"]),
            f"{point['median']} % in the median run, {point['worst']} % in the worst" +
            ("; this loading is proposed" if is_proposed else "")]


def time_name(index, last):
    return "At first" if index == 0 else "At the end" if index == last else \
        f"{DAYS[index // 24]} {index % 24:02}:00"


def time_details(mix, index):
    held = mix["held"]["cassettes"]
    ranges = [tuple(one[name][index] for name in ("median", "least", "most")) for one in held]
    texts = [str(median) if least == most else f"{median} ({least} to {most})" for median, least, most in ranges]
    varies = any(least != most for _, least, most in ranges)
    return [f"{time_name(index, len(held[0]['median']) - 1)}, mix {mix['mix']}", "Left: " + items_text(texts),
            "Medians, and in brackets the least and the most of 3 runs" if varies else ""]


def plot(place):
    return f"document.querySelectorAll('.plot')[{place}]"


def check_content(browser, checks, output, shown):
    check_skeleton(browser, checks, "Corner " + HOSTILE)
    embedded = browser.run("document.getElementById('answer').textContent")
    checks.equal("the data is that of --json", json.loads(embedded), json.loads(output))
    lines = [re.sub(" +", " ", line).strip() for line in shown.split("\n")]
    checks.equal("the verdict is that of the text", browser.run(
        "[...document.querySelectorAll('header p')].map(p => p.textContent)"), lines[:2])
    checks.equal("the remarks are those of the text", browser.run(
        "[...document.querySelectorAll('#remarks p')].map(p => p.textContent.replace(/ +/g, ' '))"),
        [line for line in lines if line.split(" ")[0] in ("runs", "now", "costs", "checked")])


def check_tables(browser, checks, answer):
    best = answer["result"]["mixes"][0]
    said = lambda service: "-" if service is None else str(service["reaching"])
    checks.equal("what to load", browser.run(TABLE.format("loading")), [
        [label, f"{cassette['value']} EUR", str(cassette["count"]), str(one["load"]),
         str(one["load"] // cassette["bundle"]), "300", said(one["less"]), said(one["more"]),
         one["low"] or "never"]
        for label, cassette, one in zip(LABELS, CASSETTES, best["cassettes"])])
    checks.equal("the mixes", browser.run(TABLE.format("ranking")), [
        [str(mix["mix"]), mix["money"]["load"], mix["service"]["median"] + " %",
         mix["service"]["worst"] + " %", str(mix["service"]["reaching"]), mix["costPerDay"]["load"],
         "" if mix["reached"] else "below 88 %"] for mix in answer["result"]["mixes"]])


def check_curves(browser, checks, mixes):
    """The pictures say what the answer does: places of points, marks and bands."""
    for place, mix in enumerate(mixes):
        name = f"mix {mix['mix']}"
        load = [cassette["load"] for cassette in mix["cassettes"]]
        places = browser.run(f"[...{plot(2 * place)}.querySelectorAll('circle')].map(c => "
                             "[Number(c.getAttribute('cx')), Number(c.getAttribute('cy')), c.className.baseVal])")
        checks.equal(f"{name}: a point for each loading, the proposed one marked", [kind for _, _, kind in places],
                     ["proposed" if point["load"] == load else "point" for point in mix["curve"]])
        first, last = mix["curve"][0], mix["curve"][-1]
        for (x, y, _), point in zip(places, mix["curve"]):
            # Where both scales are linear each point divides both ranges as its numbers do.
            along = (int(point["money"]) - int(first["money"])) / (int(last["money"]) - int(first["money"]))
            up = ((float(point["promised"]) - float(first["promised"])) /
                  (float(last["promised"]) - float(first["promised"])))
            checks.check(f"{name}: the place of {point['money']}",
                         abs(x - places[0][0] - along * (places[-1][0] - places[0][0])) < 0.1 and
                         abs(y - places[0][1] - up * (places[-1][1] - places[0][1])) < 0.1, (x, y))
        paths = browser.run(f"[...{plot(2 * place + 1)}.querySelectorAll('.curve')].map(g => "
                            "[g.querySelector('.band'), g.querySelector('.line')].map(p => "
                            "p.getAttribute('d').match(/[0-9.]+ [0-9.]+/g).map(xy => Number(xy.split(' ')[1]))))")
        loaded = [held for held, count in zip(mix["held"]["cassettes"], load) if count]
        checks.equal(f"{name}: a curve for each cassette that is loaded", len(paths), len(loaded))
        for (band, line), held, whole in zip(paths, loaded, filter(None, load)):
            top, height = browser.run("[TOP, view.height]")
            ys = lambda counts: [top + (1 - count / whole) * height for count in counts]
            wanted = (ys(held["most"]) + ys(held["least"])[::-1], ys(held["median"]))
            checks.check(f"{name}: the range and its middle", all(
                len(drawn) == len(right) and max(abs(a - b) for a, b in zip(drawn, right)) < 0.1
                for drawn, right in zip((band, line), wanted)), (band, line))


def check_details(browser, checks, mixes):
    last = len(mixes[0]["held"]["cassettes"][0]["median"]) - 1
    for place, mix in enumerate(mixes):
        for is_time, indexes, details in ((0, range(len(mix["curve"])), point_details),
                                          (1, (0, 1, 24, 45, last), time_details)):
            for index in indexes:
                at = 2 * place + is_time
                browser.run("document.activeElement.blur()")
                browser.point_at(1, 1)
                browser.point_at(*browser.run(
                    f"(() => {{ const p = {plot(at)}; p.scrollIntoView({{block: 'end'}}); const r = "
                    f"p.getBoundingClientRect(); return [r.x + p.xAt({index}), r.y + 60]; }})()"))
                checks.equal(f"hover over {at}, {index}", browser.run(DETAILS), details(mix, index))
                browser.run("document.getElementById('what').textContent = 'nothing yet'")
                browser.run(plot(at) + ".focus()")
                checks.equal(f"focus of {at}, {index}", browser.run(DETAILS), details(mix, index))
    browser.run(plot(1) + ".focus()")
    checks.equal("one time cursor in all mixes", browser.run(
        "[...document.querySelectorAll('.cursor')].map(c => c.getAttribute('visibility'))"),
        ["hidden", "visible"] * len(mixes))


def check_keys(browser, checks, mixes):
    browser.run(plot(0) + ".focus()")
    points = len(mixes[0]["curve"]) - 1
    end = len(mixes[0]["held"]["cassettes"][0]["median"]) - 1
    steps = (("Home", 0, 0), ("ArrowLeft", 0, 0), ("ArrowRight", 0, 1), ("End", 0, points),
             ("ArrowRight", 0, points), ("ArrowDown", 1, None), ("Home", 1, 0), ("PageDown", 1, 24),
             ("ArrowRight", 1, 25), ("PageUp", 1, 1), ("End", 1, end), ("ArrowUp", 0, points))
    for key, at, index in steps:
        browser.press(key)
        if index is None:
            continue
        details = (time_details if at else point_details)(mixes[0], index)
        checks.equal(f"{key} moves and announces", browser.run(DETAILS), details)
        checks.equal(f"{key}: the slider's value", browser.run(
            "[document.activeElement.ariaValueNow, document.activeElement.ariaValueText]"),
            [str(index + 1), details[0].split(", mix")[0]])
    checks.equal("the details are a live region",
                 browser.run("document.getElementById('details').ariaLive"), "polite")


def check_filters(browser, checks, mixes):
    shown = "[...document.querySelectorAll('.panel strong')].map(s => s.textContent)"
    names = [f"Mix {mix['mix']}" for mix in mixes]
    checks.equal("all mixes, best first", browser.run(shown), names)
    browser.run("document.getElementById('mix-3').click()")
    checks.equal("a mix is hidden", browser.run(shown), [name for name in names if name != "Mix 3"])
    browser.run("document.getElementById('mix-3').click()")
    checks.equal("and back", browser.run(shown), names)


def check_narrow_panel(browser, checks, path):
    check_narrow(browser, checks, path)
    before = height_of_details(browser)
    heights = browser.run("[...document.querySelectorAll('.plot')].flatMap(plot => Array.from({length: "
                          "plot.count}, (_, index) => { show(plot, index); "
                          "return document.getElementById('details').getBoundingClientRect().height; }))")
    checks.equal("320 px: the panel keeps its height", set(heights), {before})


def check_print(tool, browser, checks):
    sheets = printed_sheets(tool, browser, checks)
    if sheets is None:
        return
    checks.check("print: verdict, dispenser and command on the first sheet",
                 "LOAD" in sheets[0] and "Cassettes in EUR" in sheets[0] and
                 "qxmix fill hostile.json" in sheets[0], sheets[0])
    checks.equal("print: the dispenser on one sheet", sheets_with(sheets, ["holds", "Deadline"]), [0])
    checks.check("print: curves on further sheets", "proposed" in " ".join(sheets[1:]) and
                 "Mix 3" in " ".join(sheets[1:]), sheets)
    checks.check("print: no controls", "page up and down" not in " ".join(sheets), sheets)


def check_others(tool, browser, checks):
    """One mix of a recorded list, several numbers of days, and a mix that is dangerous."""
    words = ["fill", "EUR:50x10,20x40", "--demand", "examples/journal.csv", "--columns",
             "time=Zeit,amount=Betrag", "--bundle", "5", "--service", "60", "--output", "recorded.html"]
    status, output, errors = tool.run(words + ["--json"])
    checks.equal("recorded: written", (status, errors), (0, ""))
    mix = json.loads(output)["result"]["mixes"][0]
    checks.equal("recorded: its first day", mix["held"]["firstDay"], "2026-11-16")
    browser.open(tool.folder / "recorded.html")
    checks.equal("recorded: no complaints", browser.complaints(), [])
    browser.run(plot(1) + ".focus()")
    browser.press("PageDown")
    checks.check("recorded: dates", browser.run(DETAILS)[0].startswith("2026-11-17 00:00, mix 1"))
    words = ["fill", "hostile.json", "--demand", "few.json", "--service", "80", "--runs", "2", "--days", "1-3"]
    rows = json.loads(tool.run(words + ["--json", "--output", "days.html"])[1])["result"]["days"]
    browser.open(tool.folder / "days.html")
    checks.equal("days: no complaints", browser.complaints(), [])
    checks.equal("days: all of them", [row[:3] + row[6:] for row in browser.run(TABLE.format("days"))],
                 [[str(row["days"]), "1", row["load"], row["costPerDay"],
                   "least" if row["proposed"] else "" if row["reached"] else "below 80 %"]
                  for row in rows])
    words = ["fill", "hostile.json", "--demand", "few.json", "--service", "80", "--runs", "2", "--notes",
             "10,50,100", "--output", "notes.html"]
    mix = json.loads(tool.run(words + ["--json"])[1])["result"]["mixes"][0]
    browser.open(tool.folder / "notes.html")
    checks.equal("notes: no complaints", browser.complaints(), [])
    checks.equal("notes: those that the cassettes get, and those that they have", [
        row[:4] for row in browser.run(TABLE.format("loading"))], [
        [label, f"{one['value']['load']} EUR",
         str(one["now"]) + (f" x {one['value']['now']}" if one["value"]["now"] != one["value"]["load"] else ""),
         str(one["load"])] for label, one in zip(LABELS, mix["cassettes"])])
    checks.check("notes: some change", any(one["value"]["now"] != one["value"]["load"] for one in mix["cassettes"]))
    names = [f"{one['value']['load']} EUR (1)" if label == "1" else f"{label} ({one['value']['load']} EUR)"
             for label, one in zip(LABELS, mix["cassettes"])]
    browser.run(plot(0) + ".focus(), " + plot(0) + ".count")
    browser.press("Home")
    checks.equal("notes: in words", browser.run(DETAILS)[1], "Load " + ", ".join(
        f"{name} {count}" for name, count in zip(names, mix["curve"][0]["load"])))
    (tool.folder / "hang.json").write_text(json.dumps({
        "days": 1, "perDay": 30, "hours": [1] * 24, "amounts": [{"amount": 1002, "weight": 1}]}))
    status, _, _ = tool.run(["fill", "EUR:1x40000", "--demand", "hang.json", "--library", "fake.so", "--limit",
                             "2000", "--runs", "1", "--deadline", "5ms", "--output", "danger.html"])
    browser.open(tool.folder / "danger.html")
    checks.equal("danger: no complaints", (status, browser.complaints()), (3, []))
    checks.check("danger: it says so, and shows no curve", "DANGER" in browser.shown_text() and
                 browser.run("document.querySelectorAll('.plot').length") == 0, browser.shown_text())


def check_page(tool, browser, checks, pictures):
    words = make_files(tool)
    status, shown, _ = tool.run(words + ["--output", "fill.html"])
    checks.equal("exit status", status, 0)
    output = tool.run(words + ["--json"])[1]
    answer = json.loads(output)
    mixes = answer["result"]["mixes"]
    checks.check("curves of several points", all(len(mix["curve"]) > 3 for mix in mixes), mixes)
    path = tool.folder / "fill.html"
    check_without_script(checks, path, f'<td class="number">{mixes[0]["money"]["load"]}</td>')
    browser.resize(1280, 900)
    check_scripts_off(browser, checks, path, shown.split("\n")[1].strip(), "What each mix loads")
    browser.open(path)
    check_content(browser, checks, output, shown)
    check_tables(browser, checks, answer)
    check_curves(browser, checks, mixes)
    check_details(browser, checks, mixes)
    check_keys(browser, checks, mixes)
    check_filters(browser, checks, mixes)
    check_print(tool, browser, checks)
    checks.equal("no complaints", browser.complaints(), [])
    check_narrow_panel(browser, checks, path)
    checks.equal("narrow: no complaints", browser.complaints(), [])
    check_pictures(browser, checks, path, pictures, has_letters=False)
    check_others(tool, browser, checks)


run_page_checks(check_page)
