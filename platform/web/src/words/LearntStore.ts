import type { Learnt, Lesson, Personal, Vanoka } from "../core/index.ts";
import type { Problem } from "./protocol.ts";

const version = 1, snapshots = "snapshot", changes = "changes";
const mostChanges = 500;

interface Entry {
    readonly at: number;
    readonly lesson: Lesson;
}

const done = <Result>(request: IDBRequest<Result>): Promise<Result> => new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error ?? new Error("storage failed"));
});

/// A request that fails aborts its transaction, which then says why.
const finished = (transaction: IDBTransaction): Promise<void> => new Promise((resolve, reject) => {
    transaction.oncomplete = () => resolve();
    transaction.onabort = () => reject(transaction.error ?? new Error("storage failed"));
});

/// Takes back what was written until a problem came: half of it would be stored otherwise.
function abandon(transaction: IDBTransaction, problem: unknown): never {
    try {
        transaction.abort();
    } catch {
        // it has been taken back already
    }
    throw problem;
}

/// What was learnt, in a database of the browser's: a document and the changes since. Every lesson is one change, so
/// that several tabs learn into it and a crash loses none; all of them apply the same changes in the same order, by
/// the core's own rules. What the browser refuses to store holds until the page is closed, or something can be stored.
/// What is asked is done in turn, so that nothing sees another's half.
export class LearntStore {
    #learnt: Learnt;
    #personal: Personal | undefined;
    #seen = 0; // the number of the last change that is stored and applied
    #unstored: Lesson[] = []; // applied, and refused by the database
    #database: IDBDatabase | undefined;
    #refusal: Problem | undefined; // why there is no database
    #turn: Promise<unknown> = Promise.resolve();

    private constructor(readonly vanoka: Vanoka) {
        this.#learnt = vanoka.learnt();
    }

    static async open(vanoka: Vanoka, name: string): Promise<LearntStore> {
        const store = new LearntStore(vanoka);
        try {
            const request = indexedDB.open(name, version);
            request.onupgradeneeded = () => {
                request.result.createObjectStore(snapshots);
                request.result.createObjectStore(changes, { keyPath: "at", autoIncrement: true });
            };
            const database = await done(request);
            database.onversionchange = () => database.close();
            store.#database = database;
            await store.refresh();
        } catch (problem) {
            store.#refusal = { reason: String(problem) };
        }
        return store;
    }

    /// As it is now: the same object until something is learnt.
    get personal(): Personal {
        return (this.#personal ??= this.#learnt.personal);
    }

    get document(): string {
        return this.#learnt.document;
    }

    /// When all is done that was asked so far; whether it could be stored is told to who asked for it.
    get settled(): Promise<unknown> {
        return this.#turn;
    }

    /// Adopts what other tabs have taught. What cannot be read now is read with the next lesson.
    refresh(): Promise<void> {
        return this.#inTurn(async () => {
            if (this.#database)
                await this.#read(this.#database.transaction([snapshots, changes]));
        }).catch(() => undefined);
    }

    /// The lesson is applied in any case; a problem says that it is not stored.
    teach(lesson: Lesson): Promise<Problem | undefined> {
        return this.#inTurn(async () => {
            const problem = await this.#keep(lesson);
            if (problem)
                this.#apply(lesson);
            if (problem && this.#database)
                this.#unstored.push(lesson);
            return problem;
        });
    }

    /// All of the document, or nothing.
    import(document: string): Promise<Problem | undefined> {
        return this.#inTurn(async () => {
            const trial = this.vanoka.learnt(), refused = trial.import(document);
            trial.release();
            return refused ?? this.#rewrite(() => added(this.#copy(), document));
        });
    }

    /// All of it, or nothing.
    erase(): Promise<Problem | undefined> {
        return this.#inTurn(() => this.#rewrite(() => this.vanoka.learnt()));
    }

    #inTurn<Result>(act: () => Promise<Result>): Promise<Result> {
        const result = this.#turn.then(act);
        this.#turn = result.catch(() => undefined);
        return result;
    }

    /// As a change; in a new document, where a change would keep what is to be forgotten, or come without what could
    /// not be stored before it.
    async #keep(lesson: Lesson): Promise<Problem | undefined> {
        if (!this.#database)
            return this.#refusal;
        if (lesson.forget !== undefined || this.#unstored.length > 0)
            return this.#rewrite(() => changed(this.#copy(), lesson));
        const problem = await this.#store(async (transaction) => {
            const at = await numbered(transaction, lesson);
            return () => {
                this.#apply(lesson);
                this.#seen = at;
            };
        });
        if (!problem && this.#seen % mostChanges === 0)
            await this.#rewrite(() => this.#copy()); // it only saves room: where it fails, the changes are still there
        return problem;
    }

    #copy(): Learnt {
        return added(this.vanoka.learnt(), this.document);
    }

    /// Puts what `make` makes of all that is stored into one document. Without a database it is in force nevertheless.
    async #rewrite(make: () => Learnt): Promise<Problem | undefined> {
        if (!this.#database) {
            this.#replace(make());
            return this.#refusal;
        }
        return this.#store(async (transaction) => {
            const next = make(), { document } = next;
            // A number that no tab has seen tells all of them that the document is another one.
            const at = await numbered(transaction, {});
            transaction.objectStore(changes).clear();
            transaction.objectStore(snapshots).put(document, "document");
            transaction.objectStore(snapshots).put(at, "upTo");
            return () => {
                this.#replace(next);
                this.#seen = at;
                this.#unstored = [];
            };
        });
    }

    /// Writes onto what all tabs have stored until now, while none of them writes. What follows from it is adopted once
    /// it is stored: the numbers of a transaction that fails are given again.
    async #store(write: (transaction: IDBTransaction) => Promise<() => void>): Promise<Problem | undefined> {
        let adopt: () => void;
        try {
            const transaction = this.#database!.transaction([snapshots, changes], "readwrite");
            await this.#read(transaction);
            adopt = await write(transaction).catch((problem: unknown) => abandon(transaction, problem));
            await finished(transaction);
        } catch (problem) {
            return { reason: String(problem) };
        }
        adopt();
        return undefined;
    }

    async #read(transaction: IDBTransaction): Promise<void> {
        const [document, upTo, entries] = await Promise.all([
            done<string | undefined>(transaction.objectStore(snapshots).get("document")),
            done<number | undefined>(transaction.objectStore(snapshots).get("upTo")),
            done<Entry[]>(transaction.objectStore(changes).getAll()),
        ]);
        if ((upTo ?? 0) > this.#seen)
            this.#takeUp(document ?? "", upTo ?? 0);
        for (const { at, lesson } of entries.filter((entry) => entry.at > this.#seen)) {
            this.#apply(lesson);
            this.#seen = at;
        }
    }

    /// The document that another tab has written.
    #takeUp(document: string, upTo: number): void {
        this.#replace(this.vanoka.learnt());
        if (document === this.document)
            this.#unstored = []; // it is empty: that tab has erased all, and these are older
        this.#learnt.import(document);
        this.#seen = upTo;
        for (const lesson of this.#unstored)
            this.#apply(lesson);
    }

    #replace(learnt: Learnt): void {
        this.#learnt.release();
        this.#learnt = learnt;
        this.#personal = undefined;
    }

    #apply(lesson: Lesson): void {
        changed(this.#learnt, lesson);
        this.#personal = undefined;
    }
}

/// Adds a change, and returns its number.
const numbered = async (transaction: IDBTransaction, lesson: Lesson): Promise<number> =>
    Number(await done(transaction.objectStore(changes).add({ lesson })));

function changed(learnt: Learnt, { learn, unlearn, forget }: Lesson): Learnt {
    if (learn)
        learnt.learn(learn);
    if (unlearn)
        learnt.unlearn(unlearn);
    if (forget !== undefined)
        learnt.forget(forget);
    return learnt;
}

/// Refused documents must not stand for what is there.
function added(learnt: Learnt, document: string): Learnt {
    const refused = learnt.import(document);
    if (refused)
        throw new Error(refused.reason);
    return learnt;
}
