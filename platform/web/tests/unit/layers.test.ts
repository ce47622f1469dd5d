import { readFileSync, readdirSync } from "node:fs";
import { expect, test } from "vitest";

/// What the files of each folder may import from, beside their own.
const mayImport: Record<string, readonly string[]> = {
    core: [], ui: [], field: ["core"], words: ["core"], keyboard: ["core", "field", "ui"], page: ["core", "field", "keyboard", "ui", "words"],
};

test.each(Object.entries(mayImport))("%s imports sideways or down", (folder, allowed) => {
    const source = new URL(`../../src/${folder}/`, import.meta.url);
    const files = readdirSync(source).filter((name) => name.endsWith(".ts"));
    expect(files.length).toBeGreaterThan(0);
    for (const name of files)
        for (const [, from] of readFileSync(new URL(name, source), "utf-8").matchAll(/(?:from|import\(|URL\()\s*"\.\.\/(\w+)\//g))
            expect(allowed, `${folder}/${name}`).toContain(from);
});
