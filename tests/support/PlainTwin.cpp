#include "PlainTwin.h"

#include "singlish/SinglishComposer.h"
#include "text/Characters.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vanoka::test::plain {

namespace {

using Token = SinglishToken;

struct Match {
    Token token;
    std::size_t length;
};

std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (const std::string_view character : text::Characters(text))
        characters.emplace_back(character);
    return characters;
}

std::size_t longestKey(const SinglishTransliterator& keys) {
    std::size_t longest = 0;
    for (const auto& [key, token] : keys.tokens())
        longest = std::max(longest, text::characterCount(key));
    return longest;
}

std::optional<Match> longestMatch(const SinglishTransliterator& keys, std::size_t longest,
                                  const std::vector<std::string>& characters, std::size_t at) {
    for (std::size_t length = std::min(characters.size() - at, longest); length >= 1; --length) {
        std::string candidate;
        for (std::size_t i = 0; i < length; ++i)
            candidate += characters[at + i];
        if (const auto found = keys.tokens().find(candidate); found != keys.tokens().end())
            return Match{found->second, length};
    }
    return std::nullopt;
}

} // namespace

std::string transliterate(const SinglishTransliterator& keys, std::string_view text) {
    const std::vector<std::string> characters = charactersOf(text);
    const std::size_t longest = longestKey(keys);
    std::string output;
    std::optional<std::string> pending;
    std::size_t at = 0;
    while (at < characters.size()) {
        auto match = longestMatch(keys, longest, characters, at);
        if (!match && text::isUppercase(characters[at])) {
            auto copy = characters;
            copy[at] = text::lowercased(copy[at]);
            match = longestMatch(keys, longest, copy, at);
        }
        if (!match) {
            if (pending)
                output += "\u0DCA";
            output += characters[at];
            pending.reset();
            at += 1;
            continue;
        }
        at += match->length;
        const std::string letter(match->token.letter);
        switch (match->token.kind) {
        case Token::Kind::consonant:
            if (pending) {
                output += "\u0DCA";
                if ((letter == "\u0DBA" || letter == "\u0DBB") && letter != *pending)
                    output += "\u200D";
            }
            output += letter;
            pending = letter;
            break;
        case Token::Kind::vowel:
            output += pending ? std::string(match->token.sign) : letter;
            pending.reset();
            break;
        case Token::Kind::mark:
            output += letter;
            pending.reset();
            break;
        }
    }
    if (pending)
        output += "\u0DCA";
    return output;
}

std::string deleteBackward(const SinglishTransliterator& keys, const std::string& raw) {
    const std::string preview = transliterate(keys, raw);
    const std::string target(withoutLastPart(preview));
    std::string candidate = raw;
    for (;;) {
        for (const std::string& tried : {candidate, candidate + "a"})
            if (!text::equal(tried, raw) && text::equal(transliterate(keys, tried), target))
                return tried;
        if (candidate.empty())
            return std::string(text::withoutLastCharacter(raw));
        candidate = std::string(text::withoutLastCharacter(candidate));
    }
}

} // namespace vanoka::test::plain
