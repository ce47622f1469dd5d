/// What a key of the touch keyboard is for.
export type Role = "character" | "shift" | "delete" | "return" | "space" | "layer";

export interface TouchKey {
    readonly id: string;
    readonly role: Role;
    readonly width: number; ///< in widths of a letter key
    readonly isLetter: boolean; ///< takes part in strokes, has letters behind it
}

export type LayerName = "letters" | "numbers" | "signs";
export type Row = readonly TouchKey[];

const character = (id: string): TouchKey => ({ id, role: "character", width: 1, isLetter: /^[a-z]$/.test(id) });
const special = (id: string, role: Role, width: number): TouchKey => ({ id, role, width, isLetter: false });
const characters = (text: string): TouchKey[] => [...text].map(character);

const shift = special("shift", "shift", 1.5), erase = special("delete", "delete", 1.5);
const bottom = (other: LayerName): Row => [
    special(other, "layer", 1.5), character(","), special("space", "space", 5), character("."), special("return", "return", 1.5)];

/// The rows of each layer. Kundaliya, and the signs that are found on no Latin keyboard, have a layer of their own.
export const layers: Record<LayerName, readonly Row[]> = {
    letters: [characters("qwertyuiop"), characters("asdfghjkl"), [shift, ...characters("zxcvbnm"), erase], bottom("numbers")],
    numbers: [characters("1234567890"), characters("@#&*-+=()"),
        [special("signs", "layer", 1.5), ...characters("!\"':;/?"), erase], bottom("letters")],
    signs: [characters("\u0DF4\u201C\u201D\u2018\u2019\u2026\u2013\u2014\u20A8\u20B9"), characters("%[]{}<>|\\"),
        [special("numbers", "layer", 1.5), ...characters("_~^$\u20AC\u00A3\u00B7"), erase], bottom("letters")],
};
