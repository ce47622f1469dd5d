/// What the interface says, in English and in Sinhala.
const english = {
    title: "Vanoka", tagline: "Write Sinhala with English letters",
    text: "Your text", placeholder: "Type amma to write \u0D85\u0DB8\u0DCA\u0DB8",
    copy: "Copy", share: "Share", save: "Save", clear: "Clear", undo: "Undo", keyboard: "Keyboard", settings: "Settings",
    chart: "Chart", about: "About", close: "Close", print: "Print",
    copied: "Copied.", copyFailed: "Could not copy. Select the text and copy it yourself.", cleared: "Cleared.", nothing: "There is no text yet.",
    hint1: "Type with English letters: amma gives \u0D85\u0DB8\u0DCA\u0DB8. Space ends the word.",
    hint2: "Hold a key for the other letters that it may stand for; slide across keys for a whole word.",
    hint3: "Your text stays on this device, and is here when you come back.",
    hintDone: "Got it",
    candidates: "Words that may be meant", forget: "Forget {0}", learnt: "learnt",
    keys: "Keys", letters: "Letters", typing: "Typing", vowels: "Vowels", consonants: "Consonants", signs: "Signs",
    suggestions: "Suggest words", privateMode: "Private: learn nothing", strokes: "Swipe to type", sound: "Sound of keys", vibration: "Vibrate with keys",
    longPress: "Hold a key for", milliseconds: "{0} ms", language: "Language", automatic: "Automatic", words: "Learnt words", exportWords: "Export words",
    importWords: "Import words", eraseWords: "Erase all", exportKeys: "Export keys", importKeys: "Import keys", resetKeys: "Reset to Defaults",
    confirmReset: "Remove all your keys and switch every built-in key back on?", confirmErase: "Erase all that was learnt?", cancel: "Cancel",
    addTitle: "Add your own key", newKey: "New key", prompt: "For example zq", add: "Add", takeBack: "Take back", on: "On", remove: "Remove", noKey: "no key",
    wordsImported: "The words are added.", keysImported: "The keys are in force.", erased: "All that was learnt is erased.",
    wordsRefused: "This is no list of words (line {0}): {1}. Your words stay as they are.",
    learntNotStored: "What is learnt or forgotten cannot be stored: it may hold only until you close the page.",
    learntNotKept: "What is learnt or forgotten cannot be stored: it may not hold for long.",
    storedStays: "What this browser has stored stays as it is: {0}",
    keysRefused: "These are no keys that were exported. Your keys stay as they are.", fileTooLarge: "The file is larger than 16 MB. Nothing has changed.",
    keysDamaged: "The stored keys could not be read; a copy is kept. The built-in keys are in force.",
    noStorage: "This browser does not store the text: copy or save it before you close the page.",
    noWords: "Words cannot be suggested in this browser; typing works.",
    noModule: "This browser cannot run the keyboard. Please update it. Your text is safe.",
    offline: "Ready to be used without a connection.",
    shiftKey: "Shift", lockedKey: "Caps lock", deleteKey: "Backspace", returnKey: "Return", spaceKey: "Space", lettersKey: "ABC", numbersKey: "?123", signsKey: "=\\<",
    keysRegion: "Keyboard", behind: "Letters behind {0}", privacy: "Nothing that you type leaves this device. The page's security policy lets it load only its own files, and send nothing anywhere.",
    licences: "What is built in",
    writeSinhala: "Write Sinhala", offHere: "Off on {0}", notServed: "Vanoka cannot write on this page.",
};

export type Texts = typeof english;

const sinhala: Texts = {
    title: "\u0DC0\u0DB1\u0DDC\u0D9A\u0DCF", tagline: "ඉංග්\u200Dරීසි අකුරින් සිංහල ලියන්න",
    text: "ඔබේ ලිපිය", placeholder: "amma ලෙස ලිව්වොත් අම්ම ලැබේ",
    copy: "පිටපත් කරන්න", share: "යවන්න", save: "සුරකින්න", clear: "මකන්න", undo: "අහෝසි කරන්න", keyboard: "යතුරුපුවරුව", settings: "සැකසුම්",
    chart: "අකුරු වගුව", about: "මේ ගැන", close: "වසන්න", print: "මුද්\u200Dරණය කරන්න",
    copied: "පිටපත් කළා.", copyFailed: "පිටපත් කළ නොහැකි විය. ලිපිය තෝරා ඔබම පිටපත් කරන්න.", cleared: "මැකුවා.", nothing: "තවම කිසිවක් ලියා නැත.",
    hint1: "ඉංග්\u200Dරීසි අකුරින් ලියන්න: amma යනු අම්ම. හිස් තැනකින් වචනය අවසන් වේ.",
    hint2: "වෙනත් අකුරු සඳහා යතුරක් ඔබාගෙන සිටින්න; මුළු වචනයකට යතුරු මත ඇඟිල්ල ගෙන යන්න.",
    hint3: "ඔබේ ලිපිය මේ උපාංගයේම පවතී; නැවත එන විට එය මෙහි ඇත.",
    hintDone: "හරි",
    candidates: "අදහස් කළ හැකි වචන", forget: "{0} අමතක කරන්න", learnt: "ඉගෙන ගත්",
    keys: "යතුරු", letters: "අකුරු", typing: "ලිවීම", vowels: "ස්වර", consonants: "ව්\u200Dයඤ්ජන", signs: "ලකුණු",
    suggestions: "වචන යෝජනා කරන්න", privateMode: "පෞද්ගලික: කිසිවක් ඉගෙන නොගන්න", strokes: "ඇඟිල්ල ගෙන ගොස් ලියන්න", sound: "යතුරු හඬ", vibration: "යතුරු කම්පනය",
    longPress: "යතුරක් ඔබාගෙන සිටින කාලය", milliseconds: "මිලිතත්පර {0}", language: "භාෂාව", automatic: "ස්වයංක්\u200Dරීය", words: "ඉගෙන ගත් වචන", exportWords: "වචන පිටතට ගන්න",
    importWords: "වචන ඇතුළු කරන්න", eraseWords: "සියල්ල මකන්න", exportKeys: "යතුරු පිටතට ගන්න", importKeys: "යතුරු ඇතුළු කරන්න", resetKeys: "මුල් තත්ත්වයට",
    confirmReset: "ඔබේ සියලු යතුරු ඉවත් කර මුල් යතුරු නැවත සක්\u200Dරීය කරන්නද?", confirmErase: "ඉගෙන ගත් සියල්ල මකන්නද?", cancel: "එපා",
    addTitle: "ඔබේම යතුරක් එක් කරන්න", newKey: "නව යතුර", prompt: "උදා: zq", add: "එක් කරන්න", takeBack: "ආපසු ගන්න", on: "සක්\u200Dරීයයි", remove: "ඉවත් කරන්න", noKey: "යතුරක් නැත",
    wordsImported: "වචන එක් කළා.", keysImported: "යතුරු දැන් බලාත්මකයි.", erased: "ඉගෙන ගත් සියල්ල මැකුවා.",
    wordsRefused: "මෙය වචන ලැයිස්තුවක් නොවේ ({0} වන පේළිය): {1}. ඔබේ වචන එලෙසම ඇත.",
    learntNotStored: "ඉගෙන ගත් හෝ අමතක කළ වචන සුරැකිය නොහැක: ඒවා පිටුව වසන තුරු පමණක් පැවතිය හැක.",
    learntNotKept: "ඉගෙන ගත් හෝ අමතක කළ වචන සුරැකිය නොහැක: ඒවා වැඩි කලක් නොපැවතිය හැක.",
    storedStays: "මෙම බ්\u200Dරවුසරයේ සුරකින ලද දේ එලෙසම ඇත: {0}",
    keysRefused: "මේවා පිටතට ගත් යතුරු නොවේ. ඔබේ යතුරු එලෙසම ඇත.", fileTooLarge: "ගොනුව 16 MB ට වඩා විශාලයි. කිසිවක් වෙනස් වී නැත.",
    keysDamaged: "සුරැකි යතුරු කියවිය නොහැකි විය; පිටපතක් තබා ඇත. මුල් යතුරු බලාත්මකයි.",
    noStorage: "මෙම බ්\u200Dරවුසරය ලිපිය සුරකින්නේ නැත: පිටුව වැසීමට පෙර එය පිටපත් කරන්න, නැතහොත් සුරකින්න.",
    noWords: "මෙම බ්\u200Dරවුසරයේ වචන යෝජනා කළ නොහැක; ලිවීම ක්\u200Dරියා කරයි.",
    noModule: "මෙම බ්\u200Dරවුසරයට යතුරුපුවරුව ධාවනය කළ නොහැක. එය යාවත්කාලීන කරන්න. ඔබේ ලිපිය ආරක්ෂිතයි.",
    offline: "සම්බන්ධතාවක් නැතිවත් භාවිත කළ හැක.",
    shiftKey: "ෂිෆ්ට්", lockedKey: "කැප්ස් ලොක්", deleteKey: "ආපසු මකන්න", returnKey: "නව පේළිය", spaceKey: "හිස් තැන", lettersKey: "ABC", numbersKey: "?123", signsKey: "=\\<",
    keysRegion: "යතුරුපුවරුව", behind: "{0} පසුපස ඇති අකුරු", privacy: "ඔබ ලියන කිසිවක් මේ උපාංගයෙන් පිටතට නොයයි. පිටුවට එහිම ගොනු පමණක් ගත හැකි අතර කිසි තැනකට කිසිවක් යැවිය නොහැක.",
    licences: "මෙහි අඩංගු දේ",
    writeSinhala: "සිංහලෙන් ලියන්න", offHere: "{0} හි අක්\u200Dරිය කරන්න", notServed: "මෙම පිටුවේ ලිවිය නොහැක.",
};

export type Language = "en" | "si";
const all: Record<Language, Texts> = { en: english, si: sinhala };

/// The language that was chosen, or the browser's first that there is.
export function languageOf(chosen: string, wanted: readonly string[]): Language {
    const isKnown = (tag: string): tag is Language => tag in all;
    return [chosen, ...wanted.map((tag) => tag.slice(0, 2).toLowerCase())].find(isKnown) ?? "en";
}

export let language: Language = "en";
export let texts: Texts = english;

export function speak(chosen: Language): void {
    language = chosen;
    texts = all[chosen];
    document.documentElement.lang = chosen;
}

/// A text with its places filled.
export const filled = (text: string, ...values: readonly (string | number)[]): string =>
    text.replace(/\{(\d)\}/g, (_, at: string) => String(values[Number(at)]));
