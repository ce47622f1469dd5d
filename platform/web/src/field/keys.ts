import { FunctionKey, KeyCode, Modifier, type Key } from "../core/index.ts";

type Press = Pick<KeyboardEvent, "key" | "ctrlKey" | "altKey" | "metaKey" | "shiftKey" | "isComposing" | "keyCode">
    & { getModifierState(name: string): boolean };

const other = (characters: string): readonly [number, string] => [KeyCode.other, characters];
const named = new Map<string, readonly [number, string]>([
    [" ", [KeyCode.space, " "]], ["Backspace", [KeyCode.delete, "\x7F"]], ["Escape", [KeyCode.escape, "\x1B"]],
    ["Enter", other("\r")], ["Tab", other("\t")],
    ["ArrowUp", other(FunctionKey.up)], ["ArrowDown", other(FunctionKey.down)],
    ["ArrowLeft", other(FunctionKey.left)], ["ArrowRight", other(FunctionKey.right)],
    ["Delete", other(FunctionKey.deleteForward)], ["Insert", other(FunctionKey.insert)],
    ["Home", other(FunctionKey.home)], ["End", other(FunctionKey.end)],
    ["PageUp", other(FunctionKey.pageUp)], ["PageDown", other(FunctionKey.pageDown)],
]);

/// Keys that neither type nor move by themselves.
const silent = new Set(["Shift", "Control", "Alt", "AltGraph", "Meta", "CapsLock", "NumLock", "ScrollLock", "Fn", "FnLock",
    "Hyper", "Super", "Symbol", "SymbolLock", "Dead", "Process", "Unidentified", "Compose", "Convert", "NonConvert"]);

const imeKeyCode = 229;

/// A key with the modifiers that make it a shortcut. AltGr comes as Ctrl and Alt on Windows and makes none.
function modifiersOf(press: Press): number {
    const shift = press.shiftKey ? Modifier.shift : 0;
    if (press.getModifierState("AltGraph"))
        return shift;
    return shift | (press.ctrlKey ? Modifier.control : 0) | (press.altKey ? Modifier.option : 0)
        | (press.metaKey ? Modifier.command : 0);
}

/// What a key event means to typing; nothing for what belongs to another input method or does nothing by itself.
export function keyOf(press: Press): Key | undefined {
    if (press.isComposing || press.keyCode === imeKeyCode || silent.has(press.key))
        return undefined;
    const [code, characters] = named.get(press.key)
        ?? other(/^F\d+$/.test(press.key) ? FunctionKey.f1 : press.key.length > 2 ? "" : press.key);
    return { code, modifiers: modifiersOf(press), characters };
}

/// The key that types a character.
export function keyTyping(character: string): Key {
    const [code, characters] = character === " " ? [KeyCode.space, " "] : other(character);
    return { code, modifiers: 0, characters };
}

export const deleteKey: Key = { code: KeyCode.delete, modifiers: 0, characters: "\x7F" };
export const downKey: Key = { code: KeyCode.other, modifiers: 0, characters: FunctionKey.down };
export const returnKey: Key = { code: KeyCode.other, modifiers: 0, characters: "\r" };
