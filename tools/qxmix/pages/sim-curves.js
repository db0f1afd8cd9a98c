// What a panel shows: the share that each cassette has left over time, and letters below.
const LEFT = 46;
const RIGHT = { wide: 124, narrow: 72 };
const NARROW = 560;
const TOP = 12;
const AXIS = 20;
const LETTER_WIDTH = 11;
const MOST_POINTS = 2000;
const LABEL_HEIGHT = 13;
const MOST_TICKS = 14;
const SCREEN_HEIGHT = 150;
const PRINTED_HEIGHT = 122;
const PRINTED_WIDTH = 1000;
const LONGEST_LABEL = { wide: 12, narrow: 5 };
const DASHES = ["", "9 3", "2 3", "10 3 2 3", "5 5", "1 2 6 2"];
const SVG = "http://www.w3.org/2000/svg";

const view = { width: 0, height: SCREEN_HEIGHT };

function shape(name, attributes, text) {
    const made = document.createElementNS(SVG, name);
    Object.entries(attributes).forEach(([key, value]) => made.setAttribute(key, String(value)));
    if (text !== undefined) {
        made.textContent = text;
    }
    return made;
}

/** What the time axis shows: whole days, or hours where there is less than a day. */
function timeRange() {
    const first = demand.times[0];
    const last = demand.times[withdrawalCount - 1];
    const unit = last - first < SECONDS_IN_DAY ? 3600 : SECONDS_IN_DAY;
    return [Math.floor(first / unit) * unit, (Math.floor(last / unit) + 1) * unit];
}

const [firstTime, lastTime] = withdrawalCount > 0 ? timeRange() : [0, 1];

function isNarrow() {
    return view.width < NARROW;
}

function plotWidth() {
    return view.width - LEFT - (isNarrow() ? RIGHT.narrow : RIGHT.wide);
}

function xOf(time) {
    return LEFT + (time - firstTime) / (lastTime - firstTime) * plotWidth();
}

function yOf(share) {
    return TOP + (1 - share) * view.height;
}

/** Withdrawals after which a cassette holds less, as many as a curve may have: all that change its
    status, and of the others as many as there is room for. */
function changesOf(row, cassette) {
    const all = [];
    const kept = [];
    let count = dispenser.cassettes[cassette].count;
    let status = dispenser.cassettes[cassette].status;
    for (let index = 0; index < row.size; index += 1) {
        if (row.heldBehind(index, cassette) !== count) {
            count = row.heldBehind(index, cassette);
            (row.statuses[index][cassette] === status ? all : kept).push(index);
            status = row.statuses[index][cassette];
        }
    }
    const room = Math.max(MOST_POINTS - kept.length, 0);
    const every = Math.max(1, Math.ceil(all.length / Math.max(room, 1)));
    // The last one shows where the curve ends.
    const some = all.filter((_, place) => place % every === 0 || place === all.length - 1);
    return kept.concat(some).sort((left, right) => left - right);
}

function curveOf(row, cassette) {
    const whole = dispenser.cassettes[cassette].count;
    let path = "M" + xOf(firstTime).toFixed(1) + " " + yOf(1).toFixed(1);
    let share = 1;
    for (const index of row.changes[cassette]) {
        share = row.heldBehind(index, cassette) / whole;
        path += "H" + xOf(demand.times[index]).toFixed(1) + "V" + yOf(share).toFixed(1);
    }
    const behind = row.size < withdrawalCount ? demand.times[Math.max(row.size - 1, 0)] : lastTime;
    return { cassette, path: path + "H" + xOf(behind).toFixed(1), share, x: xOf(behind) };
}

/** Labels at the ends of the curves, moved apart so that none covers another. */
function placeLabels(curves) {
    const sorted = curves.slice().sort((left, right) => right.share - left.share);
    const lowest = TOP + view.height + 4;
    let above = TOP - LABEL_HEIGHT;
    for (const curve of sorted) {
        curve.y = Math.max(yOf(curve.share), above + LABEL_HEIGHT);
        above = curve.y;
    }
    let below = lowest + LABEL_HEIGHT;
    for (const curve of sorted.reverse()) {
        curve.y = Math.min(curve.y, below - LABEL_HEIGHT);
        below = curve.y;
    }
}

function labelText(cassette) {
    const label = cassetteName(cassette);
    const most = isNarrow() ? LONGEST_LABEL.narrow : LONGEST_LABEL.wide;
    return label.length > most ? label.slice(0, most - 1) + "…" : label;
}

function drawCurves(picture, row) {
    const curves = dispenser.cassettes
        .map((cassette, index) => (cassette.count > 0 ? curveOf(row, index) : null))
        .filter((curve) => curve !== null);
    placeLabels(curves);
    for (const curve of curves) {
        const group = shape("g", { class: "curve c" + curve.cassette });
        const dash = DASHES[curve.cassette];
        group.append(shape("path", { d: curve.path, "stroke-dasharray": dash, class: "line" }));
        const end = LEFT + plotWidth();
        group.append(shape("path", {
            d: `M${curve.x.toFixed(1)} ${yOf(curve.share).toFixed(1)}L${end + 8} ${curve.y.toFixed(1)}h20`,
            "stroke-dasharray": dash, class: "line end",
        }));
        group.append(shape("text", { x: end + 32, y: curve.y + 4 }, labelText(curve.cassette)));
        picture.append(group);
    }
}

function tickStep() {
    const steps = [3600, 7200, 10800, 21600, 43200];
    const span = lastTime - firstTime;
    const fits = (step) => span / step <= Math.min(MOST_TICKS, plotWidth() / 48);
    if (span <= SECONDS_IN_DAY) {
        return steps.find(fits) || SECONDS_IN_DAY;
    }
    let days = 1;
    while (!fits(days * SECONDS_IN_DAY)) {
        days += 1;
    }
    return days * SECONDS_IN_DAY;
}

function tickText(time, step) {
    if (step < SECONDS_IN_DAY) {
        return clockText(time);
    }
    return demand.firstDay === null ? dayText(time) : dayText(time).slice(5);
}

function drawAxes(picture) {
    for (const share of [0, 0.5, 1]) {
        const y = yOf(share);
        picture.append(shape("path", { d: `M${LEFT} ${y}H${LEFT + plotWidth()}`, class: "grid" }));
        picture.append(shape("text", { x: LEFT - 6, y: y + 4, class: "tick left" },
            share * 100 + "%"));
    }
    const step = tickStep();
    for (let time = firstTime; time < lastTime; time += step) {
        const x = xOf(time);
        picture.append(shape("path", { d: `M${x} ${TOP}V${TOP + view.height + 5}`, class: "grid" }));
        picture.append(shape("text", { x: x + 3, y: TOP + view.height + 16, class: "tick" },
            tickText(time, step)));
    }
}

/** Ticks on the ground of the plot, one for each withdrawal with nothing taken. */
function drawRefusals(picture, row) {
    const paths = { refusal: "", danger: "" };
    const last = { refusal: -1, danger: -1 };
    for (let index = 0; index < row.size; index += 1) {
        if (!row.isTaken(index)) {
            const kind = page.dangers.includes(row.outcome(index).name) ? "danger" : "refusal";
            const x = Math.round(xOf(demand.times[index]));
            if (x !== last[kind]) {
                paths[kind] += `M${x} ${TOP + view.height}v${kind === "danger" ? -12 : -6}`;
                last[kind] = x;
            }
        }
    }
    for (const [kind, d] of Object.entries(paths)) {
        if (d !== "") {
            picture.append(shape("path", { d, class: kind }));
        }
    }
}

/** The letters below: each the worst outcome of its stretch of time. */
function makeLetters(row) {
    const strip = element("div", undefined, "letters");
    strip.style.width = view.width + "px";
    const columns = Math.max(1, Math.floor(plotWidth() / LETTER_WIDTH));
    const worst = new Map();
    for (let index = 0; index < row.size; index += 1) {
        const share = (demand.times[index] - firstTime) / (lastTime - firstTime);
        const column = Math.min(columns - 1, Math.floor(share * columns));
        const before = worst.get(column);
        if (before === undefined || row.outcome(index).badness > before.badness) {
            worst.set(column, row.outcome(index));
        }
    }
    for (const [column, outcome] of worst) {
        const cell = element("span", outcome.letter, "o-" + outcome.name);
        cell.style.left = LEFT + column * plotWidth() / columns + "px";
        cell.style.width = plotWidth() / columns - 1 + "px";
        strip.append(cell);
    }
    return strip;
}
