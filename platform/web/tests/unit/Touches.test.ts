import { beforeEach, describe, expect, test } from "vitest";
import { layers, type TouchKey } from "../../src/keyboard/keys.ts";
import { Touches, type Act, type Point } from "../../src/keyboard/Touches.ts";

const width = 36;
const keys = new Map<string, TouchKey & Point>();
layers.letters.forEach((row, y) => {
    let left = 0;
    for (const key of row) {
        keys.set(key.id, { ...key, x: (left + key.width / 2) * width, y: y * 50 + 25 });
        left += key.width;
    }
});
const at = (id: string): Point => keys.get(id)!;
const keyAt = (point: Point): TouchKey | undefined => {
    const distance = (key: TouchKey & Point): number =>
        Math.hypot(Math.max(Math.abs(key.x - point.x) - (key.width * width) / 2, 0), key.y - point.y);
    return [...keys.values()].sort((one, other) => distance(one) - distance(other))[0];
};
const said = (acts: readonly Act[]): string[] => acts.filter(({ what }) => what !== "press" && what !== "lift")
    .map((act) => ("key" in act ? `${act.what} ${act.key.id}` : "steps" in act ? `${act.what} ${act.steps}` : act.what));

let touches: Touches;
beforeEach(() => {
    touches = new Touches({ keyAt, keyWidth: width, longPress: 300, strokes: true });
});

function tap(id: string, now = 0, finger = 1): Act[] {
    return [...touches.down(finger, at(id), now), ...touches.up(finger, at(id))];
}

describe("taps", () => {
    test("a key is typed when the finger goes up", () => {
        expect(said(touches.down(1, at("k"), 0))).toEqual([]);
        expect(said(touches.up(1, at("k")))).toEqual(["type k"]);
        expect(touches.deadline).toBe(Infinity);
    });

    test("two thumbs that overlap type in the order in which they came", () => {
        const acts = [...touches.down(1, at("m"), 0), ...touches.down(2, at("a"), 10), ...touches.up(2, at("a")),
            ...touches.down(2, at("y"), 20), ...touches.up(1, at("m")), ...touches.up(2, at("y"))];
        expect(said(acts)).toEqual(["type m", "type a", "type y"]);
    });

    test("sixty taps of two overlapping fingers are neither lost nor swapped", () => {
        const word = "sihinayakgenaenawaa".repeat(4).slice(0, 60), acts: Act[] = [];
        [...word].forEach((letter, place) => {
            acts.push(...touches.down(place % 2, at(letter), place * 20));
            if (place > 0)
                acts.push(...touches.up((place + 1) % 2, at(word[place - 1]!)));
        });
        acts.push(...touches.up(59 % 2, at(word[59]!)));
        expect(said(acts).map((act) => act.at(-1)).join("")).toBe(word);
    });

    test("a finger that trembles stays on its key", () => {
        touches.down(1, at("k"), 0);
        const near = { x: at("k").x + width * 0.7, y: at("k").y };
        expect(said(touches.move(1, near))).toEqual([]);
        expect(said(touches.up(1, near))).toEqual(["type k"]);
    });

    test("a finger that the system takes types nothing, and its other events do nothing", () => {
        touches.down(1, at("k"), 0);
        expect(said(touches.cancel(1))).toEqual([]);
        expect([...touches.move(1, at("l")), ...touches.up(1, at("l")), ...touches.cancel(7)]).toEqual([]);
    });
});

describe("holding", () => {
    test("opens the letters behind a key, and going up chooses", () => {
        touches.down(1, at("n"), 100);
        expect(touches.deadline).toBe(400);
        expect(said(touches.pass(399))).toEqual([]);
        expect(said(touches.pass(400))).toEqual(["open n"]);
        expect(said(touches.move(1, at("h")))).toEqual(["point"]);
        expect(said(touches.up(1, at("h")))).toEqual(["choose"]);
    });

    test("another finger chooses first", () => {
        touches.down(1, at("n"), 0);
        touches.pass(300);
        expect(said([...touches.down(2, at("a"), 310), ...touches.up(1, at("n")), ...touches.up(2, at("a"))]))
            .toEqual(["choose", "type a"]);
    });

    test("is closed when the system takes the finger", () => {
        touches.down(1, at("n"), 0);
        touches.pass(300);
        expect(said(touches.cancel(1))).toEqual(["close"]);
    });

    test("repeats the backspace, faster after a while, until the finger goes up", () => {
        expect(said(touches.down(1, at("delete"), 0))).toEqual(["delete"]);
        let now = touches.deadline, deleted = 0;
        const pauses: number[] = [];
        for (; deleted < 20; ++deleted) {
            expect(said(touches.pass(now))).toEqual(["delete"]);
            pauses.push(touches.deadline - now);
            now = touches.deadline;
        }
        expect(pauses[0]).toBe(60);
        expect(pauses.at(-1)).toBe(30);
        expect(said(touches.up(1, at("delete")))).toEqual([]);
        expect(touches.deadline).toBe(Infinity);
    });

    test("a stroke does not become a hold", () => {
        touches.down(1, at("g"), 0);
        touches.move(1, at("j"));
        expect(touches.deadline).toBe(Infinity);
    });
});

describe("strokes", () => {
    test("a finger that leaves its key swipes a word", () => {
        touches.down(1, at("m"), 0);
        expect(touches.move(1, at("a"))).toEqual([{ what: "trail", points: [at("m"), at("a")] }]);
        const acts = touches.up(1, at("m"));
        expect(said(acts)).toEqual(["trail", "stroke"]);
        expect(acts).toContainEqual({ what: "stroke", points: [at("m"), at("a"), at("m")] });
    });

    test("a tap while a stroke is under way comes after its word", () => {
        touches.down(1, at("m"), 0);
        touches.move(1, at("a"));
        expect(said([...touches.down(2, at("."), 10), ...touches.up(2, at(".")), ...touches.up(1, at("a"))]))
            .toEqual(["trail", "stroke", "type ."]);
    });

    test("nothing is swiped where strokes are off, and from keys that are no letters", () => {
        touches.measures.strokes = false;
        touches.down(1, at("m"), 0);
        expect(said([...touches.move(1, at("a")), ...touches.up(1, at("a"))])).toEqual(["type m"]);
        touches.measures.strokes = true;
        touches.down(1, at("."), 0);
        expect(said([...touches.move(1, at("a")), ...touches.up(1, at("a"))])).toEqual(["type ."]);
    });
});

test("the space bar moves the caret when a finger slides along it, and types nothing then", () => {
    touches.down(1, at("space"), 0);
    const to = (steps: number): Point => ({ x: at("space").x + steps * width * 0.4, y: at("space").y });
    expect(said(touches.move(1, to(1)))).toEqual([]);
    expect(said(touches.move(1, to(3.2)))).toEqual(["move caret 3"]);
    expect(said(touches.move(1, to(-1.1)))).toEqual(["move caret -4"]);
    expect(said(touches.up(1, to(0)))).toEqual([]);
    expect(said(tap("space"))).toEqual(["type space"]);
});

test("every layer has all rows, and no key stands twice in one", () => {
    for (const rows of Object.values(layers)) {
        const ids = rows.flat().map((key) => key.id);
        expect(new Set(ids).size).toBe(ids.length);
        for (const row of rows)
            expect(row.reduce((sum, key) => sum + key.width, 0)).toBeLessThanOrEqual(10.5);
    }
});
