#include "FileReading.h"

#include "text/Visible.h"

#include <cerrno>
#include <cstring>
#include <fstream>

namespace vanoka::FileReading {

namespace {

constexpr std::size_t pieceSize = 256 * 1024; // in bytes

/// Standard streams tell no reason of their own, and need not set the system's.
std::string cannotRead(const std::string& path) {
    const std::string reason = errno != 0 ? std::string(": ") + std::strerror(errno) : "";
    return "Cannot read " + text::visible(path) + reason;
}

} // namespace

std::string readPieces(const std::string& path, std::istream& standardInput, const TakePiece& take) {
    std::ifstream file;
    errno = 0;
    if (path != "-")
        file.open(path, std::ios::binary);
    std::istream& source = path == "-" ? standardInput : file;
    std::string piece(pieceSize, '\0');
    for (bool goesOn = true; source && goesOn;) {
        // By the stream, which turns what its buffer throws (a folder does that) into a state.
        source.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        goesOn = take(std::string_view(piece).substr(0, static_cast<std::size_t>(source.gcount())));
    }
    const bool hasFailed = source.bad() || (source.fail() && !source.eof()) || errno == EISDIR;
    return hasFailed ? cannotRead(path) : "";
}

Contents contentsOf(const std::string& path, std::istream& standardInput, std::size_t most) {
    Contents contents;
    contents.problem = readPieces(path, standardInput, [&](std::string_view piece) {
        contents.text += piece;
        return contents.text.size() <= most;
    });
    return contents;
}

} // namespace vanoka::FileReading
