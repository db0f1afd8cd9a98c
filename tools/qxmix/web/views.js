// The pages that the tool writes, shown inside this one: each in a tree of its own, by its own scripts.

/** A page of the tool's in an element, in the place of the one before. */
class View {
    constructor(host, open) {
        this.root = host.attachShadow({ mode: "open" });
        this.open = open;
        this.ending = null;
        this.opened = null;
    }

    /** What the page has to show; with what a reader had set before, as far as that goes. */
    show(html) {
        const shown = new DOMParser().parseFromString(html, "text/html");
        const json = (id) => JSON.parse(shown.getElementById(id).textContent);
        const kept = this.opened === null ? null : this.opened.state();
        const style = document.createElement("style");
        style.textContent = shown.querySelector("style").textContent.replaceAll(":root", ":host");
        const heading = [...shown.querySelector("header").children].slice(1);
        const parts = [...shown.querySelector("main").children]
            .filter((part) => part.localName !== "noscript" && part.id !== "about");
        if (this.ending !== null) {
            this.ending.abort();
        }
        this.ending = new AbortController();
        this.root.replaceChildren(style, ...heading, ...parts);
        this.answer = json("answer");
        this.page = json("page");
        this.colours = style.textContent.match(/^\.o-.*$/gm).join("\n");
        this.versions = shown.getElementById("versions").textContent;
        this.opened = this.open(this.root, this.answer, this.page, this.ending.signal);
        if (kept !== null) {
            this.opened.restore(kept);
        }
    }
}

function openMap(root, answer, page, lifetime) {
{{mapScripts}}
    return {
        state: () => ({ currency, level: level(), left: scroller.scrollLeft, mixes: [...hiddenMixes],
            outcomes: [...hiddenOutcomes].map((index) => outcomes[index].name) }),
        restore: (kept) => {
            const chosen = root.getElementById("currency-" + kept.currency);
            if (chosen !== null) {
                chosen.click();
            }
            const ids = kept.mixes.map((mix) => "mix-" + mix)
                .concat(kept.outcomes.map((name) => "outcome-" + name));
            ids.map((id) => root.getElementById(id)).filter((box) => box !== null)
                .forEach((box) => box.click());
            const same = levels.findIndex((one) =>
                one.stretch === kept.level.stretch && one.width === kept.level.width);
            if (same >= 0) {
                zoomTo(same);
                scroller.scrollLeft = kept.left;
                drawIfNeeded();
            }
        },
    };
}

function openSimulation(root, answer, page, lifetime) {
{{simulationScripts}}
    return { state: () => null, restore: () => {} };
}

/** What one amount comes to by all mixes, as a table, and what its letters mean. */
function showMixes(table, legend, answer, page) {
{{partsScripts}}
    const mixes = answer.result.mixes;
    const dash = (items) => (items === null ? "?" : items === 0 ? "-" : String(items));
    const itemsOf = (mix) => (mix.items === null ? null : mix.items.notes + mix.items.coins);
    const outcomeOf = (mix) => outcomes.find(({ name }) => name === mix.outcome);
    const told = (outcome, className) => {
        const part = element("span");
        part.append(key(outcome), element("span", " " + outcome.words, className));
        return part;
    };
    const lines = dispenser.cassettes.map((cassette, index) => [cassetteLabel(index),
        cassette.worth + " " + cassette.currency, String(cassette.count)].concat(
        mixes.map((mix) => dash(mix.values === null ? null : mix.values[cassette.position]))));
    const below = (name, text) => [name, "", ""].concat(mixes.map(text));
    lines.push(below("items", (mix) => dash(itemsOf(mix))), below("paid", (mix) => mix.paid || "?"),
        below("outcome", (mix) => told(outcomeOf(mix), "words")));
    fillTable(table, "Items from each cassette, by mix", ["cassette", "item#", "holds#"].concat(
        mixes.map((mix) => mix.mix + "#")), lines);
    legend.replaceChildren(...[...new Set(mixes.map(outcomeOf))].map((outcome) => told(outcome, "")));
}
