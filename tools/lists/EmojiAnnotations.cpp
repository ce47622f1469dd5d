#include "EmojiAnnotations.h"

#include "Words.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Utf8.h"
#include "words/SinhalaSpelling.h"

#include <algorithm>
#include <charconv>
#include <expat.h>
#include <memory>

namespace vanoka {

namespace {

constexpr std::string_view presentationSelector = "\uFE0F";

/// The annotations while they are read: the element that is open and its text.
struct Reading {
    EmojiAnnotations annotations;
    std::string emoji, text;
    bool isName = false, isInside = false;
};

void startElement(void* data, const char* element, const char** attributes) {
    auto& reading = *static_cast<Reading*>(data);
    reading.isInside = std::string_view(element) == "annotation";
    reading.isName = false;
    reading.emoji.clear();
    reading.text.clear();
    for (; *attributes; attributes += 2) {
        const std::string_view name = attributes[0], value = attributes[1];
        if (name == "cp")
            reading.emoji = value;
        else if (name == "type")
            reading.isName = value == "tts";
    }
}

void appendText(void* data, const char* text, int length) {
    auto& reading = *static_cast<Reading*>(data);
    if (reading.isInside)
        reading.text.append(text, static_cast<std::size_t>(length));
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view spaces = " \t\n\r";
    text.remove_prefix(std::min(text.find_first_not_of(spaces), text.size()));
    return text.substr(0, text.find_last_not_of(spaces) + 1);
}

void endElement(void* data, const char*) {
    auto& reading = *static_cast<Reading*>(data);
    if (!reading.isInside)
        return;
    reading.isInside = false;
    EmojiAnnotation& annotation = reading.annotations[reading.emoji];
    if (reading.isName) {
        annotation.name = trimmed(reading.text);
        return;
    }
    std::string_view rest = reading.text;
    while (!rest.empty()) {
        const std::string_view keyword = rest.substr(0, rest.find('|'));
        rest.remove_prefix(std::min(keyword.size() + 1, rest.size()));
        if (!trimmed(keyword).empty())
            annotation.keywords.emplace_back(trimmed(keyword));
    }
}

std::string withoutSelectors(std::string_view emoji) {
    std::string result(emoji);
    for (auto at = result.find(presentationSelector); at != std::string::npos;
         at = result.find(presentationSelector, at))
        result.erase(at, presentationSelector.size());
    return result;
}

/// Whether a list can hold it as one of its pieces.
bool isPiece(std::string_view text) {
    return !text.empty() && text.find_first_of(" \t\n\r") == std::string_view::npos;
}

bool isSingleWord(std::string_view text) {
    return isPiece(text) && text.find('#') == std::string_view::npos;
}

/// The lines of the list in the order in which their words are met.
class Lines {
public:
    void add(std::string_view word, const std::string& emoji, bool isName) {
        if (!isSingleWord(word))
            return;
        const std::string written = isSinhala(word) ? text::nfc(word) : text::nfc(text::lowercased(word));
        const std::string key = isSinhala(word) ? SinhalaSpelling::looseKey(written) : written;
        const auto [place, isNew] = places_.try_emplace(key, lines_.size());
        if (isNew)
            lines_.push_back({written, {}, {}});
        Line& line = lines_[place->second];
        std::vector<std::string>& list = isName ? line.named : line.mentioned;
        if (std::ranges::find(list, emoji) == list.end())
            list.push_back(emoji);
    }

    std::string text() const {
        std::string text;
        for (const Line& line : lines_) {
            char separator = '\t';
            text += line.word;
            const auto append = [&](const std::string& emoji) {
                text += separator + emoji;
                separator = ' ';
            };
            std::ranges::for_each(line.named, append);
            for (const std::string& emoji : line.mentioned)
                if (std::ranges::find(line.named, emoji) == line.named.end())
                    append(emoji);
            text += '\n';
        }
        return text;
    }

private:
    struct Line {
        std::string word;
        std::vector<std::string> named, mentioned;
    };
    std::vector<Line> lines_;
    std::unordered_map<std::string, std::size_t> places_;
};

} // namespace

std::optional<EmojiAnnotations> readEmojiAnnotations(const std::string& xml) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    Reading reading;
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(parser.get(), appendText);
    constexpr std::size_t most = 1U << 30; // expat counts in int
    if (xml.size() > most ||
        XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) != XML_STATUS_OK)
        return std::nullopt;
    return std::move(reading.annotations);
}

std::vector<std::string> readEmoji(std::string_view emojiTest) {
    std::vector<std::string> all;
    while (!emojiTest.empty()) {
        std::string_view line = text::takeLine(emojiTest);
        line = line.substr(0, line.find('#'));
        const std::size_t status = line.find(';');
        if (status == std::string_view::npos || trimmed(line.substr(status + 1)) != "fully-qualified")
            continue;
        std::string emoji;
        for (const std::string_view codePoint : text::piecesOf(trimmed(line.substr(0, status)))) {
            std::uint32_t scalar = 0;
            std::from_chars(codePoint.data(), codePoint.data() + codePoint.size(), scalar, 16);
            emoji += text::utf8(scalar);
        }
        all.push_back(std::move(emoji));
    }
    return all;
}

std::string emojiList(const std::vector<std::string>& emoji, const std::vector<EmojiAnnotations>& languages) {
    Lines lines;
    for (const EmojiAnnotations& annotations : languages) {
        for (const std::string& each : emoji) {
            const auto found = annotations.find(withoutSelectors(each));
            if (!isPiece(each) || found == annotations.end())
                continue;
            lines.add(found->second.name, each, true);
            for (const std::string& keyword : found->second.keywords)
                lines.add(keyword, each, false);
        }
    }
    return lines.text();
}

} // namespace vanoka
