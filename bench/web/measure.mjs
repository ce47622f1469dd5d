// What the page and the module cost: measure.mjs NATIVE, where NATIVE is the program made of native.c. Times of the
// module stand beside those of the library in the same run; those in a browser are of this machine as busy as it is.
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { Vanoka } from "../../platform/web/dist/npm/index.js";
import { serve } from "../../platform/web/scripts/serve.mjs";

const { chromium } = createRequire(new URL("../../platform/web/package.json", import.meta.url))("playwright-core");
const top = new URL("../../", import.meta.url).pathname, folder = mkdtempSync(join(tmpdir(), "vanoka-measure-"));
const [words, english, emoji] = ["si", "en", "emoji"].map((name) => readFileSync(`${top}data/${name}.tsv`));
const say = (what, value, limit = "") => console.log(`${what.padEnd(58)} ${String(value).padStart(12)}  ${limit}`);
const at = (sorted, share) => sorted[Math.min(Math.floor(sorted.length * share), sorted.length - 1)];
const sorted = (numbers) => [...numbers].sort((one, other) => one - other);
const best = (work) => Math.min(...[1, 2, 3].map(() => {
    const start = performance.now();
    work();
    return (performance.now() - start) * 1000;
}));

function sizes() {
    const page = `${top}platform/web/dist/page/`;
    const files = readdirSync(page, { recursive: true }).filter((name) => name.endsWith(".br") || name.endsWith(".png"));
    const sum = (names) => names.reduce((total, name) => total + readFileSync(page + name).length, 0);
    const lists = files.filter((name) => /\.(tsv|txt)\.br$/.test(name));
    say("module, brotli, bytes", sum(files.filter((name) => name.endsWith(".wasm.br"))), "<= 155000");
    say("page without lists, brotli, bytes", sum(files) - sum(lists), "<= 220000");
    say("page with lists, brotli, bytes", sum(files), "<= 700000");
    const code = readFileSync(`${top}build/wasm/bin/vanoka.wasm`);
    say("functions that the module imports", WebAssembly.Module.imports(new WebAssembly.Module(code)).length, "<= 3");
}

// Deterministic: strokes that miss the centres of the keys of a word by up to half a key.
function strokes(list, count) {
    const rows = ["qwertyuiop", "asdfghjkl", "zxcvbnm"];
    const keys = rows.flatMap((row, y) => [...row].map((label, x) => ({ label, x: x + y / 2, y })));
    let seed = 1;
    const shake = () => ((seed = (seed * 48271) % 2147483647) / 2147483647 - 0.5) * 0.8;
    const chosen = list.filter((_, place) => place % Math.max(Math.floor(list.length / count), 1) === 0).slice(0, count);
    const way = (word) => [...word].map((letter) => keys.find((key) => key.label === letter)).map(({ x, y }) => [x + shake(), y + shake()]);
    return { keys, points: chosen.map((word) => {
        const places = way(word);
        return new Float64Array(places.flatMap(([x, y], place) => place === 0 ? [x, y]
            : [1, 2, 3, 4, 5, 6].flatMap((step) => [places[place - 1][0] + (x - places[place - 1][0]) * step / 6, places[place - 1][1] + (y - places[place - 1][1]) * step / 6])));
    }) };
}

async function inNode(native) {
    const vanoka = await Vanoka.load();
    const sinhala = vanoka.words(words);
    const decoder = vanoka.decoder([words, english], "people"); // as the page has it
    vanoka.candidates({ words: sinhala, english: vanoka.english(english), emoji: vanoka.emoji(emoji) });
    say("memory with all lists and strokes, one instance, bytes", vanoka.module.memory, "<= 32 MiB");
    say("words in the decoder", decoder.size);

    const typing = vanoka.typing(), keys = [..."mamagedharayanavaa"].map((characters) => ({ code: 0xffff, modifiers: 0, characters }));
    const round = () => {
        for (const key of keys)
            typing.press(key);
        typing.end();
    };
    for (let warm = 0; warm < 20_000; ++warm)
        round();
    const each = [];
    for (let times = 0; times < 200; ++times)
        each.push(best(() => {
            for (let rounds = 0; rounds < 50; ++rounds)
                round();
        }) / 50 / keys.length);
    say("a key through JavaScript, us, median", at(sorted(each), 0.5).toFixed(2), "<= 2");

    const list = words.toString("utf-8").split("\n").filter((line) => line && !line.startsWith("#")).map((line) => line.split("\t")[0]);
    const prefixes = [...new Set(list.slice(0, 4000).flatMap((word) => [1, 2, 3, 5].map((length) => word.slice(0, length))))];
    const { keys: places, points } = strokes(english.toString("utf-8").split("\n").map((line) => line.split("\t")[0]).filter((word) => /^[a-z]{4,9}$/.test(word)), 400);
    const layout = vanoka.layout(places);
    for (let warm = 0; warm < 2; ++warm) {
        prefixes.forEach((prefix) => sinhala.suggest(prefix, 6));
        points.forEach((stroke) => decoder.decode(stroke, layout, 1, 5));
    }
    const suggested = sorted(prefixes.map((prefix) => best(() => sinhala.suggest(prefix, 6))));
    const decoded = sorted(points.map((stroke) => best(() => decoder.decode(stroke, layout, 1, 5))));
    const files = ["prefixes", "strokes"].map((name) => join(folder, name));
    writeFileSync(files[0], `${prefixes.join("\n")}\n`);
    writeFileSync(files[1], `${points.map((stroke) => stroke.join(" ")).join("\n")}\n`);
    const told = execFileSync(native, [`${top}data/si.tsv`, `${top}data/en.tsv`, ...files], { encoding: "utf-8", maxBuffer: 1 << 28 }).split("\n");
    const plain = (what) => sorted(told.filter((line) => line.startsWith(what)).map((line) => Number(line.split(" ")[1])));
    const beside = (name, module, library, share, limit) => say(name, at(module, share).toFixed(1),
        `${limit}; native ${at(library, share).toFixed(1)}, ${(at(module, share) / at(library, share)).toFixed(2)} times`);
    beside(`suggestions of ${prefixes.length} prefixes, us, p50`, suggested, plain("suggest"), 0.5, "");
    beside("suggestions, us, p99", suggested, plain("suggest"), 0.99, "<= 25");
    beside(`${points.length} strokes, us, p50`, decoded, plain("stroke"), 0.5, "");
    beside("strokes, us, p95", decoded, plain("stroke"), 0.95, "<= 1500");
}

async function inBrowser() {
    const { server, address } = await serve(`${top}platform/web/dist/page`);
    const browser = await chromium.launch({ executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium", headless: true, args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--disable-background-networking"] });
    // What a driver puts into a page to look at it, a third of a megabyte, would be measured with the page.
    const typeFirst = async () => {
        const root = document.documentElement, field = document.getElementById("text");
        if (root.dataset.ready !== "typing")
            await new Promise((done) => new MutationObserver(() => root.dataset.ready === "typing" && done()).observe(root, { attributes: true }));
        field.focus();
        field.dispatchEvent(new KeyboardEvent("keydown", { key: "k", bubbles: true, cancelable: true }));
        return field.textContent;
    };
    const open = async (throttle) => {
        const context = await browser.newContext({ viewport: { width: 390, height: 780 }, hasTouch: true, isMobile: true }), page = await context.newPage();
        const session = await context.newCDPSession(page);
        await session.send("Page.enable");
        await session.send("Performance.enable", { timeDomain: "threadTicks" });
        await session.send("Emulation.setCPUThrottlingRate", { rate: throttle });
        const spent = async () => (await session.send("Performance.getMetrics")).metrics.find(({ name }) => name === "TaskDuration").value * 1000;
        const before = await spent(), start = Date.now();
        const parsed = new Promise((done) => session.once("Page.domContentEventFired", done));
        await session.send("Page.navigate", { url: address });
        await parsed;
        const { result } = await session.send("Runtime.evaluate", { expression: `(${typeFirst})()`, awaitPromise: true });
        if (result.value !== "\u0D9A\u0DCA")
            throw new Error(`the first letter is ${JSON.stringify(result)}`);
        return { page, context, session, wall: Date.now() - start, cpu: await spent() - before };
    };
    const first = async (throttle) => {
        const runs = [];
        for (let times = 0; times < 9; ++times) {
            const { context, cpu, wall } = await open(throttle);
            runs.push({ cpu, wall });
            await context.close();
        }
        return { cpu: sorted(runs.map(({ cpu }) => cpu)), wall: sorted(runs.map(({ wall }) => wall)) };
    };
    const { cpu } = await first(1);
    say("first letter, main thread's processor time, ms, median", at(cpu, 0.5).toFixed(0), `<= 100; ${cpu[0].toFixed(0)} to ${cpu.at(-1).toFixed(0)}`);
    const { wall } = await first(6);
    say("first letter at sixfold throttling, wall, ms, median", at(wall, 0.5), `<= 1000 on a quiet machine; ${wall[0]} to ${wall.at(-1)}`);

    const { page, session, context } = await open(1);
    await page.waitForSelector("html[data-words=strokes]", { state: "attached" });
    const work = await page.evaluate(() => {
        const field = document.getElementById("text"), text = "\u0DB8\u0DB8 \u0D9C\u0DD9\u0DAF\u0DBB \u0DBA\u0DB1\u0DC0\u0DCF ".repeat(4);
        field.textContent = `${text}\n`.repeat(Math.ceil(10_000 / (text.length + 1)));
        getSelection().collapse(field.firstChild, 5000);
        const times = [];
        for (const key of "mama gedhara yanavaa ".repeat(10)) {
            const start = performance.now();
            field.dispatchEvent(new KeyboardEvent("keydown", { key, bubbles: true, cancelable: true }));
            field.getBoundingClientRect();
            times.push(performance.now() - start);
        }
        return times;
    });
    say("a key's work in a text of 10,000 characters, ms, median", at(sorted(work), 0.5).toFixed(2), `<= 8; p95 ${at(sorted(work), 0.95).toFixed(2)}`);

    await page.evaluate(() => {
        document.getElementById("text").textContent = "";
        window.lifted = [];
        document.getElementById("keyboard").addEventListener("pointerup", () => { window.up = performance.now(); }, true);
        new MutationObserver(() => {
            if (window.up)
                window.lifted.push(performance.now() - window.up);
            window.up = 0;
        }).observe(document.getElementById("text"), { childList: true, characterData: true, subtree: true });
    });
    const boxes = Object.fromEntries(await page.locator("[data-key]").evaluateAll((keys) => keys.map((key) => {
        const { x, y, width, height } = key.getBoundingClientRect();
        return [key.dataset.key, { x: x + width / 2, y: y + height / 2 }];
    })));
    for (const word of ["mama", "amma", "gedhara", "yanavaa", "people", "about"].flatMap((each) => [each, each, each])) {
        await session.send("Input.dispatchTouchEvent", { type: "touchStart", touchPoints: [boxes[word[0]]] });
        for (const letter of word.slice(1))
            await session.send("Input.dispatchTouchEvent", { type: "touchMove", touchPoints: [boxes[letter]] });
        const before = await page.evaluate(() => window.lifted.length);
        await session.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [] });
        await page.waitForFunction((count) => window.lifted.length > count, before);
    }
    const lifted = sorted(await page.evaluate(() => window.lifted));
    say("a stroke's word after lifting the finger, ms, median", at(lifted, 0.5).toFixed(1), `<= 50; worst ${lifted.at(-1).toFixed(1)}`);
    await context.close();
    await browser.close();
    server.closeAllConnections();
    server.close();
}

sizes();
await inNode(process.argv[2]);
await inBrowser();
rmSync(folder, { recursive: true });
