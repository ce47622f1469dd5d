#include "ComposeSequence.h"

#include "Keysym.h"

#include <array>
#include <cstdlib>
#include <xkbcommon/xkbcommon-compose.h>

namespace vanoka::ibus {

namespace {

constexpr std::uint32_t backSpace = 0xFF08, escape = 0xFF1B; // what a sequence is given up with

const char* locale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value && *value)
            return value;
    return "C";
}

/// Null where the system has no sequences for the locale. Read when a sequence begins for the first time, as
/// most people never begin one; shared by all fields.
xkb_compose_table* table() {
    static xkb_compose_table* const all = [] {
        xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES);
        xkb_compose_table* made = nullptr;
        for (const char* name : {locale(), "en_US.UTF-8"}) // the second for locales that have none
            if (context && !made)
                made = xkb_compose_table_new_from_locale(context, name, XKB_COMPOSE_COMPILE_NO_FLAGS);
        xkb_context_unref(context);
        return made;
    }();
    return all;
}

std::string textOf(xkb_compose_state* state) {
    std::array<char, 256> text{};
    const int length = xkb_compose_state_get_utf8(state, text.data(), text.size());
    return length > 0 ? std::string(text.data()) : std::string();
}

} // namespace

ComposeSequence::Result ComposeSequence::press(std::uint32_t keysym) {
    if (Keysym::isModifier(keysym))
        return {Outcome::notPart, {}};
    if (isUnderway_)
        return feed(keysym);
    return Keysym::startsSequence(keysym) ? begin(keysym) : Result{Outcome::notPart, {}};
}

ComposeSequence::Result ComposeSequence::begin(std::uint32_t keysym) {
    if (!state_ && table())
        state_.reset(xkb_compose_state_new(table(), XKB_COMPOSE_STATE_NO_FLAGS));
    if (!state_)
        return {Outcome::notPart, {}};
    xkb_compose_state_reset(state_.get());
    return feed(keysym);
}

ComposeSequence::Result ComposeSequence::feed(std::uint32_t keysym) {
    xkb_compose_state_feed(state_.get(), keysym);
    const xkb_compose_status status = xkb_compose_state_get_status(state_.get());
    isUnderway_ = status == XKB_COMPOSE_COMPOSING;
    if (isUnderway_)
        return {Outcome::underway, {}};
    if (status == XKB_COMPOSE_COMPOSED)
        return {Outcome::made, textOf(state_.get())};
    if (status == XKB_COMPOSE_CANCELLED && Keysym::startsSequence(keysym))
        return begin(keysym);
    const bool givesUp = status == XKB_COMPOSE_CANCELLED && (keysym == backSpace || keysym == escape);
    return {givesUp ? Outcome::cancelled : Outcome::notPart, {}};
}

void ComposeSequence::Release::operator()(xkb_compose_state* state) const noexcept {
    xkb_compose_state_unref(state);
}

} // namespace vanoka::ibus
