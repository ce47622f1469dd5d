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

const finished = (transaction: IDBTransaction): Promise<void> => new Promise((resolve, reject) => {
    transaction.oncomplete = () => resolve();
    transaction.onabort = transaction.onerror = () => reject(transaction.error ?? new Error("storage failed"));
});

/// What was learnt, in a database of the browser's: a document and the changes since. Every lesson is one change, so
/// that several tabs learn into it and a crash loses none; all of them apply the same changes in the same order, by
/// the core's own rules. Where the browser refuses to store, words are learnt until the page is closed.
export class LearntStore {
    #learnt: Learnt;
    #personal: Personal | undefined;
    #seen = 0; // the number of the last change that is applied
    #database: IDBDatabase | undefined;

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
            store.#database = await done(request);
            store.#database.onversionchange = () => store.#database?.close();
            await store.refresh();
        } catch {
            store.#database = undefined;
        }
        return store;
    }

    get isStored(): boolean {
        return this.#database !== undefined;
    }

    /// As it is now: the same object until something is learnt.
    get personal(): Personal {
        return (this.#personal ??= this.#learnt.personal);
    }

    get document(): string {
        return this.#learnt.document;
    }

    /// Adopts what other tabs have taught.
    async refresh(): Promise<void> {
        if (this.#database)
            await this.#read(this.#database.transaction([snapshots, changes]));
    }

    async teach(lesson: Lesson): Promise<Problem | undefined> {
        if (!this.#database) {
            this.#apply(lesson);
            return undefined;
        }
        try {
            const transaction = this.#database.transaction(changes, "readwrite");
            const at = Number(await done(transaction.objectStore(changes).add({ lesson })));
            await finished(transaction);
            await this.refresh();
            // What is to be forgotten is not kept among the changes either.
            if (lesson.forget !== undefined || at % mostChanges === 0)
                await this.#rewrite(() => undefined);
            return undefined;
        } catch (problem) {
            this.#apply(lesson);
            return { reason: String(problem) };
        }
    }

    /// All of the document, or nothing.
    async import(document: string): Promise<Problem | undefined> {
        const trial = this.vanoka.learnt();
        const refused = trial.import(document);
        trial.release();
        return refused ?? this.#rewrite(() => this.#learnt.import(document));
    }

    async erase(): Promise<Problem | undefined> {
        return this.#rewrite(() => this.#renew());
    }

    /// Puts everything into one document, after a change, while no other tab writes.
    async #rewrite(change: () => unknown): Promise<Problem | undefined> {
        try {
            if (!this.#database) {
                change();
                this.#personal = undefined;
                return undefined;
            }
            const transaction = this.#database.transaction([snapshots, changes], "readwrite");
            await this.#read(transaction);
            change();
            this.#personal = undefined;
            // A number that no tab has seen tells all of them that the document is another one.
            this.#seen = Number(await done(transaction.objectStore(changes).add({ lesson: {} })));
            transaction.objectStore(changes).clear();
            transaction.objectStore(snapshots).put(this.#learnt.document, "document");
            transaction.objectStore(snapshots).put(this.#seen, "upTo");
            await finished(transaction);
            return undefined;
        } catch (problem) {
            return { reason: String(problem) };
        }
    }

    async #read(transaction: IDBTransaction): Promise<void> {
        const [document, upTo, entries] = await Promise.all([
            done<string | undefined>(transaction.objectStore(snapshots).get("document")),
            done<number | undefined>(transaction.objectStore(snapshots).get("upTo")),
            done<Entry[]>(transaction.objectStore(changes).getAll()),
        ]);
        if ((upTo ?? 0) > this.#seen)
            this.#replace(document ?? "", upTo ?? 0);
        for (const { at, lesson } of entries.filter((entry) => entry.at > this.#seen)) {
            this.#apply(lesson);
            this.#seen = at;
        }
    }

    #replace(document: string, upTo: number): void {
        this.#renew();
        this.#learnt.import(document);
        this.#seen = upTo;
    }

    #renew(): void {
        this.#learnt.release();
        this.#learnt = this.vanoka.learnt();
        this.#personal = undefined;
    }

    #apply({ learn, unlearn, forget }: Lesson): void {
        if (learn)
            this.#learnt.learn(learn);
        if (unlearn)
            this.#learnt.unlearn(unlearn);
        if (forget !== undefined)
            this.#learnt.forget(forget);
        this.#personal = undefined;
    }
}
