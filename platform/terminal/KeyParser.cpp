#include "KeyParser.h"

#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace vanoka {

namespace {

constexpr char escape = '\x1B';
constexpr std::string_view pasteEnd = "\x1B[201~";
constexpr int pasteStartCode = 200;
constexpr char32_t backTab = 0x19;          // what Shift with Tab types
constexpr std::size_t longestSequence = 64; // in bytes; anything longer is noise

using std::chrono::milliseconds;
/// The bytes of one special key come together; what comes later is another key.
constexpr milliseconds sequenceTime(50);
/// Longer than a paste halts within itself, as a rule; shorter than from one press of a key to the next.
constexpr milliseconds pasteTime(100);
/// Control with C, D, Z and \, by which people get away when nothing else does.
constexpr std::string_view waysOut = "\x03\x04\x1A\x1C";

struct SequenceKey {
    char final; // the byte that ends the sequence
    int code;   // the number before a final "~"; 0 for the others
    char32_t scalar;
};

// What terminals send after ESC [ or ESC O.
constexpr std::array sequenceKeys = std::to_array<SequenceKey>({
    {'A', 0, FunctionKey::upArrow},
    {'B', 0, FunctionKey::downArrow},
    {'C', 0, FunctionKey::rightArrow},
    {'D', 0, FunctionKey::leftArrow},
    {'H', 0, FunctionKey::home},
    {'F', 0, FunctionKey::end},
    {'P', 0, FunctionKey::f1},
    {'Q', 0, FunctionKey::f1 + 1},
    {'S', 0, FunctionKey::f1 + 3},
    {'Z', 0, backTab},
    {'~', 1, FunctionKey::home},
    {'~', 2, FunctionKey::insert},
    {'~', 3, FunctionKey::deleteForward},
    {'~', 4, FunctionKey::end},
    {'~', 5, FunctionKey::pageUp},
    {'~', 6, FunctionKey::pageDown},
    {'~', 7, FunctionKey::home},
    {'~', 8, FunctionKey::end},
});

struct Sequence {
    char final = 0;
    int code = 0;
    std::uint64_t modifierFlags = 0;
};

bool isFinal(char byte) noexcept {
    return byte >= '@' && byte <= '~';
}

int numberAt(std::string_view& parameters) {
    int number = 0;
    const auto* end = parameters.data() + parameters.size();
    const auto result = std::from_chars(parameters.data(), end, number);
    parameters.remove_prefix(static_cast<std::size_t>(result.ptr - parameters.data()));
    if (parameters.starts_with(';'))
        parameters.remove_prefix(1);
    return number;
}

/// Terminals add one to the bits Shift 1, Alt 2, Control 4, Meta 8.
std::uint64_t flagsOf(int parameter) {
    const int bits = parameter > 0 ? parameter - 1 : 0;
    return (bits & 1 ? KeyEvent::shift : 0) | (bits & 2 ? KeyEvent::option : 0) |
           (bits & 4 ? KeyEvent::control : 0) | (bits & 8 ? KeyEvent::command : 0);
}

Sequence parsed(std::string_view parameters, char final) {
    Sequence sequence{.final = final};
    const int first = numberAt(parameters);
    sequence.code = final == '~' ? first : 0;
    sequence.modifierFlags = flagsOf(numberAt(parameters));
    return sequence;
}

char32_t scalarOf(const Sequence& sequence) {
    const auto* key = std::ranges::find_if(sequenceKeys, [&](const SequenceKey& candidate) {
        return candidate.final == sequence.final && candidate.code == sequence.code;
    });
    return key == sequenceKeys.end() ? FunctionKey::other : key->scalar;
}

std::uint16_t keyCodeOf(std::string_view characters) {
    if (characters == " ")
        return KeyEvent::space;
    if (characters == "\x1B")
        return KeyEvent::escape;
    return characters == "\x7F" ? KeyEvent::deleteBackward : KeyEvent::otherKey;
}

/// Control codes come from Control with a letter, but for those that have a key of their own.
bool isFromControl(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x20 && byte != '\t' && byte != '\r' && byte != '\n' &&
           byte != escape;
}

KeyEvent keyEvent(std::string characters, std::uint64_t modifierFlags) {
    if (characters.size() == 1 && isFromControl(characters.front()))
        modifierFlags |= KeyEvent::control;
    const std::uint16_t keyCode = keyCodeOf(characters);
    return {.modifierFlags = modifierFlags, .keyCode = keyCode, .characters = std::move(characters)};
}

} // namespace

std::optional<KeyParser::Input> KeyParser::next() {
    if (paste_)
        return nextPaste();
    if (bytes_.empty())
        return std::nullopt;
    return bytes_.front() == escape ? nextAfterEscape() : nextScalar(0);
}

std::optional<milliseconds> KeyParser::patience() const noexcept {
    if (paste_)
        return paste_->silentAt == bytes_.size() ? std::nullopt : std::optional(pasteTime);
    return mayBeSequence() ? std::optional(sequenceTime) : std::nullopt;
}

std::optional<KeyParser::Input> KeyParser::flush() {
    if (paste_)
        return flushPaste();
    if (!mayBeSequence())
        return std::nullopt;
    return keyEvent(take(1), 0);
}

bool KeyParser::mayBeSequence() const noexcept {
    return bytes_ == "\x1B" || bytes_.starts_with("\x1B[") || bytes_.starts_with("\x1BO");
}

std::optional<KeyParser::Input> KeyParser::flushPaste() {
    const std::size_t before = paste_->silentAt.value_or(bytes_.size());
    paste_->silentAt = bytes_.size();
    if (before == bytes_.size() || bytes_.find_first_not_of(waysOut, before) != std::string::npos)
        return std::nullopt;
    return endPaste(before);
}

std::optional<Paste> KeyParser::takeUnfinishedPaste() {
    if (!paste_)
        return std::nullopt;
    return endPaste(bytes_.size());
}

/// The first `length` bytes are the paste, but for the beginning of its end that may have come.
Paste KeyParser::endPaste(std::size_t length) {
    paste_.reset();
    std::string text = take(length);
    std::size_t endLength = pasteEnd.size() - 1;
    while (!text.ends_with(pasteEnd.substr(0, endLength)))
        --endLength;
    text.resize(text.size() - endLength);
    return {std::move(text)};
}

std::optional<KeyParser::Input> KeyParser::nextPaste() {
    const std::size_t end = bytes_.find(pasteEnd, paste_->searched);
    if (end == std::string::npos) {
        paste_->searched = bytes_.size() - std::min(bytes_.size(), pasteEnd.size() - 1);
        return std::nullopt;
    }
    paste_.reset();
    Paste paste{take(end)};
    take(pasteEnd.size());
    return paste;
}

std::optional<KeyParser::Input> KeyParser::nextAfterEscape() {
    if (bytes_.size() == 1)
        return std::nullopt;
    if (bytes_[1] == '[' || bytes_[1] == 'O')
        return nextSequence();
    take(1);
    if (bytes_.front() == escape) // pressed, and another key after it
        return keyEvent(std::string(1, escape), 0);
    return nextScalar(KeyEvent::option);
}

std::optional<KeyParser::Input> KeyParser::nextSequence() {
    const auto begin = bytes_.begin() + 2;
    const auto last = bytes_.begin() + static_cast<std::ptrdiff_t>(std::min(bytes_.size(), longestSequence));
    const auto end = std::find_if(begin, last, isFinal);
    if (end == last) {
        if (bytes_.size() < longestSequence)
            return std::nullopt;
        return keyEvent(take(1), 0);
    }
    const Sequence sequence = parsed({begin, end}, *end);
    take(static_cast<std::size_t>(end + 1 - bytes_.begin()));
    if (sequence.final == '~' && sequence.code == pasteStartCode) {
        paste_ = OpenPaste{.searched = 0, .silentAt = std::nullopt};
        return next();
    }
    return KeyEvent{.modifierFlags = sequence.modifierFlags, .characters = text::utf8(scalarOf(sequence))};
}

std::optional<KeyParser::Input> KeyParser::nextScalar(std::uint64_t modifierFlags) {
    const text::Scalar scalar = text::firstScalar(bytes_);
    if (scalar.wellFormed)
        return keyEvent(take(scalar.length), modifierFlags);
    if (text::unfinishedLength(bytes_) == bytes_.size()) {
        if (modifierFlags & KeyEvent::option)
            bytes_.insert(bytes_.begin(), escape);
        return std::nullopt;
    }
    take(1);
    return keyEvent(text::utf8(scalar.value), modifierFlags);
}

std::string KeyParser::take(std::size_t length) {
    std::string taken = bytes_.substr(0, length);
    bytes_.erase(0, length);
    return taken;
}

} // namespace vanoka
