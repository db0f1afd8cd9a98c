// What pages with curves have in common: a plot, its axes, the names of times on them, and when to draw. Their
// model says what demand, dayCount, firstTime and lastTime are, their start what draw, details and
// longestDetails.
const LEFT = 46;
const RIGHT = { wide: 124, narrow: 72 };
const NARROW = 560;
const TOP = 12;
const AXIS = 20;
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

const SECONDS_IN_DAY = 86400;
const DAYS_IN_WEEK = 7;
const DAYS = ["Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"];

function twoDigits(number) {
    return String(number).padStart(2, "0");
}

function clockText(time) {
    const minutes = Math.floor(time % SECONDS_IN_DAY / 60);
    return twoDigits(Math.floor(minutes / 60)) + ":" + twoDigits(minutes % 60);
}

/** The day of a time: its date, or its name and, where there are several, its week. */
function dayText(time) {
    const day = Math.floor(time / SECONDS_IN_DAY);
    if (demand.firstDay !== null) {
        const first = Date.parse(demand.firstDay + "T00:00:00Z");
        return new Date(first + day * SECONDS_IN_DAY * 1000).toISOString().slice(0, 10);
    }
    const isLong = dayCount() > DAYS_IN_WEEK;
    return (isLong ? "w" + (Math.floor(day / DAYS_IN_WEEK) + 1) + " " : "") +
        DAYS[day % DAYS_IN_WEEK];
}

function timeText(time) {
    return dayText(time) + " " + clockText(time);
}

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

function shortLabel(label) {
    const most = isNarrow() ? LONGEST_LABEL.narrow : LONGEST_LABEL.wide;
    return label.length > most ? label.slice(0, most - 1) + "…" : label;
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

/** Draws a curve with its label behind its end.
    @param curve  what placeLabels has placed, with path and x, and cassette for its colour and dash.
    @return its group. */
function addCurve(picture, curve, label) {
    const group = shape("g", { class: "curve c" + curve.cassette });
    const dash = DASHES[curve.cassette];
    group.append(shape("path", { d: curve.path, "stroke-dasharray": dash, class: "line" }));
    const end = LEFT + plotWidth();
    group.append(shape("path", {
        d: `M${curve.x.toFixed(1)} ${yOf(curve.share).toFixed(1)}L${end + 8} ${curve.y.toFixed(1)}h20`,
        "stroke-dasharray": dash, class: "line end",
    }));
    group.append(shape("text", { x: end + 32, y: curve.y + 4 }, label));
    picture.append(group);
    return group;
}

/** An empty plot that is gone through as a slider is. */
function makeSlider(name, most) {
    const plot = element("div", undefined, "plot");
    const attributes = { role: "slider", "aria-valuemin": 1, "aria-valuemax": most, "aria-label": name,
        "aria-orientation": "horizontal" };
    Object.entries(attributes).forEach(([key, value]) => plot.setAttribute(key, String(value)));
    plot.tabIndex = 0;
    return plot;
}

function makePicture() {
    const height = TOP + view.height + AXIS;
    return shape("svg", { width: view.width, height, "aria-hidden": "true",
        viewBox: `0 0 ${view.width} ${height}` });
}

function makeCursor() {
    return shape("path", { class: "cursor", d: `M0 ${TOP}v${view.height}`, visibility: "hidden" });
}

/** Keeps what a table is when a narrow window shows it as a list. */
function keepRoles(table) {
    table.classList.add("listed");
    const roles = { table: "table", thead: "rowgroup", tbody: "rowgroup", tr: "row", td: "cell",
        "thead th": "columnheader", "tbody th": "rowheader" };
    table.setAttribute("role", roles.table);
    for (const [selector, role] of Object.entries(roles)) {
        table.querySelectorAll(selector).forEach((part) => part.setAttribute("role", role));
    }
}

/** Draws anew for another width and for paper, whose first sheet says what was asked, before this element. */
function drawForEachSize(first) {
    const about = root.getElementById("about");
    window.addEventListener("resize", () => {
        keepHeight(details, longestDetails());
        draw();
    }, { signal: lifetime });
    window.addEventListener("beforeprint", () => {
        root.getElementById(first).before(about);
        draw(true);
    }, { signal: lifetime });
    window.addEventListener("afterprint", () => {
        root.getElementById("curves").after(about);
        draw();
    }, { signal: lifetime });
}
