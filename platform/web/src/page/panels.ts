import type { Group, Letter, Settings } from "../core/index.ts";
import { button, byId, make } from "../ui/dom.ts";
import type { Problem } from "../words/protocol.ts";
import type { Page } from "./main.ts";
import { largestDocument } from "./KeysStore.ts";
import { prefer, preferences } from "./preferences.ts";
import { longPressRange, type Preferences } from "./stored.ts";
import { showStatus } from "./status.ts";
import { filled, language, texts } from "../ui/texts.ts";
import { editorIn } from "./editor.ts";
import { saveAs } from "./tools.ts";
import licence from "#licence?raw";
import licences from "#lists-licences?raw";
import components from "./components.txt?raw";

const panel = (): HTMLDialogElement => byId("panel") as HTMLDialogElement;

function open(title: string, name: string, ...content: Node[]): void {
    const heading = make("h2", { id: "panel-title", textContent: title });
    panel().className = name;
    panel().setAttribute("aria-labelledby", "panel-title");
    panel().replaceChildren(make("div", { className: "panel-head" }, heading, button(texts.close, () => panel().close())), ...content);
    if (!panel().open)
        panel().showModal();
}

function choice(label: string, name: keyof { [Name in keyof Preferences as Preferences[Name] extends boolean ? Name : never]: 0 }): HTMLElement {
    const box = make("input", { type: "checkbox", checked: preferences[name], onchange: () => prefer({ [name]: box.checked }) });
    return make("label", { className: "choice" }, box, make("span", {}, label));
}

function holding(): HTMLElement {
    const said = make("output", { textContent: filled(texts.milliseconds, preferences.longPress) });
    const range = make("input", { type: "range", min: String(longPressRange.least), max: String(longPressRange.most), step: "50",
        value: String(preferences.longPress), oninput: () => {
            prefer({ longPress: range.valueAsNumber });
            said.textContent = filled(texts.milliseconds, preferences.longPress);
        } });
    return make("label", { className: "choice" }, texts.longPress, range, said);
}

function languages(page: Page): HTMLElement {
    const names = [["", texts.automatic], ["en", "English"], ["si", "සිංහල"]] as const;
    const select = make("select", { onchange: () => {
        prefer({ language: select.value });
        page.draw();
        showSettings(page);
    } }, ...names.map(([value, name]) => make("option", { value, selected: preferences.language === value }, name)));
    return make("label", { className: "choice" }, texts.language, select);
}

/// The text of a file that a person picks; said, and nothing done, when it is too large.
function picked(use: (text: string) => void): () => void {
    return () => {
        const input = make("input", { type: "file", hidden: true, onchange: () => {
            const [file] = input.files ?? [];
            if (file && file.size > largestDocument)
                showStatus(texts.fileTooLarge);
            else if (file)
                void file.text().then(use);
            input.remove();
        } });
        document.body.append(input);
        input.click();
    };
}

/// A list that is wrong in a line, or storage that refuses.
const saidOf = ({ line, reason }: Problem): string =>
    (line === undefined ? filled(texts.storedStays, reason) : filled(texts.wordsRefused, line, reason));

function ownWords({ words }: Page): HTMLElement {
    const failed = (problem: unknown): void => showStatus(String(problem));
    const take = (document: string): void => void words.ask({ what: "import", document }).then((problem) =>
        showStatus(problem ? saidOf(problem) : texts.wordsImported), failed);
    return make("fieldset", {}, make("legend", {}, texts.words),
        button(texts.exportWords, () => void words.ask({ what: "export" }).then((text) => saveAs("vanoka-words.tsv", text), failed)),
        button(texts.importWords, picked(take)),
        button(texts.eraseWords, () => {
            if (confirm(texts.confirmErase))
                void words.ask({ what: "erase" }).then((problem) => showStatus(problem ? saidOf(problem) : texts.erased), failed);
        }, { className: "destructive" }));
}

const titleOf = (group: Group): string => ({ vowel: texts.vowels, consonant: texts.consonants, sign: texts.signs })[group];

export function groupsOf(settings: Settings): [string, Letter[]][] {
    const { letters } = settings;
    return (["vowel", "consonant", "sign"] as const).map((group) => [titleOf(group), letters.filter((each) => each.group === group)]);
}

const activeKeys = (settings: Settings, letter: Letter): string[] =>
    settings.keys(letter.id).filter((state) => state.isOn && state.takenBy === undefined).map((state) => state.key);

function ownKeys(page: Page): HTMLElement {
    const { keys } = page, editor = make("div", { className: "editor" }), list = make("div", { className: "letters" });
    const redraw = (): void => {
        list.replaceChildren(...groupsOf(keys.settings).flatMap(([title, letters]) => [make("h3", {}, title),
            make("div", { className: "letter-grid" }, ...letters.map((letter) => {
                const shown = button("", () => editorIn(editor, page, letter.id, redraw), { className: letter.isCustomized ? "letter changed" : "letter" });
                shown.append(make("span", { lang: "si" }, letter.display), make("small", {}, activeKeys(keys.settings, letter).join(" ") || texts.noKey));
                return shown;
            }))]));
    };
    redraw();
    editorIn(editor, page, keys.settings.letters[0]!.id, redraw);
    const reset = (): void => {
        if (!confirm(texts.confirmReset))
            return;
        keys.edit((settings) => settings.reset());
        redraw();
    };
    return make("fieldset", {}, make("legend", {}, texts.keys),
        button(texts.exportKeys, () => saveAs("vanoka-keys.json", keys.settings.document)),
        button(texts.importKeys, picked((text) => {
            showStatus(keys.import(text) ? texts.keysImported : texts.keysRefused);
            redraw();
        })),
        button(texts.resetKeys, reset, { className: "destructive" }), editor, list);
}

export function showSettings(page: Page): void {
    open(texts.settings, "settings", make("fieldset", {}, make("legend", {}, texts.typing),
        choice(texts.suggestions, "suggestions"), choice(texts.privateMode, "privateMode"), choice(texts.strokes, "strokes"),
        choice(texts.sound, "sound"), choice(texts.vibration, "vibration"), holding(), languages(page)), ownWords(page), ownKeys(page));
}

export function showChart({ keys }: Page): void {
    const { settings } = keys;
    open(texts.chart, "chart", button(texts.print, () => print(), { className: "no-print" }),
        ...groupsOf(settings).map(([title, letters]) => make("section", {}, make("h3", {}, title),
            make("table", {}, make("tbody", {}, ...letters.map((letter) => make("tr", {}, make("th", { scope: "row", lang: "si" }, letter.display),
                make("td", { className: "keys" }, activeKeys(settings, letter).join("  ") || texts.noKey),
                make("td", {}, settings.editor(letter.id).example))))))));
}

export function showAbout(): void {
    open(texts.about, "about", make("p", {}, language === "si" ? "\u0DC0\u0DB1\u0DDC\u0D9A\u0DCF" : "Vanoka", " \u2014 ", texts.tagline),
        make("p", {}, texts.privacy), make("h3", {}, texts.licences), make("pre", { lang: "en", tabIndex: 0, role: "region", "aria-label": texts.licences }, components, "\n", licences, "\n", licence));
}
