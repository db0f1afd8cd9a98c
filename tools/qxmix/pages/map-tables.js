// Everything around the map: filters, tables and the sheets for the printer.
const MOST_RUNS = 200;
const MOST_PRINTED = 3000;
const PRINTED_GROUP = 10;

function seenOutcomes() {
    return outcomes
        .map((outcome, index) => ({ outcome, index }))
        .filter(({ index }) => rows.some((row) => row.count(index) > 0))
        .sort((left, right) => left.outcome.badness - right.outcome.badness);
}

function shownCount(index) {
    return shownRows().reduce((sum, row) => sum + row.count(index), 0);
}

function onFilter(hidden, item, isShown) {
    if (isShown) {
        hidden.delete(item);
    } else {
        hidden.add(item);
    }
    view.hasFocus = false;
    draw();
    showCounts();
    showRuns();
}

function makeMixFilters() {
    for (const row of rows) {
        addFilter(root.getElementById("mixes"), "mix-" + row.mix, [String(row.mix)],
            (isShown) => onFilter(hiddenMixes, row.mix, isShown));
    }
}

/** The outcomes of the currency that is shown, none of them hidden. */
function makeOutcomeFilters() {
    hiddenOutcomes.clear();
    root.getElementById("outcomes").querySelectorAll("label").forEach((label) => label.remove());
    for (const { outcome, index } of seenOutcomes()) {
        const count = element("output");
        count.id = "count-" + outcome.name;
        addFilter(root.getElementById("outcomes"), "outcome-" + outcome.name,
            [key(outcome), outcome.words, count],
            (isShown) => onFilter(hiddenOutcomes, index, isShown));
    }
    showCounts();
}

function showCounts() {
    for (const { outcome, index } of seenOutcomes()) {
        root.getElementById("count-" + outcome.name).textContent = String(shownCount(index));
    }
}

function showSummary() {
    const seen = seenOutcomes();
    const table = root.getElementById("summary");
    fillTable(table, "Amounts of each outcome",
        ["mix"].concat(seen.map(({ outcome }) => outcome.words + "#")),
        rows.map((row) => [String(row.mix)].concat(
            seen.map(({ index }) => String(row.count(index) || "-")))));
    seen.forEach(({ outcome }, column) => {
        table.tHead.rows[0].cells[column + 1]
            .replaceChildren(key(outcome), element("span", " " + outcome.words, "words"));
    });
}

function showRuns() {
    const lines = [];
    let count = 0;
    for (const row of shownRows()) {
        let index = 0;
        for (const [letter, length] of row.runs) {
            const outcome = outcomes[outcomeOfLetter.get(letter)];
            if (!hiddenOutcomes.has(outcomeOfLetter.get(letter))) {
                count += 1;
                if (lines.length < MOST_RUNS) {
                    const what = element("span");
                    what.append(key(outcome), " " + outcome.words);
                    lines.push([String(row.mix), askedText(amountAt(index)),
                        askedText(amountAt(index + length - 1)), String(length), what]);
                }
            }
            index += length;
        }
    }
    root.getElementById("runsNote").textContent = count > lines.length
        ? "The first " + lines.length + " of " + count + " runs; the CSV and JSON forms have all."
        : "";
    fillTable(root.getElementById("runs"), "Neighbouring amounts with the same outcome",
        ["mix", "from#", "to#", "amounts#", "outcome"], lines);
}

/** The letters of a group of ten, those of one outcome painted together. */
function printedGroup(worst, first) {
    const cell = element("td");
    let at = first;
    const behind = Math.min(first + PRINTED_GROUP, worst.length);
    while (at < behind) {
        let next = at + 1;
        while (next < behind && worst[next] === worst[at]) {
            next += 1;
        }
        const outcome = outcomes[worst[at]];
        cell.append(element("span", outcome.letter.repeat(next - at), "o-" + outcome.name));
        at = next;
    }
    return cell;
}

function worstOfStretches(row, stretch) {
    const worst = [];
    row.cells.forEach((outcome, index) => {
        const column = Math.floor(index / stretch);
        if (worst.length === column) {
            worst.push(outcome);
        } else if (outcomes[outcome].badness > outcomes[worst[column]].badness) {
            worst[column] = outcome;
        }
    });
    return worst;
}

/** A map as sheets: a line for ten letters, a column for each mix that is shown. */
function sheets() {
    const stretch = Math.max(1, Math.ceil(amountCount / MOST_PRINTED));
    const shown = shownRows();
    const letters = shown.map((row) => worstOfStretches(row, stretch));
    const table = element("table");
    fillTable(table, "Ten letters from the amount on" +
        (stretch > 1 ? ", each the worst of " + stretch + " amounts" : ""),
        [currency + "#"].concat(shown.map((row) => "mix " + row.mix)), []);
    const size = letters.length === 0 ? 0 : letters[0].length;
    for (let first = 0; first < size; first += PRINTED_GROUP) {
        const line = element("tr");
        const head = element("th", askedText(amountAt(first * stretch)), "number");
        head.scope = "row";
        line.append(head, ...letters.map((worst) => printedGroup(worst, first)));
        table.tBodies[0].append(line);
    }
    const legend = element("p");
    for (const { outcome } of seenOutcomes()) {
        legend.append(key(outcome), " " + outcome.words + "   ");
    }
    return [element("h2", maps.length === 1 ? "Map" : "Map, " + currency), legend, table];
}

/** The maps of all currencies for the printer. */
function makePaper() {
    const kept = shownMap;
    const parts = maps.flatMap((_, index) => {
        takeCurrency(index);
        return sheets();
    });
    takeCurrency(kept);
    root.getElementById("paper").replaceChildren(...parts);
}

/** The choice among several currencies. */
function makeCurrencies() {
    if (maps.length === 1) {
        return;
    }
    const fieldset = element("fieldset");
    fieldset.id = "currencies";
    fieldset.append(element("legend", "Currency"));
    maps.forEach((one, index) => {
        const label = element("label");
        const button = element("input");
        button.type = "radio";
        button.name = "currency";
        button.id = "currency-" + one.currency;
        button.checked = index === shownMap;
        button.addEventListener("change", () => showCurrency(index));
        label.append(button, one.currency);
        fieldset.append(label);
    });
    root.getElementById("controls").prepend(fieldset);
}
