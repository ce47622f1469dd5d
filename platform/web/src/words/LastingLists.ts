import type { Vanoka } from "../core/index.ts";
import { answerOf, type Lists } from "./Lists.ts";
import type { Question } from "./protocol.ts";

const mostAttempts = 2; // in one instance of the module and in another

/// How lists come to be.
export interface Making {
    /// An instance of the module.
    load(): Promise<Vanoka>;
    /// Lists in the first one, as far as questions wait for them.
    open(vanoka: Vanoka): Promise<Lists>;
    /// All words, in one that takes over.
    read(lists: Lists): Promise<void>;
    /// They cannot be read there. What is learnt goes on without them.
    unread(problem: unknown): void;
}

/// Lists that outlast a trap of the module, which can only come of a lack of memory: another instance takes over, with
/// what was learnt, and what was asked is asked once more. One question is answered after the other: those that a trap
/// concerns would overtake each other.
export class LastingLists {
    #lists: Lists | undefined;
    #turn: Promise<unknown> = Promise.resolve();

    constructor(readonly making: Making) {}

    /// Makes them before anything is asked. If they cannot be made, each question tries again.
    begin(): void {
        this.#inTurn(() => this.#sound()).catch(() => undefined);
    }

    answer(question: Question): Promise<unknown> {
        return this.#inTurn(() => this.#answerNow(question));
    }

    #inTurn<Result>(act: () => Promise<Result>): Promise<Result> {
        const result = this.#turn.then(act);
        this.#turn = result.catch(() => undefined);
        return result;
    }

    async #answerNow(question: Question): Promise<unknown> {
        for (let attempts = 1; ; ++attempts) {
            try {
                return await answerOf(await this.#sound(), question);
            } catch (problem) {
                if (!(problem instanceof WebAssembly.RuntimeError) || attempts === mostAttempts)
                    throw problem;
            }
        }
    }

    async #sound(): Promise<Lists> {
        if (!this.#lists)
            this.#lists = await this.making.open(await this.making.load());
        else if (this.#lists.isBroken)
            this.#lists = await this.#inAnother(this.#lists);
        return this.#lists;
    }

    /// Where there is no room for the words, there is for what is learnt.
    async #inAnother(before: Lists): Promise<Lists> {
        const { making } = this, lists = await before.inAnother(await making.load());
        try {
            await making.read(lists);
        } catch (problem) {
            making.unread(problem);
        }
        return lists.isBroken ? before.inAnother(await making.load()) : lists;
    }
}
