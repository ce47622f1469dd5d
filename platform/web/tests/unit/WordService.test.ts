import { expect, test } from "vitest";
import type { FromWorker, Start } from "../../src/words/protocol.ts";
import { WordService } from "../../src/words/WordService.ts";

function started(): { readonly words: WordService; readonly worker: Worker; readonly say: (message: FromWorker) => void } {
    const worker = { postMessage: () => undefined, terminate: () => undefined } as unknown as Worker, words = new WordService();
    words.start(() => worker, {} as Omit<Start, "what">);
    return { words, worker, say: (data) => worker.onmessage!({ data } as MessageEvent) };
}

test("words that were there and cannot be read again are there no more, and lessons are still heard", () => {
    const { words, say } = started(), problems: [string, boolean][] = [];
    words.onproblem = (problem) => void problems.push([problem, words.ready.strokes]);
    say({ ready: "words" });
    say({ ready: "strokes" });
    expect(words.ready).toEqual({ words: true, strokes: true });
    say({ problem: "no memory" });
    expect([words.ready, words.isThere, problems]).toEqual([{ words: false, strokes: false }, true, [["no memory", false]]]);
});

test("where the worker has ended nobody is there, and what was asked fails", async () => {
    const { words, worker } = started(), answer = words.ask({ what: "export" });
    worker.onerror!({} as ErrorEvent);
    await expect(answer).rejects.toThrow("cannot be used");
    expect(words.isThere).toBe(false);
});
