#pragma once

#include <memory>
#include <utility>

namespace vanoka {

/// A constant that its copies share. There always is one: moving copies, so that whoever was moved from still
/// has it.
template <class Value>
class Shared {
public:
    /// `value` is not null.
    explicit Shared(std::shared_ptr<const Value> value) noexcept : value_(std::move(value)) {}
    Shared(const Shared&) noexcept = default;
    Shared& operator=(const Shared&) noexcept = default;
    ~Shared() = default;

    const Value& operator*() const noexcept { return *value_; }
    const Value* operator->() const noexcept { return value_.get(); }

    /// True when both are copies of one.
    friend bool operator==(const Shared&, const Shared&) noexcept = default;

private:
    std::shared_ptr<const Value> value_;
};

} // namespace vanoka
