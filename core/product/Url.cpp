#include "product/Url.h"

#include "support/Fatal.h"
#include "text/Utf8.h"

#include <algorithm>

namespace vanoka {

namespace {

bool isDigit(char byte) noexcept {
    return byte >= '0' && byte <= '9';
}

bool isSchemeByte(char byte) noexcept {
    return text::isAsciiLetter(byte) || isDigit(byte) || byte == '+' || byte == '-' || byte == '.';
}

bool isScheme(std::string_view scheme) noexcept {
    return !scheme.empty() && text::isAsciiLetter(scheme.front()) &&
           std::ranges::all_of(scheme, isSchemeByte);
}

bool isHost(std::string_view host) noexcept {
    return !host.empty() && std::ranges::all_of(host, [](char byte) {
        return text::isAsciiLetter(byte) || isDigit(byte) || byte == '-' || byte == '.';
    });
}

/// Printable ASCII without the characters that stand around an address in running text.
bool isAddressByte(char byte) noexcept {
    return byte > ' ' && byte <= '~' && std::string_view("\"<>\\^`{|}").find(byte) == std::string_view::npos;
}

} // namespace

Url::Url(std::string_view text) : text_(text) {
    constexpr std::string_view separator = "://";
    const std::size_t schemeLength = text.find(separator);
    if (schemeLength != std::string_view::npos) {
        hostStart_ = schemeLength + separator.size();
        const std::string_view afterScheme = text.substr(hostStart_);
        hostLength_ = std::min(afterScheme.find_first_of(":/?#"), afterScheme.size());
    }
    if (!isScheme(text.substr(0, schemeLength)) || !isHost(host()) ||
        !std::ranges::all_of(text, isAddressByte))
        fatal("Not a web address: " + text_);
}

} // namespace vanoka
