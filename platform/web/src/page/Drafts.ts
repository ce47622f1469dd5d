import { storage } from "./preferences.ts";

const prefix = "vanoka.draft.", ownName = "vanoka.draft";
const largeText = 50_000, pause = 500;
const longestReload = 1000; // until the browser has let go of the page before, in milliseconds

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

/// A draft that no other tab writes until it is let go.
interface Held {
    readonly key: string;
    readonly letGo: () => void;
}

/// Nothing where another tab holds it, for `patience` milliseconds. Where the browser has no locks, tabs cannot know.
function hold(key: string, patience = 0): Promise<Held | undefined> {
    if (!navigator.locks)
        return Promise.resolve({ key, letGo: () => undefined });
    const options = patience > 0 ? { signal: AbortSignal.timeout(patience) } : { ifAvailable: true };
    return new Promise((resolve) => {
        navigator.locks.request(key, options, (lock) => new Promise<void>((letGo) => {
            resolve(lock ? { key, letGo } : undefined);
            if (!lock)
                letGo();
        })).catch(() => resolve(undefined));
    });
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

    /// A draft that there is no room for stays for the next tab: `hasText` tells whether something has been typed since.
    /// `refused` is called when the text cannot be stored.
    static async open(hasText: () => boolean, refused: () => void): Promise<Drafts> {
        const key = (await heldDraft(hasText)) ?? newDraft();
        try {
            sessionStorage.setItem(ownName, key);
        } catch {
            // then a reload takes it up as one that nobody holds
        }
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

async function heldDraft(hasText: () => boolean): Promise<string | undefined> {
    const held = (await heldOwn()) ?? (await heldAbandoned());
    if (!held || !hasText() || !draftAt(held.key))
        return held?.key;
    held.letGo();
    return undefined;
}

/// The page that is reloaded holds it a moment longer; a twin does for good, as does a tab that has taken it up.
async function heldOwn(): Promise<Held | undefined> {
    const key = ownDraft();
    return key === undefined ? undefined : hold(key, longestReload);
}

async function heldAbandoned(): Promise<Held | undefined> {
    const changed = new Map(draftNames().map((key) => [key, draftAt(key)?.changed]));
    const latestFirst = [...changed].filter(([, at]) => at !== undefined).sort(([, one], [, other]) => other! - one!);
    for (const [key] of latestFirst) {
        const held = await hold(key);
        if (held)
            return held;
    }
    return undefined;
}

/// Nobody else knows it yet.
function newDraft(): string {
    const key = prefix + crypto.randomUUID();
    void hold(key);
    return key;
}

function draftNames(): string[] {
    try {
        return Object.keys(localStorage).filter((key) => key.startsWith(prefix));
    } catch {
        return [];
    }
}
