// What a panel shows: the share that each cassette has left over time, and letters below.
const LETTER_WIDTH = 11;
const MOST_POINTS = 2000;
/** What the time axis shows: whole days, or hours where there is less than a day. */
function timeRange() {
    const first = demand.times[0];
    const last = demand.times[withdrawalCount - 1];
    const unit = last - first < SECONDS_IN_DAY ? 3600 : SECONDS_IN_DAY;
    return [Math.floor(first / unit) * unit, (Math.floor(last / unit) + 1) * unit];
}

const [firstTime, lastTime] = withdrawalCount > 0 ? timeRange() : [0, 1];

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

function drawCurves(picture, row) {
    const curves = dispenser.cassettes
        .map((cassette, index) => (cassette.count > 0 ? curveOf(row, index) : null))
        .filter((curve) => curve !== null);
    placeLabels(curves);
    for (const curve of curves) {
        addCurve(picture, curve, shortLabel(cassetteName(curve.cassette)));
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
