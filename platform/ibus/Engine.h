#pragma once

#include "InputContext.h"

#include <gio/gio.h>
#include <ibus.h>
#include <string_view>

namespace vanoka::ibus {

/// A new engine object, as the daemon's factory wants it: it hands each call on to an `InputContext`. The
/// environment must outlive it; `path` is its name on the connection.
IBusEngine* newEngine(const char* name, const char* path, GDBusConnection* connection,
                      EngineEnvironment& environment);

/// Suggestions are other ones than before, or the user's choices about them are.
void showSuggestionsInAllEngines();

/// The daemon makes no other engine in the place of one of them any more.
void keepAllEngines();

/// This field has the focus, as the daemon says.
void tellFocus(std::string_view field);

/// Ends the compositions of all engines: the process is about to end.
void finishAllEngines();

} // namespace vanoka::ibus
