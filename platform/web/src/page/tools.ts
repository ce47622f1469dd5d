import type { EditableField } from "../field/EditableField.ts";
import { button, byId, make } from "../ui/dom.ts";
import { symbol, type Symbol } from "./icons.ts";
import type { Page } from "./main.ts";
import { prefer, preferences } from "./preferences.ts";
import { showStatus } from "./status.ts";
import { texts } from "../ui/texts.ts";

/// The buttons above the text.
export function drawTools(page: Page): void {
    const { field, writer } = page;
    const withText = (use: (text: string) => void) => (): void => {
        writer.end();
        if (field.text === "")
            showStatus(texts.nothing);
        else
            use(field.text);
    };
    const panel = (show: (panels: typeof import("./panels.ts")) => void) => (): void => {
        writer.end();
        void import("./panels.ts").then(show);
    };
    const tools = byId("tools");
    tools.setAttribute("aria-label", texts.title);
    tools.replaceChildren(
        tool("copy", withText((text) => void copy(text))),
        ...("share" in navigator ? [tool("share", withText((text) => void navigator.share({ text }).catch(() => undefined)))] : []),
        tool("save", withText((text) => saveAs("vanoka.txt", text))),
        tool("clear", withText(() => clear(field))),
        tool("keyboard", page.toggleKeyboard, { "aria-pressed": !byId("keyboard").hidden, id: "keyboard-button" }),
        tool("settings", panel((panels) => panels.showSettings(page))),
        tool("chart", panel((panels) => panels.showChart(page))),
        tool("about", panel((panels) => panels.showAbout())));
}

export function showKeyboardState(): void {
    byId("keyboard-button").setAttribute("aria-pressed", String(!byId("keyboard").hidden));
}

function tool(name: Symbol, act: () => void, properties: Record<string, unknown> = {}): HTMLButtonElement {
    const made = button("", act, { title: texts[name], "aria-label": texts[name], ...properties });
    made.append(symbol(name), make("span", {}, texts[name]));
    return made;
}

async function copy(text: string): Promise<void> {
    try {
        await navigator.clipboard.writeText(text);
        showStatus(texts.copied);
    } catch {
        showStatus(texts.copyFailed);
    }
}

export function saveAs(name: string, text: string): void {
    const address = URL.createObjectURL(new Blob([text], { type: "text/plain;charset=utf-8" }));
    make("a", { href: address, download: name }).click();
    setTimeout(() => URL.revokeObjectURL(address), 60_000);
}

/// The browser's own history brings it back, too.
function clear(field: EditableField): void {
    const { text } = field;
    field.clear();
    showStatus(texts.cleared, false, { label: texts.undo, perform: () => {
        field.element.focus();
        field.caret = 0;
        field.insert(text);
    } });
}

/// Three lines, until they have been read once.
export function showHint(field: EditableField): void {
    const hint = byId("hint");
    hint.hidden = preferences.hintSeen;
    if (hint.hidden)
        return;
    const done = (): void => {
        hint.hidden = true;
        prefer({ hintSeen: true });
        field.element.focus();
    };
    hint.replaceChildren(...[texts.hint1, texts.hint2, texts.hint3].map((line) => make("p", {}, line)), button(texts.hintDone, done));
}
