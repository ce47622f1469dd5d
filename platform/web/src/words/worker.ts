/// The lists, off the page's own thread: candidates as soon as the words are there, strokes a little later.
import { Vanoka } from "../core/index.ts";
import { LearntStore } from "./LearntStore.ts";
import { answerOf, Lists } from "./Lists.ts";
import type { FromWorker, Question, Start, ToWorker } from "./protocol.ts";

const say = (message: FromWorker): void => postMessage(message);

/// Other tabs with the same store.
const others = new BroadcastChannel("vanoka-learnt");
let started: Promise<Lists> | undefined;

async function start(message: Start): Promise<Lists> {
    const vanoka = await Vanoka.load(message.module);
    const lists = new Lists(vanoka, await LearntStore.open(vanoka, message.store), () => others.postMessage("taught"));
    others.onmessage = () => void lists.learnt.refresh();
    read(lists, message).catch((problem: unknown) => say({ problem: String(problem) }));
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
        say({ number, answer: await answerOf((await started)!, question) });
    } catch (problem) {
        say({ number, failed: String(problem) });
    }
}

onmessage = ({ data }: MessageEvent<ToWorker>) => {
    if ("question" in data)
        void answer(data.number, data.question);
    else
        started = start(data);
};
