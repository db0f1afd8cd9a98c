// The withdrawals, and what each mix made of them, taken out of the answer.
const demand = answer.result.demand;
const withdrawalCount = demand.times.length;
const cassetteCount = dispenser.cassettes.length;

/** Days that the demand has. */
function dayCount() {
    if (answer.input.resampled !== undefined) {
        return answer.input.resampled;
    }
    return answer.input.demand === null
        ? Math.floor(demand.times[withdrawalCount - 1] / SECONDS_IN_DAY) + 1
        : answer.input.demand.days;
}

function amountText(index) {
    const currency = demand.currencies === null ? dispenser.currency : demand.currencies[index];
    return askedText(demand.amounts[index]) + " " + currency;
}

function statusByCount(cassette, count) {
    return count <= cassette.emptyThreshold ? "empty" : count <= cassette.lowThreshold ? "low" : "ok";
}

/** One mix: what became of each withdrawal, and what each cassette held behind it. */
class MixRun {
    constructor(mix) {
        Object.assign(this, { mix: mix.mix, rank: mix.rank, known: mix });
        const answers = mix.answers;
        this.size = answers.path.length / answers.digits;
        this.steps = answers.steps;
        this.places = Uint32Array.from({ length: this.size },
            (_, index) => placeAt(answers.path, answers.digits, index));
        this.cells = Uint8Array.from(this.places,
            (place) => outcomeOfLetter.get(this.steps[place][0]));
        this.counts = new Uint32Array(this.size * cassetteCount);
        this.statuses = new Array(this.size);
        this.drain();
    }

    drain() {
        const counts = dispenser.cassettes.map((cassette) => cassette.count);
        let statuses = dispenser.cassettes.map((cassette) => cassette.status);
        for (let index = 0; index < this.size; index += 1) {
            if (this.isTaken(index)) {
                const items = this.items(index);
                statuses = statuses.map((status, at) => {
                    counts[at] -= items[at];
                    return items[at] > 0 && (status === "ok" || status === "low")
                        ? statusByCount(dispenser.cassettes[at], counts[at]) : status;
                });
            }
            this.counts.set(counts, index * cassetteCount);
            this.statuses[index] = statuses;
        }
    }

    outcome(index) {
        return outcomes[this.cells[index]];
    }

    isTaken(index) {
        return ["paid", "paidInPart"].includes(this.outcome(index).name);
    }

    items(index) {
        return this.steps[this.places[index]][1];
    }

    heldBehind(index, cassette) {
        return this.counts[index * cassetteCount + cassette];
    }
}

const rows = answer.result.mixes.map((mix) => new MixRun(mix));

/** What became of a withdrawal, for people: three lines. */
function describe(row, index) {
    const before = timeText(demand.times[index]) + ", " + amountText(index) + ", mix " + row.mix +
        ": ";
    if (index >= row.size) {
        return [before + "given up before", "Nothing is taken.", ""];
    }
    const outcome = row.outcome(index);
    const items = row.items(index);
    const parts = items.map((count, at) => (count > 0 ? cassetteItems(count, at) : ""))
        .filter((part) => part !== "");
    const isMiss = outcome.name === "noAnswer";
    const isEndless = isMiss && answer.warnings.some((finding) =>
        finding.id === "QX402" && finding.mix === row.mix && finding.proved);
    let what = before + (isEndless ? "never answers" : outcome.words);
    if (["overpaid", "overdrawn", "paidInPart"].includes(outcome.name)) {
        what += ", " + withCurrency(worthText(items));
    }
    if (isMiss && !isEndless) {
        what += " within " + durationWords(answer.input.deadline);
    }
    const isSafe = parts.length === 0 || row.isTaken(index);
    const taken = parts.length === 0 ? "Nothing is taken."
        : (isSafe ? "" : "Not carried out: ") + parts.join(", ");
    const held = dispenser.cassettes.map((cassette, at) => cassetteLabel(at) + " " +
        row.heldBehind(index, at) + " " + row.statuses[index][at]);
    return [what, taken, "Then " + held.join(", ")];
}

/** A text of a withdrawal that needs most room. */
function longestDetails() {
    const words = longestOf(outcomes.map((outcome) => outcome.words));
    const all = dispenser.cassettes.map((cassette) => cassette.count);
    const held = dispenser.cassettes.map((cassette, at) => cassetteLabel(at) + " " +
        cassette.count + " " + longestOf([String(cassette.status), "empty"]));
    return [[timeText(demand.times[withdrawalCount - 1]) + ", " +
        longestOf(demand.amounts.map((_, index) => amountText(index))) + ", mix " +
        longestOf(rows.map((row) => String(row.mix))) + ": " + words + ", " +
        withCurrency(worthText(all)),
    "Not carried out: " + mostItemsText(), "Then " + held.join(", ")]];
}
