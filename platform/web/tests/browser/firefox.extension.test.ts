import { createServer, type Server } from "node:http";
import type { AddressInfo } from "node:net";
import { afterAll, beforeAll, expect, test } from "vitest";
import { Marionette } from "./Marionette.ts";
import { amma, gedara, mama } from "./support.ts";

const control = "\uE009", backspace = "\uE003", tab = "\uE004";
const fields = `<!doctype html><meta charset="utf-8"><input id=input><textarea id=area></textarea><div id=rich contenteditable></div>
<input id=password type=password>`;
let firefox: Marionette, server: Server, address: string;

beforeAll(async () => {
    server = createServer((_, response) => response.setHeader("Content-Type", "text/html").end(fields));
    await new Promise<void>((listening) => server.listen(0, "127.0.0.1", listening));
    address = `http://127.0.0.1:${(server.address() as AddressInfo).port}/`;
    firefox = await Marionette.start(process.env["FIREFOX"] ?? "/usr/bin/firefox-esr");
    const path = new URL("../../dist/extension-firefox", import.meta.url).pathname;
    await firefox.ask("Addon:Install", { path, temporary: true });
});
afterAll(async () => {
    await firefox?.stop();
    server?.close();
});

const textOf = async (id: string): Promise<string> => String(await firefox.run(
    `(document.getElementById("${id}").value ?? document.getElementById("${id}").innerText).replace(/\\u00A0/g, " ").replace(/\\n$/, "")`));

/// A field that the extension reads: it comes with the focus, and what is typed before stays as it is.
async function reads(id: string): Promise<void> {
    await firefox.run(`document.getElementById("${id}").focus()`);
    await expect.poll(async () => {
        await firefox.chord(control, "a");
        await firefox.type(`${backspace}a`);
        const text = await textOf(id);
        await firefox.type(backspace);
        return text.trim();
    }, { interval: 20 }).toBe("");
}

test.each(["input", "area", "rich"])("the extension types into %s, and what is undone is a word", async (id) => {
    await firefox.ask("WebDriver:Navigate", { url: address });
    await reads(id);
    await firefox.type("amma gedhara ");
    await expect.poll(() => textOf(id)).toBe(`${amma} ${gedara} `);
    await firefox.type("mama");
    expect(await textOf(id), "the page sees no half words").toBe(`${amma} ${gedara} `);
    await firefox.type(" ");
    await expect.poll(() => textOf(id)).toBe(`${amma} ${gedara} ${mama} `);
    await firefox.chord(control, "z");
    await expect.poll(async () => (await textOf(id)).trimEnd()).toBe(`${amma} ${gedara}`);
});

test("the extension offers words", async () => {
    await firefox.ask("WebDriver:Navigate", { url: address });
    await reads("input");
    await expect.poll(async () => {
        await firefox.chord(control, "a");
        await firefox.type(`${backspace}gedr`);
        await firefox.type(tab);
        await firefox.type(" ");
        return textOf("input");
    }).toBe(`${gedara} `);
});

test("the extension leaves secrets alone", async () => {
    await firefox.ask("WebDriver:Navigate", { url: address });
    await reads("input");
    await firefox.run("document.getElementById('password').focus()");
    await firefox.type("amma ");
    expect(await textOf("password")).toBe("amma ");
});
