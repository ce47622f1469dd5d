// After `vite build`: writes the service worker with the list of all files, and each text file compressed beside itself.
import { createHash } from "node:crypto";
import { readFileSync, readdirSync, writeFileSync } from "node:fs";
import { brotliCompressSync, constants, gzipSync } from "node:zlib";

const folder = new URL("../dist/page/", import.meta.url);
const files = readdirSync(folder, { recursive: true, withFileTypes: true })
    .filter((entry) => entry.isFile())
    .map((entry) => `${entry.parentPath ?? entry.path}/${entry.name}`.slice(folder.pathname.length).replace(/^\//, ""))
    .filter((name) => name !== "sw.js" && !/\.(br|gz)$/.test(name))
    .sort();
const hash = createHash("sha256");
for (const name of files)
    hash.update(name).update(readFileSync(new URL(name, folder)));
const template = readFileSync(new URL("../src/page/sw.js", import.meta.url), "utf-8");
const worker = template.replace("VERSION", hash.digest("hex").slice(0, 16))
    .replace("[/* files */]", JSON.stringify(["./", ...files.filter((name) => name !== "index.html").map((name) => `./${name}`)]));
writeFileSync(new URL("sw.js", folder), worker);
for (const name of [...files, "sw.js"].filter((each) => !/\.png$/.test(each))) {
    const bytes = readFileSync(new URL(name, folder));
    const parameters = { [constants.BROTLI_PARAM_LGWIN]: 24, [constants.BROTLI_PARAM_SIZE_HINT]: bytes.length };
    writeFileSync(new URL(`${name}.br`, folder), brotliCompressSync(bytes, { params: parameters }));
    writeFileSync(new URL(`${name}.gz`, folder), gzipSync(bytes, { level: 9 }));
}
