#include "CandidateTyping.h"

#include "Answer.h"
#include "Arguments.h"
#include "CandidateKinds.h"
#include "Settings.h"
#include "TypingCalls.h"
#include "vanoka.h"

#include <memory>
#include <string>

using namespace vanoka;
using namespace vanoka::c;

struct vanoka_suggesting {
    std::shared_ptr<const KeySettings> settings;
    CandidateTyping typing;
};

namespace {

void addLesson(Reply& reply, const Lesson& lesson) {
    if (lesson.kind == Lesson::Kind::forget)
        return reply.add(VANOKA_FORGET, lesson.word.text);
    reply.add(lesson.kind == Lesson::Kind::learn ? VANOKA_LEARN : VANOKA_UNLEARN, lesson.word.text);
    reply.add(VANOKA_KEYS, lesson.word.keys);
}

void addStep(Reply& reply, const TypingStep& step) {
    addEffect(reply, step.outcome.effect);
    if (step.lesson)
        addLesson(reply, *step.lesson);
}

/// Lets `act` change the typing and tell what it did.
template <class Act>
vanoka_status acting(vanoka_suggesting* suggesting, vanoka_answer* answer, Act act) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(suggesting); problem != VANOKA_OK)
            return problem;
        change(*suggesting, [&](CandidateTyping& changed) { act(changed, reply); });
        return vanoka_status{VANOKA_OK};
    });
}

/// Asks the typing for something.
template <class Ask>
vanoka_status asking(const vanoka_suggesting* suggesting, vanoka_answer* answer, Ask ask) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(suggesting); problem != VANOKA_OK)
            return problem;
        ask(suggesting->typing, reply);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status problemOf(const vanoka_item* rows, std::size_t count) {
    if (!rows && count > 0)
        return VANOKA_BAD_ARGUMENT;
    if (count > CandidateLimit::most)
        return VANOKA_TOO_LARGE;
    for (std::size_t at = 0; at < count; ++at) {
        const bool isEmpty = rows[at].size == 0; // putting it in would take away what was typed
        if (isEmpty || !candidateKindOf(rows[at].kind))
            return VANOKA_BAD_ARGUMENT;
        if (const auto problem = vanoka::c::problemOf(Text(rows[at].text, rows[at].size));
            problem != VANOKA_OK)
            return problem;
    }
    return VANOKA_OK;
}

std::vector<Candidate> candidatesOf(const vanoka_item* rows, std::size_t count) {
    std::vector<Candidate> candidates;
    candidates.reserve(count);
    for (std::size_t at = 0; at < count; ++at)
        candidates.push_back({std::string(rows[at].text, rows[at].size), *candidateKindOf(rows[at].kind),
                              rows[at].number != 0});
    return candidates;
}

} // namespace

vanoka_status vanoka_suggesting_create(const vanoka_settings* settings, vanoka_suggesting** suggesting) {
    return creating(
        suggesting, [&] { return firstProblem(settings); },
        [&] {
            return new vanoka_suggesting{settings->shared,
                                         CandidateTyping(settings->shared->keys.transliterator())};
        });
}

void vanoka_suggesting_release(vanoka_suggesting* suggesting) {
    delete suggesting;
}

vanoka_status vanoka_suggesting_switch(vanoka_suggesting* suggesting, std::int32_t suggests,
                                       std::int32_t learns) {
    return guarded([&] {
        if (const auto problem = firstProblem(suggesting); problem != VANOKA_OK)
            return problem;
        suggesting->typing.setSuggesting(suggests != 0);
        suggesting->typing.setLearning(learns != 0);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_suggesting_press(vanoka_suggesting* suggesting, std::uint32_t code,
                                      std::uint32_t modifiers, const char* characters, std::size_t size,
                                      std::int32_t* consumed, vanoka_answer* answer) {
    if (consumed)
        *consumed = 0;
    return answering(answer, [&](Reply& reply) {
        const Bytes bytes = {characters, size};
        if (const auto problem = firstProblem(suggesting, consumed, bytes); problem != VANOKA_OK)
            return problem;
        change(*suggesting, [&](CandidateTyping& changed) {
            const TypingStep step = changed.press(eventOf(code, modifiers, bytes.view()),
                                                  suggesting->settings->keys.transliterator());
            addStep(reply, step);
            *consumed = step.outcome.isConsumed ? 1 : 0;
        });
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_suggesting_needs(const vanoka_suggesting* suggesting, std::uint32_t code,
                                      std::uint32_t modifiers, const char* characters, std::size_t size,
                                      std::int32_t* needs) {
    if (needs)
        *needs = 0;
    return guarded([&] {
        const Bytes bytes = {characters, size};
        if (const auto problem = firstProblem(suggesting, needs, bytes); problem != VANOKA_OK)
            return problem;
        const bool waits = suggesting->typing.needsCandidates(eventOf(code, modifiers, bytes.view()));
        *needs = waits ? 1 : 0;
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_suggesting_end(vanoka_suggesting* suggesting, vanoka_answer* answer) {
    return acting(suggesting, answer,
                  [](CandidateTyping& typing, Reply& reply) { addEffect(reply, typing.end()); });
}

vanoka_status vanoka_suggesting_forget(vanoka_suggesting* suggesting, vanoka_answer* answer) {
    return acting(suggesting, answer,
                  [](CandidateTyping& typing, Reply& reply) { reply.add(VANOKA_TEXT, typing.forget()); });
}

vanoka_status vanoka_suggesting_composition(const vanoka_suggesting* suggesting, vanoka_answer* answer) {
    return asking(suggesting, answer, [](const CandidateTyping& typing, Reply& reply) {
        addComposition(reply, typing.composer());
    });
}

vanoka_status vanoka_suggesting_choose(vanoka_suggesting* suggesting, std::size_t row,
                                       vanoka_answer* answer) {
    return acting(suggesting, answer,
                  [row](CandidateTyping& typing, Reply& reply) { addStep(reply, typing.choose(row)); });
}

vanoka_status vanoka_suggesting_forget_row(vanoka_suggesting* suggesting, std::size_t row,
                                           vanoka_answer* answer) {
    return acting(suggesting, answer, [row](CandidateTyping& typing, Reply& reply) {
        const CandidateLine& line = typing.line();
        if (row >= line.rows.size() || !line.rows[row].isLearnt)
            return;
        typing.moveHighlight(static_cast<std::ptrdiff_t>(row) -
                             static_cast<std::ptrdiff_t>(line.highlighted));
        addStep(reply, typing.forgetHighlighted());
    });
}

vanoka_status vanoka_suggesting_request(const vanoka_suggesting* suggesting, vanoka_answer* answer) {
    return asking(suggesting, answer, [](const CandidateTyping& typing, Reply& reply) {
        const auto request = typing.request();
        if (!request)
            return;
        reply.add(VANOKA_KEYS, request->word.keys, static_cast<std::int64_t>(request->generation));
        reply.add(VANOKA_PREVIEW, request->word.preview);
    });
}

vanoka_status vanoka_suggesting_take(vanoka_suggesting* suggesting, std::int64_t request,
                                     const vanoka_item* rows, std::size_t count, std::int32_t* taken) {
    if (taken)
        *taken = 0;
    return guarded([&] {
        if (const auto problem = firstProblem(suggesting, taken); problem != VANOKA_OK)
            return problem;
        if (const auto problem = problemOf(rows, count); problem != VANOKA_OK)
            return problem;
        const bool isNewest =
            suggesting->typing.take(static_cast<std::uint64_t>(request), candidatesOf(rows, count));
        *taken = isNewest ? 1 : 0;
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_suggesting_line(const vanoka_suggesting* suggesting, vanoka_answer* answer) {
    return asking(suggesting, answer, [](const CandidateTyping& typing, Reply& reply) {
        const CandidateLine& line = typing.line();
        for (std::size_t at = 0; at < line.rows.size(); ++at) {
            addCandidate(reply, line.rows[at]);
            if (at == line.highlighted)
                reply.add(VANOKA_HIGHLIGHTED, "");
        }
    });
}
