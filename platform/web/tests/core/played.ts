import type { Effect, Settings, Suggesting, Typing, Vanoka } from "../../src/core/index.ts";

interface Answer {
    effect?: Effect | undefined;
}
type Handle = Record<string, (...given: unknown[]) => unknown>;

const methodOf = (name: string): string =>
    name.replace(/^[a-z]+_/, "").replace(/_([a-z])/g, (_, letter: string) => letter.toUpperCase());

/// The package in the shape in which the scenarios' field (tests/c/wasm) calls the module.
export class Played {
    constructor(readonly vanoka: Vanoka, readonly typed: (settings: Settings) => Typing | Suggesting) {}

    create(what: string, settings?: Settings): unknown {
        if (what === "answer")
            return {};
        return what === "settings" ? this.vanoka.settings() : this.typed(settings!);
    }

    press(typing: Typing, code: number, modifiers: number, characters: string, answer: Answer): boolean {
        const { consumed, effect } = typing.press({ code, modifiers, characters });
        answer.effect = effect;
        return consumed;
    }

    items({ effect }: Answer): unknown[] {
        return effect ? [{ kind: effect.kind === "mark" ? 11 : 10, text: effect.text, number: effect.text.length }] : [];
    }

    ask(name: string, answer: Answer, handle: Handle, ...given: unknown[]): unknown {
        const result = handle[methodOf(name)]!(...given);
        answer.effect = name === "typing_end" ? (result as Effect | undefined) : undefined;
        return name === "settings_transliterate" ? [{ text: result }] : this.items(answer);
    }

    call(name: string, handle: Handle, ...given: unknown[]): void {
        handle[methodOf(name)]?.(...given.map((each) => (name === "settings_set_built_in" && typeof each === "number" ? each !== 0 : each)));
    }
}
