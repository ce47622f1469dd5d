import type { Candidate, CandidateLine, CandidateRequest, Effect, Key, Lesson, Suggesting } from "../core/index.ts";
import { downKey, keyTyping } from "./keys.ts";

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
const mostAttempts = 2; // in one instance of the module and in another

interface Done {
    readonly effect?: Effect | undefined;
    readonly lesson?: Lesson | undefined;
}

/// Typing into one field: applies what each key does, asks for candidates and passes on what is learnt. A key that
/// depends on candidates which have not come waits for them, with all after it.
export class Writer {
    #typing: Suggesting;
    #keys = ""; // of the composition
    #switches = { suggests: false, learns: false };
    #line = noLine; // of the composition, while no candidates are missing
    #asked = 0; // times that candidates were wanted
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
        this.#do((typing) => (typing.switch(suggests, learns), {}));
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
            this.#do((typing) => ({ effect: typing.end() }));
    }

    /// The field has put in what was marked by itself, or taken it away.
    forget(): void {
        this.#waiting = [];
        this.#do((typing) => (typing.forget(), {}));
    }

    choose(row: number): void {
        this.#pressWaiting();
        this.#do((typing) => typing.choose(row));
    }

    forgetRow(row: number): void {
        this.#do((typing) => typing.forgetRow(row));
    }

    /// Those that were not wanted last are dropped: a typing that was made anew counts its requests anew.
    take(request: number, candidates: readonly Candidate[]): void {
        if (request !== this.#asked)
            return;
        const line = this.#withTyping((typing) => (typing.take(typing.request?.number ?? 0, candidates) ? typing.line : undefined));
        if (line) {
            this.#line = line;
            this.#showLine();
        }
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
        return this.#do((typing) => typing.press(key)).consumed;
    }

    /// Applies what is done, when all is known that follows from it: what a trap interrupts is done again from the
    /// beginning, and nothing twice.
    #do<Result extends Done>(use: (typing: Suggesting) => Result): Result {
        const { done, keys, request, line } = this.#withTyping((typing) => {
            const done = use(typing), { composition, request } = typing;
            return { done, keys: composition?.keys ?? "", request, line: request ? noLine : typing.line };
        });
        if (done.effect?.kind === "insert")
            this.target.insert(done.effect.text);
        else if (done.effect)
            this.target.mark(done.effect.text);
        if (done.lesson)
            this.hooks.taught(done.lesson);
        this.#keys = keys;
        this.#line = line;
        if (request)
            this.hooks.wanted({ ...request, number: ++this.#asked });
        else
            this.#showLine();
        return done;
    }

    #showLine(): void {
        const line = this.#line;
        if (line.rows.length === 0 && !this.#isLineShown)
            return;
        this.#isLineShown = line.rows.length > 0;
        this.hooks.shown(this.#isLineShown ? line : noLine);
    }

    /// Does it in another instance of the module, where this one has trapped.
    #withTyping<Result>(use: (typing: Suggesting) => Result): Result {
        for (let attempts = 1; ; ++attempts) {
            try {
                if (this.#typing.module.isBroken)
                    this.#typing = this.#madeAnew();
                return use(this.#typing);
            } catch (problem) {
                if (!(problem instanceof WebAssembly.RuntimeError) || attempts === mostAttempts)
                    throw problem;
            }
        }
    }

    /// The composition's keys are pressed once more, and its line is taken to the same row: what is marked stays.
    #madeAnew(): Suggesting {
        const typing = this.hooks.make(), { suggests, learns } = this.#switches, { rows, highlighted } = this.#line;
        typing.switch(suggests || rows.length > 0, learns);
        for (const character of this.#keys)
            typing.press(keyTyping(character));
        if (rows.length > 0)
            typing.take(typing.request?.number ?? 0, rows);
        for (let row = 0; row < highlighted; ++row)
            typing.press(downKey);
        typing.switch(suggests, learns);
        return typing;
    }
}
