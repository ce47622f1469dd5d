import { afterAll, beforeAll, beforeEach, expect, test } from "vitest";
import type { Frame, Locator, Page } from "playwright-core";
import { readFileSync } from "node:fs";
import { Vanoka } from "../../src/core/index.ts";
import { Extension } from "./Extension.ts";
import { amma, gedara, mama } from "./support.ts";

const fields = `<input id=input><textarea id=area></textarea><div id=rich contenteditable>x</div><div id=plain contenteditable=plaintext-only></div>
<input id=password type=password><input id=email type=email><input id=number type=number><input id=user autocomplete=username>
<input id=code inputmode=numeric><input id=fixed readonly>
<div id=shadow></div>
<script>document.getElementById("shadow").attachShadow({ mode: "open" }).innerHTML = "<textarea id=inner></textarea>";</script>`;
const heard = `<div id=model contenteditable></div><script>
let text = ""; const field = document.getElementById("model"); window.keys = []; window.inputs = [];
field.addEventListener("beforeinput", (event) => { event.preventDefault(); text += event.data ?? ""; field.textContent = text; });
field.addEventListener("keydown", ({ key }) => keys.push(key));</script>`;
const sites = {
    "site.test/": { body: fields },
    "site.test/model": { body: heard },
    "site.test/frames": { body: `<iframe id=other src="http://other.test/"></iframe><iframe id=srcdoc srcdoc="<textarea id=area></textarea>"></iframe>
        <iframe id=sandboxed sandbox="allow-scripts" src="http://site.test/"></iframe>` },
    "other.test/": { body: fields },
    "strict.test/": { headers: { "Content-Security-Policy": "default-src 'none'" }, body: fields },
};

let extension: Extension;
beforeAll(async () => {
    extension = await Extension.start(sites);
});
afterAll(() => extension?.stop());
beforeEach(() => extension.store({ "vanoka.on": true, "vanoka.sitesOff": [] }));

const textOf = (field: Locator): Promise<string> => field.evaluate((element) =>
    "value" in element ? String(element.value) : (element as HTMLElement).innerText.replace(/\u00A0/g, " ").replace(/\n$/, ""));

/// The module comes with the focus. A word that is typed before it has come stays as it is: type until it does.
async function reads(field: Locator): Promise<void> {
    await field.focus();
    await expect.poll(async () => {
        await field.press("Control+a");
        await field.press("Delete");
        await field.pressSequentially("a");
        const text = await textOf(field);
        await field.press("Backspace");
        return text.trim();
    }, { interval: 20 }).toBe("");
}

async function write(within: Page | Frame, id: string): Promise<Locator> {
    const field = within.locator(`#${id}`);
    await reads(field);
    await field.pressSequentially("amma gedhara ");
    return field;
}

test.each(["input", "area", "rich", "plain", "inner"])("types into %s, a word at a time, and undoes by words", async (id) => {
    const page = await extension.visit("http://site.test/"), field = await write(page, id);
    await expect.poll(() => textOf(field)).toBe(`${amma} ${gedara} `);
    await field.pressSequentially("mama");
    expect(await textOf(field), "the page sees no half words").toBe(`${amma} ${gedara} `);
    await field.press("Backspace");
    await field.press("Backspace");
    expect(await textOf(field)).toBe(`${amma} ${gedara} `);
    await field.press("Control+z");
    await expect.poll(async () => (await textOf(field)).trimEnd()).toBe(amma);
    await page.close();
});

test("a word goes in between letters, and over what is selected", async () => {
    const page = await extension.visit("http://site.test/");
    for (const id of ["area", "plain"]) {
        const field = page.locator(`#${id}`);
        await reads(field);
        await field.pressSequentially("kaa ");
        await field.press("Home");
        await field.pressSequentially("b");
        await page.keyboard.press("ArrowRight");
        await field.press("Control+a");
        await field.pressSequentially("mama ");
        await expect.poll(() => textOf(field)).toBe(`${mama} `);
    }
    await page.close();
});

test("a word goes in where the field is left by a click, and by the page itself", async () => {
    const page = await extension.visit("http://site.test/");
    const input = page.locator("#input"), area = page.locator("#area"), rich = page.locator("#rich");
    for (const [field, leave] of [[input, () => area.click()], 
        [rich, () => rich.evaluate((element) => (element as HTMLElement).blur())], [input, () => input.evaluate((element) => (element as HTMLElement).blur())]] as const) {
        await reads(field);
        await field.pressSequentially("mama");
        await leave();
        await expect.poll(() => textOf(field)).toBe(mama);
    }
    await page.close();
});

test("where the page's policy forbids the module, what is typed stays, and the badge says why", async () => {
    const page = await extension.visit("http://strict.test/"), field = page.locator("#input");
    await field.focus();
    await expect.poll(() => extension.badge()).toBe("!");
    await field.pressSequentially("amma ");
    expect(await textOf(field)).toBe("amma ");
    await page.close();
});

test.each(["other", "srcdoc", "sandboxed"])("types in a frame: %s", async (id) => {
    const page = await extension.visit("http://site.test/frames");
    const frame = (await (await page.locator(`#${id}`).elementHandle())!.contentFrame())!;
    await frame.waitForSelector("#area");
    await expect.poll(async () => textOf(await write(frame, "area"))).toBe(`${amma} ${gedara} `);
    await page.close();
});

test("an editor with a model of its own takes words whole, and hears no keys of them", async () => {
    const page = await extension.visit("http://site.test/model"), field = page.locator("#model");
    await field.focus();
    await expect.poll(async () => {
        await page.evaluate("keys.length = 0");
        await field.pressSequentially("a");
        return page.evaluate("keys.length");
    }, { interval: 20 }).toBe(0);
    await field.press("Backspace");
    const before = await textOf(field);
    await field.pressSequentially("amma.");
    expect(await textOf(field)).toBe(`${before}${amma}.`);
    expect(await page.evaluate("keys.join('')")).not.toContain("m");
    await page.close();
});

test("secrets, addresses, numbers and fixed texts are left alone", async () => {
    const page = await extension.visit("http://site.test/");
    await reads(page.locator("#input"));
    for (const [id, typed, expected] of [["password", "amma ", "amma "], ["email", "amma", "amma"], ["number", "12", "12"],
        ["user", "amma ", "amma "], ["code", "amma ", "amma "], ["fixed", "amma ", ""]] as const) {
        const field = page.locator(`#${id}`);
        await field.focus();
        await field.pressSequentially(typed);
        expect(await textOf(field), id).toBe(expected);
    }
    await page.close();
});

test("suggests words, learns the one that is chosen, and does neither when it is switched off", async () => {
    const page = await extension.visit("http://site.test/"), field = page.locator("#area");
    await reads(field);
    await field.pressSequentially("gedh");
    await field.press("Tab"); // waits for the candidates
    await field.press(" ");
    await expect.poll(() => textOf(field)).toMatch(/^\u0D9C\u0DD9\u0DAF\S* $/);
    await extension.store({ "vanoka.preferences.v1": JSON.stringify({ suggestions: false }) });
    await reads(field);
    await field.pressSequentially("gedh");
    await page.keyboard.press("Tab");
    await expect.poll(() => textOf(field)).toBe("\u0D9C\u0DD9\u0DAF\u0DCA");
    await extension.store({ "vanoka.preferences.v1": "{}" });
    await page.close();
});

test("switched off, all keys are the page's, and the badge says so", async () => {
    const page = await extension.visit("http://site.test/"), field = page.locator("#area");
    await reads(field);
    await expect.poll(() => extension.badge()).toBe("\u0D85");
    await field.pressSequentially("ma");
    await extension.store({ "vanoka.on": false });
    await expect.poll(() => textOf(field), { message: "the word is not lost" }).toBe("\u0DB8");
    await field.pressSequentially(" amma ");
    expect(await textOf(field)).toBe("\u0DB8 amma ");
    await expect.poll(() => extension.badge()).toBe("A");
    await page.close();
});

test("off on this site, its frames are off as well, and other sites are not", async () => {
    await extension.store({ "vanoka.sitesOff": ["site.test"] });
    const page = await extension.visit("http://site.test/frames");
    await expect.poll(() => extension.badge()).toBe("\u2013");
    const frame = (await (await page.locator("#other").elementHandle())!.contentFrame())!;
    const field = frame.locator("#area");
    await field.focus();
    await extension.store({ "vanoka.sitesOff": ["site.test"] });
    await field.pressSequentially("amma ");
    expect(await textOf(field)).toBe("amma ");
    const other = await extension.visit("http://other.test/");
    await expect.poll(async () => textOf(await write(other, "area"))).toBe(`${amma} ${gedara} `);
    await page.close();
    await other.close();
});

test("the popup switches it, suggestions, and the site", async () => {
    const page = await extension.visit("http://site.test/");
    const tab = await extension.background.evaluate(async () => (await chrome.tabs.query({ active: true }))[0]!.id!);
    const popup = await extension.context.newPage();
    // Here the popup is a tab, and the one in front: it is told which tab it would be over.
    await popup.addInitScript((id) => Object.assign(chrome.tabs, { query: async () => [{ id }] }), tab);
    await popup.goto(`${extension.address}extension/popup.html`);
    await popup.getByLabel("Off on site.test").check();
    await popup.getByLabel("Suggest words").uncheck();
    await popup.getByLabel("Write Sinhala").uncheck();
    await expect.poll(() => extension.stored()).toMatchObject({ "vanoka.on": false, "vanoka.sitesOff": ["site.test"],
        "vanoka.preferences.v1": expect.stringContaining('"suggestions":false') });
    await popup.getByLabel("Suggest words").check();
    await popup.close();
    await page.close();
});

test.each([
    ["the database is full", () => {
        const { add } = IDBObjectStore.prototype;
        IDBObjectStore.prototype.add = () => { throw new DOMException("full", "QuotaExceededError"); };
        Object.assign(self, { restore: () => { IDBObjectStore.prototype.add = add; } });
    }],
    ["the module always traps", () => { // as if each call with a text did
        const { encodeInto } = TextEncoder.prototype;
        TextEncoder.prototype.encodeInto = () => { throw new WebAssembly.RuntimeError("unreachable"); };
        Object.assign(self, { restore: () => { TextEncoder.prototype.encodeInto = encodeInto; } });
    }],
])("where %s, the popup says that what is learnt cannot be stored", async (_, trouble) => {
    const learn = async (): Promise<void> => (await write(await extension.visit("http://site.test/"), "area")).page().close();
    const messages = async (): Promise<number> => {
        const popup = await extension.visit(`${extension.address}extension/popup.html`);
        await popup.getByLabel("Write Sinhala").waitFor();
        const count = await popup.getByText("cannot be stored").count();
        await popup.close();
        return count;
    };
    await learn();
    expect(await messages()).toBe(0);
    await extension.background.evaluate(trouble);
    await learn();
    await expect.poll(messages).toBe(1);
    await extension.background.evaluate("restore()");
    await learn();
    await expect.poll(messages).toBe(0);
});

test("what was learnt is given to no script, and taken from none", async () => {
    const page = await extension.visit(`${extension.address}extension/popup.html`);
    const answers = await page.evaluate(() => Promise.all([{ what: "find", word: { keys: "", preview: "" }, limit: 1 },
        { what: "export" }, { what: "import", document: "" }, { what: "erase" }]
        .map((question) => chrome.runtime.sendMessage({ what: "ask", question }).catch(() => undefined))));
    expect(answers.map((answer) => answer !== undefined && answer !== null)).toEqual([true, false, false, false]);
    await page.close();
});

test("a key of one's own is in force in all pages at once", async () => {
    const page = await extension.visit("http://site.test/"), field = page.locator("#area");
    await reads(field);
    const settings = (await Vanoka.load(readFileSync(new URL("../../dist/extension/assets/vanoka.wasm", import.meta.url)))).settings();
    const letter = settings.letters.find(({ display }) => display === "\u0D9C")!;
    settings.add("zq", letter.id);
    settings.add("qqq", letter.id);
    await extension.store({ "vanoka.customization.v1": settings.document });
    await expect.poll(async () => {
        await reads(field);
        await field.pressSequentially("zqa ");
        return textOf(field);
    }).toBe("\u0D9C ");
    await reads(field);
    await field.pressSequentially("qqqeadara"); // no keys of the word, but what people mean by them
    await field.press("Tab");
    await field.press(" ");
    await expect.poll(() => textOf(field)).toMatch(/^\u0D9C.*\u0DAF\u0DBB $/u);
    await extension.store({ "vanoka.customization.v1": "" });
    await page.close();
});

test("the settings are the page's, adopt what is stored, and store what is chosen", async () => {
    await extension.store({ "vanoka.preferences.v1": JSON.stringify({ hintSeen: true, suggestions: false }) });
    const settings = await extension.visit(`${extension.address}index.html`);
    await settings.waitForSelector("html[data-words=strokes]", { state: "attached" });
    await settings.getByRole("button", { name: "Settings" }).click();
    const suggestions = settings.getByLabel("Suggest words");
    expect(await suggestions.isChecked()).toBe(false);
    await suggestions.check();
    await expect.poll(() => extension.stored()).toMatchObject({ "vanoka.preferences.v1": expect.stringContaining('"suggestions":true') });
    await settings.close();
});
