import "fake-indexeddb/auto";
import { afterAll, beforeAll, beforeEach, expect, test } from "vitest";
import { Vanoka, type Candidate } from "../../src/core/index.ts";
import { LastingLists, type Making } from "../../src/words/LastingLists.ts";
import { LearntStore } from "../../src/words/LearntStore.ts";
import { Lists } from "../../src/words/Lists.ts";
import type { Question } from "../../src/words/protocol.ts";
import { failing } from "./faults.ts";
import { loaded, moduleBytes } from "./support.ts";
import { TrappingInstances } from "./TrappingInstances.ts";

const amma = "\u0D85\u0DB8\u0DCA\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB", mama = "\u0DB8\u0DB8", mata = "\u0DB8\u0DA7", rata = "\u0DBB\u0DA7";
const before = [`${amma}\t2`, `${mama}\t1`];
const instancesThatTrap = new TrappingInstances();
let compiled: WebAssembly.Module, other: Vanoka; // which never traps

beforeAll(async () => {
    compiled = new WebAssembly.Module(moduleBytes);
    other = await loaded();
    instancesThatTrap.install();
});
afterAll(() => instancesThatTrap.remove());
beforeEach(() => {
    instancesThatTrap.callsAfterTraps = [];
});

const learning = (text: string): Question => ({ what: "teach", lesson: { learn: { keys: "", text } } });
const finding = (keys: string, preview: string): Question => ({ what: "find", word: { keys, preview }, limit: 6 });
const linesOf = (document: string): string[] => document.split("\n").filter((line) => line !== "" && !line.startsWith("#")).sort();
const textsOf = (rows: unknown): string[] => (rows as Candidate[]).map((row) => row.text);

/// What is asked of lists with a database of their own.
class Asked {
    static #databases = 0;
    readonly unread: unknown[] = [];
    readonly lasting: LastingLists;
    loads = 0;

    constructor(making: Partial<Making> = {}, readonly name = `lasting-${++Asked.#databases}`) {
        const read = async (lists: Lists): Promise<void> => {
            const words = lists.vanoka.words(`${gedara}\t5\n`);
            lists.candidates = lists.vanoka.candidates({ words });
        };
        this.lasting = new LastingLists({
            load: () => {
                ++this.loads;
                return Vanoka.load(compiled);
            },
            open: async (vanoka) => {
                const lists = new Lists(vanoka, await LearntStore.open(vanoka, this.name), () => undefined);
                await read(lists);
                return lists;
            },
            read, unread: (problem) => void this.unread.push(problem), ...making,
        });
    }

    ask(question: Question): Promise<unknown> {
        return this.lasting.answer(question);
    }

    async fill(): Promise<void> {
        for (const text of [amma, mama, amma])
            expect(await this.ask(learning(text))).toBeUndefined();
    }

    async words(): Promise<string[]> {
        return linesOf(await this.ask({ what: "export" }) as string);
    }

    /// As another tab reads it.
    async storedWords(): Promise<string[]> {
        return linesOf((await LearntStore.open(other, this.name)).document);
    }
}

async function filled(): Promise<Asked> {
    const asked = new Asked();
    await asked.fill();
    return asked;
}

const acts: readonly [string, Question, readonly string[]][] = [
    ["learning", learning(gedara), [...before, `${gedara}\t1`].sort()],
    ["unlearning", { what: "teach", lesson: { unlearn: { keys: "", text: amma } } }, [`${amma}\t1`, `${mama}\t1`]],
    ["forgetting", { what: "teach", lesson: { forget: mama } }, [`${amma}\t2`, `${mama}\tforgotten`]],
    ["an import", { what: "import", document: `${mama}\t5\n` }, [`${amma}\t2`, `${mama}\t5`]],
    ["erasing", { what: "erase" }, []],
];

test.each(acts.flatMap(([name, question, after]) => [false, true].map((isLate) => [name, isLate ? "after" : "before", question, after, isLate] as const)))(
    "%s is in force and stored once, wherever the module traps, %s it has done that call's work", async (_, _when, question, after, isLate) => {
        for (let call = 0; ; ++call) {
            const asked = await filled(), context = `call ${call}`;
            const hasTrapped = await instancesThatTrap.duringAll({ call, isLate }, async () =>
                expect(await asked.ask(question), context).toBeUndefined());
            expect(await asked.words(), context).toEqual(after);
            expect(await asked.ask(learning(rata)), context).toBeUndefined();
            const all = [...after, `${rata}\t1`].sort();
            expect([await asked.words(), await asked.storedWords()], context).toEqual([all, all]);
            expect([instancesThatTrap.callsAfterTraps, asked.loads], context).toEqual([[], hasTrapped ? 2 : 1]);
            if (!hasTrapped)
                return expect(call).toBeGreaterThan(0);
        }
    });

test("what is asked at once is answered in its order, whichever question the module traps in", async () => {
    for (let call = 0, hasTrapped = true; hasTrapped; ++call) {
        const asked = await filled();
        hasTrapped = await instancesThatTrap.duringAll({ call, isLate: false }, async () => {
            const questions = [learning(gedara), learning(mata), finding("geda", "\u0D9C\u0DD9\u0DAF"), { what: "export" }, { what: "erase" }, learning(rata)] as const;
            const [, , found, exported] = await Promise.all(questions.map((question) => asked.ask(question)));
            expect(found, `call ${call}`).toContainEqual(expect.objectContaining({ text: gedara, isLearnt: true }));
            expect(linesOf(exported as string), `call ${call}`).toEqual([...before, `${gedara}\t1`, `${mata}\t1`].sort());
        });
        expect([await asked.words(), await asked.storedWords()], `call ${call}`).toEqual([[`${rata}\t1`], [`${rata}\t1`]]);
        expect(hasTrapped || call > 5).toBe(true);
    }
});

const trap = (asked: Asked): Promise<boolean> => instancesThatTrap.duringAll({ call: 0, isLate: false }, () => asked.ask({ what: "export" }));

test("what could not be stored is in force after a trap, and stored with the next lesson", async () => {
    const asked = await filled();
    await failing(1, "throws", () => asked.ask(learning(gedara)));
    await failing(1, "throws", () => asked.ask({ what: "teach", lesson: { unlearn: { keys: "", text: mama } } }));
    expect(await trap(asked)).toBe(true);
    expect(await asked.words()).toEqual([`${amma}\t2`, `${gedara}\t1`].sort());
    expect(await asked.storedWords()).toEqual(before);
    expect(await asked.ask(learning(rata))).toBeUndefined();
    expect(await asked.storedWords()).toEqual([`${amma}\t2`, `${gedara}\t1`, `${rata}\t1`].sort());
});

test("what could not be stored outlasts a trap after which nothing can be read, and a document that was empty before it", async () => {
    const asked = await filled();
    await asked.ask({ what: "erase" });
    await failing(1, "throws", () => asked.ask(learning(gedara)));
    expect(await failing(1, "throws", async () => expect(await trap(asked)).toBe(true))).toBe(true);
    expect(await asked.ask(learning(rata))).toBeUndefined();
    expect(await asked.storedWords()).toEqual([`${gedara}\t1`, `${rata}\t1`].sort());
});

test("what could not be stored goes when another tab has erased all before a trap", async () => {
    const asked = await filled();
    await failing(1, "throws", () => asked.ask(learning(gedara)));
    await (await LearntStore.open(other, asked.name)).erase();
    expect(await trap(asked)).toBe(true);
    expect(await asked.words()).toEqual([]);
});

test("without a database, what was learnt and imported outlasts a trap", async () => {
    const { open } = indexedDB, asked = new Asked();
    IDBFactory.prototype.open = () => { throw new DOMException("refused", "SecurityError"); };
    await asked.ask(learning(mama));
    IDBFactory.prototype.open = open;
    await asked.ask({ what: "import", document: `${amma}\t2\n` });
    await asked.ask(learning(rata));
    for (const _ of ["once", "twice"]) {
        expect(await trap(asked)).toBe(true);
        expect(await asked.words()).toEqual([...before, `${rata}\t1`].sort());
    }
});

test("the user's own keys and the layout outlast a trap", async () => {
    const asked = new Asked(), settings = other.settings();
    settings.add("qqq", settings.letters.find(({ display }) => display === "\u0D9C")!.id);
    let latest: Lists | undefined;
    const lasting = new Asked({ read: async (lists) => {
        latest = lists;
        lists.candidates = lists.vanoka.candidates({ words: lists.vanoka.words(`${gedara}\t5\n`) });
        lists.readReading();
    } });
    await lasting.ask({ what: "keys", document: settings.document });
    await lasting.ask({ what: "layout", keys: [{ label: "a", x: 1, y: 2 }] });
    await lasting.ask(learning(amma));
    expect(await trap(lasting)).toBe(true);
    expect(textsOf(await lasting.ask(finding("qqqedara", "-")))).toContain(gedara);
    expect(textsOf(await asked.ask(finding("qqqedara", "-")))).not.toContain(gedara);
    expect(latest!.strokes.places).toEqual([{ label: "a", x: 1, y: 2 }]);
});

test("where another instance has no room for the words, that is said, and what is learnt goes on", async () => {
    const asked = new Asked({ read: async (lists) => {
        await instancesThatTrap.duringAll({ call: 0, isLate: false }, async () => lists.vanoka.words(`${gedara}\t5\n`));
    } });
    await asked.fill();
    expect(await trap(asked)).toBe(true);
    expect(await asked.ask(learning(rata))).toBeUndefined();
    expect(await asked.words()).toEqual([...before, `${rata}\t1`].sort());
    expect([asked.unread.length, asked.loads]).toEqual([1, 3]);
});

test("a module that always traps is made anew once more for each question, and what is not stored is told", async () => {
    const asked = await filled(), all = [...before, `${gedara}\t1`].sort();
    instancesThatTrap.always = true;
    expect(await asked.ask(learning(gedara))).toBeUndefined(); // it was stored first
    await expect(asked.ask(learning(rata))).rejects.toThrow(WebAssembly.RuntimeError);
    instancesThatTrap.always = false;
    expect(asked.loads).toBe(3);
    expect([await asked.words(), await asked.storedWords()]).toEqual([all, all]);
});

test("a module that traps while all is read for the first time is made anew, too", async () => {
    const { name } = await filled();
    for (let call = 0, hasTrapped = true; hasTrapped; ++call) {
        const asked = new Asked({}, name);
        hasTrapped = await instancesThatTrap.duringAll({ call, isLate: false }, async () =>
            expect(await asked.words(), `call ${call}`).toEqual(before));
        expect(hasTrapped || call > 5).toBe(true);
    }
});

test("the first lesson of all is stored once when the module traps in it", async () => {
    for (let call = 0, hasTrapped = true; hasTrapped; ++call) {
        const asked = new Asked();
        hasTrapped = await instancesThatTrap.duringAll({ call, isLate: false }, () => asked.ask(learning(amma)));
        expect([await asked.words(), await asked.storedWords()], `call ${call}`).toEqual([[`${amma}\t1`], [`${amma}\t1`]]);
        expect(hasTrapped || call > 3).toBe(true);
    }
});
