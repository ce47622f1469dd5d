// The module as a page has it: its names, every golden file and every scenario. VANOKA_MODULE is its path.
import assert from "node:assert/strict";
import { readFileSync, readdirSync } from "node:fs";
import { test } from "node:test";
import { Module } from "./module.mjs";
import { Field, stepsOf } from "./scenarios.mjs";

const path = process.env.VANOKA_MODULE;
const read = (name) => readFileSync(new URL(`../../${name}`, import.meta.url), "utf-8");
const namesIn = (folder) =>
    readdirSync(new URL(`../../${folder}`, import.meta.url), { withFileTypes: true }).filter((entry) => entry.isFile()).map((entry) => entry.name);
const withJoiners = (text) => text.replaceAll("\\u200D", "\u200D");
const vanoka = await Module.load(path);

test("exports exactly the header's names, and needs no more than three of the system", () => {
    const listed = read("../c/vanoka.symbols").trim().split("\n");
    assert.deepEqual(vanoka.names.sort(), [...listed, "_initialize", "memory"].sort());
    const needed = WebAssembly.Module.imports(new WebAssembly.Module(readFileSync(path)));
    assert.deepEqual(needed.map(({ module, name }) => `${module} ${name}`).sort(),
        ["fd_close", "fd_seek", "fd_write"].map((name) => `wasi_snapshot_preview1 ${name}`));
    assert.equal(vanoka.call("abi"), 1);
});

const golden = ["consonant-pairs.txt", "consonants-with-vowels.txt", "every-key.txt", "vowel-pairs.txt"];
for (const name of golden) {
    test(`reads and types golden/${name}`, () => {
        const field = new Field(vanoka);
        const spellings = read(`golden/${name}`).trim().split(/\s+/).map((each) => each.split("="));
        assert.ok(spellings.length > 50);
        for (const [keys, text] of spellings) {
            const expected = withJoiners(text);
            const items = vanoka.ask("settings_transliterate", field.answer, field.settings, keys);
            assert.deepEqual(items.map((item) => item.text), [expected], keys);
            const before = field.screen;
            field.play(`${keys}<space>`);
            assert.equal(field.screen, `${before}${expected} `, keys);
        }
        field.release();
    });
}

test("finds every word of golden/swipe-spellings.txt by its spellings", () => {
    const rows = ["qwertyuiop", "asdfghjkl", "zxcvbnm"];
    const centers = new Map(rows.flatMap((row, y) => [...row].map((key, x) => [key, [x + y / 2, y]])));
    const labels = [...centers.keys()].join(""), answer = vanoka.create("answer");
    const layout = vanoka.create("layout", labels, new Float64Array([...centers.values()].flat()));
    const lines = read("golden/swipe-spellings.txt").trim().split("\n").filter((line) => line.includes(" = "));
    assert.ok(lines.length > 10);
    for (const line of lines) {
        const [word, spellings] = withJoiners(line).split(" = ");
        const list = new TextEncoder().encode(`${word}\t1\n`), at = vanoka.call("alloc", list.length);
        const places = new Uint8Array(new Uint32Array([at]).buffer);
        vanoka.write(at, list);
        const decoder = vanoka.createDecoder(places, new Uint8Array(new Uint32Array([list.length]).buffer));
        vanoka.call("free", at);
        assert.equal(vanoka.call("decoder_size", decoder), spellings ? 1n : 0n, line);
        for (const spelling of spellings ? spellings.split(" or ") : []) {
            const keys = spelling.length > 1 ? [...spelling] : [spelling, spelling];
            const stroke = new Float64Array(keys.flatMap((key) => centers.get(key)));
            const items = vanoka.ask("decoder_decode", answer, decoder, layout, stroke, 1, 1, 0);
            assert.deepEqual(items.map((item) => item.text), [word], spelling);
        }
        vanoka.call("decoder_release", decoder);
    }
    vanoka.call("layout_release", layout);
    vanoka.call("answer_release", answer);
});

for (const name of namesIn("scenarios")) {
    test(`plays scenarios/${name}`, () => {
        const field = new Field(vanoka), steps = stepsOf(read(`scenarios/${name}`));
        assert.ok(steps.length > 0);
        for (const { line, keys, screen } of steps) {
            field.play(keys);
            assert.equal(field.screen, screen, line);
        }
        field.release();
    });
}

test("gives back what it takes", () => {
    const type = () => {
        const field = new Field(vanoka);
        field.play("amma<space>gedhara<space>");
        field.release();
    };
    for (let round = 0; round < 10; ++round)
        type();
    const before = vanoka.memory;
    for (let round = 0; round < 2000; ++round)
        type();
    assert.equal(vanoka.memory, before);
});
