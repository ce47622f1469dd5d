import { beforeEach, expect, test } from "vitest";
import type { EditableField } from "../../src/field/EditableField.ts";
import type { Writer } from "../../src/field/Writer.ts";
import { FieldTypist } from "../../src/keyboard/FieldTypist.ts";

let text: string, offered: readonly string[], log: string[], answer: ((words: string[]) => void)[], typist: FieldTypist;

beforeEach(() => {
    text = "";
    offered = [];
    log = [];
    answer = [];
    const field = {
        get before() { return text; },
        insert: (put: string) => { text += put; },
        replaceBefore: (units: number, put: string) => { text = text.slice(0, text.length - units) + put; },
        deleteBackward: () => { text = text.slice(0, -1); },
        breakLine: () => { text += "\n"; },
        moveCaret: (steps: number) => { log.push(`caret ${steps}`); },
    };
    const writer = { press: () => false, end: () => undefined };
    typist = new FieldTypist(field as unknown as EditableField, writer as unknown as Writer, {
        decode: () => new Promise((resolve) => answer.push(resolve)),
        offer: (words) => { offered = words; },
        learn: (word) => { log.push(`learn ${word.text}`); },
        unlearn: (word) => { log.push(`unlearn ${word.text}`); },
    });
});

async function swipe(...words: string[]): Promise<void> {
    typist.swipe([]);
    answer.shift()!(words);
    await new Promise(setImmediate);
}

test("a swiped word goes in with a space, and the next one after it", async () => {
    await swipe("one", "two");
    await swipe("three");
    expect(text).toBe("one three ");
    expect(log).toEqual(["learn one", "learn three"]);
});

test("a typed word before it keeps its distance", async () => {
    typist.type("a");
    await swipe("one");
    expect(text).toBe("a one ");
});

test("punctuation takes the space back, a space is not doubled, letters leave it", async () => {
    await swipe("one");
    typist.type(".");
    expect(text).toBe("one.");
    await swipe("two");
    typist.type(" ");
    typist.type("k");
    expect(text).toBe("one. two k");
});

test("a backspace right after it takes the word and offers its readings", async () => {
    typist.type("a");
    await swipe("one", "two");
    typist.delete();
    expect([text, offered]).toEqual(["a", ["one", "two"]]);
    typist.choose(1);
    expect(text).toBe("a two ");
    expect(log).toEqual(["learn one", "unlearn one", "learn two"]);
    typist.delete();
    typist.delete();
    expect([text, offered]).toEqual(["", []]);
});

test("a reading that is chosen replaces the word", async () => {
    await swipe("one", "two");
    typist.choose(1);
    expect(text).toBe("two ");
});

test("what is typed while a stroke is being read comes after its word", async () => {
    typist.swipe([]);
    typist.type(".");
    typist.swipe([]);
    typist.breakLine();
    expect(text).toBe("");
    answer.shift()!(["one"]);
    await new Promise(setImmediate);
    expect(text).toBe("one.");
    answer.shift()!(["two"]);
    await new Promise(setImmediate);
    expect(text).toBe("one. two \n");
});

test("a stroke that nothing fits, or that cannot be read, types nothing and holds nothing up", async () => {
    await swipe();
    typist.type("k");
    expect([text, log]).toEqual(["k", []]);
});

test("after other changes the backspace takes a character", async () => {
    await swipe("one");
    typist.moveCaret(1);
    typist.delete();
    expect(text).toBe("one");
});
