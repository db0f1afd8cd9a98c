// Everything around the curves: ranking, ranges, filters.
const DANGERS = page.dangers;

function percentText(part) {
    if (withdrawalCount === 0) {
        return "-";
    }
    const thousandths = Math.round(part * 1000 / withdrawalCount);
    const held = part < withdrawalCount ? Math.min(thousandths, 999) : thousandths;
    return (held / 10).toFixed(1) + "%";
}

function countOf(mix, names) {
    return names.reduce((sum, name) => sum + (mix.counts[name] || 0), 0);
}

function dash(count) {
    return count === 0 ? "-" : String(count);
}

function tenthsText(tenths) {
    return Math.floor(tenths / 10) + "." + tenths % 10;
}

/** Items for each withdrawal with something taken. */
function itemsEach(mix) {
    const taken = countOf(mix, ["paid", "paidInPart"]);
    const items = mix.items.notes + mix.items.coins;
    return taken === 0 ? "0.0" : tenthsText(Math.floor((items * 20 + taken) / (taken * 2)));
}

/** The label of a cassette, with the time before it. */
function emptiedText(emptied) {
    return emptied.time + " " + cassetteName(emptied.cassette);
}

function rankingLine(mix) {
    const refusal = mix.firstRefusal;
    const dangerous = countOf(mix, DANGERS);
    const served = countOf(mix, ["paid"]);
    const inPart = countOf(mix, ["paidInPart"]);
    return [mix.rank === null ? "-" : String(mix.rank), String(mix.mix), String(served),
        percentText(served), dash(inPart), dash(mix.asked - served - inPart - dangerous),
        dash(dangerous), itemsEach(mix),
        refusal === null ? "none" : refusal.time + " " + amountText(refusal.withdrawal),
        refusal === null ? "-" : withCurrency(refusal.left),
        mix.emptied.length === 0 ? "none" : mix.emptied.map(emptiedText).join(", "),
        (mix.spread / 10).toFixed(1) + "%"];
}

function showRanking() {
    const seed = answer.input.runs > 1 ? ", seed " + demand.seed : "";
    fillTable(root.getElementById("ranking"), plural(withdrawalCount, "withdrawal") + seed +
        "; spread: the largest share left in a cassette at the end, less the smallest",
        ["rank#", "mix#", "served#", "share#", "in part#", "refused#", "danger#", "items each#",
            "first refusal", "left then#", "ran empty", "spread#"],
        answer.result.mixes.map(rankingLine));
    keepRoles(root.getElementById("ranking"));
    root.getElementById("remarks")
        .append(...page.remarks.map((remark) => element("p", remark)));
}

function rangeText(range, text) {
    const [median, least, most] = [range.median, range.least, range.most].map(text);
    return least === most ? median : median + " (" + least + " to " + most + ")";
}

function showRanges() {
    if (answer.input.runs === 1) {
        return;
    }
    root.getElementById("allRuns").hidden = false;
    const orNone = (text) => (text === null ? "none" : text);
    fillTable(root.getElementById("ranges"), "Medians, and in brackets the range of " +
        plural(demand.runs, "run") + "; ranks go by the median of what is served, " +
        "the other numbers above and the curves are those of the first run",
        ["mix#", "served", "in part", "refused", "runs with danger#", "items each",
            "first refusal", "left then", "first empty", "spread"],
        answer.result.mixes.map((mix) => [String(mix.mix),
            rangeText(mix.ranges.served, String), rangeText(mix.ranges.inPart, String),
            rangeText(mix.ranges.refused, String), dash(mix.dangerousRuns),
            rangeText(mix.ranges.tenthsOfItems, tenthsText),
            rangeText(mix.ranges.firstRefusal, orNone), rangeText(mix.ranges.left, orNone),
            rangeText(mix.ranges.firstEmpty, orNone),
            rangeText(mix.ranges.spread, (spread) => (spread / 10).toFixed(1) + "%")]));
    keepRoles(root.getElementById("ranges"));
}

function makeFilters() {
    for (const row of rows) {
        addFilter(root.getElementById("mixes"), "mix-" + row.mix, [String(row.mix)],
            (isShown) => {
                if (isShown) {
                    hiddenMixes.delete(row.mix);
                } else {
                    hiddenMixes.add(row.mix);
                }
                draw();
            });
    }
}

function showLegend() {
    const legend = root.getElementById("legend");
    const seen = outcomes
        .filter((outcome) => answer.result.mixes.some((mix) => mix.counts[outcome.name] > 0))
        .sort((left, right) => left.badness - right.badness);
    for (const outcome of seen) {
        const part = element("span");
        part.append(key(outcome), " " + outcome.words);
        legend.append(part, " ");
    }
    legend.append(element("span", "A letter is the worst of its stretch of time; ticks on the " +
        "ground are withdrawals with nothing taken."));
}
