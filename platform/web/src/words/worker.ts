/// The lists, off the page's own thread: candidates as soon as the words are there, strokes a little later.
import { Vanoka } from "../core/index.ts";
import { LastingLists } from "./LastingLists.ts";
import { LearntStore } from "./LearntStore.ts";
import { Lists } from "./Lists.ts";
import type { FromWorker, Question, Start, ToWorker } from "./protocol.ts";

const say = (message: FromWorker): void => postMessage(message);
const unread = (problem: unknown): void => say({ problem: String(problem) });

/// Other tabs with the same store.
const others = new BroadcastChannel("vanoka-learnt");
let started: LastingLists | undefined;

const listsOf = (message: Start): LastingLists => new LastingLists({
    load: () => Vanoka.load(message.module),
    open: (vanoka) => open(vanoka, message),
    read: (lists) => read(lists, message),
    unread,
});

/// Questions are answered while the words are being read. If the module traps in that, they are read in the next one.
async function open(vanoka: Vanoka, message: Start): Promise<Lists> {
    const lists = new Lists(vanoka, await LearntStore.open(vanoka, message.store), () => others.postMessage("taught"));
    others.onmessage = () => void lists.learnt.refresh();
    read(lists, message).catch((problem: unknown) => lists.isBroken || unread(problem));
    return lists;
}

async function read(lists: Lists, message: Start): Promise<void> {
    const readStrokes = await lists.readWords(message.lists);
    say({ ready: "words" });
    const whatWasAsked = (): Promise<void> => new Promise((resolve) => setTimeout(resolve)); // it goes first
    await whatWasAsked();
    lists.readReading();
    await whatWasAsked();
    readStrokes();
    say({ ready: "strokes" });
}

async function answer(number: number, question: Question): Promise<void> {
    try {
        say({ number, answer: await started!.answer(question) });
    } catch (problem) {
        say({ number, failed: String(problem) });
    }
}

onmessage = ({ data }: MessageEvent<ToWorker>) => {
    if ("question" in data) {
        void answer(data.number, data.question);
    } else {
        started = listsOf(data);
        started.begin();
    }
};
