/// The settings are the page itself, with what the extension stores in place of what the page would.
import { preferences, storage } from "../src/page/preferences.ts";
import { keysName, preferencesName, preferencesOf } from "../src/page/stored.ts";

const names = [keysName, preferencesName];

function adopt(name: string, value: unknown): void {
    if (typeof value !== "string" || value === storage.get(name))
        return;
    localStorage.setItem(name, value);
    if (name !== preferencesName)
        return;
    Object.assign(preferences, preferencesOf(value));
    dispatchEvent(new Event("vanoka-preferences"));
}

for (const [name, value] of Object.entries(await chrome.storage.local.get(names)))
    adopt(name, value);
storage.onset = (name, value) => {
    if (names.includes(name))
        void chrome.storage.local.set({ [name]: value });
};
chrome.storage.onChanged.addListener((changes) => {
    for (const name of names)
        adopt(name, changes[name]?.newValue);
});
await import("../src/page/main.ts");
