"""What every page that the tool writes has to hold, checked in a real browser."""

import html
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
POLICY = ("<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
          "style-src 'unsafe-inline'; script-src 'unsafe-inline'; img-src data:\">")


def run_page_checks(check_page):
    """Calls check_page(tool, browser, checks, pictures), or skips (exit status 77) where no browser
    is installed. With --pictures FOLDER the screenshots stay."""
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
        check_page(tool, browser, checks, pictures)
    checks.finish()


def check_skeleton(browser, checks, title):
    """Nothing leaves, texts stay texts, headings and tables are what they should be."""
    checks.equal("nothing leaves",
                 [url for url in browser.requests() if not url.startswith("file:")], [])
    checks.equal("the title is text", browser.run("document.getElementById('title').textContent"),
                 title)
    checks.equal("labels make no elements", browser.run("document.images.length"), 0)
    checks.equal("one h1", browser.run("document.querySelectorAll('h1').length"), 1)
    checks.check("every table has a caption and headers", browser.run(
        "[...document.querySelectorAll('table')].filter(t => t.checkVisibility())"
        ".every(t => t.caption && t.querySelector('th[scope=col]'))"))
    browser.call("Emulation.setEmulatedMedia", media="print")
    checks.equal("what is for screens is not printed", browser.run(
        "[...document.querySelectorAll('.screen')].filter(e => e.checkVisibility()).map(e => e.id)"), [])
    browser.call("Emulation.setEmulatedMedia", media="")


def check_narrow(browser, checks, path):
    """On the narrowest screen a page scrolls down only, and its tables and curves fit."""
    browser.resize(320, 640)
    browser.open(path)
    checks.check("320 px: no sideways scrolling",
                 browser.run("document.scrollingElement.scrollWidth") <= 320)
    checks.equal("320 px: the tables fit", browser.run(
        "[...document.querySelectorAll('.wide')].filter(e => e.scrollWidth > e.clientWidth)"
        ".map(e => e.firstElementChild.id)"), [])
    checks.equal("320 px: the curves fit", browser.run(
        "[...document.querySelectorAll('.plot, .plot svg')]"
        ".filter(e => e.getBoundingClientRect().right > 320).length"), 0)


def check_without_script(checks, path, expected):
    """The policy comes first, and what only a browser without scripts shows has the expected text."""
    page = pathlib.Path(path).read_text()
    head = page.split("<head>", 1)[1].lstrip()
    checks.check("the policy comes first", head.startswith(POLICY), head[:200])
    summary = html.unescape(page.split("<main>", 1)[1].split("</noscript>", 1)[0])
    checks.check("without scripts: counts", expected in summary, summary)
    checks.equal("hostile labels end no script", page.count("</script>"), 3)


def check_scripts_off(browser, checks, path, verdict, counts="of each outcome"):
    """A browser that runs no scripts shows the verdict and the dispenser, and nothing that is dead."""
    browser.call("Emulation.setScriptExecutionDisabled", value=True)
    browser.open(path)
    text = browser.shown_text()
    checks.check("scripts off: the verdict", verdict in text, text)
    checks.check("scripts off: the dispenser", "Cassettes in EUR, at most 40 items" in text and
                 HOSTILE in text, text)
    checks.check("scripts off: the command", "qxmix " in text and "hostile.json" in text, text)
    checks.check("scripts off: counts", counts in text, text)
    # Scripts of the test still run, but none of the page.
    dead = browser.run("[...document.querySelectorAll('button, input, [role=grid], [role=status], h2')]"
                       ".filter(e => e.checkVisibility()).map(e => e.textContent)")
    checks.equal("scripts off: no dead control, and one section", dead, ["Dispenser"])
    checks.equal("scripts off: no complaints", browser.complaints(), [])
    browser.call("Emulation.setScriptExecutionDisabled", value=False)


def height_of_details(browser):
    return browser.run("document.getElementById('details').getBoundingClientRect().height")


def sheets_with(sheets, words):
    """The printed sheets that have any of these words, counted from 0."""
    return [number for number, sheet in enumerate(sheets)
            if any(re.search(rf"(^|\s){re.escape(word)}(\s|$)", sheet) for word in words)]


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


def check_pictures(browser, checks, path, pictures, has_letters=True):
    """Screenshots in both schemes, as people with each kind of colour blindness see them."""
    browser.resize(1280, 900)
    for scheme in ("light", "dark"):
        browser.call("Emulation.setEmulatedMedia", media="",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])
        browser.open(path)
        if has_letters:
            check_contrast(browser, checks)
        seen = {}
        for deficiency in ("none", *DEFICIENCIES):
            browser.call("Emulation.setEmulatedVisionDeficiency", type=deficiency)
            seen[deficiency] = browser.screenshot()
            if pictures:
                name = f"{path.stem}-{scheme}-{deficiency}.png"
                (pictures / name).write_bytes(seen[deficiency])
        checks.equal(f"{scheme}: pictures differ", len(set(seen.values())), len(seen))
        browser.call("Emulation.setEmulatedVisionDeficiency", type="none")


def printed_sheets(tool, browser, checks):
    """The text of each printed sheet, blanks made one; none where no program reads it."""
    pdf = tool.folder / "page.pdf"
    pdf.write_bytes(browser.print_to_pdf())
    checks.check("prints", pdf.read_bytes().startswith(b"%PDF"))
    if shutil.which("pdftotext") is None:
        print("not checked: the text of the print (no pdftotext)")
        return None
    text = subprocess.run(["pdftotext", "-layout", str(pdf), "-"], capture_output=True, text=True,
                          check=True).stdout
    return [re.sub(r"\s+", " ", sheet) for sheet in text.split("\f")]
