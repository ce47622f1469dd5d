#include "PlainTwin.h"

#include "singlish/SinglishComposer.h"
#include "text/Characters.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <optional>
#include <span>
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

/// A key at the start of `characters`.
std::optional<Match> longestMatch(const Keys& keys, std::span<const std::string> characters) {
    for (std::size_t length = std::min(characters.size(), keys.longest); length >= 1; --length) {
        std::string candidate;
        for (const std::string& character : characters.first(length))
            candidate += character;
        if (const auto found = keys.tokens.find(text::nfc(candidate)); found != keys.tokens.end())
            return Match{found->second, length};
    }
    return std::nullopt;
}

} // namespace

Keys::Keys(const SinglishTransliterator& transliterator) {
    for (const auto& [key, token] : transliterator.tokens()) {
        tokens.emplace(text::nfc(key), token);
        longest = std::max(longest, text::characterCount(key));
    }
}

std::string transliterate(const Keys& keys, std::string_view text) {
    const std::vector<std::string> characters = charactersOf(text);
    std::string output;
    std::optional<std::string> pending;
    std::size_t at = 0;
    while (at < characters.size()) {
        const auto rest = std::span(characters).subspan(at);
        auto match = longestMatch(keys, rest);
        if (!match && text::isUppercase(rest.front())) {
            const auto most = rest.first(std::min(rest.size(), keys.longest));
            std::vector<std::string> copy(most.begin(), most.end());
            if (!copy.empty())
                copy.front() = text::lowercased(copy.front());
            match = longestMatch(keys, copy);
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

std::string deleteBackward(const Keys& keys, const std::string& raw) {
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
