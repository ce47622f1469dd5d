import type { Target } from "../src/field/Writer.ts";
import { caretIn, selectionIn } from "./caret.ts";
import type { Preview } from "./Preview.ts";
import { focused, isForm, type ServedField } from "./served.ts";

/// A field of somebody's page as a target of typing. The page sees nothing of a word until it goes in whole: editors
/// with a model of their own are asked first, as a key would, and take it; in all other fields the browser puts it in,
/// as one step of the undo history.
export class PageTarget implements Target {
    field: ServedField | undefined;
    #range: Range | undefined; // where text goes in a field that has lost the focus
    #isChanging = false;

    constructor(readonly preview: Preview) {}

    /// While this target changes the page.
    get isChanging(): boolean {
        return this.#isChanging;
    }

    mark(text: string): void {
        if (!this.field || text === "")
            return this.preview.close();
        this.#range = rangeIn(this.field);
        this.preview.open();
        return this.preview.show(text, caretIn(this.field, this.preview.room));
    }

    insert(text: string): void {
        const { field } = this;
        this.preview.close();
        if (!field || text === "")
            return;
        this.#isChanging = true;
        try {
            if (field.dispatchEvent(inputEvent("beforeinput", text)))
                this.#putIn(field, text);
        } finally {
            this.#isChanging = false;
        }
    }

    /// What the field does by itself with a key that has waited for candidates.
    command(name: "delete" | "insertLineBreak"): void {
        this.#isChanging = true;
        document.execCommand(name);
        this.#isChanging = false;
    }

    #putIn(field: ServedField, text: string): void {
        const after = caretAfter(field, text);
        if (focused() === field && document.execCommand("insertText", false, text))
            after();
        else if (isForm(field))
            field.setRangeText(text, field.selectionStart ?? field.value.length, field.selectionEnd ?? field.value.length, "end");
        else
            putIntoRange(field, this.#range, text);
        if (focused() !== field)
            field.dispatchEvent(inputEvent("input", text));
    }
}

const inputEvent = (type: "beforeinput" | "input", data: string): InputEvent =>
    new InputEvent(type, { inputType: "insertText", data, bubbles: true, composed: true, cancelable: type === "beforeinput" });

function rangeIn(field: ServedField): Range | undefined {
    const selection = isForm(field) ? null : selectionIn(field);
    return selection?.rangeCount ? selection.getRangeAt(0).cloneRange() : undefined;
}

function putIntoRange(field: HTMLElement, range: Range | undefined, text: string): void {
    if (!range || !field.contains(range.startContainer))
        return field.append(text);
    range.deleteContents();
    return range.insertNode(document.createTextNode(text));
}

/// Sets the caret behind a text that was put in. Browsers place it behind the next letter where the text ends with a
/// virama, which joins the two.
function caretAfter(field: ServedField, text: string): () => void {
    if (isForm(field)) {
        const at = (field.selectionStart ?? 0) + text.length;
        return () => {
            if (field.selectionStart !== at && field.value.slice(at - text.length, at) === text)
                field.setSelectionRange(at, at);
        };
    }
    const { startContainer: node, startOffset } = rangeIn(field) ?? { startContainer: field, startOffset: 0 };
    return () => {
        const at = startOffset + text.length, selection = selectionIn(field);
        if (node instanceof Text && node.data.slice(startOffset, at) === text && selection?.focusOffset !== at)
            selection?.collapse(node, at);
    };
}
