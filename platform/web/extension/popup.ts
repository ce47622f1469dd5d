import { button, make } from "../src/ui/dom.ts";
import { filled, language, languageOf, speak, texts } from "../src/ui/texts.ts";
import type { SiteQuestion, ToBackground } from "./messages.ts";
import { readState, switchOn, switchSite, switchSuggestions } from "./state.ts";

/// The site of the tab in front; nothing where the browser lets no extension in.
async function siteInFront(): Promise<string | undefined> {
    const [tab] = await chrome.tabs.query({ active: true, currentWindow: true });
    if (tab?.id === undefined)
        return undefined;
    return chrome.tabs.sendMessage<SiteQuestion, string>(tab.id, { what: "site" }, { frameId: 0 }).catch(() => undefined);
}

/// Whether what was learnt could be stored; where nobody answers, nothing was learnt.
const lessonsAreStored = (): Promise<boolean> =>
    chrome.runtime.sendMessage<ToBackground, boolean>({ what: "isStored" }).catch(() => true);

const box = (id: string, label: string, checked: boolean, change: (isOn: boolean) => Promise<void>): HTMLElement => {
    const input = make("input", { id, type: "checkbox", role: "switch", checked, onchange: () => void change(input.checked) });
    return make("label", {}, label, input);
};

speak(languageOf("", navigator.languages));
document.documentElement.lang = language;
const [state, site, areStored] = await Promise.all([readState(), siteInFront(), lessonsAreStored()]);
document.body.append(
    box("on", texts.writeSinhala, state.isOn, switchOn),
    box("suggestions", texts.suggestions, state.suggests, switchSuggestions),
    site === undefined ? make("p", {}, texts.notServed)
        : box("off-here", filled(texts.offHere, site), state.sitesOff.includes(site), (isOff) => switchSite(site, isOff)),
    areStored ? "" : make("p", {}, texts.learntNotKept),
    button(texts.settings, () => void chrome.runtime.openOptionsPage().then(() => window.close()), { id: "settings" }),
);
