#include "WordTally.h"

#include "Answer.h"
#include "Arguments.h"
#include "Lists.h"
#include "WordsDocument.h"
#include "vanoka.h"

#include <string>
#include <utility>

using namespace vanoka;
using namespace vanoka::c;

struct vanoka_learnt {
    WordTally tally;
};

namespace {

vanoka_status apply(vanoka_learnt* learnt, WordChange::Kind kind, const Text& keys, const Text& text) {
    return guarded([&] {
        if (const auto problem = firstProblem(learnt, keys, text); problem != VANOKA_OK)
            return problem;
        const CommittedWord word = {std::string(keys.view()), std::string(text.view())};
        vanoka::apply({kind, LearntWords::learntFrom(word)}, learnt->tally);
        makeRoom(learnt->tally);
        return vanoka_status{VANOKA_OK};
    });
}

} // namespace

vanoka_status vanoka_learnt_create(vanoka_learnt** learnt) {
    return creating(learnt, [] { return VANOKA_OK; }, [] { return new vanoka_learnt(); });
}

void vanoka_learnt_release(vanoka_learnt* learnt) {
    delete learnt;
}

vanoka_status vanoka_learnt_learn(vanoka_learnt* learnt, const char* keys, std::size_t keys_size,
                                  const char* text, std::size_t text_size) {
    return apply(learnt, WordChange::Kind::learn, {keys, keys_size}, {text, text_size});
}

vanoka_status vanoka_learnt_unlearn(vanoka_learnt* learnt, const char* keys, std::size_t keys_size,
                                    const char* text, std::size_t text_size) {
    return apply(learnt, WordChange::Kind::unlearn, {keys, keys_size}, {text, text_size});
}

vanoka_status vanoka_learnt_forget(vanoka_learnt* learnt, const char* word, std::size_t size) {
    return guarded([&] {
        const Text text(word, size);
        if (const auto problem = firstProblem(learnt, text); problem != VANOKA_OK)
            return problem;
        vanoka::apply({WordChange::Kind::forget, LearntWords::formOf(text.view())}, learnt->tally);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_learnt_document(const vanoka_learnt* learnt, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(learnt); problem != VANOKA_OK)
            return problem;
        reply.add(VANOKA_TEXT, WordsDocument::write(learnt->tally));
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_learnt_import(vanoka_learnt* learnt, const char* document, std::size_t size,
                                   vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Bytes bytes = {document, size};
        if (const auto problem = firstProblem(learnt, bytes); problem != VANOKA_OK)
            return problem;
        const auto read = WordsDocument::read(bytes.view());
        if (const auto* problem = std::get_if<WordsDocument::Problem>(&read)) {
            reply.add(VANOKA_REFUSED, problem->reason, static_cast<std::int64_t>(problem->line));
            return vanoka_status{VANOKA_OK};
        }
        WordTally merged = learnt->tally;
        merge(std::get<WordTally>(read), merged);
        learnt->tally = std::move(merged);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_learnt_personal(const vanoka_learnt* learnt, vanoka_personal** personal) {
    return creating(
        personal, [&] { return firstProblem(learnt); },
        [&] { return new vanoka_personal{withReading(WordTally(learnt->tally).words())}; });
}
