#include "words/EmojiWords.h"

#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Sinhala.h"
#include "text/Utf8.h"
#include "words/CompactText.h"
#include "words/KeyedTexts.h"
#include "words/SinhalaSpelling.h"

#include <memory>

namespace vanoka {

namespace {

constexpr char separator = '\t'; // between a word and its emoji in what is kept: neither holds one

std::string sinhalaKey(std::string_view word) {
    return CompactText::compact(SinhalaSpelling::looseKey(word));
}

std::string englishKey(std::string_view word) {
    return CompactText::compact(text::nfc(text::lowercased(word)));
}

/// Appends the emoji of what is kept for one line.
void appendEmoji(std::string_view kept, std::vector<std::string>& emoji) {
    for (const std::string_view piece : text::piecesOf(kept.substr(kept.find(separator) + 1)))
        emoji.emplace_back(piece);
}

} // namespace

struct EmojiWords::Tables {
    KeyedTexts sinhala, english; ///< every line; which lines hold is decided where they are looked up
    std::int64_t count = 0;

    static std::shared_ptr<const Tables> read(std::string_view tsv);
};

EmojiWords::EmojiWords() : EmojiWords(std::string_view()) {}

EmojiWords::EmojiWords(std::string_view tsv) : tables_(Tables::read(tsv)) {}

std::shared_ptr<const EmojiWords::Tables> EmojiWords::Tables::read(std::string_view tsv) {
    KeyedTexts::Builder sinhala, english;
    text::forEachRow(tsv, [&](std::string_view word, std::string_view emoji) {
        const std::string kept = CompactText::compact(std::string(word) + separator + std::string(emoji));
        if (text::holdsSinhala(word))
            sinhala.add(sinhalaKey(word), kept);
        else
            english.add(englishKey(word), kept);
    });
    auto tables = std::make_shared<Tables>();
    tables->sinhala = sinhala.finish();
    tables->english = english.finish();
    tables->count =
        static_cast<std::int64_t>(tables->sinhala.groups().size() + tables->english.groups().size());
    return tables;
}

std::int64_t EmojiWords::count() const noexcept {
    return tables_->count;
}

std::vector<std::string> EmojiWords::emojiForSinhala(std::string_view word) const {
    auto found = matchForSinhala(word);
    return found ? std::move(found->emoji) : std::vector<std::string>();
}

std::optional<EmojiWords::Entry> EmojiWords::matchForSinhala(std::string_view word) const {
    if (!text::isWellFormed(word))
        return std::nullopt;
    const KeyedTexts::Range found = tables_->sinhala.equalTo(sinhalaKey(word));
    if (found.isEmpty())
        return std::nullopt;
    const std::string kept = tables_->sinhala.text(found.first);
    Entry entry = {kept.substr(0, kept.find(separator)), {}};
    appendEmoji(kept, entry.emoji);
    return entry;
}

std::vector<std::string> EmojiWords::emojiForEnglish(std::string_view word) const {
    if (!text::isWellFormed(word))
        return {};
    std::vector<std::string> emoji;
    const KeyedTexts::Range found = tables_->english.equalTo(englishKey(word));
    for (std::uint32_t number = found.first; number < found.end; ++number)
        appendEmoji(tables_->english.text(number), emoji);
    return emoji;
}

} // namespace vanoka
