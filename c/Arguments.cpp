#include "Arguments.h"

#include "text/Utf8.h"

namespace vanoka::c {

vanoka_status problemOf(const Bytes& bytes) noexcept {
    if (!bytes.start && bytes.size > 0)
        return VANOKA_BAD_ARGUMENT;
    return bytes.size > bytes.largest ? VANOKA_TOO_LARGE : VANOKA_OK;
}

vanoka_status problemOf(const Text& text) noexcept {
    if (const vanoka_status problem = problemOf(static_cast<const Bytes&>(text)); problem != VANOKA_OK)
        return problem;
    return text::isWellFormed(text.view()) ? VANOKA_OK : VANOKA_ILL_FORMED;
}

} // namespace vanoka::c
