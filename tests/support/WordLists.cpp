#include "WordLists.h"

#include "text/Utf8.h"
#include "words/SinhalaWordIndex.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_set>

namespace vanoka::test {

namespace {

/// Letters in the order of how common they are; the first ones are drawn most.
constexpr std::u32string_view consonants = U"නයවකරතමසලගදපහටබණජශචඩධළෂභඳථඛඝඟඹඤඵෆඨඥඡඞඬ";
constexpr std::u32string_view vowels = U"අඉඋඑආඔඇඊඒඌඕඈඓඖඍ";
constexpr std::u32string_view signs =
    U"\u0DD2\u0DCF\u0DD4\u0DD9\u0DDA\u0DD3\u0DD0\u0DDC\u0DDD\u0DD6\u0DD1\u0DDB\u0DD8";
constexpr char32_t virama = 0x0DCA, anusvara = 0x0D82, joiner = 0x200D;

/// The early ones of `letters` far more often than the late ones.
char32_t skewed(Randoms& randoms, std::u32string_view letters) {
    const std::size_t bound = 1 + randoms.below(letters.size());
    return letters[randoms.below(1 + randoms.below(bound))];
}

std::string sinhalaLikeWord(Randoms& randoms) {
    std::string word;
    const std::size_t syllables = 1 + randoms.below(3) + randoms.below(4);
    if (randoms.oneIn(5))
        word += text::utf8(skewed(randoms, vowels));
    for (std::size_t i = 0; i < syllables; ++i) {
        word += text::utf8(skewed(randoms, consonants));
        if (randoms.oneIn(8)) {
            word += text::utf8(virama);
            if (randoms.oneIn(3))
                word += text::utf8(joiner) + text::utf8(randoms.oneIn(2) ? U'\u0DBB' : U'\u0DBA');
            else
                word += text::utf8(skewed(randoms, consonants));
        }
        if (randoms.below(10) < 6)
            word += text::utf8(skewed(randoms, signs));
        else if (randoms.oneIn(12))
            word += text::utf8(anusvara);
    }
    if (randoms.oneIn(6))
        word += text::utf8(skewed(randoms, consonants)) + text::utf8(virama);
    return word;
}

} // namespace

std::vector<WordCount> sinhalaLikeWords(std::size_t count) {
    Randoms randoms(20261121);
    std::unordered_set<std::string> known;
    std::vector<WordCount> words;
    words.reserve(count);
    while (words.size() < count) {
        std::string word = sinhalaLikeWord(randoms);
        if (!known.insert(word).second)
            continue;
        const double rank = static_cast<double>(words.size()) + 3;
        words.push_back({std::move(word), 1 + static_cast<std::int64_t>(2e7 / rank)});
    }
    return words;
}

WordTrie trieOf(const std::vector<WordCount>& words) {
    SinhalaWordIndex::Builder builder;
    for (const auto& [word, count] : words)
        builder.add(word, count);
    return WordTrie(Shared<SinhalaWordIndex>(std::make_shared<const SinhalaWordIndex>(builder.finish())));
}

std::string tsvOf(const std::vector<WordCount>& words) {
    std::string tsv;
    for (const auto& [word, count] : words)
        tsv += word + "\t" + std::to_string(count) + "\n";
    return tsv;
}

std::string strangeWord(Randoms& randoms, std::size_t mostScalars) {
    static const std::vector<std::string> usual = {
        "\u0D9A", "\u0D9A", "\u0D9B", "\u0D9C", "\u0DBB", "\u0DBA", "\u0DB8", "\u0DB1", "\u0DAD",
        "\u0DCA", "\u0DCA", "\u0DCF", "\u0DD2", "\u0DD3", "\u0DD4", "\u0D85", "\u0D86", "\u0D82",
    };
    static const std::vector<std::string> unusual = {
        "\u200D",       "\u200C",     "\u0DD9", "\u0DDA", "\u0DD9\u0DCA", "\u0DD9\u0DCF", "\u0DDD",
        "\u0DDC\u0DCA", "\u0D9F",     "\u0DB9", "\u0DF2", "\u0D83",       "\u0D81",       "\u0D80",
        "\u0DFF",       "\u0DD5",     "k",      "K",      "\u212A",       "e\u0301",      "\u00E9",
        "\u0301",       "\U0001F600", "\u0E01", "\u0D7F", "\uFFFD",       "\u00CAx",      " ",
        "\u01C5",       "\u0130",     "\u02CA", "\u0DDB",
    };
    std::string word;
    for (std::size_t count = randoms.below(mostScalars + 1); count > 0; --count)
        word += randoms.oneIn(5) ? randoms.of(unusual) : randoms.of(usual);
    return word;
}

std::vector<WordCount> strangeWords(Randoms& randoms, std::size_t most) {
    std::vector<WordCount> words;
    for (std::size_t count = randoms.below(most + 1); count > 0; --count) {
        std::int64_t value = static_cast<std::int64_t>(randoms.below(9)) - 2;
        if (randoms.oneIn(10))
            value *= 20'000'000'000'000'000; // three times and then some still fits
        if (!words.empty() && randoms.oneIn(6))
            words.push_back({randoms.of(words).word, value});
        else
            words.push_back({strangeWord(randoms, 5), value});
    }
    return words;
}

std::string strangeTsv(Randoms& randoms, std::size_t mostLines) {
    static const std::vector<std::string> lineEnds = {"\n",   "\n", "\n",     "\n",      "\n\n",
                                                      "\r\n", "\r", "\r\r\n", "\n\u0301"};
    static const std::vector<std::string> gaps = {"\t", "\t",    "\t",       "\t\t",
                                                  " ",  "\t \t", "\t\u0301", "\t\u200D"};
    static const std::vector<std::string> fields = {
        "1",          "499",
        "500",        "1000",
        "+5",         "-7",
        "12x",        "",
        "+",          "--1",
        "+-1",        "chat",
        "chat ",      "Chat",
        "1 ",         " 1",
        "0",          "-0",
        "007",        "1\r",
        "1e3",        "\u0967",
        "1\u0301",    "9223372036854775808",
        "\U0001F600", "\U0001F600 \u2764\uFE0F",
        "  a  b ",    " \u0301 c",
        " ",          "\xFF",
    };
    static const std::vector<std::string> starts = {"",  "",        "",   "",         "",      "",
                                                    "#", "#\u0301", "\t", "\xE0\xB6", "\uFEFF"};
    std::string tsv;
    for (std::size_t count = randoms.below(mostLines + 1); count > 0; --count) {
        tsv += randoms.of(starts);
        tsv += randoms.oneIn(3) ? std::string(randoms.oneIn(2) ? "ok" : "Ok") : strangeWord(randoms, 3);
        tsv += randoms.of(gaps) + randoms.of(fields);
        if (randoms.oneIn(8))
            tsv += randoms.of(gaps) + randoms.of(fields);
        tsv += randoms.of(lineEnds);
    }
    return tsv;
}

} // namespace vanoka::test
