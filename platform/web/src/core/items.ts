/// What the items of an answer are: the kinds of `vanoka.h`.
export const Kind = {
    word: 1, emoji: 2, text: 3, typed: 4, latin: 5, highlighted: 6,
    insert: 10, mark: 11, keys: 12, preview: 13,
    vowel: 20, consonant: 21, sign: 22, display: 23,
    builtIn: 30, added: 31, takenBy: 32,
    keyFree: 40, keyReplaces: 41, keyEmpty: 42, keyNotLetters: 43, keyTooLong: 44, keyAlreadyThere: 45,
    learn: 50, unlearn: 51, forget: 52, refused: 53,
    group: 60, example: 61, note: 62, controlName: 63, message: 64, footnote: 65,
} as const;

export interface Item {
    readonly kind: number;
    readonly text: string;
    readonly number: number;
}

/// How a call went that did not succeed.
export const Status = { ok: 0, badArgument: 1, illFormed: 2, tooLarge: 3, noMemory: 4 } as const;

export class VanokaError extends Error {
    constructor(readonly call: string, readonly status: number) {
        super(`vanoka_${call}: ${["ok", "a bad argument", "ill-formed", "too large", "no memory"][status] ?? status}`);
        this.name = "VanokaError";
    }
}
