import type { Candidate, CandidateLine, CandidateRequest, Effect, Key, Lesson, Suggesting } from "../core/index.ts";
import { keyTyping } from "./keys.ts";

/// A text field: both replace what is marked.
export interface Target {
    insert(text: string): void;
    mark(text: string): void;
}

export interface Hooks {
    /// Makes typing anew: at first, and when the module has trapped.
    make(): Suggesting;
    taught(lesson: Lesson): void;
    /// Candidates are wanted; they are to be passed to `take`.
    wanted(request: CandidateRequest): void;
    shown(line: CandidateLine): void;
    /// What the field shall do by itself with a key that waited for candidates.
    passed(key: Key): void;
}

const noLine: CandidateLine = { rows: [], highlighted: 0 };

/// Typing into one field: applies what each key does, asks for candidates and passes on what is learnt. A key that
/// depends on candidates which have not come waits for them, with all after it.
export class Writer {
    #typing: Suggesting;
    #keys = ""; // of the composition
    #switches = { suggests: false, learns: false };
    #waiting: Key[] = [];
    #isLineShown = false;

    constructor(readonly target: Target, readonly hooks: Hooks) {
        this.#typing = hooks.make();
    }

    get isComposing(): boolean {
        return this.#keys !== "";
    }

    switch(suggests: boolean, learns: boolean): void {
        this.#switches = { suggests, learns };
        this.#withTyping((typing) => typing.switch(suggests, learns));
        this.#follow();
    }

    /// Whether the key was consumed; otherwise the field handles it after what was done.
    press(key: Key): boolean {
        if (this.#waiting.length > 0 || this.#withTyping((typing) => typing.needsCandidates(key))) {
            this.#waiting.push(key);
            return true;
        }
        return this.#pressNow(key);
    }

    /// The field loses the focus, or its caret has moved.
    end(): void {
        this.#pressWaiting();
        if (this.isComposing)
            this.#apply(this.#withTyping((typing) => typing.end()));
    }

    /// The field has put in what was marked by itself, or taken it away.
    forget(): void {
        this.#waiting = [];
        this.#withTyping((typing) => typing.forget());
        this.#follow();
    }

    choose(row: number): void {
        this.#pressWaiting();
        const { effect, lesson } = this.#withTyping((typing) => typing.choose(row));
        this.#apply(effect, lesson);
    }

    forgetRow(row: number): void {
        const { effect, lesson } = this.#withTyping((typing) => typing.forgetRow(row));
        this.#apply(effect, lesson);
    }

    take(request: number, candidates: readonly Candidate[]): void {
        if (this.#withTyping((typing) => typing.take(request, candidates)))
            this.#showLine();
        this.#pressWaiting();
    }

    /// No candidates will come for now: what waits for them goes on without.
    #pressWaiting(): void {
        const keys = this.#waiting;
        this.#waiting = [];
        for (const key of keys)
            if (!this.#pressNow(key))
                this.hooks.passed(key);
    }

    #pressNow(key: Key): boolean {
        const { consumed, effect, lesson } = this.#withTyping((typing) => typing.press(key));
        this.#apply(effect, lesson);
        return consumed;
    }

    #apply(effect?: Effect, lesson?: Lesson): void {
        if (effect?.kind === "insert")
            this.target.insert(effect.text);
        else if (effect)
            this.target.mark(effect.text);
        if (lesson)
            this.hooks.taught(lesson);
        this.#follow();
    }

    #follow(): void {
        const composition = this.#withTyping((typing) => typing.composition);
        this.#keys = composition?.keys ?? "";
        const request = this.#withTyping((typing) => typing.request);
        if (request)
            this.hooks.wanted(request);
        else
            this.#showLine();
    }

    #showLine(): void {
        const line = this.#withTyping((typing) => typing.line);
        if (line.rows.length === 0 && !this.#isLineShown)
            return;
        this.#isLineShown = line.rows.length > 0;
        this.hooks.shown(this.#isLineShown ? line : noLine);
    }

    /// A module that traps is replaced, and the composition's keys are pressed once more: what is marked stays.
    #withTyping<Result>(use: (typing: Suggesting) => Result): Result {
        try {
            return use(this.#typing);
        } catch (problem) {
            if (!(problem instanceof WebAssembly.RuntimeError))
                throw problem;
            this.#typing = this.hooks.make();
            this.#typing.switch(this.#switches.suggests, this.#switches.learns);
            for (const character of this.#keys)
                this.#typing.press(keyTyping(character));
            return use(this.#typing);
        }
    }
}
