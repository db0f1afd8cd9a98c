// The map itself: a row of cells for each mix. Only the cells in sight are in the document.
const LETTER_WIDTH = 9;
const SMALLEST_WIDTH = 3;
const OVERVIEW_WIDTH = 280;
const DANGEROUS = ["overpaid", "overdrawn", "noAnswer"];

const scroller = root.getElementById("scroller");
const map = root.getElementById("map");
const details = root.getElementById("details");
const hiddenMixes = new Set();
const hiddenOutcomes = new Set();

/** From the overview to the largest cells: amounts in one cell, and its width. */
function zoomLevels() {
    const levels = [{ stretch: 1, width: SMALLEST_WIDTH }];
    while (amountCount * SMALLEST_WIDTH / levels[0].stretch > OVERVIEW_WIDTH) {
        levels.unshift({ stretch: levels[0].stretch * 2, width: SMALLEST_WIDTH });
    }
    return levels.concat([6, 9, 11, 13, 15, 18, 22, 26].map((width) => ({ stretch: 1, width })));
}

let levels = zoomLevels();
const view = { level: 0, first: 0, behind: 0, row: 0, column: 0, hasFocus: false };

function level() {
    return levels[view.level];
}

function columnCount() {
    return Math.ceil(amountCount / level().stretch);
}

function leftWidth() {
    return parseFloat(getComputedStyle(scroller).getPropertyValue("--left")) *
        parseFloat(getComputedStyle(document.documentElement).fontSize);
}

function shownRows() {
    return rows.filter((row) => !hiddenMixes.has(row.mix));
}

function stretchOf(column) {
    const first = column * level().stretch;
    return [first, Math.min(first + level().stretch, amountCount)];
}

/** The worst outcome shown in a stretch, or -1. */
function worstOf(row, column) {
    const [first, behind] = stretchOf(column);
    let worst = -1;
    for (let index = first; index < behind; index += 1) {
        const outcome = row.cells[index];
        const isWorse = worst < 0 || outcomes[outcome].badness > outcomes[worst].badness;
        if (isWorse && !hiddenOutcomes.has(outcome)) {
            worst = outcome;
        }
    }
    return worst;
}

/** The three lines about a cell. */
function describeCell(row, column) {
    const [first, behind] = stretchOf(column);
    if (behind - first === 1) {
        return describe(row, first);
    }
    const worst = worstOf(row, column);
    const range = askedText(amountAt(first)) + " to " +
        withCurrency(askedText(amountAt(behind - 1)));
    if (worst < 0) {
        return [range + ", mix " + row.mix + ": not shown", "", ""];
    }
    let count = 0;
    for (let index = first; index < behind; index += 1) {
        count += row.cells[index] === worst ? 1 : 0;
    }
    const found = row.cells.indexOf(worst, first);
    const [what, items, said] = describe(row, found);
    return [range + ", mix " + row.mix + ": " + outcomes[worst].words + " on " + count + " of " +
        plural(behind - first, "amount"), "First: " + what + ". " + items, said];
}

function show(cell) {
    const row = shownRows()[Number(cell.dataset.row)];
    const lines = describeCell(row, Number(cell.dataset.column));
    ["what", "items", "said"].forEach((id, index) => {
        root.getElementById(id).textContent = lines[index];
    });
}

function makeCell(row, rowIndex, column) {
    const worst = worstOf(row, column);
    const outcome = worst < 0 ? null : outcomes[worst];
    const [first, behind] = stretchOf(column);
    const width = level().width;
    const cell = document.createElement("div");
    cell.className = "cell " + (outcome === null ? "off" : "o-" + outcome.name);
    cell.classList.toggle("gap", width >= LETTER_WIDTH && column % 10 !== 0);
    cell.classList.toggle("hatched", width < LETTER_WIDTH && outcome !== null &&
        DANGEROUS.includes(outcome.name));
    cell.style.left = leftWidth() + column * width + "px";
    cell.style.width = width - (width >= 6 ? 1 : 0) + "px";
    cell.textContent = outcome === null || width < LETTER_WIDTH ? "" : outcome.letter;
    cell.setAttribute("role", "gridcell");
    cell.setAttribute("aria-colindex", String(column + 2));
    cell.setAttribute("aria-label", askedText(amountAt(first)) +
        (behind - first > 1 ? " to " + askedText(amountAt(behind - 1)) : "") + " " +
        (outcome === null ? "not shown" : outcome.words));
    cell.tabIndex = rowIndex === view.row && column === view.column ? 0 : -1;
    cell.dataset.row = String(rowIndex);
    cell.dataset.column = String(column);
    cell.dataset.mix = String(row.mix);
    cell.dataset.amount = String(amountAt(first));
    return cell;
}

function makeRow(index) {
    const element = document.createElement("div");
    element.setAttribute("role", "row");
    element.setAttribute("aria-rowindex", String(index));
    return element;
}

/** The amounts along the top, as many as have room. */
function makeAmounts() {
    const element = makeRow(1);
    element.className = "amounts";
    const head = document.createElement("div");
    head.className = "mix";
    head.setAttribute("role", "columnheader");
    head.textContent = "mix";
    element.append(head);
    const longest = askedText(amountAt(Math.max(amountCount - 1, 0))).length;
    const every = Math.ceil((longest * 8 + 10) / level().width / 10) * 10;
    for (let column = view.first - view.first % every; column < view.behind; column += every) {
        const amount = document.createElement("div");
        amount.className = "amount";
        amount.setAttribute("role", "columnheader");
        amount.setAttribute("aria-colindex", String(column + 2));
        amount.textContent = askedText(amountAt(column * level().stretch));
        amount.style.left = leftWidth() + column * level().width + "px";
        element.append(amount);
    }
    return element;
}

/** Leaves one cell in the tab order: that of the focus. */
function takeFocus(cell) {
    map.querySelectorAll('.cell[tabindex="0"]').forEach((other) => {
        other.tabIndex = -1;
    });
    cell.tabIndex = 0;
    view.hasFocus = true;
    view.row = Number(cell.dataset.row);
    view.column = Number(cell.dataset.column);
}

function cellElement(row, column) {
    return map.querySelector(`.cell[data-row="${row}"][data-column="${column}"]`);
}

/** Puts the cells in sight, and some beside them, into the document. */
function draw() {
    const width = level().width;
    const columns = columnCount();
    const inSight = Math.ceil(scroller.clientWidth / width);
    const first = Math.floor(scroller.scrollLeft / width);
    view.first = Math.max(0, first - Math.ceil(inSight / 2));
    view.behind = Math.min(columns, first + Math.ceil(inSight * 1.5));
    const shown = shownRows();
    view.row = Math.max(0, Math.min(view.row, shown.length - 1));
    view.column = Math.max(0, Math.min(view.column, columns - 1));
    map.style.width = leftWidth() + columns * width + 4 + "px";
    map.setAttribute("aria-rowcount", String(shown.length + 1));
    map.setAttribute("aria-colcount", String(columns + 1));
    const elements = [makeAmounts()];
    shown.forEach((row, rowIndex) => {
        const element = makeRow(rowIndex + 2);
        const head = document.createElement("div");
        head.className = "mix";
        head.setAttribute("role", "rowheader");
        head.textContent = String(row.mix);
        element.append(head);
        for (let column = view.first; column < view.behind; column += 1) {
            element.append(makeCell(row, rowIndex, column));
        }
        elements.push(element);
    });
    const hadFocus = view.hasFocus;
    map.replaceChildren(...elements);
    // The cell of the focus may have scrolled out of sight: the first one stands in for it.
    const current = cellElement(view.row, view.column) || map.querySelector(".cell");
    if (current !== null) {
        current.tabIndex = 0;
        if (hadFocus) {
            current.focus({ preventScroll: true });
        }
    }
}

function drawIfNeeded() {
    const width = level().width;
    const first = Math.floor(scroller.scrollLeft / width);
    const behind = Math.min(columnCount(), first + Math.ceil(scroller.clientWidth / width));
    if (first < view.first || behind > view.behind) {
        draw();
    }
}

function moveTo(row, column) {
    view.row = Math.max(0, Math.min(row, shownRows().length - 1));
    view.column = Math.max(0, Math.min(column, columnCount() - 1));
    const width = level().width;
    const left = view.column * width;
    const room = roomForCells();
    if (left < scroller.scrollLeft) {
        scroller.scrollLeft = left;
    } else if (left + width > scroller.scrollLeft + room) {
        scroller.scrollLeft = left + width - room + 6;
    }
    view.hasFocus = true;
    const cell = cellElement(view.row, view.column);
    if (cell === null) {
        draw();
    } else {
        cell.focus({ preventScroll: true });
    }
}

function onKey(event) {
    const moves = {
        ArrowLeft: [view.row, view.column - 1],
        ArrowRight: [view.row, view.column + 1],
        ArrowUp: [view.row - 1, view.column],
        ArrowDown: [view.row + 1, view.column],
        Home: [event.ctrlKey ? 0 : view.row, 0],
        End: [event.ctrlKey ? rows.length - 1 : view.row, columnCount() - 1],
    };
    if (moves[event.key] !== undefined && !event.altKey && !event.metaKey) {
        event.preventDefault();
        moveTo(...moves[event.key]);
    }
}

/** Where a danger that is shown stands first: its place among the amounts, or -1. */
function firstDanger() {
    const isDanger = outcomes.map((outcome, index) =>
        DANGEROUS.includes(outcome.name) && !hiddenOutcomes.has(index));
    const places = shownRows().map((row) => row.cells.findIndex((outcome) => isDanger[outcome]))
        .filter((place) => place >= 0);
    return places.length === 0 ? -1 : Math.min(...places);
}

function roomForCells() {
    return scroller.clientWidth - leftWidth();
}

/** How far the cell of an amount is from the left edge of those in sight. */
function offsetOf(place) {
    return Math.floor(place / level().stretch) * level().width - scroller.scrollLeft;
}

function isInSight(place) {
    return offsetOf(place) >= 0 && offsetOf(place) + level().width <= roomForCells();
}

/** Changes the size of the cells. What keeps its place is the first danger, if it is in sight, or
    else the middle of the map. */
function zoomTo(next) {
    const room = roomForCells();
    const danger = firstDanger();
    const staysDanger = danger >= 0 && isInSight(danger);
    const kept = staysDanger ? danger
        : (scroller.scrollLeft + room / 2) / level().width * level().stretch;
    const offset = staysDanger ? offsetOf(danger) : room / 2;
    const amount = view.column * level().stretch;
    view.level = Math.max(0, Math.min(next, levels.length - 1));
    view.column = Math.floor(amount / level().stretch);
    draw();
    scroller.scrollLeft = kept / level().stretch * level().width -
        Math.min(offset, room - level().width);
    drawIfNeeded();
    root.getElementById("smaller").disabled = view.level === 0;
    root.getElementById("larger").disabled = view.level === levels.length - 1;
    root.getElementById("scale").textContent = level().stretch === 1
        ? "a cell for each amount"
        : "a cell for " + level().stretch + " amounts: the worst of them";
}

/** The largest cells with which the whole map is in sight, or if those have no letters, the
    smallest that have. */
function firstLevel() {
    const room = roomForCells() - 6;
    let best = levels.findIndex((candidate) => candidate.width >= LETTER_WIDTH);
    levels.forEach((candidate, index) => {
        if (Math.ceil(amountCount / candidate.stretch) * candidate.width <= room) {
            best = Math.max(best, index);
        }
    });
    return best;
}

/** Scrolls to the first danger if it is out of sight. */
function showFirstDanger() {
    const danger = firstDanger();
    if (danger >= 0 && !isInSight(danger)) {
        scroller.scrollLeft += offsetOf(danger) - roomForCells() / 2;
        drawIfNeeded();
    }
}
