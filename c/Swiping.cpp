#include "Answer.h"
#include "Arguments.h"
#include "swipe/SwipeDecoder.h"
#include "swipe/SwipeLayout.h"
#include "text/Characters.h"
#include "text/Rows.h"
#include "vanoka.h"
#include "words/EnglishWordList.h"
#include "words/ListReading.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <vector>

using namespace vanoka;
using namespace vanoka::c;

struct vanoka_layout {
    SwipeLayout layout;
};

struct vanoka_counts {
    SwipeDecoder::Personal words;
};

struct vanoka_decoder {
    SwipeDecoder decoder;
};

namespace {

/// Places as callers pass them: x and y of each.
struct Points {
    const double* numbers = nullptr;
    std::size_t count = 0;

    SwipePoint operator[](std::size_t at) const noexcept { return {numbers[2 * at], numbers[2 * at + 1]}; }
};

vanoka_status problemOf(const Points& points) {
    if (!points.numbers && points.count > 0)
        return VANOKA_BAD_ARGUMENT;
    if (points.count > VANOKA_MOST_POINTS)
        return VANOKA_TOO_LARGE;
    const std::span numbers(points.numbers, 2 * points.count);
    const bool areFinite = std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); });
    return areFinite ? VANOKA_OK : VANOKA_BAD_ARGUMENT;
}

/// Nothing when there are not as many labels as centres.
std::optional<SwipeKeys> keysOf(std::string_view labels, const Points& centers) {
    SwipeKeys keys;
    std::size_t at = 0;
    for (const std::string_view label : text::Characters(labels)) {
        if (at == centers.count)
            return std::nullopt;
        keys.insert_or_assign(std::string(label), centers[at++]);
    }
    return at == centers.count ? std::optional(std::move(keys)) : std::nullopt;
}

/// The texts of several lists.
struct Lists {
    const char* const* starts = nullptr;
    const std::size_t* sizes = nullptr;
    std::size_t count = 0;

    List operator[](std::size_t at) const noexcept { return {starts[at], sizes[at]}; }
};

vanoka_status problemOf(const Lists& lists) {
    if (lists.count > VANOKA_MOST_LISTS)
        return VANOKA_TOO_LARGE;
    if (lists.count > 0 && (!lists.starts || !lists.sizes))
        return VANOKA_BAD_ARGUMENT;
    std::size_t together = 0;
    for (std::size_t at = 0; at < lists.count; ++at) {
        if (const vanoka_status problem = firstProblem(lists[at]); problem != VANOKA_OK)
            return problem;
        together += lists.sizes[at];
        if (together > VANOKA_LARGEST_LIST)
            return VANOKA_TOO_LARGE;
    }
    return VANOKA_OK;
}

/// Chat words rank with the commonest words of their list, also those that have a count of their own: of a
/// word that stands twice the first counts.
void appendWords(std::string_view list, std::vector<SwipeDecoder::Word>& words) {
    std::vector<std::string_view> chat;
    std::vector<SwipeDecoder::Word> counted;
    std::int64_t largest = 1;
    text::forEachRow(ListReading::withoutByteOrderMark(list),
                     [&](std::string_view word, std::string_view field) {
                         if (field == EnglishWordList::chatField) {
                             chat.push_back(word);
                         } else if (const auto count = text::integer(field)) {
                             counted.push_back({word, *count});
                             largest = std::max(largest, *count);
                         }
                     });
    for (const std::string_view word : chat)
        words.push_back({word, largest});
    words.insert(words.end(), counted.begin(), counted.end());
}

SwipeDecoder decoderOf(const Lists& lists, SwipeWeights weights) {
    std::vector<SwipeDecoder::Word> words;
    for (std::size_t at = 0; at < lists.count; ++at)
        appendWords(lists[at].view(), words);
    return SwipeDecoder(words, weights);
}

SwipeDecoder::Personal countsOf(std::string_view list) {
    SwipeDecoder::Personal words;
    text::forEachRow(
        ListReading::withoutByteOrderMark(list), [&](std::string_view word, std::string_view field) {
            if (const auto count = text::integer(field))
                words.insert_or_assign(std::string(word),
                                       std::clamp<std::int64_t>(*count, 0, ListReading::largestCount));
        });
    return words;
}

} // namespace

vanoka_status vanoka_layout_create(const char* labels, std::size_t size, const double* centers,
                                   std::size_t keys, vanoka_layout** layout) {
    std::optional<SwipeKeys> made;
    return creating(
        layout,
        [&] {
            const Text text(labels, size);
            const Points points = {centers, keys};
            if (const auto problem = firstProblem(text); problem != VANOKA_OK)
                return problem;
            if (const auto problem = problemOf(points); problem != VANOKA_OK)
                return problem;
            made = keysOf(text.view(), points);
            return made ? vanoka_status{VANOKA_OK} : VANOKA_BAD_ARGUMENT;
        },
        [&] { return new vanoka_layout{SwipeLayout(*made)}; });
}

void vanoka_layout_release(vanoka_layout* layout) {
    delete layout;
}

vanoka_status vanoka_counts_create(const char* list, std::size_t size, vanoka_counts** counts) {
    const List file(list, size);
    return creating(
        counts, [&] { return firstProblem(file); }, [&] { return new vanoka_counts{countsOf(file.view())}; });
}

void vanoka_counts_release(vanoka_counts* counts) {
    delete counts;
}

std::int64_t vanoka_counts_size(const vanoka_counts* counts) {
    return counts ? static_cast<std::int64_t>(counts->words.size()) : 0;
}

vanoka_status vanoka_decoder_create(const char* const* lists, const std::size_t* sizes, std::size_t count,
                                    vanoka_decoder** decoder) {
    return vanoka_decoder_create_weighing(lists, sizes, count, VANOKA_BY_DISTANCE, decoder);
}

vanoka_status vanoka_decoder_create_weighing(const char* const* lists, const std::size_t* sizes,
                                             std::size_t count, vanoka_weights weights,
                                             vanoka_decoder** decoder) {
    const Lists all = {lists, sizes, count};
    const bool areByPeople = weights == VANOKA_BY_PEOPLE;
    return creating(
        decoder,
        [&] {
            const auto problem = problemOf(all);
            return problem == VANOKA_OK && !areByPeople && weights != VANOKA_BY_DISTANCE
                       ? vanoka_status{VANOKA_BAD_ARGUMENT}
                       : problem;
        },
        [&] {
            return new vanoka_decoder{
                decoderOf(all, areByPeople ? SwipeWeights::people : SwipeWeights::specified)};
        });
}

void vanoka_decoder_release(vanoka_decoder* decoder) {
    delete decoder;
}

std::int64_t vanoka_decoder_size(const vanoka_decoder* decoder) {
    return decoder ? static_cast<std::int64_t>(decoder->decoder.count()) : 0;
}

std::size_t vanoka_decoder_memory(const vanoka_decoder* decoder) {
    if (!decoder)
        return 0;
    const SwipeDecoder::Memory memory = decoder->decoder.memory();
    return memory.pool + memory.overhead;
}

vanoka_status vanoka_decoder_decode(const vanoka_decoder* decoder, const vanoka_layout* layout,
                                    const double* points, std::size_t count, double key_width,
                                    std::int32_t limit, const vanoka_counts* counts, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Points given = {points, count};
        if (const auto problem = firstProblem(decoder, layout); problem != VANOKA_OK)
            return problem;
        if (const auto problem = problemOf(given); problem != VANOKA_OK)
            return problem;
        if (!(key_width > 0) || !std::isfinite(key_width))
            return vanoka_status{VANOKA_BAD_ARGUMENT};
        const SwipeDecoder::Personal none;
        std::vector<SwipePoint> stroke(count);
        for (std::size_t at = 0; at < count; ++at)
            stroke[at] = given[at];
        reply.addAll(VANOKA_WORD, decoder->decoder.wordsFor(stroke, layout->layout, key_width,
                                                            std::min(limit, VANOKA_MOST_RESULTS),
                                                            counts ? counts->words : none, &answer->strokes));
        return vanoka_status{VANOKA_OK};
    });
}
