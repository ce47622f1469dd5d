import { EditableField } from "../field/EditableField.ts";
import { listen } from "../field/listen.ts";
import { deleteKey, returnKey } from "../field/keys.ts";
import { Writer } from "../field/Writer.ts";
import { instances } from "../field/instances.ts";
import { Vanoka, FunctionKey, type Key, type Lesson } from "../core/index.ts";
import { FieldTypist } from "../keyboard/FieldTypist.ts";
import { TouchKeyboard } from "../keyboard/TouchKeyboard.ts";
import type { Problem } from "../words/protocol.ts";
import { WordService } from "../words/WordService.ts";
import moduleUrl from "#module?url";
import wordsUrl from "#data/si.tsv?url";
import englishUrl from "#data/en.tsv?url";
import emojiUrl from "#data/emoji.tsv?url";
import neverUrl from "#data/never-offered.txt?url";
import { CandidateBar } from "./CandidateBar.ts";
import { byId } from "../ui/dom.ts";
import { Drafts } from "./Drafts.ts";
import { feel } from "./feel.ts";
import { KeysStore } from "./KeysStore.ts";
import { prefer, preferences } from "./preferences.ts";
import { showStatus } from "./status.ts";
import { languageOf, speak, texts } from "../ui/texts.ts";
import { drawTools, showHint, showKeyboardState } from "./tools.ts";

const usualLimit = 6, strokeLimit = 5;

/// Everything on the page that other parts of it act on.
export interface Page {
    readonly field: EditableField;
    readonly keys: KeysStore;
    readonly words: WordService;
    readonly writer: Writer;
    readonly toggleKeyboard: () => void;
    readonly draw: () => void;
}

function speakChosen(): void {
    speak(languageOf(preferences.language, navigator.languages));
}

interface Loaded {
    readonly module: WebAssembly.Module;
    readonly vanoka: Vanoka;
}

/// Nothing where this browser cannot do it.
async function load(): Promise<Loaded | undefined> {
    try {
        const module = await WebAssembly.compileStreaming(fetch(moduleUrl)).catch(async () =>
            WebAssembly.compile(await (await fetch(moduleUrl)).arrayBuffer()));
        return { module, vanoka: await Vanoka.load(module) };
    } catch {
        return undefined;
    }
}

/// Typing is there before the module is: the field takes plain text until then.
async function start(): Promise<void> {
    const loading = load(); // takes the longest, so that nothing comes before it
    speakChosen();
    const field = new EditableField(byId("text"));
    const drafts = await Drafts.open(() => field.text !== "", () => showStatus(texts.noStorage));
    if (field.text !== "")
        drafts.keep(field.text);
    else if (drafts.text !== "")
        field.text = drafts.text;
    field.element.addEventListener("input", () => drafts.keep(field.text));
    // What is marked makes no event of input.
    new MutationObserver(() => drafts.keep(field.text)).observe(field.element, { characterData: true, childList: true, subtree: true });
    field.element.setAttribute("aria-label", texts.text);
    field.element.dataset["placeholder"] = texts.placeholder;

    const loaded = await loading;
    if (!loaded) {
        showStatus(texts.noModule, true);
        return;
    }
    assemble(field, loaded);
    if ("serviceWorker" in navigator && location.protocol.startsWith("http"))
        void navigator.serviceWorker.register("./sw.js").catch(() => undefined);
    document.documentElement.dataset["ready"] = "typing";
}

function assemble(field: EditableField, { module, vanoka }: Loaded): void {
    const instance = instances(module, vanoka);
    const words = new WordService(), teach = teacher(words);
    const keys = new KeysStore(instance);
    const bar = new CandidateBar(byId("candidates"));
    const writer: Writer = new Writer(field, {
        make: () => instance().suggesting(keys.settings),
        taught: teach,
        wanted: ({ number, keys: typed, preview }) => {
            words.ask({ what: "find", word: { keys: typed, preview }, limit: usualLimit })
                .then((rows) => writer.take(number, rows), () => writer.take(number, []));
        },
        shown: ({ rows, highlighted }) => bar.show(rows, highlighted, (row) => writer.choose(row), (row) => writer.forgetRow(row)),
        passed: (key) => pass(field, key),
    });
    const typist = new FieldTypist(field, writer, {
        decode: (points) => words.ask({ what: "decode", points: new Float64Array(points.flatMap(({ x, y }) => [x, y])),
            keyWidth: keyboard.touches.measures.keyWidth, limit: strokeLimit }),
        offer: (readings) => bar.show(readings.map((text) => ({ text, kind: "word", isLearnt: false })), 0, (at) => typist.choose(at)),
        learn: (word) => preferences.privateMode || teach({ learn: word }),
        unlearn: (word) => preferences.privateMode || teach({ unlearn: word }),
    });
    const keyboard = new TouchKeyboard(byId("keyboard"), () => keys.settings, {
        type: (character) => focused(() => typist.type(character)),
        typeKeys: (typed) => focused(() => typist.typeKeys(typed)),
        delete: () => focused(() => typist.delete()),
        breakLine: () => focused(() => typist.breakLine()),
        moveCaret: (characters) => focused(() => typist.moveCaret(characters)),
        swipe: (points) => focused(() => typist.swipe(points)),
    });
    const focused = (act: () => void): void => {
        if (document.activeElement !== field.element)
            field.element.focus({ preventScroll: true });
        act();
    };
    keyboard.onpress = feel;
    keyboard.onlayout = (places) => void words.ask({ what: "layout", keys: places }).catch(() => undefined);
    field.element.addEventListener("keydown", () => typist.changed(), true);
    field.element.addEventListener("pointerdown", () => typist.changed(), true);

    listen(field, writer, (typed) => keys.settings.transliterate(typed));
    const page: Page = { field, keys, words, writer, draw, toggleKeyboard };
    function adopt(): void {
        writer.switch(preferences.suggestions, !preferences.privateMode);
        const isShown = preferences.keyboard === "automatic" ? matchMedia("(pointer: coarse)").matches : preferences.keyboard === "shown";
        byId("keyboard").hidden = !isShown;
        field.element.inputMode = isShown ? "none" : "text";
        Object.assign(keyboard.touches.measures, { longPress: preferences.longPress, strokes: preferences.strokes && words.ready.strokes });
    }
    function toggleKeyboard(): void {
        writer.end();
        prefer({ keyboard: byId("keyboard").hidden ? "shown" : "hidden" });
    }
    function draw(): void {
        speakChosen();
        field.element.setAttribute("aria-label", texts.text);
        field.element.dataset["placeholder"] = texts.placeholder;
        drawTools(page);
        keyboard.draw();
        bar.show([], 0, () => undefined);
    }
    const tellKeys = (): void => void words.ask({ what: "keys", document: keys.settings.document }).catch(() => undefined);
    keys.onchange = () => {
        keyboard.draw();
        tellKeys();
    };
    words.onchange = () => {
        adopt();
        document.documentElement.dataset["words"] = words.ready.strokes ? "strokes" : "words";
    };
    words.onproblem = () => {
        adopt();
        showStatus(texts.noWords);
    };
    addEventListener("vanoka-preferences", () => {
        adopt();
        showKeyboardState();
    });
    words.start(() => new Worker(new URL("../words/worker.ts", import.meta.url), { type: "module" }), {
        module, store: "vanoka-learnt",
        lists: { words: absolute(wordsUrl), english: absolute(englishUrl), emoji: absolute(emojiUrl), never: absolute(neverUrl) },
    });
    tellKeys();
    adopt();
    draw();
    if (keys.isDamaged)
        showStatus(texts.keysDamaged, true);
    showHint(field);
    if (!matchMedia("(pointer: coarse)").matches)
        field.element.focus();
}

/// Passes lessons on, and says once that one could not be stored: with every word it would be in the way. Without words
/// to suggest nothing is learnt, and that there are none has been said.
function teacher(words: WordService): (lesson: Lesson) => void {
    let isTold = false;
    const tell = (): void => {
        if (!isTold)
            showStatus(texts.learntNotStored);
        isTold = true;
    };
    const hear = (problem: Problem | undefined): void => void (problem && tell());
    return (lesson) => void words.ask({ what: "teach", lesson }).then(hear, () => void (words.isThere && tell()));
}

const absolute = (url: string): string => new URL(url, document.baseURI).href;

/// What the field does by itself with a key that has waited for candidates.
function pass(field: EditableField, { code, characters }: Key): void {
    if (code === deleteKey.code)
        field.deleteBackward();
    else if (characters === returnKey.characters)
        field.breakLine();
    else if (characters === FunctionKey.left || characters === FunctionKey.right)
        field.moveCaret(characters === FunctionKey.left ? -1 : 1);
    else if (/^[^\p{Cc}\uF700-\uF8FF]+$/u.test(characters))
        field.insert(characters);
}

void start();
