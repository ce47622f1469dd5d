#include "text/Equivalence.h"

#include "script/SinhalaBlock.h"
#include "support/Fatal.h"
#include "text/Utf8.h"

#include <functional>
#include <utf8proc.h>
#include <vector>

namespace vanoka::text {

namespace {

void appendComposed(std::string& result, std::string_view wellFormed) {
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE);
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(wellFormed.data());
    const auto size = static_cast<utf8proc_ssize_t>(wellFormed.size());
    const utf8proc_ssize_t needed = utf8proc_decompose(bytes, size, nullptr, 0, options);
    if (needed < 0) // out of reach: the text is well-formed, and shorter than what is counted
        fatal("A text could not be normalised");
    std::vector<utf8proc_int32_t> scalars(static_cast<std::size_t>(needed));
    utf8proc_decompose(bytes, size, scalars.data(), needed, options);
    const utf8proc_ssize_t count = utf8proc_normalize_utf32(scalars.data(), needed, options);
    for (utf8proc_ssize_t i = 0; i < count; ++i)
        result += utf8(static_cast<char32_t>(scalars[static_cast<std::size_t>(i)]));
}

} // namespace

/// What stands below U+0300 never composes with anything before it, and in Sinhala only the split vowel signs
/// do.
bool isKnownComposed(std::string_view text) noexcept {
    text.remove_prefix(asciiLength(text)); // composes with nothing that is known
    char32_t before = 0;
    while (!text.empty()) {
        const Scalar scalar = firstScalar(text);
        const bool isKnown =
            scalar.value < 0x300 || script::isSinhala(scalar.value) || script::isJoiner(scalar.value);
        if (!isKnown || script::composes(before, scalar.value))
            return false;
        before = scalar.value;
        text.remove_prefix(scalar.length);
    }
    return true;
}

std::string nfc(std::string_view text) {
    if (isKnownComposed(text))
        return std::string(text);
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        std::size_t run = 0;
        Scalar next = firstScalar(text);
        while (next.wellFormed) {
            run += next.length;
            next = firstScalar(text.substr(run));
        }
        appendComposed(result, text.substr(0, run));
        result += text.substr(run, next.length);
        text.remove_prefix(run + next.length);
    }
    return result;
}

bool equal(std::string_view left, std::string_view right) {
    if (left == right)
        return true;
    if (isKnownComposed(left) && isKnownComposed(right))
        return false;
    return nfc(left) == nfc(right);
}

bool CanonicalLess::operator()(std::string_view left, std::string_view right) const {
    if (isKnownComposed(left) && isKnownComposed(right))
        return left < right;
    return nfc(left) < nfc(right);
}

std::size_t hash(std::string_view text) {
    if (isKnownComposed(text))
        return std::hash<std::string_view>{}(text);
    return std::hash<std::string>{}(nfc(text));
}

} // namespace vanoka::text
