"use strict";

// What the page knows: the answer as the command gives it with --json, and the tool's own words.
const answer = JSON.parse(document.getElementById("answer").textContent);
const page = JSON.parse(document.getElementById("page").textContent);
const dispenser = answer.input.dispenser;
const amounts = answer.result.amounts;

const DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
const CHECKPOINT = 256;

/** Decimal text of digits with so many decimals; zeros at the end are left out down to atLeast. */
function moneyText(digits, decimals, atLeast) {
    while (decimals > atLeast && digits % 10n === 0n) {
        digits /= 10n;
        decimals -= 1;
    }
    while (decimals < atLeast) {
        digits *= 10n;
        decimals += 1;
    }
    const text = digits.toString().padStart(decimals + 1, "0");
    const point = text.length - decimals;
    return decimals === 0 ? text : text.slice(0, point) + "." + text.slice(point);
}

const amountDecimals = Math.max(0, -dispenser.exponent);

function askedText(amount) {
    return dispenser.exponent < 0
        ? moneyText(BigInt(amount), amountDecimals, amountDecimals)
        : (BigInt(amount) * 10n ** BigInt(dispenser.exponent)).toString();
}

function withCurrency(text) {
    return text + " " + dispenser.currency;
}

function amountAt(index) {
    return amounts.min + index * amounts.step;
}

/** "100ms" as people read it: "100 ms". */
function durationWords(text) {
    return text.replace(/^([0-9]+)/, "$1 ");
}

function plural(count, word) {
    return count + " " + word + (count === 1 ? "" : "s");
}

function cassetteLabel(index) {
    return dispenser.cassettes[index].label || String(index);
}

/** The cassette that gives the items of a slot, or -1. */
function cassetteOfSlot(slot) {
    return dispenser.cassettes.findIndex((cassette) => cassette.position === slot);
}

/** What the items are worth together. */
function paidText(values) {
    const worths = dispenser.cassettes.map((cassette) => cassette.worth.split("."));
    const decimals = Math.max(...worths.map((worth) => (worth[1] || "").length));
    let sum = 0n;
    values.forEach((items, slot) => {
        const cassette = cassetteOfSlot(slot);
        if (cassette >= 0) {
            const [whole, fraction = ""] = worths[cassette];
            sum += BigInt(items) * BigInt(whole + fraction.padEnd(decimals, "0"));
        }
    });
    return moneyText(sum, decimals, amountDecimals);
}

const outcomes = page.outcomes;
const outcomeOfLetter = new Map(outcomes.map((outcome, index) => [outcome.letter, index]));

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
        let place = 0;
        for (let at = index * this.digits; at < (index + 1) * this.digits; at += 1) {
            place = place * 64 + DIGITS.indexOf(this.path[at]);
        }
        return this.steps[place];
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

    /** The deadline that an amount without an answer was given. */
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

const rows = answer.result.mixes.map((row) => new MixRow(row));
const amountCount = rows.length === 0 ? 0 : rows[0].size;

/** What became of an amount, for people: three lines. */
function describe(row, index) {
    const outcome = outcomes[row.cells[index]];
    const asked = withCurrency(askedText(amountAt(index)));
    const known = row.answerAt(index);
    let what = asked + ", mix " + row.mix + ": " + outcome.words;
    if (known === null) {
        const isMiss = outcome.name === "noAnswer";
        what += isMiss ? " within " + durationWords(row.deadlineAt(index)) : "";
        return [what, "Nobody knows what it would take.", ""];
    }
    if (["overpaid", "overdrawn", "paidInPart"].includes(outcome.name)) {
        what += ", " + withCurrency(paidText(known.values));
    }
    return [what, itemsText(known.values), saidText(known)];
}

function itemsText(values) {
    const parts = [];
    values.forEach((items, slot) => {
        const index = cassetteOfSlot(slot);
        if (items > 0) {
            const cassette = dispenser.cassettes[index];
            parts.push(index < 0
                ? items + " from position " + slot + ", where no cassette is"
                : items + " x " + cassette.worth + " " + cassette.currency + " from " +
                  cassetteLabel(index));
        }
    });
    return parts.length === 0 ? "Nothing is taken." : parts.join(", ");
}

function saidText(known) {
    return "returned " + known.returned + ", remainder " + known.remainder + ", " +
        (known.registry === null ? "no error code written" : "error code " + known.registry);
}
