#pragma once

#include "WordTally.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What was learnt as text, to be carried elsewhere: lines of fields with a tab between them.
///
///     WORD  COUNT                   a Sinhala word and how often it was put in, the row of a word list
///     WORD  english  KEPT  SINHALA  how often an English word was kept, and was typed in Sinhala
///     WORD  forgotten               never learnt again
///
/// A reader of word lists takes the first kind and passes over the others. Empty lines and those that begin
/// with "#" say nothing.
namespace vanoka::WordsDocument {

inline constexpr std::size_t largest = std::size_t{16} * 1024 * 1024; ///< in bytes

/// The most used words first.
std::string write(const WordTally& tally);

/// The fields of a line. Views of it.
std::vector<std::string_view> fieldsOf(std::string_view line);

struct Problem {
    std::size_t line = 0; ///< from 1
    std::string reason;   ///< such as "the count is no whole number from 1 to 2147483647"
};

/// All of the document, or the first line of it that is wrong: one of another form, a word that is never
/// learnt, one that stands there twice or is forgotten and counted, more Sinhala or English words than are
/// kept.
std::variant<WordTally, Problem> read(std::string_view document);

} // namespace vanoka::WordsDocument
