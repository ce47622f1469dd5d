#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <limits>
#include <string>
#include <string_view>

/// Files by their paths, and standard input by the name "-". What cannot be read is told in words, "Cannot
/// read PATH: reason", which act on no terminal; they are empty when nothing went wrong. A folder is no file,
/// and an input that fails has not ended.
namespace vanoka::FileReading {

/// Takes the next piece; false when that is enough.
using TakePiece = std::function<bool(std::string_view piece)>;

/// Hands the contents on in pieces of some 100 kB, and returns what went wrong.
std::string readPieces(const std::string& path, std::istream& standardInput, const TakePiece& take);

struct Contents {
    std::string text;
    std::string problem; ///< what went wrong; `text` is then what came before
};

/// Reads all, or somewhat more than `most` bytes of what is longer: it may have no end.
Contents contentsOf(const std::string& path, std::istream& standardInput,
                    std::size_t most = std::numeric_limits<std::size_t>::max());

} // namespace vanoka::FileReading
