#pragma once

#include <unistd.h>
#include <utility>

namespace vanoka {

/// A descriptor that closes itself.
class Descriptor {
public:
    Descriptor() = default;
    /// Takes what open and its kind return; a negative number is no descriptor.
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (isOpen())
            ::close(number_);
    }

    bool isOpen() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }

private:
    int number_ = -1;
};

} // namespace vanoka
