import type { Settings, Vanoka } from "../core/index.ts";
import { storage } from "./preferences.ts";
import { keysName as name } from "./stored.ts";

const damagedName = "vanoka.customization.damaged";
export const largestDocument = 16 * 1024 * 1024;

/// The keys, stored in the browser and shared with other tabs.
export class KeysStore {
    #settings: Settings;
    readonly isDamaged: boolean;
    onchange: () => void = () => undefined;

    /// In the instance that is in use.
    constructor(readonly instance: () => Vanoka) {
        const stored = storage.get(name) ?? "";
        this.#settings = instance().settings();
        this.isDamaged = !this.#settings.load(stored);
        if (this.isDamaged)
            storage.set(damagedName, stored);
        window.addEventListener("storage", ({ key, newValue }) => {
            if (key === name && this.settings.load(newValue ?? ""))
                this.onchange();
        });
    }

    /// Valid until the module traps.
    get settings(): Settings {
        if (this.#settings.module.isBroken)
            this.#settings = this.instance().settings(storage.get(name) ?? "");
        return this.#settings;
    }

    /// After other tabs' edits, so that none is lost.
    edit(change: (settings: Settings) => void): boolean {
        this.settings.load(storage.get(name) ?? "");
        change(this.settings);
        this.onchange();
        return storage.set(name, this.settings.document);
    }

    /// False, and nothing has changed, when the document is none.
    import(document: string): boolean {
        const trial = this.instance().settings();
        const isGood = document !== "" && trial.load(document);
        trial.release();
        return isGood && (this.edit((settings) => settings.load(document)), true);
    }
}
