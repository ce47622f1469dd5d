import { storage } from "./preferences.ts";

const prefix = "vanoka.draft.", ownName = "vanoka.draft";
const largeText = 50_000, pause = 500;

interface Draft {
    readonly text: string;
    readonly changed: number;
}

function draftAt(key: string): Draft | undefined {
    try {
        const draft = JSON.parse(storage.get(key) ?? "") as Draft;
        return typeof draft.text === "string" && typeof draft.changed === "number" ? draft : undefined;
    } catch {
        return undefined;
    }
}

/// The text of each tab, kept through reloads and crashes. A tab knows its own draft; a new one takes up the latest
/// that no open tab holds, so that two tabs never write over each other's.
export class Drafts {
    readonly #key: string;
    #timer: ReturnType<typeof setTimeout> | undefined;
    #pending: string | undefined;

    private constructor(key: string, readonly text: string, readonly refused: () => void) {
        this.#key = key;
        addEventListener("pagehide", () => this.write());
    }

    /// `refused` is called when the text cannot be stored.
    static async open(refused: () => void): Promise<Drafts> {
        const key = ownDraft() ?? (await abandonedDraft()) ?? prefix + crypto.randomUUID();
        try {
            sessionStorage.setItem(ownName, key);
        } catch {
            // then a reload takes it up as one that nobody holds
        }
        void navigator.locks?.request(key, () => new Promise(() => undefined));
        return new Drafts(key, draftAt(key)?.text ?? "", refused);
    }

    /// At once; a long text after a pause, since storing takes time.
    keep(text: string): void {
        this.#pending = text;
        if (text.length < largeText)
            this.write();
        else
            this.#timer ??= setTimeout(() => this.write(), pause);
    }

    write(): void {
        clearTimeout(this.#timer);
        this.#timer = undefined;
        if (this.#pending === undefined)
            return;
        const draft: Draft = { text: this.#pending, changed: Date.now() };
        this.#pending = undefined;
        if (draft.text === "")
            storage.remove(this.#key);
        else if (!storage.set(this.#key, JSON.stringify(draft)))
            this.refused();
    }
}

function ownDraft(): string | undefined {
    try {
        // A tab that was duplicated has its twin's: the twin holds it.
        const [entry] = performance.getEntriesByType("navigation") as PerformanceNavigationTiming[];
        return entry?.type === "navigate" ? undefined : sessionStorage.getItem(ownName) ?? undefined;
    } catch {
        return undefined;
    }
}

async function abandonedDraft(): Promise<string | undefined> {
    const held = new Set(((await navigator.locks?.query())?.held ?? []).map((lock) => lock.name));
    return draftNames().filter((key) => !held.has(key) && draftAt(key))
        .sort((one, other) => draftAt(other)!.changed - draftAt(one)!.changed)[0];
}

function draftNames(): string[] {
    try {
        return Object.keys(localStorage).filter((key) => key.startsWith(prefix));
    } catch {
        return [];
    }
}
