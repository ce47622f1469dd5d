import type { Answers, FromWorker, Question, Start } from "./protocol.ts";

type Waiting = { readonly resolve: (answer: unknown) => void; readonly reject: (reason: Error) => void };

/// The page's end of the worker with the lists. Where there are no workers every question fails, and typing goes on.
export class WordService {
    readonly #waiting = new Map<number, Waiting>();
    #number = 0;
    #worker: Worker | undefined;
    /// What is there: nothing, words, or strokes as well.
    ready = { words: false, strokes: false };
    onchange: () => void = () => undefined;
    onproblem: (reason: string) => void = () => undefined;

    /// Whether anybody answers. That nobody does is told once, as a problem.
    get isThere(): boolean {
        return this.#worker !== undefined;
    }

    start(make: () => Worker, message: Omit<Start, "what">): void {
        try {
            this.#worker = make();
            this.#worker.onmessage = ({ data }: MessageEvent<FromWorker>) => this.#hear(data);
            this.#worker.onerror = () => this.#fail("the lists cannot be used in this browser");
            this.#worker.postMessage({ what: "start", ...message } satisfies Start);
        } catch (problem) {
            this.#fail(String(problem));
        }
    }

    ask<What extends Question["what"]>(question: Extract<Question, { what: What }>): Promise<Answers[What]> {
        const number = ++this.#number;
        return new Promise<unknown>((resolve, reject) => {
            if (!this.#worker)
                return reject(new Error("there are no lists"));
            this.#waiting.set(number, { resolve, reject });
            return this.#worker.postMessage({ number, question });
        }) as Promise<Answers[What]>;
    }

    #hear(message: FromWorker): void {
        if ("ready" in message) {
            this.ready[message.ready] = true;
            this.onchange();
        } else if ("problem" in message) {
            this.ready = { words: false, strokes: false };
            this.onproblem(message.problem);
        } else {
            const waiting = this.#waiting.get(message.number);
            this.#waiting.delete(message.number);
            if ("failed" in message)
                waiting?.reject(new Error(message.failed));
            else
                waiting?.resolve(message.answer);
        }
    }

    #fail(reason: string): void {
        this.#worker?.terminate();
        this.#worker = undefined;
        for (const { reject } of this.#waiting.values())
            reject(new Error(reason));
        this.#waiting.clear();
        this.onproblem(reason);
    }
}
