#!/usr/bin/env python3
"""The page with the tool inside, as people use it: typing, refused fields, links, commands, narrow
windows; in a real browser, opened from disk without a network.

  tool_explorer_page.py --page FILE [--pictures FOLDER] ... -- TOOL    the rest as for the other scripts
"""

import json
import os
import pathlib
import subprocess
import sys
import urllib.parse

from page_checks import HOSTILE, run_page_checks

MOST_BYTES = 2000000
IDLE = ("(async () => { do { await new Promise(wake => setTimeout(wake, 20)); } "
        "while (document.body.hasAttribute('aria-busy')); })()")
MAPPED = "JSON.stringify({input: map.answer.input, result: map.answer.result})"


def wait(browser):
    browser.run(IDLE)


def open_page(browser, fragment=""):
    browser.open("/dev/null")
    browser.open(str(PAGE) + fragment)
    wait(browser)


def type_into(browser, pointer, text):
    """As a person does: into the field, over what stands there."""
    browser.run(f"(() => {{ const f = byId('field{pointer}'); const more = f.closest('details'); "
                "if (more) { more.open = true; } f.focus(); f.select(); })()")
    if text:
        browser.call("Input.insertText", text=text)
    else:
        browser.run("document.execCommand('delete')")
    wait(browser)


def text_of(browser, element):
    return browser.run(f"byId('{element}').textContent")


def dispenser_of(browser):
    return browser.run("editor.dispenser")


def expected_map(tool, dispenser):
    (tool.folder / "page.json").write_text(json.dumps(dispenser))
    answer = json.loads(tool.run(["map", "page.json", "--json"])[1])
    return {"input": answer["input"], "result": answer["result"]}


def check_shown(tool, browser, checks, name):
    """What is shown is what the command line answers on the dispenser as it stands."""
    dispenser = dispenser_of(browser)
    checks.equal(f"{name}: the map", json.loads(browser.run(MAPPED)), expected_map(tool, dispenser))
    amount = browser.run("byId('field/amount').value")
    _, text, _ = tool.run(["mix", "page.json", "--amount", amount, "--mix", "all"])
    checks.equal(f"{name}: the verdict", text_of(browser, "mixVerdict"), text.split("\n")[0])
    _, out, _ = tool.run(["mix", "page.json", "--amount", amount, "--mix", "all", "--json"])
    rows = browser.run("[...byId('mixTable').tBodies[0].rows].map(r => [...r.cells].slice(3)"
                       ".map(c => c.textContent))")
    values = [mix["values"] for mix in json.loads(out)["result"]["mixes"]]
    for index, cassette in enumerate(dispenser["cassettes"]):
        position = cassette.get("position", index)
        checks.equal(f"{name}: cassette {index}", rows[index],
                     ["?" if value is None else str(value[position] or "-") for value in values])
    _, text, _ = tool.run(["explain", "page.json", "--amount", amount])
    checks.equal(f"{name}: why", text_of(browser, "explanation"), text)
    _, out, _ = tool.run(["lint", "page.json", "--json"])
    findings = json.loads(out)["result"]["findings"]
    checks.equal(f"{name}: findings", text_of(browser, "findingCount"), f"({len(findings)})")
    shown = text_of(browser, "findings")
    for finding in findings:
        checks.check(f"{name}: {finding['id']}", finding["message"] in shown, shown)


def check_examples(tool, browser, checks):
    for example in browser.run("Object.keys(known.examples)"):
        browser.run(f"(() => {{ const e = byId('examples'); e.value = '{example}'; "
                    "e.dispatchEvent(new Event('change')); })()")
        wait(browser)
        checks.equal(f"{example}: no complaint", browser.run(
            "document.querySelectorAll('[aria-invalid]').length + byId('wrong').textContent"), "0")
        check_shown(tool, browser, checks, example)


def check_typing(tool, browser, checks):
    open_page(browser, link({"amount": "280", "dispenser": {"currency": "EUR", "cassettes": [
        {"value": 50, "count": 10}, {"value": 20, "count": 10}]}}))
    check_shown(tool, browser, checks, "opened by a link")
    before = browser.run(MAPPED)
    type_into(browser, "/cassettes/0/count", "1")
    checks.check("typing changes the map", browser.run(MAPPED) != before)
    check_shown(tool, browser, checks, "typed")
    type_into(browser, "/amount", "90")
    check_shown(tool, browser, checks, "another amount")
    browser.run("(() => { const s = byId('field/cassettes/1/status'); s.value = 'full'; "
                "s.dispatchEvent(new Event('change')); })()")
    wait(browser)
    check_shown(tool, browser, checks, "another status")
    checks.check("a finding leads to its field", browser.run(
        "[...document.querySelectorAll('#findings button')].some(b => { b.click(); "
        "return document.activeElement.id === 'field/cassettes/1/status'; })"))
    browser.run("byId('add').click()")
    wait(browser)
    check_shown(tool, browser, checks, "a cassette more")
    browser.run("document.querySelectorAll('.remove')[0].click()")
    wait(browser)
    check_shown(tool, browser, checks, "a cassette less")


def check_refused(tool, browser, checks):
    """A wrong field says so in the words of the command line; the answers stay, greyed."""
    for pointer, text, stale in (("/cassettes/0/value", "5O", "map"), ("/currency", "euro", "map"),
                                 ("/cassettes/0/lowThreshold", "-1", "map"), ("/amounts/step", "0", "map"),
                                 ("/amount", "7.5", "mix")):
        shown = browser.run(MAPPED), text_of(browser, "mixVerdict")
        good = browser.run(f"byId('field{pointer}').value")
        type_into(browser, pointer, text)
        (tool.folder / "dispenser.json").write_text(json.dumps(dispenser_of(browser)))
        amount = browser.run("byId('field/amount').value")
        _, _, error = tool.run(["mix", "dispenser.json", "--amount", amount, "--mix", "all"])
        said = browser.run(f"byId('complaint{pointer}').textContent")
        checks.check(f"{pointer}: said beside it", said and error.strip().endswith(said), said + error)
        checks.check(f"{pointer}: marked", browser.run(
            f"byId('field{pointer}').getAttribute('aria-invalid') === 'true' && "
            f"byId('field{pointer}').getAttribute('aria-describedby') === 'complaint{pointer}'"))
        checks.equal(f"{pointer}: the last good answers stay",
                     (browser.run(MAPPED), text_of(browser, "mixVerdict")), shown)
        checks.check(f"{pointer}: greyed", browser.run(f"byId('{stale}').classList.contains('stale')"))
        type_into(browser, pointer, good)
        checks.equal(f"{pointer}: mended", browser.run(
            "document.querySelectorAll('.stale, [aria-invalid]').length"), 0)


def link(state):
    return "#" + urllib.parse.quote(json.dumps(state))


def check_link(tool, browser, checks):
    dispenser = {"name": "Corner " + HOSTILE, "currency": "EUR", "mix": 4, "x-own": [1], "cassettes": [
        {"label": HOSTILE[:40], "value": 100, "count": 400}, {"value": 50, "count": 400},
        {"value": 20, "count": 400}]}
    open_page(browser, link({"amount": "110", "dispenser": dispenser}))
    checks.equal("a link opens what it says", dispenser_of(browser), dispenser)
    check_shown(tool, browser, checks, "link")
    checks.equal("the title is text", text_of(browser, "title"), "Corner " + HOSTILE)
    checks.equal("labels make no elements", browser.run(
        "document.images.length + byId('map').shadowRoot.querySelectorAll('img').length"), 0)
    browser.run("byId('link').click()")
    checks.equal("the address says the same", json.loads(urllib.parse.unquote(
        browser.run("location.hash")[1:])), {"amount": "110", "dispenser": dispenser})
    for wrong in ("#", "#%", "#[1]", "#" + urllib.parse.quote('{"dispenser": []}')):
        open_page(browser, wrong)
        check_shown(tool, browser, checks, f"not a dispenser: {wrong}")
    open_page(browser, link({"amount": 1, "dispenser": {"currency": "EUR", "cassettes": HOSTILE}}))
    checks.check("what is no dispenser file is refused in the tool's words",
                 "/cassettes: " in text_of(browser, "wrong"), text_of(browser, "wrong"))
    checks.equal("and makes no elements", browser.run("document.images.length"), 0)


def check_command(tool, browser, checks):
    """The lines under Command say the same in a shell."""
    open_page(browser, link({"amount": "110", "dispenser": {"name": "It's $HOME \\ %s", "currency": "EUR",
                                                            "cassettes": [{"value": 20, "count": 9}]}}))
    browser.run("byId('command').click()")
    checks.check("the command is shown", browser.run("byId('lines').checkVisibility()"))
    lines = browser.run("byId('lines').value").split("\n")
    folder = tool.folder / "path"
    folder.mkdir()
    (folder / "qxmix").symlink_to(pathlib.Path(tool.arguments.command[-1]).resolve())
    outs = []
    for line in lines:
        outs.append(subprocess.run(["sh", "-c", line], capture_output=True, text=True, env={
            **tool.environment, "PATH": f"{folder}:{os.environ['PATH']}"}, check=False))
    checks.equal("no command complains", [out.stderr for out in outs], [""] * 4)
    checks.equal("its verdict", outs[0].stdout.split("\n")[0], text_of(browser, "mixVerdict"))
    checks.equal("its explanation", outs[1].stdout, text_of(browser, "explanation"))


def check_week(tool, browser, checks):
    open_page(browser)
    browser.run("byId('simulation').requestSubmit()")
    browser.run("(async () => { while (week.opened === null) { await new Promise(w => setTimeout(w, 20)); } })()")
    (tool.folder / "page.json").write_text(json.dumps(dispenser_of(browser)))
    (tool.folder / "week.json").write_text(browser.run("known.week"))
    _, out, _ = tool.run(["simulate", "page.json", "--demand", "week.json", "--mixes", "all", "--json"])
    checks.equal("the simulated week", browser.run("week.answer.result"), json.loads(out)["result"])
    checks.check("curves", browser.run("byId('week').shadowRoot.querySelectorAll('.curve').length") > 10)
    browser.run("byId('week').shadowRoot.querySelector('.plot').focus()")
    browser.press("ArrowRight")
    checks.check("a curve is read by keys", ", mix" in browser.run(
        "byId('week').shadowRoot.getElementById('what').textContent").lower(), browser.run(
        "byId('week').shadowRoot.getElementById('what').textContent"))
    type_into(browser, "/cassettes/0/count", "7")
    checks.check("another dispenser makes the week old",
                 browser.run("byId('week').classList.contains('stale')"))


def check_keys_and_filters(browser, checks):
    open_page(browser)
    shadow = "byId('map').shadowRoot"
    browser.run(f"{shadow}.querySelector('.cell').focus()")
    browser.press("ArrowRight")
    what = browser.run(f"{shadow}.getElementById('what').textContent")
    checks.check("arrow keys move in the map", what.startswith("20 EUR, mix 1: "), what)
    browser.run(f"{shadow}.getElementById('mix-2').click()")
    browser.run(f"{shadow}.getElementById('larger').click()")
    type_into(browser, "/cassettes/0/count", "7")
    checks.equal("what was hidden stays hidden", browser.run(
        f"[{shadow}.getElementById('mix-2').checked, {shadow}.querySelectorAll('[data-mix=\"2\"]').length]"),
        [False, 0])
    checks.equal("one h1", browser.run("document.querySelectorAll('h1').length"), 1)
    checks.check("every control has a name", browser.run(
        "[...document.querySelectorAll('input, select, textarea')].filter(c => c.checkVisibility())"
        ".every(c => c.labels.length > 0 || c.ariaLabel)"))


def check_sizes(browser, checks, pictures):
    size = PAGE.stat().st_size
    print(f"{size} bytes")
    checks.check("at most 2 MB", size <= MOST_BYTES, size)
    for name, width, scheme in (("light", 1280, "light"), ("dark", 1280, "dark"), ("phone", 320, "light")):
        browser.call("Emulation.setEmulatedMedia", media="",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])
        browser.resize(width, 1400)
        open_page(browser, link({"amount": "110", "dispenser": json.loads(EXAMPLE.read_text())}))
        checks.check(f"{name}: nothing is wider than the window", browser.run(
            "document.documentElement.scrollWidth") <= width, browser.run(
            "document.documentElement.scrollWidth"))
        if pictures:
            (pictures / f"page-{name}.png").write_bytes(browser.screenshot())
    browser.resize(1280, 1400)
    checks.check("prints", browser.print_to_pdf().startswith(b"%PDF"))


def check_page(tool, browser, checks, pictures):
    requests, complaints = [], []
    for part in (lambda: open_page(browser), lambda: check_examples(tool, browser, checks),
                 lambda: check_typing(tool, browser, checks), lambda: check_refused(tool, browser, checks),
                 lambda: check_link(tool, browser, checks), lambda: check_command(tool, browser, checks),
                 lambda: check_week(tool, browser, checks), lambda: check_keys_and_filters(browser, checks),
                 lambda: check_sizes(browser, checks, pictures)):
        part()
        requests += browser.requests()
        complaints += browser.complaints()
    checks.equal("nothing leaves", [url for url in requests if not url.startswith(("file://", "blob:"))], [])
    checks.equal("no complaints", complaints, [])


at = sys.argv.index("--page")
PAGE = pathlib.Path(sys.argv[at + 1]).resolve()
del sys.argv[at:at + 2]
EXAMPLE = pathlib.Path(__file__).parents[2] / "examples/trouble.json"
run_page_checks(check_page)
