import { Kind, type Item } from "./items.ts";
import { Handle, type Module } from "./module.ts";
import type { Settings } from "./settings.ts";
import { candidatesOf, type Candidate, type CommittedWord, type Composition } from "./typing.ts";

/// A list as it was read from a file.
export type List = string | Uint8Array;

const textsOf = (items: readonly Item[]): string[] => items.map((item) => item.text);

/// Sinhala words: lines "word TAB count".
export class Words extends Handle {
    constructor(module: Module, list: List) {
        super(module, module.create("words", list), "words");
    }

    get size(): number {
        return this.module.number("words_size", this.id);
    }

    get memory(): number {
        return this.module.number("words_memory", this.id);
    }

    /// The words that a text which is being typed may become, best first.
    suggest(text: string, limit: number, personal?: Words): string[] {
        return textsOf(this.module.ask("words_suggest", this.id, personal?.id ?? 0, text, limit));
    }
}

/// English words, and chat words among which Sinhala is usually written.
export class English extends Handle {
    constructor(module: Module, list: List) {
        super(module, module.create("english", list), "english");
    }

    get size(): number {
        return this.module.number("english_size", this.id);
    }

    /// Whether Latin keys stay English although they spell a Sinhala word.
    keeps(word: string, over: string, words: Words, kept = 0, typed = 0): boolean {
        return this.module.place("english_keeps", this.id, word, over, words.id, BigInt(kept), BigInt(typed)) !== 0;
    }
}

/// Emoji by words.
export class Emoji extends Handle {
    constructor(module: Module, list: List) {
        super(module, module.create("emoji", list), "emoji");
    }

    get size(): number {
        return this.module.number("emoji_size", this.id);
    }

    match(word: string): string[] {
        return textsOf(this.module.ask("emoji_match", this.id, word).filter((item) => item.kind === Kind.emoji));
    }
}

/// What candidates may come from; each is optional.
export interface CandidateSources {
    readonly words?: Words;
    readonly english?: English;
    readonly emoji?: Emoji;
    readonly never?: List; ///< words that are never offered, one a line
}

export class Candidates extends Handle {
    static of(module: Module, { words, english, emoji, never }: CandidateSources): Candidates {
        return new Candidates(
            module, module.create("candidates", words?.id ?? 0, english?.id ?? 0, emoji?.id ?? 0, never ?? ""), "candidates");
    }

    /// The same, found by what people mean who follow no scheme, too. `letters`: 0 knows no words but the lists'; 4 and 6
    /// guess others. The keys that `settings` have now are known. Takes as long as reading the lists, and next to nothing
    /// for candidates that have a reading with the same `letters`.
    reading(letters: 0 | 4 | 6, settings?: Settings): Candidates {
        return new Candidates(
            this.module, this.module.place("candidates_reading", this.id, letters, settings?.id ?? 0), "candidates");
    }

    /// What may be meant: what was typed goes first. `limit` is held to 3 … 9.
    find(word: Composition, limit: number, personal?: Personal): Candidate[] {
        return candidatesOf(
            this.module.ask("candidates_find", this.id, personal?.id ?? 0, word.keys, word.preview, limit));
    }
}

/// A snapshot of what was learnt.
export class Personal extends Handle {}

/// What was learnt from one person's writing. Where it is stored is the program's business.
export class Learnt extends Handle {
    constructor(module: Module) {
        super(module, module.create("learnt"), "learnt");
    }

    learn({ keys, text }: CommittedWord): void {
        this.module.run("learnt_learn", this.id, keys, text);
    }

    unlearn({ keys, text }: CommittedWord): void {
        this.module.run("learnt_unlearn", this.id, keys, text);
    }

    forget(word: string): void {
        this.module.run("learnt_forget", this.id, word);
    }

    /// All of it, to be stored or carried elsewhere.
    get document(): string {
        return this.module.ask("learnt_document", this.id)[0]!.text;
    }

    /// Adds what such a document says. The problem, and nothing has changed, when it is none.
    import(document: List): { readonly line: number; readonly reason: string } | undefined {
        const [refused] = this.module.ask("learnt_import", this.id, document);
        return refused && { line: refused.number, reason: refused.text };
    }

    get personal(): Personal {
        return new Personal(this.module, this.module.place("learnt_personal", this.id), "personal");
    }
}
