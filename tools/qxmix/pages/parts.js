// What every page says and shows in the same way, of the answer as the command gives it with --json, with
// the tool's own words (page). A page of many dispensers has none that all of it is about.
const dispenser = answer.input.dispenser || { exponent: 0, cassettes: [] };

const DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

/** One place of a path: digits of base 64, so many for each place. */
function placeAt(path, digits, index) {
    let place = 0;
    for (let at = index * digits; at < (index + 1) * digits; at += 1) {
        place = place * 64 + DIGITS.indexOf(path[at]);
    }
    return place;
}

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

// The currency that is shown, of those that were asked.
let currency = dispenser.currency;

const amountDecimals = Math.max(0, -dispenser.exponent);

function askedText(amount) {
    return dispenser.exponent < 0
        ? moneyText(BigInt(amount), amountDecimals, amountDecimals)
        : (BigInt(amount) * 10n ** BigInt(dispenser.exponent)).toString();
}

function withCurrency(text) {
    return text + " " + currency;
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

/** The label of a cassette, or else its note and its place: "10 EUR (4)". */
function cassetteName(index) {
    const cassette = dispenser.cassettes[index];
    return cassette.label || cassette.worth + " " + cassette.currency + " (" + index + ")";
}

/** The cassette that gives the items of a slot, or -1. */
function cassetteOfSlot(slot) {
    return dispenser.cassettes.findIndex((cassette) => cassette.position === slot);
}

/** What items are worth together, by cassette. */
function worthText(items) {
    const worths = dispenser.cassettes.map((cassette) => cassette.worth.split("."));
    const decimals = Math.max(...worths.map((worth) => (worth[1] || "").length));
    const sum = worths.reduce((part, [whole, fraction = ""], index) =>
        part + BigInt(items[index]) * BigInt(whole + fraction.padEnd(decimals, "0")), 0n);
    return moneyText(sum, decimals, amountDecimals);
}

/** What items are worth together, by slot. */
function paidText(values) {
    const items = dispenser.cassettes.map(() => 0);
    values.forEach((count, slot) => {
        const cassette = cassetteOfSlot(slot);
        if (cassette >= 0) {
            items[cassette] = count;
        }
    });
    return worthText(items);
}

const outcomes = page.outcomes;
const outcomeOfLetter = new Map(outcomes.map((outcome, index) => [outcome.letter, index]));

function cassetteItems(items, index) {
    const cassette = dispenser.cassettes[index];
    return items + " x " + cassette.worth + " " + cassette.currency + " from " +
        cassetteLabel(index);
}

function itemsText(values) {
    const parts = [];
    values.forEach((items, slot) => {
        const index = cassetteOfSlot(slot);
        if (items > 0) {
            parts.push(index < 0
                ? items + " from position " + slot + ", where no cassette is"
                : cassetteItems(items, index));
        }
    });
    return parts.length === 0 ? "Nothing is taken." : parts.join(", ");
}

function element(name, text, className) {
    const made = document.createElement(name);
    if (text !== undefined) {
        made.textContent = text;
    }
    if (className !== undefined) {
        made.className = className;
    }
    return made;
}

/** Fills a table; a column whose heading ends in "#" holds numbers. */
function fillTable(table, caption, headings, lines) {
    const isNumber = headings.map((heading) => heading.endsWith("#"));
    const head = element("thead");
    const top = element("tr");
    headings.forEach((heading, index) => {
        const cell = element("th", heading.replace(/#$/, ""), isNumber[index] ? "number" : "");
        cell.scope = "col";
        top.append(cell);
    });
    head.append(top);
    const body = element("tbody");
    for (const line of lines) {
        const row = element("tr");
        line.forEach((content, index) => {
            const name = index === 0 ? "th" : "td";
            const cell = element(name, undefined, isNumber[index] ? "number" : "");
            if (index === 0) {
                cell.scope = "row";
            }
            cell.dataset.heading = headings[index].replace(/#$/, "");
            cell.append(content);
            row.append(cell);
        });
        body.append(row);
    }
    table.replaceChildren(element("caption", caption), head, body);
}

function key(outcome) {
    const shown = element("span", outcome.letter, "key o-" + outcome.name);
    shown.setAttribute("aria-hidden", "true");
    return shown;
}

function addFilter(fieldset, id, content, onChange) {
    const label = element("label");
    const box = element("input");
    box.type = "checkbox";
    box.checked = true;
    box.id = id;
    box.addEventListener("change", () => onChange(box.checked));
    label.append(box, ...content);
    fieldset.append(label);
}

/** Makes a panel as high as the longest of these texts needs, each a list of its paragraphs. */
function keepHeight(panel, texts) {
    const trial = panel.cloneNode(true);
    for (const part of [trial, ...trial.children]) {
        part.removeAttribute("id");
        part.removeAttribute("role");
        part.removeAttribute("aria-live");
    }
    trial.setAttribute("aria-hidden", "true");
    Object.assign(trial.style, { position: "absolute", visibility: "hidden", height: "auto",
        width: panel.offsetWidth + "px" });
    panel.after(trial);
    const heights = texts.map((lines) => {
        lines.forEach((line, index) => {
            trial.children[index].textContent = line;
        });
        return trial.offsetHeight;
    });
    trial.remove();
    panel.style.height = Math.max(...heights) + "px";
}

function longestOf(texts) {
    return texts.reduce((longest, text) => (text.length > longest.length ? text : longest), "");
}

/** All cassettes with as many items as they hold. */
function mostItemsText() {
    return dispenser.cassettes.map((cassette, index) => cassetteItems(cassette.count, index))
        .join(", ");
}
