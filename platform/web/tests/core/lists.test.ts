import { expect, test } from "vitest";
import type { LearntStore } from "../../src/words/LearntStore.ts";
import { answerOf, Lists } from "../../src/words/Lists.ts";
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

test("what is asked after a lesson is answered with it, however long the browser takes to store it", async () => {
    const vanoka = await loaded(), learnt = vanoka.learnt(), lesson = { learn: { keys: "gedara", text: gedara } };
    let store: () => void = () => undefined;
    const slow = {
        get personal() { return learnt.personal; },
        teach: () => new Promise<void>((resolve) => {
            store = (): void => {
                learnt.learn(lesson.learn);
                resolve();
            };
        }),
    };
    const lists = new Lists(vanoka, slow as unknown as LearntStore, () => undefined);
    const taught = answerOf(lists, { what: "teach", lesson });
    const found = answerOf(lists, { what: "find", word: { keys: "geda", preview: "\u0D9C\u0DD9\u0DAF" }, limit: 6 });
    setTimeout(store); // when an answer that does not wait has been given
    expect(await found).toContainEqual(expect.objectContaining({ text: gedara, isLearnt: true }));
    await taught;
});
