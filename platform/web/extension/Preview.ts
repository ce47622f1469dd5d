import type { Candidate, CandidateLine } from "../src/core/index.ts";

const frameStyle = "all: initial; position: fixed; inset: auto; margin: 0; border: 0; padding: 0; z-index: 2147483647; overflow: visible; "
    + "background: none; color-scheme: light dark;";
const boxStyle = "display: none; width: max-content; max-width: 90vw; padding: 2px 8px; border: 1px solid GrayText; border-radius: 6px; "
    + "background: Canvas; color: CanvasText; font: 18px/1.5 system-ui, sans-serif; box-shadow: 0 2px 8px rgb(0 0 0 / 0.3);";
const buttonStyle = "border: 0; border-radius: 4px; padding: 2px 8px; font: inherit; color: inherit; cursor: pointer;";
const gap = 4;

export interface Choices {
    choose(row: number): void;
    forget(row: number): void;
}

/// The word that is being composed, and its candidates, beside the caret, where neither the page's style nor its
/// scripts reach. Styles are set by properties, which no content security policy forbids.
export class Preview {
    readonly host = document.createElement("vanoka-preview");
    readonly room: ShadowRoot;
    readonly #box = document.createElement("div");
    readonly #word = document.createElement("div");
    readonly #line = document.createElement("div");

    constructor() {
        this.room = this.host.attachShadow({ mode: "closed" });
        this.host.style.cssText = frameStyle;
        this.#box.style.cssText = boxStyle;
        this.#box.lang = "si";
        this.#word.style.cssText = "text-decoration: underline";
        this.#line.style.cssText = "display: flex; flex-wrap: wrap; gap: 2px; font-size: 16px";
        this.#line.setAttribute("role", "status");
        this.#box.append(this.#word, this.#line);
        this.room.append(this.#box);
        // The field keeps the focus.
        this.room.addEventListener("pointerdown", (event) => event.preventDefault());
        this.room.addEventListener("mousedown", (event) => event.preventDefault());
    }

    get text(): string {
        return this.#word.textContent ?? "";
    }

    /// Adds the preview to the page, above dialogs where browsers can, so that a caret can be looked for.
    open(): void {
        if (this.host.isConnected)
            return;
        (document.fullscreenElement ?? document.documentElement).append(this.host);
        if ("popover" in this.host) {
            this.host.popover = "manual";
            this.host.showPopover();
        }
    }

    show(text: string, caret: DOMRect): void {
        this.#word.textContent = text;
        this.#box.style.display = "block";
        this.#place(caret);
    }

    /// Below the caret, or above it where there is no room.
    #place(caret: DOMRect): void {
        const { width, height } = this.#box.getBoundingClientRect();
        const below = caret.bottom + gap, above = caret.top - gap - height;
        const top = below + height <= innerHeight || above < 0 ? below : above;
        this.host.style.left = `${Math.max(0, Math.min(caret.left, innerWidth - width - gap))}px`;
        this.host.style.top = `${top}px`;
    }

    showLine({ rows, highlighted }: CandidateLine, choices: Choices): void {
        this.#line.replaceChildren(...rows.flatMap((row, at) => [
            this.#button(row.text, at === highlighted, () => choices.choose(at)),
            ...(row.isLearnt ? [this.#forgetting(row, () => choices.forget(at))] : []),
        ]));
    }

    close(): void {
        this.#word.textContent = "";
        this.#line.replaceChildren();
        this.#box.style.display = "none";
        this.host.remove();
    }

    #button(text: string, isHighlighted: boolean, act: () => void): HTMLButtonElement {
        const button = document.createElement("button");
        button.type = "button";
        button.tabIndex = -1;
        button.textContent = text;
        button.style.cssText = `${buttonStyle} background: ${isHighlighted ? "Highlight; color: HighlightText" : "none"}`;
        button.addEventListener("click", (event) => event.isTrusted && act());
        return button;
    }

    #forgetting({ text }: Candidate, act: () => void): HTMLButtonElement {
        const button = this.#button("\u00D7", false, act);
        button.setAttribute("aria-label", `Forget ${text}`);
        return button;
    }
}
