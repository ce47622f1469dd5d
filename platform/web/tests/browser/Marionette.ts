import { spawn, type ChildProcess } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { connect, type Socket } from "node:net";
import { tmpdir } from "node:os";
import { join } from "node:path";

const settings = { "marionette.port": 0, "browser.shell.checkDefaultBrowser": false, "datareporting.policy.dataSubmissionEnabled": false,
    "toolkit.telemetry.reportingpolicy.firstRun": false, "app.update.enabled": false, "network.captive-portal-service.enabled": false,
    "network.connectivity-service.enabled": false, "browser.startup.page": 0, "browser.aboutwelcome.enabled": false };

type Reply = readonly [1, number, { message: string } | null, { value: unknown }];

/// Firefox as it is, spoken to in its own protocol: a length, a colon, JSON.
export class Marionette {
    #number = 0;
    #received = Buffer.alloc(0);
    readonly #waiting = new Map<number, (reply: Reply) => void>();

    private constructor(readonly process: ChildProcess, readonly profile: string, readonly socket: Socket) {
        socket.on("data", (bytes) => this.#hear(bytes));
    }

    static async start(program: string): Promise<Marionette> {
        const profile = mkdtempSync(join(tmpdir(), "vanoka-firefox-"));
        writeFileSync(join(profile, "user.js"), Object.entries(settings).map(([name, value]) => `user_pref("${name}", ${JSON.stringify(value)});\n`).join(""));
        const process = spawn(program, ["--headless", "--marionette", "--no-remote", "--profile", profile, "about:blank"],
            { stdio: "ignore", env: { ...globalThis.process.env, HOME: profile, MOZ_CRASHREPORTER_DISABLE: "1" } });
        const port = await activePort(join(profile, "MarionetteActivePort"), process);
        const socket = connect(port, "127.0.0.1");
        const firefox = new Marionette(process, profile, socket);
        await new Promise<void>((done) => socket.once("data", () => done())); // it tells what it is
        await firefox.ask("WebDriver:NewSession", {});
        return firefox;
    }

    ask(command: string, parameters: object): Promise<unknown> {
        const number = ++this.#number, text = JSON.stringify([0, number, command, parameters]);
        this.socket.write(`${Buffer.byteLength(text)}:${text}`);
        return new Promise((resolve, reject) => this.#waiting.set(number, ([, , error, result]) =>
            error ? reject(new Error(error.message)) : resolve(result?.value)));
    }

    /// What a script in the page returns.
    run(script: string): Promise<unknown> {
        return this.ask("WebDriver:ExecuteScript", { script: `return ${script}`, args: [] });
    }

    async type(keys: string): Promise<void> {
        const actions = [...keys].flatMap((value) => [{ type: "keyDown", value }, { type: "keyUp", value }]);
        await this.ask("WebDriver:PerformActions", { actions: [{ type: "key", id: "keyboard", actions }] });
    }

    /// With a key held down.
    async chord(held: string, key: string): Promise<void> {
        const actions = [{ type: "keyDown", value: held }, { type: "keyDown", value: key }, { type: "keyUp", value: key }, { type: "keyUp", value: held }];
        await this.ask("WebDriver:PerformActions", { actions: [{ type: "key", id: "keyboard", actions }] });
    }

    async stop(): Promise<void> {
        const ended = new Promise((done) => this.process.once("exit", done));
        this.socket.destroy();
        this.process.kill();
        await ended;
        rmSync(this.profile, { recursive: true, force: true, maxRetries: 5 });
    }

    #hear(bytes: Buffer): void {
        this.#received = Buffer.concat([this.#received, bytes]);
        for (;;) {
            const colon = this.#received.indexOf(":");
            const end = colon + 1 + Number(this.#received.subarray(0, colon).toString());
            if (colon < 0 || this.#received.length < end)
                return;
            const message = JSON.parse(this.#received.subarray(colon + 1, end).toString()) as Reply | object;
            this.#received = this.#received.subarray(end);
            if (Array.isArray(message))
                this.#waiting.get((message as unknown as Reply)[1])?.(message as unknown as Reply);
        }
    }
}

async function activePort(file: string, process: ChildProcess): Promise<number> {
    while (!existsSync(file) || readFileSync(file, "utf-8") === "") {
        if (process.exitCode !== null)
            throw new Error(`Firefox ended with ${process.exitCode}`);
        await new Promise((resolve) => setTimeout(resolve, 20));
    }
    return Number(readFileSync(file, "utf-8"));
}
