import type { EditableField } from "./EditableField.ts";
import { keyOf, keyTyping } from "./keys.ts";
import type { Writer } from "./Writer.ts";

/// Around controls that go on with the word: keys and candidates.
export const keepsTyping = "[data-keeps-typing]";

/// Passes what happens to a field on to its writer: keys, other input methods, and all that ends a word.
export function listen(field: EditableField, writer: Writer, transliterate: (keys: string) => string): void {
    const { element } = field;
    const end = (): void => writer.end();

    element.addEventListener("keydown", (event) => {
        const key = keyOf(event);
        // Tab leaves the field as anywhere, but where it moves through candidates.
        if (key && writer.press(key))
            event.preventDefault();
    });
    // Keyboards that send no keys, on phones.
    element.addEventListener("beforeinput", (event) => {
        if (field.isChanging || event.isComposing || event.inputType !== "insertText" || !event.data)
            return;
        event.preventDefault();
        for (const character of event.data)
            if (!writer.press(keyTyping(character)))
                field.insert(character);
    });
    // Another input method is at work: what it gives in Latin letters is read as keys.
    element.addEventListener("compositionstart", end);
    element.addEventListener("compositionend", ({ data }) => {
        if (/^[A-Za-z]+$/.test(data))
            field.replaceBefore(data.length, transliterate(data));
    });
    element.addEventListener("blur", ({ relatedTarget }) => {
        if (!(relatedTarget instanceof Element && relatedTarget.closest(keepsTyping)))
            end();
    });
    for (const what of ["pointerdown", "cut", "copy", "paste", "drop"] as const)
        element.addEventListener(what, end);
    document.addEventListener("selectionchange", () => {
        if (!field.isCaretInPlace && document.activeElement === element)
            endAtSelection(field, writer);
    });
    addEventListener("pagehide", end);
    document.addEventListener("visibilitychange", () => {
        if (document.visibilityState === "hidden")
            end();
    });
}

/// The caret has been moved away from a word: the word goes in where it is, and the caret stays where it was put.
function endAtSelection(field: EditableField, writer: Writer): void {
    const { caret } = field;
    writer.end();
    field.caret = caret;
}
