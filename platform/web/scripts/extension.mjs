// Builds the extension: dist/extension for Chromium and its kin, dist/extension-firefox for Firefox. Only their
// manifests differ.
import { copyFileSync, cpSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { build } from "vite";

const web = new URL("../", import.meta.url), folder = new URL("dist/extension/", web), firefox = new URL("dist/extension-firefox/", web);
const path = (name, from = web) => fileURLToPath(new URL(name, from));
const usual = { root: path("."), configFile: path("vite.config.ts"), logLevel: "warn" };
const output = { outDir: path(".", folder), assetsInlineLimit: 0, reportCompressedSize: false, target: "es2022", modulePreload: false };
const names = { entryFileNames: "[name].js", chunkFileNames: "assets/[name].js", assetFileNames: "assets/[name][extname]" };
const asSettings = { name: "settings", transformIndexHtml: { order: "pre", handler: (html) => html
    .replace("./src/page/main.ts", "./extension/settings.ts").replace(/^<link rel="manifest".*\n/m, "") } };

await build({ ...usual, plugins: [asSettings], worker: { format: "es", rollupOptions: { output: names } },
    build: { ...output, emptyOutDir: true, rollupOptions: { output: names, input: {
        index: path("index.html"), popup: path("extension/popup.html"), background: path("extension/background.ts") } } } });
// Content scripts are no modules.
await build({ ...usual, publicDir: false, define: { "import.meta.url": "''" }, build: { ...output, emptyOutDir: false,
    lib: { entry: path("extension/content.ts"), formats: ["iife"], name: "vanoka", fileName: () => "content.js" } } });

for (const icon of ["icon-32.png", "icon-128.png"])
    copyFileSync(new URL(`extension/${icon}`, web), new URL(icon, folder));
rmSync(new URL("manifest.webmanifest", folder));
copyFileSync(new URL("../../LICENSE", web), new URL("LICENSE", folder));
const [, version] = /^project\(\w+ VERSION (\d+\.\d+\.\d+)/m.exec(readFileSync(new URL("../../CMakeLists.txt", web), "utf-8"));
const manifest = { ...JSON.parse(readFileSync(new URL("extension/manifest.json", web), "utf-8")), version };
const write = (to, what) => writeFileSync(new URL("manifest.json", to), `${JSON.stringify(what, null, 2)}\n`);
write(folder, manifest);
rmSync(firefox, { recursive: true, force: true });
cpSync(folder, firefox, { recursive: true });
const { minimum_chrome_version: _, background, ...common } = manifest;
write(firefox, { ...common, background: { scripts: [background.service_worker], type: "module" },
    browser_specific_settings: { gecko: { id: "vanoka@vanoka.example", strict_min_version: "128.0",
        data_collection_permissions: { required: ["none"] } } } });
