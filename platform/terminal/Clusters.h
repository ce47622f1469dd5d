#pragma once

#include <cstddef>
#include <string_view>

/// Text as a terminal draws it. A drawn cluster is one character together with all that a zero-width joiner
/// ties to it: the two consonants of a conjunct are two characters and one picture, and must be sent, wrapped
/// and passed by the caret as one.
namespace vanoka::Clusters {

/// The first drawn cluster of `text`; empty for an empty text.
std::string_view first(std::string_view text);

/// Where the last drawn cluster of `text` begins, in bytes; 0 for an empty text.
std::size_t startOfLast(std::string_view text);

/// The most cells that a terminal gives to `text`. Terminals disagree about Sinhala vowel signs; this is the
/// widest of their answers.
std::size_t width(std::string_view text);

} // namespace vanoka::Clusters
