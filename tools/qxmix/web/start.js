// The page from when it is opened: where a dispenser comes from and where it goes.
const editor = new Editor(known.schema, onChange);

/** Takes a dispenser file's text; one that is no JSON object is refused with the tool's own words. */
async function takeText(text, name) {
    let json = null;
    try {
        json = JSON.parse(text);
    } catch {
        // The tool says where it is wrong.
    }
    if (json === null || typeof json !== "object" || Array.isArray(json)) {
        const result = await tool.run(["map", name], { [name]: text });
        byId("wrong").textContent = result.error.trim().replace(/^qxmix: /, "");
        return;
    }
    take(json);
}

/** @param amount  that is asked; undefined: the last of the dispenser's buttons, or its largest value. */
function take(dispenser, amount) {
    byId("examples").value = "";
    editor.take(dispenser);
    makeQuestion(amount === undefined ? defaultAmount(dispenser) : String(amount));
    onChange();
}

function defaultAmount(dispenser) {
    const buttons = valueAt(dispenser, "/amounts/buttons");
    const values = Array.isArray(dispenser.cassettes) ? dispenser.cassettes.map(({ value }) => value) : [];
    return String(Array.isArray(buttons) && buttons.length > 0 ? buttons.at(-1) : Math.max(1, ...values.filter(Number.isFinite)));
}

function makeQuestion(amount) {
    asked.amount = amount;
    const field = editor.makeField({ label: "Amount", kind: "text", width: "narrow" }, "/amount");
    const input = field.querySelector("input");
    input.inputMode = "numeric";
    input.value = amount;
    const fresh = input.cloneNode(true);
    fresh.addEventListener("input", () => {
        asked.amount = fresh.value;
        onChange();
    });
    input.replaceWith(fresh);
    const mix = made("select", { id: "field/mix" }, ...known.mixes.map((number) =>
        made("option", { value: String(number), textContent: String(number) })));
    mix.dataset.pointer = "/mix";
    mix.value = String(editor.dispenser.mix === undefined ? known.mixes[0] : editor.dispenser.mix);
    mix.addEventListener("change", () => editor.store("/mix", Number(mix.value)));
    byId("question").replaceChildren(field, made("label", { className: "field" },
        made("span", { textContent: "Mix" }), mix, made("span", { className: "complaint", id: "complaint/mix" })));
}

function linkText() {
    return "#" + encodeURIComponent(JSON.stringify({ amount: asked.amount, dispenser: editor.dispenser }));
}

/** Whether the address names a dispenser. */
function takeLink() {
    try {
        const { amount, dispenser } = JSON.parse(decodeURIComponent(location.hash.slice(1)));
        if (dispenser !== null && typeof dispenser === "object" && !Array.isArray(dispenser)) {
            take(dispenser, amount);
            return true;
        }
    } catch {
        // Any other address of the page: it begins with an example.
    }
    return false;
}

function download(name, text) {
    const link = made("a", { download: name, href: URL.createObjectURL(new Blob([text],
        { type: "application/json" })) });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}

async function fileText(file) {
    return new TextDecoder("utf-8").decode(await file.arrayBuffer());
}

function listen(id, event, act) {
    byId(id).addEventListener(event, (happening) => {
        happening.preventDefault();
        act(happening);
    });
}

function takeDemand(name, text) {
    Object.assign(demand, { name, text });
    setStale(["week"], week.opened !== null);
}

byId("examples").replaceChildren(...["", ...Object.keys(known.examples)].map((name) =>
    made("option", { value: name, textContent: name || "choose" })));
listen("examples", "change", () => {
    const example = byId("examples").value;
    if (example !== "") {
        take(JSON.parse(known.examples[example]));
        byId("examples").value = example;
    }
});
listen("open", "click", () => byId("file").click());
byId("file").addEventListener("change", async () => {
    const [file] = byId("file").files;
    if (file !== undefined) {
        await takeText(await fileText(file), file.name);
        byId("file").value = "";
    }
});
listen("save", "click", () => download(DISPENSER, JSON.stringify(editor.dispenser, null, 2) + "\n"));
listen("link", "click", () => {
    history.replaceState(null, "", linkText());
    byId("said").textContent = "The address of this page now holds the dispenser and the amount.";
});
listen("command", "click", () => {
    const lines = byId("commandLines");
    lines.hidden = !lines.hidden;
    byId("command").setAttribute("aria-expanded", String(!lines.hidden));
    if (!lines.hidden) {
        byId("lines").select();
    }
});
listen("openDemand", "click", () => byId("demandFile").click());
byId("demandFile").addEventListener("change", async () => {
    const [file] = byId("demandFile").files;
    if (file !== undefined) {
        byId("demand").append(made("option", { value: file.name, textContent: file.name, selected: true }));
        takeDemand(file.name, await fileText(file));
        byId("demandFile").value = "";
    }
});
listen("demand", "change", () => takeDemand("week.json", known.week));
listen("simulation", "submit", simulate);
listen("editor", "submit", () => {});
document.addEventListener("dragover", (event) => event.preventDefault());
document.addEventListener("drop", async (event) => {
    event.preventDefault();
    const [file] = event.dataTransfer.files;
    if (file !== undefined) {
        await takeText(await fileText(file), file.name);
    }
});
window.addEventListener("hashchange", takeLink);
takeDemand("week.json", known.week);
if (!takeLink()) {
    const first = Object.keys(known.examples)[0];
    take(JSON.parse(known.examples[first]));
    byId("examples").value = first;
}
