#include "singlish/SinglishStream.h"

#include "singlish/SinglishReader.h"
#include "singlish/SinglishTransducer.h"
#include "text/Characters.h"
#include "text/Utf8.h"

namespace vanoka {

namespace {

/// How many bytes at the start of `characters` are ASCII characters: the last ASCII byte before another one
/// may be the base of a character with it.
std::size_t leadingAscii(std::string_view characters) {
    const std::size_t length = text::asciiLength(characters);
    return length == characters.size() || length == 0 ? length : length - 1;
}

} // namespace

SinglishStream::SinglishStream(const SinglishTransliterator& transliterator)
    : transliterator_(transliterator), transducer_(transliterator_.transducer()) {}

void SinglishStream::write(std::string_view characters, std::string& text) {
    while (!characters.empty()) {
        std::size_t length = leadingAscii(characters);
        if (length == 0 || !transducer_.write(characters.substr(0, length), held_, open_, text)) {
            const std::string_view character = text::firstCharacter(characters);
            length = character.size();
            writeCharacter(character, text);
        }
        characters.remove_prefix(length);
    }
}

void SinglishStream::writeCharacter(std::string_view character, std::string& text) {
    held_ += character;
    Syllables syllables(text, open_);
    held_.erase(0, transliterator_.reader().readDecided(held_, syllables));
    open_ = syllables.open();
}

void SinglishStream::finish(std::string& text) {
    Syllables syllables(text, open_);
    transliterator_.reader().read(held_, syllables);
    syllables.close();
    held_.clear();
    open_ = OpenConsonant::none;
}

} // namespace vanoka
