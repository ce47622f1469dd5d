/// Fields that take text for people to read. All others, such as passwords, addresses and numbers, are left alone.
export type ServedField = HTMLInputElement | HTMLTextAreaElement | HTMLElement;

const servedTypes = new Set(["text", "search"]);
const latinModes = new Set(["none", "tel", "url", "email", "numeric", "decimal"]);
const latinContents = /\b(?:username|(?:current|new)-password|one-time-code|email|url|tel[\w-]*|cc-[\w-]+|postal-code)\b/;

export const isForm = (field: Element): field is HTMLInputElement | HTMLTextAreaElement =>
    field instanceof HTMLInputElement || field instanceof HTMLTextAreaElement;

export function isServed(element: unknown): element is ServedField {
    if (!(element instanceof HTMLElement) || latinModes.has(element.inputMode))
        return false;
    if (!isForm(element))
        return element.isContentEditable;
    return !element.readOnly && !element.disabled && !latinContents.test(element.autocomplete)
        && (element instanceof HTMLTextAreaElement || servedTypes.has(element.type));
}

/// The element with the focus, in whichever shadow it stands.
export function focused(): Element | null {
    let element = document.activeElement;
    while (element?.shadowRoot?.activeElement)
        element = element.shadowRoot.activeElement;
    return element;
}
