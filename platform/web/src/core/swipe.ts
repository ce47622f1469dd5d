import { Handle, type Module } from "./module.ts";
import type { List } from "./words.ts";

/// A key of a touch keyboard, and where its centre is, in whatever unit.
export interface KeyPlace {
    readonly label: string;
    readonly x: number;
    readonly y: number;
}

export class Layout extends Handle {
    constructor(module: Module, keys: readonly KeyPlace[]) {
        const places = new Float64Array(keys.flatMap(({ x, y }) => [x, y]));
        super(module, module.create("layout", keys.map((key) => key.label).join(""), places), "layout");
    }
}

/// How often the user has typed each word: lines "word TAB count".
export class Counts extends Handle {
    constructor(module: Module, list: List) {
        super(module, module.create("counts", list), "counts");
    }

    get size(): number {
        return this.module.number("counts_size", this.id);
    }
}

/// What makes one word likelier than another for a stroke: the distance from its path and its count, or what was
/// learnt from the strokes of many people, which understands fingers better.
export type Weights = "distance" | "people";

/// The words that strokes are compared with, of lists whose counts are on one scale.
export class Decoder extends Handle {
    constructor(module: Module, lists: readonly List[], weights: Weights) {
        super(module, module.withTexts(lists, (addresses, lengths) =>
            module.place("decoder_create_weighing", addresses, lengths, lists.length, weights === "people" ? 1 : 0)), "decoder");
    }

    get size(): number {
        return this.module.number("decoder_size", this.id);
    }

    get memory(): number {
        return this.module.number("decoder_memory", this.id);
    }

    /// The words that a stroke (x and y of each point) may have meant, best first. The first stroke over a layout takes
    /// some ten milliseconds longer.
    decode(points: Float64Array, layout: Layout, keyWidth: number, limit: number, counts?: Counts): string[] {
        return this.module.ask("decoder_decode", this.id, layout.id, points, keyWidth, limit, counts?.id ?? 0)
            .map((item) => item.text);
    }
}
