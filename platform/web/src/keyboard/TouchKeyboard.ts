import type { KeyPlace, Settings } from "../core/index.ts";
import { button, make } from "../ui/dom.ts";
import { filled, texts } from "../ui/texts.ts";
import { layers, type LayerName, type TouchKey } from "./keys.ts";
import { LettersBehind } from "./LettersBehind.ts";
import { Shift } from "./Shift.ts";
import { Touches, type Act, type Point } from "./Touches.ts";
import { Trail } from "./Trail.ts";

/// What the keyboard does to the text.
export interface Typist {
    type(character: string): void;
    /// A letter behind a key, by the keys that type it.
    typeKeys(keys: string): void;
    delete(): void;
    breakLine(): void;
    moveCaret(characters: number): void;
    swipe(points: readonly Point[]): void;
}

const virama = "\u0DCA";
const named: Record<string, keyof typeof texts> = {
    shift: "shiftKey", delete: "deleteKey", return: "returnKey", space: "spaceKey",
    letters: "lettersKey", numbers: "numbersKey", signs: "signsKey",
};
const symbols: Record<string, string> = { shift: "\u21E7", delete: "\u232B", return: "\u21B5", space: "" };

/// The keys, drawn, and the fingers on them.
export class TouchKeyboard {
    readonly shift = new Shift();
    readonly behind = new LettersBehind();
    readonly trail = new Trail();
    readonly touches: Touches;
    #layer: LayerName = "letters";
    #buttons = new Map<string, { key: TouchKey; button: HTMLButtonElement; place: DOMRect }>();
    #timer: ReturnType<typeof setTimeout> | undefined;
    onlayout: (keys: KeyPlace[], keyWidth: number) => void = () => undefined;
    onpress: () => void = () => undefined;

    constructor(readonly element: HTMLElement, readonly settings: () => Settings, readonly typist: Typist) {
        const measures = { keyAt: (point: Point) => this.#keyAt(point), keyWidth: 36, longPress: 300, strokes: true };
        this.touches = new Touches(measures);
        this.#listen();
        new ResizeObserver(() => this.#measure()).observe(element);
    }

    /// The keys as they are labelled now.
    draw(): void {
        this.element.setAttribute("aria-label", texts.keysRegion);
        this.#buttons.clear();
        const rows = layers[this.#layer].map((row) => make("div", { className: "row" }, ...row.map((key) => this.#buttonFor(key))));
        this.element.replaceChildren(...rows, this.trail.element, this.behind.element);
        this.#measure();
    }

    #buttonFor(key: TouchKey): HTMLButtonElement {
        const shown = this.#shown(key), isSpecial = key.role !== "character";
        const made = button("", () => undefined, {
            className: isSpecial ? `key special ${key.role}` : "key", tabIndex: -1, "data-key": key.id,
            "aria-label": this.#nameOf(key), ...(key.role === "shift" ? { "aria-pressed": this.shift.isOn } : {}),
            onclick: (event: MouseEvent) => {
                if (event.detail === 0) // assistive technology, which touches nothing
                    this.#act([{ what: key.role === "delete" ? "delete" : "type", key }], event.timeStamp);
            },
        });
        made.append(make("span", {}, shown));
        const sinhala = key.isLetter ? this.#typedBy(shown) : "";
        if (sinhala !== "")
            made.append(make("small", { lang: "si" }, sinhala));
        made.style.flexGrow = String(key.width);
        made.style.setProperty("--width", String(key.width));
        made.classList.toggle("locked", key.role === "shift" && this.shift.state === "locked");
        this.#buttons.set(key.id, { key, button: made, place: new DOMRect() });
        return made;
    }

    #shown(key: TouchKey): string {
        if (key.role === "layer")
            return texts[named[key.id]!];
        if (key.role !== "character")
            return symbols[key.role]!;
        return key.isLetter && this.shift.isOn ? key.id.toUpperCase() : key.id;
    }

    #nameOf(key: TouchKey): string {
        if (key.role === "shift" && this.shift.state === "locked")
            return texts.lockedKey;
        const name = named[key.id];
        return name ? texts[name] : this.#shown(key);
    }

    /// The letter that a key gives, without the virama of a consonant alone.
    #typedBy(character: string): string {
        const text = this.settings().transliterate(character);
        return text === character ? "" : text.endsWith(virama) ? text.slice(0, -1) : text;
    }

    #measure(): void {
        const frame = this.element.getBoundingClientRect();
        if (frame.width === 0)
            return;
        for (const entry of this.#buttons.values())
            entry.place = entry.button.getBoundingClientRect();
        this.trail.fit(frame.width, frame.height);
        const letters = [...this.#buttons.values()].filter(({ key }) => key.isLetter);
        if (letters.length === 0)
            return;
        const keyWidth = letters[0]!.place.width;
        Object.assign(this.touches.measures, { keyWidth });
        this.onlayout(letters.map(({ key, place }) =>
            ({ label: key.id, x: place.x + place.width / 2 - frame.left, y: place.y + place.height / 2 - frame.top })), keyWidth);
    }

    /// The key that is nearest: the gaps between keys belong to them.
    #keyAt({ x, y }: Point): TouchKey | undefined {
        let nearest: TouchKey | undefined, least = Infinity;
        for (const { key, place } of this.#buttons.values()) {
            const away = Math.hypot(Math.max(place.left - x, x - place.right, 0), Math.max(place.top - y, y - place.bottom, 0));
            if (away < least)
                [nearest, least] = [key, away];
        }
        return nearest;
    }

    #listen(): void {
        const { element, touches } = this;
        element.addEventListener("pointerdown", (event) => {
            event.preventDefault();
            if (event.button !== 0)
                return;
            element.setPointerCapture(event.pointerId);
            this.#act(touches.down(event.pointerId, event, event.timeStamp), event.timeStamp);
        });
        element.addEventListener("pointermove", (event) => {
            const points = event.getCoalescedEvents?.() ?? [];
            for (const point of points.length > 0 ? points : [event])
                this.#act(touches.move(event.pointerId, { x: point.clientX, y: point.clientY }), event.timeStamp);
        });
        element.addEventListener("pointerup", (event) => this.#act(touches.up(event.pointerId, event), event.timeStamp));
        element.addEventListener("pointercancel", (event) => this.#act(touches.cancel(event.pointerId), event.timeStamp));
        element.addEventListener("contextmenu", (event) => event.preventDefault());
    }

    #act(acts: readonly Act[], now: number): void {
        for (const act of acts)
            this.#perform(act, now);
        clearTimeout(this.#timer);
        if (this.touches.deadline < Infinity)
            this.#timer = setTimeout(() => {
                const then = performance.now();
                this.#act(this.touches.pass(Math.max(then, this.touches.deadline)), then);
            }, Math.max(this.touches.deadline - performance.now(), 0));
    }

    #perform(act: Act, now: number): void {
        switch (act.what) {
        case "press":
            this.onpress();
            return this.#lightUp(act.key, true);
        case "lift": return this.#lightUp(act.key, false);
        case "type": return this.#type(act.key, now);
        case "delete": return this.typist.delete();
        case "open": return this.#open(act.key);
        case "point": return this.behind.point(act.at);
        case "choose": return this.#choose();
        case "close": return this.behind.close();
        case "trail": return this.trail.draw(this.#within(act.points));
        case "stroke": return this.typist.swipe(this.#within(act.points));
        case "move caret": return this.typist.moveCaret(act.steps);
        }
    }

    #within(points: readonly Point[]): Point[] {
        const { left, top } = this.element.getBoundingClientRect();
        return points.map(({ x, y }) => ({ x: x - left, y: y - top }));
    }

    #lightUp(key: TouchKey, isOn: boolean): void {
        this.#buttons.get(key.id)?.button.classList.toggle("down", isOn);
    }

    #type(key: TouchKey, now: number): void {
        switch (key.role) {
        case "shift":
            this.shift.tap(now);
            return this.draw();
        case "layer":
            this.#layer = key.id as LayerName;
            return this.draw();
        case "return": return this.typist.breakLine();
        case "space": return this.typist.type(" ");
        default:
            this.typist.type(this.#shown(key));
            this.#letterTyped();
        }
    }

    #letterTyped(): void {
        const was = this.shift.state;
        this.shift.used();
        if (was !== this.shift.state)
            this.draw();
    }

    #held: TouchKey | undefined;

    #open(key: TouchKey): void {
        this.#held = key;
        const shown = this.#shown(key), letters = key.isLetter ? this.settings().longPress(shown) : [];
        const place = this.#buttons.get(key.id)!.button.getBoundingClientRect();
        this.behind.open(letters, place, this.element.getBoundingClientRect(), filled(texts.behind, shown));
    }

    #choose(): void {
        const { chosen } = this.behind, hadLetters = !this.behind.element.hidden;
        this.behind.close();
        if (chosen)
            this.typist.typeKeys(chosen.keys);
        else if (!hadLetters && this.#held)
            this.typist.type(this.#shown(this.#held));
        this.#letterTyped();
    }
}
