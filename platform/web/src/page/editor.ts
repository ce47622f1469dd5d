import type { EditorTexts, KeyState, Settings } from "../core/index.ts";
import { button, make } from "../ui/dom.ts";
import type { Page } from "./main.ts";
import { filled, language, texts } from "../ui/texts.ts";

const sinhala = {
    group: { vowel: "ස්වරය", consonant: "ව්\u200Dයඤ්ජනය", sign: "ලකුණ" },
    own: "ඔබේ යතුර", takenBy: "දැන් ලියන්නේ {0}", noExample: "දැනට මෙම අකුර ලියන යතුරක් නැත",
    empty: "{0} සඳහා ඔබන්න කැමති අකුරු ලියන්න.", notLetters: "ඉංග්\u200Dරීසි අකුරු පමණක් යොදන්න.", tooLong: "අකුරු හයකට වඩා දිගයි.",
    alreadyThere: "එය දැනටමත් මෙම අකුර ලියයි.", replaces: "{0} දැන් ලියන්නේ {1}; ඉන්පසු {2} ලියයි.", free: "එක් කළ හැක.",
    footnote: "ඉංග්\u200Dරීසි අකුරු හයක් දක්වා. ලොකු අකුරු වෙනස් යතුරු වේ: L සහ l එකක් නොවේ.",
};

interface Said {
    readonly group: string;
    readonly example: string;
    readonly message: string;
    readonly footnote: string;
    readonly note: (state: KeyState, english?: string) => string;
}

/// What the editor says in the language of the page. In English, what the desktop's window says.
function saidOf(settings: Settings, id: string, draft: string, editor: EditorTexts): Said {
    if (language === "en")
        return { ...editor, note: (_, english) => english ?? "" };
    const letter = settings.letters.find((each) => each.id === id)!;
    const displayOf = (other: string): string => settings.letters.find((each) => each.id === other)?.display ?? other;
    const check = settings.check(draft, id);
    const message = check.outcome === "replaces" ? filled(sinhala.replaces, draft, displayOf(check.replaces!), letter.display)
        : filled(sinhala[check.outcome], letter.display);
    return {
        group: sinhala.group[letter.group], example: editor.isTyped ? editor.example : sinhala.noExample, message, footnote: sinhala.footnote,
        note: (state) => (state.isAdded ? sinhala.own : state.takenBy ? filled(sinhala.takenBy, displayOf(state.takenBy)) : ""),
    };
}

/// The keys of one letter, to be changed.
export function editorIn(frame: HTMLElement, page: Page, id: string, changed: () => void, draft = ""): void {
    const { keys } = page, { settings } = keys, letter = settings.letters.find((each) => each.id === id)!;
    const said = (text: string): Said => saidOf(settings, id, text, settings.editor(id, text));
    const redraw = (left = ""): void => {
        changed();
        editorIn(frame, page, id, changed, left);
    };
    const edit = (change: (settings: Settings) => void) => (): void => {
        keys.edit(change);
        redraw();
    };
    const control = ({ key, isAdded, isOn, takenBy }: KeyState, name: string): HTMLElement => {
        if (isAdded)
            return button(texts.remove, edit((each) => each.remove(key)), { "aria-label": language === "en" ? name : `${texts.remove}, ${key}` });
        if (takenBy !== undefined)
            return button(texts.takeBack, edit((each) => void each.add(key, id)), { "aria-label": `${texts.takeBack}, ${key}` });
        return make("input", { type: "checkbox", role: "switch", checked: isOn, "aria-label": `${texts.on}, ${key}`, onchange: edit((each) => each.setBuiltIn(key, !isOn)) });
    };
    const editor = settings.editor(id, draft), now = said(draft);
    const rows = editor.rows.map(({ state, note, controlName }) => make("div", { className: "key-row" },
        make("code", { className: state.isOn && state.takenBy === undefined ? "" : "off" }, state.key),
        make("span", {}, now.note(state, note)), control(state, controlName)));
    const message = make("p", { id: "key-message", "aria-live": "polite", textContent: now.message });
    const add = make("button", { type: "submit", textContent: texts.add, disabled: !editor.isAccepted });
    const field = make("input", { type: "text", value: draft, placeholder: texts.prompt, "aria-label": texts.newKey, "aria-describedby": "key-message",
        autocapitalize: "off", autocomplete: "off", spellcheck: false, maxLength: 64, oninput: () => {
            message.textContent = said(field.value).message;
            add.disabled = !settings.editor(id, field.value).isAccepted;
        } });
    const form = make("form", { onsubmit: (event: Event) => {
        event.preventDefault();
        if (!add.disabled)
            edit((each) => void each.add(field.value, id))();
    } }, field, add);
    frame.replaceChildren(make("div", { className: "letter-head" }, make("span", { className: "large", lang: "si" }, letter.display),
        make("span", {}, make("strong", {}, now.group), make("br"), now.example)), ...rows, make("h3", {}, texts.addTitle), form, message,
    make("p", { className: "footnote" }, now.footnote));
}
