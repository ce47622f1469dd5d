import { fileURLToPath } from "node:url";
import { defineConfig, type Plugin } from "vite";

const top = (path: string): string => fileURLToPath(new URL(`../../${path}`, import.meta.url));

/// The module is fetched beside the script instead of after it.
const preloadModule: Plugin = {
    name: "preload-module",
    transformIndexHtml: {
        order: "post",
        handler: (_, { bundle }) => Object.keys(bundle ?? {}).filter((name) => name.endsWith(".wasm")).map((name) =>
            ({ tag: "link", attrs: { rel: "preload", as: "fetch", type: "application/wasm", href: `./${name}`, crossorigin: true }, injectTo: "head" })),
    },
};

export default defineConfig({
    plugins: [preloadModule],
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
