#include "Fuzz.h"
#include "PlainWords.h"
#include "text/Utf8.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

#include <algorithm>

using namespace vanoka;
namespace plain = vanoka::test::plain;

/// The three readers, given one text: they read what the plain ones read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, std::min<std::size_t>(size, 4096));
    const std::string word = input.text(20);
    const std::string tsv = input.rest();
    const bool isWellFormed = text::isWellFormed(word);

    const SinhalaWordList sinhala(tsv);
    const auto plainSinhala = plain::SinhalaWords::read(tsv);
    fuzz::expect(sinhala.words() == plainSinhala.words(), "the same Sinhala words");
    fuzz::expect(sinhala.typicalCount() == plainSinhala.typicalCount(), "the same typical count");
    if (isWellFormed)
        fuzz::expect(sinhala.countOfSpelling(word) == plainSinhala.countOfSpelling(word), "the same count");

    const EnglishWordList english(tsv);
    const auto plainEnglish = plain::EnglishWords::read(tsv);
    fuzz::expect(english.count() ==
                     static_cast<std::int64_t>(plainEnglish.counts.size() + plainEnglish.chat.size()),
                 "as many English words");
    fuzz::expect(english.words().size() == static_cast<std::size_t>(english.count()), "each is given out");
    fuzz::expect(english.countOf(word) == plainEnglish.countOf(word), "the same English count");

    const EmojiWords emoji(tsv);
    const auto plainEmoji = plain::EmojiTable::read(tsv);
    fuzz::expect(emoji.count() ==
                     static_cast<std::int64_t>(plainEmoji.sinhala.size() + plainEmoji.english.size()),
                 "as many words with emoji");
    fuzz::expect(emoji.emojiForEnglish(word) == plainEmoji.emojiForEnglish(word), "the same English emoji");
    if (isWellFormed)
        fuzz::expect(emoji.matchForSinhala(word) == plainEmoji.matchForSinhala(word),
                     "the same Sinhala emoji");
    return 0;
}
