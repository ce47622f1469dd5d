#include "Lists.h"

#include "Answer.h"
#include "Arguments.h"
#include "text/Sinhala.h"
#include "vanoka.h"
#include "words/ListReading.h"

#include <algorithm>

using namespace vanoka;
using namespace vanoka::c;

static_assert(VANOKA_MOST_RESULTS == ListReading::mostResults);

vanoka_status vanoka_words_create(const char* list, std::size_t size, vanoka_words** words) {
    const List file(list, size);
    return creating(
        words, [&] { return firstProblem(file); },
        [&] { return new vanoka_words{SinhalaWordList::ofFile(file.view())}; });
}

void vanoka_words_release(vanoka_words* words) {
    delete words;
}

std::int64_t vanoka_words_size(const vanoka_words* words) {
    return words ? words->list.size() : 0;
}

std::size_t vanoka_words_memory(const vanoka_words* words) {
    return words ? words->list.memory() : 0;
}

vanoka_status vanoka_words_suggest(const vanoka_words* words, const vanoka_words* personal, const char* text,
                                   std::size_t size, std::int32_t limit, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text typed(text, size);
        if (const auto problem = firstProblem(words, typed); problem != VANOKA_OK)
            return problem;
        reply.addAll(VANOKA_WORD,
                     words->list.suggestionsFor(typed.view(), std::min(limit, VANOKA_MOST_RESULTS),
                                                personal ? &personal->list : nullptr));
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_english_create(const char* list, std::size_t size, vanoka_english** english) {
    const List file(list, size);
    return creating(
        english, [&] { return firstProblem(file); },
        [&] { return new vanoka_english{EnglishWordList::ofFile(file.view())}; });
}

void vanoka_english_release(vanoka_english* english) {
    delete english;
}

std::int64_t vanoka_english_size(const vanoka_english* english) {
    return english ? english->list.count() : 0;
}

vanoka_status vanoka_english_keeps(const vanoka_english* english, const char* word, std::size_t word_size,
                                   const char* over, std::size_t over_size, const vanoka_words* words,
                                   std::int64_t kept, std::int64_t typed, std::int32_t* keeps) {
    if (keeps)
        *keeps = 0;
    return guarded([&] {
        const Text keys(word, word_size), sinhala(over, over_size);
        if (const auto problem = firstProblem(english, words, keeps, keys, sinhala); problem != VANOKA_OK)
            return problem;
        const bool stays = english->list.keepsEnglish(keys.view(), sinhala.view(), words->list, kept, typed);
        *keeps = stays ? 1 : 0;
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_emoji_create(const char* list, std::size_t size, vanoka_emoji** emoji) {
    const List file(list, size);
    return creating(
        emoji, [&] { return firstProblem(file); },
        [&] { return new vanoka_emoji{EmojiWords(ListReading::withoutByteOrderMark(file.view()))}; });
}

void vanoka_emoji_release(vanoka_emoji* emoji) {
    delete emoji;
}

std::int64_t vanoka_emoji_size(const vanoka_emoji* emoji) {
    return emoji ? emoji->list.count() : 0;
}

vanoka_status vanoka_emoji_match(const vanoka_emoji* emoji, const char* word, std::size_t size,
                                 vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text text(word, size);
        if (const auto problem = firstProblem(emoji, text); problem != VANOKA_OK)
            return problem;
        if (!text::holdsSinhala(text.view())) {
            reply.addAll(VANOKA_EMOJI, emoji->list.emojiForEnglish(text.view()));
        } else if (const auto match = emoji->list.matchForSinhala(text.view())) {
            reply.add(VANOKA_WORD, match->word);
            reply.addAll(VANOKA_EMOJI, match->emoji);
        }
        return vanoka_status{VANOKA_OK};
    });
}
