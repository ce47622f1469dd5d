#pragma once

#include "singlish/SinglishCustomization.h"
#include "support/Fatal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vanoka::fuzz {

/// Stops the fuzzer with `law` when it does not hold.
inline void expect(bool holds, std::string_view law) {
    if (!holds)
        fatal(law);
}

/// The input, taken apart from its front.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    bool isEmpty() const noexcept { return rest_.empty(); }

    std::uint8_t byte() {
        if (rest_.empty())
            return 0;
        const auto first = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return first;
    }

    /// As many bytes as the first one says, at most `most`.
    std::string text(std::size_t most) {
        const std::string_view taken = rest_.substr(0, byte() % (most + 1));
        rest_.remove_prefix(std::min(taken.size(), rest_.size()));
        return std::string(taken);
    }

    std::string rest() { return std::string(rest_); }

    /// A few added and disabled keys, of any kind.
    SinglishCustomization customization() {
        static constexpr std::string_view letters[] = {"\u0D9A", "\u0DBA", "\u0DBB",
                                                       "\u0D85", "\u0D86", "\u0D82"};
        SinglishCustomization customization;
        for (int count = byte() % 4; count > 0; --count) {
            std::string key = text(7);
            customization.addedKeys.push_back({std::move(key), std::string(letters[byte() % 6])});
        }
        for (int count = byte() % 4; count > 0; --count)
            customization.disabledKeys.insert(text(3));
        return customization;
    }

private:
    std::string_view rest_;
};

} // namespace vanoka::fuzz
