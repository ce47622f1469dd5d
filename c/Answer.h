#pragma once

#include "Calls.h"
#include "swipe/SwipeMemory.h"
#include "vanoka.h"
#include "words/ReadingMemory.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka::c {

/// The items of an answer and all their texts, one after the other, each with a zero byte.
struct Items {
    std::string texts;
    std::vector<vanoka_item> items;

    void clear() noexcept;
};

} // namespace vanoka::c

/// What the last call gave, and room for what the next one gives: a call may be passed a text of the first,
/// and has allocated nothing when it has been as much before.
struct vanoka_answer {
    vanoka::c::Items given, next;
    vanoka::ReadingMemory reading; ///< of the word whose candidates were asked for last
    vanoka::SwipeMemory strokes;   ///< of the decoder and the layout that were asked last
};

namespace vanoka::c {

/// The answer that a call is giving.
class Reply {
public:
    explicit Reply(vanoka_answer& answer) noexcept : answer_(answer) { answer_.next.clear(); }

    void add(std::int32_t kind, std::string_view text, std::int64_t number = 0);
    void addAll(std::int32_t kind, const std::vector<std::string>& texts);

    /// Now the answer holds what was added, or nothing when the call has failed.
    void finish(vanoka_status status) noexcept;

private:
    vanoka_answer& answer_;
};

/// Performs a call, a function of the reply that it gives, which returns its status.
template <class Call>
vanoka_status answering(vanoka_answer* answer, Call call) noexcept {
    if (!answer)
        return VANOKA_BAD_ARGUMENT;
    Reply reply(*answer);
    const vanoka_status status = guarded([&] { return call(reply); });
    reply.finish(status);
    return status;
}

} // namespace vanoka::c
