import type { CommittedWord } from "../core/index.ts";
import type { EditableField } from "../field/EditableField.ts";
import { deleteKey, keyTyping, returnKey } from "../field/keys.ts";
import type { Writer } from "../field/Writer.ts";
import type { Point } from "./Touches.ts";
import type { Typist } from "./TouchKeyboard.ts";

export interface SwipeHooks {
    /// The words that a stroke may have meant, best first.
    decode(points: readonly Point[]): Promise<string[]>;
    /// Readings to choose from, in place of the candidates of typing; none: no more.
    offer(words: readonly string[]): void;
    learn(word: CommittedWord): void;
    unlearn(word: CommittedWord): void;
}

interface Swiped {
    readonly words: readonly string[];
    readonly put: string; ///< as it stands in the text, with its spaces
    readonly word: CommittedWord;
    isTakenBack: boolean;
}

const takesSpaceBack = /^[.,!?;:)\]}\u0DF4\u2026\u201D\u2019]$/;
const opensWithoutSpace = /[\s([{\u201C\u2018]$/;

/// What the touch keyboard does to a field: as its keys do, and swiped words with the space after them.
export class FieldTypist implements Typist {
    #swiped: Swiped | undefined;
    #isDecoding = false;
    #later: (() => void)[] = [];

    constructor(readonly field: EditableField, readonly writer: Writer, readonly hooks: SwipeHooks) {}

    type(character: string): void {
        this.#inOrder(() => {
            const swiped = this.#forgetSwipe();
            if (swiped && !swiped.isTakenBack) {
                if (character === " ")
                    return; // it is there
                if (takesSpaceBack.test(character))
                    this.field.replaceBefore(1, "");
            }
            this.#press(character);
        });
    }

    typeKeys(keys: string): void {
        this.#inOrder(() => {
            this.#forgetSwipe();
            for (const character of keys)
                this.#press(character);
        });
    }

    delete(): void {
        this.#inOrder(() => {
            if (this.#swiped && !this.#swiped.isTakenBack)
                return this.#takeBack();
            this.#forgetSwipe();
            if (!this.writer.press(deleteKey))
                this.field.deleteBackward();
        });
    }

    breakLine(): void {
        this.#inOrder(() => {
            this.#forgetSwipe();
            if (!this.writer.press(returnKey))
                this.field.breakLine();
        });
    }

    moveCaret(characters: number): void {
        this.#inOrder(() => {
            this.#forgetSwipe();
            this.writer.end();
            this.field.moveCaret(characters);
        });
    }

    /// What comes after a stroke waits for its word.
    swipe(points: readonly Point[]): void {
        this.#inOrder(() => {
            this.#forgetSwipe();
            this.writer.end();
            this.#isDecoding = true;
            this.hooks.decode(points).then((words) => this.#put(words, 0), () => undefined).finally(() => {
                this.#isDecoding = false;
                this.#goOn();
            });
        });
    }

    /// Another reading of the last stroke.
    choose(at: number): void {
        const swiped = this.#swiped;
        if (!swiped)
            return;
        if (!swiped.isTakenBack)
            this.#takeBack();
        this.#put(swiped.words, at);
    }

    /// The text has changed in another way.
    changed(): void {
        this.#forgetSwipe();
    }

    #press(character: string): void {
        if (!this.writer.press(keyTyping(character)))
            this.field.insert(character);
    }

    #put(words: readonly string[], at: number): void {
        const chosen = words[at];
        if (chosen === undefined)
            return;
        const { before } = this.field, gap = before === "" || opensWithoutSpace.test(before) ? "" : " ";
        const put = `${gap}${chosen} `, word = { keys: /^[a-z]+$/i.test(chosen) ? chosen : "", text: chosen };
        this.field.insert(put);
        this.#swiped = { words, put, word, isTakenBack: false };
        this.hooks.learn(word);
        this.hooks.offer(words);
    }

    #takeBack(): void {
        const swiped = this.#swiped!;
        this.field.replaceBefore(swiped.put.length, "");
        swiped.isTakenBack = true;
        this.hooks.unlearn(swiped.word);
        this.hooks.offer(swiped.words);
    }

    #forgetSwipe(): Swiped | undefined {
        const swiped = this.#swiped;
        this.#swiped = undefined;
        if (swiped)
            this.hooks.offer([]);
        return swiped;
    }

    #inOrder(act: () => void): void {
        if (this.#isDecoding)
            this.#later.push(act);
        else
            act();
    }

    #goOn(): void {
        while (!this.#isDecoding && this.#later.length > 0)
            this.#later.shift()!();
    }
}
