// What is asked of the dispenser as it stands, and where the answers go.
const DISPENSER = "dispenser.json";
const known = JSON.parse(document.getElementById("known").textContent);
const byId = (id) => document.getElementById(id);

const map = new View(byId("map"), openMap);
const week = new View(byId("week"), openSimulation);
const asked = { amount: "", isAsking: false, isWaiting: false };
const demand = { name: "", text: "" };

/** The line of an error, without the tool's name and the file's. */
function errorOf(result) {
    return result.error.trim().replace(/^qxmix: /, "").replace(DISPENSER + ": ", "");
}

/** Whether the tool could answer: it then says with its exit status how good the answer is. */
function isAnswer(result) {
    return [0, 1, 3].includes(result.exitStatus);
}

function setStale(ids, isStale) {
    ids.forEach((id) => byId(id).classList.toggle("stale", isStale));
}

/** A finding: how bad, what, and what to do; its place is a button that leads there. */
function findingItem(finding) {
    const item = made("li", {}, made("span", {
        className: "severity" + (finding.severity === "error" ? " danger" : ""),
        textContent: finding.severity + " " + finding.id }));
    const field = Editor.fieldOf(finding.pointer || "");
    if (field !== null) {
        const go = made("button", { type: "button", textContent: finding.pointer });
        go.addEventListener("click", () => field.focus());
        item.append(go, " ");
    }
    item.append(finding.message);
    if (finding.advice) {
        item.append(made("div", { className: "advice", textContent: "do  " + finding.advice }));
    }
    return item;
}

function showFindings(json, text) {
    const { findings } = JSON.parse(json.out).result;
    byId("findingCount").textContent = "(" + findings.length + ")";
    byId("findings").replaceChildren(...(findings.length === 0
        ? [made("li", { textContent: firstLine(text) })] : findings.map(findingItem)));
}

function firstLine(result) {
    return result.out.split("\n", 1)[0];
}

function showMix(json, text) {
    const answer = JSON.parse(json.out);
    const verdict = byId("mixVerdict");
    verdict.textContent = firstLine(text);
    verdict.classList.toggle("danger", text.exitStatus === 3);
    showMixes(byId("mixTable"), byId("mixLegend"), answer, map.page);
    byId("mixFindings").replaceChildren(...answer.warnings.map(findingItem));
}

/** All command lines that the page shows, by what they fill. */
function commandLines() {
    const one = ["--amount", asked.amount];
    return {
        mix: ["mix", DISPENSER, ...one, "--mix", "all"],
        why: ["explain", DISPENSER, ...one],
        map: ["map", DISPENSER],
        lint: ["lint", DISPENSER],
    };
}

async function askAll() {
    const files = { [DISPENSER]: JSON.stringify(editor.dispenser) };
    const lines = commandLines();
    const run = (words) => tool.run(words, files);
    const mapping = run([...lines.map, "--output", "map.html"]);
    const others = Promise.all([run([...lines.mix, "--json"]), run(lines.mix), run(lines.why),
        run([...lines.lint, "--json"]), run(lines.lint)]);
    const mapped = await mapping;
    showMap(mapped);
    const [mixJson, mixText, why, lintJson, lintText] = await others;
    setStale(["lint"], !isAnswer(lintJson));
    if (isAnswer(lintJson)) {
        showFindings(lintJson, lintText);
    }
    showAmount(mapped, mixJson, mixText, why);
}

function showMap(mapped) {
    editor.complain(isAnswer(mapped) ? null : errorOf(mapped));
    setStale(["map"], !isAnswer(mapped));
    if (isAnswer(mapped)) {
        map.show(mapped.files["map.html"]);
        Editor.showDefaults(map.answer.input.dispenser);
        byId("colours").textContent = map.colours;
        byId("versions").textContent = map.versions;
        byId("title").textContent = document.title = map.answer.input.dispenser.name || known.title;
    }
}

function showAmount(mapped, mixJson, mixText, why) {
    const isPaid = isAnswer(mixJson) && isAnswer(mapped);
    setStale(["mix", "why"], !isPaid);
    Editor.mark(byId("field/amount"), !isAnswer(mapped) || isPaid ? "" : errorOf(mixJson));
    if (isPaid) {
        showMix(mixJson, mixText);
        byId("explanation").textContent = why.out;
    }
}

/** Asks once more after a change; what has changed meanwhile is asked when that is answered. */
async function ask() {
    asked.isWaiting = true;
    if (asked.isAsking) {
        return;
    }
    asked.isAsking = true;
    document.body.setAttribute("aria-busy", "true");
    while (asked.isWaiting) {
        asked.isWaiting = false;
        await askAll();
    }
    document.body.removeAttribute("aria-busy");
    asked.isAsking = false;
}

function onChange() {
    byId("said").textContent = "";
    setStale(["week"], week.opened !== null);
    showCommand();
    ask();
}

/** One shell command for each question, with the dispenser on its standard input. */
function showCommand() {
    const quoted = (word) => (/^[\w./=-]+$/.test(word) ? word : "'" + word.replaceAll("'", "'\\''") + "'");
    const input = "printf %s " + quoted(JSON.stringify(editor.dispenser));
    byId("lines").value = Object.values(commandLines()).map((words) => input + " | qxmix " +
        words.map((word) => (word === DISPENSER ? "-" : quoted(word))).join(" ")).join("\n");
}

async function simulate() {
    byId("simulate").disabled = true;
    const files = { [DISPENSER]: JSON.stringify(editor.dispenser), [demand.name]: demand.text };
    const result = await tool.run(
        ["simulate", DISPENSER, "--demand", demand.name, "--mixes", "all", "--output", "week.html"], files);
    byId("simulate").disabled = false;
    byId("simulationWrong").textContent = isAnswer(result) ? "" : errorOf(result);
    setStale(["week"], !isAnswer(result));
    if (isAnswer(result)) {
        week.show(result.files["week.html"]);
    }
}
