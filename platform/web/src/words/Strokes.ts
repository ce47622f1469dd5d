import type { Counts, Decoder, KeyPlace, Layout, Personal, Vanoka } from "../core/index.ts";
import type { LearntStore } from "./LearntStore.ts";

/// What strokes are compared with: words of lists and those of this person, but none that is never offered.
export class Strokes {
    #decoder: Decoder | undefined;
    #layout: Layout | undefined;
    places: readonly KeyPlace[] | undefined; ///< of the keys, in the layout
    #never: ReadonlySet<string> = new Set();
    #own: { readonly of: Personal; readonly counts: Counts } | undefined;

    constructor(readonly vanoka: Vanoka, readonly learnt: LearntStore) {}

    read(lists: readonly Uint8Array[], never: Uint8Array): void {
        this.#decoder = this.vanoka.decoder(lists, "people");
        this.#never = new Set(new TextDecoder().decode(never).split("\n").map(comparable).filter((line) => line !== "" && !line.startsWith("#")));
    }

    adopt(keys: readonly KeyPlace[]): void {
        this.places = keys;
        this.#layout?.release();
        this.#layout = this.vanoka.layout(keys);
    }

    decode(points: Float64Array, keyWidth: number, limit: number): string[] {
        if (!this.#decoder || !this.#layout)
            return [];
        return this.#decoder.decode(points, this.#layout, keyWidth, 2 * limit, this.#counts)
            .filter((word) => !this.#never.has(comparable(word))).slice(0, limit);
    }

    /// How often this person has put in a word: the same until something is learnt.
    get #counts(): Counts {
        const { personal, document } = this.learnt;
        if (this.#own?.of !== personal) {
            this.#own?.counts.release();
            this.#own = { of: personal, counts: this.vanoka.counts(document) };
        }
        return this.#own.counts;
    }
}

/// Letter case does not count, nor how a letter is composed.
const comparable = (word: string): string => word.trim().normalize("NFC").toLowerCase();
