/// The lists, off the page's own thread: candidates as soon as the words are there, strokes a little later.
import { Vanoka, type Candidates, type Decoder, type KeyPlace, type Layout } from "../core/index.ts";
import { LearntStore } from "./LearntStore.ts";
import type { Answers, FromWorker, Question, Start, ToWorker } from "./protocol.ts";

const say = (message: FromWorker): void => postMessage(message);

class Lists {
    candidates: Candidates;
    decoder: Decoder | undefined;
    layout: Layout | undefined;
    #forgotten: Promise<unknown> = Promise.resolve(); // a word that is being forgotten is offered no more

    constructor(readonly vanoka: Vanoka, readonly learnt: LearntStore) {
        this.candidates = vanoka.candidates({});
    }

    async read({ lists }: Start): Promise<void> {
        const [words, english, emoji] = await Promise.all([lists.words, lists.english, lists.emoji].map(listAt));
        const { vanoka } = this;
        const sources = { words: vanoka.words(words!), english: vanoka.english(english!), emoji: vanoka.emoji(emoji!) };
        this.candidates = vanoka.candidates(sources);
        for (const source of Object.values(sources))
            source.release(); // the candidates keep them
        say({ ready: "words" });
        await new Promise((resolve) => setTimeout(resolve)); // what was asked meanwhile goes first
        this.decoder = vanoka.decoder([words!, english!]);
        say({ ready: "strokes" });
    }

    /// By what a question asks.
    readonly answers: { [What in Question["what"]]: (question: Extract<Question, { what: What }>) => Answers[What] | Promise<Answers[What]> } = {
        find: async ({ word, limit }) => {
            await this.#forgotten;
            return this.candidates.find(word, limit, this.learnt.personal);
        },
        decode: ({ points, keyWidth, limit }) =>
            this.decoder && this.layout ? this.decoder.decode(points, this.layout, keyWidth, limit) : [],
        layout: ({ keys }) => this.#adopt(keys),
        teach: async ({ lesson }) => {
            const taught = this.learnt.teach(lesson);
            if (lesson.forget !== undefined)
                this.#forgotten = taught;
            const problem = await taught;
            others.postMessage("taught");
            return problem;
        },
        export: () => this.learnt.document,
        import: async ({ document }) => {
            const problem = await this.learnt.import(document);
            others.postMessage("taught");
            return problem;
        },
        erase: async () => {
            const problem = await this.learnt.erase();
            others.postMessage("taught");
            return problem;
        },
        memory: () => ({ module: this.vanoka.module.memory }),
    };

    #adopt(keys: readonly KeyPlace[]): true {
        this.layout?.release();
        this.layout = this.vanoka.layout(keys);
        return true;
    }
}

async function listAt(url: string): Promise<Uint8Array> {
    const response = await fetch(url);
    if (!response.ok)
        throw new Error(`a list cannot be fetched: ${response.status}`);
    return new Uint8Array(await response.arrayBuffer());
}

/// Other tabs with the same store.
const others = new BroadcastChannel("vanoka-learnt");
let started: Promise<Lists> | undefined;

async function start(message: Start): Promise<Lists> {
    const vanoka = await Vanoka.load(message.module);
    const lists = new Lists(vanoka, await LearntStore.open(vanoka, message.store));
    others.onmessage = () => void lists.learnt.refresh();
    lists.read(message).catch((problem: unknown) => say({ problem: String(problem) }));
    return lists;
}

async function answer(number: number, question: Question): Promise<void> {
    try {
        const { answers } = (await started)!;
        const give = answers[question.what] as (question: Question) => unknown;
        say({ number, answer: await give(question) });
    } catch (problem) {
        say({ number, failed: String(problem) });
    }
}

onmessage = ({ data }: MessageEvent<ToWorker>) => {
    if ("question" in data)
        void answer(data.number, data.question);
    else
        started = start(data);
};
