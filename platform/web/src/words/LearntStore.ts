import type { Learnt, Lesson, Personal, Vanoka } from "../core/index.ts";
import type { Problem } from "./protocol.ts";

const version = 1, snapshots = "snapshot", changes = "changes";
const mostChanges = 500;
const nothingSeen = -1; // less than the number of any document, also of one that nobody has written

interface Entry {
    readonly at: number;
    readonly lesson: Lesson;
}

const done = <Result>(request: IDBRequest<Result>): Promise<Result> => new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error ?? new Error("storage failed"));
});

const isTrap = (problem: unknown): boolean => problem instanceof WebAssembly.RuntimeError;

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
///
/// Where the module traps before something is stored, that is rejected, to be asked again after `moveTo`. What is stored
/// when it traps is in force from there on.
export class LearntStore {
    #vanoka: Vanoka;
    #learnt: Learnt;
    #personal: Personal | undefined;
    #upTo = 0; // the number of the document that was adopted last, in whichever instance of the module
    #seen = 0; // the number of the last change that is stored and applied
    #base = ""; // the document where there is no database
    #unstored: Lesson[] = []; // applied since, and not stored
    #database: IDBDatabase | undefined;
    #refusal: Problem | undefined; // why there is no database
    #turn: Promise<unknown> = Promise.resolve();

    private constructor(vanoka: Vanoka) {
        this.#vanoka = vanoka;
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
        return this.#inTurn(() => this.#readAll()).catch(() => undefined);
    }

    /// Goes on in another instance of the module, with what is stored and what could not be. The same holds for what
    /// cannot be read now.
    moveTo(vanoka: Vanoka): Promise<void> {
        return this.#inTurn(() => {
            this.#vanoka = vanoka;
            this.#learnt = vanoka.learnt();
            this.#personal = undefined;
            this.#seen = nothingSeen;
            return this.#readAll();
        }).catch(() => undefined);
    }

    /// The lesson is applied in any case; a problem says that it is not stored.
    teach(lesson: Lesson): Promise<Problem | undefined> {
        return this.#inTurn(async () => {
            const problem = await this.#keep(lesson);
            if (problem) {
                this.#apply(lesson);
                this.#unstored.push(lesson);
            }
            return problem;
        });
    }

    /// All of the document, or nothing.
    import(document: string): Promise<Problem | undefined> {
        return this.#inTurn(async () => {
            const trial = this.#vanoka.learnt(), refused = trial.import(document);
            trial.release();
            return refused ?? this.#rewrite(() => added(this.#copy(), document));
        });
    }

    /// All of it, or nothing.
    erase(): Promise<Problem | undefined> {
        return this.#inTurn(() => this.#rewrite(() => this.#vanoka.learnt()));
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
        if (!problem && this.#seen % mostChanges === 0) // it only saves room: where it fails, the changes are still there
            await this.#rewrite(() => this.#copy()).catch(() => undefined);
        return problem;
    }

    #copy(): Learnt {
        return added(this.#vanoka.learnt(), this.document);
    }

    /// Puts what `make` makes of all that is stored into one document. Without a database it is in force nevertheless.
    async #rewrite(make: () => Learnt): Promise<Problem | undefined> {
        if (!this.#database) {
            const next = make();
            this.#base = next.document;
            this.#unstored = [];
            this.#replace(next);
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
                this.#unstored = []; // before anything that may trap: it is stored
                this.#replace(next);
                this.#upTo = this.#seen = at;
            };
        });
    }

    /// Writes onto what all tabs have stored until now, while none of them writes. What follows from it is adopted once
    /// it is stored: the numbers of a transaction that fails are given again. Where the module traps in that, it is
    /// stored nevertheless, and a rejection would have it stored twice.
    async #store(write: (transaction: IDBTransaction) => Promise<() => void>): Promise<Problem | undefined> {
        let adopt: () => void;
        try {
            const transaction = this.#database!.transaction([snapshots, changes], "readwrite");
            await this.#read(transaction);
            adopt = await write(transaction).catch((problem: unknown) => abandon(transaction, problem));
            await finished(transaction);
        } catch (problem) {
            if (isTrap(problem))
                throw problem;
            return { reason: String(problem) };
        }
        try {
            adopt();
        } catch (problem) {
            if (!isTrap(problem))
                throw problem;
        }
        return undefined;
    }

    async #readAll(): Promise<void> {
        if (this.#database)
            await this.#read(this.#database.transaction([snapshots, changes]));
        else if (this.#seen === nothingSeen)
            this.#takeUp(this.#base, this.#upTo, []);
    }

    async #read(transaction: IDBTransaction): Promise<void> {
        const [document, upTo, entries] = await Promise.all([
            done<string | undefined>(transaction.objectStore(snapshots).get("document")),
            done<number | undefined>(transaction.objectStore(snapshots).get("upTo")),
            done<Entry[]>(transaction.objectStore(changes).getAll()),
        ]);
        if ((upTo ?? 0) > this.#seen)
            this.#takeUp(document ?? "", upTo ?? 0, entries);
        else
            this.#follow(entries);
    }

    /// The document that another tab has written, or all of it in another instance of the module; and the changes since.
    #takeUp(document: string, upTo: number, entries: readonly Entry[]): void {
        this.#replace(this.#vanoka.learnt());
        if (upTo > this.#upTo && document === this.document)
            this.#unstored = []; // it is empty: that tab has erased all, and these are older
        this.#learnt.import(document);
        this.#upTo = this.#seen = upTo;
        this.#follow(entries);
        for (const lesson of this.#unstored)
            this.#apply(lesson);
    }

    #follow(entries: readonly Entry[]): void {
        for (const { at, lesson } of entries.filter((entry) => entry.at > this.#seen)) {
            this.#apply(lesson);
            this.#seen = at;
        }
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
