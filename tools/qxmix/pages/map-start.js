function beginMap() {
    showSummary();
    makeOutcomeFilters();
    showRuns();
    keepHeight(details, longestDetails());
    zoomTo(firstLevel());
    showFirstDanger();
}

/** Shows the map in another currency, from its beginning. */
function showCurrency(index) {
    takeCurrency(index);
    levels = zoomLevels();
    Object.assign(view, { level: 0, first: 0, behind: 0, row: 0, column: 0, hasFocus: false });
    scroller.scrollLeft = 0;
    ["what", "items", "said"].forEach((id) => {
        root.getElementById(id).textContent = "";
    });
    beginMap();
}

makeMixFilters();
makeCurrencies();
beginMap();

let pointer = "";
map.addEventListener("pointermove", (event) => {
    const cell = event.target.closest(".cell");
    // Cells that move under a resting pointer were not pointed at.
    const place = event.clientX + " " + event.clientY;
    if (cell !== null && place !== pointer) {
        show(cell);
    }
    pointer = place;
});
map.addEventListener("focusin", (event) => {
    const cell = event.target.closest(".cell");
    if (cell !== null) {
        takeFocus(cell);
        show(cell);
    }
});
map.addEventListener("focusout", () => {
    view.hasFocus = false;
});
map.addEventListener("keydown", onKey);
scroller.addEventListener("scroll", drawIfNeeded, { passive: true });
window.addEventListener("resize", () => {
    keepHeight(details, longestDetails());
    draw();
}, { signal: lifetime });
window.addEventListener("beforeprint", makePaper, { signal: lifetime });
root.getElementById("smaller").addEventListener("click", () => zoomTo(view.level - 1));
root.getElementById("larger").addEventListener("click", () => zoomTo(view.level + 1));
