#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vanoka {

/// Keeps an observer informed for as long as this handle lives. Outliving the announcer does no harm.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> observer) : observer_(std::move(observer)) {}
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&&) noexcept = default;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() = default;

    void end() { observer_.reset(); }

private:
    std::shared_ptr<void> observer_;
};

/// Calls its observers, in the order in which they subscribed, on every announcement. An observer may
/// subscribe others and end any subscription while it is called: one that ended is not called any more, one
/// that came is called from the next announcement on.
template <class... Values>
class Announcer {
public:
    using Observer = std::function<void(const Values&...)>;

    [[nodiscard]] Subscription subscribe(Observer observer) {
        auto kept = std::make_shared<Observer>(std::move(observer));
        std::erase_if(observers_, [](const auto& known) { return known.expired(); });
        observers_.push_back(kept);
        return Subscription(std::move(kept));
    }

    void announce(const Values&... values) const {
        const auto present = observers_;
        for (const auto& known : present)
            if (const auto observer = known.lock())
                (*observer)(values...);
    }

private:
    std::vector<std::weak_ptr<Observer>> observers_;
};

} // namespace vanoka
