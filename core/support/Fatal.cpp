#include "support/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace vanoka {

void fatal(std::string_view message) noexcept {
    std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
    std::abort();
}

void fatal(std::string_view message, std::string_view place) noexcept {
    std::fprintf(stderr, "%.*s: ", static_cast<int>(place.size()), place.data());
    fatal(message);
}

} // namespace vanoka
