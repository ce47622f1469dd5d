import { preferencesName, preferencesOf, type Preferences } from "./stored.ts";

export const storage = {
    get(key: string): string | null {
        try {
            return localStorage.getItem(key);
        } catch {
            return null;
        }
    },
    /// Whether it could be stored.
    set(key: string, value: string): boolean {
        try {
            localStorage.setItem(key, value);
            storage.onset(key, value);
            return true;
        } catch {
            return false;
        }
    },
    /// Tells who keeps a copy elsewhere.
    onset: (_key: string, _value: string): void => undefined,
    remove(key: string): void {
        try {
            localStorage.removeItem(key);
        } catch {
            // then there is nothing to remove either
        }
    },
};

/// In force even where the browser keeps nothing.
export const preferences = preferencesOf(storage.get(preferencesName));

/// Calls `changed` with every change that is to be adopted.
export function prefer(change: Partial<Preferences>): void {
    Object.assign(preferences, change);
    storage.set(preferencesName, JSON.stringify(preferences));
    dispatchEvent(new Event("vanoka-preferences"));
}
