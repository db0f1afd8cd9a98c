showRanking();
showRanges();
showLegend();
if (withdrawalCount > 0) {
    for (const row of rows) {
        row.changes = dispenser.cassettes.map((_, cassette) => changesOf(row, cassette));
    }
    makeFilters();
    keepHeight(details, longestDetails());
    draw();
    panels.addEventListener("pointermove", (event) => {
        const plot = event.target.closest(".plot");
        if (plot !== null) {
            const x = event.clientX - plot.getBoundingClientRect().left;
            const time = firstTime + (x - LEFT) / plotWidth() * (lastTime - firstTime);
            show(placeOf(plot), nearest(time));
        }
    });
    panels.addEventListener("focusin", (event) => {
        const plot = event.target.closest(".plot");
        if (plot !== null) {
            show(placeOf(plot), cursor.index);
        }
    });
    panels.addEventListener("keydown", onKey);
    root.getElementById("before").addEventListener("click",
        () => show(cursor.row, refusalFrom(cursor.row, cursor.index, -1)));
    root.getElementById("next").addEventListener("click",
        () => show(cursor.row, refusalFrom(cursor.row, cursor.index, 1)));
    drawForEachSize("curves");
} else {
    root.getElementById("curves").hidden = true;
}
