import { expect, test } from "vitest";
import { FunctionKey, KeyCode, Modifier } from "../../src/core/index.ts";
import { keyOf, keyTyping } from "../../src/field/keys.ts";
import { Shift } from "../../src/keyboard/Shift.ts";
import { preferencesOf } from "../../src/page/stored.ts";
import { filled, languageOf } from "../../src/ui/texts.ts";

const event = (key: string, more = {}, states: string[] = []): Parameters<typeof keyOf>[0] => ({ key, ctrlKey: false, altKey: false, metaKey: false,
    shiftKey: false, isComposing: false, keyCode: 0, getModifierState: (name: string) => states.includes(name), ...more });

test("keys type their characters; those of other input methods and modifiers are left alone", () => {
    expect(keyOf(event("k"))).toEqual({ code: KeyCode.other, modifiers: 0, characters: "k" });
    expect(keyOf(event(" "))).toEqual({ code: KeyCode.space, modifiers: 0, characters: " " });
    expect(keyOf(event("Backspace"))).toMatchObject({ code: KeyCode.delete });
    expect(keyOf(event("ArrowLeft"))).toMatchObject({ characters: FunctionKey.left });
    expect(keyOf(event("F5"))).toMatchObject({ characters: FunctionKey.f1 });
    expect(keyOf(event("MediaPlay"))).toMatchObject({ characters: "" });
    for (const left of [event("k", { isComposing: true }), event("k", { keyCode: 229 }), event("Shift"), event("Dead"), event("Unidentified")])
        expect(keyOf(left)).toBeUndefined();
    expect(keyTyping("!")).toEqual(keyOf(event("!")));
});

test("AltGr, which is Ctrl and Alt on Windows, makes no shortcut", () => {
    expect(keyOf(event("z", { ctrlKey: true }))!.modifiers).toBe(Modifier.control);
    expect(keyOf(event("\u20AC", { ctrlKey: true, altKey: true }, ["AltGraph"]))!.modifiers).toBe(0);
    expect(keyOf(event("Tab", { shiftKey: true }))!.modifiers).toBe(Modifier.shift);
});

test("shift holds for a letter, two taps lock it", () => {
    const shift = new Shift();
    shift.tap(0);
    shift.used();
    expect(shift.state).toBe("off");
    shift.tap(1000);
    shift.tap(1200);
    shift.used();
    expect(shift.state).toBe("locked");
    shift.tap(5000);
    expect(shift.state).toBe("off");
    shift.tap(6000);
    shift.tap(7000);
    expect(shift.state).toBe("off");
});

test("preferences that are damaged, of another type or out of range are as usual", () => {
    const usual = preferencesOf(null);
    for (const stored of ["", "{", "[]", "null", "7", '{"sound":"yes","other":1,"longPress":"x"}'])
        expect(preferencesOf(stored)).toEqual(usual);
    expect(preferencesOf('{"longPress":5,"sound":true}')).toEqual({ ...usual, longPress: 100, sound: true });
    expect(preferencesOf('{"longPress":99999}').longPress).toBe(1000);
});

test("the language is the chosen one, or the browser's first that there is", () => {
    expect(languageOf("", ["fr-FR", "si-LK", "en"])).toBe("si");
    expect(languageOf("en", ["si"])).toBe("en");
    expect(languageOf("xx", ["fr"])).toBe("en");
    expect(filled("{1} and {0}", "a", 2)).toBe("2 and a");
});
