import type { Candidate, Composition, KeyPlace, Lesson } from "../core/index.ts";

/// What the page asks of the worker with the lists. Each question has a number, and gets one answer with it.
export type Question =
    | { readonly what: "find"; readonly word: Composition; readonly limit: number }
    | { readonly what: "decode"; readonly points: Float64Array; readonly keyWidth: number; readonly limit: number }
    | { readonly what: "layout"; readonly keys: readonly KeyPlace[] }
    | { readonly what: "keys"; readonly document: string } ///< the user's own, as they are stored; a damaged document changes nothing
    | { readonly what: "teach"; readonly lesson: Lesson }
    | { readonly what: "export" }
    | { readonly what: "import"; readonly document: string }
    | { readonly what: "erase" }
    | { readonly what: "memory" };

export interface Answers {
    find: Candidate[];
    decode: string[];
    layout: true;
    keys: true;
    teach: Problem | undefined;
    export: string;
    import: Problem | undefined;
    erase: Problem | undefined;
    memory: { readonly module: number };
}

/// Why something was not done: a line of a file that is wrong; or not stored, where there is no line.
export interface Problem {
    readonly line?: number;
    readonly reason: string;
}

export interface Start {
    readonly what: "start";
    readonly module: WebAssembly.Module;
    readonly lists: { readonly words: string; readonly english: string; readonly emoji: string; readonly never: string };
    readonly store: string; ///< the name of the database
}

export type ToWorker = Start | { readonly number: number; readonly question: Question };
export type FromWorker =
    | { readonly number: number; readonly answer: unknown }
    | { readonly number: number; readonly failed: string }
    | { readonly ready: "words" | "strokes" }
    | { readonly problem: string };
