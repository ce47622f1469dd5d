#include "Keysyms.h"

#include "Keys.h"
#include "text/Utf8.h"

#include <map>
#include <string>

namespace vanoka::test {

namespace {

// A key without text is Pause here: a real dead key would go on with the keys after it.
const std::map<std::string, std::uint32_t>& keysymsByName() {
    static const std::map<std::string, std::uint32_t> keysyms = {
        {"space", 0x20},      {"escape", 0xFF1B}, {"delete", 0xFF08},  {"return", 0xFF0D},
        {"enter", 0xFF8D},    {"tab", 0xFF09},    {"backtab", 0xFE20}, {"less", '<'},
        {"dead", 0xFF13},     {"up", 0xFF52},     {"down", 0xFF54},    {"left", 0xFF51},
        {"right", 0xFF53},    {"home", 0xFF50},   {"end", 0xFF57},     {"pageup", 0xFF55},
        {"pagedown", 0xFF56}, {"insert", 0xFF63}, {"f1", 0xFFBE},      {"forwarddelete", 0xFFFF},
    };
    return keysyms;
}

std::uint32_t keysymOf(const KeyEvent& event) {
    const KeyEvent plain{.keyCode = event.keyCode, .characters = event.characters};
    const std::string name = nameOf(plain);
    if (name.size() > 2 && name.starts_with('<'))
        return keysymsByName().at(name.substr(1, name.size() - 2));
    const auto scalar = static_cast<std::uint32_t>(text::firstScalar(name).value);
    return scalar < 0x100 ? scalar : scalar | 0x01000000;
}

} // namespace

X11Key x11Key(const KeyEvent& event) {
    X11Key key{.keysym = keysymOf(event)};
    if (event.modifierFlags & KeyEvent::shift)
        key.state |= 1U << 0;
    if (event.modifierFlags & KeyEvent::control)
        key.state |= 1U << 2;
    if (event.modifierFlags & KeyEvent::option)
        key.state |= 1U << 3;
    if (event.modifierFlags & KeyEvent::command)
        key.state |= 1U << 6;
    return key;
}

} // namespace vanoka::test
