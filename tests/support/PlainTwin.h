#pragma once

#include "singlish/SinglishTransliterator.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

/// The rules of transliteration and of the backspace, written down in the plainest way, with a look-up for
/// every candidate and no thought of speed. The judge of the library's own.
namespace vanoka::test::plain {

/// What every key types, and the length of the longest one. Made once where many texts are read.
struct Keys {
    Keys(const SinglishTransliterator& transliterator); // NOLINT(google-explicit-constructor)

    std::unordered_map<std::string, SinglishToken> tokens; // by canonical composition
    std::size_t longest = 0;                               // in characters
};

std::string transliterate(const Keys& keys, std::string_view text);

/// What one backspace leaves of `raw`, which is not empty.
std::string deleteBackward(const Keys& keys, const std::string& raw);

} // namespace vanoka::test::plain
