// The lines of a journal that are answered otherwise now.
const MOST_LINES = 1000;
const result = answer.result;
const hiddenChanges = new Set();
const wordsOfChange = new Map(page.changes.map((change) => [change.name, change.words]));

function countOf(change) {
    return result[change.name];
}

function showSummary() {
    fillTable(root.getElementById("summary"), "Lines by what has changed", ["What", "Lines#"],
        [["the same", String(result.same)],
            ...page.changes.map((change) => [change.words, String(countOf(change))])]);
}

function amountText(line) {
    return askedText(line.amount) + " " + line.currency;
}

function showLines() {
    const shown = result.differences.filter((line) => !hiddenChanges.has(line.change));
    root.getElementById("shown").textContent = shown.length > MOST_LINES
        ? "The first " + MOST_LINES + " of " + plural(shown.length, "line") + "."
        : plural(shown.length, "line") + ".";
    fillTable(root.getElementById("differences"), "Lines that are answered otherwise now",
        ["Line#", "Time", "Amount#", "Mix#", "Change", "Journal", "Now"],
        shown.slice(0, MOST_LINES).map((line) => [String(line.line), line.time || "",
            amountText(line), String(line.mix), wordsOfChange.get(line.change),
            line.recorded.notes, line.now.notes]));
}

function makeFilters() {
    for (const change of page.changes.filter((one) => countOf(one) > 0)) {
        addFilter(root.getElementById("changes"), "change-" + change.name,
            [change.words + " (" + countOf(change) + ")"], (isShown) => {
                if (isShown) {
                    hiddenChanges.delete(change.name);
                } else {
                    hiddenChanges.add(change.name);
                }
                showLines();
            });
    }
}

function showBadLines() {
    root.getElementById("bad").hidden = result.badLines.length === 0;
    fillTable(root.getElementById("badLines"), "Lines that were passed over",
        ["Line#", "What is wrong"],
        result.badLines.map((bad) => [String(bad.error.line), bad.error.message]));
}

showSummary();
showBadLines();
if (result.differences.length > 0) {
    makeFilters();
    showLines();
} else {
    root.getElementById("lines").hidden = true;
}
