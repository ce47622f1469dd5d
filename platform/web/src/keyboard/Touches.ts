import type { TouchKey } from "./keys.ts";

export interface Point {
    readonly x: number;
    readonly y: number;
}

/// What fingers have done, in the order in which it is to happen.
export type Act =
    | { readonly what: "press"; readonly key: TouchKey } ///< a finger is on the key
    | { readonly what: "lift"; readonly key: TouchKey } ///< and no more
    | { readonly what: "type"; readonly key: TouchKey }
    | { readonly what: "delete" }
    | { readonly what: "open"; readonly key: TouchKey } ///< show the letters behind the key
    | { readonly what: "point"; readonly at: Point } ///< to one of them
    | { readonly what: "choose" }
    | { readonly what: "close" } ///< without a choice
    | { readonly what: "trail"; readonly points: readonly Point[] }
    | { readonly what: "stroke"; readonly points: readonly Point[] }
    | { readonly what: "move caret"; readonly steps: number };

export interface Measures {
    keyAt(point: Point): TouchKey | undefined;
    readonly keyWidth: number;
    longPress: number; ///< in milliseconds
    strokes: boolean; ///< words can be swiped
}

type Mode = "tap" | "hold" | "stroke" | "slide" | "repeat" | "done";

interface Finger {
    readonly id: number;
    readonly key: TouchKey;
    readonly points: Point[];
    mode: Mode;
    deadline: number; ///< when holding means something; infinite: never
    moved: number; ///< of the caret
}

const firstRepeat = 400, nextRepeat = 60, fasterRepeat = 30, fasterAfter = 12;

/// Fingers on a keyboard, without a clock and without a screen. Two thumbs roll over: a key that is still down when
/// the next finger comes is typed at once, so that letters come in the order in which fingers did. A finger that
/// trembles stays on its key; one that has left it by most of a key's width swipes.
export class Touches {
    #fingers: Finger[] = [];
    #repeats = 0;

    constructor(readonly measures: Measures) {}

    /// When `pass` is to be called next; infinite when nothing is waited for.
    get deadline(): number {
        return Math.min(Infinity, ...this.#fingers.map((finger) => finger.deadline));
    }

    down(id: number, point: Point, now: number): Act[] {
        const key = this.measures.keyAt(point);
        if (!key)
            return [];
        const acts = this.#fingers.flatMap((finger) => this.#finish(finger));
        const isDelete = key.role === "delete";
        const holds = key.role === "character" ? this.measures.longPress : isDelete ? firstRepeat : Infinity;
        this.#fingers.push({ id, key, points: [point], mode: isDelete ? "repeat" : "tap", deadline: now + holds, moved: 0 });
        acts.push({ what: "press", key });
        if (isDelete)
            acts.push({ what: "delete" });
        this.#repeats = 0;
        return acts;
    }

    move(id: number, point: Point): Act[] {
        const finger = this.#fingers.find((each) => each.id === id);
        if (!finger)
            return [];
        finger.points.push(point);
        if (finger.mode === "hold")
            return [{ what: "point", at: point }];
        if (finger.mode === "tap")
            this.#leave(finger, point);
        if (finger.mode === "stroke")
            return [{ what: "trail", points: finger.points }];
        return finger.mode === "slide" ? this.#slide(finger, point) : [];
    }

    up(id: number, point: Point): Act[] {
        const finger = this.#fingers.find((each) => each.id === id);
        if (!finger)
            return [];
        finger.points.push(point);
        const acts = this.#finish(finger);
        this.#fingers.splice(this.#fingers.indexOf(finger), 1);
        return [...acts, { what: "lift", key: finger.key }];
    }

    /// The system has taken the finger: what was typed stays, what was not is not.
    cancel(id: number): Act[] {
        const finger = this.#fingers.find((each) => each.id === id);
        if (!finger)
            return [];
        this.#fingers.splice(this.#fingers.indexOf(finger), 1);
        const acts: Act[] = finger.mode === "hold" ? [{ what: "close" }] : finger.mode === "stroke" ? [{ what: "trail", points: [] }] : [];
        return [...acts, { what: "lift", key: finger.key }];
    }

    /// Time has passed.
    pass(now: number): Act[] {
        return this.#fingers.filter((finger) => finger.deadline <= now).flatMap((finger): Act[] => {
            if (finger.mode === "repeat") {
                finger.deadline = now + (++this.#repeats > fasterAfter ? fasterRepeat : nextRepeat);
                return [{ what: "delete" }];
            }
            finger.deadline = Infinity;
            finger.mode = "hold";
            return [{ what: "open", key: finger.key }];
        });
    }

    /// What the finger means when it goes up, or when another comes.
    #finish(finger: Finger): Act[] {
        const { mode, key, points } = finger;
        finger.mode = "done";
        finger.deadline = Infinity;
        switch (mode) {
        case "tap": return [{ what: "type", key }];
        case "hold": return [{ what: "choose" }];
        case "stroke": return [{ what: "trail", points: [] }, { what: "stroke", points }];
        default: return [];
        }
    }

    /// A finger that has left its key by far enough swipes a word, or moves the caret.
    #leave(finger: Finger, point: Point): void {
        const { keyWidth } = this.measures, start = finger.points[0]!;
        const way = Math.hypot(point.x - start.x, point.y - start.y);
        if (finger.key.role === "space" && Math.abs(point.x - start.x) > keyWidth * 0.6) {
            finger.mode = "slide";
            finger.deadline = Infinity;
        } else if (finger.key.isLetter && this.measures.strokes && way > keyWidth * 0.75
            && this.measures.keyAt(point)?.id !== finger.key.id) {
            finger.mode = "stroke";
            finger.deadline = Infinity;
        }
    }

    #slide(finger: Finger, point: Point): Act[] {
        const steps = Math.trunc((point.x - finger.points[0]!.x) / (this.measures.keyWidth * 0.4)) - finger.moved;
        finger.moved += steps;
        return steps === 0 ? [] : [{ what: "move caret", steps }];
    }
}
