/*
 * Vanoka for every other language: Latin keys to Sinhala text, the settings of the keys, word lists,
 * candidates, emoji, swiping.
 *
 * - Texts go in as UTF-8, a pointer and its length in bytes, and are copied. A null pointer is the empty text
 *   if the length is 0. A text of an answer may be passed together with that answer.
 *
 * - Answers: a caller makes one once and passes it to call after call. It holds what the last of them gave,
 *   and its items and their texts stay valid until it is passed again or released. A call that fails leaves
 *   it empty.
 *
 * - Handles: whoever creates one releases it once; releasing null does nothing. Each keeps what it was made
 *   from, so they may be released in any order. A creation that fails sets its handle to null.
 *
 * - Status: every call that can fail says whether it did, and how. A call of typing that fails has changed
 *   nothing; so has any other that is passed what it cannot take, unless it says so. Whatever is passed, no
 *   call ends the process or prints. A handle that was released, and a length beyond what the pointer points
 *   to, cannot be noticed.
 *
 * - Threads: settings with the typing made from them, and each answer, are for one thread at a time. All
 *   others never change: any number of threads may use them.
 *
 * - Memory: where the library is compiled without exceptions, as it is for WebAssembly, running out of memory
 *   ends the instance instead of giving VANOKA_NO_MEMORY.
 *
 * There are no callbacks and no global state. Nothing is logged, stored in a file or sent anywhere.
 */
#ifndef VANOKA_H
#define VANOKA_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32) && defined(VANOKA_SHARED)
#if defined(VANOKA_BUILDS_LIBRARY)
#define VANOKA_API __declspec(dllexport)
#else
#define VANOKA_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define VANOKA_API __attribute__((visibility("default")))
#else
#define VANOKA_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The version of all that this header says. It grows when a program that was compiled before has to be
   compiled again; new calls and new kinds of items do not make it grow. */
#define VANOKA_ABI 1

/* The VANOKA_ABI that the library was compiled with. */
VANOKA_API uint32_t vanoka_abi(void);

/* How a call went. */
typedef int32_t vanoka_status;
enum {
    VANOKA_OK = 0,
    VANOKA_BAD_ARGUMENT = 1, /* a null pointer, a letter or key that there is not, a number that is none */
    VANOKA_ILL_FORMED = 2,   /* a text that is not well-formed UTF-8, or a document that does not decode */
    VANOKA_TOO_LARGE = 3,    /* more than VANOKA_LARGEST_TEXT and its fellows */
    VANOKA_NO_MEMORY = 4
};

#define VANOKA_LARGEST_TEXT 16777216  /* bytes: a text, a settings document */
#define VANOKA_LARGEST_LIST 268435456 /* bytes: a word list, or all lists of one decoder together */
#define VANOKA_MOST_LISTS 64          /* of one decoder */
#define VANOKA_MOST_POINTS 1000000    /* of a stroke */
#define VANOKA_MOST_RESULTS 1000000   /* a greater limit counts as this */

/* ---- Answers ---- */

/* What an item is. Each call says which of these it gives. */
enum {
    VANOKA_WORD = 1,
    VANOKA_EMOJI = 2,
    VANOKA_TEXT = 3,
    VANOKA_TYPED = 4,       /* what was typed, as it is put in by itself */
    VANOKA_LATIN = 5,       /* the keys as they were typed, as an English word */
    VANOKA_HIGHLIGHTED = 6, /* the row of candidates before is what Space puts in; the text is empty */

    VANOKA_INSERT = 10,  /* a text to put in for good, in place of what is marked */
    VANOKA_MARK = 11,    /* a text to show as marked, in place of what is marked; empty: take it away */
    VANOKA_KEYS = 12,    /* Latin keys as they were typed */
    VANOKA_PREVIEW = 13, /* what the keys read as */

    VANOKA_VOWEL = 20, /* the id of a letter of each group: its text */
    VANOKA_CONSONANT = 21,
    VANOKA_SIGN = 22,
    VANOKA_DISPLAY = 23, /* how the letter before is shown: a sign stands on a dotted circle */

    VANOKA_BUILT_IN = 30, /* a key of a letter from the beginning; number: 1 when it is on, else 0 */
    VANOKA_ADDED = 31,    /* a key that the user has given to a letter */
    VANOKA_TAKEN_BY = 32, /* the id of the letter that the key before types instead */

    VANOKA_KEY_FREE = 40,          /* the key can be added; the text is empty */
    VANOKA_KEY_REPLACES = 41,      /* the key can be added, and types the letter with this id until then */
    VANOKA_KEY_EMPTY = 42,         /* the key cannot be added: it is empty; the text tells a person so */
    VANOKA_KEY_NOT_LETTERS = 43,   /* likewise: it holds something else than English letters */
    VANOKA_KEY_TOO_LONG = 44,      /* likewise: it has more than six letters */
    VANOKA_KEY_ALREADY_THERE = 45, /* likewise: it types this letter already */

    VANOKA_LEARN = 50,   /* a text that was put in and is to be learnt; the VANOKA_KEYS after it typed it */
    VANOKA_UNLEARN = 51, /* likewise, what was learnt is to be taken back */
    VANOKA_FORGET = 52,  /* a word that is never to be offered from learning again */
    VANOKA_REFUSED = 53, /* why a document was not taken; number: the line that is wrong, from 1 */

    VANOKA_GROUP = 60,   /* what a letter is: "Vowel" */
    VANOKA_EXAMPLE = 61, /* how a letter is typed, or that no key types it; number: 1 when one does, else 0 */
    VANOKA_NOTE = 62,    /* what is said of the key before */
    VANOKA_CONTROL_NAME = 63, /* what the control beside the key before does, and to which key */
    VANOKA_MESSAGE =
        64, /* what adding the draft would do, or why it cannot be added; number: 1 when it can */
    VANOKA_FOOTNOTE = 65 /* what a key may be made of */
};

/* One part of an answer. 24 bytes on every machine. */
typedef struct vanoka_item {
    const char* text; /* UTF-8, with a zero byte after it; never null */
    uint32_t size;    /* of the text in bytes, without the zero byte */
    int32_t kind;
    int64_t number; /* 0 where its kind does not say what it is */
} vanoka_item;

typedef struct vanoka_answer vanoka_answer;

VANOKA_API vanoka_status vanoka_answer_create(vanoka_answer** answer);
VANOKA_API void vanoka_answer_release(vanoka_answer* answer);
/* The number of items; 0 for null. */
VANOKA_API size_t vanoka_answer_count(const vanoka_answer* answer);
/* The first of the items, which stand one after the other; null when there are none. */
VANOKA_API const vanoka_item* vanoka_answer_items(const vanoka_answer* answer);

/* ---- Settings: which keys type which letters ---- */

typedef struct vanoka_settings vanoka_settings;

/* The built-in keys. */
VANOKA_API vanoka_status vanoka_settings_create(vanoka_settings** settings);
VANOKA_API void vanoka_settings_release(vanoka_settings* settings);

/* Adopts a document that `vanoka_settings_document` gave at some time, here or in another program; an empty
   one means the built-in keys. Compositions read their next key by it. VANOKA_ILL_FORMED for a document that
   does not decode: the built-in keys are in force then, and the document stays the settings' document until
   the next edit. Whoever stores documents should keep a copy of such a one first. */
VANOKA_API vanoka_status vanoka_settings_load(vanoka_settings* settings, const char* document, size_t size);
/* The document to store: one VANOKA_TEXT, empty when nothing is to be stored. */
VANOKA_API vanoka_status vanoka_settings_document(const vanoka_settings* settings, vanoka_answer* answer);

/* Every letter, in the order of the alphabet: a VANOKA_VOWEL, VANOKA_CONSONANT or VANOKA_SIGN, whose number
   is 1 when the user has changed its keys, and a VANOKA_DISPLAY. */
VANOKA_API vanoka_status vanoka_settings_letters(const vanoka_settings* settings, vanoka_answer* answer);
/* The keys of the letter with this id: each a VANOKA_BUILT_IN, with a VANOKA_TAKEN_BY after it when it types
   another letter, or a VANOKA_ADDED. VANOKA_BAD_ARGUMENT when there is no such letter. */
VANOKA_API vanoka_status vanoka_settings_keys(const vanoka_settings* settings, const char* letter,
                                              size_t size, vanoka_answer* answer);

/* What adding `key` to the letter with this id would meet: one item from VANOKA_KEY_FREE to
   VANOKA_KEY_ALREADY_THERE. VANOKA_BAD_ARGUMENT when there is no such letter. */
VANOKA_API vanoka_status vanoka_settings_check(const vanoka_settings* settings, const char* key,
                                               size_t key_size, const char* letter, size_t letter_size,
                                               vanoka_answer* answer);
/* Gives the key to the letter and takes it from any other. Answers as `vanoka_settings_check`; a key that
   cannot be added changes nothing. */
VANOKA_API vanoka_status vanoka_settings_add(vanoka_settings* settings, const char* key, size_t key_size,
                                             const char* letter, size_t letter_size, vanoka_answer* answer);
/* Removes a key that was added; nothing happens when it was not. */
VANOKA_API vanoka_status vanoka_settings_remove(vanoka_settings* settings, const char* key, size_t size);
/* Switches a built-in key on (any number but 0) or off. VANOKA_BAD_ARGUMENT when there is no such key. */
VANOKA_API vanoka_status vanoka_settings_set_built_in(vanoka_settings* settings, const char* key, size_t size,
                                                      int32_t on);
/* Drops all that was added and switched off. */
VANOKA_API vanoka_status vanoka_settings_reset(vanoka_settings* settings);

/* What an editor of one letter's keys says, while `draft` stands in its field: VANOKA_GROUP, VANOKA_EXAMPLE;
   for each key the items of `vanoka_settings_keys`, a VANOKA_NOTE where there is one, and a
   VANOKA_CONTROL_NAME; VANOKA_MESSAGE, VANOKA_FOOTNOTE. Everything is in English. VANOKA_BAD_ARGUMENT when
   there is no such letter. */
VANOKA_API vanoka_status vanoka_settings_editor(const vanoka_settings* settings, const char* letter,
                                                size_t letter_size, const char* draft, size_t draft_size,
                                                vanoka_answer* answer);

/* The letters that `key` may stand for while it is held down, likeliest first: for each its id as
   VANOKA_VOWEL, VANOKA_CONSONANT or VANOKA_SIGN, a VANOKA_DISPLAY, and the VANOKA_KEYS that type it. */
VANOKA_API vanoka_status vanoka_settings_long_press(const vanoka_settings* settings, const char* key,
                                                    size_t size, vanoka_answer* answer);
/* What a whole text of Latin keys reads as: one VANOKA_TEXT. What is no key passes as it is, ill-formed bytes
   among it. */
VANOKA_API vanoka_status vanoka_settings_transliterate(const vanoka_settings* settings, const char* text,
                                                       size_t size, vanoka_answer* answer);

/* ---- Typing: what each key does in one text field ---- */

/* The key codes that mean something by themselves. All others are known by their characters. */
enum { VANOKA_SPACE = 49, VANOKA_DELETE = 51, VANOKA_ESCAPE = 53, VANOKA_OTHER_KEY = 0xFFFF };
/* The modifiers that make a key a shortcut, to be added up. AltGr and the locks are none, nor is Shift, which
   means something with Tab and Delete in a line of candidates. */
enum { VANOKA_SHIFT = 1 << 17, VANOKA_CONTROL = 1 << 18, VANOKA_OPTION = 1 << 19, VANOKA_COMMAND = 1 << 20 };

typedef struct vanoka_typing vanoka_typing;

/* Typing in one field with the keys of these settings, as they are at each key. */
VANOKA_API vanoka_status vanoka_typing_create(const vanoka_settings* settings, vanoka_typing** typing);
VANOKA_API void vanoka_typing_release(vanoka_typing* typing);

/* A key goes down. `characters` is what it types with the layout and modifiers in force: Return is "\r", Tab
   "\t", function and editing keys are the scalars U+F700 to U+F8FF; it may be empty. The answer holds at most
   one item, VANOKA_INSERT or VANOKA_MARK, which is to be done at once; its number is the length of its text
   in UTF-16 units, which is where the caret stands in a marked text. `consumed` becomes 1, or 0 when the
   field shall handle the key after that as if there were no input method; it is 0 when the call fails. */
VANOKA_API vanoka_status vanoka_typing_press(vanoka_typing* typing, uint32_t code, uint32_t modifiers,
                                             const char* characters, size_t size, int32_t* consumed,
                                             vanoka_answer* answer);
/* Ends the composition with its Sinhala text: at most one VANOKA_INSERT. To be called when the field loses
   the focus or its caret moves. */
VANOKA_API vanoka_status vanoka_typing_end(vanoka_typing* typing, vanoka_answer* answer);
/* Ends the composition with another text in its place, which a person has chosen: at most one VANOKA_INSERT.
   With an empty text nothing is done and the composition goes on. */
VANOKA_API vanoka_status vanoka_typing_choose(vanoka_typing* typing, const char* text, size_t size,
                                              vanoka_answer* answer);
/* Ends the composition whose marked text the field has put in or taken away by itself: one VANOKA_TEXT, what
   it read as. Nothing is to be done. */
VANOKA_API vanoka_status vanoka_typing_forget(vanoka_typing* typing, vanoka_answer* answer);
/* What is being composed: VANOKA_KEYS and VANOKA_PREVIEW, or nothing. */
VANOKA_API vanoka_status vanoka_typing_composition(const vanoka_typing* typing, vanoka_answer* answer);

/* ---- Word lists ---- */

/* A list is a text of lines "word TAB count"; lines that begin with "#" are comments, and lines of another
   form or that are not well-formed are passed over. A byte order mark at its beginning does not count. Counts
   are held to
   -(2^31 - 1) ... 2^31 - 1. Building a list takes some time (a tenth of a second for 100,000 words at worst),
   asking it takes microseconds. */

/* Sinhala words. */
typedef struct vanoka_words vanoka_words;

VANOKA_API vanoka_status vanoka_words_create(const char* list, size_t size, vanoka_words** words);
VANOKA_API void vanoka_words_release(vanoka_words* words);
/* The number of words; 0 for null. */
VANOKA_API int64_t vanoka_words_size(const vanoka_words* words);
/* What they take of the heap, in bytes; 0 for null. */
VANOKA_API size_t vanoka_words_memory(const vanoka_words* words);
/* The words that `text`, Sinhala text which is being typed, may become: at most `limit` items VANOKA_WORD,
   best first, none of them `text` itself; none for a limit below 1. `personal` may be null; the scores of
   words in both lists are added up. */
VANOKA_API vanoka_status vanoka_words_suggest(const vanoka_words* words, const vanoka_words* personal,
                                              const char* text, size_t size, int32_t limit,
                                              vanoka_answer* answer);

/* English words, and chat words among which Sinhala is usually written: lines "word TAB chat". All in lower
 * case. */
typedef struct vanoka_english vanoka_english;

VANOKA_API vanoka_status vanoka_english_create(const char* list, size_t size, vanoka_english** english);
VANOKA_API void vanoka_english_release(vanoka_english* english);
/* The number of words with counts and of chat words; 0 for null. */
VANOKA_API int64_t vanoka_english_size(const vanoka_english* english);
/* Whether `word`, the Latin keys that were typed, stays English although they spell the Sinhala word `over`.
   `kept` and `typed` are how often the user has kept it in English and has typed it in Sinhala. `keeps`
   becomes 1 or 0; it is 0 when the call fails. */
VANOKA_API vanoka_status vanoka_english_keeps(const vanoka_english* english, const char* word,
                                              size_t word_size, const char* over, size_t over_size,
                                              const vanoka_words* words, int64_t kept, int64_t typed,
                                              int32_t* keeps);

/* Emoji by words: lines "word TAB emoji emoji ...". */
typedef struct vanoka_emoji vanoka_emoji;

VANOKA_API vanoka_status vanoka_emoji_create(const char* list, size_t size, vanoka_emoji** emoji);
VANOKA_API void vanoka_emoji_release(vanoka_emoji* emoji);
/* The number of words; 0 for null. */
VANOKA_API int64_t vanoka_emoji_size(const vanoka_emoji* emoji);
/* The emoji of a word as VANOKA_EMOJI, in the list's order. For a Sinhala word, which is found by a loose
   spelling, the VANOKA_WORD as the list spells it goes first. */
VANOKA_API vanoka_status vanoka_emoji_match(const vanoka_emoji* emoji, const char* word, size_t size,
                                            vanoka_answer* answer);

/* ---- Candidates: the line of words under what is being typed ---- */

/* What was learnt from one person's writing, as it was at one moment. It is kept, and made anew, by the
 * program. */
typedef struct vanoka_personal vanoka_personal;

/* `sinhala`, which may be null, tells how often each word was put in. `kept` and `typed` are lists of English
   words in lower case: how often each was kept in Latin letters, and how often its keys were put in as
   Sinhala. */
VANOKA_API vanoka_status vanoka_personal_create(const vanoka_words* sinhala, const char* kept,
                                                size_t kept_size, const char* typed, size_t typed_size,
                                                vanoka_personal** personal);
VANOKA_API void vanoka_personal_release(vanoka_personal* personal);

/* What candidates come from, for everybody. */
typedef struct vanoka_candidates vanoka_candidates;

/* Each of the lists may be null. `never` holds words that are typed like any other and never offered: one a
 * line. */
VANOKA_API vanoka_status vanoka_candidates_create(const vanoka_words* words, const vanoka_english* english,
                                                  const vanoka_emoji* emoji, const char* never,
                                                  size_t never_size, vanoka_candidates** candidates);
/* The same candidates, found by what people mean who follow no scheme, too: most write gedara for the word
   whose keys are gedhara. `letters` tells what is known of words that no list holds: nothing (0), or how
   likely each letter is after the three (4) or five (6) before it; any other number is VANOKA_BAD_ARGUMENT.
   For a hundred thousand words the reading takes one to two megabytes, and with 6 four to five. The keys
   that `settings`, which may be null, have now are known. It takes as long as reading the lists, and next to
   nothing where `candidates` came from here with the same `letters`, so that it can be called anew whenever
   keys change. */
VANOKA_API vanoka_status vanoka_candidates_reading(const vanoka_candidates* candidates, int32_t letters,
                                                   const vanoka_settings* settings,
                                                   vanoka_candidates** reading);
VANOKA_API void vanoka_candidates_release(vanoka_candidates* candidates);
/* What may be meant by `keys`, which read as `preview` (VANOKA_KEYS and VANOKA_PREVIEW of
   `vanoka_typing_composition`), in the order in which it is shown: first a VANOKA_TYPED, which goes in unless
   a person chooses, then VANOKA_WORD, VANOKA_LATIN and VANOKA_EMOJI, no text twice. The number of an item is
   1 when it was learnt from the person and can be forgotten. At most `limit` items, held to 3 ... 9; none
   when nothing is typed. `personal` may be null. What is chosen goes to `vanoka_typing_choose`.
   The answer keeps what was found out about the letters, up to two megabytes: asked with again for a letter
   more or fewer, the same candidates are found in less than half of the time. */
VANOKA_API vanoka_status vanoka_candidates_find(const vanoka_candidates* candidates,
                                                const vanoka_personal* personal, const char* keys,
                                                size_t keys_size, const char* preview, size_t preview_size,
                                                int32_t limit, vanoka_answer* answer);

/* ---- Typing with a line of candidates under it ---- */

/* While a line is shown, Down and Tab highlight the next row, Up and Shift with Tab the one before; what puts
   text in puts the highlighted row in; Escape and Delete move the highlight back. Until it is moved, every
   key does exactly what it does in `vanoka_typing_press`. */
typedef struct vanoka_suggesting vanoka_suggesting;

/* Suggests and learns nothing until it is told to. */
VANOKA_API vanoka_status vanoka_suggesting_create(const vanoka_settings* settings,
                                                  vanoka_suggesting** suggesting);
VANOKA_API void vanoka_suggesting_release(vanoka_suggesting* suggesting);
/* Whether candidates are asked for, and whether words teach something: any number but 0, or 0. */
VANOKA_API vanoka_status vanoka_suggesting_switch(vanoka_suggesting* suggesting, int32_t suggests,
                                                  int32_t learns);

/* As `vanoka_typing_press`. After the INSERT or MARK the answer holds what the key teaches, if anything:
   VANOKA_LEARN or VANOKA_UNLEARN with VANOKA_KEYS, or VANOKA_FORGET. So do those of the next calls that put
   something in. */
VANOKA_API vanoka_status vanoka_suggesting_press(vanoka_suggesting* suggesting, uint32_t code,
                                                 uint32_t modifiers, const char* characters, size_t size,
                                                 int32_t* consumed, vanoka_answer* answer);
/* `needs` becomes 1 when what the key does depends on candidates that were asked for and have not come: it is
   to be pressed when they have. */
VANOKA_API vanoka_status vanoka_suggesting_needs(const vanoka_suggesting* suggesting, uint32_t code,
                                                 uint32_t modifiers, const char* characters, size_t size,
                                                 int32_t* needs);
/* As `vanoka_typing_end`, with the highlighted row. */
VANOKA_API vanoka_status vanoka_suggesting_end(vanoka_suggesting* suggesting, vanoka_answer* answer);
/* As `vanoka_typing_forget`. */
VANOKA_API vanoka_status vanoka_suggesting_forget(vanoka_suggesting* suggesting, vanoka_answer* answer);
/* As `vanoka_typing_composition`. */
VANOKA_API vanoka_status vanoka_suggesting_composition(const vanoka_suggesting* suggesting,
                                                       vanoka_answer* answer);
/* Puts a row in, as a click on it does. Nothing is done where there is none. */
VANOKA_API vanoka_status vanoka_suggesting_choose(vanoka_suggesting* suggesting, size_t row,
                                                  vanoka_answer* answer);
/* Forgets a row if it was learnt. The answer holds the mark of the first row, and a VANOKA_FORGET. */
VANOKA_API vanoka_status vanoka_suggesting_forget_row(vanoka_suggesting* suggesting, size_t row,
                                                      vanoka_answer* answer);

/* What candidates are missing for: VANOKA_KEYS, whose number is to be passed to `vanoka_suggesting_take`, and
   VANOKA_PREVIEW; nothing when those of the newest key are there, or none are wanted. */
VANOKA_API vanoka_status vanoka_suggesting_request(const vanoka_suggesting* suggesting,
                                                   vanoka_answer* answer);
/* The candidates of a request, as `vanoka_candidates_find` gave them, here or in another thread or process.
   `taken` becomes 0, and they are dropped, when it is not the newest. VANOKA_BAD_ARGUMENT for an empty
   text. */
VANOKA_API vanoka_status vanoka_suggesting_take(vanoka_suggesting* suggesting, int64_t request,
                                                const vanoka_item* rows, size_t count, int32_t* taken);
/* The line as it is to be shown, with a VANOKA_HIGHLIGHTED after one of its rows; nothing when none is. */
VANOKA_API vanoka_status vanoka_suggesting_line(const vanoka_suggesting* suggesting, vanoka_answer* answer);

/* ---- What is learnt ---- */

/* The words that one person has written, to be changed. Where they are stored is the program's business. */
typedef struct vanoka_learnt vanoka_learnt;

VANOKA_API vanoka_status vanoka_learnt_create(vanoka_learnt** learnt);
VANOKA_API void vanoka_learnt_release(vanoka_learnt* learnt);
/* What a VANOKA_LEARN or a VANOKA_UNLEARN says. Not every text is a word: what is none is not learnt, and
   neither is what was forgotten. */
VANOKA_API vanoka_status vanoka_learnt_learn(vanoka_learnt* learnt, const char* keys, size_t keys_size,
                                             const char* text, size_t text_size);
VANOKA_API vanoka_status vanoka_learnt_unlearn(vanoka_learnt* learnt, const char* keys, size_t keys_size,
                                               const char* text, size_t text_size);
/* What a VANOKA_FORGET says. */
VANOKA_API vanoka_status vanoka_learnt_forget(vanoka_learnt* learnt, const char* word, size_t size);
/* All of it as one VANOKA_TEXT, to be stored or carried elsewhere. */
VANOKA_API vanoka_status vanoka_learnt_document(const vanoka_learnt* learnt, vanoka_answer* answer);
/* Adds the words of such a text, wherever it was written. A VANOKA_REFUSED, and nothing has changed, when it
   is none; otherwise the answer is empty. */
VANOKA_API vanoka_status vanoka_learnt_import(vanoka_learnt* learnt, const char* document, size_t size,
                                              vanoka_answer* answer);
/* The words as they are now, for `vanoka_candidates_find`. */
VANOKA_API vanoka_status vanoka_learnt_personal(const vanoka_learnt* learnt, vanoka_personal** personal);

/* ---- Swiping ---- */

/* A touch keyboard's keys. Places and widths are in whatever unit the keyboard measures in. */
typedef struct vanoka_layout vanoka_layout;

/* `labels` is a text of `keys` characters (grapheme clusters), one for each key; `centers` holds twice as
   many numbers, x and y of each key's centre. Keys whose label is no Latin letter take no part.
   VANOKA_BAD_ARGUMENT when the numbers do not agree, or a coordinate is infinite or no number. */
VANOKA_API vanoka_status vanoka_layout_create(const char* labels, size_t size, const double* centers,
                                              size_t keys, vanoka_layout** layout);
VANOKA_API void vanoka_layout_release(vanoka_layout* layout);

/* How often the user has typed each word, Sinhala or English: a list of lines "word TAB count". Counts below
   0 count as 0. The last count of a word holds. */
typedef struct vanoka_counts vanoka_counts;

VANOKA_API vanoka_status vanoka_counts_create(const char* list, size_t size, vanoka_counts** counts);
VANOKA_API void vanoka_counts_release(vanoka_counts* counts);
/* The number of words; 0 for null. */
VANOKA_API int64_t vanoka_counts_size(const vanoka_counts* counts);

/* The words that strokes are compared with. */
typedef struct vanoka_decoder vanoka_decoder;

/* Takes the words of `count` lists, Sinhala and English ones, whose counts are on one scale. Of a word that
   stands in several lists the first counts. Chat words have the largest count of their list, also where they
   have another. Words that cannot be swiped are left out. */
VANOKA_API vanoka_status vanoka_decoder_create(const char* const* lists, const size_t* sizes, size_t count,
                                               vanoka_decoder** decoder);

/* What makes one word likelier than another for a stroke: how far the stroke is from its path, and how often
   it occurs, the same on every keyboard; or what was learnt from the strokes of many people, which
   understands fingers better. */
enum { VANOKA_BY_DISTANCE = 0, VANOKA_BY_PEOPLE = 1 };
typedef int32_t vanoka_weights;

/* The same with the weights to go by; without, VANOKA_BY_DISTANCE. VANOKA_BAD_ARGUMENT for others. */
VANOKA_API vanoka_status vanoka_decoder_create_weighing(const char* const* lists, const size_t* sizes,
                                                        size_t count, vanoka_weights weights,
                                                        vanoka_decoder** decoder);
VANOKA_API void vanoka_decoder_release(vanoka_decoder* decoder);
/* The number of words that were not left out; 0 for null. */
VANOKA_API int64_t vanoka_decoder_size(const vanoka_decoder* decoder);
/* What they take of the heap, in bytes; 0 for null. */
VANOKA_API size_t vanoka_decoder_memory(const vanoka_decoder* decoder);
/* The words that a stroke may have meant: at most `limit` items VANOKA_WORD, best first. `points` holds x and
   y of each of `count` points. `counts` may be null. None for a stroke of fewer than two points and for a
   limit below 1; VANOKA_BAD_ARGUMENT when a number is infinite or none, or `key_width` is not greater than 0.
   The first stroke over a layout takes some ten milliseconds longer: `answer` keeps 16 bytes for each word,
   and the words, until it is released or given to another decoder. */
VANOKA_API vanoka_status vanoka_decoder_decode(const vanoka_decoder* decoder, const vanoka_layout* layout,
                                               const double* points, size_t count, double key_width,
                                               int32_t limit, const vanoka_counts* counts,
                                               vanoka_answer* answer);

/* ---- Memory, for callers with a memory of their own, as a page has for a WebAssembly module ---- */

/* `size` bytes for anything, or null. */
VANOKA_API void* vanoka_alloc(size_t size);
VANOKA_API void vanoka_free(void* memory);

#ifdef __cplusplus
}
#endif

#endif
