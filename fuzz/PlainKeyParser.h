#pragma once

#include "KeyParser.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vanoka::fuzz {

/// The bytes of a terminal read in the plainest way: all at once, each input from its first byte to its last.
class PlainKeyParser {
public:
    /// A key that has a sequence of bytes and types nothing; which one is in the tests of the parser.
    struct SpecialKey {};
    using Piece = std::variant<KeyEvent, Paste, SpecialKey>;

    explicit PlainKeyParser(std::string_view bytes) : rest_(bytes) { read(); }

    const std::vector<Piece>& pieces() const { return pieces_; }
    /// What has come of a paste whose end has not.
    std::optional<Paste> openPaste() const {
        if (!isInPaste_)
            return std::nullopt;
        std::string_view end = pasteEnd;
        while (!rest_.ends_with(end))
            end.remove_suffix(1);
        return Paste{std::string(rest_.substr(0, rest_.size() - end.size()))};
    }
    /// Nothing has come for a while: what may have been the beginning of a sequence is Escape and what was
    /// typed after it.
    void fallSilent() {
        while (!isInPaste_ && (rest_ == "\x1B" || beginsSequence())) {
            add(KeyEvent::escape, take(1), 0);
            read();
        }
    }

private:
    static constexpr std::string_view pasteEnd = "\x1B[201~";
    static constexpr std::size_t longestSequence = 64;

    void read() {
        while (!rest_.empty() && (isInPaste_ ? readPaste() : readKey())) {
        }
    }

    bool readPaste() {
        const std::size_t length = rest_.find(pasteEnd);
        if (length == std::string_view::npos)
            return false;
        pieces_.emplace_back(Paste{take(length)});
        take(pasteEnd.size());
        isInPaste_ = false;
        return true;
    }

    bool readKey() {
        if (beginsSequence())
            return readSequence();
        if (!rest_.starts_with('\x1B'))
            return readScalar(0);
        if (rest_.size() == 1)
            return false;
        if (rest_[1] != '\x1B')
            return readScalar(KeyEvent::option);
        add(KeyEvent::escape, take(1), 0);
        return true;
    }

    bool beginsSequence() const { return rest_.starts_with("\x1B[") || rest_.starts_with("\x1BO"); }

    /// One has its end among the first bytes, or is none.
    bool readSequence() {
        const std::string_view looked = rest_.substr(0, longestSequence);
        const auto isEnd = [](char byte) { return byte >= '@' && byte <= '~'; };
        const auto length =
            static_cast<std::size_t>(std::find_if(looked.begin() + 2, looked.end(), isEnd) - looked.begin());
        if (length == longestSequence)
            return add(KeyEvent::escape, take(1), 0), true;
        if (length == looked.size())
            return false;
        isInPaste_ = beginsPaste(take(length + 1));
        if (!isInPaste_)
            pieces_.emplace_back(SpecialKey());
        return true;
    }

    static bool beginsPaste(const std::string& sequence) {
        const std::string_view parameters = std::string_view(sequence).substr(2);
        const std::size_t length = std::min(parameters.find_first_not_of("0123456789"), parameters.size());
        const std::string_view number = parameters.substr(0, length);
        const std::size_t zeros = std::min(number.find_first_not_of('0'), length);
        return sequence.ends_with('~') && number.substr(zeros) == "200";
    }

    /// A scalar, after an Escape byte where it is typed with Alt.
    bool readScalar(std::uint64_t modifierFlags) {
        const std::size_t before = modifierFlags == 0 ? 0 : 1;
        const std::string_view bytes = rest_.substr(before);
        const text::Scalar scalar = text::firstScalar(bytes);
        if (!scalar.wellFormed && text::unfinishedLength(bytes) == bytes.size())
            return false;
        take(before);
        take(scalar.wellFormed ? scalar.length : 1);
        const bool isControl = scalar.value < 0x20 &&
                               std::u32string_view(U"\t\r\n").find(scalar.value) == std::u32string_view::npos;
        add(codeOf(scalar.value), text::utf8(scalar.value),
            modifierFlags | (isControl ? KeyEvent::control : 0));
        return true;
    }

    static std::uint16_t codeOf(char32_t scalar) {
        constexpr char32_t deleteKey = 0x7F;
        if (scalar == U' ')
            return KeyEvent::space;
        return scalar == deleteKey ? KeyEvent::deleteBackward : KeyEvent::otherKey;
    }

    void add(std::uint16_t code, std::string characters, std::uint64_t modifierFlags) {
        pieces_.emplace_back(
            KeyEvent{.modifierFlags = modifierFlags, .keyCode = code, .characters = std::move(characters)});
    }

    std::string take(std::size_t length) {
        const std::string taken(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view rest_;
    bool isInPaste_ = false;
    std::vector<Piece> pieces_;
};

} // namespace vanoka::fuzz
