import { expect, test } from "vitest";
// @ts-expect-error: plain JavaScript, shared with the module's own tests
import { Field, stepsOf } from "../../../../tests/c/wasm/scenarios.mjs";
import type { Vanoka } from "../../src/core/index.ts";
import { Played } from "./played.ts";
import { loaded, namesIn, read, withJoiners } from "./support.ts";

const vanoka = await loaded();
const kinds = (each: Vanoka): [string, Played][] => [
    ["typing", new Played(each, (settings) => each.typing(settings))],
    ["typing that may suggest", new Played(each, (settings) => each.suggesting(settings))],
];

for (const [kind, played] of kinds(vanoka)) {
    test.each(namesIn("tests/scenarios").filter((name) => name.endsWith(".scenario")))(`${kind} plays %s`, (name) => {
        const field = new Field(played);
        const steps: { line: string; keys: string; screen: string }[] = stepsOf(read(`tests/scenarios/${name}`));
        expect(steps.length).toBeGreaterThan(0);
        for (const { line, keys, screen } of steps) {
            field.play(keys);
            expect(field.screen, line).toBe(screen);
        }
        field.release();
    });
}

test.each(["consonant-pairs.txt", "consonants-with-vowels.txt", "every-key.txt", "vowel-pairs.txt"])("reads %s", (name) => {
    const rows = read(`tests/golden/${name}`).trim().split(/\s+/).map((row) => row.split("="));
    expect(rows.length).toBeGreaterThan(50);
    for (const [keys, text] of rows)
        expect(vanoka.transliterate(keys!), keys).toBe(withJoiners(text!));
});
