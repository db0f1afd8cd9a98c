#!/usr/bin/env python3
"""How long the page takes from a key to its new map and to all its new answers, printed; no test.

  time_page.py PAGE [KEYS]
"""

import pathlib
import sys

from browser import Browser, find_browser

TIMES = """(async () => {
    const idle = () => new Promise((wake) => {
        const look = () => document.body.hasAttribute('aria-busy') || wake();
        const watch = new MutationObserver(look);
        watch.observe(document.body, { attributes: true });
        look();
    });
    await idle();
    const field = byId('field/cassettes/0/count');
    const times = [];
    const show = map.show;
    let shown = 0;
    map.show = (html) => {
        show.call(map, html);
        void document.body.offsetHeight;
        shown = performance.now();
    };
    for (let key = 0; key < %d; key += 1) {
        const start = performance.now();
        field.value = String(200 + key);
        field.dispatchEvent(new Event('input'));
        await idle();
        void document.body.offsetHeight;
        times.push([shown - start, performance.now() - start]);
    }
    return [times, map.answer.result.amounts, map.answer.result.mixes.length];
})()"""
WARM_UP = 5


def main():
    page = pathlib.Path(sys.argv[1]).resolve()
    keys = int(sys.argv[2]) if len(sys.argv) > 2 else 60
    with Browser(find_browser()) as browser:
        browser.resize(1280, 1400)
        browser.open(page)
        times, amounts, mixes = browser.run(TIMES % (keys + WARM_UP))
    count = (amounts["max"] - amounts["min"]) // amounts["step"] + 1
    for what, spans in zip(("the new map", "all new answers"), zip(*times[WARM_UP:])):
        spans = sorted(spans)
        print(f"from a key to {what}, {count} amounts by {mixes} mixes: "
              f"median {spans[len(spans) // 2]:.0f} ms, longest {spans[-1]:.0f} ms of {len(spans)}")


main()
