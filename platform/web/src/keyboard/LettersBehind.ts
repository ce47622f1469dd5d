import type { LongPressLetter } from "../core/index.ts";
import { make } from "../ui/dom.ts";
import type { Point } from "./Touches.ts";

const cell = 48, reach = 90;

/// The letters that a held key may stand for, above the finger and within the keyboard's width, in as many rows as
/// they need.
export class LettersBehind {
    readonly element = make("div", { className: "behind", role: "menu", hidden: true });
    #letters: readonly LongPressLetter[] = [];
    #chosen = 0;
    #start: Point | undefined;

    open(letters: readonly LongPressLetter[], key: DOMRect, frame: DOMRect, name: string): void {
        this.#letters = letters;
        this.#start = undefined;
        this.element.hidden = letters.length === 0;
        this.element.setAttribute("aria-label", name);
        const columns = Math.min(letters.length, Math.floor((frame.width - 8) / cell));
        const rows = Math.ceil(letters.length / Math.max(columns, 1)), width = columns * cell + 4;
        const left = Math.min(Math.max(key.left - frame.left + key.width / 2 - width / 2, 2), frame.width - width - 2);
        this.element.style.width = `${width}px`;
        this.element.style.left = `${left}px`;
        this.element.style.top = `${key.top - frame.top - rows * cell - 12}px`;
        this.element.replaceChildren(...letters.map(({ letter, keys }) =>
            make("span", { role: "menuitem", lang: "si" }, letter.display, make("small", {}, keys))));
        this.#choose(0);
    }

    close(): void {
        this.element.hidden = true;
    }

    /// The finger is at this place of the window. It means the first letter until it slides.
    point(at: Point): void {
        this.#start ??= at;
        if (Math.hypot(at.x - this.#start.x, at.y - this.#start.y) < 8)
            return;
        const places = [...this.element.children].map((child) => child.getBoundingClientRect());
        const away = places.map((place) => Math.hypot(
            Math.max(place.left - at.x, at.x - place.right, 0), Math.max(place.top - at.y, at.y - place.bottom, 0)));
        const nearest = away.indexOf(Math.min(...away));
        this.#choose((away[nearest] ?? Infinity) <= reach ? nearest : -1);
    }

    get chosen(): LongPressLetter | undefined {
        return this.#letters[this.#chosen];
    }

    #choose(at: number): void {
        this.#chosen = at;
        [...this.element.children].forEach((child, place) => child.classList.toggle("chosen", place === at));
    }
}
