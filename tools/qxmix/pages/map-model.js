// The rows of the map in the currency that is shown, taken out of the answer.
const maps = answer.result.currencies || [answer.result];
const CHECKPOINT = 256;
let shownMap = 0;
let amounts = null;
let rows = [];
let amountCount = 0;

function amountAt(index) {
    return amounts.min + index * amounts.step;
}

/** One mix: its outcomes by amount, and its answers, which are kept as steps. */
class MixRow {
    constructor(row) {
        this.mix = row.mix;
        this.runs = row.runs;
        this.deadlines = row.deadlines;
        this.steps = row.answers.steps;
        this.digits = row.answers.digits;
        this.path = row.answers.path;
        this.size = this.path.length / this.digits;
        this.cells = new Uint8Array(this.size);
        let index = 0;
        for (const [letter, length] of row.runs) {
            this.cells.fill(outcomeOfLetter.get(letter), index, index + length);
            index += length;
        }
        this.rememberCheckpoints();
    }

    stepAt(index) {
        return this.steps[placeAt(this.path, this.digits, index)];
    }

    rememberCheckpoints() {
        this.checkpoints = new Uint32Array(7 * (Math.floor(this.size / CHECKPOINT) + 1));
        const known = new Uint32Array(7);
        for (let index = 0; index < this.size; index += 1) {
            if (index % CHECKPOINT === 0) {
                this.checkpoints.set(known, 7 * (index / CHECKPOINT));
            }
            MixRow.add(known, this.stepAt(index));
        }
    }

    static add(known, step) {
        for (let at = 0; step !== null && at < 7; at += 1) {
            known[at] += step[at];
        }
    }

    /** The answer on an amount; null when there was none. */
    answerAt(index) {
        const last = this.stepAt(index);
        if (last === null) {
            return null;
        }
        const checkpoint = Math.floor(index / CHECKPOINT);
        const known = this.checkpoints.slice(7 * checkpoint, 7 * checkpoint + 7);
        for (let at = checkpoint * CHECKPOINT; at <= index; at += 1) {
            MixRow.add(known, this.stepAt(at));
        }
        return {
            values: Array.from(known.subarray(0, 6)),
            remainder: known[6],
            returned: last[7],
            registry: last[8],
        };
    }

    /** The deadline that an amount without an answer was given; "0s": it is never answered. */
    deadlineAt(index) {
        const miss = this.cells[index];
        let before = 0;
        for (let at = 0; at < index; at += 1) {
            before += this.cells[at] === miss ? 1 : 0;
        }
        for (const [deadline, length] of this.deadlines) {
            if (before < length) {
                return deadline;
            }
            before -= length;
        }
        return answer.input.deadline;
    }

    count(outcome) {
        const letter = outcomes[outcome].letter;
        return this.runs.reduce((sum, run) => sum + (run[0] === letter ? run[1] : 0), 0);
    }
}

/** Takes the map in one of the currencies. */
function takeCurrency(index) {
    shownMap = index;
    currency = maps[index].currency || dispenser.currency;
    amounts = maps[index].amounts;
    rows = maps[index].mixes.map((row) => new MixRow(row));
    amountCount = rows.length === 0 ? 0 : rows[0].size;
}

takeCurrency(0);

/** What became of an amount, for people: three lines. */
function describe(row, index) {
    const outcome = outcomes[row.cells[index]];
    const asked = withCurrency(askedText(amountAt(index)));
    const known = row.answerAt(index);
    let what = asked + ", mix " + row.mix + ": ";
    if (known === null && outcome.name === "noAnswer") {
        const deadline = row.deadlineAt(index);
        what += deadline === "0s" ? "never answers"
            : outcome.words + " within " + durationWords(deadline);
    } else {
        what += outcome.words;
    }
    if (known === null) {
        return [what, "Nobody knows what it would take.", ""];
    }
    if (["overpaid", "overdrawn", "paidInPart"].includes(outcome.name)) {
        what += ", " + withCurrency(paidText(known.values));
    }
    return [what, itemsText(known.values), saidText(known)];
}

/** Texts of cells that need most room: of one amount, and of several that share a cell. */
function longestDetails() {
    const last = askedText(amountAt(Math.max(amountCount - 1, 0)));
    const mix = longestOf(rows.map((row) => String(row.mix)));
    const words = longestOf(outcomes.map((outcome) => outcome.words));
    const all = dispenser.cassettes.map((cassette) => cassette.count);
    const one = withCurrency(last) + ", mix " + mix + ": " + words + ", " +
        withCurrency(worthText(all));
    const said = saidText({ returned: -2147483648, remainder: 4294967295, registry: null });
    return [[one, mostItemsText(), said],
        [last + " to " + withCurrency(last) + ", mix " + mix + ": " + words + " on " +
            amountCount + " of " + plural(amountCount, "amount"),
        "First: " + one + ". " + mostItemsText(), said]];
}

function saidText(known) {
    return "returned " + known.returned + ", remainder " + known.remainder + ", " +
        (known.registry === null ? "no error code written" : "error code " + known.registry);
}
