import { Kind, type Item } from "./items.ts";
import { Handle, type Module } from "./module.ts";
import { VanokaError, Status } from "./items.ts";

export type Group = "vowel" | "consonant" | "sign";

export interface Letter {
    readonly id: string;
    readonly group: Group;
    readonly display: string; ///< a sign stands on a dotted circle
    readonly isCustomized: boolean;
}

export interface KeyState {
    readonly key: string;
    readonly isAdded: boolean;
    readonly isOn: boolean;
    readonly takenBy?: string; ///< the id of the letter that it types instead
}

/// What adding a key would meet; `problem` tells a person in English why it cannot be added.
export interface KeyCheck {
    readonly outcome: "free" | "replaces" | "empty" | "notLetters" | "tooLong" | "alreadyThere";
    readonly replaces?: string;
    readonly problem?: string;
}

export interface LongPressLetter {
    readonly letter: Letter;
    readonly keys: string;
}

/// What an editor of one letter says, in English.
export interface EditorTexts {
    readonly group: string;
    readonly example: string;
    readonly isTyped: boolean; ///< some key types the letter
    readonly rows: readonly { readonly state: KeyState; readonly note?: string; readonly controlName: string }[];
    readonly message: string;
    readonly isAccepted: boolean; ///< the draft can be added
    readonly footnote: string;
}

const groups = new Map<number, Group>([[Kind.vowel, "vowel"], [Kind.consonant, "consonant"], [Kind.sign, "sign"]]);
const outcomes = new Map<number, KeyCheck["outcome"]>([
    [Kind.keyFree, "free"], [Kind.keyReplaces, "replaces"], [Kind.keyEmpty, "empty"],
    [Kind.keyNotLetters, "notLetters"], [Kind.keyTooLong, "tooLong"], [Kind.keyAlreadyThere, "alreadyThere"],
]);

function lettersOf(items: readonly Item[]): Letter[] {
    return items.flatMap((item, at) => {
        const group = groups.get(item.kind);
        return group ? [{ id: item.text, group, display: items[at + 1]!.text, isCustomized: item.number !== 0 }] : [];
    });
}

function keysOf(items: readonly Item[]): KeyState[] {
    return items.flatMap((item, at) => {
        if (item.kind !== Kind.builtIn && item.kind !== Kind.added)
            return [];
        const next = items[at + 1];
        const state = { key: item.text, isAdded: item.kind === Kind.added, isOn: item.number !== 0 };
        return [next?.kind === Kind.takenBy ? { ...state, takenBy: next.text } : state];
    });
}

function checkOf([item]: readonly Item[]): KeyCheck {
    const outcome = outcomes.get(item!.kind) ?? "notLetters";
    if (outcome === "free")
        return { outcome };
    return outcome === "replaces" ? { outcome, replaces: item!.text } : { outcome, problem: item!.text };
}

function editorOf(items: readonly Item[]): EditorTexts {
    const one = (kind: number): Item => items.find((item) => item.kind === kind)!;
    const rows: EditorTexts["rows"][number][] = [];
    let row: Item[] = [];
    for (const item of items.slice(2, -2)) {
        row.push(item);
        if (item.kind !== Kind.controlName)
            continue;
        const note = row.find((each) => each.kind === Kind.note)?.text;
        const texts = { state: keysOf(row)[0]!, controlName: item.text };
        rows.push(note === undefined ? texts : { ...texts, note });
        row = [];
    }
    const example = one(Kind.example), message = one(Kind.message);
    return {
        group: one(Kind.group).text, example: example.text, isTyped: example.number !== 0, rows,
        message: message.text, isAccepted: message.number !== 0, footnote: one(Kind.footnote).text,
    };
}

/// Which keys type which letters. Typing made from it reads its next key by what is in force then.
export class Settings extends Handle {
    constructor(module: Module) {
        super(module, module.create("settings"), "settings");
    }

    /// Adopts a stored document; empty means the built-in keys. False when it does not decode: the built-in keys are
    /// in force then, and whoever stores documents should keep a copy of this one before the next edit.
    load(document: string): boolean {
        try {
            this.module.run("settings_load", this.id, document);
            return true;
        } catch (problem) {
            if (problem instanceof VanokaError && problem.status === Status.illFormed)
                return false;
            throw problem;
        }
    }

    /// To be stored; empty when nothing is.
    get document(): string {
        return this.module.ask("settings_document", this.id)[0]!.text;
    }

    get letters(): Letter[] {
        return lettersOf(this.module.ask("settings_letters", this.id));
    }

    keys(letter: string): KeyState[] {
        return keysOf(this.module.ask("settings_keys", this.id, letter));
    }

    check(key: string, letter: string): KeyCheck {
        return checkOf(this.module.ask("settings_check", this.id, key, letter));
    }

    add(key: string, letter: string): KeyCheck {
        return checkOf(this.module.ask("settings_add", this.id, key, letter));
    }

    remove(key: string): void {
        this.module.run("settings_remove", this.id, key);
    }

    setBuiltIn(key: string, isOn: boolean): void {
        this.module.run("settings_set_built_in", this.id, key, isOn ? 1 : 0);
    }

    reset(): void {
        this.module.run("settings_reset", this.id);
    }

    editor(letter: string, draft = ""): EditorTexts {
        return editorOf(this.module.ask("settings_editor", this.id, letter, draft));
    }

    /// The letters that a key may stand for while it is held down, likeliest first.
    longPress(key: string): LongPressLetter[] {
        const items = this.module.ask("settings_long_press", this.id, key);
        const keys = items.filter((item) => item.kind === Kind.keys);
        return lettersOf(items).map((letter, at) => ({ letter, keys: keys[at]!.text }));
    }

    /// What a whole text of Latin keys reads as.
    transliterate(text: string): string {
        return this.module.ask("settings_transliterate", this.id, text)[0]!.text;
    }
}
