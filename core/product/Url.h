#pragma once

#include <string>
#include <string_view>

namespace vanoka {

/// An absolute web address: a scheme, "://", a host and whatever follows.
class Url {
public:
    /// Parses a fixed text of the program. A text that is no such address is a programming error and stops
    /// the process.
    explicit Url(std::string_view text);

    const std::string& text() const noexcept { return text_; }
    /// The host's name: the address without its scheme, port and path. A view into this object.
    std::string_view host() const noexcept { return std::string_view(text_).substr(hostStart_, hostLength_); }

private:
    std::string text_;
    std::size_t hostStart_ = 0;
    std::size_t hostLength_ = 0;
};

} // namespace vanoka
