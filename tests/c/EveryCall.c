/* Every call, as a program in plain C99 makes it. */
#include "vanoka.h"

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void check(int holds, const char *what, int line) {
    if (holds)
        return;
    ++failures;
    printf("line %d: %s\n", line, what);
}
#define CHECK(condition) check((condition), #condition, __LINE__)

/* What a literal says, and how long it is. */
#define TEXT(literal) (literal), sizeof(literal) - 1

static vanoka_answer *answer;

static int is(size_t at, int32_t kind, const char *text) {
    const vanoka_item *item = vanoka_answer_items(answer) + at;
    return at < vanoka_answer_count(answer) && item->kind == kind && item->size == strlen(text) &&
           strcmp(item->text, text) == 0;
}

static int64_t number(size_t at) {
    return at < vanoka_answer_count(answer) ? vanoka_answer_items(answer)[at].number : -1;
}

static size_t count(void) {
    return vanoka_answer_count(answer);
}

/* ක, කා, කං, අම්ම, මම in bytes: what an escape of a scalar means depends on the compiler's settings. */
#define KA "\xE0\xB6\x9A"
#define KAA "\xE0\xB6\x9A\xE0\xB7\x8F"
#define AMMA "\xE0\xB6\x85\xE0\xB6\xB8\xE0\xB7\x8A\xE0\xB6\xB8"
#define MAMA "\xE0\xB6\xB8\xE0\xB6\xB8"
#define GA "\xE0\xB6\x9C"
#define GEDARA GA "\xE0\xB7\x99\xE0\xB6\xAF\xE0\xB6\xBB"
#define MAMAYA "\xE0\xB6\xB8\xE0\xB6\xB8\xE0\xB6\xBA"

static void answers(void) {
    CHECK(vanoka_abi() == VANOKA_ABI);
    CHECK(vanoka_answer_create(&answer) == VANOKA_OK);
    CHECK(count() == 0 && vanoka_answer_items(answer) == NULL);
}

static void settings(void) {
    vanoka_settings *settings = NULL, *other = NULL;
    CHECK(vanoka_settings_create(&settings) == VANOKA_OK);
    CHECK(vanoka_settings_document(settings, answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_TEXT, ""));

    CHECK(vanoka_settings_letters(settings, answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_VOWEL, "\xE0\xB6\x85") && number(0) == 0 && is(1, VANOKA_DISPLAY, "\xE0\xB6\x85"));
    CHECK(vanoka_settings_keys(settings, TEXT(KA), answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_BUILT_IN, "k") && number(0) == 1);

    CHECK(vanoka_settings_check(settings, TEXT("q"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_KEY_FREE, ""));
    CHECK(vanoka_settings_check(settings, TEXT("g"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_REPLACES, "\xE0\xB6\x9C"));
    CHECK(vanoka_settings_check(settings, TEXT(""), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_EMPTY, "Type a key"));
    CHECK(vanoka_settings_check(settings, TEXT("1"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_NOT_LETTERS, "Use English letters only"));
    CHECK(vanoka_settings_check(settings, TEXT("abcdefg"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_TOO_LONG, "Use at most 6 letters"));
    CHECK(vanoka_settings_add(settings, TEXT("k"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_ALREADY_THERE, "This letter already has that key"));
    CHECK(vanoka_settings_document(settings, answer) == VANOKA_OK && is(0, VANOKA_TEXT, ""));

    CHECK(vanoka_settings_add(settings, TEXT("g"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_KEY_REPLACES, "\xE0\xB6\x9C"));
    CHECK(vanoka_settings_keys(settings, TEXT(KA), answer) == VANOKA_OK);
    CHECK(count() == 2 && is(1, VANOKA_ADDED, "g"));
    CHECK(vanoka_settings_keys(settings, TEXT("\xE0\xB6\x9C"), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_BUILT_IN, "g") && number(0) == 1 && is(1, VANOKA_TAKEN_BY, KA));
    CHECK(vanoka_settings_set_built_in(settings, TEXT("aa"), 0) == VANOKA_OK);
    CHECK(vanoka_settings_transliterate(settings, TEXT("ga kaa"), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_TEXT, KA " " KA "\xE0\xB6\x85"));
    CHECK(vanoka_settings_document(settings, answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_TEXT, "{\"addedKeys\":[{\"key\":\"g\",\"letter\":\"" KA "\"}],\"disabledKeys\":[\"aa\"]}"));

    CHECK(vanoka_settings_create(&other) == VANOKA_OK);
    CHECK(vanoka_settings_load(other, vanoka_answer_items(answer)->text, vanoka_answer_items(answer)->size) ==
          VANOKA_OK);
    CHECK(vanoka_settings_transliterate(other, TEXT("ga"), answer) == VANOKA_OK && is(0, VANOKA_TEXT, KA));
    CHECK(vanoka_settings_load(other, TEXT("{damaged")) == VANOKA_ILL_FORMED);
    CHECK(vanoka_settings_transliterate(other, TEXT("kaa"), answer) == VANOKA_OK && is(0, VANOKA_TEXT, KAA));
    CHECK(vanoka_settings_document(other, answer) == VANOKA_OK && is(0, VANOKA_TEXT, "{damaged"));
    vanoka_settings_release(other);

    CHECK(vanoka_settings_set_built_in(settings, TEXT("aa"), 1) == VANOKA_OK);
    CHECK(vanoka_settings_remove(settings, TEXT("g")) == VANOKA_OK);
    CHECK(vanoka_settings_document(settings, answer) == VANOKA_OK && is(0, VANOKA_TEXT, ""));
    CHECK(vanoka_settings_add(settings, TEXT("q"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(vanoka_settings_letters(settings, answer) == VANOKA_OK);
    CHECK(vanoka_settings_reset(settings) == VANOKA_OK);
    CHECK(vanoka_settings_transliterate(settings, TEXT("q"), answer) == VANOKA_OK && is(0, VANOKA_TEXT, "q"));

    CHECK(vanoka_settings_long_press(settings, TEXT("k"), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_CONSONANT, KA) && is(1, VANOKA_DISPLAY, KA) && is(2, VANOKA_KEYS, "k"));
    CHECK(vanoka_settings_long_press(settings, TEXT("x"), answer) == VANOKA_OK);
    CHECK(is(0, VANOKA_SIGN, "\xE0\xB6\x82") && is(1, VANOKA_DISPLAY, "\xE2\x97\x8C\xE0\xB6\x82"));
    vanoka_settings_release(settings);
}

static void press(vanoka_typing *typing, uint32_t code, const char *characters, int32_t expected) {
    int32_t consumed = -1;
    CHECK(vanoka_typing_press(typing, code, 0, characters, strlen(characters), &consumed, answer) == VANOKA_OK);
    CHECK(consumed == expected);
}

static void typing(void) {
    vanoka_settings *settings = NULL;
    vanoka_typing *typing = NULL;
    int32_t consumed = -1;
    CHECK(vanoka_settings_create(&settings) == VANOKA_OK);
    CHECK(vanoka_typing_create(settings, &typing) == VANOKA_OK);
    vanoka_settings_release(settings); /* the typing keeps it */

    press(typing, VANOKA_SPACE, " ", 0);
    CHECK(count() == 0);
    press(typing, VANOKA_OTHER_KEY, "k", 1);
    CHECK(count() == 1 && is(0, VANOKA_MARK, KA "\xE0\xB7\x8A") && number(0) == 2);
    press(typing, VANOKA_OTHER_KEY, "a", 1);
    CHECK(is(0, VANOKA_MARK, KA) && number(0) == 1);
    CHECK(vanoka_typing_composition(typing, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(0, VANOKA_KEYS, "ka") && is(1, VANOKA_PREVIEW, KA));
    press(typing, VANOKA_SPACE, " ", 1);
    CHECK(count() == 1 && is(0, VANOKA_INSERT, KA " ") && number(0) == 2);
    CHECK(vanoka_typing_composition(typing, answer) == VANOKA_OK && count() == 0);

    press(typing, VANOKA_OTHER_KEY, "k", 1);
    press(typing, VANOKA_DELETE, "\x7F", 1);
    CHECK(is(0, VANOKA_MARK, KA));
    press(typing, VANOKA_DELETE, "\x7F", 1);
    CHECK(count() == 1 && is(0, VANOKA_MARK, ""));

    press(typing, VANOKA_OTHER_KEY, "k", 1);
    press(typing, VANOKA_ESCAPE, "\x1B", 1);
    CHECK(is(0, VANOKA_INSERT, "k"));

    press(typing, VANOKA_OTHER_KEY, "k", 1);
    CHECK(vanoka_typing_press(typing, 70000, VANOKA_CONTROL, TEXT("c"), &consumed, answer) == VANOKA_OK);
    CHECK(consumed == 0 && is(0, VANOKA_INSERT, KA "\xE0\xB7\x8A"));

    press(typing, VANOKA_OTHER_KEY, "k", 1);
    CHECK(vanoka_typing_choose(typing, TEXT(""), answer) == VANOKA_OK && count() == 0);
    CHECK(vanoka_typing_choose(typing, TEXT(MAMA), answer) == VANOKA_OK && is(0, VANOKA_INSERT, MAMA));
    CHECK(vanoka_typing_choose(typing, vanoka_answer_items(answer)->text, vanoka_answer_items(answer)->size, answer) ==
          VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_INSERT, MAMA));
    CHECK(vanoka_typing_end(typing, answer) == VANOKA_OK && count() == 0);

    press(typing, VANOKA_OTHER_KEY, "k", 1);
    CHECK(vanoka_typing_forget(typing, answer) == VANOKA_OK && is(0, VANOKA_TEXT, KA "\xE0\xB7\x8A"));
    press(typing, VANOKA_OTHER_KEY, "k", 1);
    CHECK(vanoka_typing_end(typing, answer) == VANOKA_OK && is(0, VANOKA_INSERT, KA "\xE0\xB7\x8A"));
    vanoka_typing_release(typing);
}

static void lists(void) {
    vanoka_words *words = NULL, *personal = NULL;
    vanoka_english *english = NULL;
    vanoka_emoji *emoji = NULL;
    int32_t keeps = -1;
    CHECK(vanoka_words_create(TEXT("\xEF\xBB\xBF" MAMA "\t10\n" MAMAYA "\t5\n"), &words) == VANOKA_OK);
    CHECK(vanoka_words_create(TEXT(MAMAYA "\t9223372036854775807\n"), &personal) == VANOKA_OK);
    CHECK(vanoka_words_size(words) == 2 && vanoka_words_memory(words) > 0);
    CHECK(vanoka_words_suggest(words, NULL, TEXT("\xE0\xB6\xB8"), 5, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(0, VANOKA_WORD, MAMA) && is(1, VANOKA_WORD, MAMAYA));
    CHECK(vanoka_words_suggest(words, personal, TEXT("\xE0\xB6\xB8"), 1, answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_WORD, MAMAYA));
    CHECK(vanoka_words_suggest(words, NULL, TEXT("\xE0\xB6\xB8"), 0, answer) == VANOKA_OK && count() == 0);

    CHECK(vanoka_english_create(TEXT("mama\t1000\nok\tchat\n"), &english) == VANOKA_OK);
    CHECK(vanoka_english_size(english) == 2);
    CHECK(vanoka_english_keeps(english, TEXT("mama"), TEXT(MAMA), words, 0, 0, &keeps) == VANOKA_OK && keeps == 1);
    CHECK(vanoka_english_keeps(english, TEXT("mama"), TEXT(MAMA), words, 0, 1, &keeps) == VANOKA_OK && keeps == 0);
    CHECK(vanoka_english_keeps(english, TEXT("mama"), TEXT(MAMAYA), personal, 0, 0, &keeps) == VANOKA_OK);
    CHECK(keeps == 0);

    CHECK(vanoka_emoji_create(TEXT("tea\t\xF0\x9F\x8D\xB5\n" MAMA "\t\xF0\x9F\x99\x8B \xF0\x9F\x8D\xB5\n"), &emoji) ==
          VANOKA_OK);
    CHECK(vanoka_emoji_size(emoji) == 2);
    CHECK(vanoka_emoji_match(emoji, TEXT("Tea"), answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_EMOJI, "\xF0\x9F\x8D\xB5"));
    CHECK(vanoka_emoji_match(emoji, TEXT(MAMA), answer) == VANOKA_OK);
    CHECK(count() == 3 && is(0, VANOKA_WORD, MAMA) && is(1, VANOKA_EMOJI, "\xF0\x9F\x99\x8B"));
    CHECK(vanoka_emoji_match(emoji, TEXT("none"), answer) == VANOKA_OK && count() == 0);
    vanoka_emoji_release(emoji);
    vanoka_english_release(english);
    vanoka_words_release(personal);
    vanoka_words_release(words);
}

static void candidates(void) {
    vanoka_words *words = NULL, *own = NULL;
    vanoka_english *english = NULL;
    vanoka_emoji *emoji = NULL;
    vanoka_personal *personal = NULL;
    vanoka_candidates *candidates = NULL;
    CHECK(vanoka_words_create(TEXT(MAMAYA "\t5\n" KAA "\t1\n"), &words) == VANOKA_OK);
    CHECK(vanoka_words_create(TEXT(MAMA AMMA "\t2\n"), &own) == VANOKA_OK);
    CHECK(vanoka_english_create(TEXT("mama\t1\n"), &english) == VANOKA_OK);
    CHECK(vanoka_emoji_create(TEXT("mama\t\xF0\x9F\x99\x8B\n"), &emoji) == VANOKA_OK);
    CHECK(vanoka_candidates_create(words, english, emoji, TEXT(""), &candidates) == VANOKA_OK);
    vanoka_words_release(words); /* the candidates keep them */
    vanoka_english_release(english);
    vanoka_emoji_release(emoji);

    CHECK(vanoka_candidates_find(candidates, NULL, TEXT("mama"), TEXT(MAMA), 6, answer) == VANOKA_OK);
    CHECK(count() == 4 && is(0, VANOKA_TYPED, MAMA) && is(1, VANOKA_WORD, MAMAYA) && number(1) == 0);
    CHECK(is(2, VANOKA_EMOJI, "\xF0\x9F\x99\x8B") && is(3, VANOKA_LATIN, "mama"));
    CHECK(vanoka_personal_create(own, TEXT("mama\t3\n"), TEXT("mama\t2\n"), &personal) == VANOKA_OK);
    vanoka_words_release(own);
    CHECK(vanoka_candidates_find(candidates, personal, TEXT("mama"), TEXT(MAMA), 6, answer) == VANOKA_OK);
    CHECK(is(1, VANOKA_LATIN, "mama") && number(1) == 1);
    CHECK(is(2, VANOKA_WORD, MAMA AMMA) && number(2) == 1);
    CHECK(vanoka_candidates_find(candidates, personal, TEXT(""), TEXT(""), 6, answer) == VANOKA_OK && count() == 0);
    vanoka_candidates_release(candidates);

    CHECK(vanoka_candidates_create(NULL, NULL, NULL, TEXT("mama\n"), &candidates) == VANOKA_OK);
    CHECK(vanoka_candidates_find(candidates, personal, TEXT("mama"), TEXT(MAMA), 6, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(0, VANOKA_TYPED, MAMA) && is(1, VANOKA_WORD, MAMA AMMA));
    vanoka_candidates_release(candidates);
    vanoka_personal_release(personal);
}

static void readingOfCandidates(void) {
    vanoka_words* words = NULL;
    vanoka_settings* settings = NULL;
    vanoka_candidates *plain = NULL, *reading = NULL, *again = NULL;
    CHECK(vanoka_settings_create(&settings) == VANOKA_OK);
    CHECK(vanoka_words_create(TEXT(GEDARA "\t5\n"), &words) == VANOKA_OK);
    CHECK(vanoka_candidates_create(words, NULL, NULL, TEXT(""), &plain) == VANOKA_OK);
    vanoka_words_release(words);
    CHECK(vanoka_candidates_reading(plain, 5, NULL, &reading) == VANOKA_BAD_ARGUMENT && !reading);
    CHECK(vanoka_candidates_reading(NULL, 4, NULL, &reading) == VANOKA_BAD_ARGUMENT && !reading);
    CHECK(vanoka_candidates_reading(plain, 0, NULL, &reading) == VANOKA_OK);
    CHECK(vanoka_candidates_find(plain, NULL, TEXT("geadara"), TEXT(GEDARA GEDARA), 6, answer) == VANOKA_OK);
    CHECK(count() == 1);
    CHECK(vanoka_candidates_find(reading, NULL, TEXT("geadara"), TEXT(GEDARA GEDARA), 6, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(1, VANOKA_WORD, GEDARA));

    CHECK(vanoka_candidates_find(reading, NULL, TEXT("qqqedara"), TEXT(GEDARA GEDARA), 6, answer) == VANOKA_OK);
    CHECK(count() == 1);
    CHECK(vanoka_settings_add(settings, TEXT("qqq"), TEXT(GA), answer) == VANOKA_OK);
    CHECK(vanoka_candidates_reading(reading, 0, settings, &again) == VANOKA_OK);
    vanoka_settings_release(settings);
    vanoka_candidates_release(reading);
    vanoka_candidates_release(plain);
    CHECK(vanoka_candidates_find(again, NULL, TEXT("qqqedara"), TEXT(GEDARA GEDARA), 6, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(1, VANOKA_WORD, GEDARA));
    vanoka_candidates_release(again);
}

static void editor(void) {
    vanoka_settings *settings = NULL;
    CHECK(vanoka_settings_create(&settings) == VANOKA_OK);
    CHECK(vanoka_settings_add(settings, TEXT("kh"), TEXT(KA), answer) == VANOKA_OK);
    CHECK(vanoka_settings_editor(settings, TEXT(KA), TEXT("q"), answer) == VANOKA_OK && count() == 9);
    CHECK(is(0, VANOKA_GROUP, "Consonant") && vanoka_answer_items(answer)[1].kind == VANOKA_EXAMPLE && number(1) == 1);
    CHECK(is(2, VANOKA_BUILT_IN, "k") && is(3, VANOKA_CONTROL_NAME, "On, k"));
    CHECK(is(4, VANOKA_ADDED, "kh") && is(5, VANOKA_NOTE, "Your key"));
    CHECK(is(6, VANOKA_CONTROL_NAME, "Remove this key, kh"));
    CHECK(vanoka_answer_items(answer)[7].kind == VANOKA_MESSAGE && number(7) == 1);
    CHECK(vanoka_answer_items(answer)[8].kind == VANOKA_FOOTNOTE);
    CHECK(vanoka_settings_editor(settings, TEXT(KA), TEXT("1"), answer) == VANOKA_OK && number(7) == 0);
    vanoka_settings_release(settings);
}

static int32_t pressed(vanoka_suggesting *typing, uint32_t code, const char *characters) {
    int32_t consumed = -1;
    CHECK(vanoka_suggesting_press(typing, code, 0, characters, strlen(characters), &consumed, answer) == VANOKA_OK);
    return consumed;
}

/* Types mama and takes the rows. */
static void type_mama(vanoka_suggesting *typing, const vanoka_item *rows, size_t rows_count) {
    const char *keys[] = {"m", "a", "m", "a"};
    int32_t taken = 0;
    for (size_t at = 0; at < 4; ++at)
        CHECK(pressed(typing, VANOKA_OTHER_KEY, keys[at]) == 1 && count() == 1);
    CHECK(vanoka_suggesting_composition(typing, answer) == VANOKA_OK && is(0, VANOKA_KEYS, "mama"));
    CHECK(vanoka_suggesting_request(typing, answer) == VANOKA_OK && count() == 2);
    CHECK(is(0, VANOKA_KEYS, "mama") && is(1, VANOKA_PREVIEW, MAMA));
    const int64_t request = number(0);
    CHECK(vanoka_suggesting_take(typing, request - 1, rows, rows_count, &taken) == VANOKA_OK && taken == 0);
    CHECK(vanoka_suggesting_take(typing, request, rows, rows_count, &taken) == VANOKA_OK && taken == 1);
    CHECK(vanoka_suggesting_request(typing, answer) == VANOKA_OK && count() == 0);
}

static void suggesting(void) {
    const vanoka_item rows[] = {{MAMA, sizeof(MAMA) - 1, VANOKA_TYPED, 0},
                                {MAMAYA, sizeof(MAMAYA) - 1, VANOKA_WORD, 1},
                                {"mama", 4, VANOKA_LATIN, 0}};
    vanoka_settings *settings = NULL;
    vanoka_suggesting *typing = NULL;
    int32_t needs = -1;
    CHECK(vanoka_settings_create(&settings) == VANOKA_OK);
    CHECK(vanoka_suggesting_create(settings, &typing) == VANOKA_OK);
    vanoka_settings_release(settings);
    CHECK(vanoka_suggesting_switch(typing, 1, 1) == VANOKA_OK);
    CHECK(pressed(typing, VANOKA_OTHER_KEY, "k") == 1);
    CHECK(vanoka_suggesting_needs(typing, VANOKA_OTHER_KEY, 0, TEXT("\t"), &needs) == VANOKA_OK && needs == 1);
    CHECK(vanoka_suggesting_end(typing, answer) == VANOKA_OK && count() == 1);

    type_mama(typing, rows, 3);
    CHECK(vanoka_suggesting_line(typing, answer) == VANOKA_OK && count() == 4);
    CHECK(is(0, VANOKA_TYPED, MAMA) && is(1, VANOKA_HIGHLIGHTED, "") && number(2) == 1);
    CHECK(pressed(typing, VANOKA_OTHER_KEY, "\t") == 1 && is(0, VANOKA_MARK, MAMAYA));
    CHECK(pressed(typing, VANOKA_SPACE, " ") == 1 && is(0, VANOKA_INSERT, MAMAYA " "));
    CHECK(is(1, VANOKA_LEARN, MAMAYA) && is(2, VANOKA_KEYS, "mama"));
    CHECK(pressed(typing, VANOKA_DELETE, "\x7F") == 0 && is(0, VANOKA_UNLEARN, MAMAYA) && is(1, VANOKA_KEYS, "mama"));

    type_mama(typing, rows, 3);
    CHECK(vanoka_suggesting_forget_row(typing, 2, answer) == VANOKA_OK && count() == 0);
    CHECK(vanoka_suggesting_forget_row(typing, 1, answer) == VANOKA_OK && is(1, VANOKA_FORGET, MAMAYA));
    CHECK(vanoka_suggesting_line(typing, answer) == VANOKA_OK && count() == 3);
    CHECK(vanoka_suggesting_choose(typing, 1, answer) == VANOKA_OK && is(0, VANOKA_INSERT, "mama"));
    CHECK(pressed(typing, VANOKA_OTHER_KEY, "k") == 1);
    CHECK(vanoka_suggesting_forget(typing, answer) == VANOKA_OK && is(0, VANOKA_TEXT, KA "\xE0\xB7\x8A"));
    vanoka_suggesting_release(typing);
}

static void learnt(void) {
    vanoka_learnt *learnt = NULL, *other = NULL;
    vanoka_personal *personal = NULL;
    CHECK(vanoka_learnt_create(&learnt) == VANOKA_OK && vanoka_learnt_create(&other) == VANOKA_OK);
    CHECK(vanoka_learnt_learn(learnt, TEXT("amma"), TEXT(AMMA)) == VANOKA_OK);
    CHECK(vanoka_learnt_learn(learnt, TEXT("mama"), TEXT(MAMA)) == VANOKA_OK);
    CHECK(vanoka_learnt_unlearn(learnt, TEXT("mama"), TEXT(MAMA)) == VANOKA_OK);
    CHECK(vanoka_learnt_forget(learnt, TEXT(MAMAYA)) == VANOKA_OK);
    CHECK(vanoka_learnt_document(learnt, answer) == VANOKA_OK && count() == 1);
    CHECK(strstr(vanoka_answer_items(answer)->text, AMMA "\t1\n") != NULL);
    CHECK(strstr(vanoka_answer_items(answer)->text, MAMA "\t") == NULL);
    CHECK(vanoka_learnt_import(other, vanoka_answer_items(answer)->text, vanoka_answer_items(answer)->size, answer) ==
          VANOKA_OK);
    CHECK(count() == 0);
    CHECK(vanoka_learnt_import(other, TEXT(AMMA "\t7\n" MAMAYA "\t9\n"), answer) == VANOKA_OK && count() == 0);
    CHECK(vanoka_learnt_import(other, TEXT(AMMA "\t8\nno list\n"), answer) == VANOKA_OK && count() == 1);
    CHECK(vanoka_answer_items(answer)->kind == VANOKA_REFUSED && number(0) == 2);
    CHECK(vanoka_learnt_document(other, answer) == VANOKA_OK);
    CHECK(strstr(vanoka_answer_items(answer)->text, AMMA "\t7\n") != NULL); /* the larger count of both */
    CHECK(strstr(vanoka_answer_items(answer)->text, MAMAYA "\tforgotten") != NULL);
    CHECK(vanoka_learnt_personal(other, &personal) == VANOKA_OK && personal != NULL);
    vanoka_personal_release(personal);
    vanoka_learnt_release(other);
    vanoka_learnt_release(learnt);
}

static void swiping(void) {
    const double centers[] = {0, 0, 10, 0, 20, 0};
    const double stroke[] = {10, 0, 0, 0, 10, 0, 0, 0};
    const char *texts[] = {MAMA "\t10\n", "mat\t5\nma\tchat\n"};
    const size_t sizes[] = {sizeof(MAMA "\t10\n") - 1, sizeof("mat\t5\nma\tchat\n") - 1};
    vanoka_layout *layout = NULL;
    vanoka_counts *counts = NULL;
    vanoka_decoder *decoder = NULL;
    CHECK(vanoka_layout_create(TEXT("amt"), centers, 3, &layout) == VANOKA_OK);
    CHECK(vanoka_counts_create(TEXT("mam\t100\nmam\t7\nma\t-3\n"), &counts) == VANOKA_OK);
    CHECK(vanoka_counts_size(counts) == 2);
    CHECK(vanoka_decoder_create(texts, sizes, 2, &decoder) == VANOKA_OK);
    CHECK(vanoka_decoder_size(decoder) == 3 && vanoka_decoder_memory(decoder) > 0);
    CHECK(vanoka_decoder_decode(decoder, layout, stroke, 4, 10, 1, NULL, answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_WORD, MAMA));
    CHECK(vanoka_decoder_decode(decoder, layout, stroke, 4, 10, 9, counts, answer) == VANOKA_OK && count() > 1);
    CHECK(vanoka_decoder_decode(decoder, layout, stroke, 1, 10, 9, NULL, answer) == VANOKA_OK && count() == 0);
    vanoka_decoder_release(decoder);
    CHECK(vanoka_decoder_create_weighing(texts, sizes, 2, VANOKA_BY_PEOPLE, &decoder) == VANOKA_OK);
    CHECK(vanoka_decoder_decode(decoder, layout, stroke, 4, 10, 1, NULL, answer) == VANOKA_OK);
    CHECK(count() == 1 && is(0, VANOKA_WORD, MAMA));
    vanoka_decoder_release(decoder);
    vanoka_counts_release(counts);

    const char *chat[] = {"at\t5\nmama\t900\nat\tchat\natt\tchat\n"};
    const size_t size = strlen(chat[0]);
    const double short_stroke[] = {0, 0, 20, 0};
    CHECK(vanoka_decoder_create(chat, &size, 1, &decoder) == VANOKA_OK);
    CHECK(vanoka_decoder_decode(decoder, layout, short_stroke, 2, 10, 2, NULL, answer) == VANOKA_OK);
    CHECK(count() == 2 && is(0, VANOKA_WORD, "at") && is(1, VANOKA_WORD, "att"));
    vanoka_decoder_release(decoder);
    vanoka_layout_release(layout);
}

static void memory(void) {
    char *bytes = vanoka_alloc(3);
    CHECK(bytes != NULL);
    if (bytes)
        memcpy(bytes, "ok", 3);
    vanoka_free(bytes);
}

int main(void) {
    answers();
    settings();
    typing();
    lists();
    candidates();
    readingOfCandidates();
    editor();
    suggesting();
    learnt();
    swiping();
    memory();
    vanoka_answer_release(answer);
    return failures != 0;
}
