import { isForm, type ServedField } from "./served.ts";

const copied = ["boxSizing", "borderTopWidth", "borderRightWidth", "borderBottomWidth", "borderLeftWidth", "paddingTop", "paddingRight",
    "paddingBottom", "paddingLeft", "font", "letterSpacing", "wordSpacing", "textIndent", "textTransform", "tabSize", "direction"] as const;

/// The selection that a field's text is in: a shadow tree may have one of its own.
export function selectionIn(field: Element): Selection | null {
    const root = field.getRootNode() as (Document | ShadowRoot) & { getSelection?: () => Selection | null };
    return root.getSelection?.() ?? getSelection();
}

/// Where the caret of a field stands on the screen. `room`: an element in which the text may be set once more, since
/// browsers tell nothing of carets in form fields.
export function caretIn(field: ServedField, room: ParentNode): DOMRect {
    return (isForm(field) ? caretInForm(field, room) : caretInText(field)) ?? field.getBoundingClientRect();
}

function caretInText(field: Element): DOMRect | undefined {
    const selection = selectionIn(field);
    if (!selection?.rangeCount)
        return undefined;
    const rects = selection.getRangeAt(0).getClientRects();
    return rects[rects.length - 1];
}

function caretInForm(field: HTMLInputElement | HTMLTextAreaElement, room: ParentNode): DOMRect {
    const frame = field.getBoundingClientRect(), style = getComputedStyle(field);
    const copy = document.createElement("div"), caret = document.createElement("span");
    for (const name of copied)
        copy.style[name] = style[name];
    Object.assign(copy.style, { position: "absolute", visibility: "hidden", width: `${frame.width}px`, top: "0", left: "0", borderStyle: "solid",
        overflowWrap: "break-word", whiteSpace: field instanceof HTMLTextAreaElement ? "pre-wrap" : "pre" });
    copy.textContent = field.value.slice(0, field.selectionStart ?? 0);
    caret.textContent = "\u200B";
    copy.append(caret);
    room.append(copy);
    const from = copy.getBoundingClientRect(), at = caret.getBoundingClientRect();
    copy.remove();
    const inside = (value: number, least: number, most: number): number => Math.max(least, Math.min(value, most));
    const x = inside(frame.left + at.left - from.left - field.scrollLeft, frame.left, frame.right);
    const y = inside(frame.top + at.top - from.top - field.scrollTop, frame.top, frame.bottom);
    return new DOMRect(x, y, 0, field instanceof HTMLTextAreaElement ? at.height : frame.bottom - y);
}
