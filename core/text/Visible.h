#pragma once

#include <string>
#include <string_view>

/// Text that came from elsewhere (a file, a paste, an argument), as people may be shown it. What would act on
/// a terminal instead of showing is spelled out:
///
///   control characters (Cc)                    \n, \r, \t, all others like \u{1B}
///   what turns the direction of a whole row    \u{202E} (embeddings, overrides, isolates)
///   bytes that are not well-formed UTF-8       \x9B
///
/// All else stays as it is, joiners and backslashes too: this is for reading, not for reading back.
namespace vanoka::text {

/// `text` as a part of a line: of a message, a column, a row that is typed on.
std::string visible(std::string_view text);

/// `text` as lines: line feeds, CR LF and tabs do what they are for.
std::string visibleLines(std::string_view text);

} // namespace vanoka::text
