import { Status, VanokaError, type Item } from "./items.ts";

type Call = (...numbers: (number | bigint)[]) => number;
interface Exports {
    readonly memory: WebAssembly.Memory;
    readonly [name: string]: unknown;
}

/// What a call may be passed: numbers and handles, texts, places of x and y.
export type Argument = number | bigint | string | Uint8Array | Float64Array;

const scratchSize = 1 << 16;
const itemSize = 24;
const shortText = 96; // in bytes

/// The module asks nothing of a system in normal work.
const system: WebAssembly.ModuleImports = new Proxy({}, {
    get: (_, name) => () => {
        throw new WebAssembly.RuntimeError(`the module calls ${String(name)}`);
    },
});
const imports = { wasi_snapshot_preview1: system };

/// One instance of the WebAssembly module, called with texts in place of addresses. After a trap, which only a lack
/// of memory can cause, it is of no use any more (`isBroken`).
export class Module {
    readonly #exports: Exports;
    readonly #encoder = new TextEncoder();
    readonly #decoder = new TextDecoder("utf-8", { ignoreBOM: true });
    readonly #scratch: number;
    readonly #answer: number;
    readonly #taken: number[] = [];
    #used = 0;
    #bytes: Uint8Array;
    #view: DataView;
    #isBroken = false;

    static async from(source: WebAssembly.Module | BufferSource): Promise<Module> {
        const module = source instanceof WebAssembly.Module ? source : await WebAssembly.compile(source);
        return new Module((await WebAssembly.instantiate(module, imports)).exports as Exports);
    }

    /// At once; browsers that limit this for large modules allow one of this size.
    static again(module: WebAssembly.Module): Module {
        return new Module(new WebAssembly.Instance(module, imports).exports as Exports);
    }

    private constructor(exports: Exports) {
        this.#exports = exports;
        this.#bytes = new Uint8Array(exports.memory.buffer);
        this.#view = new DataView(exports.memory.buffer);
        (exports["_initialize"] as Call)();
        this.#scratch = this.#function("alloc")(scratchSize);
        this.#answer = this.create("answer");
    }

    get isBroken(): boolean {
        return this.#isBroken;
    }

    /// In bytes; it never shrinks.
    get memory(): number {
        return this.#exports.memory.buffer.byteLength;
    }

    get names(): string[] {
        return Object.keys(this.#exports);
    }

    /// The result of a call that cannot fail.
    number(name: string, ...given: Argument[]): number {
        return Number(this.#call(name, given, []));
    }

    /// A call that answers nothing.
    run(name: string, ...given: Argument[]): void {
        this.#check(name, this.#call(name, given, []));
    }

    /// The items of the answer that comes last among the arguments.
    ask(name: string, ...given: Argument[]): Item[] {
        this.#check(name, this.#call(name, given, [this.#answer]));
        return this.#items();
    }

    /// The number that a call writes into the place behind its other arguments.
    place(name: string, ...given: Argument[]): number {
        const place = this.#scratch;
        this.#used = 8;
        this.#check(name, this.#call(name, given, [place]));
        return this.#view.getInt32(place, true);
    }

    /// A call with a place and an answer: whether the key was consumed, and the items.
    press(name: string, handle: number, code: number, modifiers: number, characters: string): [boolean, Item[]] {
        const place = this.#scratch;
        this.#used = 8;
        this.#check(name, this.#call(name, [handle, code, modifiers, characters], [place, this.#answer]));
        return [this.#view.getInt32(place, true) !== 0, this.#items()];
    }

    create(what: string, ...given: Argument[]): number {
        return this.place(`${what}_create`, ...given);
    }

    /// Puts texts that a call takes by their addresses into memory while `use` runs.
    withTexts<Result>(texts: readonly (string | Uint8Array)[], use: (addresses: number, lengths: number) => Result): Result {
        const bytes = texts.map((text) => (typeof text === "string" ? this.#encoder.encode(text) : text));
        const addresses = bytes.map((each) => this.#allocated(each));
        const first = this.#allocated(new Uint8Array(new Uint32Array(addresses).buffer));
        const second = this.#allocated(new Uint8Array(new Uint32Array(bytes.map((each) => each.length)).buffer));
        try {
            return use(first, second);
        } finally {
            for (const at of [...addresses, first, second])
                this.#free(at);
        }
    }

    /// The same for items.
    withItems<Result>(items: readonly Item[], use: (address: number) => Result): Result {
        const texts = items.map((item) => this.#encoder.encode(item.text));
        const addresses = texts.map((each) => this.#allocated(each));
        const rows = new DataView(new ArrayBuffer(itemSize * items.length));
        items.forEach((item, at) => {
            rows.setUint32(itemSize * at, addresses[at]!, true);
            rows.setUint32(itemSize * at + 4, texts[at]!.length, true);
            rows.setInt32(itemSize * at + 8, item.kind, true);
            rows.setBigInt64(itemSize * at + 16, BigInt(item.number), true);
        });
        const first = this.#allocated(new Uint8Array(rows.buffer));
        try {
            return use(first);
        } finally {
            for (const at of [...addresses, first])
                this.#free(at);
        }
    }

    #function(name: string): Call {
        return this.#exports[`vanoka_${name}`] as Call;
    }

    #check(name: string, status: number): void {
        if (status !== Status.ok)
            throw new VanokaError(name, status);
    }

    #call(name: string, given: readonly Argument[], places: readonly number[]): number {
        const passed: (number | bigint)[] = [];
        if (this.#isBroken)
            throw new WebAssembly.RuntimeError("the module has trapped before");
        try {
            for (const argument of given)
                this.#pass(argument, passed);
            const result = this.#function(name)(...passed, ...places);
            this.#renewViews();
            return result;
        } catch (problem) {
            this.#isBroken ||= problem instanceof WebAssembly.RuntimeError;
            throw problem;
        } finally {
            this.#used = 0;
            while (this.#taken.length > 0)
                this.#free(this.#taken.pop()!);
        }
    }

    #pass(argument: Argument, passed: (number | bigint)[]): void {
        if (typeof argument === "string")
            this.#passText(argument, passed);
        else if (argument instanceof Float64Array)
            passed.push(this.#put(new Uint8Array(argument.buffer, argument.byteOffset, argument.byteLength)), argument.length / 2);
        else if (argument instanceof Uint8Array)
            passed.push(this.#put(argument), argument.length);
        else
            passed.push(argument);
    }

    /// A UTF-16 unit takes three bytes at most.
    #passText(text: string, passed: (number | bigint)[]): void {
        if (this.#used + 3 * text.length > scratchSize) {
            const bytes = this.#encoder.encode(text);
            passed.push(this.#put(bytes), bytes.length);
            return;
        }
        const at = this.#scratch + this.#used;
        const { written } = this.#encoder.encodeInto(text, this.#bytes.subarray(at, this.#scratch + scratchSize));
        this.#used += written;
        passed.push(at, written);
    }

    /// In the scratch room, doubles at a multiple of eight, or else for the time of the call.
    #put(bytes: Uint8Array): number {
        const start = (this.#used + 7) & ~7;
        if (start + bytes.length <= scratchSize) {
            this.#used = start + bytes.length;
            this.#bytes.set(bytes, this.#scratch + start);
            return this.#scratch + start;
        }
        const at = this.#allocated(bytes);
        this.#taken.push(at);
        return at;
    }

    #allocated(bytes: Uint8Array): number {
        const at = this.#function("alloc")(Math.max(bytes.length, 1));
        this.#renewViews();
        if (at === 0)
            throw new VanokaError("alloc", Status.noMemory);
        this.#bytes.set(bytes, at);
        return at;
    }

    #free(at: number): void {
        if (!this.#isBroken)
            this.#function("free")(at);
    }

    /// Memory that grew has another buffer.
    #renewViews(): void {
        const { buffer } = this.#exports.memory;
        if (this.#bytes.buffer === buffer)
            return;
        this.#bytes = new Uint8Array(buffer);
        this.#view = new DataView(buffer);
    }

    /// Decoded here where it is short, since handing it over costs more than that.
    #textAt(start: number, size: number): string {
        if (size > shortText)
            return this.#decoder.decode(this.#bytes.subarray(start, start + size));
        const bytes = this.#bytes, end = start + size;
        let text = "";
        for (let at = start; at < end;) {
            const first = bytes[at++]!;
            if (first < 0x80)
                text += String.fromCharCode(first);
            else if (first >= 0xe0 && first < 0xf0)
                text += String.fromCharCode(((first & 15) << 12) | ((bytes[at++]! & 63) << 6) | (bytes[at++]! & 63));
            else
                return this.#decoder.decode(bytes.subarray(start, end));
        }
        return text;
    }

    #items(): Item[] {
        const count = this.#function("answer_count")(this.#answer);
        const first = this.#function("answer_items")(this.#answer);
        const items: Item[] = [];
        for (let at = first; at < first + itemSize * count; at += itemSize) {
            const text = this.#view.getUint32(at, true), size = this.#view.getUint32(at + 4, true);
            items.push({
                kind: this.#view.getInt32(at + 8, true),
                text: this.#textAt(text, size),
                number: this.#view.getInt32(at + 20, true) * 2 ** 32 + this.#view.getUint32(at + 16, true),
            });
        }
        return items;
    }
}

/// A handle of the module, released with `release` or, where that is forgotten, when nothing refers to it any more.
export class Handle {
    static readonly #forgotten = new FinalizationRegistry<() => void>((release) => release());
    #release: (() => void) | undefined;

    constructor(readonly module: Module, readonly id: number, what: string) {
        this.#release = () => {
            if (!module.isBroken)
                module.number(`${what}_release`, id);
        };
        Handle.#forgotten.register(this, this.#release, this);
    }

    release(): void {
        Handle.#forgotten.unregister(this);
        this.#release?.();
        this.#release = undefined;
    }
}
