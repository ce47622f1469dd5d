#include "words/EnglishWordList.h"

#include "support/Checked.h"
#include "support/Growth.h"
#include "text/Characters.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Utf8.h"
#include "words/CompactText.h"
#include "words/KeyedTexts.h"
#include "words/ListReading.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace vanoka {

namespace {

constexpr std::int64_t leastCountKept = 500; // rarer English words are likelier to be Sinhala
constexpr std::int64_t lead = 2;             // times as common as the Sinhala word must an English one be
constexpr std::size_t shortestKept = 2;      // in characters

/// The key of a word: equal for canonically equivalent ones.
std::string keyOf(std::string_view word) {
    return CompactText::compact(text::nfc(word));
}

} // namespace

struct EnglishWordList::Tables {
    KeyedTexts words;
    std::vector<std::int64_t> counts; ///< by number of the word; the last one of equal words holds
    KeyedTexts chat;
    std::int64_t count = 0;
};

class EnglishWordList::Builder {
public:
    void addWord(std::string_view word, std::int64_t count) {
        if (!words_.add(keyOf(word), CompactText::compact(word))) // out of reach: takes 4 GiB of words
            return;
        makeRoom(counts_, 1);
        counts_.push_back(count);
    }

    /// `countOf` says what a count in the text becomes.
    template <class CountOf>
    void addRows(std::string_view tsv, CountOf countOf) {
        text::forEachRow(tsv, [&](std::string_view word, std::string_view field) {
            if (field == chatField)
                addChat(word);
            else if (const auto count = text::integer(field))
                addWord(word, countOf(*count));
        });
    }

    void addChat(std::string_view word) { chat_.add(keyOf(word), CompactText::compact(word)); }

    std::shared_ptr<const Tables> finish() {
        auto tables = std::make_shared<Tables>();
        std::vector<std::uint32_t> order;
        tables->words = words_.finish(order);
        for (const std::uint32_t added : order)
            tables->counts.push_back(counts_[added]);
        tables->chat = chat_.finish();
        tables->count =
            static_cast<std::int64_t>(tables->words.groups().size() + tables->chat.groups().size());
        return tables;
    }

private:
    KeyedTexts::Builder words_, chat_;
    std::vector<std::int64_t> counts_;
};

EnglishWordList::EnglishWordList(Builder builder) : tables_(builder.finish()) {}

EnglishWordList::EnglishWordList() : EnglishWordList(Builder()) {}

EnglishWordList::EnglishWordList(const Counts& counts, const Chat& chat)
    : EnglishWordList([&] {
          Builder builder;
          for (const auto& [word, count] : counts)
              if (text::isWellFormed(word))
                  builder.addWord(word, count);
          for (const std::string& word : chat)
              if (text::isWellFormed(word))
                  builder.addChat(word);
          return builder;
      }()) {}

EnglishWordList::EnglishWordList(std::string_view tsv)
    : EnglishWordList([&] {
          Builder builder;
          builder.addRows(tsv, std::identity());
          return builder;
      }()) {}

EnglishWordList EnglishWordList::ofFile(std::string_view contents) {
    Builder builder;
    builder.addRows(ListReading::withoutByteOrderMark(contents), ListReading::held);
    return EnglishWordList(std::move(builder));
}

std::int64_t EnglishWordList::count() const noexcept {
    return tables_->count;
}

std::vector<WordCount> EnglishWordList::words() const {
    std::vector<WordCount> words;
    std::int64_t largest = 1;
    std::vector<std::uint32_t> groups = tables_->words.groups();
    groups.push_back(tables_->words.size());
    for (std::size_t i = 0; i + 1 < groups.size(); ++i) {
        const std::int64_t count = tables_->counts[groups[i + 1] - 1];
        largest = i == 0 ? count : std::max(largest, count);
        words.push_back({tables_->words.text(groups[i]), count});
    }
    for (const std::uint32_t number : tables_->chat.groups())
        words.push_back({tables_->chat.text(number), largest});
    return words;
}

std::int64_t EnglishWordList::countOf(std::string_view word) const {
    if (!text::isWellFormed(word))
        return 0;
    const KeyedTexts::Range found = tables_->words.equalTo(keyOf(text::lowercased(word)));
    return found.isEmpty() ? 0 : tables_->counts[found.end - 1];
}

bool EnglishWordList::contains(std::string_view word) const {
    if (!text::isWellFormed(word))
        return false;
    const std::string key = keyOf(text::lowercased(word));
    return !tables_->words.equalTo(key).isEmpty() || !tables_->chat.equalTo(key).isEmpty();
}

bool EnglishWordList::keepsEnglish(std::string_view word, std::string_view over,
                                   const SinhalaWordList& sinhala, std::int64_t keptInEnglish,
                                   std::int64_t typedInSinhala) const {
    if (text::characterCount(word) < shortestKept)
        return false;
    if (keptInEnglish != typedInSinhala)
        return keptInEnglish > typedInSinhala;
    if (!text::isWellFormed(word))
        return false;
    if (!tables_->chat.equalTo(keyOf(text::lowercased(word))).isEmpty())
        return true;
    const std::int64_t count = countOf(word);
    if (count < leastCountKept)
        return false;
    return count > checked::product(sinhala.countOfSpelling(over), lead);
}

} // namespace vanoka
