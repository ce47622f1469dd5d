// The scenarios of tests/scenarios in a text field of this file's own (their form: tests/support/Scenario.h).
import { INSERT, MARK } from "./module.mjs";

const SPACE = 49, DELETE = 51, ESCAPE = 53, OTHER = 0xFFFF;
const MODIFIERS = { C: 1 << 18, A: 1 << 19, D: 1 << 20 };
const NAMED = {
    space: [SPACE, " "], escape: [ESCAPE, "\x1B"], delete: [DELETE, "\x7F"],
    return: [OTHER, "\r"], enter: [OTHER, "\x03"], tab: [OTHER, "\t"], less: [OTHER, "<"], dead: [OTHER, ""],
    up: [OTHER, "\uF700"], down: [OTHER, "\uF701"], left: [OTHER, "\uF702"], right: [OTHER, "\uF703"],
    f1: [OTHER, "\uF704"], insert: [OTHER, "\uF727"], forwarddelete: [OTHER, "\uF728"], home: [OTHER, "\uF729"],
    end: [OTHER, "\uF72B"], pageup: [OTHER, "\uF72C"], pagedown: [OTHER, "\uF72D"],
};

function keyNamed(name) {
    let modifiers = 0;
    for (; /^[CAD]-./.test(name); name = name.slice(2))
        modifiers |= MODIFIERS[name[0]];
    const [code, characters] = NAMED[name] ?? [OTHER, name];
    if (!NAMED[name] && !modifiers)
        throw new Error(`no such key: ${name}`);
    return { code, modifiers, characters };
}

function keysOf(text) {
    return (text.match(/<[^>]+>|[^]/gu) ?? []).map((key) =>
        key.length > 2 && key[0] === "<" ? keyNamed(key.slice(1, -1)) : { code: OTHER, modifiers: 0, characters: key });
}

const unescaped = (text) => text.replace(/\\u([0-9A-F]{4})|\\([nt])/g,
    (_, scalar, control) => scalar ? String.fromCodePoint(parseInt(scalar, 16)) : control === "n" ? "\n" : "\t");

export function stepsOf(scenario) {
    return scenario.split("\n").filter((line) => line && !line.startsWith("#")).map((line) => {
        const [, keys, screen] = /^(.*?)(?:  +(.*))?$/.exec(line);
        return { line, keys, screen: unescaped(screen ?? "") };
    });
}

const characters = new Intl.Segmenter("en", { granularity: "grapheme" });
const firstOf = (text) => characters.segment(text)[Symbol.iterator]().next().value?.segment ?? "";
const lastOf = (text) => [...characters.segment(text)].at(-1)?.segment ?? "";

export class Field {
    #before = "";
    #after = "";
    #marked = "";

    constructor(vanoka) {
        this.vanoka = vanoka;
        this.answer = vanoka.create("answer");
        this.settings = vanoka.create("settings");
        this.typing = vanoka.create("typing", this.settings);
    }

    release() {
        for (const what of ["typing", "settings", "answer"])
            this.vanoka.call(`${what}_release`, this[what]);
    }

    get screen() {
        const middle = this.#marked ? `[${this.#marked}]` : this.#after ? "|" : "";
        return this.#before + middle + this.#after;
    }

    play(keys) {
        if (!keys.startsWith("!"))
            return keysOf(keys).forEach((key) => this.#press(key));
        const [what, key, letter] = keys.slice(1).split(/\s+/);
        const { vanoka, settings, answer } = this;
        switch (what) {
        case "commit":
        case "leave": return this.#apply(vanoka.ask("typing_end", answer, this.typing));
        case "add": return vanoka.ask("settings_add", answer, settings, key, letter);
        case "remove": return vanoka.call("settings_remove", settings, key);
        case "on":
        case "off": return vanoka.call("settings_set_built_in", settings, key, what === "on" ? 1 : 0);
        case "reset": return vanoka.call("settings_reset", settings);
        default: throw new Error(`no such operation: ${what}`);
        }
    }

    #press(key) {
        const isConsumed = this.vanoka.press(this.typing, key.code, key.modifiers, key.characters, this.answer);
        this.#apply(this.vanoka.items(this.answer));
        if (!isConsumed)
            this.#type(key);
    }

    #apply(items) {
        for (const { kind, text, number } of items) {
            if (number !== text.length)
                throw new Error(`${number} UTF-16 units are said of ${text}`);
            this.#marked = kind === MARK ? text : "";
            this.#before += kind === INSERT ? text : "";
        }
    }

    // What a text field does with a key by itself.
    #type({ code, modifiers, characters: typed }) {
        if (modifiers || !typed || code === ESCAPE)
            return;
        if (code === DELETE)
            this.#before = this.#before.slice(0, this.#before.length - lastOf(this.#before).length);
        else if (typed === "\uF702")
            this.#move(-lastOf(this.#before).length);
        else if (typed === "\uF703")
            this.#move(firstOf(this.#after).length);
        else if (!/^[\uF700-\uF8FF]/.test(typed))
            this.#before += typed === "\r" || typed === "\x03" ? "\n" : typed;
    }

    #move(units) {
        const text = this.#before + this.#after, caret = this.#before.length + units;
        [this.#before, this.#after] = [text.slice(0, caret), text.slice(caret)];
    }
}
