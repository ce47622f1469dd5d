// After `tsc -p tsconfig.package.json`: makes dist/npm a package of what was compiled and of the module.
import { copyFileSync, readFileSync, writeFileSync } from "node:fs";

const top = new URL("../../../", import.meta.url), folder = new URL("../dist/npm/", import.meta.url);
copyFileSync(process.env.VANOKA_MODULE ?? new URL("build/wasm/bin/vanoka.wasm", top), new URL("vanoka.wasm", folder));
copyFileSync(new URL("../src/core/README.md", import.meta.url), new URL("README.md", folder));
copyFileSync(new URL("LICENSE", top), new URL("LICENSE", folder));
copyFileSync(new URL("../src/page/components.txt", import.meta.url), new URL("LICENSES-of-parts.txt", folder));
const [, version] = /^project\(\w+ VERSION (\d+\.\d+\.\d+)/m.exec(readFileSync(new URL("CMakeLists.txt", top), "utf-8"));
writeFileSync(new URL("package.json", folder), `${JSON.stringify({
    name: "vanoka",
    version,
    description: "Latin keys to Sinhala text: transliteration, typing, candidates, word lists, emoji, swiping",
    license: "Apache-2.0",
    type: "module",
    sideEffects: false,
    exports: { ".": { types: "./index.d.ts", default: "./index.js" }, "./vanoka.wasm": "./vanoka.wasm" },
    engines: { node: ">=18" },
}, null, 2)}\n`);
