import { fileURLToPath } from "node:url";
import { defineConfig } from "vite";

const top = (path: string): string => fileURLToPath(new URL(`../../${path}`, import.meta.url));

export default defineConfig({
    base: "./",
    publicDir: "public",
    resolve: {
        alias: [
            { find: /^#module/, replacement: process.env["VANOKA_MODULE"] ?? top("build/wasm/bin/vanoka.wasm") },
            { find: /^#data/, replacement: top("data") },
            { find: /^#lists-licences/, replacement: top("data/LICENSES.md") },
            { find: /^#licence/, replacement: top("LICENSE") },
        ],
    },
    assetsInclude: ["**/*.tsv"],
    build: { target: "es2022", outDir: "dist/page", emptyOutDir: true, assetsInlineLimit: 0, modulePreload: { polyfill: false }, reportCompressedSize: false },
    worker: { format: "es" },
});
