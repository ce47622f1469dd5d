import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import type { AddressInfo } from "node:net";
import { createRequire } from "node:module";
import type { BrowserContext, Page } from "playwright-core";
import { afterAll, afterEach, expect, inject, test } from "vitest";
// @ts-expect-error: plain JavaScript, as it runs without tools
import { serve } from "../../scripts/serve.mjs";
import { amma, closeBrowser, context, desktop, expectText, gedara, mama, opened, phone, picture, ready, said, textOf } from "./support.ts";

afterAll(closeBrowser);
afterEach(() => void said.splice(0));

async function findings(page: Page): Promise<string[]> {
    const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf-8");
    await page.evaluate(axe);
    return page.evaluate(async () => {
        const { violations } = await (globalThis as unknown as { axe: { run(): Promise<{ violations: { id: string; nodes: { html: string }[] }[] }> } }).axe.run();
        return violations.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.html).join(" ").slice(0, 300)}`);
    });
}

test("the text survives a reload and a crash in the middle of a word", async () => {
    const within = await context(desktop), page = await opened(within);
    await page.locator("#text").click();
    await page.keyboard.type("amma ged");
    const text = await textOf(page);
    await page.reload();
    await ready(page);
    await expectText(page, text);
    await page.locator("#text").click();
    await page.keyboard.press("Control+End");
    await page.keyboard.type(" mam");
    const crashed = page.waitForEvent("crash");
    void page.goto("chrome://crash").catch(() => undefined);
    await crashed;
    await page.close();
    const next = await opened(within);
    await expect.poll(() => textOf(next)).toContain(amma);
    expect(await textOf(next)).toContain("\u0DB8\u0DB8\u0DCA");
    await within.close();
});

test("two tabs keep a text each, and share keys and words", async () => {
    const within = await context(desktop), first = await opened(within, "strokes");
    await first.locator("#text").click();
    await first.keyboard.type("amma ");
    const second = await opened(within, "strokes");
    expect(await textOf(second)).toBe("");
    await second.locator("#text").click();
    await second.keyboard.type("mama ");
    for (const [page, text] of [[first, amma], [second, mama]] as const) {
        await page.reload();
        await ready(page, "strokes");
        await expectText(page, `${text} `);
    }
    await first.getByRole("button", { name: "Settings" }).click();
    await first.getByLabel("New key").fill("qq");
    await first.getByRole("button", { name: "Add", exact: true }).click();
    await second.locator("#text").click();
    await second.keyboard.press("Control+End");
    await second.keyboard.type("qq ");
    await expectText(second, `${mama} \u0D85 `);
    await second.getByRole("button", { name: "Settings" }).click();
    await expect.poll(async () => {
        const download = second.waitForEvent("download");
        await second.getByRole("button", { name: "Export words" }).click();
        return readFileSync(await (await download).path(), "utf-8");
    }).toMatch(new RegExp(`(${amma}\t1\n${mama}|${mama}\t1\n${amma})\t1\n`));
    await within.close();
});

/// Drafts that tabs have left behind, the latest one last.
async function withDrafts(...texts: readonly string[]): Promise<BrowserContext> {
    const within = await context(desktop), page = await opened(within);
    await page.evaluate((drafts) => drafts.forEach((text, at) =>
        localStorage.setItem(`vanoka.draft.${at}`, JSON.stringify({ text, changed: 1000 + at }))), texts);
    await page.close();
    return within;
}

const draftsIn = (page: Page): Promise<string[]> => page.evaluate(() => Object.keys(localStorage)
    .filter((key) => key.startsWith("vanoka.draft.")).map((key) => (JSON.parse(localStorage.getItem(key)!) as { text: string }).text).sort());

test.each([
    ["the only draft there is", [amma], ["", amma]],
    ["the latest of two drafts", [amma, mama], [amma, mama]],
])("of two tabs that are opened at once one shows %s, and neither writes over the other", async (_, drafts, shown) => {
    const within = await withDrafts(...drafts);
    const waiting: (() => void)[] = [];
    await within.exposeFunction("meet", () => new Promise<void>((resolve) => {
        if (waiting.push(resolve) === 2)
            waiting.forEach((go) => go());
    }));
    await within.addInitScript(() => { // what the one sees, the other sees before either acts
        const { request, query } = navigator.locks, met = (globalThis as unknown as { meet(): Promise<void> }).meet;
        let meeting: Promise<void> | undefined;
        navigator.locks.query = async () => { const seen = await query.call(navigator.locks); await (meeting ??= met()); return seen; };
        navigator.locks.request = (async (...given: Parameters<typeof request>) => { await (meeting ??= met()); return request.apply(navigator.locks, given); }) as typeof request;
    });
    const pages = await Promise.all([opened(within), opened(within)]);
    const before = await Promise.all(pages.map(textOf));
    expect([...before].sort()).toEqual(shown);
    for (const page of pages) {
        await page.locator("#text").click();
        await page.keyboard.press("Control+End");
        await page.keyboard.type(pages.indexOf(page) === 0 ? "gedhara " : "mama ");
    }
    const after = [`${before[0]}${gedara} `, `${before[1]}${mama} `];
    await expect.poll(() => draftsIn(pages[0]!)).toEqual([...after].sort());
    await within.close();
});

test("what was typed before a draft could be shown stays, and the draft is for the next tab", async () => {
    const within = await withDrafts(amma), page = await within.newPage();
    await page.addInitScript(() => {
        const { request, query } = navigator.locks, typed = new Promise((resolve) => Object.assign(globalThis, { typed: resolve }));
        navigator.locks.query = async () => { await typed; return query.call(navigator.locks); };
        navigator.locks.request = (async (...given: Parameters<typeof request>) => { await typed; return request.apply(navigator.locks, given); }) as typeof request;
    });
    await page.goto(inject("address"));
    await page.locator("#text").click();
    await page.keyboard.type("as typed");
    await page.evaluate("typed()");
    await ready(page);
    await expectText(page, "as typed");
    await expect.poll(() => draftsIn(page)).toEqual(["as typed", amma]);
    const next = await opened(within);
    await expectText(next, amma);
    await page.reload();
    await page.evaluate("typed()");
    await ready(page);
    await expectText(page, "as typed");
    await within.close();
});

test("a tab that comes back to a draft which another has taken up since begins one of its own", async () => {
    const within = await context(desktop), first = await opened(within);
    await first.locator("#text").click();
    await first.keyboard.type("amma ");
    await first.goto("about:blank");
    const second = await opened(within);
    await expectText(second, `${amma} `);
    await first.goBack();
    await ready(first);
    await expectText(first, "");
    await first.locator("#text").click();
    await first.keyboard.type("mama ");
    await expectText(first, `${mama} `);
    await expect.poll(() => draftsIn(first)).toEqual([`${amma} `, `${mama} `]);
    await within.close();
});

test("works without a connection and without a server after one visit", async () => {
    const { server, address } = await serve(new URL("../../dist/page", import.meta.url).pathname);
    const within = await context(desktop), page = await within.newPage();
    await page.goto(address);
    await ready(page, "strokes");
    await page.evaluate(async () => (await navigator.serviceWorker.ready).active !== null);
    await within.setOffline(true);
    server.closeAllConnections();
    server.close();
    await page.reload();
    await ready(page, "strokes");
    await page.getByRole("button", { name: "Got it" }).click();
    await page.keyboard.type("amma ");
    await expectText(page, `${amma} `);
    await within.close();
});

test("nothing can be sent elsewhere, and nothing is", async () => {
    let asked = 0;
    const other = createServer((_, response) => {
        ++asked;
        response.end();
    });
    await new Promise<void>((done) => other.listen(0, "127.0.0.1", done));
    const elsewhere = `http://127.0.0.1:${(other.address() as AddressInfo).port}/`;
    const within = await context(desktop), page = await opened(within);
    const requested: string[] = [];
    page.on("request", ({ url }) => void requested.push(url as unknown as string));
    const outcomes = await page.evaluate(async (address) => {
        const image = new Image();
        const drawn = new Promise((done) => { image.onload = () => done("sent"); image.onerror = () => done("refused"); });
        image.src = address;
        const form = Object.assign(document.createElement("form"), { action: address, method: "post" });
        document.body.append(form);
        form.submit();
        const fetched = fetch(address).then(() => "sent", () => "refused");
        return Promise.all([drawn, fetched, navigator.sendBeacon(address, "text") ? fetched : "refused"]);
    }, elsewhere);
    expect(outcomes).toEqual(["refused", "refused", "refused"]);
    expect(asked).toBe(0);
    other.close();
    await within.close();
});

test("a module that traps is replaced, and the word goes on", async () => {
    const page = await opened(await context(desktop), "typing", () => {
        const plain = WebAssembly.instantiate.bind(WebAssembly) as (...given: unknown[]) => Promise<WebAssembly.Instance>;
        let presses = 0;
        (WebAssembly as { instantiate: unknown }).instantiate = async (...given: unknown[]) => {
            const { exports } = await plain(...given);
            const press = exports["vanoka_suggesting_press"] as (...numbers: number[]) => number;
            return { exports: { ...exports, vanoka_suggesting_press: (...numbers: number[]) => {
                if (++presses === 3)
                    throw new WebAssembly.RuntimeError("unreachable");
                return press(...numbers);
            } } };
        };
    });
    await page.locator("#text").click();
    await page.keyboard.type("amma gedhara ");
    await expectText(page, `${amma} ${gedara} `);
    await page.context().close();
});

test("storage that refuses, no workers, no module: the text stays and something is said", async () => {
    const troubles: [string, () => void, string][] = [
        ["does not store the text", () => {
            Storage.prototype.setItem = () => { throw new DOMException("full", "QuotaExceededError"); };
            Object.defineProperty(globalThis, "indexedDB", { value: { open: () => { throw new Error("refused"); } } });
        }, `${amma} `],
        ["Words cannot be suggested", () => { (globalThis as { Worker: unknown }).Worker = class { constructor() { throw new Error("no workers"); } }; }, `${amma} `],
        ["cannot run the keyboard", () => {
            WebAssembly.compile = WebAssembly.compileStreaming = () => Promise.reject(new WebAssembly.CompileError("no SIMD"));
        }, "amma "],
    ];
    for (const [message, trouble, text] of troubles) {
        const within = await context(desktop), page = await within.newPage();
        await page.addInitScript(() => localStorage.setItem("vanoka.preferences.v1", '{"hintSeen":true}'));
        await page.addInitScript(trouble);
        await page.goto(inject("address"));
        await page.waitForFunction(() => document.getElementById("status")!.textContent !== "" || document.documentElement.dataset["ready"]);
        await page.locator("#text").click();
        await page.keyboard.type("amma ");
        await expect.poll(() => page.locator("#status").textContent()).toContain(message);
        expect((await textOf(page)).replace("\u00A0", " "), message).toBe(text);
        await within.close();
    }
});

/// Words are learnt in the worker, which no script of the page's comes into.
async function openedWithWorker(script: string): Promise<Page> {
    const within = await context({ ...desktop, serviceWorkers: "block" });
    await within.route(/worker-[^/]*\.js$/, async (route) => {
        const plain = await (await route.fetch()).text();
        await route.fulfill({ contentType: "text/javascript", body: `${script};${plain}` });
    });
    return opened(within, "strokes");
}

test.each([
    ["there is no database", `Object.defineProperty(globalThis, "indexedDB", { value: { open() { throw new Error("no room"); } } })`],
    ["the database is full", `IDBObjectStore.prototype.add = () => { throw new DOMException("no room", "QuotaExceededError"); }`],
])("where %s, words are learnt until the page is closed, and that is said once", async (_, trouble) => {
    const page = await openedWithWorker(trouble), status = page.locator("#status");
    const saysNothing = (): Promise<void> => status.evaluate((element) => element.replaceChildren());
    await page.locator("#text").click();
    await page.keyboard.type("amma ");
    await expect.poll(() => status.textContent()).toContain("only until you close the page");
    await saysNothing();
    await page.keyboard.type("mama ");
    await page.getByRole("button", { name: "Settings" }).click();
    const download = page.waitForEvent("download");
    await page.getByRole("button", { name: "Export words" }).click();
    expect(readFileSync(await (await download).path(), "utf-8")).toMatch(new RegExp(`(${amma}\t1\n${mama}|${mama}\t1\n${amma})\t1\n`));
    expect(await status.textContent()).toBe("");
    const chooser = page.waitForEvent("filechooser");
    await page.getByRole("button", { name: "Import words" }).click();
    await (await chooser).setFiles({ name: "file", mimeType: "text/plain", buffer: Buffer.from(`${gedara}\t5\n`) });
    await expect.poll(() => status.textContent()).toMatch(/has stored stays as it is: .*no room/);
    await saysNothing();
    page.on("dialog", (dialog) => void dialog.accept());
    await page.getByRole("button", { name: "Erase all" }).click();
    await expect.poll(() => status.textContent()).toMatch(/has stored stays as it is: .*no room/);
    await page.context().close();
});

/// The module traps in the first lesson that is applied; and in all after it, where `always` is said.
const trapping = (always = false): string => `{
    const plain = WebAssembly.instantiate.bind(WebAssembly);
    let calls = 0;
    WebAssembly.instantiate = async (...given) => {
        const { exports } = await plain(...given);
        return { exports: { ...exports, vanoka_learnt_learn: (...numbers) => {
            if (++calls === 1 || ${always})
                throw new WebAssembly.RuntimeError("unreachable");
            return exports.vanoka_learnt_learn(...numbers);
        } } };
    };
}`;

test("a lesson in which the module traps is in force and stored once, and so are those after it", async () => {
    const page = await openedWithWorker(trapping()), status = page.locator("#status");
    await page.locator("#text").click();
    await page.keyboard.type("amma mama ");
    for (const _ of ["in force", "stored, and read by a module that traps in it as well"]) {
        await page.getByRole("button", { name: "Settings" }).click();
        const download = page.waitForEvent("download");
        await page.getByRole("button", { name: "Export words" }).click();
        expect(readFileSync(await (await download).path(), "utf-8")).toMatch(new RegExp(`(${amma}\t1\n${mama}|${mama}\t1\n${amma})\t1\n`));
        expect(await status.textContent()).toBe("");
        await page.reload();
        await ready(page, "strokes");
    }
    await page.context().close();
});

test("where the module traps in all that is learnt, that is said", async () => {
    const page = await openedWithWorker(trapping(true));
    await page.locator("#text").click();
    await page.keyboard.type("amma mama ");
    await expect.poll(() => page.locator("#status").textContent()).toContain("only until you close the page");
    await expectText(page, `${amma} ${mama} `);
    await page.context().close();
});

test("words and keys are exported and imported, and other files refused with a reason", async () => {
    const page = await opened(await context(desktop), "strokes");
    await page.locator("#text").click();
    await page.keyboard.type("amma ");
    await page.getByRole("button", { name: "Settings" }).click();
    const download = page.waitForEvent("download");
    await page.getByRole("button", { name: "Export words" }).click();
    expect(readFileSync(await (await download).path(), "utf-8")).toContain(`${amma}\t1`);
    const give = async (button: string, content: string): Promise<void> => {
        const chooser = page.waitForEvent("filechooser");
        await page.getByRole("button", { name: button }).click();
        await (await chooser).setFiles({ name: "file", mimeType: "text/plain", buffer: Buffer.from(content) });
    };
    await give("Import words", "\x00\x01 no list");
    await expect.poll(() => page.locator("#status").textContent()).toContain("no list of words (line 1)");
    await give("Import words", `${mama}\t5\n`);
    await expect.poll(() => page.locator("#status").textContent()).toContain("added");
    await give("Import keys", "no keys");
    await expect.poll(() => page.locator("#status").textContent()).toContain("stay as they are");
    await page.context().close();
});

test("copies, saves, and clears with an undo", async () => {
    const page = await opened(await context(desktop));
    await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
    await page.locator("#text").click();
    await page.keyboard.type("amma");
    await page.getByRole("button", { name: "Copy" }).click();
    await expect.poll(() => page.evaluate(() => navigator.clipboard.readText())).toBe(amma);
    const download = page.waitForEvent("download");
    await page.getByRole("button", { name: "Save" }).click();
    expect(readFileSync(await (await download).path(), "utf-8")).toBe(amma);
    await page.getByRole("button", { name: "Clear" }).click();
    await expectText(page, "");
    await page.getByRole("button", { name: "Undo" }).click();
    await expectText(page, amma);
    await page.context().close();
});

test("everything has a name and enough contrast, in both languages, light and dark, and at twice the size", async () => {
    for (const [name, options] of [["portrait-390", phone], ["dark", { ...phone, colorScheme: "dark" }],
        ["sinhala", { ...phone, locale: "si-LK" }], ["portrait-360", { ...phone, viewport: { width: 360, height: 640 } }],
        ["tablet", { ...phone, viewport: { width: 820, height: 1180 } }], ["zoomed", { viewport: { width: 500, height: 350 }, deviceScaleFactor: 2 }]] as const) {
        const page = await opened(await context(options), "strokes");
        await page.locator("#text").focus();
        await page.keyboard.type("amma gedhara yanav");
        await expect.poll(() => page.locator("#candidates button").count()).toBeGreaterThan(1);
        expect(await page.evaluate(() => document.documentElement.scrollWidth), name).toBeLessThanOrEqual(options.viewport.width);
        await picture(page, name);
        if (["portrait-390", "dark", "sinhala", "zoomed"].includes(name))
            expect(await findings(page), name).toEqual([]);
        await page.context().close();
    }
    for (const [panel, locale] of [["Settings", "en-GB"], ["Chart", "en-GB"], ["About", "en-GB"], ["සැකසුම්", "si-LK"]] as const) {
        const page = await opened(await context({ ...phone, locale }));
        await page.getByRole("button", { name: panel }).tap();
        await page.locator("#panel h2").waitFor();
        await picture(page, `panel-${locale === "si-LK" ? "settings-sinhala" : panel.toLowerCase()}`);
        expect(await findings(page), panel).toEqual([]);
        await page.context().close();
    }
}, 120_000);
