#include "typing/Typing.h"

#include "Answer.h"
#include "Arguments.h"
#include "Settings.h"
#include "text/Utf8.h"
#include "vanoka.h"

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

using namespace vanoka;
using namespace vanoka::c;

struct vanoka_typing {
    std::shared_ptr<const KeySettings> settings;
    Typing typing;
};

namespace {

static_assert(VANOKA_SPACE == KeyEvent::space && VANOKA_DELETE == KeyEvent::deleteBackward);
static_assert(VANOKA_ESCAPE == KeyEvent::escape && VANOKA_OTHER_KEY == KeyEvent::otherKey);
static_assert(VANOKA_CONTROL == KeyEvent::control && VANOKA_OPTION == KeyEvent::option);
static_assert(VANOKA_COMMAND == KeyEvent::command);

void addEffect(Reply& reply, const TypingEffect& effect) {
    if (effect.kind == TypingEffect::Kind::none)
        return;
    const bool isMark = effect.kind == TypingEffect::Kind::mark;
    reply.add(isMark ? VANOKA_MARK : VANOKA_INSERT, effect.text,
              static_cast<std::int64_t>(text::utf16Length(effect.text)));
}

/// Lets `act` change a copy of the typing: what memory is too short to answer has not happened.
template <class Act>
void change(vanoka_typing& handle, Act act) {
    static_assert(std::is_nothrow_move_assignable_v<Typing>);
    Typing changed = handle.typing;
    act(changed);
    handle.typing = std::move(changed);
}

KeyEvent eventOf(std::uint32_t code, std::uint32_t modifiers, std::string_view characters) {
    return {.modifierFlags = modifiers,
            .keyCode = static_cast<std::uint16_t>(std::min<std::uint32_t>(code, KeyEvent::otherKey)),
            .characters = std::string(characters)};
}

} // namespace

vanoka_status vanoka_typing_create(const vanoka_settings* settings, vanoka_typing** typing) {
    return creating(
        typing, [&] { return firstProblem(settings); },
        [&] { return new vanoka_typing{settings->shared, Typing(settings->shared->keys.transliterator())}; });
}

void vanoka_typing_release(vanoka_typing* typing) {
    delete typing;
}

vanoka_status vanoka_typing_press(vanoka_typing* typing, std::uint32_t code, std::uint32_t modifiers,
                                  const char* characters, std::size_t size, std::int32_t* consumed,
                                  vanoka_answer* answer) {
    if (consumed)
        *consumed = 0;
    return answering(answer, [&](Reply& reply) {
        const Bytes bytes = {characters, size};
        if (const auto problem = firstProblem(typing, consumed, bytes); problem != VANOKA_OK)
            return problem;
        change(*typing, [&](Typing& changed) {
            const KeyOutcome outcome = changed.press(eventOf(code, modifiers, bytes.view()),
                                                     typing->settings->keys.transliterator());
            addEffect(reply, outcome.effect);
            *consumed = outcome.isConsumed ? 1 : 0;
        });
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_typing_end(vanoka_typing* typing, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(typing); problem != VANOKA_OK)
            return problem;
        change(*typing, [&](Typing& changed) { addEffect(reply, changed.end()); });
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_typing_choose(vanoka_typing* typing, const char* text, std::size_t size,
                                   vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text chosen(text, size);
        if (const auto problem = firstProblem(typing, chosen); problem != VANOKA_OK)
            return problem;
        change(*typing,
               [&](Typing& changed) { addEffect(reply, changed.choose(std::string(chosen.view()))); });
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_typing_forget(vanoka_typing* typing, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(typing); problem != VANOKA_OK)
            return problem;
        change(*typing, [&](Typing& changed) { reply.add(VANOKA_TEXT, changed.forget()); });
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_typing_composition(const vanoka_typing* typing, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(typing); problem != VANOKA_OK)
            return problem;
        const SinglishComposer& composer = typing->typing.composer();
        if (composer.isComposing()) {
            reply.add(VANOKA_KEYS, composer.raw());
            reply.add(VANOKA_PREVIEW, composer.preview());
        }
        return vanoka_status{VANOKA_OK};
    });
}
