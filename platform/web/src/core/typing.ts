import { Kind, type Item } from "./items.ts";
import { Handle } from "./module.ts";
import type { Settings } from "./settings.ts";

/// A key that goes down: its code, the modifiers that make it a shortcut, and what it types.
export interface Key {
    readonly code: number;
    readonly modifiers: number;
    readonly characters: string;
}

export const KeyCode = { space: 49, delete: 51, escape: 53, other: 0xffff } as const;
export const Modifier = { shift: 1 << 17, control: 1 << 18, option: 1 << 19, command: 1 << 20 } as const;
/// What keys without a character of their own type.
export const FunctionKey = {
    up: "\uF700", down: "\uF701", left: "\uF702", right: "\uF703", f1: "\uF704", insert: "\uF727",
    deleteForward: "\uF728", home: "\uF729", end: "\uF72B", pageUp: "\uF72C", pageDown: "\uF72D",
} as const;

/// A text to put in for good, or to show as marked, in place of what is marked.
export interface Effect {
    readonly kind: "insert" | "mark";
    readonly text: string;
}

export interface Composition {
    readonly keys: string;
    readonly preview: string;
}

/// A word that was put in with these keys.
export interface CommittedWord {
    readonly keys: string;
    readonly text: string;
}

export interface Lesson {
    readonly learn?: CommittedWord;
    readonly unlearn?: CommittedWord;
    readonly forget?: string;
}

/// What a key or a choice does.
export interface Step {
    readonly consumed: boolean; ///< false: the field handles the key after the effect
    readonly effect?: Effect;
    readonly lesson?: Lesson;
}

export type CandidateKind = "typed" | "word" | "latin" | "emoji";
export interface Candidate {
    readonly text: string;
    readonly kind: CandidateKind;
    readonly isLearnt: boolean;
}

export interface CandidateLine {
    readonly rows: readonly Candidate[];
    readonly highlighted: number;
}

export interface CandidateRequest extends Composition {
    readonly number: number;
}

const kinds: readonly (readonly [number, CandidateKind])[] =
    [[Kind.typed, "typed"], [Kind.word, "word"], [Kind.latin, "latin"], [Kind.emoji, "emoji"]];
const kindOfItem = new Map(kinds), itemOfKind = new Map(kinds.map(([item, kind]) => [kind, item]));

export function candidatesOf(items: readonly Item[]): Candidate[] {
    return items.flatMap(({ kind, text, number }) => {
        const known = kindOfItem.get(kind);
        return known ? [{ text, kind: known, isLearnt: number !== 0 }] : [];
    });
}

function effectOf(items: readonly Item[]): Effect | undefined {
    const [item] = items;
    if (item?.kind === Kind.insert)
        return { kind: "insert", text: item.text };
    return item?.kind === Kind.mark ? { kind: "mark", text: item.text } : undefined;
}

function lessonOf(items: readonly Item[]): Lesson | undefined {
    for (const [at, { kind, text }] of items.entries()) {
        const word = { text, keys: items[at + 1]?.text ?? "" };
        if (kind === Kind.learn)
            return { learn: word };
        if (kind === Kind.unlearn)
            return { unlearn: word };
        if (kind === Kind.forget)
            return { forget: text };
    }
    return undefined;
}

function stepOf(consumed: boolean, items: readonly Item[]): Step {
    const effect = effectOf(items), lesson = lessonOf(items);
    return { consumed, ...(effect && { effect }), ...(lesson && { lesson }) };
}

function compositionOf([keys, preview]: readonly Item[]): Composition | undefined {
    return keys && preview && { keys: keys.text, preview: preview.text };
}

/// Typing in one field by the keys of some settings.
abstract class AnyTyping extends Handle {
    constructor(settings: Settings, readonly what: string) {
        super(settings.module, settings.module.create(what, settings.id), what);
    }

    press({ code, modifiers, characters }: Key): Step {
        const [consumed, items] = this.module.press(`${this.what}_press`, this.id, code, modifiers, characters);
        return stepOf(consumed, items);
    }

    /// Ends the composition with what is marked: the field has lost the focus, or its caret has moved.
    end(): Effect | undefined {
        return effectOf(this.module.ask(`${this.what}_end`, this.id));
    }

    /// Ends the composition whose marked text the field has put in or taken away by itself, and returns it.
    forget(): string {
        return this.module.ask(`${this.what}_forget`, this.id)[0]!.text;
    }

    get composition(): Composition | undefined {
        return compositionOf(this.module.ask(`${this.what}_composition`, this.id));
    }
}

export class Typing extends AnyTyping {
    constructor(settings: Settings) {
        super(settings, "typing");
    }

    /// Ends the composition with another text in its place.
    choose(text: string): Effect | undefined {
        return effectOf(this.module.ask("typing_choose", this.id, text));
    }
}

/// Typing with a line of candidates under it. Suggests and learns nothing until it is told to.
export class Suggesting extends AnyTyping {
    constructor(settings: Settings) {
        super(settings, "suggesting");
    }

    switch(suggests: boolean, learns: boolean): void {
        this.module.run("suggesting_switch", this.id, suggests ? 1 : 0, learns ? 1 : 0);
    }

    /// True when what the key does depends on candidates that were asked for and have not come.
    needsCandidates({ code, modifiers, characters }: Key): boolean {
        return this.module.place("suggesting_needs", this.id, code, modifiers, characters) !== 0;
    }

    choose(row: number): Step {
        return stepOf(true, this.module.ask("suggesting_choose", this.id, row));
    }

    forgetRow(row: number): Step {
        return stepOf(true, this.module.ask("suggesting_forget_row", this.id, row));
    }

    /// What candidates are missing for.
    get request(): CandidateRequest | undefined {
        const items = this.module.ask("suggesting_request", this.id), word = compositionOf(items);
        return word && { ...word, number: items[0]!.number };
    }

    /// False, and they are dropped, when the request is not the newest.
    take(request: number, candidates: readonly Candidate[]): boolean {
        const items = candidates.map(({ text, kind, isLearnt }) =>
            ({ text, kind: itemOfKind.get(kind)!, number: isLearnt ? 1 : 0 }));
        return this.module.withItems(items, (rows) =>
            this.module.place("suggesting_take", this.id, BigInt(request), rows, items.length) !== 0);
    }

    get line(): CandidateLine {
        const items = this.module.ask("suggesting_line", this.id);
        const at = items.findIndex((item) => item.kind === Kind.highlighted);
        return { rows: candidatesOf(items), highlighted: Math.max(at - 1, 0) };
    }
}
