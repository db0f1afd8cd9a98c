// The dispensers of a fleet, each with what is known of it.
const MOST_ROWS = 2000;
const headings = page.columns;
const isNumber = headings.map((heading) => heading.endsWith("#"));
const table = root.getElementById("dispensers");
const rows = page.rows.map((row, place) => ({
    place, kind: row[0], cells: row[1].map((text) => page.texts[text]), details: row[2],
    isOpen: false }));
const hiddenKinds = new Set();
let sorting = { column: -1, isDescending: false };

function detailsOf(row) {
    return row.details.map((line) => line.map((text) => page.texts[text]));
}

/** Numbers by their size, what is none before them; texts by their letters. */
function comparedCells(one, other, column) {
    const texts = [one.cells[column], other.cells[column]];
    if (!isNumber[column]) {
        return texts[0] < texts[1] ? -1 : Number(texts[0] > texts[1]);
    }
    const [left, right] = texts.map((text) => {
        const number = parseFloat(text === "-" ? "0" : text);
        return Number.isNaN(number) ? -1 : number;
    });
    return left - right;
}

function shownRows() {
    const wanted = root.getElementById("search").value.trim().toLowerCase();
    const shown = rows.filter((row) => !hiddenKinds.has(row.kind) && (wanted === "" ||
        [row.cells, ...detailsOf(row)].some((line) =>
            line.some((text) => text.toLowerCase().includes(wanted)))));
    if (sorting.column >= 0) {
        shown.sort((one, other) => (comparedCells(one, other, sorting.column) ||
            one.place - other.place) * (sorting.isDescending ? -1 : 1));
    }
    return shown;
}

function headRow() {
    const top = element("tr");
    headings.forEach((heading, column) => {
        const cell = element("th", undefined, isNumber[column] ? "number" : "");
        const button = element("button", heading.replace(/#$/, ""));
        cell.scope = "col";
        button.type = "button";
        if (sorting.column === column) {
            cell.setAttribute("aria-sort", sorting.isDescending ? "descending" : "ascending");
        }
        button.addEventListener("click", () => {
            sorting = { column, isDescending: sorting.column === column && !sorting.isDescending };
            showRows();
            table.querySelectorAll("thead button")[column].focus();
        });
        cell.append(button);
        top.append(cell);
    });
    return top;
}

/** What is known of a dispenser, below its row. */
function openedRow(row) {
    const opened = element("tr", undefined, "opened");
    const cell = element("td");
    const inner = element("table");
    cell.colSpan = headings.length;
    if (row.details.length === 0) {
        cell.append(element("p", page.nothing));
    } else {
        fillTable(inner, row.cells[0] + ": " + page.caption, page.detailColumns, detailsOf(row));
        cell.append(inner);
    }
    opened.append(cell);
    return opened;
}

function toggle(row, line, opener) {
    row.isOpen = !row.isOpen;
    opener.setAttribute("aria-expanded", String(row.isOpen));
    if (row.isOpen) {
        line.after(openedRow(row));
    } else {
        line.nextSibling.remove();
    }
}

function lineOf(row) {
    const line = element("tr");
    row.cells.forEach((text, column) => {
        const cell = element(column === 0 ? "th" : "td", undefined, isNumber[column] ? "number" : "");
        cell.dataset.heading = headings[column].replace(/#$/, "");
        if (column === 0) {
            const opener = element("button", text, "opener");
            cell.scope = "row";
            opener.type = "button";
            opener.setAttribute("aria-expanded", String(row.isOpen));
            opener.addEventListener("click", () => toggle(row, line, opener));
            cell.append(key(page.kinds[row.kind]), opener);
        } else {
            cell.append(text);
        }
        line.append(cell);
    });
    return line;
}

function showRows() {
    const all = shownRows();
    const shown = all.slice(0, MOST_ROWS);
    const head = element("thead");
    const body = element("tbody");
    head.append(headRow());
    for (const row of shown) {
        body.append(lineOf(row));
        if (row.isOpen) {
            body.append(openedRow(row));
        }
    }
    table.replaceChildren(element("caption", "All dispensers, the worst first unless sorted"),
        head, body);
    root.getElementById("shown").textContent = all.length > shown.length
        ? "The first " + shown.length + " of " + plural(all.length, "dispenser") + "."
        : plural(all.length, "dispenser") + ".";
}

/** From one dispenser to the next and back. */
function moveByArrows(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    const openers = [...table.querySelectorAll("button.opener")];
    const at = openers.indexOf(document.activeElement);
    if (step !== undefined && at >= 0) {
        event.preventDefault();
        openers[Math.min(Math.max(at + step, 0), openers.length - 1)].focus();
    }
}

page.kinds.forEach((kind, index) => {
    const count = rows.filter((row) => row.kind === index).length;
    if (count > 0) {
        addFilter(root.getElementById("kinds"), "kind-" + index,
            [key(kind), kind.words + " (" + count + ")"], (isShown) => {
                if (isShown) {
                    hiddenKinds.delete(index);
                } else {
                    hiddenKinds.add(index);
                }
                showRows();
            });
    }
});
root.getElementById("search").addEventListener("input", showRows);
root.getElementById("controls").addEventListener("submit", (event) => event.preventDefault());
table.addEventListener("keydown", moveByArrows);
showRows();
