// What runs in the worker of a page, behind the function makeTool: one command line at a time, in a tool
// of its own.
const FOLDER = "/files";
const TELL_AFTER = 50;

/** A command line that the tool carries out in an instance of its own. */
class ToolRun {
    constructor(order) {
        this.order = order;
        this.out = [];
        this.error = [];
        this.exitStatus = null;
        this.calculations = 0;
        this.toldAt = performance.now();
        this.slow = new Set(order.slow);
    }

    /** The tool is about to ask the module. Whether it may. */
    beginCalculation() {
        this.calculations += 1;
        const now = performance.now();
        if (this.order.isExact || now - this.toldAt > TELL_AFTER) {
            this.toldAt = now;
            postMessage({ began: this.calculations });
        }
        return !this.slow.has(this.calculations);
    }

    /** Input and output are bytes, and nothing comes from anywhere else. */
    prepareFiles(fs) {
        const input = new TextEncoder().encode(this.order.files["-"] || "");
        let taken = 0;
        fs.init(() => (taken < input.length ? input[taken++] : null),
            (byte) => this.out.push(byte), (byte) => this.error.push(byte));
    }

    writeFiles(fs) {
        fs.mkdir(FOLDER);
        fs.chdir(FOLDER);
        for (const [name, text] of Object.entries(this.order.files)) {
            if (name !== "-") {
                fs.mkdirTree(FOLDER + "/" + name.slice(0, name.lastIndexOf("/") + 1));
                fs.writeFile(name, text);
            }
        }
    }

    /** The files beside those that were given, or with another content. */
    writtenFiles(fs) {
        const names = fs.readdir(FOLDER).filter((name) => fs.isFile(fs.stat(name).mode));
        const texts = names.map((name) => [name, fs.readFile(name, { encoding: "utf8" })]);
        return Object.fromEntries(texts.filter(([name, text]) => this.order.files[name] !== text));
    }

    async carryOut() {
        const tool = await makeTool({
            instantiateWasm: (imports, done) => {
                const instance = new WebAssembly.Instance(this.order.module, imports);
                done(instance);
                return instance.exports;
            },
            preRun: [(module) => this.prepareFiles(module.FS)],
            beginCalculation: () => this.beginCalculation(),
            onExit: (status) => { this.exitStatus = status; },
        });
        this.writeFiles(tool.FS);
        try {
            tool.callMain(this.order.words);
        } catch (error) {
            if (error.name !== "ExitStatus") {
                throw error;
            }
        }
        const text = (bytes) => new TextDecoder().decode(Uint8Array.from(bytes));
        return { exitStatus: this.exitStatus, out: text(this.out), error: text(this.error),
            files: this.writtenFiles(tool.FS) };
    }
}

onmessage = async (event) => {
    try {
        postMessage({ result: await new ToolRun(event.data).carryOut() });
    } catch (error) {
        postMessage({ failure: String(error) });
    }
};
