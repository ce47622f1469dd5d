#pragma once

#include "Fuzz.h"
#include "vanoka.h"

#include <cstddef>
#include <string_view>

namespace vanoka::fuzz {

/// A handle that is created anew from time to time.
template <class Handle, auto release>
class Slot {
public:
    Slot() = default;
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { release(handle_); }

    Handle* get() const noexcept { return handle_; }

    template <class Create>
    void make(Create create) {
        release(handle_);
        handle_ = nullptr;
        const vanoka_status status = create(&handle_);
        expect((status == VANOKA_OK) == (handle_ != nullptr), "there is a handle when all is well");
    }

private:
    Handle* handle_ = nullptr;
};

inline std::string_view textOf(const vanoka_item& item) {
    return {item.text, item.size};
}

/// What every caller of the C interface may rely on.
inline void expectAnswered(vanoka_status status, const vanoka_answer* answer) {
    expect(status >= VANOKA_OK && status < VANOKA_NO_MEMORY, "a call says how it went");
    expect(answer || status != VANOKA_OK, "nothing is well that cannot be answered");
    expect(status == VANOKA_OK || vanoka_answer_count(answer) == 0, "a call that fails answers nothing");
    for (std::size_t at = 0; at < vanoka_answer_count(answer); ++at) {
        const vanoka_item& item = vanoka_answer_items(answer)[at];
        expect(item.text && item.text[item.size] == '\0', "a text is followed by a zero byte");
        expect(item.kind > 0, "an item has a kind");
    }
}

} // namespace vanoka::fuzz
