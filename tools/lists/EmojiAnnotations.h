#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vanoka {

/// What one language says of an emoji: its name, and words that people look for it by.
struct EmojiAnnotation {
    std::string name;
    std::vector<std::string> keywords;
};

/// By emoji, without its presentation selectors (U+FE0F), as annotations write them.
using EmojiAnnotations = std::unordered_map<std::string, EmojiAnnotation>;

/// Reads a file of CLDR annotations (LDML, the element "annotation"). Nothing when it is not well-formed XML.
std::optional<EmojiAnnotations> readEmojiAnnotations(const std::string& xml);

/// The fully qualified emoji of a file in the form of Unicode's emoji-test.txt, in its order, which is that
/// of emoji keyboards.
std::vector<std::string> readEmoji(std::string_view emojiTest);

/// The lines of an emoji list: every single word that is the name of an emoji or one of its keywords, with
/// the emoji that it is the name of before those that it is a keyword of. Words of one loose key (Sinhala) or
/// that differ in letter case (English) are one line.
std::string emojiList(const std::vector<std::string>& emoji, const std::vector<EmojiAnnotations>& languages);

} // namespace vanoka
