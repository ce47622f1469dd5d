import { expect, test } from "vitest";
import type { Lesson } from "../../src/core/index.ts";
import { LearntStore } from "../../src/words/LearntStore.ts";
import type { Problem } from "../../src/words/protocol.ts";
import { failing, type How } from "./faults.ts";
import { loaded } from "./support.ts";

const amma = "\u0D85\u0DB8\u0DCA\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB", mama = "\u0DB8\u0DB8", mata = "\u0DB8\u0DA7", rata = "\u0DBB\u0DA7";
const vanoka = await loaded();
const learning = (text: string): Lesson => ({ learn: { keys: "", text } });

let databases = 0;
const newName = (): string => `learnt-${++databases}`;
const opened = (name: string): Promise<LearntStore> => LearntStore.open(vanoka, name);
const wordsOf = (store: LearntStore): string[] => store.document.split("\n").filter((line) => line !== "" && !line.startsWith("#")).sort();
const storedIn = async (name: string): Promise<string[]> => wordsOf(await opened(name));

const result = <Type>(request: IDBRequest<Type>): Promise<Type> =>
    new Promise((resolve) => { request.onsuccess = () => resolve(request.result); });

/// Everything that lies in the database.
async function valuesIn(name: string): Promise<{ snapshot: unknown[]; changes: unknown[] }> {
    const transaction = (await result(indexedDB.open(name))).transaction(["snapshot", "changes"]);
    const [snapshot, changes] = await Promise.all(["snapshot", "changes"].map((each) => result(transaction.objectStore(each).getAll())));
    return { snapshot: snapshot!, changes: changes! };
}

const before = [`${amma}\t2`, `${mama}\t1`];
async function filled(name: string): Promise<LearntStore> {
    const store = await opened(name);
    for (const text of [amma, mama, amma])
        expect(await store.teach(learning(text))).toBeUndefined();
    expect(wordsOf(store)).toEqual(before);
    return store;
}

interface Act {
    readonly name: string;
    readonly perform: (store: LearntStore) => Promise<Problem | undefined>;
    readonly after: readonly string[];
    readonly isLesson?: true; ///< and holds until the page is closed, if it cannot be stored
}

const acts: readonly Act[] = [
    { name: "learn", perform: (store) => store.teach(learning(gedara)), after: [...before, `${gedara}\t1`].sort(), isLesson: true },
    { name: "unlearn", perform: (store) => store.teach({ unlearn: { keys: "", text: amma } }), after: [`${amma}\t1`, `${mama}\t1`], isLesson: true },
    { name: "forget", perform: (store) => store.teach({ forget: mama }), after: [`${amma}\t2`, `${mama}\tforgotten`], isLesson: true },
    { name: "import", perform: (store) => store.import(`${mama}\t5\n`), after: [`${amma}\t2`, `${mama}\t5`] },
    { name: "erase", perform: (store) => store.erase(), after: [] },
];

/// Whether there was a call that could fail.
async function holdsWhen(call: number, how: How, { perform, after, isLesson }: Act): Promise<boolean> {
    const name = newName(), store = await filled(name);
    let problem: Problem | undefined;
    const hasFailed = await failing(call, how, async () => { problem = await perform(store); });
    const known = problem && !isLesson ? before : after, stored = problem ? before : after, context = `${how} at ${call}`;
    expect(problem !== undefined, `${context}: told`).toBe(hasFailed);
    expect(wordsOf(store), `${context}: known`).toEqual(known);
    const other = await opened(name);
    expect(wordsOf(other), `${context}: stored, if that was told`).toEqual(stored);
    await other.teach(learning(mata));
    await store.refresh();
    expect(wordsOf(store), `${context}: known once, with another tab's lesson`).toEqual([...known, `${mata}\t1`].sort());
    expect(await store.teach(learning(rata)), `${context}: the next lesson is stored`).toBeUndefined();
    expect(wordsOf(store), `${context}: known with the next lesson`).toEqual([...known, `${mata}\t1`, `${rata}\t1`].sort());
    expect(await storedIn(name), `${context}: stored with the next lesson`).toEqual(wordsOf(store));
    await other.teach({ forget: rata });
    await store.refresh();
    expect(wordsOf(store), `${context}: the same in both tabs`).toEqual(wordsOf(other));
    return hasFailed;
}

test.each(acts.flatMap((act) => [[act.name, "throws", act], [act.name, "aborts", act]] as const))(
    "%s: nothing is lost, doubled or told wrongly when the storage %s, whenever it does", async (_, how, act) => {
        let call = 1;
        while (await holdsWhen(call, how, act))
            ++call;
        expect(call).toBeGreaterThan(4); // reading three times, and writing
    });

test("a word that is forgotten is in nothing that is stored but what is never learnt again", async () => {
    const name = newName(), store = await filled(name);
    await store.teach({ forget: mama });
    const { snapshot, changes } = await valuesIn(name);
    expect(changes).toEqual([]);
    expect(snapshot.join().split(mama).length - 1).toBe(1);
});

test("five hundred changes become a document", async () => {
    const name = newName(), store = await filled(name);
    const changes = (await result(indexedDB.open(name))).transaction("changes", "readwrite").objectStore("changes");
    for (let at = 4; at < 500; ++at)
        changes.add({ lesson: learning(mata) });
    expect((await valuesIn(name)).changes).toHaveLength(499);
    await store.teach(learning(mata));
    expect((await valuesIn(name)).changes).toHaveLength(0);
    expect(await storedIn(name)).toEqual([...before, `${mata}\t497`].sort());
});

test("what could not be stored stays when another tab forgets a word, and goes when it erases all", async () => {
    const name = newName(), store = await filled(name), other = await opened(name);
    await failing(1, "throws", () => store.teach(learning(gedara)));
    await other.teach({ forget: mama });
    await store.refresh();
    expect(wordsOf(store)).toEqual([`${amma}\t2`, `${gedara}\t1`, `${mama}\tforgotten`].sort());
    await other.erase();
    await store.refresh();
    expect(wordsOf(store)).toEqual([]);
    await store.teach(learning(mata));
    expect(await storedIn(name)).toEqual([`${mata}\t1`]);
});

test("a word that is taken back before it could be stored takes back no other time", async () => {
    const name = newName(), store = await filled(name);
    const taken = { unlearn: { keys: "", text: amma } };
    await failing(4, "aborts", () => Promise.all([store.teach(learning(amma)), store.teach(taken)]));
    expect(wordsOf(store)).toEqual(before);
    expect(await storedIn(name)).toEqual(before);
});

test("what cannot be read of another tab's is read with the next lesson", async () => {
    const name = newName(), store = await filled(name), other = await opened(name);
    await other.teach(learning(mata));
    expect(await failing(1, "throws", () => store.refresh())).toBe(true);
    expect(wordsOf(store)).toEqual(before);
    await store.teach(learning(rata));
    expect(wordsOf(store)).toEqual([...before, `${mata}\t1`, `${rata}\t1`].sort());
});

test("a list that is none is refused with its line, and changes nothing", async () => {
    const name = newName(), store = await filled(name);
    expect(await store.import(`${gedara}\t1\nno list\n`)).toMatchObject({ line: 2 });
    expect([wordsOf(store), await storedIn(name)]).toEqual([before, before]);
});

test("what is forgotten stays so beside more words than are kept of a kind", async () => {
    const name = newName(), store = await filled(name), letters = [..."abcdefghijklmnopqrstuvwxyz"];
    const words = letters.flatMap((a) => letters.flatMap((b) => letters.flatMap((c) => ["a", "b"].map((d) => a + b + c + d)))).slice(0, 20_000);
    expect(await store.import(words.map((word) => `${word}\tforgotten\n`).join(""))).toBeUndefined();
    expect(await store.teach({ forget: mama })).toBeUndefined();
    expect(wordsOf(store)).toHaveLength(20_002);
    expect(await storedIn(name)).toEqual(wordsOf(store));
});

test("tabs that teach at the same time know the same", async () => {
    const name = newName(), stores = [await filled(name), await opened(name)] as const;
    await Promise.all([mata, gedara, mata].flatMap((text) => stores.map((store) => store.teach(learning(text)))));
    await Promise.all(stores.map((store) => store.refresh()));
    const all = [...before, `${gedara}\t2`, `${mata}\t4`].sort();
    expect([...stores.map(wordsOf), await storedIn(name)]).toEqual([all, all, all]);
});

test("without a database everything is in force, and told not to be stored", async () => {
    const { open } = indexedDB;
    IDBFactory.prototype.open = () => { throw new DOMException("refused", "SecurityError"); };
    const store = await opened(newName());
    IDBFactory.prototype.open = open;
    const refused = { reason: expect.stringContaining("refused") as string };
    expect(await store.teach(learning(mama))).toEqual(refused);
    expect(await store.import(`${amma}\t2\n`)).toEqual(refused);
    expect(wordsOf(store)).toEqual(before);
    expect(await store.erase()).toEqual(refused);
    expect(wordsOf(store)).toEqual([]);
});
