#pragma once

#include "singlish/SinglishCustomization.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Random texts, keys and customizations that come near the rules' edges more often than chance would. The
/// same seed gives the same values everywhere.
namespace vanoka::test {

class Randoms {
public:
    explicit Randoms(std::uint32_t seed) : engine_(seed) {}

    /// A number from 0 to `bound` − 1.
    std::size_t below(std::size_t bound) { return engine_() % bound; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    template <class Value>
    const Value& of(const std::vector<Value>& values) {
        return values[below(values.size())];
    }

    /// Letters as a typist presses them: whole keys of the scheme, mostly.
    std::string keys(std::size_t mostKeys);
    /// These letters after a slip of the finger: one is left out, or another stands in its place, or before
    /// it.
    std::string slipped(std::string letters);
    /// Any text: keys, other characters, clusters of several scalars, ill-formed bytes.
    std::string text(std::size_t mostPieces);
    /// Keys added and switched off as the settings allow it.
    SinglishCustomization customization();
    /// Whatever a stored document may hold.
    SinglishCustomization strangeCustomization();

private:
    std::mt19937 engine_;
};

} // namespace vanoka::test
