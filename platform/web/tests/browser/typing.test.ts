import { readFileSync } from "node:fs";
import { afterAll, afterEach, expect, test } from "vitest";
import type { Page } from "playwright-core";
import { Vanoka } from "../../src/core/index.ts";
import { amma, candidates, closeBrowser, context, desktop, expectText, gedara, mama, markedOf, opened, said, textOf } from "./support.ts";

afterAll(closeBrowser);
afterEach(() => expect(said.splice(0), "the console is silent").toEqual([]));

async function typed(keys: string, until: "typing" | "strokes" = "typing"): Promise<Page> {
    const page = await opened(await context(desktop), until);
    await page.locator("#text").click();
    await page.keyboard.type(keys);
    return page;
}

test("a word is marked while it is composed, and goes in with the space", async () => {
    const page = await typed("amma");
    expect(await markedOf(page)).toBe(amma);
    await page.keyboard.type(" gedhara. ");
    expect(await markedOf(page)).toBe("");
    await expectText(page, `${amma} ${gedara}. `);
    await page.context().close();
});

test("undo and redo take one step a word", async () => {
    const page = await typed("amma mama gedhara ");
    const steps: string[] = [await textOf(page)];
    for (let times = 0; times < 3; ++times) {
        await page.keyboard.press("Control+z");
        steps.push(await textOf(page));
    }
    expect(steps.map((text) => text.trimEnd())).toEqual([`${amma} ${mama} ${gedara}`, `${amma} ${mama}`, amma, ""]);
    for (const expected of steps.slice(0, 3).reverse()) {
        await page.keyboard.press("Control+Shift+z");
        expect(await textOf(page)).toBe(expected);
    }
    await page.context().close();
});

test("the caret is right before and after any letter", async () => {
    const page = await typed("kaa");
    await page.keyboard.press("Home");
    await page.keyboard.type("b");
    await page.keyboard.type("a");
    expect(await markedOf(page)).toBe("\u0DB6");
    await page.keyboard.press("Escape");
    await page.keyboard.press("End");
    await page.keyboard.type("ma ");
    expect((await textOf(page)).endsWith("\u0D9A\u0DCF\u0DB8 ")).toBe(true);
    await page.context().close();
});

test("what is selected gives way, lines break, and the backspace takes one visible part", async () => {
    const page = await typed("amma mama");
    await page.keyboard.press("Enter");
    await page.keyboard.type("maka");
    await expectText(page, `${amma} ${mama}\n\u0DB8\u0D9A`);
    await page.keyboard.press("Backspace");
    await expectText(page, `${amma} ${mama}\n\u0DB8`);
    await page.keyboard.press("Control+a");
    await page.keyboard.type("gedhara ");
    await expectText(page, `${gedara} `);
    await page.keyboard.press("Control+z");
    await page.keyboard.press("Control+z");
    expect(await textOf(page)).toContain(amma);
    await page.context().close();
});

test("a word goes in when the field is left, and where the caret is moved away from it", async () => {
    const page = await typed("amma ma");
    await page.keyboard.press("ArrowLeft");
    expect(await markedOf(page)).toBe("");
    await expectText(page, `${amma} \u0DB8`);
    await page.keyboard.press("End");
    await page.keyboard.type("ka");
    await page.locator("h1").click();
    await page.locator("#text").evaluate((field) => (field as HTMLElement).blur());
    expect(await markedOf(page)).toBe("");
    await expectText(page, `${amma} \u0DB8\u0D9A`);
    await page.context().close();
});

test("candidates come, are walked through by keys, learnt, and forgotten", async () => {
    const page = await typed("amm", "strokes");
    await expect.poll(() => candidates(page)).toContain(amma);
    const at = (await candidates(page)).indexOf(amma);
    for (let times = 0; times < at; ++times)
        await page.keyboard.press("Tab");
    expect(await markedOf(page)).toBe(amma);
    await page.keyboard.type(" ");
    await expectText(page, `${amma} `);
    await page.keyboard.type("amm");
    const forgets = page.locator("#candidates .forget");
    await expect.poll(() => forgets.count()).toBeGreaterThan(0);
    await forgets.first().click();
    await page.keyboard.press("Escape");
    await page.keyboard.type("amm");
    await expect.poll(() => candidates(page)).toContain("\u0D85\u0DB8\u0DCA\u0DB8\u0DCF");
    expect(await page.locator("#candidates .forget").count()).toBe(0);
    await page.context().close();
});

test("what people mean is offered, and what nobody wants to be offered is not", async () => {
    const page = await typed("gedara", "strokes");
    await expect.poll(async () => (await candidates(page))[1]).toBe(gedara);
    const linesOf = (name: string): string[] => readFileSync(new URL(`../../../../data/${name}`, import.meta.url), "utf-8").split("\n");
    const english = new Set(linesOf("en.tsv").map((line) => line.split("\t")[0]));
    const unwanted = linesOf("never-offered.txt").find((line) => line !== "" && english.has(line))!;
    await page.keyboard.type(` ${unwanted}`);
    await expect.poll(async () => (await candidates(page))[0]).toBe(await markedOf(page));
    expect(await candidates(page)).not.toContain(unwanted);
    await page.keyboard.type(" hello");
    await expect.poll(() => candidates(page)).toContain("hello");
    await page.context().close();
});

test("what people mean is offered for a key of one's own, whenever it comes", async () => {
    const vanoka = await Vanoka.load(readFileSync(new URL("../../../../build/wasm/bin/vanoka.wasm", import.meta.url)));
    const settings = vanoka.settings();
    settings.add("qqq", "\u0D9C");
    const page = await typed("qqqa", "strokes");
    expect(await markedOf(page)).not.toBe("\u0D9C");
    const other = await opened(page.context());
    await other.evaluate((document) => localStorage.setItem("vanoka.customization.v1", document), settings.document);
    await expect.poll(async () => {
        await page.keyboard.press("Escape");
        await page.keyboard.type(" qqqa");
        return markedOf(page);
    }).toBe("\u0D9C");
    await page.keyboard.type(" qqqeadara");
    await expect.poll(() => candidates(page)).toContain(gedara);
    await page.context().close();
});

test("nothing moves while words are typed", async () => {
    const page = await opened(await context(desktop), "strokes");
    await page.evaluate(() => new PerformanceObserver((list) => {
        const shifts = list.getEntries() as unknown as { value: number }[];
        document.documentElement.dataset["shift"] = String(shifts.reduce((sum, each) => sum + each.value, 0));
    }).observe({ type: "layout-shift" }));
    await page.locator("#text").click();
    await page.keyboard.type("amma gedhara yanavaa ");
    const before = await page.locator("#candidates").boundingBox();
    await page.keyboard.type("mama");
    await expect.poll(() => candidates(page)).not.toEqual([]);
    expect(await page.locator("#candidates").boundingBox()).toEqual(before);
    expect(await page.evaluate(() => document.documentElement.dataset["shift"] ?? "0")).toBe("0");
    await page.context().close();
});

test("another input method composes undisturbed, and what it gives in Latin letters is read", async () => {
    const page = await typed("ma");
    const session = await page.context().newCDPSession(page);
    await session.send("Input.imeSetComposition", { text: "\u3042", selectionStart: 1, selectionEnd: 1 });
    expect(await textOf(page)).toBe("\u0DB8\u3042");
    await session.send("Input.insertText", { text: "amma" });
    await expectText(page, `\u0DB8${amma}`);
    await page.context().close();
});

test("a paste of a megabyte goes in, and typing goes on", async () => {
    const page = await typed("ma");
    await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
    await page.evaluate(() => navigator.clipboard.writeText(`${"\u0DB8\u0DB8 ".repeat(20)}\n`.repeat(5500)));
    await page.keyboard.press("Control+v");
    await expect.poll(async () => (await textOf(page)).length).toBeGreaterThan(300_000);
    await page.keyboard.type("amma ");
    expect((await textOf(page)).includes(amma)).toBe(true);
    await page.context().close();
}, 60_000);
