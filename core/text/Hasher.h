#pragma once

#include "text/Equivalence.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vanoka {

/// Makes one hash of several fields, whose order counts. Texts feed canonically equivalent forms alike.
class Hasher {
public:
    void feed(std::size_t value) noexcept { state_ = (state_ ^ value) * prime; }
    void feed(std::string_view text) { feed(text::hash(text)); }
    /// A list: its size, then each text.
    template <class List>
        requires requires(const List& list) { list.size(), std::string_view(*list.begin()); }
    void feedEach(const List& texts) {
        feed(texts.size());
        for (const std::string_view text : texts)
            feed(text);
    }
    std::size_t value() const noexcept { return static_cast<std::size_t>(state_); }

private:
    static constexpr std::uint64_t prime = 0x9E3779B97F4A7C15ULL;
    std::uint64_t state_ = prime;
};

} // namespace vanoka
