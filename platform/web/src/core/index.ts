import { Module } from "./module.ts";
import { Settings } from "./settings.ts";
import { Decoder, Counts, Layout, type KeyPlace, type Weights } from "./swipe.ts";
import { Suggesting, Typing } from "./typing.ts";
import { Candidates, Emoji, English, Learnt, Words, type CandidateSources, type List } from "./words.ts";

export { Kind, Status, VanokaError } from "./items.ts";
export * from "./settings.ts";
export * from "./swipe.ts";
export * from "./typing.ts";
export * from "./words.ts";

/// Vanoka: Latin keys to Sinhala text, word lists, candidates, emoji, swiping.
export class Vanoka {
    #builtIn: Settings | undefined;

    private constructor(readonly module: Module) {}

    /// The built-in keys, worked out when they are first asked for.
    get #settings(): Settings {
        return (this.#builtIn ??= new Settings(this.module));
    }

    /// From the compiled or the raw module, from a response that holds it, or from the file beside this one.
    static async load(source?: WebAssembly.Module | BufferSource | Response | PromiseLike<Response>): Promise<Vanoka> {
        return new Vanoka(await Module.from(await bytesOf(source ?? (await beside()))));
    }

    /// Another instance of a compiled module, at once.
    static again(module: WebAssembly.Module): Vanoka {
        return new Vanoka(Module.again(module));
    }

    /// What a text of Latin keys reads as by the built-in keys.
    transliterate(text: string): string {
        return this.#settings.transliterate(text);
    }

    settings(document = ""): Settings {
        const settings = new Settings(this.module);
        settings.load(document);
        return settings;
    }

    typing(settings = this.#settings): Typing {
        return new Typing(settings);
    }

    suggesting(settings = this.#settings): Suggesting {
        return new Suggesting(settings);
    }

    words(list: List): Words {
        return new Words(this.module, list);
    }

    english(list: List): English {
        return new English(this.module, list);
    }

    emoji(list: List): Emoji {
        return new Emoji(this.module, list);
    }

    candidates(sources: CandidateSources): Candidates {
        return Candidates.of(this.module, sources);
    }

    learnt(): Learnt {
        return new Learnt(this.module);
    }

    layout(keys: readonly KeyPlace[]): Layout {
        return new Layout(this.module, keys);
    }

    counts(list: List): Counts {
        return new Counts(this.module, list);
    }

    decoder(lists: readonly List[], weights: Weights = "distance"): Decoder {
        return new Decoder(this.module, lists, weights);
    }
}

type Source = WebAssembly.Module | BufferSource | Response;

async function bytesOf(source: Source | PromiseLike<Response>): Promise<WebAssembly.Module | BufferSource> {
    const given = await source;
    if (!(given instanceof Response))
        return given;
    if (!given.ok)
        throw new Error(`the module cannot be fetched: ${given.status}`);
    return given.arrayBuffer();
}

/// The module of the package, where a file can be read by its address.
async function beside(): Promise<Source> {
    const url = new URL(/* @vite-ignore */ "vanoka.wasm", import.meta.url);
    if (url.protocol !== "file:")
        return fetch(url);
    const files = await import(/* @vite-ignore */ "node:fs/promises");
    return files.readFile(url);
}
