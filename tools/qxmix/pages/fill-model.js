// What each mix loads and how it serves, taken out of the answer.
const fills = answer.result.mixes.filter((mix) => mix.cassettes !== null);
const drawn = fills.filter((mix) => mix.curve.length > 0 && mix.held !== null);
const held = drawn.length > 0 ? drawn[0].held : { firstDay: null, step: 1, cassettes: [{ median: [0, 0] }] };
const demand = { firstDay: held.firstDay };
const timeCount = held.cassettes[0].median.length;
const firstTime = 0;
const lastTime = (timeCount - 1) * held.step;

/** Days until the refill. */
function dayCount() {
    return Math.ceil(lastTime / SECONDS_IN_DAY);
}

function timeName(index) {
    return index === 0 ? "At first" : index === timeCount - 1 ? "At the end" : timeText(index * held.step);
}

function percent(text) {
    return text + " %";
}

/** "19 of 20 runs". */
function promisedRuns() {
    const runs = answer.input.runs;
    return page.promisedRuns + " of " + plural(runs, "run");
}

function isProposed(fill, point) {
    return point.load.every((items, place) => items === fill.cassettes[place].load);
}

/** The item of a cassette: "100 EUR". With other notes it is not what the dispenser says. */
function itemOf(one) {
    const cassette = dispenser.cassettes[one.cassette];
    return (one.value === undefined ? cassette.worth : one.value.load) + " " + cassette.currency;
}

/** The name of a cassette; where notes were chosen with its note. */
function nameOf(one) {
    const label = dispenser.cassettes[one.cassette].label;
    return !label ? itemOf(one) + " (" + one.cassette + ")"
        : one.value === undefined ? label : label + " (" + itemOf(one) + ")";
}

/** What is in some cassettes: "A 300, B 200". */
function itemsOf(fill, texts) {
    return fill.cassettes.map((one, place) => nameOf(one) + " " + texts[place]).join(", ");
}

/** A point of the curve of money and service, for people: three lines. */
function describePoint(fill, index) {
    const point = fill.curve[index];
    return [withCurrency(point.money) + ", mix " + fill.mix + ": " + percent(point.promised) +
        " or more served in " + promisedRuns(),
    "Load " + itemsOf(fill, point.load),
    percent(point.median) + " in the median run, " + percent(point.worst) + " in the worst" +
        (isProposed(fill, point) ? "; this loading is proposed" : "")];
}

/** What the cassettes hold at one time, for people: three lines. */
function describeTime(fill, index) {
    const ranges = fill.held.cassettes.map(({ median, least, most }) => {
        const isOne = least[index] === most[index];
        return median[index] + (isOne ? "" : " (" + least[index] + " to " + most[index] + ")");
    });
    const some = fill.held.cassettes.some(({ least, most }) => least[index] !== most[index]);
    return [timeName(index) + ", mix " + fill.mix, "Left: " + itemsOf(fill, ranges),
        some ? "Medians, and in brackets the least and the most of " + plural(answer.input.runs, "run") : ""];
}

/** Texts that need most room. */
function longestDetails() {
    return drawn.flatMap((fill) => [describePoint(fill, fill.curve.length - 1)].concat(
        fill.held.cassettes[0].median.map((_, index) => describeTime(fill, index))
            .sort((left, right) => right[1].length - left[1].length).slice(0, 1)));
}
