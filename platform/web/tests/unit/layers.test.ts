import { readFileSync, readdirSync } from "node:fs";
import { expect, test } from "vitest";

/// What the files of each folder may import from, beside their own.
const mayImport: Record<string, readonly string[]> = {
    "src/core": [], "src/ui": [], "src/field": ["core"], "src/words": ["core"], "src/keyboard": ["core", "field", "ui"],
    "src/page": ["core", "field", "keyboard", "ui", "words"],
    extension: ["core", "field", "page", "ui", "words"],
};

test.each(Object.entries(mayImport))("%s imports sideways or down", (folder, allowed) => {
    const source = new URL(`../../${folder}/`, import.meta.url);
    const files = readdirSync(source).filter((name) => name.endsWith(".ts"));
    expect(files.length).toBeGreaterThan(0);
    for (const name of files)
        for (const [, from] of readFileSync(new URL(name, source), "utf-8").matchAll(/(?:from|import\(|URL\()\s*"\.\.\/(?:src\/|\.\.\/)?(\w+)\//g))
            expect(allowed, `${folder}/${name}`).toContain(from);
});
