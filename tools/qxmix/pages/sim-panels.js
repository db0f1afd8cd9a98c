// A panel for each mix, and the one time cursor that goes through all of them.
const panels = root.getElementById("panels");
const details = root.getElementById("details");
const hiddenMixes = new Set();
const cursor = { row: 0, index: 0, isSet: false };

function shown() {
    return rows.filter((row) => !hiddenMixes.has(row.mix));
}

/** Whether a withdrawal counts as refused then: nothing is paid, and it is no danger. */
function isRefusal(outcome) {
    return !["paid", "paidInPart"].includes(outcome.name) && !DANGERS.includes(outcome.name);
}

/** "119 refused (50 not dispensable, 69 nothing paid)"; the only kind that most have is not told. */
function refusedText(counts) {
    const parts = outcomes.filter((outcome) => isRefusal(outcome) && counts[outcome.name] > 0);
    const all = parts.reduce((sum, outcome) => sum + counts[outcome.name], 0);
    const isPlain = parts.length === 1 && parts[0].name === "notDispensable";
    return all + " refused" + (isPlain ? "" : " (" +
        parts.map((outcome) => counts[outcome.name] + " " + outcome.words).join(", ") + ")");
}

function captionOf(row) {
    const counts = row.known.counts;
    const seen = outcomes.filter((outcome) => outcome.name !== "paid" && counts[outcome.name] > 0);
    const others = seen.filter((outcome) => !isRefusal(outcome))
        .map((outcome) => counts[outcome.name] + " " + outcome.words)
        .concat(seen.some(isRefusal) ? [refusedText(counts)] : []);
    return (row.rank === null ? "not ranked: " : "rank " + row.rank + ": ") +
        [(counts.paid || 0) + " of " + withdrawalCount + " served"].concat(others).join(", ");
}

function makePlot(row) {
    const plot = makeSlider("Withdrawal, mix " + row.mix, withdrawalCount);
    plot.dataset.mix = String(row.mix);
    const picture = makePicture();
    drawAxes(picture);
    drawRefusals(picture, row);
    drawCurves(picture, row);
    picture.append(makeCursor());
    const letters = makeLetters(row);
    letters.setAttribute("aria-hidden", "true");
    plot.append(picture, letters);
    return plot;
}

function makePanel(row) {
    const panel = element("figure", undefined, "panel");
    const caption = element("figcaption");
    caption.append(element("strong", "Mix " + row.mix), " " + captionOf(row));
    panel.classList.toggle("dangerous", row.rank === null);
    panel.append(caption, makePlot(row));
    return panel;
}

function draw(isPrinted) {
    view.width = isPrinted ? PRINTED_WIDTH : panels.clientWidth;
    view.height = isPrinted ? PRINTED_HEIGHT : SCREEN_HEIGHT;
    const active = root.activeElement;
    const focused = active === null ? null : active.closest(".plot");
    panels.replaceChildren(...shown().map(makePanel));
    moveLines();
    if (focused !== null) {
        const again = plotOf(rows.findIndex((row) => String(row.mix) === focused.dataset.mix));
        (again || document.body).focus({ preventScroll: true });
    }
}

function plotOf(place) {
    return place < 0 ? null : panels.querySelector(`.plot[data-mix="${rows[place].mix}"]`);
}

/** Puts the one time cursor into all panels. */
function moveLines() {
    const x = xOf(demand.times[cursor.index]);
    panels.querySelectorAll(".cursor").forEach((line) => {
        line.setAttribute("transform", `translate(${x.toFixed(1)} 0)`);
        line.setAttribute("visibility", cursor.isSet ? "visible" : "hidden");
    });
    panels.querySelectorAll(".plot").forEach((plot) => {
        plot.setAttribute("aria-valuenow", String(cursor.index + 1));
        plot.setAttribute("aria-valuetext", timeText(demand.times[cursor.index]) + ", " +
            amountText(cursor.index));
    });
}

function show(place, index) {
    cursor.row = place;
    cursor.index = Math.max(0, Math.min(index, withdrawalCount - 1));
    cursor.isSet = true;
    moveLines();
    describe(rows[place], cursor.index).forEach((line, at) => {
        root.getElementById(["what", "items", "held"][at]).textContent = line;
    });
}

/** The withdrawal nearest to a time. */
function nearest(time) {
    let low = 0;
    let high = withdrawalCount - 1;
    while (low < high) {
        const middle = Math.floor((low + high) / 2);
        if (demand.times[middle] < time) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    const isBeforeNearer = low > 0 && time - demand.times[low - 1] < demand.times[low] - time;
    return isBeforeNearer ? low - 1 : low;
}

function placeOf(plot) {
    return rows.findIndex((row) => String(row.mix) === plot.dataset.mix);
}

/** The next or the last withdrawal with nothing taken, or where it is now. */
function refusalFrom(place, index, step) {
    const row = rows[place];
    let at = index + step;
    while (at >= 0 && at < row.size && row.isTaken(at)) {
        at += step;
    }
    return at >= 0 && at < row.size ? at : index;
}

function dayAway(step) {
    const index = nearest(demand.times[cursor.index] + step * SECONDS_IN_DAY);
    return index === cursor.index ? index + step : index;
}

function onKey(event) {
    const plot = event.target.closest(".plot");
    if (plot === null || event.altKey || event.metaKey || event.ctrlKey) {
        return;
    }
    const moves = {
        ArrowLeft: () => cursor.index - 1,
        ArrowRight: () => cursor.index + 1,
        PageUp: () => dayAway(-1),
        PageDown: () => dayAway(1),
        Home: () => 0,
        End: () => withdrawalCount - 1,
    };
    if (moves[event.key] !== undefined) {
        event.preventDefault();
        show(placeOf(plot), moves[event.key]());
    } else if (event.key === "ArrowUp" || event.key === "ArrowDown") {
        event.preventDefault();
        const plots = [...panels.querySelectorAll(".plot")];
        const next = plots[plots.indexOf(plot) + (event.key === "ArrowUp" ? -1 : 1)];
        if (next !== undefined) {
            next.focus();
        }
    }
}
