#pragma once

#include "Replay.h"

#include <cstddef>
#include <cstdint>

namespace vanoka::test {

/// A field in this process, served by a framework's daemon and an engine in other processes.
class RemoteField : public ServedField {
public:
    using ServedField::press;

    /// One event of a key as X has it, with `Keysym::release` in the state or without.
    virtual void press(std::uint32_t keysym, std::uint32_t state) = 0;
    /// Presses a key and does not wait until the framework has answered.
    virtual void pressAtOnce(const KeyEvent& event) = 0;
    /// Waits until so many of these have been answered; false when it takes too long.
    virtual bool waitUntilFinished(std::size_t count) = 0;
    virtual void focusIn() = 0;
    virtual void focusOut() = 0;
};

} // namespace vanoka::test
