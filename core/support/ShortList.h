#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

namespace vanoka {

/// A list of at most `capacity` values that stands inside its owner, so that a table of records with lists
/// in them is a constant expression. More values than fit do not compile in a constant.
template <class Value, std::size_t capacity>
class ShortList {
public:
    constexpr ShortList() = default;
    constexpr ShortList(std::initializer_list<Value> values) : size_(values.size()) {
        std::copy(values.begin(), values.end(), values_.begin());
    }

    constexpr const Value* begin() const noexcept { return values_.data(); }
    constexpr const Value* end() const noexcept { return values_.data() + size_; }
    constexpr std::size_t size() const noexcept { return size_; }
    constexpr bool empty() const noexcept { return size_ == 0; }
    constexpr const Value& front() const noexcept { return values_[0]; }
    constexpr const Value& operator[](std::size_t index) const noexcept { return values_[index]; }

private:
    std::array<Value, capacity> values_{};
    std::size_t size_ = 0;
};

} // namespace vanoka
