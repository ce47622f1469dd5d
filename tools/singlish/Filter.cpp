#include "Filter.h"

#include "singlish/SinglishStream.h"
#include "text/Characters.h"
#include "text/Utf8.h"
#include "text/Visible.h"

#include <array>
#include <cerrno>
#include <string>
#include <unistd.h>

namespace vanoka {

namespace {

constexpr std::size_t pieceSize = 64 * 1024; // in bytes

/// No key is as long as this, so a character that is longer may be cut: it passes as it is all the same.
constexpr std::size_t longestCharacter = 16 * 1024; // in bytes

/// How many bytes of `text` are characters that nothing after them can become a part of: all but the last
/// one, and that one too when it ends a line.
std::size_t completeLength(std::string_view text) {
    if (text.ends_with('\n'))
        return text.size();
    const std::string_view scalars = text.substr(0, text.size() - text::unfinishedLength(text));
    const std::size_t lineEnd = scalars.rfind('\n');
    std::size_t last = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    std::size_t end = last;
    while (end < scalars.size()) {
        last = end;
        end += text::firstCharacter(scalars.substr(end)).size();
    }
    return text.size() - last > longestCharacter ? text.size() : last;
}

bool writeAll(int output, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(output, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

FilterOutcome filter(int input, int output, const SinglishTransliterator& transliterator) {
    const bool isShown = ::isatty(output) != 0;
    SinglishStream stream(transliterator);
    std::string text, sinhala;
    std::array<char, pieceSize> piece;
    for (;;) {
        const ssize_t count = ::read(input, piece.data(), piece.size());
        if (count < 0 && errno == EINTR)
            continue;
        const int readError = count < 0 ? errno : 0;
        const bool isLast = count <= 0; // what has been read counts even when reading on fails
        if (!isLast)
            text.append(piece.data(), static_cast<std::size_t>(count));
        const std::size_t complete = isLast ? text.size() : completeLength(text);
        stream.write(std::string_view(text).substr(0, complete), sinhala);
        text.erase(0, complete);
        if (isLast)
            stream.finish(sinhala);
        if (!writeAll(output, isShown ? text::visibleLines(sinhala) : sinhala))
            return FilterOutcome::cannotWrite;
        if (isLast) {
            errno = readError;
            return readError != 0 ? FilterOutcome::cannotRead : FilterOutcome::done;
        }
        sinhala.clear();
    }
}

} // namespace vanoka
