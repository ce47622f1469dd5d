#pragma once

#include <memory>
#include <utility>

namespace vanoka {

/// What was found out and only saves time. A copy of its owner finds it out anew, so that two that are used
/// at the same time share nothing.
template <class Value>
class CopiedEmpty {
public:
    CopiedEmpty() noexcept = default;
    CopiedEmpty(const CopiedEmpty&) noexcept {}
    CopiedEmpty& operator=(const CopiedEmpty&) noexcept {
        value_.reset();
        return *this;
    }
    ~CopiedEmpty() = default;

    /// Null when there is nothing yet.
    Value* get() const noexcept { return value_.get(); }

    template <class... Arguments>
    Value& make(Arguments&&... arguments) {
        value_ = std::make_shared<Value>(std::forward<Arguments>(arguments)...);
        return *value_;
    }

private:
    std::shared_ptr<Value> value_; ///< never shared; its owner need not know how it ends
};

} // namespace vanoka
