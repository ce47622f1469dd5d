#include "Keys.h"

#include "text/Utf8.h"
#include "typing/FunctionKey.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

struct NamedKey {
    std::string_view name;
    std::uint16_t keyCode;
    std::string characters;
};

const std::vector<NamedKey>& namedKeys() {
    const auto function = [](char32_t scalar) { return text::utf8(scalar); };
    static const std::vector<NamedKey> keys = {
        {"space", KeyEvent::space, " "},
        {"escape", KeyEvent::escape, "\x1B"},
        {"delete", KeyEvent::deleteBackward, "\x7F"},
        {"return", KeyEvent::otherKey, "\r"},
        {"enter", KeyEvent::otherKey, "\x03"},
        {"tab", KeyEvent::otherKey, "\t"},
        {"backtab", KeyEvent::otherKey, "\x19"},
        {"less", KeyEvent::otherKey, "<"},
        {"dead", KeyEvent::otherKey, ""},
        {"up", KeyEvent::otherKey, function(FunctionKey::upArrow)},
        {"down", KeyEvent::otherKey, function(FunctionKey::downArrow)},
        {"left", KeyEvent::otherKey, function(FunctionKey::leftArrow)},
        {"right", KeyEvent::otherKey, function(FunctionKey::rightArrow)},
        {"home", KeyEvent::otherKey, function(FunctionKey::home)},
        {"end", KeyEvent::otherKey, function(FunctionKey::end)},
        {"pageup", KeyEvent::otherKey, function(FunctionKey::pageUp)},
        {"pagedown", KeyEvent::otherKey, function(FunctionKey::pageDown)},
        {"forwarddelete", KeyEvent::otherKey, function(FunctionKey::deleteForward)},
        {"insert", KeyEvent::otherKey, function(FunctionKey::insert)},
        {"f1", KeyEvent::otherKey, function(FunctionKey::f1)},
    };
    return keys;
}

struct NamedModifier {
    std::string_view prefix;
    std::uint64_t flag;
};

constexpr std::array namedModifiers = std::to_array<NamedModifier>({
    {"S-", KeyEvent::shift},
    {"C-", KeyEvent::control},
    {"A-", KeyEvent::option},
    {"D-", KeyEvent::command},
});

} // namespace

std::optional<KeyEvent> keyNamed(std::string_view name) {
    if (!name.starts_with('<'))
        return name.empty() ? std::nullopt : std::optional(KeyEvent{.characters = std::string(name)});
    if (!name.ends_with('>'))
        return std::nullopt;
    name = name.substr(1, name.size() - 2);
    KeyEvent event;
    for (const NamedModifier& modifier : namedModifiers) {
        if (name.starts_with(modifier.prefix)) {
            event.modifierFlags |= modifier.flag;
            name.remove_prefix(modifier.prefix.size());
        }
    }
    const auto named = std::ranges::find(namedKeys(), name, &NamedKey::name);
    if (named != namedKeys().end()) {
        event.keyCode = named->keyCode;
        event.characters = named->characters;
    } else if (event.modifierFlags != 0 && !name.empty() && text::firstScalar(name).length == name.size()) {
        event.characters = std::string(name);
    } else {
        return std::nullopt;
    }
    return event;
}

std::string nameOf(const KeyEvent& event) {
    const std::string characters = event.characters.value_or("");
    const auto named = std::ranges::find_if(namedKeys(), [&](const NamedKey& key) {
        return key.keyCode == event.keyCode && key.characters == characters;
    });
    std::string prefix;
    for (const NamedModifier& modifier : namedModifiers)
        if (event.modifierFlags & modifier.flag)
            prefix += modifier.prefix;
    if (named == namedKeys().end() && prefix.empty())
        return characters;
    return "<" + prefix + (named == namedKeys().end() ? characters : std::string(named->name)) + ">";
}

std::vector<KeyEvent> keys(std::string_view text) {
    std::vector<KeyEvent> events;
    while (!text.empty()) {
        std::size_t length = text::firstScalar(text).length;
        if (text.starts_with('<'))
            length = std::min(text.find('>'), text.size() - 1) + 1;
        const auto event = keyNamed(text.substr(0, length));
        if (event)
            events.push_back(*event);
        else
            ADD_FAILURE() << "no such key: " << text.substr(0, length);
        text.remove_prefix(length);
    }
    return events;
}

std::vector<std::string> keyNames() {
    std::vector<std::string> names;
    for (const NamedKey& key : namedKeys())
        names.push_back("<" + std::string(key.name) + ">");
    return names;
}

} // namespace vanoka::test
