#include "singlish/SinglishReader.h"

#include "text/Characters.h"
#include "text/LetterCase.h"

namespace vanoka {

void SinglishReader::read(std::string_view text, Syllables& syllables) const {
    while (!text.empty()) {
        const Match found = match(text);
        write(found, text, syllables);
        text.remove_prefix(found.length);
    }
}

std::size_t SinglishReader::readDecided(std::string_view text, Syllables& syllables) const {
    std::size_t read = 0;
    while (read < text.size()) {
        const Match found = match(text.substr(read));
        if (found.open)
            break;
        write(found, text.substr(read), syllables);
        read += found.length;
    }
    return read;
}

const SinglishToken* SinglishReader::begin(Beginning& beginning, std::string_view character) const {
    beginning.typed_ = keys_.step(KeyTrie::root, character);
    beginning.lowercased_ =
        text::isUppercase(character) ? keys_.step(KeyTrie::root, text::lowercased(character)) : KeyTrie::none;
    return found(beginning);
}

SinglishReader::Match SinglishReader::match(std::string_view text) const {
    const std::string_view first = text::firstCharacter(text);
    const Match typed = matchFrom(keys_.step(KeyTrie::root, first), text, first.size());
    if (typed.token || !text::isUppercase(first))
        return typed;
    Match lowercased = matchFrom(keys_.step(KeyTrie::root, text::lowercased(first)), text, first.size());
    lowercased.open = lowercased.open || typed.open;
    return lowercased;
}

/// The longest key that has come to `node` over the first `length` bytes of `text`, one character, and goes
/// on over the rest.
SinglishReader::Match SinglishReader::matchFrom(KeyTrie::Node node, std::string_view text,
                                                std::size_t length) const {
    Match found{.length = length};
    while (node != KeyTrie::none) {
        if (const SinglishToken* token = keys_.token(node))
            found = {.token = token, .length = length};
        if (!keys_.goesOn(node))
            break;
        const std::string_view next = text::firstCharacter(text.substr(length));
        if (next.empty()) {
            found.open = true;
            break;
        }
        node = keys_.step(node, next);
        length += next.size();
    }
    return found;
}

void SinglishReader::write(const Match& match, std::string_view text, Syllables& syllables) {
    if (match.token)
        syllables.write(*match.token);
    else
        syllables.pass(text.substr(0, match.length));
}

} // namespace vanoka
