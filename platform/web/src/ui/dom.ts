type Child = Node | string;
type Properties = Record<string, unknown>;

/// An element with properties (names with a dash are attributes) and children.
export function make<Name extends keyof HTMLElementTagNameMap>(name: Name, properties: Properties = {}, ...children: Child[]): HTMLElementTagNameMap[Name] {
    const element = document.createElement(name);
    for (const [key, value] of Object.entries(properties)) {
        if (value === undefined)
            continue;
        if (key.includes("-") || key === "role")
            element.setAttribute(key, String(value));
        else
            (element as unknown as Properties)[key] = value;
    }
    element.append(...children);
    return element;
}

export function button(label: string, onclick: () => void, properties: Properties = {}): HTMLButtonElement {
    return make("button", { type: "button", textContent: label, onclick, ...properties });
}

export const byId = (id: string): HTMLElement => document.getElementById(id)!;
