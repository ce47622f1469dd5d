#include "ComposeSequence.h"

#include "Keysym.h"

namespace vanoka {

namespace {

constexpr std::uint32_t compose = 0xFF20;
constexpr int keysAfterCompose = 2, keysAfterDeadKey = 1;

} // namespace

bool ComposeSequence::takes(std::uint32_t keysym) {
    if (Keysym::isModifier(keysym))
        return isUnderway();
    if (keysym == compose) {
        keysToCome_ = keysAfterCompose;
        return true;
    }
    if (Keysym::startsSequence(keysym) && keysToCome_ <= keysAfterDeadKey) {
        keysToCome_ = keysAfterDeadKey; // also after another dead key: two marks on one letter
        return true;
    }
    if (!isUnderway())
        return false;
    --keysToCome_;
    return true;
}

} // namespace vanoka
