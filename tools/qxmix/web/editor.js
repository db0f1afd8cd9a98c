// The dispenser as a form. It is kept as the JSON of a dispenser file: what a file has beside the fields
// here stays in it. What a field may hold is the tool's to say.
const ROOT_FIELDS = [
    { pointer: "/name", label: "Name", kind: "text", width: "wider" },
    { pointer: "/currency", label: "Currency", kind: "text", width: "narrow" },
    { pointer: "/maxDispenseItems", label: "Limit of items", kind: "number", width: "narrow" },
    { pointer: "/partial", label: "Part of an amount will do", kind: "check" },
    { pointer: "/exponent", label: "Exponent", kind: "number", width: "narrow" },
    { pointer: "/registry/CSTMinimum4Mix6", label: "Minimum of mixes 6 to 9", kind: "text", width: "narrow" },
    { pointer: "/amounts/min", label: "Amounts from", kind: "number", width: "narrow" },
    { pointer: "/amounts/max", label: "to", kind: "number", width: "narrow" },
    { pointer: "/amounts/step", label: "by", kind: "number", width: "narrow" },
];
const CASSETTE_FIELDS = [
    { name: "label", label: "Label", kind: "text", width: "narrow" },
    { name: "value", label: "Value", kind: "number", width: "narrow" },
    { name: "count", label: "Holds", kind: "number", width: "narrow" },
    { name: "status", label: "Status", kind: "choice" },
    { name: "type", label: "Type", kind: "choice" },
];
const MORE_CASSETTE_FIELDS = [
    { name: "currency", label: "Currency", kind: "text", width: "narrow" },
    { name: "worth", label: "Worth of one", kind: "text", width: "narrow" },
    { name: "position", label: "Position", kind: "number", width: "narrow" },
    { name: "lowThreshold", label: "Low at", kind: "number", width: "narrow" },
    { name: "emptyThreshold", label: "Empty at", kind: "number", width: "narrow" },
];

function made(name, properties, ...content) {
    const part = Object.assign(document.createElement(name), properties);
    part.append(...content);
    return part;
}

/** The value at a JSON pointer, or undefined. */
function valueAt(json, pointer) {
    return pointer.split("/").slice(1).reduce(
        (part, name) => (part === null || typeof part !== "object" ? undefined : part[name]), json);
}

/** Stores a value at a JSON pointer; undefined takes it away, and an object that is empty then. */
function storeAt(json, pointer, value) {
    const [name, ...rest] = pointer.split("/").slice(1);
    if (rest.length === 0) {
        if (value === undefined) {
            delete json[name];
        } else {
            json[name] = value;
        }
        return;
    }
    if (json[name] === null || typeof json[name] !== "object") {
        if (value === undefined) {
            return;
        }
        json[name] = {};
    }
    storeAt(json[name], "/" + rest.join("/"), value);
    if (!Array.isArray(json[name]) && !Array.isArray(json) && Object.keys(json[name]).length === 0) {
        delete json[name];
    }
}

class Editor {
    /** @param onChange  is told of every change. */
    constructor(schema, onChange) {
        const cassette = schema.$defs.cassette.properties;
        this.choices = { status: cassette.status, type: cassette.type };
        this.onChange = onChange;
        this.dispenser = { currency: "", cassettes: [] };
        document.getElementById("add").addEventListener("click", () => this.addCassette());
    }

    /** Takes another dispenser. */
    take(dispenser) {
        this.dispenser = dispenser;
        this.render();
    }

    render() {
        document.getElementById("fields").replaceChildren(
            ...ROOT_FIELDS.map((field) => this.makeField(field, field.pointer)));
        const cassettes = Array.isArray(this.dispenser.cassettes) ? this.dispenser.cassettes : [];
        document.getElementById("cassettes").replaceChildren(
            ...cassettes.map((_, index) => this.makeCassette(index)));
    }

    makeCassette(index) {
        const at = "/cassettes/" + index + "/";
        const fields = (list) => list.map((field) => this.makeField(field, at + field.name));
        const remove = made("button", { type: "button", textContent: "\u00d7", className: "remove" });
        remove.setAttribute("aria-label", "Remove cassette " + index);
        remove.addEventListener("click", () => this.removeCassette(index));
        const more = made("details", {}, made("summary", { textContent: this.moreText(at) }),
            made("div", { className: "fields" }, ...fields(MORE_CASSETTE_FIELDS)));
        return made("fieldset", { className: "cassette" }, made("legend", { textContent: String(index) }),
            made("div", { className: "fields" }, ...fields(CASSETTE_FIELDS), remove, more));
    }

    /** What a cassette has beside the fields in sight, so that nothing set is hidden. */
    moreText(at) {
        const set = MORE_CASSETTE_FIELDS
            .map(({ name, label }) => [label, valueAt(this.dispenser, at + name)])
            .filter(([, value]) => value !== undefined);
        return ["more"].concat(set.map(([label, value]) => label.toLowerCase() + " " + value)).join(", ");
    }

    makeField(field, pointer) {
        const complaint = made("span", { className: "complaint", id: "complaint" + pointer });
        const input = field.kind === "choice" ? this.makeChoice(field, pointer) : this.makeInput(field, pointer);
        input.id = "field" + pointer;
        input.dataset.pointer = pointer;
        const label = made("label", { className: "field " + (field.kind === "check" ? "check" : field.width || "") });
        const name = made("span", { textContent: field.label });
        label.append(...(field.kind === "check" ? [input, name] : [name, input]), complaint);
        return label;
    }

    makeInput(field, pointer) {
        const value = valueAt(this.dispenser, pointer);
        const input = made("input", { type: field.kind === "check" ? "checkbox" : "text", spellcheck: false });
        if (field.kind === "check") {
            input.checked = value === true;
            input.addEventListener("change", () => this.store(pointer, input.checked || undefined));
            return input;
        }
        if (field.kind === "number") {
            input.inputMode = "numeric";
        }
        input.value = value === undefined ? "" : typeof value === "object" ? JSON.stringify(value) : String(value);
        input.addEventListener("input", () => this.store(pointer, Editor.read(field, input.value)));
        return input;
    }

    /** What was typed as it goes into the file: digits as a number where one belongs, else as text. */
    static read(field, text) {
        if (text === "") {
            return undefined;
        }
        if (text.startsWith("{")) {
            try {
                return JSON.parse(text);
            } catch {
                return text;
            }
        }
        const isWhole = /^-?(0|[1-9][0-9]{0,14})$/.test(text);
        return field.kind === "number" && isWhole ? Number(text) : text;
    }

    makeChoice(field, pointer) {
        const value = valueAt(this.dispenser, pointer);
        const known = this.choices[field.name];
        const names = known.oneOf.find((one) => one.enum !== undefined).enum;
        const shown = value === undefined ? known.default : String(value);
        const select = made("select", {}, ...[...new Set([...names, shown])].map((name) =>
            made("option", { value: name, textContent: name })));
        select.value = shown;
        select.addEventListener("change", () => this.store(pointer,
            names.includes(select.value) ? select.value : value));
        return select;
    }

    store(pointer, value) {
        storeAt(this.dispenser, pointer, value);
        const more = document.getElementById("field" + pointer).closest("details");
        if (more !== null) {
            more.querySelector("summary").textContent = this.moreText(pointer.replace(/[^/]*$/, ""));
        }
        this.onChange();
    }

    addCassette() {
        if (!Array.isArray(this.dispenser.cassettes)) {
            this.dispenser.cassettes = [];
        }
        const last = this.dispenser.cassettes.at(-1);
        this.dispenser.cassettes.push({ value: last === undefined ? 50 : last.value, count: 100 });
        this.render();
        document.getElementById("field/cassettes/" + (this.dispenser.cassettes.length - 1) + "/value").focus();
        this.onChange();
    }

    removeCassette(index) {
        this.dispenser.cassettes.splice(index, 1);
        this.render();
        document.getElementById("add").focus();
        this.onChange();
    }

    /** What stands for a field that is left empty, from the answer with all defaults filled in. */
    static showDefaults(filled) {
        document.querySelectorAll("#editor input[type=text]").forEach((input) => {
            const value = valueAt(filled, input.dataset.pointer);
            input.placeholder = value === undefined || typeof value === "object" ? "" : String(value);
        });
    }

    /** The field of a place in the file, or of what holds that place, or null. */
    static fieldOf(pointer) {
        for (let at = pointer; at !== ""; at = at.slice(0, at.lastIndexOf("/"))) {
            const field = document.getElementById("field" + at);
            if (field !== null) {
                return field;
            }
        }
        return null;
    }

    /** Says beside its field what is wrong with the dispenser, in the tool's words; null: nothing. */
    complain(error) {
        document.querySelectorAll("#editor [aria-invalid]").forEach((field) => Editor.mark(field, ""));
        document.getElementById("wrong").textContent = "";
        if (error === null) {
            return;
        }
        const place = /^(\/[^:]*): (.*)$/s.exec(error);
        const field = place === null ? null : Editor.fieldOf(place[1]);
        if (field === null) {
            document.getElementById("wrong").textContent = error;
        } else {
            Editor.mark(field, place[2]);
        }
    }

    static mark(field, complaint) {
        const said = document.getElementById("complaint" + field.dataset.pointer);
        said.textContent = complaint;
        if (complaint === "") {
            field.removeAttribute("aria-invalid");
            field.removeAttribute("aria-describedby");
        } else {
            field.setAttribute("aria-invalid", "true");
            field.setAttribute("aria-describedby", said.id);
            const more = field.closest("details");
            if (more !== null) {
                more.open = true;
            }
        }
    }
}
