import "fake-indexeddb/auto";
import { expect, test, vi } from "vitest";
import type { Learnt } from "../../src/core/index.ts";
import { LearntStore } from "../../src/words/LearntStore.ts";
import { answerOf, Lists } from "../../src/words/Lists.ts";
import type { Question } from "../../src/words/protocol.ts";
import { loaded } from "./support.ts";

const gedara = "\u0D9C\u0DD9\u0DAF\u0DBB";

test("candidates are found by the user's own keys, whenever they come", async () => {
    const vanoka = await loaded();
    const lists = new Lists(vanoka, { personal: undefined } as unknown as LearntStore, () => undefined);
    lists.candidates = vanoka.candidates({ words: vanoka.words(`${gedara}\t5\n`) });
    const found = async (): Promise<string[]> => {
        const word = { keys: "qqqedara", preview: "-" };
        const rows = await answerOf(lists, { what: "find", word, limit: 6 }) as readonly { readonly text: string }[];
        return rows.map((row) => row.text);
    };
    const own = vanoka.settings(), none = own.document;
    own.add("qqq", "\u0D9C");
    await answerOf(lists, { what: "keys", document: own.document });
    expect(await found()).not.toContain(gedara);
    lists.readReading();
    expect(await found()).toContain(gedara);
    await answerOf(lists, { what: "keys", document: none });
    expect(await found()).not.toContain(gedara);
    await answerOf(lists, { what: "keys", document: own.document });
    expect(await found()).toContain(gedara);
});

const found = expect.objectContaining({ text: gedara, isLearnt: true }) as unknown;
const learning: Question = { what: "teach", lesson: { learn: { keys: "", text: gedara } } };
const finding: Question = { what: "find", word: { keys: "geda", preview: "\u0D9C\u0DD9\u0DAF" }, limit: 6 };
let stores = 0;

async function listsThatKnow(document: string): Promise<Lists> {
    const vanoka = await loaded(), lists = new Lists(vanoka, await LearntStore.open(vanoka, `lists-${++stores}`), () => undefined);
    await answerOf(lists, { what: "import", document });
    return lists;
}

test.each([
    ["a lesson", "", learning, true],
    ["an import", "", { what: "import", document: `${gedara}\t1\n` }, true],
    ["erasing", `${gedara}\t1\n`, { what: "erase" }, false],
] as const)("what is asked right after %s is answered with it", async (_, document, change, isKnown) => {
    const lists = await listsThatKnow(document);
    const [, rows, exported] = await Promise.all([change, finding, { what: "export" } as const].map((each) => answerOf(lists, each)));
    expect(rows).toEqual(isKnown ? expect.arrayContaining([found]) : expect.not.arrayContaining([found]));
    expect((exported as string).includes(gedara)).toBe(isKnown);
});

test("a stroke right after a lesson is compared with it", async () => {
    const lists = await listsThatKnow(""), decode = vi.spyOn(lists.strokes, "decode").mockImplementation(() => [lists.learnt.document]);
    const [, decoded] = await Promise.all([learning, { what: "decode", points: new Float64Array(), keyWidth: 1, limit: 5 } as const].map((each) => answerOf(lists, each)));
    expect(decode).toHaveBeenCalledOnce();
    expect(String(decoded)).toContain(gedara);
});

test("a lesson that fails fails nothing that is asked after it", async () => {
    const lists = await listsThatKnow(`${gedara}\t1\n`);
    const teach = vi.spyOn(Object.getPrototypeOf(lists.vanoka.learnt()) as Learnt, "learn").mockImplementationOnce(() => { throw new Error("no memory"); });
    await expect(answerOf(lists, learning)).rejects.toThrow("no memory");
    teach.mockRestore();
    expect(await answerOf(lists, finding)).toContainEqual(found);
    expect(await answerOf(lists, { what: "export" })).toContain(gedara);
    expect(await answerOf(lists, learning)).toBeUndefined();
});
