#pragma once

#include <QByteArray>

/// Keeps input methods out of this process. The key field takes Latin keys as they are typed, and an active
/// input method, this one above all, would turn them into Sinhala before they arrive. Dead keys and Compose
/// go on working.
namespace vanoka::PlainInput {

/// Before the application object is made.
void begin();

/// While it lives, processes that are started inherit the environment as the user has it.
class Suspension {
public:
    Suspension();
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
    ~Suspension();
};

} // namespace vanoka::PlainInput
