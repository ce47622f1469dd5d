#pragma once

#include <cstddef>
#include <string_view>

/// Text in characters: what a reader sees as one, an extended grapheme cluster. k with a combining mark, a
/// joiner or a virama after it is one character, and so is CR LF; an ill-formed byte is a character of its
/// own.
namespace vanoka::text {

/// The first character of `text`; empty for an empty text. A view into `text`.
std::string_view firstCharacter(std::string_view text) noexcept;

/// `text` without its last character. A view into `text`; takes time in proportion to the text's length.
std::string_view withoutLastCharacter(std::string_view text) noexcept;

/// The number of characters in `text`.
std::size_t characterCount(std::string_view text) noexcept;

/// The characters of a text in order: `for (const std::string_view character : Characters(text))`. Views the
/// text, which must outlive the walk and every character taken from it.
class Characters {
public:
    class Iterator {
    public:
        explicit Iterator(std::string_view rest) noexcept : rest_(rest), character_(firstCharacter(rest)) {}
        std::string_view operator*() const noexcept { return character_; }
        Iterator& operator++() noexcept {
            rest_.remove_prefix(character_.size());
            character_ = firstCharacter(rest_);
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return rest_.size() == other.rest_.size(); }

    private:
        std::string_view rest_;
        std::string_view character_;
    };

    explicit Characters(std::string_view text) noexcept : text_(text) {}
    Iterator begin() const noexcept { return Iterator(text_); }
    Iterator end() const noexcept { return Iterator(text_.substr(text_.size())); }

private:
    std::string_view text_;
};

} // namespace vanoka::text
