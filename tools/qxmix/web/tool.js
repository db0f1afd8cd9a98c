// The tool as a function of the page. It runs in workers, so the page never waits, and what does not
// come to an end is ended with its worker.
const PATIENCE = 2000;
const MOST_WORKERS = 4;
const CANNOT_WORK = 4;

/** The bytes of an element that holds them as base 64, unpacked. */
async function unpackedBytes(id) {
    const packed = Uint8Array.from(atob(document.getElementById(id).textContent.trim()),
        (character) => character.charCodeAt(0));
    const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip"));
    return new Response(stream).arrayBuffer();
}

/** The tool in workers side by side, each with one command line at a time. */
class Tool {
    constructor() {
        this.module = unpackedBytes("module").then((bytes) => WebAssembly.compile(bytes));
        this.script = URL.createObjectURL(new Blob(
            [document.getElementById("worker").textContent], { type: "text/javascript" }));
        this.idle = [];
        this.waiting = [];
        this.free = Math.min(MOST_WORKERS, Math.max(1, navigator.hardwareConcurrency - 1));
    }

    /** Carries out a command line: exit status, standard output and error, and the files written. */
    async run(words, files = {}) {
        const module = await this.module;
        if (this.free === 0) {
            await new Promise((wake) => this.waiting.push(wake));
        } else {
            this.free -= 1;
        }
        try {
            return await this.runPatiently({ module, words: words.map(String), files });
        } finally {
            const next = this.waiting.shift();
            if (next === undefined) {
                this.free += 1;
            } else {
                next();
            }
        }
    }

    /** Runs it again without the calculation that took too long, as often as there is one. */
    async runPatiently(order) {
        const slow = [];
        let isExact = false;
        for (;;) {
            const ending = await this.runOnce({ ...order, slow, isExact });
            if (ending.failure !== undefined) {
                return { exitStatus: CANNOT_WORK, out: "", error: ending.failure + "\n", files: {} };
            }
            if (ending.result !== undefined) {
                return ending.result;
            }
            if (isExact) {
                slow.push(ending.stuck);
            }
            isExact = true;
        }
    }

    /** Its result, why there is none, or which calculation did not come to an end. */
    runOnce(order) {
        const worker = this.idle.pop() || new Worker(this.script);
        return new Promise((resolve) => {
            let began = 0;
            let timer = 0;
            const end = (ending) => {
                clearTimeout(timer);
                worker.onmessage = null;
                worker.onerror = null;
                if (ending.result === undefined) {
                    worker.terminate();
                } else {
                    this.idle.push(worker);
                }
                resolve(ending);
            };
            const wait = () => {
                clearTimeout(timer);
                timer = setTimeout(() => end({ stuck: began }), PATIENCE);
            };
            worker.onmessage = ({ data }) => {
                if (data.began === undefined) {
                    end(data);
                } else {
                    began = data.began;
                    wait();
                }
            };
            worker.onerror = (event) => end({ failure: event.message || "the worker has failed" });
            wait();
            worker.postMessage(order);
        });
    }
}

const tool = new Tool();

// For tests and for people who automate: the answer of a command line.
window.qxmix = { run: (words, files) => tool.run(words, files) };
