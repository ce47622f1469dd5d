#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace vanoka {

/// Eight numbers of single precision that are computed with side by side, four in one instruction on the
/// machines that phones and desks have. The vectors are those that GCC and Clang know on every machine.
class Lanes {
public:
    static constexpr std::size_t count = 8;
    using Numbers = std::array<float, count>;

    Lanes() = default;
    explicit Lanes(float all) noexcept : low_{all, all, all, all}, high_{all, all, all, all} {}
    explicit Lanes(const Numbers& numbers) noexcept {
        std::memcpy(&low_, numbers.data(), sizeof low_);
        std::memcpy(&high_, numbers.data() + count / 2, sizeof high_);
    }

    Numbers numbers() const noexcept {
        Numbers numbers;
        std::memcpy(numbers.data(), &low_, sizeof low_);
        std::memcpy(numbers.data() + count / 2, &high_, sizeof high_);
        return numbers;
    }

    friend Lanes operator+(const Lanes& left, const Lanes& right) noexcept {
        return {left.low_ + right.low_, left.high_ + right.high_};
    }
    friend Lanes operator-(const Lanes& left, const Lanes& right) noexcept {
        return {left.low_ - right.low_, left.high_ - right.high_};
    }
    friend Lanes operator*(const Lanes& left, const Lanes& right) noexcept {
        return {left.low_ * right.low_, left.high_ * right.high_};
    }

    /// Each number, or 0 where that is more.
    Lanes positive() const noexcept { return {low_ > 0 ? low_ : Quad{}, high_ > 0 ? high_ : Quad{}}; }

    /// What each number has grown by from the one before, the first from 0.
    Lanes growth() const noexcept {
        const Quad lowBefore = {0, low_[0], low_[1], low_[2]};
        const Quad highBefore = {low_[3], high_[0], high_[1], high_[2]};
        return {low_ - lowBefore, high_ - highBefore};
    }

    Lanes squareRoot() const noexcept {
        Numbers roots = numbers();
        for (float& each : roots)
            each = std::sqrt(each);
        return Lanes(roots);
    }

    float sum() const noexcept {
        const Quad pairs = low_ + high_;
        return (pairs[0] + pairs[1]) + (pairs[2] + pairs[3]);
    }

private:
    using Quad = float __attribute__((vector_size(16)));

    Lanes(Quad low, Quad high) noexcept : low_(low), high_(high) {}

    Quad low_{}, high_{};
};

} // namespace vanoka
