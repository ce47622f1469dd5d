import { mkdirSync } from "node:fs";
import { chromium, type Browser, type BrowserContext, type BrowserContextOptions, type CDPSession, type Page } from "playwright-core";
import { expect, inject } from "vitest";

export const flags = ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
    "--disable-component-update", "--disable-sync"];
export const phone = { viewport: { width: 390, height: 780 }, hasTouch: true, isMobile: true, deviceScaleFactor: 2 } as const;
export const desktop = { viewport: { width: 1000, height: 700 } } as const;
export const amma = "\u0D85\u0DB8\u0DCA\u0DB8", gedara = "\u0D9C\u0DD9\u0DAF\u0DBB", mama = "\u0DB8\u0DB8";

const pictures = new URL("../../../../build/web/screenshots/", import.meta.url).pathname;
mkdirSync(pictures, { recursive: true });

let running: Promise<Browser> | undefined;
export const browser = (): Promise<Browser> =>
    (running ??= chromium.launch({ executablePath: process.env["CHROMIUM"] ?? "/usr/bin/chromium", headless: true, args: flags }));
export const closeBrowser = async (): Promise<void> => (await running)?.close();

/// Everything that the console says, which should be nothing.
export const said: string[] = [];

export async function context(options: BrowserContextOptions = {}): Promise<BrowserContext> {
    return (await browser()).newContext({ locale: "en-GB", ...options });
}

/// A page with the keyboard, ready to be typed in; with the lists as well, where that is asked for.
export async function opened(within: BrowserContext, until: "typing" | "strokes" = "typing", script?: () => void): Promise<Page> {
    const page = await within.newPage();
    page.on("console", (message) => said.push(message.text()));
    page.on("pageerror", (error) => said.push(String(error)));
    await page.addInitScript(() => localStorage.getItem("vanoka.preferences.v1") ?? localStorage.setItem("vanoka.preferences.v1", '{"hintSeen":true}'));
    if (script)
        await page.addInitScript(script);
    await page.goto(inject("address"));
    await ready(page, until);
    return page;
}

export const ready = async (page: Page, until: "typing" | "strokes" = "typing"): Promise<void> => {
    await page.waitForSelector(until === "typing" ? "html[data-ready=typing]" : "html[data-words=strokes]", { state: "attached" });
};

export const textOf = (page: Page): Promise<string> => page.evaluate(() => document.getElementById("text")!.innerText.replace(/\n$/, ""));
export const markedOf = (page: Page): Promise<string> => page.evaluate(() =>
    [...(CSS.highlights.get("vanoka-marked") ?? [])].map((range) => (range as Range).toString()).join());

export const expectText = (page: Page, text: string): Promise<void> => expect.poll(() => textOf(page)).toBe(text);
export const candidates = (page: Page): Promise<string[]> => page.locator("#candidates button:not(.forget)").allTextContents();
export const picture = (page: Page, name: string): Promise<Buffer> => page.screenshot({ path: `${pictures}${name}.png` });

/// Fingers on the screen.
export class Fingers {
    readonly #down = new Map<number, { x: number; y: number; id: number }>();
    #keys = new Map<string, { x: number; y: number }>();

    private constructor(readonly page: Page, readonly session: CDPSession) {}

    static async on(page: Page): Promise<Fingers> {
        const fingers = new Fingers(page, await page.context().newCDPSession(page));
        await fingers.look();
        return fingers;
    }

    /// Where the keys are now.
    async look(): Promise<void> {
        const places = await this.page.locator("[data-key]").evaluateAll((buttons) => buttons.map((button) => {
            const { x, y, width, height } = button.getBoundingClientRect();
            return [(button as HTMLElement).dataset["key"]!, { x: x + width / 2, y: y + height / 2 }] as const;
        }));
        this.#keys = new Map(places);
    }

    at(key: string): { x: number; y: number } {
        return this.#keys.get(key)!;
    }

    down(id: number, point: string | { x: number; y: number }): Promise<unknown> {
        this.#down.set(id, { ...(typeof point === "string" ? this.at(point) : point), id });
        return this.#send("touchStart");
    }

    move(id: number, point: string | { x: number; y: number }): Promise<unknown> {
        this.#down.set(id, { ...(typeof point === "string" ? this.at(point) : point), id });
        return this.#send("touchMove");
    }

    up(id: number): Promise<unknown> {
        const lifted = this.#down.get(id)!;
        this.#down.delete(id);
        return this.session.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [lifted] });
    }

    async tap(...keys: string[]): Promise<void> {
        for (const key of keys) {
            await this.down(0, key);
            await this.up(0);
        }
    }

    async swipe(...keys: string[]): Promise<void> {
        await this.down(0, keys[0]!);
        for (const [at, key] of keys.slice(1).entries()) {
            const from = this.at(keys[at]!), to = this.at(key);
            for (let step = 1; step <= 8; ++step)
                void this.move(0, { x: from.x + ((to.x - from.x) * step) / 8, y: from.y + ((to.y - from.y) * step) / 8 });
        }
        await this.up(0);
    }

    #send(type: "touchStart" | "touchMove"): Promise<unknown> {
        return this.session.send("Input.dispatchTouchEvent", { type, touchPoints: [...this.#down.values()] });
    }
}
