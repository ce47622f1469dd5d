import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { chromium, type BrowserContext, type Page, type Worker } from "playwright-core";
import { flags } from "./support.ts";

const folder = new URL("../../dist/extension", import.meta.url).pathname;

/// What the sites that tests visit answer, by host and path.
export type Sites = Record<string, { readonly body: string; readonly headers?: Record<string, string> }>;

/// Chromium with the extension, and sites that need no network.
export class Extension {
    private constructor(readonly context: BrowserContext, readonly profile: string, readonly background: Worker) {}

    static async start(sites: Sites): Promise<Extension> {
        const profile = mkdtempSync(join(tmpdir(), "vanoka-chromium-"));
        const context = await chromium.launchPersistentContext(profile, {
            executablePath: process.env["CHROMIUM"] ?? "/usr/bin/chromium", headless: true, locale: "en-GB",
            ignoreDefaultArgs: ["--disable-extensions"], args: [...flags, `--disable-extensions-except=${folder}`, `--load-extension=${folder}`],
        });
        await context.route(/^http:/, (route) => {
            const { host, pathname } = new URL(route.request().url()), answer = sites[host + pathname];
            return answer ? route.fulfill({ contentType: "text/html; charset=utf-8", headers: answer.headers ?? {}, body: answer.body })
                : route.fulfill({ status: 404, body: "" });
        });
        const background = context.serviceWorkers()[0] ?? await context.waitForEvent("serviceworker");
        return new Extension(context, profile, background);
    }

    get address(): string {
        return new URL("/", this.background.url()).href;
    }

    /// Puts what is stored for all tabs in force.
    store(values: Record<string, unknown>): Promise<void> {
        return this.background.evaluate((stored) => chrome.storage.local.set(stored), values);
    }

    async stored(): Promise<Record<string, unknown>> {
        return this.background.evaluate(() => chrome.storage.local.get());
    }

    badge(): Promise<string> {
        return this.background.evaluate(async () => {
            const [tab] = await chrome.tabs.query({ active: true });
            return chrome.action.getBadgeText({ tabId: tab!.id! });
        });
    }

    async visit(address: string): Promise<Page> {
        const page = await this.context.newPage();
        await page.goto(address);
        return page;
    }

    async stop(): Promise<void> {
        await this.context.close();
        rmSync(this.profile, { recursive: true, force: true, maxRetries: 5 });
    }
}
