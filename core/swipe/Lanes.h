#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vanoka {

/// Numbers of single precision that are computed with side by side, four in one instruction on the machines
/// that phones and desks have. The vectors are those that GCC and Clang know on every machine.
template <std::size_t size>
class Lanes {
public:
    static_assert(size % 4 == 0);
    using Numbers = std::array<float, size>;

    Lanes() = default;
    explicit Lanes(float all) noexcept { quads_.fill(Quad{all, all, all, all}); }
    explicit Lanes(const Numbers& numbers) noexcept {
        std::memcpy(quads_.data(), numbers.data(), sizeof numbers);
    }
    explicit Lanes(const std::array<std::uint8_t, size>& bytes) noexcept {
        std::array<ByteQuad, size / 4> quads;
        static_assert(sizeof quads == sizeof bytes);
        std::memcpy(quads.data(), bytes.data(), sizeof bytes);
        *this = each([&](Quad& quad, std::size_t i) { quad = __builtin_convertvector(quads[i], Quad); });
    }

    Numbers numbers() const noexcept {
        Numbers numbers;
        std::memcpy(numbers.data(), quads_.data(), sizeof numbers);
        return numbers;
    }

    friend Lanes operator+(const Lanes& left, const Lanes& right) noexcept {
        return each([&](Quad& quad, std::size_t i) { quad = left.quads_[i] + right.quads_[i]; });
    }
    friend Lanes operator-(const Lanes& left, const Lanes& right) noexcept {
        return each([&](Quad& quad, std::size_t i) { quad = left.quads_[i] - right.quads_[i]; });
    }
    friend Lanes operator*(const Lanes& left, const Lanes& right) noexcept {
        return each([&](Quad& quad, std::size_t i) { quad = left.quads_[i] * right.quads_[i]; });
    }

    /// Each number, or 0 where that is more.
    Lanes positive() const noexcept {
        return each([&](Quad& quad, std::size_t i) {
            const Quad now = quads_[i];
            quad = now > 0 ? now : Quad{}; // out of reach: no branch, each of the four has its own answer
        });
    }

    /// What each number has grown by from the one before, the first from 0.
    Lanes growth() const noexcept {
        return each([&](Quad& quad, std::size_t i) {
            const Quad now = quads_[i];
            quad = now - Quad{i > 0 ? quads_[i - 1][3] : 0, now[0], now[1], now[2]};
        });
    }

    Lanes squareRoot() const noexcept {
        Numbers roots = numbers();
        for (float& root : roots)
            root = std::sqrt(root);
        return Lanes(roots);
    }

    float sum() const noexcept {
        Quad sums{};
        for (const Quad quad : quads_)
            sums += quad;
        return (sums[0] + sums[1]) + (sums[2] + sums[3]);
    }

private:
    using Quad = float __attribute__((vector_size(16)));
    using ByteQuad = std::uint8_t __attribute__((vector_size(4)));

    /// No vector is passed by value: how that is done differs where the machine may lack them.
    template <class Operation>
    static Lanes each(Operation operation) noexcept {
        Lanes result;
        for (std::size_t i = 0; i < result.quads_.size(); ++i)
            operation(result.quads_[i], i);
        return result;
    }

    std::array<Quad, size / 4> quads_{};
    static_assert(sizeof quads_ == sizeof(Numbers));
};

} // namespace vanoka
