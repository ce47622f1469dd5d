import { afterAll, afterEach, expect, test } from "vitest";
import type { Page } from "playwright-core";
import { amma, candidates, closeBrowser, context, expectText, Fingers, mama, opened, phone, picture, said, textOf } from "./support.ts";

afterAll(closeBrowser);
afterEach(() => expect(said.splice(0), "the console is silent").toEqual([]));

async function touched(until: "typing" | "strokes" = "typing", options = {}): Promise<[Page, Fingers]> {
    const page = await opened(await context({ ...phone, ...options }), until);
    return [page, await Fingers.on(page)];
}

test("taps of two overlapping fingers are neither lost nor swapped", async () => {
    const [page, fingers] = await touched();
    const keys = [..."mamayanavaa".repeat(6).slice(0, 60)];
    const sent: Promise<unknown>[] = [fingers.down(0, keys[0]!)];
    for (const [at, key] of keys.entries()) {
        if (at > 0)
            sent.push(fingers.down(at % 2, key), fingers.up((at + 1) % 2));
    }
    sent.push(fingers.up((keys.length - 1) % 2));
    await Promise.all(sent);
    await fingers.tap("space");
    const expected = await page.evaluate(() => document.getElementById("text")!.textContent);
    await page.locator("#text").evaluate((field) => { field.textContent = ""; });
    await page.locator("#text").focus();
    await page.keyboard.type(`${keys.join("")} `);
    await expectText(page, expected!);
    expect(expected!.length).toBeGreaterThan(20);
    await page.context().close();
}, 60_000);

test("shift, caps lock, digits, signs, return and a backspace that repeats", async () => {
    const [page, fingers] = await touched();
    await fingers.tap("shift", "n");
    await fingers.look();
    await fingers.tap("a", "space");
    await expectText(page, "\u0DAB ");
    await fingers.tap("numbers");
    await page.waitForSelector("[data-key='1']");
    await fingers.look();
    await fingers.tap("1", "signs");
    await page.waitForSelector("[data-key='\u0DF4']");
    await fingers.look();
    await fingers.tap("\u0DF4", "letters");
    await fingers.look();
    await fingers.tap("return", "m", "a");
    await expectText(page, "\u0DAB 1\u0DF4\n\u0DB8");
    await fingers.down(0, "delete");
    await expectText(page, "");
    await fingers.up(0);
    await page.context().close();
});

test("a key that is held offers its letters within the width, and a slide chooses one", async () => {
    const [page, fingers] = await touched();
    await fingers.down(0, "n");
    const menu = page.getByRole("menu");
    await menu.waitFor();
    await picture(page, "long-press");
    const letters = await menu.getByRole("menuitem").evaluateAll((items) => items.map((item) => {
        const { left, right, top, width, height } = item.getBoundingClientRect();
        return { left, right, width, height, x: left + width / 2, y: top + height / 2, letter: item.firstChild!.textContent! };
    }));
    expect(letters.length).toBeGreaterThan(3);
    for (const { left, right, width, height } of letters) {
        expect(left).toBeGreaterThanOrEqual(0);
        expect(right).toBeLessThanOrEqual(390);
        expect(Math.min(width, height)).toBeGreaterThanOrEqual(44);
    }
    await fingers.move(0, { x: letters[2]!.x - 12, y: letters[2]!.y });
    await fingers.move(0, letters[2]!);
    await fingers.up(0);
    await fingers.tap("a", "space");
    await expectText(page, `${letters[2]!.letter} `);
    await page.context().close();
});

test("a swiped word stands with its space; punctuation takes that back, and the backspace the word", async () => {
    const [page, fingers] = await touched("strokes");
    await fingers.swipe("a", "m", "a");
    await expect.poll(() => textOf(page)).not.toBe("");
    const word = await textOf(page);
    expect(word.endsWith(" ")).toBe(true);
    await fingers.tap(".");
    await expectText(page, `${word.trimEnd()}.`);
    await fingers.swipe("m", "a", "m", "a");
    await expect.poll(() => textOf(page)).toMatch(/\. .+ $/);
    await fingers.tap("delete");
    await expectText(page, `${word.trimEnd()}.`);
    const readings = await candidates(page);
    expect(readings.length).toBeGreaterThan(1);
    await page.locator("#candidates button").nth(1).tap();
    await expectText(page, `${word.trimEnd()}. ${readings[1]} `);
    await page.context().close();
});

test("a swipe draws its trail", async () => {
    const [page, fingers] = await touched("strokes");
    const drawn = (): Promise<string> => page.locator("#keyboard canvas").evaluate((canvas) => (canvas as HTMLCanvasElement).toDataURL());
    const blank = await drawn();
    await fingers.down(0, "g");
    for (const key of ["e", "d", "h", "a", "r"])
        await fingers.move(0, key);
    await expect.poll(drawn).not.toBe(blank);
    await picture(page, "swipe");
    await fingers.up(0);
    await expect.poll(drawn).toBe(blank);
    await page.context().close();
});

test("a finger that slides along the space bar moves the caret", async () => {
    const [page, fingers] = await touched();
    await fingers.tap("m", "a", "m", "a", "space");
    await fingers.down(0, "space");
    const start = fingers.at("space");
    for (const away of [20, 40, 62])
        await fingers.move(0, { x: start.x - away, y: start.y });
    await fingers.up(0);
    await fingers.tap("k", "a");
    await page.locator("h1").evaluate(() => undefined);
    const text = await textOf(page);
    expect(text.startsWith(mama)).toBe(false);
    expect(text).toContain("\u0D9A");
    await page.context().close();
});

test("a candidate that is tapped goes in, and assistive technology types by clicks", async () => {
    const [page, fingers] = await touched("strokes");
    await fingers.tap("a", "m", "m");
    await expect.poll(() => candidates(page)).toContain(amma);
    await page.locator("#candidates button", { hasText: new RegExp(`^${amma}$`) }).tap();
    await expectText(page, amma);
    await page.locator("[data-key=space]").evaluate((key) => (key as HTMLElement).click());
    await page.locator("[data-key=k]").evaluate((key) => (key as HTMLElement).click());
    await expectText(page, `${amma} \u0D9A\u0DCA`);
    await page.context().close();
});

test("turning the device keeps the word and the keys", async () => {
    const [page, fingers] = await touched("strokes");
    await fingers.tap("a", "m", "m", "a");
    await page.setViewportSize({ width: 780, height: 390 });
    await expect.poll(() => page.locator("[data-key=p]").evaluate((key) => key.getBoundingClientRect().left)).toBeGreaterThan(500);
    await fingers.look();
    await fingers.tap("space", "k");
    await expectText(page, `${amma} \u0D9A\u0DCA`);
    expect(await page.locator("#text").evaluate((field) => field.clientHeight)).toBeGreaterThan(60);
    await picture(page, "landscape");
    await page.context().close();
});
