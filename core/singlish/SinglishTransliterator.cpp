#include "singlish/SinglishTransliterator.h"

#include "singlish/SinglishReader.h"
#include "singlish/SinglishScheme.h"
#include "singlish/SinglishStream.h"
#include "singlish/SinglishTransducer.h"
#include "text/Characters.h"
#include "text/Utf8.h"

#include <algorithm>
#include <memory>

namespace vanoka {

namespace {

using Token = SinglishTransliterator::Token;
using Tokens = SinglishTransliterator::Tokens;

Tokens tokensOfScheme() {
    Tokens tokens;
    for (const auto& vowel : SinglishScheme::vowels())
        for (const std::string_view key : vowel.keys)
            tokens.insert_or_assign(std::string(key), Token::vowel(vowel.letter, vowel.sign));
    for (const auto& consonant : SinglishScheme::consonants())
        for (const std::string_view key : consonant.keys)
            tokens.insert_or_assign(std::string(key), Token::consonant(consonant.letter));
    for (const auto& mark : SinglishScheme::marks())
        for (const std::string_view key : mark.keys)
            tokens.insert_or_assign(std::string(key), Token::mark(mark.sign));
    return tokens;
}

Tokens tokensOf(const SinglishCustomization& customization) {
    Tokens tokens = SinglishTransliterator::builtInTokens();
    for (const std::string& key : customization.disabledKeys)
        if (const auto found = tokens.find(key); found != tokens.end())
            tokens.erase(found);
    for (const auto& [key, letter] : customization.addedKeys) {
        const auto& byLetter = SinglishTransliterator::tokensByLetter();
        if (const auto found = byLetter.find(letter); found != byLetter.end())
            tokens.insert_or_assign(key, found->second);
    }
    return tokens;
}

KeyTrie trieOf(const Tokens& tokens) {
    KeyTrie trie;
    for (const auto& [key, token] : tokens)
        trie.insert(key, token);
    return trie;
}

std::int64_t longestOf(const Tokens& tokens) {
    if (tokens.empty())
        return 1;
    std::size_t longest = 0;
    for (const auto& [key, token] : tokens)
        longest = std::max(longest, text::characterCount(key));
    return static_cast<std::int64_t>(longest);
}

} // namespace

struct SinglishTransliterator::Keys {
    explicit Keys(Tokens keys)
        : tokens(std::move(keys)),
          longest(longestOf(tokens)),
          reader(trieOf(tokens)),
          transducer(tokens, reader) {}

    Tokens tokens;
    std::int64_t longest;
    SinglishReader reader;
    SinglishTransducer transducer;
};

const Tokens& SinglishTransliterator::builtInTokens() {
    static const Tokens tokens = tokensOfScheme();
    return tokens;
}

const SinglishTransliterator::TokensByLetter& SinglishTransliterator::tokensByLetter() {
    static const TokensByLetter byLetter = [] {
        TokensByLetter letters;
        for (const auto& [key, token] : builtInTokens())
            letters.emplace(token.letter, token);
        return letters;
    }();
    return byLetter;
}

const SinglishTransliterator& SinglishTransliterator::standard() {
    static const SinglishTransliterator transliterator{
        Shared<Keys>(std::make_shared<const Keys>(builtInTokens()))};
    return transliterator;
}

SinglishTransliterator::SinglishTransliterator(const SinglishCustomization& customization)
    : keys_(customization.isEmpty() ? standard().keys_
                                    : Shared<Keys>(std::make_shared<const Keys>(tokensOf(customization)))) {}

const Tokens& SinglishTransliterator::tokens() const noexcept {
    return keys_->tokens;
}
std::int64_t SinglishTransliterator::longestKey() const noexcept {
    return keys_->longest;
}
const SinglishReader& SinglishTransliterator::reader() const noexcept {
    return keys_->reader;
}

const SinglishTransducer& SinglishTransliterator::transducer() const noexcept {
    return keys_->transducer;
}

std::optional<std::string_view> SinglishTransliterator::letterTypedBy(std::string_view key) const {
    const auto found = keys_->tokens.find(key);
    return found == keys_->tokens.end() ? std::nullopt : std::optional(found->second.letter);
}

std::string SinglishTransliterator::transliterate(std::string_view text) const {
    std::string result;
    result.reserve(3 * text.size()); // most keys become one letter or sign of three bytes
    if (text::isAscii(text) && transducer().transliterate(text, result))
        return result;
    SinglishStream stream(*this);
    stream.write(text, result);
    stream.finish(result);
    return result;
}

std::string transliterate(std::string_view text) {
    return SinglishTransliterator::standard().transliterate(text);
}

} // namespace vanoka
