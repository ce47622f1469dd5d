#include "Candidates.h"

#include "Answer.h"
#include "Arguments.h"
#include "CandidateKinds.h"
#include "Lists.h"
#include "Settings.h"
#include "text/Rows.h"
#include "vanoka.h"
#include "words/ListReading.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

using namespace vanoka;
using namespace vanoka::c;

struct vanoka_candidates {
    SuggestionLists lists;
    std::optional<std::int32_t> letters; ///< of the reading, if there is one
    LetterReadings readings;
};

namespace {

using EnglishUse = PersonalWords::EnglishUse;

/// Reads how often words were meant in one of both ways; the last count of a word holds.
void readUses(std::string_view list, std::int64_t EnglishUse::* times, PersonalWords& words) {
    text::forEachRow(ListReading::withoutByteOrderMark(list),
                     [&](std::string_view word, std::string_view field) {
                         if (const auto count = text::integer(field))
                             words.english[std::string(word)].*times = ListReading::held(*count);
                     });
}

/// The list of a handle, or an empty one.
template <class Handle>
auto listOf(const Handle* handle) {
    return handle ? handle->list : decltype(handle->list)();
}

/// What the number of letters stands for; nothing for other numbers.
std::optional<TypedWords::Unlisted> unlistedOf(std::int32_t letters) {
    for (const auto each :
         {TypedWords::Unlisted::none, TypedWords::Unlisted::fourLetters, TypedWords::Unlisted::sixLetters})
        if (letters == static_cast<std::int32_t>(each))
            return each;
    return std::nullopt;
}

} // namespace

vanoka_status vanoka_personal_create(const vanoka_words* sinhala, const char* kept, std::size_t kept_size,
                                     const char* typed, std::size_t typed_size, vanoka_personal** personal) {
    const List keptList(kept, kept_size), typedList(typed, typed_size);
    return creating(
        personal, [&] { return firstProblem(keptList, typedList); },
        [&] {
            PersonalWords words{.sinhala = listOf(sinhala)};
            readUses(keptList.view(), &EnglishUse::kept, words);
            readUses(typedList.view(), &EnglishUse::typedInSinhala, words);
            return new vanoka_personal{std::move(words)};
        });
}

void vanoka_personal_release(vanoka_personal* personal) {
    delete personal;
}

vanoka_status vanoka_candidates_create(const vanoka_words* words, const vanoka_english* english,
                                       const vanoka_emoji* emoji, const char* never, std::size_t never_size,
                                       vanoka_candidates** candidates) {
    const List neverList(never, never_size);
    return creating(
        candidates, [&] { return firstProblem(neverList); },
        [&] {
            return new vanoka_candidates{{listOf(words), listOf(english), listOf(emoji),
                                          NeverOffered(ListReading::withoutByteOrderMark(neverList.view()))}};
        });
}

vanoka_status vanoka_candidates_reading(const vanoka_candidates* candidates, std::int32_t letters,
                                        const vanoka_settings* settings, vanoka_candidates** reading) {
    const auto unlisted = unlistedOf(letters);
    return creating(
        reading, [&] { return unlisted ? firstProblem(candidates) : vanoka_status{VANOKA_BAD_ARGUMENT}; },
        [&] {
            vanoka_candidates read = *candidates;
            if (read.letters != letters) // else only the keys are others
                read.lists = withReading(std::move(read.lists), *unlisted);
            read.letters = letters;
            read.readings =
                settings ? LetterReadings(settings->shared->keys.customization()) : LetterReadings();
            return new vanoka_candidates(std::move(read));
        });
}

void vanoka_candidates_release(vanoka_candidates* candidates) {
    delete candidates;
}

vanoka_status vanoka_candidates_find(const vanoka_candidates* candidates, const vanoka_personal* personal,
                                     const char* keys, std::size_t keys_size, const char* preview,
                                     std::size_t preview_size, std::int32_t limit, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text typed(keys, keys_size), shown(preview, preview_size);
        if (const auto problem = firstProblem(candidates, typed, shown); problem != VANOKA_OK)
            return problem;
        const TypedWord word = {std::string(typed.view()), std::string(shown.view())};
        const auto most = static_cast<std::size_t>(std::max(limit, 0));
        for (const Candidate& row :
             candidatesFor(word, candidates->lists, personal ? &personal->words : nullptr, most,
                           candidates->readings, &answer->reading))
            addCandidate(reply, row);
        return vanoka_status{VANOKA_OK};
    });
}
