import { expect, test } from "vitest";
import type { LearntStore } from "../../src/words/LearntStore.ts";
import { Strokes } from "../../src/words/Strokes.ts";
import { loaded } from "./support.ts";

const bytes = (text: string): Uint8Array => new TextEncoder().encode(text);
const keys = ["qwertyuiop", "asdfghjkl", "zxcvbnm"].flatMap((row, y) => [...row].map((label, x) => ({ label, x: x + y / 2, y })));
const mama = "\u0DB8\u0DB8", mata = "\u0DB8\u0DA7";

/// Straight from key to key, with some points on the way.
function over(letters: string): Float64Array {
    const places = [...letters].map((letter) => keys.find(({ label }) => label === letter)!);
    return new Float64Array(places.flatMap(({ x, y }, at) => {
        const from = places[Math.max(at - 1, 0)]!;
        return [1, 2, 3].flatMap((step) => [from.x + (x - from.x) * step / 3, from.y + (y - from.y) * step / 3]);
    }));
}

/// Of one who has put in what the document says.
async function strokes(document: string): Promise<{ strokes: Strokes; teach: (keys: string, text: string) => void }> {
    const vanoka = await loaded();
    const learnt = vanoka.learnt();
    learnt.import(document);
    const store = { personal: learnt.personal, get document(): string { return learnt.document; } };
    const made = new Strokes(vanoka, store as unknown as LearntStore);
    made.adopt(keys);
    return { strokes: made, teach: (typed, text) => {
        learnt.learn({ keys: typed, text });
        store.personal = learnt.personal;
    } };
}

test("no stroke means anything before there are lists", async () => {
    const { strokes: none } = await strokes("");
    expect(none.decode(over("mama"), 1, 5)).toEqual([]);
});

test("what is never offered is not swiped either, in whatever case", async () => {
    const { strokes: read } = await strokes("");
    read.read([bytes(`${mama}\t9\nfog\t9\nfig\t1\n`)], bytes(`# these\n${mama}\nFog\n`));
    expect(read.decode(over("mama"), 1, 5)).not.toContain(mama);
    expect(read.decode(over("fog"), 1, 1)).toEqual(["fig"]);
});

test("what this person has put in is swiped, as soon as it is learnt", async () => {
    const { strokes: own, teach } = await strokes("");
    own.read([bytes(`${mama}\t9\n`)], bytes(""));
    expect(own.decode(over("mata"), 1, 5)).not.toContain(mata);
    teach("mata", mata);
    expect(own.decode(over("mata"), 1, 5)).toContain(mata);
});
