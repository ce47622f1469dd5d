#include "typing/Typing.h"

#include "Answer.h"
#include "Arguments.h"
#include "Settings.h"
#include "TypingCalls.h"
#include "vanoka.h"

#include <memory>
#include <string>

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
static_assert(VANOKA_COMMAND == KeyEvent::command && VANOKA_SHIFT == KeyEvent::shift);

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
        addComposition(reply, typing->typing.composer());
        return vanoka_status{VANOKA_OK};
    });
}
