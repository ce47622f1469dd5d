import type { Candidates, Settings, Vanoka } from "../core/index.ts";
import type { LearntStore } from "./LearntStore.ts";
import type { Answers, Problem, Question, Start } from "./protocol.ts";
import { Strokes } from "./Strokes.ts";

/// How many letters tell how likely the next one of an unlisted word is: six would take megabytes more.
const lettersBefore = 4;

/// The lists in one instance of the module, what was learnt, and what is asked of them.
export class Lists {
    candidates: Candidates;
    readonly strokes: Strokes;
    #keys: Settings | undefined; // the user's own
    #keysDocument: string | undefined;
    #hasReading = false;

    /// `taught` tells others with the same store.
    constructor(readonly vanoka: Vanoka, readonly learnt: LearntStore, readonly taught: () => void) {
        this.candidates = vanoka.candidates({});
        this.strokes = new Strokes(vanoka, learnt);
    }

    get isBroken(): boolean {
        return this.vanoka.module.isBroken;
    }

    /// Those that take over in another instance of the module: with what was learnt and told, and without words until
    /// these are read.
    async inAnother(vanoka: Vanoka): Promise<Lists> {
        await this.learnt.moveTo(vanoka);
        const lists = new Lists(vanoka, this.learnt, this.taught);
        if (this.#keysDocument !== undefined)
            lists.adoptKeys(this.#keysDocument);
        if (this.strokes.places)
            lists.strokes.adopt(this.strokes.places);
        return lists;
    }

    /// What candidates come from. What is returned makes them ready for strokes.
    async readWords(lists: Start["lists"]): Promise<() => void> {
        const [words, english, emoji, never] = await Promise.all([lists.words, lists.english, lists.emoji, lists.never].map(listAt));
        const { vanoka } = this;
        const sources = { words: vanoka.words(words!), english: vanoka.english(english!), emoji: vanoka.emoji(emoji!) };
        this.candidates = vanoka.candidates({ ...sources, never: never! });
        for (const source of Object.values(sources))
            source.release(); // the candidates keep them
        return () => this.strokes.read([words!, english!], never!);
    }

    /// Candidates are found by what people mean who follow no scheme, from then on.
    readReading(): void {
        const before = this.candidates;
        this.candidates = before.reading(lettersBefore, this.#keys);
        before.release();
        this.#hasReading = true;
    }

    /// By what a question asks. What was taught, imported or erased before it is in its answer.
    readonly answers: { [What in Question["what"]]: (question: Extract<Question, { what: What }>) => Answers[What] | Promise<Answers[What]> } = {
        find: async ({ word, limit }) => {
            await this.learnt.settled;
            return this.candidates.find(word, limit, this.learnt.personal);
        },
        decode: async ({ points, keyWidth, limit }) => {
            await this.learnt.settled;
            return this.strokes.decode(points, keyWidth, limit);
        },
        layout: ({ keys }) => {
            this.strokes.adopt(keys);
            return true;
        },
        keys: ({ document }) => this.adoptKeys(document),
        teach: ({ lesson }) => this.#told(this.learnt.teach(lesson)),
        export: async () => {
            await this.learnt.settled;
            return this.learnt.document;
        },
        import: ({ document }) => this.#told(this.learnt.import(document)),
        erase: () => this.#told(this.learnt.erase()),
        memory: () => ({ module: this.vanoka.module.memory }),
    };

    async #told(change: Promise<Problem | undefined>): Promise<Problem | undefined> {
        const problem = await change;
        this.taught();
        return problem;
    }

    /// The keys by which candidates are found from now on.
    adoptKeys(document: string): true {
        this.#keysDocument = document;
        this.#keys ??= this.vanoka.settings();
        this.#keys.load(document);
        if (this.#hasReading)
            this.readReading();
        return true;
    }
}

async function listAt(url: string): Promise<Uint8Array> {
    const response = await fetch(url);
    if (!response.ok)
        throw new Error(`a list cannot be fetched: ${response.status}`);
    return new Uint8Array(await response.arrayBuffer());
}

/// The answer to any question.
export async function answerOf(lists: Lists, question: Question): Promise<unknown> {
    const give = lists.answers[question.what] as (question: Question) => unknown;
    return give(question);
}
