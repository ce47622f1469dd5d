import { keysName, preferencesName, preferencesOf } from "../src/page/stored.ts";

/// What is in force in every tab, as it is stored. The page's own choices are stored under the page's names.
export interface State {
    readonly isOn: boolean;
    readonly sitesOff: readonly string[]; ///< hosts
    readonly suggests: boolean;
    readonly learns: boolean;
    readonly keys: string; ///< the document of the settings
}

const onName = "vanoka.on", sitesName = "vanoka.sitesOff";
const textOf = (value: unknown): string => (typeof value === "string" ? value : "");

export async function readState(): Promise<State> {
    const stored = await chrome.storage.local.get([onName, sitesName, preferencesName, keysName]);
    const sites = stored[sitesName], preferences = preferencesOf(textOf(stored[preferencesName]) || null);
    return {
        isOn: stored[onName] !== false,
        sitesOff: Array.isArray(sites) ? sites.filter((site) => typeof site === "string") : [],
        suggests: preferences.suggestions,
        learns: !preferences.privateMode,
        keys: textOf(stored[keysName]),
    };
}

/// Calls `adopt` now and with every change, whichever tab makes it.
export function followState(adopt: (state: State) => void): void {
    const read = (): void => void readState().then(adopt, () => undefined);
    chrome.storage.onChanged.addListener(read);
    read();
}

export const switchOn = (isOn: boolean): Promise<void> => chrome.storage.local.set({ [onName]: isOn });

export async function switchSite(site: string, isOff: boolean): Promise<void> {
    const others = (await readState()).sitesOff.filter((each) => each !== site);
    await chrome.storage.local.set({ [sitesName]: isOff ? [...others, site] : others });
}

export async function switchSuggestions(suggestions: boolean): Promise<void> {
    const stored = textOf((await chrome.storage.local.get(preferencesName))[preferencesName]);
    const preferences = { ...preferencesOf(stored || null), suggestions };
    await chrome.storage.local.set({ [preferencesName]: JSON.stringify(preferences) });
}
