// What to load in numbers: of the best mix by cassette, of all mixes, of all numbers of days.
function orDash(value) {
    return value === null ? "-" : String(value);
}

function runsWith(service) {
    return service === null ? "-" : String(service.reaching);
}

function serviceCells(service) {
    return service === null ? ["-", "-", "-"]
        : [percent(service.median), percent(service.worst), String(service.reaching)];
}

function showLoading() {
    const fill = fills[0];
    if (fill === undefined) {
        root.getElementById("proposed").hidden = true;
        return;
    }
    fillTable(root.getElementById("loading"), "Mix " + fill.mix + "; with a bundle less or more: of " +
        plural(answer.input.runs, "run") + " those that serve " + percent(answer.input.service),
        ["cassette", "item#", "now#", "load#", "bundles#", "capacity#", "less#", "more#", "runs low"],
        fill.cassettes.map((one) => {
            const isOther = one.value !== undefined && one.value.now !== one.value.load;
            return [cassetteLabel(one.cassette), itemOf(one),
                one.now + (isOther ? " x " + one.value.now : ""),
                String(one.load), String(one.load / one.bundle), orDash(one.capacity), runsWith(one.less),
                runsWith(one.more), one.low === null ? "never" : one.low];
        }));
    keepRoles(root.getElementById("loading"));
    root.getElementById("remarks").append(...page.remarks.map((remark) => element("p", remark)));
}

function endingOf(mix) {
    return !mix.complete ? "not finished" : mix.dangerous ? "dangerous: not proposed"
        : mix.reached ? "" : "below " + percent(answer.input.service);
}

function showMixes() {
    if (answer.result.mixes.length < 2) {
        return;
    }
    root.getElementById("allMixes").hidden = false;
    fillTable(root.getElementById("ranking"), "The best mix first: what it loads, and the share of the " +
        "withdrawals that it serves", ["mix#", "load#", "median#", "worst#", "runs#", "cost a day#", "note"],
    answer.result.mixes.map((mix) => [String(mix.mix), orDash(mix.money.load), ...serviceCells(mix.service),
        orDash(mix.costPerDay.load), endingOf(mix)]));
    keepRoles(root.getElementById("ranking"));
}

function showDays() {
    if (answer.result.days === undefined) {
        return;
    }
    root.getElementById("allDays").hidden = false;
    fillTable(root.getElementById("days"), "Each number of days with its best mix",
        ["days#", "mix#", "load#", "median#", "worst#", "runs#", "cost a day#", "note"],
        answer.result.days.map((row) => [String(row.days), String(row.mix), orDash(row.load),
            ...serviceCells(row.service), orDash(row.costPerDay),
            endingOf(row) || (row.proposed ? "least" : "")]));
    keepRoles(root.getElementById("days"));
}

function showLegend() {
    root.getElementById("legend").append(element("span", "Money: each point is a loading that was asked in " +
        "all runs, and none of those asked serves as many customers for less; between two points the lower " +
        "one holds. Cassettes: the share left in the middle of the runs, and around it the range of all."));
}
