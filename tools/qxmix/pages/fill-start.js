// The plots of all mixes, and going through them by pointer and keys.
const panels = root.getElementById("panels");
const details = root.getElementById("details");
const hiddenMixes = new Set();
const places = { time: 0, money: new Map() };

function captionOf(fill) {
    const service = fill.service;
    return "load " + withCurrency(fill.money.load) + " instead of " + withCurrency(fill.money.now) + ": " +
        itemsOf(fill, fill.cassettes.map((one) => one.load)) + "; " + percent(service.median) +
        " served in the median run, " + percent(service.worst) + " in the worst";
}

function makePanel(fill) {
    const panel = element("figure", undefined, "panel");
    const caption = element("figcaption");
    caption.append(element("strong", "Mix " + fill.mix), " " + captionOf(fill));
    panel.append(caption, element("h3", "Served at least in " + promisedRuns() + ", by the money loaded in " +
        dispenser.currency), moneyPlot(fill), element("h3", "Share of each cassette that is left"), heldPlot(fill));
    return panel;
}

function allPlots() {
    return [...panels.querySelectorAll(".plot")];
}

function indexOf(plot) {
    return plot.isMoney ? places.money.get(plot.fill) : places.time;
}

function draw(isPrinted) {
    view.width = isPrinted ? PRINTED_WIDTH : panels.clientWidth;
    view.height = isPrinted ? PRINTED_HEIGHT : SCREEN_HEIGHT;
    const focused = allPlots().indexOf(root.activeElement);
    panels.replaceChildren(...drawn.filter((fill) => !hiddenMixes.has(fill.mix)).map(makePanel));
    allPlots().forEach((plot) => moveCursor(plot, false));
    if (focused >= 0 && allPlots()[focused] !== undefined) {
        allPlots()[focused].focus({ preventScroll: true });
    }
}

function moveCursor(plot, isShown) {
    const index = indexOf(plot);
    const line = plot.querySelector(".cursor");
    line.setAttribute("transform", `translate(${plot.xAt(index).toFixed(1)} 0)`);
    line.setAttribute("visibility", isShown ? "visible" : "hidden");
    plot.setAttribute("aria-valuenow", String(index + 1));
    plot.setAttribute("aria-valuetext", plot.valueText(index));
}

function show(plot, index) {
    const kept = Math.max(0, Math.min(index, plot.count - 1));
    if (plot.isMoney) {
        places.money.set(plot.fill, kept);
    } else {
        places.time = kept;
    }
    // A time goes through all mixes, a loading is that of one.
    allPlots().forEach((other) => moveCursor(other, other === plot || (!plot.isMoney && !other.isMoney)));
    plot.describe(kept).forEach((line, at) => {
        root.getElementById(["what", "items", "held"][at]).textContent = line;
    });
}

/** The point of a plot that is nearest to a place in it. */
function nearest(plot, x) {
    let best = 0;
    for (let index = 1; index < plot.count; index += 1) {
        best = Math.abs(plot.xAt(index) - x) < Math.abs(plot.xAt(best) - x) ? index : best;
    }
    return best;
}

function onKey(event) {
    const plot = event.target.closest(".plot");
    if (plot === null || event.altKey || event.metaKey || event.ctrlKey) {
        return;
    }
    const index = indexOf(plot);
    const moves = { ArrowLeft: index - 1, ArrowRight: index + 1, PageUp: index - plot.page,
        PageDown: index + plot.page, Home: 0, End: plot.count - 1 };
    if (moves[event.key] !== undefined) {
        event.preventDefault();
        show(plot, moves[event.key]);
    } else if (event.key === "ArrowUp" || event.key === "ArrowDown") {
        event.preventDefault();
        const plots = allPlots();
        const next = plots[plots.indexOf(plot) + (event.key === "ArrowUp" ? -1 : 1)];
        if (next !== undefined) {
            next.focus();
        }
    }
}

function listen() {
    const onPlot = (name, act) => panels.addEventListener(name, (event) => {
        const plot = event.target.closest(".plot");
        if (plot !== null) {
            act(plot, event);
        }
    });
    onPlot("pointermove", (plot, event) =>
        show(plot, nearest(plot, event.clientX - plot.getBoundingClientRect().left)));
    onPlot("focusin", (plot) => show(plot, indexOf(plot)));
    panels.addEventListener("keydown", onKey);
    drawForEachSize("proposed");
}

function makeFilters() {
    if (drawn.length < 2) {
        root.getElementById("controls").remove();
        return;
    }
    for (const fill of drawn) {
        addFilter(root.getElementById("mixes"), "mix-" + fill.mix, [String(fill.mix)], (isShown) => {
            if (isShown) {
                hiddenMixes.delete(fill.mix);
            } else {
                hiddenMixes.add(fill.mix);
            }
            draw();
        });
    }
}

showLoading();
showMixes();
showDays();
if (drawn.length > 0) {
    drawn.forEach((fill) => places.money.set(fill,
        Math.max(0, fill.curve.findIndex((point) => isProposed(fill, point)))));
    showLegend();
    makeFilters();
    keepHeight(details, longestDetails());
    draw();
    listen();
} else {
    root.getElementById("curves").hidden = true;
}
