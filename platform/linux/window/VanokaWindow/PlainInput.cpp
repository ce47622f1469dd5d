#include "PlainInput.h"

#include <QtGlobal>

namespace vanoka::PlainInput {

namespace {

constexpr const char* variable = "QT_IM_MODULE";
constexpr const char* composeOnly = "compose"; // Qt's own table of dead keys and Compose, and nothing else

QByteArray& usersValue() {
    static QByteArray value;
    return value;
}

} // namespace

// The variable has to stay: on Wayland the toolkit reads it again whenever the compositor's abilities change.
void begin() {
    usersValue() = qgetenv(variable);
    qputenv(variable, composeOnly);
}

Suspension::Suspension() {
    if (usersValue().isNull())
        qunsetenv(variable);
    else
        qputenv(variable, usersValue());
}

Suspension::~Suspension() {
    qputenv(variable, composeOnly);
}

} // namespace vanoka::PlainInput
