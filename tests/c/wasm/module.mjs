// The module for WebAssembly with texts in place of addresses, for tests.
import { readFile } from "node:fs/promises";

const OK = 0;
export const INSERT = 10, MARK = 11;

// What the module would ask of a system. It prints nothing, so that nobody may call these.
const system = new Proxy({}, { get: (_, name) => () => { throw new Error(`the module calls ${String(name)}`); } });

export class Module {
    #exports;
    #decoder = new TextDecoder("utf-8", { fatal: true, ignoreBOM: true });

    static async load(path) {
        const { instance } = await WebAssembly.instantiate(await readFile(path), { wasi_snapshot_preview1: system });
        instance.exports._initialize();
        return new Module(instance.exports);
    }

    constructor(exports) {
        this.#exports = exports;
    }

    get names() {
        return Object.keys(this.#exports);
    }

    get memory() {
        return this.#exports.memory.buffer.byteLength;
    }

    // Calls with arguments that are numbers, handles, texts (an address and a length), bytes or arrays of doubles.
    call(name, ...given) {
        const taken = [];
        const put = (bytes) => {
            const at = this.#exports.vanoka_alloc(Math.max(bytes.length, 1));
            taken.push(at);
            new Uint8Array(this.#exports.memory.buffer).set(bytes, at);
            return at;
        };
        const passed = given.flatMap((argument) => {
            if (typeof argument === "string")
                argument = new TextEncoder().encode(argument);
            if (argument instanceof Float64Array)
                return [put(new Uint8Array(argument.buffer)), argument.length / 2];
            return argument instanceof Uint8Array ? [put(argument), argument.length] : [argument];
        });
        const result = this.#exports[`vanoka_${name}`](...passed);
        taken.forEach((at) => this.#exports.vanoka_free(at));
        return result;
    }

    // The number that a call, which has to succeed, writes into a place between other arguments.
    #intoPlace(name, before, after) {
        const place = this.#exports.vanoka_alloc(4);
        const status = this.call(name, ...before, place, ...after);
        const number = new DataView(this.#exports.memory.buffer).getInt32(place, true);
        this.#exports.vanoka_free(place);
        if (status !== OK)
            throw new Error(`vanoka_${name} gave ${status}`);
        return number;
    }

    write(at, bytes) {
        new Uint8Array(this.#exports.memory.buffer).set(bytes, at);
    }

    // Of one list, whose address and length stand in memory.
    createDecoder(address, length) {
        const [addresses, lengths] = [address, length].map((bytes) => {
            const at = this.#exports.vanoka_alloc(bytes.length);
            this.write(at, bytes);
            return at;
        });
        const decoder = this.create("decoder", addresses, lengths, 1);
        this.#exports.vanoka_free(addresses);
        this.#exports.vanoka_free(lengths);
        return decoder;
    }

    create(what, ...given) {
        return this.#intoPlace(`${what}_create`, given, []);
    }

    press(typing, code, modifiers, characters, answer) {
        return this.#intoPlace("typing_press", [typing, code, modifiers, characters], [answer]) !== 0;
    }

    ask(name, answer, ...given) {
        const status = this.call(name, ...given, answer);
        if (status !== OK)
            throw new Error(`vanoka_${name} gave ${status}`);
        return this.items(answer);
    }

    items(answer) {
        const first = this.call("answer_items", answer), view = new DataView(this.#exports.memory.buffer);
        return Array.from({ length: this.call("answer_count", answer) }, (_, at) => {
            const item = first + 24 * at;
            const bytes = new Uint8Array(view.buffer, view.getUint32(item, true), view.getUint32(item + 4, true));
            return {
                text: this.#decoder.decode(bytes),
                kind: view.getInt32(item + 8, true),
                number: Number(view.getBigInt64(item + 16, true)),
            };
        });
    }
}
