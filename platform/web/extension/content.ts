/// In every frame of every page: reads the keys that go to its text fields while Vanoka is on.
import { Vanoka, FunctionKey, type Key, type Settings } from "../src/core/index.ts";
import { instances } from "../src/field/instances.ts";
import { deleteKey, keyOf, returnKey } from "../src/field/keys.ts";
import { Writer } from "../src/field/Writer.ts";
import type { Answers, Question } from "../src/words/protocol.ts";
import type { FromBackground, SiteQuestion, TabState, ToBackground } from "./messages.ts";
import { PageTarget } from "./PageTarget.ts";
import { Preview } from "./Preview.ts";
import { focused, isServed } from "./served.ts";
import { site } from "./site.ts";
import { followState, type State } from "./state.ts";

const limit = 6;
const preview = new Preview(), target = new PageTarget(preview);
let state: State | undefined;
let writer: Writer | undefined;
let settings: Settings | undefined;
let loading: Promise<void> | undefined;
let shown: TabState = "usual";

const isOnHere = (): boolean => state !== undefined && state.isOn && !state.sitesOff.includes(site());

/// Fails, as all else here goes on, where the extension has been replaced by another version of it.
const send = async (message: ToBackground): Promise<FromBackground> =>
    (await chrome.runtime.sendMessage(message)) as FromBackground;

async function ask<What extends "find" | "teach">(question: Extract<Question, { what: What }>): Promise<Answers[What]> {
    const reply = await send({ what: "ask", question });
    if ("failed" in reply)
        throw new Error(reply.failed);
    return reply.answer as Answers[What];
}

/// Only where there is a field to write in: most frames have none.
function load(): void {
    loading ??= assemble().catch(() => showState("failed"));
}

async function assemble(): Promise<void> {
    const file = await fetch(chrome.runtime.getURL("assets/vanoka.wasm"));
    const module = await WebAssembly.compile(await file.arrayBuffer());
    const instance = instances(module, await Vanoka.load(module));
    writer = new Writer(target, {
        make: () => instance().suggesting((settings = instance().settings(state?.keys))),
        taught: (lesson) => void ask({ what: "teach", lesson }).catch(() => undefined), // the popup tells of it
        wanted: ({ number, keys, preview: marked }) => {
            ask({ what: "find", word: { keys, preview: marked }, limit })
                .then((rows) => writer!.take(number, rows), () => writer!.take(number, []));
        },
        shown: (line) => preview.showLine(line, { choose: (row) => writer!.choose(row), forget: (row) => writer!.forgetRow(row) }),
        passed: pass,
    });
    adoptState();
}

function adoptState(): void {
    settings?.load(state!.keys);
    writer?.switch(state!.suggests, state!.learns && !chrome.extension.inIncognitoContext);
}

function pass({ code, characters }: Key): void {
    const steps: Record<string, "backward" | "forward"> = { [FunctionKey.left]: "backward", [FunctionKey.right]: "forward" };
    if (code === deleteKey.code)
        target.command("delete");
    else if (characters === returnKey.characters)
        target.command("insertLineBreak");
    else if (steps[characters])
        getSelection()?.modify("move", steps[characters], "character");
    else if (/^[^\p{Cc}\uF700-\uF8FF]+$/u.test(characters))
        target.insert(characters);
}

const end = (): void => writer?.end();
const isOwn = (event: Event): boolean => event.composedPath().includes(preview.host);

function keydown(event: KeyboardEvent): void {
    const field = event.composedPath()[0];
    if (!event.isTrusted || !writer || !isOnHere() || !isServed(field))
        return;
    if (target.field !== field)
        end();
    target.field = field;
    const key = keyOf(event);
    if (!key || !writer.press(key))
        return;
    event.preventDefault();
    event.stopImmediatePropagation();
}

function showState(next: TabState): void {
    if (next !== shown)
        void send({ what: "show", state: (shown = next) }).catch(() => undefined);
}

addEventListener("keydown", keydown, true);
addEventListener("focusin", (event) => {
    if (isOnHere() && isServed(event.composedPath()[0]))
        load();
}, true);
addEventListener("focusout", end, true);
for (const what of ["pointerdown", "mousedown", "cut", "copy", "paste", "drop", "compositionstart"] as const)
    addEventListener(what, (event) => void (isOwn(event) || end()), true);
addEventListener("pagehide", end);
document.addEventListener("visibilitychange", () => void (document.visibilityState === "hidden" && end()));

chrome.runtime.onMessage.addListener((message: SiteQuestion, _, reply: (site: string) => void) => {
    if (message.what === "site")
        reply(site());
});

followState((next) => {
    end();
    state = next;
    adoptState();
    if (isOnHere() && isServed(focused()))
        load();
    if (window === window.top)
        showState(next.sitesOff.includes(site()) ? "off" : "usual");
});
