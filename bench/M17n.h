#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vanoka::bench {

/// The m17n library's Hindi ITRANS input method: a peer that turns Latin keys into an Indic script, key by
/// key.
class M17n {
public:
    M17n();
    M17n(const M17n&) = delete;
    M17n& operator=(const M17n&) = delete;
    ~M17n();

    /// False when the library has no such input method here.
    bool isThere() const noexcept;

    /// One key; returns the number of characters that it made final.
    int press(char key);

    /// Ends the composition.
    void reset();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace vanoka::bench
