#include "Randoms.h"

#include "singlish/SinglishScheme.h"
#include "singlish/SinglishTransliterator.h"

namespace vanoka::test {

namespace {

const std::vector<std::string>& builtInKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> all;
        for (const auto& [key, token] : SinglishTransliterator::builtInTokens())
            all.push_back(key);
        return all;
    }();
    return keys;
}

const std::vector<std::string>& strangePieces() {
    using namespace std::string_literals;
    static const std::vector<std::string> pieces = {
        " ",
        "1",
        ".",
        "\n",
        "\r",
        "\r\n",
        "\0"s,
        "\u0DCA",
        "\u200D",
        "\u0301",
        "k\u0301",
        "e\u0301",
        "\u00E9",
        "\u00C9",
        "\u212A",
        "\u0130",
        "\u0DD9",
        "\u0DCF",
        "\u0D9A",
        "\u0DBA",
        "\u0600",
        "\U0001F600",
        "\U0001F1F1\U0001F1F0",
        "\U0001F469\u200D\U0001F467",
        "\xE0",
        "\x80",
        "\xFF",
        "\xE0\xB6",
        "a\u0DCA",
        "K\u0301",
        "\uFEFF",
        "\u1100\u1161",
        "\uAC00",
        "\u0DDD",
        "\u0DD9\u0DCF\u0DCA",
    };
    return pieces;
}

} // namespace

std::string Randoms::keys(std::size_t mostKeys) {
    static const std::string letters = "aaaeiouAEIknndhgmbyrRzZHxTsSKq";
    std::string keys;
    for (std::size_t count = below(mostKeys + 1); count > 0; --count)
        keys += oneIn(3) ? std::string(1, letters[below(letters.size())]) : of(builtInKeys());
    return keys;
}

std::string Randoms::slipped(std::string letters) {
    const std::size_t at = below(letters.size());
    const bool isStruckOut = oneIn(3), isBefore = oneIn(2);
    const std::string other(1, static_cast<char>('a' + below(26)));
    return letters.replace(at, isStruckOut || !isBefore ? 1 : 0, isStruckOut ? "" : other);
}

std::string Randoms::text(std::size_t mostPieces) {
    std::string text;
    for (std::size_t count = below(mostPieces + 1); count > 0; --count)
        text += oneIn(3) ? of(strangePieces()) : keys(2);
    return text;
}

SinglishCustomization Randoms::customization() {
    SinglishCustomization customization;
    const auto letters = SinglishScheme::letters();
    for (std::size_t count = below(8); count > 0; --count) {
        std::string key = keys(3).substr(0, 6);
        if (!key.empty())
            customization.addedKeys.push_back({key, std::string(letters[below(letters.size())].id)});
    }
    for (std::size_t count = below(8); count > 0; --count)
        customization.disabledKeys.insert(oneIn(6) ? "a" : of(builtInKeys()));
    return customization;
}

SinglishCustomization Randoms::strangeCustomization() {
    SinglishCustomization customization = this->customization();
    const auto letters = SinglishScheme::letters();
    for (std::size_t count = below(6); count > 0; --count) {
        const std::string key = oneIn(4) ? of(strangePieces()) + keys(2) : oneIn(3) ? keys(9) : text(3);
        const std::string letter = oneIn(8) ? text(1) : std::string(letters[below(letters.size())].id);
        customization.addedKeys.push_back({key, letter});
    }
    for (std::size_t count = below(4); count > 0; --count)
        customization.disabledKeys.insert(text(2));
    if (oneIn(20))
        customization.disabledKeys.insert(builtInKeys().begin(), builtInKeys().end());
    return customization;
}

} // namespace vanoka::test
