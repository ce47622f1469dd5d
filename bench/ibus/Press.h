#pragma once

#include "IBusField.h"
#include "Measures.h"

namespace vanoka::bench {

/// Until the daemon has answered, in microseconds.
inline double press(test::IBusField& field, guint keysym) {
    return timed([&] { ibus_input_context_process_key_event(field.context(), keysym, 0, 0); });
}

} // namespace vanoka::bench
