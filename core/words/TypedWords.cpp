#include "words/TypedWords.h"

#include "text/LetterCase.h"
#include "text/Utf8.h"
#include "words/ReadingTables.h"
#include "words/WordReading.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace vanoka {

namespace {

constexpr std::size_t mostLetters = 96;

bool canBeRead(std::string_view letters) {
    return !letters.empty() && letters.size() <= mostLetters &&
           std::ranges::all_of(letters, text::isAsciiLetter);
}

std::size_t held(std::int64_t limit) {
    constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max();
    return static_cast<std::size_t>(std::min(static_cast<std::uint64_t>(limit), most));
}

std::shared_ptr<const ReadingTables> tablesOf(const Shared<SinhalaWordIndex>& index,
                                              TypedWords::Unlisted unlisted) {
    WordTrie words(index);
    std::optional<LetterSequences> sequences;
    if (unlisted != TypedWords::Unlisted::none)
        sequences.emplace(words, static_cast<std::size_t>(unlisted));
    return std::make_shared<const ReadingTables>(ReadingTables{std::move(words), std::move(sequences)});
}

} // namespace

TypedWords::TypedWords(const SinhalaWordList& list, Unlisted unlisted)
    : tables_(tablesOf(list.index_, unlisted)) {}

std::vector<std::string> TypedWords::wordsTyped(std::string_view letters, std::int64_t limit,
                                                const TypedWords* personal, const LetterReadings& readings,
                                                ReadingMemory* memory, Spelling spelling) const {
    if (!canBeRead(letters) || limit < 1)
        return {};
    ReadingMemory own;
    CopiedEmpty<WordReading>& known = (memory ? *memory : own).reading_;
    const auto added = personal ? std::optional(personal->tables_) : std::nullopt;
    WordReading* reading = known.get();
    if (!reading || !reading->isOf(tables_, added, readings))
        reading = &known.make(tables_, added, readings);
    return reading->words(text::lowercased(letters), held(limit), spelling == Spelling::sinhalaOrEnglish);
}

std::size_t TypedWords::memory() const noexcept {
    return tables_->words.memory() + (tables_->sequences ? tables_->sequences->memory() : 0);
}

} // namespace vanoka
