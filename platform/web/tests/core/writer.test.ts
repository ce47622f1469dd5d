import { afterAll, beforeAll, beforeEach, expect, test, vi } from "vitest";
import { FunctionKey, KeyCode, Modifier, Vanoka, type Candidate, type CandidateLine, type CandidateRequest, type Key, type Lesson, type Settings, type Suggesting } from "../../src/core/index.ts";
import { instances } from "../../src/field/instances.ts";
import { deleteKey, keyTyping, returnKey } from "../../src/field/keys.ts";
import { Writer } from "../../src/field/Writer.ts";
import { KeysStore } from "../../src/page/KeysStore.ts";
import { moduleBytes } from "./support.ts";
import { TrappingInstances, type Trap } from "./TrappingInstances.ts";

const instancesThatTrap = new TrappingInstances();
const stored = new Map<string, string>();
let compiled: WebAssembly.Module;
beforeAll(() => {
    compiled = new WebAssembly.Module(moduleBytes);
    instancesThatTrap.install();
    vi.stubGlobal("window", { addEventListener: () => undefined });
    vi.stubGlobal("localStorage", { getItem: (key: string) => stored.get(key) ?? null, setItem: (key: string, value: string) => stored.set(key, value) });
});
afterAll(() => {
    instancesThatTrap.remove();
    vi.unstubAllGlobals();
});
beforeEach(() => {
    instancesThatTrap.callsAfterTraps = [];
});

/// What can be seen of a page: the field, the line, what was taught, which keys are stored and in force.
interface Seen {
    text: string;
    marked: string;
    line: CandidateLine;
    taught: Lesson[];
    stored: string;
    read: string;
}

/// A page with a field, whose candidates come when they are told to.
class Page {
    readonly seen: Seen = { text: "", marked: "", line: { rows: [], highlighted: 0 }, taught: [], stored: "", read: "" };
    readonly keys: KeysStore;
    readonly writer: Writer;
    #typing!: Suggesting;
    #wanted: CandidateRequest[] = [];

    constructor() {
        stored.clear();
        const { seen } = this, instance = instances(compiled, Vanoka.again(compiled));
        this.keys = new KeysStore(instance);
        this.writer = new Writer({
            insert: (text) => Object.assign(seen, { text: seen.text + text, marked: "" }),
            mark: (marked) => Object.assign(seen, { marked }),
        }, {
            make: () => (this.#typing = instance().suggesting(this.keys.settings)),
            taught: (lesson) => void seen.taught.push(lesson),
            wanted: (request) => void this.#wanted.push(request),
            shown: (line) => void (seen.line = line),
            passed: (key) => this.#handle(key),
        });
    }

    /// The keys of the composition; nothing while the module that knew them is gone.
    get composed(): string | undefined {
        return this.#typing.module.isBroken ? undefined : this.#typing.composition?.keys ?? "";
    }

    get wantsCandidates(): boolean {
        return this.#wanted.length > 0;
    }

    press(key: Key): void {
        if (!this.writer.press(key))
            this.#handle(key);
    }

    /// As on pages, where a click there takes the focus from the text. What a trap has kept from being done is done again.
    edit(change: (settings: Settings) => void): void {
        this.writer.end();
        again(() => this.keys.edit(change));
    }

    read(keys: string): void {
        again(() => (this.seen.read = this.keys.settings.transliterate(keys)));
    }

    /// The field has put in what was marked by itself.
    putIn(): void {
        const { seen } = this;
        Object.assign(seen, { text: seen.text + seen.marked, marked: "" });
        this.writer.forget();
    }

    /// Those of older keys alone may come, or all.
    candidatesCome(which: "old" | "all"): void {
        const newest = this.#wanted.at(-1)?.number;
        const [coming, left] = [this.#wanted.filter(({ number }) => which === "all" || number !== newest), this.#wanted.filter(({ number }) => which === "old" && number === newest)];
        this.#wanted = left;
        for (const { number, keys, preview } of coming)
            this.writer.take(number, candidatesOf(keys, preview));
    }

    #handle({ code, characters }: Key): void {
        const { seen } = this;
        if (code === deleteKey.code)
            seen.text = seen.text.slice(0, -1);
        else if (/^[^\p{Cc}\uF700-\uF8FF]+$/u.test(characters))
            seen.text += characters;
        else
            seen.text += `<${characters.codePointAt(0)!.toString(16)}>`; // what else it does, at this place
    }
}

function again(act: () => void): void {
    try {
        act();
    } catch (problem) {
        if (!(problem instanceof WebAssembly.RuntimeError))
            throw problem;
        act();
    }
}

const candidatesOf = (keys: string, preview: string): Candidate[] => [
    { text: preview, kind: "typed", isLearnt: false }, { text: `${preview}\u0DA7`, kind: "word", isLearnt: true },
    { text: `${preview}\u0DBA`, kind: "word", isLearnt: false }, { text: keys, kind: "latin", isLearnt: false }];

/// The same numbers for the same seed everywhere.
function randomsOf(seed: number): (below: number) => number {
    let state = seed;
    return (below) => {
        state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
        return Math.floor((state / 2 ** 32) * below);
    };
}

type Verb = readonly [name: string, act: (page: Page) => void];

function verbOf(random: (below: number) => number): Verb {
    const of = <Value>(values: readonly Value[]): Value => values[random(values.length)]!;
    const special = (characters: string, modifiers = 0): Key => ({ code: KeyCode.other, modifiers, characters });
    const others: readonly (readonly [string, Key])[] = [
        ["Backspace", deleteKey], ["Backspace", deleteKey], ["Space", keyTyping(" ")], ["Space", keyTyping(" ")], ["Return", returnKey],
        ["Escape", { code: KeyCode.escape, modifiers: 0, characters: "\x1B" }], ["Tab", special("\t")], ["Tab", special("\t")], ["Tab", special("\t")], ["Down", special(FunctionKey.down)],
        ["Up", special(FunctionKey.up)], ["Shift+Delete", special(FunctionKey.deleteForward, Modifier.shift)], ["Left", special(FunctionKey.left)],
        [".", keyTyping(".")], ["7", keyTyping("7")]];
    const pressed = (name: string, key: Key): Verb => [`press ${name}`, (page) => page.press(key)];
    const kind = random(100), row = random(5), letter = of([..."kgnmdhrtaiueoyRAq"]), isOn = random(2) !== 0, isLearning = random(4) !== 0;
    const edits: readonly Verb[] = [
        ["add q", (page) => page.edit((settings) => void settings.add("q", "\u0D9A"))], ["remove q", (page) => page.edit((settings) => settings.remove("q"))],
        [`switch k ${isOn}`, (page) => page.edit((settings) => settings.setBuiltIn("k", isOn))], ["reset", (page) => page.edit((settings) => settings.reset())]];
    const rare: readonly Verb[] = [
        ["end", (page) => page.writer.end()], ["put in", (page) => page.putIn()], [`choose ${row}`, (page) => page.writer.choose(row)],
        [`forget row ${row}`, (page) => page.writer.forgetRow(row)], ["read", (page) => page.read("amma qa")],
        [`suggest ${isOn}, learn ${isLearning}`, (page) => page.writer.switch(isOn, isLearning)], of(edits)];
    if (kind < 45)
        return pressed(letter, keyTyping(letter));
    if (kind < 65)
        return pressed(...of(others));
    if (kind < 85)
        return isOn ? ["all candidates come", (page) => page.candidatesCome("all")] : ["old candidates come", (page) => page.candidatesCome("old")];
    return of(rare);
}

test("a key that needs candidates waits for those of the newest key", () => {
    const page = new Page();
    page.writer.switch(true, true);
    for (const characters of ["g", "e", "\t"])
        page.press({ code: KeyCode.other, modifiers: 0, characters });
    const { marked } = page.seen;
    page.candidatesCome("old");
    expect(page.seen).toMatchObject({ text: "", marked });
    page.candidatesCome("all");
    expect(page.seen).toMatchObject({ text: "", marked: `${marked}\u0DA7`, line: { highlighted: 1 } });
});

test("a highlighted row goes in, though suggestions were switched off and the module has trapped since", () => {
    const page = new Page();
    page.writer.switch(true, true);
    for (const characters of ["g", "e"])
        page.press(keyTyping(characters));
    page.candidatesCome("all");
    page.press({ code: KeyCode.other, modifiers: 0, characters: "\t" });
    page.writer.switch(false, true);
    const row = page.seen.marked;
    expect(instancesThatTrap.during({ call: 0, isLate: false }, () => page.press(keyTyping(" ")))).toBe(true);
    page.press(keyTyping("g"));
    expect(page.seen.text).toBe(`${row} `);
    expect(page.wantsCandidates).toBe(false);
});

type Play = readonly (readonly [Verb, Trap | undefined])[];
interface Moment {
    readonly seen: Seen;
    readonly composed: string | undefined;
    readonly hasTrapped: boolean;
}

function played(play: Play): Moment[] {
    const page = new Page();
    page.writer.switch(true, true);
    return play.map(([[, act], trap]) => {
        page.seen.taught = [];
        const hasTrapped = instancesThatTrap.during(trap, () => act(page));
        return { seen: { ...page.seen, stored: [...stored].join() }, composed: page.composed, hasTrapped };
    });
}

/// The last verbs until one of them, with the calls that trapped.
const told = (play: Play, until: number): string => play.slice(Math.max(0, until - 12), until + 1)
    .map(([[name], trap]) => (trap ? `${name} (call ${trap.call} traps${trap.isLate ? " late" : ""})` : name)).join("; ");

/// A new instance does not know the word that a Backspace right after it would unlearn.
const butUnlearning = (seen: Seen): Seen => ({ ...seen, taught: seen.taught.filter(({ unlearn }) => unlearn === undefined) });
const putsWordsIn = /Space|Return|choose|\.|7/;

const sequences = 30, verbsEach = 120, patience = 120_000; // a second, where nothing else runs

test("whatever call traps, the page is as if none had", () => {
    let traps = 0;
    for (let seed = 1; seed <= sequences; ++seed) {
        const random = randomsOf(seed);
        const play: Play = Array.from({ length: verbsEach }, () =>
            [verbOf(random), random(4) === 0 ? { call: random(6), isLate: random(2) === 0 } : undefined]);
        const expected = played(play.map(([verb]) => [verb, undefined]));
        let knowsTheLastWord = true;
        played(play).forEach(({ seen, composed, hasTrapped }, at) => {
            traps += hasTrapped ? 1 : 0;
            knowsTheLastWord = !hasTrapped && (knowsTheLastWord || putsWordsIn.test(play[at]![0][0]));
            const what = knowsTheLastWord ? (all: Seen): Seen => all : butUnlearning;
            expect(what(seen), told(play, at)).toEqual(what(expected[at]!.seen));
            if (composed !== undefined)
                expect(composed, told(play, at)).toBe(expected[at]!.composed);
        });
        expect(instancesThatTrap.callsAfterTraps).toEqual([]);
    }
    expect(traps).toBeGreaterThan(10 * sequences);
}, patience);
