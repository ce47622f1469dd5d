#pragma once

#include <sys/types.h>
#include <unistd.h>

namespace vanoka {

/// Whether a file of this owner may be one of our own: it is this user's or the system's. What another user
/// has put into a folder that several may write to is a trap: a link that leads us to write over a file of
/// ours, or a store that its owner reads.
inline bool isTrustedOwner(uid_t owner) {
    return owner == ::geteuid() || owner == 0;
}

} // namespace vanoka
