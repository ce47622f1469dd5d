/// The extension's one place for the lists and what was learnt, and for what the button shows.
import { Vanoka } from "../src/core/index.ts";
import { LastingLists } from "../src/words/LastingLists.ts";
import { LearntStore } from "../src/words/LearntStore.ts";
import { Lists } from "../src/words/Lists.ts";
import moduleUrl from "#module?url";
import wordsUrl from "#data/si.tsv?url";
import englishUrl from "#data/en.tsv?url";
import emojiUrl from "#data/emoji.tsv?url";
import neverUrl from "#data/never-offered.txt?url";
import type { FromBackground, TabState, ToBackground } from "./messages.ts";
import { followState, readState, switchOn } from "./state.ts";

/// The settings page learns into the same store.
const others = new BroadcastChannel("vanoka-learnt");
const absolute = (url: string): string => new URL(url, import.meta.url).href;
let isFollowing = false; // what keys are chosen
let isStored = true; // what was taught last

/// Made when they are first asked for, and anew after they failed.
const lasting = new LastingLists({
    load: () => Vanoka.load(fetch(absolute(moduleUrl))),
    open,
    read,
    unread: () => undefined, // candidates are missing, and that is seen
});

async function open(vanoka: Vanoka): Promise<Lists> {
    const lists = new Lists(vanoka, await LearntStore.open(vanoka, "vanoka-learnt"), () => others.postMessage("taught"));
    others.onmessage = () => void lists.learnt.refresh();
    await read(lists);
    if (!isFollowing)
        followState(({ keys }) => void lasting.answer({ what: "keys", document: keys }).catch(() => undefined));
    isFollowing = true;
    return lists;
}

async function read(lists: Lists): Promise<void> {
    await lists.readWords({
        words: absolute(wordsUrl), english: absolute(englishUrl), emoji: absolute(emojiUrl), never: absolute(neverUrl),
    });
    lists.readReading();
}

async function answer(question: Extract<ToBackground, { what: "ask" }>["question"]): Promise<FromBackground> {
    try {
        const answer = await lasting.answer(question);
        if (question.what === "teach")
            isStored = answer === undefined;
        return { answer };
    } catch (problem) {
        if (question.what === "teach")
            isStored = false;
        return { failed: String(problem) };
    }
}

const badges: Record<TabState, { text?: string; title: string }> = {
    usual: { title: "Vanoka" },
    off: { text: "\u2013", title: "Vanoka: off on this site" },
    failed: { text: "!", title: "Vanoka cannot run in this page" },
};

async function show(tabId: number, state: TabState): Promise<void> {
    const { text, title } = badges[state];
    await chrome.action.setTitle({ tabId, title });
    await chrome.action.setBadgeText({ tabId, text: text ?? letterOf((await readState()).isOn) });
}

const letterOf = (isOn: boolean): string => (isOn ? "\u0D85" : "A");

/// What scripts in pages need, and no more: a page may have taken over the process in which such a script runs.
const askedInPages: ReadonlySet<string> = new Set(["find", "teach"]);

chrome.runtime.onMessage.addListener((message: ToBackground, sender, reply: (answer: FromBackground | boolean) => void) => {
    if (message.what === "ask" && askedInPages.has(message.question.what)) {
        void answer(message.question).then(reply);
        return true;
    }
    if (message.what === "isStored")
        reply(isStored);
    if (message.what === "show" && sender.tab?.id !== undefined)
        void show(sender.tab.id, message.state).catch(() => undefined);
    return false;
});

chrome.commands.onCommand.addListener((command) => {
    if (command === "switch")
        void readState().then(({ isOn }) => switchOn(!isOn));
});

followState(({ isOn }) => {
    void chrome.action.setBadgeBackgroundColor({ color: isOn ? "#1450a3" : "#5f6368" });
    void chrome.action.setBadgeText({ text: letterOf(isOn) });
});
