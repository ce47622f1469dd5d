#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <vector>

namespace vanoka {

/// A list that stands inside its owner as long as it has at most `usual` values, so that a table of records
/// with lists in them is a constant expression. A longer one has them elsewhere, and does not compile in a
/// constant.
template <class Value, std::size_t usual>
class ShortList {
public:
    static constexpr std::size_t usualSize = usual;

    constexpr ShortList() = default;
    constexpr ShortList(std::initializer_list<Value> values)
        : ShortList(std::span(values.begin(), values.size())) {}
    constexpr explicit ShortList(std::span<const Value> values) {
        if (values.size() > usual) {
            more_.assign(values.begin(), values.end());
        } else {
            std::ranges::copy(values, few_.begin());
            size_ = values.size();
        }
    }

    constexpr const Value* begin() const noexcept { return more_.empty() ? few_.data() : more_.data(); }
    constexpr const Value* end() const noexcept { return begin() + size(); }
    constexpr std::size_t size() const noexcept { return more_.empty() ? size_ : more_.size(); }
    constexpr bool empty() const noexcept { return size() == 0; }
    constexpr const Value& front() const noexcept { return *begin(); }
    constexpr const Value& operator[](std::size_t index) const noexcept { return begin()[index]; }

private:
    std::size_t size_ = 0; ///< of `few_`
    std::array<Value, usual> few_{};
    std::vector<Value> more_; ///< all values when they are more than `usual`; none otherwise
};

} // namespace vanoka
