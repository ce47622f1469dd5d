#pragma once

#include "Answer.h"
#include "text/Utf8.h"
#include "typing/KeyEvent.h"
#include "typing/Typing.h"
#include "vanoka.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

/// What both kinds of typing share.
namespace vanoka::c {

inline void addEffect(Reply& reply, const TypingEffect& effect) {
    if (effect.kind == TypingEffect::Kind::none)
        return;
    const bool isMark = effect.kind == TypingEffect::Kind::mark;
    reply.add(isMark ? VANOKA_MARK : VANOKA_INSERT, effect.text,
              static_cast<std::int64_t>(text::utf16Length(effect.text)));
}

inline void addComposition(Reply& reply, const SinglishComposer& composer) {
    if (!composer.isComposing())
        return;
    reply.add(VANOKA_KEYS, composer.raw());
    reply.add(VANOKA_PREVIEW, composer.preview());
}

/// Lets `act` change a copy of the typing: what memory is too short to answer has not happened.
template <class Handle, class Act>
void change(Handle& handle, Act act) {
    auto changed = handle.typing;
    static_assert(std::is_nothrow_move_assignable_v<decltype(changed)>);
    act(changed);
    handle.typing = std::move(changed);
}

inline KeyEvent eventOf(std::uint32_t code, std::uint32_t modifiers, std::string_view characters) {
    return {.modifierFlags = modifiers,
            .keyCode = static_cast<std::uint16_t>(std::min<std::uint32_t>(code, KeyEvent::otherKey)),
            .characters = std::string(characters)};
}

} // namespace vanoka::c
