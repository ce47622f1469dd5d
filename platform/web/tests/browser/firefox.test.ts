import { afterAll, beforeAll, expect, inject, test } from "vitest";
import { Marionette } from "./Marionette.ts";
import { amma, gedara, mama } from "./support.ts";

const control = "\uE009", backspace = "\uE003", enter = "\uE007", home = "\uE011";
let firefox: Marionette;

beforeAll(async () => {
    firefox = await Marionette.start(process.env["FIREFOX"] ?? "/usr/bin/firefox-esr");
});
afterAll(() => firefox?.stop());

const text = (): Promise<unknown> => firefox.run("document.getElementById('text').innerText.replace(/\\n$/, '')");
const marked = (): Promise<unknown> => firefox.run("[...(CSS.highlights.get('vanoka-marked') ?? [])].map(String).join()");

test("types, marks, takes back, and undoes a word at a time", async () => {
    await firefox.ask("WebDriver:Navigate", { url: inject("address") });
    await expect.poll(() => firefox.run("document.documentElement.dataset.words")).toBe("strokes");
    await firefox.run("document.querySelector('#hint button').click()");
    await firefox.type("amma");
    await expect.poll(marked).toBe(amma);
    await firefox.type(" gedhara");
    await firefox.type(" ");
    await expect.poll(text).toBe(`${amma} ${gedara} `);
    expect(await marked()).toBe("");
    await firefox.type("mamaka");
    await firefox.type(backspace);
    await expect.poll(text).toBe(`${amma} ${gedara} ${mama}`);
    await firefox.type(enter);
    await firefox.type("kaa");
    await firefox.type(home);
    await firefox.type("ba ");
    await expect.poll(text).toBe(`${amma} ${gedara} ${mama}\n\u0DB6 \u0D9A\u0DCF`);
    for (const step of [`${amma} ${gedara} ${mama}\n\u0D9A\u0DCF`, `${amma} ${gedara} ${mama}`]) {
        await firefox.chord(control, "z");
        await expect.poll(async () => String(await text()).trimEnd()).toBe(step);
    }
});

test("the candidates are there, and the word is kept over a reload", async () => {
    await firefox.ask("WebDriver:Navigate", { url: inject("address") });
    await expect.poll(() => firefox.run("document.documentElement.dataset.words")).toBe("strokes");
    await firefox.run("document.getElementById('text').focus()");
    await firefox.type("amm");
    await expect.poll(() => firefox.run("document.querySelectorAll('#candidates button').length")).toBeGreaterThan(1);
    const before = await text();
    await firefox.ask("WebDriver:Refresh", {});
    await expect.poll(text).toBe(before);
});
