import { beforeEach, describe, expect, test } from "vitest";
import { Kind, KeyCode, VanokaError, Vanoka, type Candidate, type Suggesting } from "../../src/core/index.ts";
import { loaded, moduleBytes, read } from "./support.ts";

const amma = "\u0D85\u0DB8\u0DCA\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB", mama = "\u0DB8\u0DB8", mamaya = "\u0DB8\u0DB8\u0DBA", ka = "\u0D9A";
const key = (characters: string): { code: number; modifiers: number; characters: string } =>
    ({ code: characters === " " ? KeyCode.space : KeyCode.other, modifiers: 0, characters });
let vanoka: Vanoka;
beforeEach(async () => {
    vanoka = await loaded();
});

test("needs three functions of the system at most", () => {
    const needed = WebAssembly.Module.imports(new WebAssembly.Module(moduleBytes)).map((each) => each.name);
    expect(needed.filter((name) => !["fd_close", "fd_seek", "fd_write"].includes(name))).toEqual([]);
});

test("loads from bytes, a compiled module and a response, and tells a response that failed", async () => {
    const sources = [moduleBytes, new WebAssembly.Module(moduleBytes), new Response(moduleBytes)];
    for (const source of sources)
        expect((await Vanoka.load(source)).transliterate("amma")).toBe(amma);
    await expect(Vanoka.load(new Response("", { status: 404 }))).rejects.toThrow("404");
});

test("reads texts of any length, and what is no key as it is", () => {
    const long = "amma ".repeat(40_000);
    expect(vanoka.transliterate(long)).toBe(`${amma} `.repeat(40_000));
    expect(vanoka.transliterate("")).toBe("");
    expect(vanoka.transliterate("\u{1F600}!")).toBe("\u{1F600}!");
});

describe("settings", () => {
    test("an added key is a document that other settings adopt", () => {
        const settings = vanoka.settings();
        expect(settings.check("q", ka)).toEqual({ outcome: "free" });
        expect(settings.add("q", ka)).toEqual({ outcome: "free" });
        expect(vanoka.settings(settings.document).transliterate("qa")).toBe(ka);
        expect(settings.keys(ka)).toEqual([
            { key: "k", isAdded: false, isOn: true }, { key: "q", isAdded: true, isOn: true }]);
        settings.setBuiltIn("k", false);
        settings.remove("q");
        expect(settings.editor(ka)).toMatchObject({ group: "Consonant", isTyped: false, isAccepted: false });
        settings.reset();
        expect(settings.document).not.toContain("q");
    });

    test("says what a key meets", () => {
        const settings = vanoka.settings();
        expect(settings.check("g", ka).outcome).toBe("replaces");
        expect(settings.check("", ka).outcome).toBe("empty");
        expect(settings.check("1", ka)).toMatchObject({ outcome: "notLetters", problem: expect.any(String) });
        expect(() => settings.check("k", "no letter")).toThrow(VanokaError);
        const { rows } = (settings.add("g", ka), settings.editor("\u0D9C", "zq"));
        expect(rows).toEqual([{ state: { key: "g", isAdded: false, isOn: true, takenBy: ka }, note: `now types ${ka}`,
            controlName: "Take back, g" }]);
    });

    test("a document that does not decode leaves the built-in keys", () => {
        const settings = vanoka.settings();
        expect(settings.load("{")).toBe(false);
        expect(settings.transliterate("ka")).toBe(ka);
        expect(settings.document).toBe("{");
    });

    test("a key held down offers its letters with their keys", () => {
        const offered = vanoka.settings().longPress("n");
        expect(offered.length).toBeGreaterThan(3);
        for (const { letter, keys } of offered)
            expect(vanoka.settings().keys(letter.id).map((state) => state.key)).toContain(keys);
    });
});

describe("suggesting", () => {
    const rows: Candidate[] = [
        { text: mama, kind: "typed", isLearnt: false }, { text: mamaya, kind: "word", isLearnt: true }];

    function typed(typing: Suggesting): void {
        for (const character of "mama")
            typing.press(key(character));
        expect(typing.take(typing.request!.number, rows)).toBe(true);
    }

    test("a row goes in by Tab and Space, is learnt, and taken back by Delete", () => {
        const typing = vanoka.suggesting();
        typing.switch(true, true);
        typed(typing);
        expect(typing.line).toEqual({ rows, highlighted: 0 });
        expect(typing.press(key("\t"))).toEqual({ consumed: true, effect: { kind: "mark", text: mamaya } });
        expect(typing.line.highlighted).toBe(1);
        expect(typing.press(key(" "))).toEqual({ consumed: true, effect: { kind: "insert", text: `${mamaya} ` },
            lesson: { learn: { keys: "mama", text: mamaya } } });
        expect(typing.press({ code: KeyCode.delete, modifiers: 0, characters: "" }).lesson)
            .toEqual({ unlearn: { keys: "mama", text: mamaya } });
    });

    test("candidates of an older key are dropped", () => {
        const typing = vanoka.suggesting();
        typing.switch(true, false);
        typing.press(key("m"));
        const { number } = typing.request!;
        expect(typing.needsCandidates(key("\t"))).toBe(true);
        typing.press(key("a"));
        expect(typing.take(number, rows)).toBe(false);
        expect(typing.line.rows).toEqual([]);
    });

    test("a learnt row is forgotten, others are not", () => {
        const typing = vanoka.suggesting();
        typing.switch(true, true);
        typed(typing);
        expect(typing.forgetRow(0).lesson).toBeUndefined();
        expect(typing.forgetRow(1).lesson).toEqual({ forget: mamaya });
    });
});

test("candidates come from lists and from what was learnt", () => {
    const words = vanoka.words(`${mamaya}\t5\n`), english = vanoka.english("mama\t1\n"), emoji = vanoka.emoji("mama\t\u{1F64B}\n");
    expect([words.size, english.size, emoji.size]).toEqual([1, 1, 1]);
    expect(words.suggest(mama, 3)).toEqual([mamaya]);
    expect(emoji.match("mama")).toEqual(["\u{1F64B}"]);
    const learnt = vanoka.learnt();
    learnt.learn({ keys: "mamage", text: `${mama}\u0D9C\u0DD9` });
    const found = vanoka.candidates({ words, english, emoji }).find({ keys: "mama", preview: mama }, 6, learnt.personal);
    expect(found[0]).toEqual({ text: mama, kind: "typed", isLearnt: false });
    expect(found).toContainEqual({ text: `${mama}\u0D9C\u0DD9`, kind: "word", isLearnt: true });
    expect(found).toContainEqual({ text: mamaya, kind: "word", isLearnt: false });
});

test("candidates are what people mean who follow no scheme, once they have a reading", () => {
    const plain = vanoka.candidates({ words: vanoka.words(`${gedara}\t5\n`), never: gedara.repeat(2) });
    const typed = { keys: "geadara", preview: amma };
    const textsOf = (candidates: typeof plain): string[] => candidates.find(typed, 6).map((row) => row.text);
    expect(textsOf(plain)).toEqual([amma]);
    const reading = plain.reading(4);
    expect(textsOf(reading)).toContain(gedara);
    const settings = vanoka.settings(), own = { keys: "qqqedara", preview: amma };
    expect(reading.find(own, 6).length).toBe(1);
    settings.add("qqq", "\u0D9C");
    expect(reading.reading(4, settings).find(own, 6).map((row) => row.text)).toContain(gedara);
    expect(() => plain.reading(5 as 4)).toThrow(VanokaError);
});

test("what was learnt is carried elsewhere, and a file that is no list of words is refused with its line", () => {
    const learnt = vanoka.learnt(), other = vanoka.learnt();
    learnt.learn({ keys: "amma", text: amma });
    learnt.forget(mama);
    expect(other.import(learnt.document)).toBeUndefined();
    expect(other.document).toBe(learnt.document);
    expect(other.import("# words\nno list\n")).toEqual({ line: 2, reason: expect.any(String) });
    expect(other.import(new Uint8Array([0xc3, 0x28]))).toMatchObject({ line: 1 });
    expect(other.document).toBe(learnt.document);
});

test("a stroke over the keys of a word finds it", () => {
    const rows = ["qwertyuiop", "asdfghjkl", "zxcvbnm"];
    const keys = rows.flatMap((row, y) => [...row].map((label, x) => ({ label, x: x + y / 2, y })));
    const decoder = vanoka.decoder([`${mama}\t9\n${amma}\t9\n`, "gears\t3\n"]);
    expect(decoder.size).toBe(3);
    const points = new Float64Array([..."amma"].flatMap((label) => {
        const place = keys.find((each) => each.label === label)!;
        return [place.x, place.y];
    }));
    expect(decoder.decode(points, vanoka.layout(keys), 1, 3)[0]).toBe(amma);
    expect(decoder.decode(points.subarray(0, 2), vanoka.layout(keys), 1, 3)).toEqual([]);
});

test("what is released gives its memory back", () => {
    const round = (): void => {
        const learnt = vanoka.learnt(), typing = vanoka.typing();
        typing.press(key("k"));
        for (const handle of [learnt, typing])
            handle.release();
    };
    round();
    const before = vanoka.module.memory;
    for (let times = 0; times < 2000; ++times)
        round();
    expect(vanoka.module.memory).toBe(before);
});

test("an instance that traps says so, and another goes on", async () => {
    const typing = vanoka.typing();
    expect(() => vanoka.module.run("typing_press", 0x7fff_fff0, 0, 0, "k", 4, 4)).toThrow(WebAssembly.RuntimeError);
    expect(vanoka.module.isBroken).toBe(true);
    expect(() => vanoka.transliterate("amma")).toThrow(WebAssembly.RuntimeError);
    typing.release();
    expect((await loaded()).transliterate("amma")).toBe(amma);
});

test("kinds are those of the header", () => {
    const header = read("c/vanoka.h");
    for (const [name, number] of Object.entries(Kind)) {
        const constant = `VANOKA_${name.replace(/[A-Z]/g, (letter) => `_${letter}`).toUpperCase()}`;
        expect(new RegExp(`\\b${constant}\\s*=\\s*${number}\\b`).test(header), constant).toBe(true);
    }
});
